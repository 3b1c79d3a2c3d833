// Fields that many constructed notations share: property identifiers by
// number or name, optional numbers written "-" when absent, and one
// primitive element read by its scanner.
#ifndef BACFMT_CONSTRUCTED_FIELDS_H
#define BACFMT_CONSTRUCTED_FIELDS_H

#include <cstdint>

#include <bacfmt/scan.h>

namespace bacfmt {

// A property identifier: when a "-" followed by a digit occurs, only the
// text behind the last such "-" counts ("proprietary-512", "x-512"); a
// leading digit reads the decimal number, anything else is a name of the
// property table. 0, or -2 for an unknown name.
int ReadPropertyIdentifier(char *text, uint32_t &property);

// An optional number: absent (all ones) when the text is void (holds a
// "-"), else its decimal value.
uint32_t VoidOrDecimal(char *text);

// The same for an optional signed index: -1 when void.
int32_t VoidOrIndex(char *text);

// Reads exactly one element with a primitive or fixed constructed scanner
// of the four-argument form. 0, or the scanner's negative code.
using FixedScanner = int (*)(char *, void **, int32_t *, int32_t);
template <typename Element>
int ScanOneElement(FixedScanner scanner, char *text, Element &element) {
    void *slot = &element;
    int32_t one = 1;
    const int result = scanner(text, &slot, &one, 0);
    return result < 0 ? result : 0;
}

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_FIELDS_H
