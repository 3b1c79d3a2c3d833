// Extended parameters: the vendor's values that extended event, fault and
// notification parameters carry, each "[tag] value" with the datatype's
// application tag ("[16]" for a reference or a property value).
#ifndef BACFMT_CONSTRUCTED_EXTENDED_H
#define BACFMT_CONSTRUCTED_EXTENDED_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"
#include "print/writer.h"

namespace bacfmt {

// The datatypes an event or fault parameter's extended values may have,
// and those of a notification's.
inline constexpr std::initializer_list<uint32_t> kEventExtendedTypes = {
    CT_NULL, CT_BOOLEAN, CT_UNSIGNED, CT_REAL, CT_DOUBLE, CT_OCTET_STRING, CT_BIT_STRING, CT_ENUMERATED,
    CT_DEV_OBJ_PROP_REFERENCE};
inline constexpr std::initializer_list<uint32_t> kNotificationExtendedTypes = {
    CT_NULL, CT_BOOLEAN, CT_UNSIGNED, CT_SIGNED, CT_REAL, CT_DOUBLE, CT_OCTET_STRING, CT_BIT_STRING,
    CT_ENUMERATED, CT_DEV_OBJ_PROP_VALUE};

// "[tag] value" of the value of `type` at `value`; bit strings are printed
// for `bitsProperty`. "[0] NULL" is copied without a room check; a type
// not among `printable` writes nothing and answers 0.
int PutExtendedValue(Writer &out, uint32_t type, const void *value, uint8_t names, uint32_t bitsProperty,
                     std::initializer_list<uint32_t> printable);

// What reading an extended value's list accepts: the code "[16]" stands
// for, the datatypes taken, and the answer for any other (-3 or -2).
struct ExtendedRules {
    uint32_t referenceType;
    std::initializer_list<uint32_t> accepted;
    int refusal;
};

// Reads "[tag] value" into `type` and the `room` bytes at `value`: the
// bytes its nested parts add, or a negative code; -3 without a tag.
int ReadExtendedValue(char *text, uint32_t &type, void *value, size_t room, NestedParts &parts,
                      const ExtendedRules &rules);

// The release of what an extended value owns (an octet string's bytes, a
// property value's record).
void ReleaseExtendedValue(uint32_t type, void *value);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_EXTENDED_H
