// Element converters of the read access values, for the two-pass scanners
// and the array scanners.
#ifndef BACFMT_CONSTRUCTED_READ_ACCESS_H
#define BACFMT_CONSTRUCTED_READ_ACCESS_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "object,(references)" content of one specification.
int ReadReadAccessSpec(char *text, BACnetReadAccessSpec &specification, NestedParts &parts);
// "object,(items)" content of one result.
int ReadReadAccessResult(char *text, BACnetReadAccessResult &result, NestedParts &parts);
// "property,index,[4] value" or "property,index,[5] (class,code)".
int ReadReadAccessResultItem(char *text, BACnetReadAccessResultItem &item, NestedParts &parts);
// "object,property,index,device,result".
int ReadPropertyAccessResult(char *text, BACnetPropertyAccessResult &result, NestedParts &parts);

// Release hooks of the datatype table.
void ReleaseReadAccessSpecs(void *specifications, uint32_t count);
void ReleaseReadAccessResults(void *results, uint32_t count);
void ReleasePropertyAccessResults(void *results, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_READ_ACCESS_H
