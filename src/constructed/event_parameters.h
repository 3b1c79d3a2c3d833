// Element converters of event and fault parameters, for the two-pass
// scanners and the array scanners, and the release of what their elements
// own (lists, extended values, strings).
#ifndef BACFMT_CONSTRUCTED_EVENT_PARAMETERS_H
#define BACFMT_CONSTRUCTED_EVENT_PARAMETERS_H

#include <bacfmt/contents.h>

#include <bacfmt/enumtext.h>

#include "constructed/fields.h"
#include "constructed/nested_frame.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {

// "[event type] (fields)": returns what the element's lists add as the
// pass counts them, or a negative code.
int ReadEventParameter(char *text, BACnetEventParameter &value, NestedParts &parts);
// "[fault type] fields", the same way.
int ReadFaultParameter(char *text, BACnetFaultParameter &value, NestedParts &parts);

// "[tag] value" of an event or fault parameter's extended values, and the
// scanner of a list of them in the six-argument form.
int ReadEventExtendedParameter(char *text, BACnetExtendedParameter &parameter, NestedParts &parts);
int ScanEventExtendedParameters(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                                int32_t sizeOnly);

// An enumeration list's items, as event and fault parameters read them:
// the number behind the last hyphen that a digit follows, a number, or a
// name of the table of `Key`.
template <uint32_t Key>
int ScanEnumItems(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<uint32_t>(text, payload, count, sizeOnly, [](char *item, uint32_t &value) {
        item = NumberedPart(item);
        value = IsDecimalDigit(item[0]) ? static_cast<uint32_t>(TextToSigned(item))
                                        : static_cast<uint32_t>(BACnetGetEnumValue(item, Key, 0, 0));
        return 0;
    });
}

void ReleaseEventParameters(void *elements, uint32_t count);
void ReleaseFaultParameters(void *elements, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_EVENT_PARAMETERS_H
