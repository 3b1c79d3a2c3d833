// Printers of plain arrays, "(" values ")". Each checks a fixed room per
// element up front. The signed, real and double lists write their
// separators and the closing bracket at the start of the destination while
// the elements go to the current position; their returned totals count
// everything. Callers that print such lists rely on this, so it stays.
#include <cstdint>

#include <bacfmt/print.h>

#include "datatypes/unaligned.h"
#include "print/writer.h"

namespace bacfmt {
namespace {

enum class MarkPlace { Current, Start };

template <typename Element, typename PrintOne>
int PrintList(char *dst, int size, const Element *values, uint32_t count, uint32_t roomPerElement,
              MarkPlace place, PrintOne printOne) {
    if (size < 2) return kNoRoom;
    Writer out(dst, size);
    out.Text(LBracketString);
    // Unsigned on purpose: an empty list wraps around and is refused.
    if (static_cast<uint32_t>(out.room()) <= roomPerElement * count - 1) return kNoRoom;

    // Marks at the start of the destination do not advance the position,
    // but the total counts them.
    int marksAtStart = 0;
    auto mark = [&](const char *text) {
        if (place == MarkPlace::Current) return out.Text(text);
        const int result = BACnetSPrintString(dst, size, text);
        if (result > 0) marksAtStart += result;
        return result;
    };
    for (uint32_t i = 0; i < count; ++i) {
        // A list inside a scanned payload may start at any byte.
        const int result = out.Step(printOne(out.at(), out.room(), LoadElement<Element>(values, i)));
        if (result < 0) return result;
        if (i + 1 < count && mark(CommaString) < 0) return kNoRoom;
    }
    if (out.room() < 2) return kNoRoom;
    if (mark(RBracketString) < 0) return kNoRoom;
    return out.used() + marksAtStart;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintUnsignedList(char *dst, int size, const uint32_t *values,
                                        uint32_t count) {
    return PrintList(dst, size, values, count, 7, MarkPlace::Current, BACnetSPrintUnsigned);
}

extern "C" int BACnetSPrintSignedList(char *dst, int size, const int32_t *values,
                                      uint32_t count) {
    return PrintList(dst, size, values, count, 8, MarkPlace::Start, BACnetSPrintSigned);
}

extern "C" int BACnetSPrintRealList(char *dst, int size, const float *values, uint32_t count) {
    return PrintList(dst, size, values, count, 14, MarkPlace::Start, BACnetSPrintReal);
}

extern "C" int BACnetSPrintDoubleList(char *dst, int size, const double *values,
                                      uint32_t count) {
    return PrintList(dst, size, values, count, 14, MarkPlace::Start, BACnetSPrintDouble);
}

extern "C" int BACnetSPrintEnumList(char *dst, int size, const uint32_t *values, uint32_t count,
                                    uint32_t propertyId, uint8_t mode) {
    return PrintList(dst, size, values, count, 7, MarkPlace::Current,
                     [&](char *at, int room, uint32_t value) {
                         return BACnetSPrintEnum(at, room, value, propertyId, mode);
                     });
}

extern "C" int BACnetSPrintStringList(char *dst, int size, const BACnetCharString *values,
                                      uint32_t count) {
    // Parts are added up without checks, like the other composite printers.
    Writer out(dst, size);
    int sum = out.Text(LBracketString);
    for (uint32_t i = 0; i < count; ++i) {
        if (i > 0) sum += out.Text(CommaString);
        const auto value = LoadElement<BACnetCharString>(values, i);
        if (out.room() > 0)
            sum += out.Step(BACnetSPrintAnyString(out.at(), static_cast<uint32_t>(out.room()), &value, 2, 1));
    }
    sum += out.Text(RBracketString);
    return sum;
}
