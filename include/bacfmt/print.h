/*
 * Printing values as text.
 *
 * Every BACnetSPrint... function writes into `dst`, whose capacity `size`
 * includes the terminating zero, and returns the number of characters
 * written (terminator not counted) or a negative code: -2 when the text does
 * not fit, other negative values passed through from the C library. The text
 * written so far is always zero-terminated. `symbolic` zero prints
 * enumerations, object types and booleans as numbers, nonzero by name.
 *
 * Caller's obligation: the number and tag printers below check a fixed
 * threshold instead of measuring and, once `size` passes it, write their
 * whole text however long it is, past `size` if need be. Every printer built
 * from them (lists, object identifiers, enumerations, constructed values and
 * BACnetSPrintContents) hands them the room it has left, so the same may
 * happen at its end: keep BACNET_PRINT_OVERRUN bytes writable behind `size`
 * for any of them, or give the room the whole text needs.
 */
#ifndef BACFMT_PRINT_H
#define BACFMT_PRINT_H

#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Size of the static buffer behind BACnetPrintContents. */
#define BACNET_PRINT_BUFFER_SIZE 524288

/* The most any printer writes past `size`: a double's "%f" text (317
 * characters and the terminator) written whole at size 13. */
#define BACNET_PRINT_OVERRUN 305

/* prefixMode: 0 none, 1 "[tag] " before primitive values, 2 before every value. */
BACFMT_API int BACnetSPrintContents(char *dst, int size, const BACnetContents *contents,
                                    uint32_t propertyId, uint8_t symbolic, uint8_t prefixMode);
/* Prints into the library's static buffer and returns it; not reentrant. */
BACFMT_API char *BACnetPrintContents(const BACnetContents *contents, uint32_t propertyId,
                                     uint8_t symbolic);
BACFMT_API char *BACnetPrintBuffer(uint32_t *sizeOut);
/* "[tag]" when size is greater than 8, else -2 and nothing written. Writes
 * up to 14 bytes ("[-2147483648]") once size exceeds 8. */
BACFMT_API int BACnetSPrintTag(char *dst, int size, int tag);

/* Length of what `format` would produce. */
BACFMT_API int _scprintf(const char *format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;
BACFMT_API int BACnetSPrintString(char *dst, int size, const char *text);

/* Primitive values. The four number printers write their whole text once
 * `size` exceeds their threshold, even past `size`, and return its length. */
/* Writes up to 11 bytes once size exceeds 6; at 6 or less -2, nothing written. */
BACFMT_API int BACnetSPrintUnsigned(char *dst, int size, uint32_t value);
/* Writes up to 12 bytes once size exceeds 7; at 7 or less 0, nothing written. */
BACFMT_API int BACnetSPrintSigned(char *dst, int size, int32_t value);
BACFMT_API int BACnetSPrintBoolean(char *dst, int size, uint8_t value, uint8_t symbolic);
/* "%f". Writes up to 48 bytes once size exceeds 12; at 12 or less -2,
 * nothing written. */
BACFMT_API int BACnetSPrintReal(char *dst, int size, float value);
/* "%f". Writes up to 318 bytes once size exceeds 12; at 12 or less -2,
 * nothing written. */
BACFMT_API int BACnetSPrintDouble(char *dst, int size, double value);
/* mode 0 number; 1 "n => name"; 2 "n => name (n)"; 3 as 1, load-control
 * names for present-value. The name is copied with the whole `size` as its
 * room, behind the number and " => ": up to 15 bytes past `size`. */
BACFMT_API int BACnetSPrintEnum(char *dst, int size, uint32_t value, uint32_t propertyId,
                                uint8_t mode);
BACFMT_API int BACnetSPrintBitString(char *dst, int size, const BACnetBitString *value,
                                     uint32_t propertyId, uint8_t symbolic);
/* Accepts size 2 + 2 * length exactly, and then writes its terminator one
 * byte past `size`. */
BACFMT_API int BACnetSPrintHex(char *dst, int size, const uint8_t *octets, uint32_t length);
BACFMT_API int BACnetSPrintOctetString(char *dst, int size, const BACnetOctetString *value);
BACFMT_API int BACnetSPrintRawASN1(char *dst, int size, const BACnetRawASN1 *value);
BACFMT_API int BACnetSPrintDate(char *dst, int size, const BACnetDate *value);
BACFMT_API int BACnetSPrintTime(char *dst, int size, const BACnetTime *value);
BACFMT_API int BACnetSPrintDateTime(char *dst, int size, const BACnetDateTime *value);
BACFMT_API int BACnetSPrintObjectID(char *dst, int size, const BACnetObjectID *value,
                                    uint8_t symbolic);

/* Calendar and schedule values. `names` nonzero prints enumerations and
 * object types by name, and is handed on to nested values. */
BACFMT_API int BACnetSPrintDateRange(char *dst, int size, const BACnetDateRange *value);
BACFMT_API int BACnetSPrintWeekNDay(char *dst, int size, const BACnetWeekNDay *value);
/* A choice other than 0..2 writes only "[n] " and returns twice its length. */
BACFMT_API int BACnetSPrintCalendarEntry(char *dst, int size, const BACnetCalendarEntry *value);
BACFMT_API int BACnetSPrintTimeValue(char *dst, int size, const BACnetTimeValue *value, int names);
BACFMT_API int BACnetSPrintDailySchedule(char *dst, int size, const BACnetDailySchedule *value,
                                         int names);
BACFMT_API int BACnetSPrintSpecialEvent(char *dst, int size, const BACnetSpecialEvent *value,
                                        int names);
BACFMT_API int BACnetSPrintTimeStamp(char *dst, int size, const BACnetTimeStamp *value);
/* Lists of calendar values, "(" elements ")". The calendar-entry and
 * time-value lists stop at the first failing element; the time-stamp,
 * daily-schedule and special-event lists add every element's result, a
 * negative one included, and go on: give them room for the whole text. */
BACFMT_API int BACnetSPrintCalendarEntryList(char *dst, int size, const BACnetCalendarEntry *list,
                                             unsigned count);
BACFMT_API int BACnetSPrintTimeValueList(char *dst, int size, const BACnetTimeValue *list,
                                         unsigned count, int names);
BACFMT_API int BACnetSPrintTimeStampList(char *dst, int size, const BACnetTimeStamp *list,
                                         unsigned count, int ignored);
BACFMT_API int BACnetSPrintDailyScheduleList(char *dst, int size, const BACnetDailySchedule *list,
                                             int ignored, int names, unsigned count);
BACFMT_API int BACnetSPrintSpecialEventList(char *dst, int size, const BACnetSpecialEvent *list,
                                            int ignored, int names, unsigned count);

/* Priority array slots and property states. A slot prints without its
 * tag; a double slot is measured as the "%d" of its first word and written
 * as its "%e" (up to 14 characters and the terminator): give it room for
 * 15 bytes. The array prints its sixteen slots. A property-states choice
 * without a value writes only "[n] " and returns twice its length. */
BACFMT_API int BACnetSPrintPriArrayItem(char *dst, int size, const BACnetPriArrayItem *value);
BACFMT_API int BACnetSPrintPriArray(char *dst, int size, const BACnetPriArrayItem *sixteenItems);
BACFMT_API int BACnetSPrintPropertyStates(char *dst, int size, const BACnetPropertyStates *value,
                                          int names);

/* Recipients and bindings: an address "(network,0xMAC)", a recipient
 * "[0] device" or "[1] address", a destination "(days,from,to,recipient,
 * process,confirmed,transitions)", a binding "(device,address)". */
BACFMT_API int BACnetSPrintAddress(char *dst, int size, const BACnetAddress *value);
BACFMT_API int BACnetSPrintRecipient(char *dst, int size, const BACnetRecipient *value,
                                     uint8_t symbolic);
BACFMT_API int BACnetSPrintDestination(char *dst, int size, const BACnetDestination *value,
                                       uint8_t symbolic);
BACFMT_API int BACnetSPrintAddressBinding(char *dst, int size, const BACnetAddressBinding *value,
                                          uint8_t symbolic);

/* Subscriptions: a client COV increment "[0] real" or "[1] NULL", a COV
 * subscription "(recipient,process,(object,property,index),confirmed,
 * time remaining,increment|-)", an event notification subscription
 * "(recipient,process,confirmed,time remaining)", a process identifier
 * selection "[0] process" or "[1] NULL". */
BACFMT_API int BACnetSPrintClientCOV(char *dst, int size, const BACnetClientCov *value);
BACFMT_API int BACnetSPrintCovSubscription(char *dst, int size, const BACnetCovSubscription *value,
                                           uint8_t symbolic);
BACFMT_API int BACnetSPrintEventNotificationSubscription(
    char *dst, int size, const BACnetEventNotificationSubscription *value, uint8_t symbolic);
BACFMT_API int BACnetSPrintProcessIdSelection(char *dst, int size,
                                              const BACnetProcessIdSelection *value, uint8_t symbolic);

/* Access control values: a factor format "(type,vendor|-,format|-)", a
 * factor "(type,class,0xoctets)", assigned access rights
 * "((device|-,object),enabled)", an access rule "(time specifier,time
 * range|-,location specifier,location|-,enabled)" (specifier 0: the
 * reference that follows; 1: always / all), a port permission
 * "(port,enabled)". */
BACFMT_API int BACnetSPrintAuthenticationFactorFormat(char *dst, int size,
                                                      const BACnetAuthenticationFactorFormat *value,
                                                      uint8_t symbolic);
BACFMT_API int BACnetSPrintAuthenticationFactor(char *dst, int size,
                                                const BACnetAuthenticationFactor *value,
                                                uint8_t symbolic);
/* A credential authentication factor "(disable,factor)"; an
 * authentication policy "(((device|-,object),index),...),order enforced,
 * timeout)". */
BACFMT_API int BACnetSPrintCredentialAuthenticationFactor(
    char *dst, int size, const BACnetCredentialAuthenticationFactor *value, uint8_t symbolic);
BACFMT_API int BACnetSPrintAuthenticationPolicy(char *dst, int size,
                                                const BACnetAuthenticationPolicy *value,
                                                uint8_t symbolic);
BACFMT_API int BACnetSPrintAssignedAccessRights(char *dst, int size,
                                                const BACnetAssignedAccessRights *value,
                                                uint8_t symbolic);
BACFMT_API int BACnetSPrintAccessRule(char *dst, int size, const BACnetAccessRule *value,
                                      uint8_t symbolic);
BACFMT_API int BACnetSPrintPortPermission(char *dst, int size, const BACnetPortPermission *value,
                                          uint8_t symbolic);

/* Network security values: a VT session "(local,remote,(network,0xMAC))",
 * a policy "(port,security level)", a key identifier "(algorithm,key)". */
BACFMT_API int BACnetSPrintVtSession(char *dst, int size, const BACnetVtSession *value,
                                     uint8_t symbolic);
BACFMT_API int BACnetSPrintNetworkSecurityPolicy(char *dst, int size,
                                                 const BACnetNetworkSecurityPolicy *value,
                                                 uint8_t symbolic);
BACFMT_API int BACnetSPrintKeyIdentifier(char *dst, int size, const BACnetKeyIdentifier *value,
                                         uint8_t symbolic);
/* A session key "(0xkey,(network,0xMAC))"; a key set "(revision,
 * activation,expiration,(key identifiers))". */
BACFMT_API int BACnetSPrintSessionKey(char *dst, int size, const BACnetSessionKey *value,
                                      uint8_t symbolic);
BACFMT_API int BACnetSPrintSecurityKeySet(char *dst, int size, const BACnetSecurityKeySet *value,
                                          uint8_t symbolic);

/* Event and fault parameters: "[type] " and the algorithm's fields. The
 * event parameter's bit strings print for `propertyId`. The closing ")"
 * of event types 13, 17 and 18 is written without a room check, as is an
 * extended "[0] NULL": give them 9 bytes of room. */
BACFMT_API int BACnetSPrintEventParameter(char *dst, int size, const BACnetEventParameter *value,
                                          uint32_t propertyId, uint8_t symbolic);
BACFMT_API int BACnetSPrintFaultParameter(char *dst, int size, const BACnetFaultParameter *value,
                                          uint8_t symbolic);

/* Notification parameters: "[type] " and the type's fields, without
 * brackets. -3 for a change-of-value choice or command-value datatype it
 * does not know. An extended parameter of datatype NULL is copied as
 * "[0] NULL" without a room check: give it 9 bytes of room. */
BACFMT_API int BACnetSPrintNotificationParameters(char *dst, int size,
                                                  const BACnetNotificationParameters *value,
                                                  uint8_t symbolic);

/* Log records: "(" date-time ",[choice] " value ... ")". A choice without
 * a form writes nothing and returns 0. */
BACFMT_API int BACnetSPrintLogRecord(char *dst, int size, const BACnetLogRecord *value, int names);
BACFMT_API int BACnetSPrintLogRecordMultiple(char *dst, int size, const BACnetLogRecordMultiple *value,
                                             int names);
BACFMT_API int BACnetSPrintLogRecordMultipleLogDataEntry(char *dst, int size,
                                                         const BACnetLogDataEntry *value, int names);
BACFMT_API int BACnetSPrintEventLogRecord(char *dst, int size, const BACnetEventLogRecord *value,
                                          int names);

/* Object and property references and property values. */
BACFMT_API int BACnetSPrintObjPropReference(char *dst, int size,
                                            const BACnetObjPropReference *value, int names);
BACFMT_API int BACnetSPrintDevObjReference(char *dst, int size,
                                           const BACnetDevObjReference *value, int names);
BACFMT_API int BACnetSPrintDevObjPropReference(char *dst, int size,
                                               const BACnetDevObjPropReference *value, int names);
BACFMT_API int BACnetSPrintSetpointReference(char *dst, int size,
                                             const BACnetSetpointReference *value, int names);
BACFMT_API int BACnetSPrintPropertyReference(char *dst, int size,
                                             const BACnetPropertyReference *value, int names);
BACFMT_API int BACnetSPrintPropertyValue(char *dst, int size, const BACnetPropertyValue *value,
                                         int names);
BACFMT_API int BACnetSPrintDevObjPropValue(char *dst, int size, const BACnetDevObjPropValue *value,
                                           int names);
/* Lists of references. The object list writes its closing bracket at the
 * start of the destination, so that its text is ")" while its result is
 * the whole length plus one. The device-object and device-object-property
 * lists add every element's result, a negative one included, and go on:
 * give them room for the whole text. */
BACFMT_API int BACnetSPrintObjectList(char *dst, int size, const BACnetObjectID *list,
                                      unsigned count, int names);
BACFMT_API int BACnetSPrintObjPropRefList(char *dst, int size, const BACnetObjPropReference *list,
                                          int names, unsigned count);
BACFMT_API int BACnetSPrintDevObjRefList(char *dst, int size, const BACnetDevObjReference *list,
                                         int names, unsigned count);
BACFMT_API int BACnetSPrintDevObjPropRefList(char *dst, int size,
                                             const BACnetDevObjPropReference *list, int names,
                                             unsigned count);

/* Commands, actions and metering values. The command's property prints
 * by name always, its value with its datatype prefix; an enumerated value
 * always as a number. */
BACFMT_API int BACnetSPrintActionCommand(char *dst, int size, const BACnetActionCommand *command,
                                         uint8_t symbolic);
BACFMT_API int BACnetSPrintActionList(char *dst, int size, const BACnetActionList *list,
                                      uint8_t symbolic);
BACFMT_API int BACnetSPrintAction(char *dst, int size, const BACnetActionList *lists,
                                  uint8_t symbolic, uint32_t count);
BACFMT_API int BACnetSPrintLightingCommand(char *dst, int size,
                                           const BACnetLightingCommand *command, uint8_t symbolic);
BACFMT_API int BACnetSPrintChannelValue(char *dst, int size, const BACnetChannelValue *value,
                                        uint8_t symbolic);
BACFMT_API int BACnetSPrintAccumulatorRecord(char *dst, int size,
                                             const BACnetAccumulatorRecord *record);
BACFMT_API int BACnetSPrintPrescale(char *dst, int size, const BACnetPrescale *prescale);
/* -3 for a datatype other than CT_SIGNED and CT_REAL. */
BACFMT_API int BACnetSPrintScale(char *dst, int size, const BACnetScale *scale);
/* -3 for a choice other than 0..2. */
BACFMT_API int BACnetSPrintShedLevel(char *dst, int size, const BACnetShedLevel *shedLevel);

/* Read access specifications and results. A result item's property and
 * index print as numbers, its value without a datatype tag behind the
 * result choice "[4] " (an enumeration always as a number) or its error as
 * "[5] (class,code)". The "[4] " is copied without a capacity check: give
 * room for the whole text, or up to 4 bytes past `size` may be written. */
BACFMT_API int BACnetSPrintReadAccessSpec(char *dst, int size, const BACnetReadAccessSpec *value,
                                          int names);
BACFMT_API int BACnetSPrintReadAccessResult(char *dst, int size,
                                            const BACnetReadAccessResult *value, int names);
/* With an index and no device the text closes a bracket early and does not
 * read back. */
BACFMT_API int BACnetSPrintPropertyAccessResult(char *dst, int size,
                                                const BACnetPropertyAccessResult *value, int names);
/* "(" class text "," code text ")"; the pieces are not checked: the result
 * is their sum. */
BACFMT_API int BACnetSPrintErrorType(char *dst, int size, const BACnetErrorType *value);

/* Group values, print only. The pieces are not checked: a piece that does
 * not fit adds its negative result to the total and the next piece is
 * written where that leaves the position (never before the start). Give
 * room for the whole text and treat a negative total as failure. */
BACFMT_API int BACnetSPrintGroup(char *dst, int size, const BACnetReadAccessSpec *members,
                                 uint8_t symbolic, uint32_t count);
BACFMT_API int BACnetSPrintGroupMember(char *dst, int size, const BACnetReadAccessSpec *member,
                                       uint8_t symbolic);
BACFMT_API int BACnetSPrintGroupRes(char *dst, int size, const BACnetReadAccessResult *results,
                                    uint8_t symbolic, uint32_t count);
BACFMT_API int BACnetSPrintGroupResLstMember(char *dst, int size,
                                             const BACnetReadAccessResult *result,
                                             uint8_t symbolic);
BACFMT_API int BACnetSPrintRawResult(char *dst, int size, const BACnetReadAccessResultItem *item,
                                     uint8_t symbolic);

/* Plain arrays of primitive values, "(" values ")". */
BACFMT_API int BACnetSPrintUnsignedList(char *dst, int size, const uint32_t *values,
                                        uint32_t count);
BACFMT_API int BACnetSPrintSignedList(char *dst, int size, const int32_t *values,
                                      uint32_t count);
BACFMT_API int BACnetSPrintRealList(char *dst, int size, const float *values, uint32_t count);
BACFMT_API int BACnetSPrintDoubleList(char *dst, int size, const double *values,
                                      uint32_t count);
BACFMT_API int BACnetSPrintEnumList(char *dst, int size, const uint32_t *values,
                                    uint32_t count, uint32_t propertyId, uint8_t mode);
BACFMT_API int BACnetSPrintStringList(char *dst, int size, const BACnetCharString *values,
                                      uint32_t count);

/* Character strings: UTF-8 output, quoted when `quote` is nonzero so that
 * the scanner can read the text back. `style` is ignored. */
BACFMT_API int BACnetSPrintAnyString(char *dst, uint32_t size, const BACnetCharString *s,
                                     uint32_t style, uint8_t quote);

/* UTF-8 coders and whole-string converters. */
BACFMT_API int utf8_encode(uint32_t code, uint8_t *dst, int capacity);
BACFMT_API int utf8_decode(uint32_t *code, const uint8_t *src);
BACFMT_API int bacstr_to_utf8(const BACnetCharString *s, uint8_t *dst, uint32_t capacity);
BACFMT_API int bacstr_from_utf8(BACnetCharString *s, const uint8_t *src, uint32_t length);

/* Character set and code page given to the strings that scanners build
 * (defaults 0 and 850). */
BACFMT_API void BACnetSetBACnetCharstringEncodingTypeAndCodepage(uint32_t type,
                                                                 uint32_t codepage);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_PRINT_H */
