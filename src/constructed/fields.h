// Fields that many constructed notations share: property identifiers by
// number or name, optional numbers written "-" when absent, and one
// primitive element read by its scanner.
#ifndef BACFMT_CONSTRUCTED_FIELDS_H
#define BACFMT_CONSTRUCTED_FIELDS_H

#include <cstddef>
#include <cstdint>

#include <bacfmt/scan.h>

#include "scan/lexical.h"

namespace bacfmt {

// The type an embedded record gets before its value is scanned: the value's
// text says its type (a leading tag, or else the dispatcher's guess).
inline constexpr uint32_t kTypeFromText = 0xFFFFFFFFu;

// The part of a property's text that counts: behind the last "-" that a
// digit follows ("proprietary-512", "x-512"), trimmed.
char *NumberedPart(char *text);

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

// T, F, 1 or 0 (and the other spellings the boolean scanner reads).
inline int ReadBooleanField(char *text, uint8_t &value) { return ScanOneElement(BACnetSScanBoolean, text, value); }

// A whole number, decimal or 0x hexadecimal: -2 unless it starts with a
// digit.
int ReadNumberField(char *text, uint32_t &value);

// "-" (absent: all ones) or a whole number.
int ReadOptionalNumberField(char *text, uint32_t &value);

// Splits `text` into at least `atLeast` and at most N trimmed parts;
// missing parts stay null.
template <size_t N>
bool SplitParts(char *text, char *(&parts)[N], size_t atLeast = N) {
    ElementList list(text);
    if (list.count() < static_cast<int>(atLeast) || list.count() > static_cast<int>(N)) return false;
    for (size_t i = 0; i < N; ++i) parts[i] = nullptr;
    for (int i = 0; i < list.count(); ++i) {
        if ((parts[i] = list.Next()) == nullptr) return false;
        parts[i] = KillTrailLeadSpace(parts[i]);
    }
    return true;
}

// One element written alone, its parts already cut by the walk over the
// whole text (at most N of them; missing ones stay null). As an element
// source it hands over its first part.
template <size_t N>
struct WalkedParts {
    char *part[N] = {};
    explicit WalkedParts(ElementList &walk) {
        for (size_t i = 0; i < N && static_cast<int>(i) < walk.count(); ++i) {
            part[i] = walk.Next();
            if (part[i] != nullptr) part[i] = KillTrailLeadSpace(part[i]);
        }
    }
    int count() const { return 1; }
    char *Next() { return part[0]; }
};

// Whether a part that the element walk handed over was written as a
// bracketed group (the walk hands over a group's content): the byte
// before it, blanks aside, opens a bracket. `textStart` bounds the look.
bool WrittenAsGroup(const char *part, const char *textStart);

// The same for a group written empty, "()", as opposed to nothing at all.
inline bool IsEmptyGroup(const char *part, const char *textStart) {
    return part[0] == '\0' && WrittenAsGroup(part, textStart);
}

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_FIELDS_H
