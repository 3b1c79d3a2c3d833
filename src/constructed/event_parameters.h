// Element converters of event and fault parameters, for the two-pass
// scanners and the array scanners, and the release of what their elements
// own (lists, extended values, strings).
#ifndef BACFMT_CONSTRUCTED_EVENT_PARAMETERS_H
#define BACFMT_CONSTRUCTED_EVENT_PARAMETERS_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "[event type] (fields)": returns what the element's lists add as the
// pass counts them, or a negative code.
int ReadEventParameter(char *text, BACnetEventParameter &value, NestedParts &parts);
// "[fault type] fields", the same way.
int ReadFaultParameter(char *text, BACnetFaultParameter &value, NestedParts &parts);

void ReleaseEventParameters(void *elements, uint32_t count);
void ReleaseFaultParameters(void *elements, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_EVENT_PARAMETERS_H
