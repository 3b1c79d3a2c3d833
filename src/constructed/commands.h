// Element converters of the command values, for the two-pass scanners and
// the array scanners.
#ifndef BACFMT_CONSTRUCTED_COMMANDS_H
#define BACFMT_CONSTRUCTED_COMMANDS_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "device,object,property,index,value,priority,postDelay,quit,written"
// (the last field may be left out): one action command; the value is an
// embedded record.
int ReadActionCommand(char *text, BACnetActionCommand &command, NestedParts &parts);
// One action list: its commands in an array of their own.
int ReadActionList(char *text, BACnetActionList &list, NestedParts &parts);
// "operation,target,ramp,step,fade,priority", "-" for an absent field.
int ReadLightingCommand(char *text, BACnetLightingCommand &command);
// "[tag] value": the value held in the element.
int ReadChannelValue(char *text, BACnetChannelValue &value, NestedParts &parts);

// Release hooks of the datatype table: what action lists and channel
// values own in separate blocks.
void ReleaseActionLists(void *lists, uint32_t count);
void ReleaseChannelValues(void *values, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_COMMANDS_H
