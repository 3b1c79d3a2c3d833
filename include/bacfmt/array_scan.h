/* Array scanners: configuration text into a caller's own elements, one
 * value or one parenthesised list, with a system error number as the
 * result: 0, 22 (EINVAL) for a null argument, a text that does not parse or
 * a field out of range, 12 (ENOMEM) when the working copy of the text
 * cannot be made. Each reads the notation the matching printer writes;
 * elements already written stay written after a failure. Nothing is
 * allocated that outlives the call. The element layouts are those of
 * contents.h. Not reentrant (the scanners share backup buffers). */
#ifndef BACFMT_ARRAY_SCAN_H
#define BACFMT_ARRAY_SCAN_H

#include <stdint.h>

#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Element scanners: one value into `element`. */
BACFMT_API int BACnetScanTime(const char *text, BACnetTime *element);
BACFMT_API int BACnetScanDate(const char *text, BACnetDate *element);
BACFMT_API int BACnetScanDateTime(const char *text, BACnetDateTime *element);
BACFMT_API int BACnetScanDateRange(const char *text, BACnetDateRange *element);
BACFMT_API int BACnetScanWeekNDay(const char *text, BACnetWeekNDay *element);
BACFMT_API int BACnetScanCalendarEntry(const char *text, BACnetCalendarEntry *element);
BACFMT_API int BACnetScanBitString(const char *text, BACnetBitString *element);
BACFMT_API int BACnetScanObjectIdentifier(const char *text, BACnetObjectID *element);
BACFMT_API int BACnetScanObjPropReference(const char *text, BACnetObjPropReference *element);
BACFMT_API int BACnetScanSetpointReference(const char *text, BACnetSetpointReference *element);
BACFMT_API int BACnetScanDevObjReference(const char *text, BACnetDevObjReference *element);
BACFMT_API int BACnetScanDevObjPropReference(const char *text, BACnetDevObjPropReference *element);
BACFMT_API int BACnetScanScale(const char *text, BACnetScale *element);
BACFMT_API int BACnetScanPrescale(const char *text, BACnetPrescale *element);
BACFMT_API int BACnetScanPropertyStates(const char *text, BACnetPropertyStates *element);
BACFMT_API int BACnetScanAccumulatorRecord(const char *text, BACnetAccumulatorRecord *element);
BACFMT_API int BACnetScanAddress(const char *text, BACnetAddress *element);
BACFMT_API int BACnetScanRecipient(const char *text, BACnetRecipient *element);
BACFMT_API int BACnetScanAddressBinding(const char *text, BACnetAddressBinding *element);
BACFMT_API int BACnetScanDestination(const char *text, BACnetDestination *element);

/* "(\"a\",\"b\")" into `strings`, the characters laid out directly behind
 * the `count` elements (give count * 16 + the text's length bytes); with
 * `strings` null only `count` and `bytes` (what that layout needs) are
 * set. */
BACFMT_API int BACnetScanStringArray(const char *text, uint32_t *count, BACnetCharString *strings,
                                     uint32_t *bytes);
/* "(1,0x10,010)": strtol base 0; with `values` null only `count` is set. */
BACFMT_API int BACnetScanUnsignedArray(const char *text, uint32_t *count, uint32_t *values);

/* List scanners: "(element,element,...)" into `elements`, at most `*count`
 * of them (with `elements` null: counting only, at most 100000 when
 * `*count` is 0). `*count` gets the number read; the result is the first
 * element's failure, or 0. */
BACFMT_API int BACnetScanDateList(const char *text, BACnetDate *elements, uint32_t *count);
BACFMT_API int BACnetScanCalendarEntryList(const char *text, BACnetCalendarEntry *elements,
                                           uint32_t *count);
BACFMT_API int BACnetScanBitStringList(const char *text, BACnetBitString *elements, uint32_t *count);
BACFMT_API int BACnetScanDevObjReferenceList(const char *text, BACnetDevObjReference *elements,
                                             uint32_t *count);
BACFMT_API int BACnetScanDevObjPropReferenceList(const char *text,
                                                 BACnetDevObjPropReference *elements,
                                                 uint32_t *count);
BACFMT_API int BACnetScanPropertyStatesList(const char *text, BACnetPropertyStates *elements,
                                            uint32_t *count);
BACFMT_API int BACnetScanRecipientList(const char *text, BACnetRecipient *elements, uint32_t *count);
BACFMT_API int BACnetScanAddressBindingList(const char *text, BACnetAddressBinding *elements,
                                            uint32_t *count);
BACFMT_API int BACnetScanDestinationList(const char *text, BACnetDestination *elements,
                                         uint32_t *count);
/* Enumeration values by number or by the names of `propertyId`'s table. */
BACFMT_API int BACnetScanEnumList(const char *text, uint32_t *elements, uint32_t *count,
                                  uint32_t propertyId);

/* Values whose elements own nested parts (a time/value's value, a special
 * event's pairs, a command's value, ...) lay those parts out in the
 * caller's `room`: it must hold what the scanner's sizing pass counts
 * beyond the elements plus BACNET_ARRAY_SCAN_SLACK bytes (for the values
 * whose filling pass takes more), else the result is 22 and nothing is
 * written. `room` may be null when `roomSize` is 0. */
#define BACNET_ARRAY_SCAN_SLACK 64u

BACFMT_API int BACnetScanTimeValue(const char *text, BACnetTimeValue *element, void *room,
                                   uint32_t roomSize);
BACFMT_API int BACnetScanSpecialEvent(const char *text, BACnetSpecialEvent *element, void *room,
                                      uint32_t roomSize);
BACFMT_API int BACnetScanEventParameter(const char *text, BACnetEventParameter *element, void *room,
                                        uint32_t roomSize);
BACFMT_API int BACnetScanFaultParameter(const char *text, BACnetFaultParameter *element, void *room,
                                        uint32_t roomSize);
/* One command, or a tagged primitive value ("[4] 21.5", "[7] text"). */
BACFMT_API int BACnetScanActionCommand(const char *text, BACnetActionCommand *element, void *room,
                                       uint32_t roomSize);
BACFMT_API int BACnetScanTaggedValue(const char *text, BACnetChannelValue *element, void *room,
                                     uint32_t roomSize);
BACFMT_API int BACnetScanReadAccessSpec(const char *text, BACnetReadAccessSpec *element, void *room,
                                        uint32_t roomSize);
/* The sixteen slots of a priority array. */
BACFMT_API int BACnetScanPriorityArray(const char *text, BACnetPriArrayItem *sixteenItems, void *room,
                                       uint32_t roomSize);
/* Lists of them: with `elements` null only `*count` is set; otherwise
 * `*count` is the room for elements in, the number read out. */
BACFMT_API int BACnetScanTimeValueList(const char *text, BACnetTimeValue *elements, uint32_t *count,
                                       void *room, uint32_t roomSize);
BACFMT_API int BACnetScanDailySchedule(const char *text, BACnetDailySchedule *elements,
                                       uint32_t *count, void *room, uint32_t roomSize);
BACFMT_API int BACnetScanSpecialEventList(const char *text, BACnetSpecialEvent *elements,
                                          uint32_t *count, void *room, uint32_t roomSize);
BACFMT_API int BACnetScanActionCommandList(const char *text, BACnetActionCommand *elements,
                                           uint32_t *count, void *room, uint32_t roomSize);
BACFMT_API int BACnetScanActionCommandListArray(const char *text, BACnetActionList *elements,
                                                uint32_t *count, void *room, uint32_t roomSize);
/* The extended values of an event or fault parameter, "([tag] value,...)". */
BACFMT_API int BACnetScanExtendedValues(const char *text, BACnetExtendedParameter *elements,
                                        uint32_t *count, void *room, uint32_t roomSize);
/* One octet string "0x..." into `element`, its octets in the room. */
BACFMT_API int BACnetScanOctetString(const char *text, BACnetOctetString *element, void *room,
                                     uint32_t roomSize);
BACFMT_API int BACnetScanReadAccessSpecList(const char *text, BACnetReadAccessSpec *elements,
                                            uint32_t *count, void *room, uint32_t roomSize);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_ARRAY_SCAN_H */
