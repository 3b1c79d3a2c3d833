// Element converters of the schedule values, for the two-pass scanners and
// the array scanners, and the release hooks of what their elements own.
#ifndef BACFMT_CONSTRUCTED_SCHEDULE_H
#define BACFMT_CONSTRUCTED_SCHEDULE_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "time,[tag] value": the value is an embedded record; returns the bytes
// it adds, or a negative code.
int ReadTimeValue(char *text, BACnetTimeValue &pair, NestedParts &parts);
// "[0] calendar entry|[1] calendar,(pairs),priority": the pairs in an
// array of their own; returns the bytes they add, or a negative code.
int ReadSpecialEvent(char *text, BACnetSpecialEvent &event, NestedParts &parts);

void ReleaseTimeValues(void *values, uint32_t count);
void ReleaseDailySchedules(void *days, uint32_t count);
void ReleaseSpecialEvents(void *events, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_SCHEDULE_H
