// The converter of notification parameters, for the event log records and
// the array scanners, and the release of what an element owns.
#ifndef BACFMT_CONSTRUCTED_NOTIFICATION_H
#define BACFMT_CONSTRUCTED_NOTIFICATION_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "[event type] field,field,...": returns what the element's nested parts
// add, or a negative code.
int ReadNotificationParameters(char *text, BACnetNotificationParameters &value, NestedParts &parts);

void ReleaseNotificationParameters(void *elements, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_NOTIFICATION_H
