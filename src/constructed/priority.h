// Element converters of the choice-typed values, priority array slots and
// property states, for the two-pass scanners and the array scanners.
#ifndef BACFMT_CONSTRUCTED_PRIORITY_H
#define BACFMT_CONSTRUCTED_PRIORITY_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "[n] value", "NULL", or a value whose text tells its datatype. In the
// sizing pass: what a string, octet string or embedded record adds beyond
// the slot; 0 in the filling pass; or a negative code.
int ReadPriArrayItem(char *text, BACnetPriArrayItem &item, NestedParts &parts);
// "[choice] value"; -3 without a tag.
int ReadPropertyStates(char *text, BACnetPropertyStates &states);

void ReleasePriArrayItems(void *items, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_PRIORITY_H
