// Element converters of the reference values, for the two-pass scanners
// and the array scanners, and the release hooks of the values that embed
// a record.
#ifndef BACFMT_CONSTRUCTED_REFERENCES_H
#define BACFMT_CONSTRUCTED_REFERENCES_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// Each reads the text of one list element (its own brackets removed by the
// walk) into `reference`: 0 or a negative code.
// "object,property[,index]"; an index that is not a number is none.
int ReadObjPropReference(char *text, BACnetObjPropReference &reference);
// "device|-,object".
int ReadDevObjReference(char *text, BACnetDevObjReference &reference);
// "object,property[,index|-][,device|-]", or "object,property,(device)".
int ReadDevObjPropReference(char *text, BACnetDevObjPropReference &reference);
// An object property reference in its brackets, or nothing (not present).
int ReadSetpointReference(char *text, BACnetSetpointReference &reference);
// "property,index|-".
int ReadPropertyReference(char *text, BACnetPropertyReference &reference);
// "property,index|-,[tag] value,priority|-": the value is an embedded
// record; returns the bytes it adds.
int ReadPropertyValue(char *text, BACnetPropertyValue &value, NestedParts &parts);

void ReleasePropertyValues(void *values, uint32_t count);
void ReleaseDevObjPropValues(void *values, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_REFERENCES_H
