// The datatype code table: for every BACnetContentsType code its name, the
// size of one element, how the print dispatcher prints it (element printer
// and bracket rule), how the scan dispatcher scans it and how a scanned
// payload is released. Both dispatchers are loops over this data; a
// constructed family plugs in by filling its rows' printer, scanner and
// release.
#ifndef BACFMT_DATATYPES_TABLE_H
#define BACFMT_DATATYPES_TABLE_H

#include <cstdint>
#include <initializer_list>

#include <bacfmt/contents.h>

#include "scan/scan_entry.h"

namespace bacfmt {

// What the print dispatcher knows besides the element: the property the
// value belongs to, the symbolic flag and whether the list is bracketed
// (character strings are quoted inside brackets).
struct PrintContext {
    uint32_t propertyId;
    uint8_t symbolic;
    bool bracketed;
};

using ElementPrinter = int (*)(char *dst, int size, const void *element,
                               const PrintContext &context);

// Releases the blocks that `count` elements own (nested arrays, strings,
// embedded records' payloads), not the element array itself.
using ElementRelease = void (*)(void *elements, uint32_t count);

enum class PrintForm : uint8_t {
    List,             // elements separated by commas, bracketed by the rule
    Null,             // "NULL", payload and count ignored
    FirstElementOnly, // octet strings: the first element, never bracketed
};

enum class BracketRule : uint8_t {
    CountOrProperty, // more than one element, or one of the listed properties
    Always,          // even a single or empty element list
    OnlyWhenEmpty,   // bare single element, bare comma list, "()" when empty
};

// Properties whose single value is still printed as a list.
struct PropertySet {
    uint8_t count = 0;
    uint16_t ids[8] = {};

    constexpr PropertySet() = default;
    constexpr PropertySet(std::initializer_list<uint16_t> list) {
        for (uint16_t id : list) ids[count++] = id;
    }
    constexpr bool Contains(uint32_t propertyId) const {
        for (uint8_t i = 0; i < count; ++i)
            if (ids[i] == propertyId) return true;
        return false;
    }
};

struct DatatypeInfo {
    uint32_t code = 0;
    const char *name = nullptr;
    uint32_t elementSize = 0;
    PrintForm form = PrintForm::List;
    ElementPrinter print = nullptr; // null: the code prints "?"
    BracketRule brackets = BracketRule::CountOrProperty;
    PropertySet bracketProperties;
    const char *lead = nullptr; // text before the list ("[ASN1]")
    ScanEntry scan;             // scan.kind == ScanKind::None: no scanner
    ElementRelease release = nullptr; // null: the elements own no blocks

    constexpr bool IsPrimitive() const { return code <= CT_OBJECT_ID && code % 16 == 0; }
    constexpr bool Bracketed(uint32_t count, uint32_t propertyId) const {
        switch (brackets) {
        case BracketRule::Always: return true;
        case BracketRule::OnlyWhenEmpty: return count == 0;
        case BracketRule::CountOrProperty: break;
        }
        return count > 1 || bracketProperties.Contains(propertyId);
    }
};

// The row of `code`, or null for a code that is not in the table.
const DatatypeInfo *FindDatatype(uint32_t code);

// Every row, in code order (for tests and the tool's listings).
const DatatypeInfo *DatatypeRowsBegin();
const DatatypeInfo *DatatypeRowsEnd();

}  // namespace bacfmt

#endif  // BACFMT_DATATYPES_TABLE_H
