// The enumerations of the standard, generated from data/enumerations/ by
// scripts/gen_enumtext.py, and the lookups over them.
#ifndef BACFMT_TEXTSERVICES_ENUM_TABLES_H
#define BACFMT_TEXTSERVICES_ENUM_TABLES_H

#include <cstdint>

#include "enumeration.h"

namespace bacfmt::text {

#include "enum_tables.inc"

// The enumeration kept under `key`, or null.
const Enumeration *FindKeyedEnumeration(uint32_t key);

// The enumeration that `objectType` gives `property`, or null when the
// property's datatype does not depend on that object type.
const Enumeration *FindObjectPropertyEnumeration(uint32_t objectType, uint32_t property);

}  // namespace bacfmt::text

#endif  // BACFMT_TEXTSERVICES_ENUM_TABLES_H
