// The two ways the constructed printers write a list of elements: stopping
// at the first piece that does not fit, or adding every piece's result,
// a negative one included, and going on (the position follows the sum but
// never moves before the start of the destination).
#ifndef BACFMT_CONSTRUCTED_LIST_PRINTERS_H
#define BACFMT_CONSTRUCTED_LIST_PRINTERS_H

#include <cstdint>

#include <bacfmt/contents.h>

#include "datatypes/unaligned.h"
#include "print/writer.h"

namespace bacfmt {

// The elements of `list` with "," between, stopping at the first failure:
// 0, or the failing piece's negative result. Elements may start at any
// byte; `printOne` gets an aligned copy.
template <typename Element, typename PrintOne>
int PrintEach(Writer &out, const Element *list, uint32_t count, PrintOne printOne) {
    for (uint32_t i = 0; list != nullptr && i < count; ++i) {
        if (i > 0 && out.Text(CommaString) < 0) return kNoRoom;
        const int result = printOne(LoadElement<Element>(list, i));
        if (result < 0) return result;
    }
    return 0;
}

// "(" each element "," between ")", every result added to the total,
// which is returned.
template <typename Element, typename PrintOne>
int SumBracketed(Writer &out, const Element *list, uint32_t count, PrintOne printOne) {
    int sum = out.AddText(LBraceString);
    for (uint32_t i = 0; list != nullptr && i < count; ++i) {
        if (i > 0) sum += out.AddText(CommaString);
        sum += printOne(LoadElement<Element>(list, i));
    }
    return sum + out.AddText(RBraceString);
}

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_LIST_PRINTERS_H
