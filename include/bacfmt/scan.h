/*
 * Scanning text into values.
 *
 * Scanning runs in two passes. The sizing pass (`sizeOnly` nonzero) writes
 * nothing and returns the bytes the record and its payload need. The filling
 * pass either allocates the record and every payload block with malloc (pass
 * a pointer to a null record pointer), or lays everything out in one caller
 * buffer of the size found, behind a record the caller placed at its start.
 *
 * Results: bytes accounted, or
 *   -1  the element count differs from the expected count,
 *   -2  syntax error (brackets, missing field, unconvertible value),
 *   -3  datatype not settled or not supported, unrecognised form or name,
 *   -4  a choice tag disagrees with the datatype already settled.
 * Scanners cut the text in place: it must be writable, and each pass needs
 * its own copy. Nothing is freed on failure. Scanning is not reentrant.
 *
 * The two passes agree on the byte count except where the sizing pass
 * counts more than the filling pass uses: a double's elements are counted
 * three times, the element array of strings, octet strings and raw data
 * twice. The filling pass never needs more than the sizing pass found.
 * The date and object identifier scanners support texts shorter than 1000
 * bytes; a longer single value is cut to its first 999 bytes.
 */
#ifndef BACFMT_SCAN_H
#define BACFMT_SCAN_H

#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Result of a name lookup that found nothing. */
#define BACNET_ENUM_UNKNOWN (-255)

/*
 * Scans `text` into `*contents`. `expectedCount` 0 or less accepts any count.
 * `tail` must be a valid pointer; a null `*tail` lays the payload directly
 * behind the record, a non-null one is the cursor of a nested scan and gets
 * the advanced cursor back. `hint` is an enumeration selector, usually a
 * property identifier; -1 means none and lets a leading "[n]" tag set the type.
 */
BACFMT_API int BACnetSScanContents(char *text, BACnetContents **contents, int32_t expectedCount,
                                   int32_t separateLists, void **tail, int32_t sizeOnly,
                                   int32_t hint);
BACFMT_API int BACnetSScanContent(char *text, BACnetContents **contents, int32_t expectedCount,
                                  int32_t separateLists, void **tail, int32_t sizeOnly);
/* Value of an enumeration name in the table `selector`; BACNET_ENUM_UNKNOWN
 * when the name is unknown, 0 when no tables exist. Trims `text` in place. */
BACFMT_API int32_t BACnetGetEnumValue(char *text, uint32_t selector, uint32_t unused,
                                      uint8_t exactCase);

/* Primitive scanners. `payload` is the record's data slot: a null slot in the
 * filling pass makes the scanner allocate. `count` holds the expected count
 * on entry and the number found on return (the index of the failing element
 * after a conversion error). */
BACFMT_API int BACnetSScanBoolean(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanUnsigned(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanSigned(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanReal(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanDouble(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanTime(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanDate(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanObjectID(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanDateTime(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanEnum(char *text, void **payload, int32_t *count, int32_t selector,
                               int32_t sizeOnly);
BACFMT_API int BACnetSScanBitString(char *text, void **payload, int32_t *count,
                                    int32_t *expectedBits, int32_t sizeOnly);
/* Variable-length scanners: octets or characters go behind the element
 * array, or at `*tail` when that is not null (which then gets the advanced
 * cursor), or into malloc blocks of their own when `separateLists` is set or
 * the scanner allocated the element array. The result counts the elements
 * and each element's buffer. */
BACFMT_API int BACnetSScanOctetString(char *text, void **payload, int32_t separateLists,
                                      void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanASN1String(char *text, void **payload, int32_t separateLists,
                                     void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanString(char *text, void **payload, int32_t separateLists,
                                 void **tail, int32_t *count, int32_t sizeOnly);
/* Optional character strings: per element "[7]" and a string as above, or
 * "[0]NULL" (any case), which stores an element of the character set
 * BACNET_CHARSET_NULL_CHOICE holding an empty text (a buffer of one byte).
 * A missing tag or another choice answers -3, and so does a "[7]" string
 * while the character set setting is BACNET_CHARSET_NULL_CHOICE. */
BACFMT_API int BACnetSScanOptionalCharString(char *text, void **payload, int32_t separateLists,
                                             void **tail, int32_t *count, int32_t sizeOnly);

/* Calendar and schedule values and references, fixed form: `payload`,
 * `count` and `sizeOnly` as for the primitive scanners; the result is the
 * elements' bytes. */
BACFMT_API int BACnetSScanDateRange(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanWeekNDay(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanCalendarEntry(char *text, void **payload, int32_t *count,
                                        int32_t sizeOnly);
BACFMT_API int BACnetSScanTimeStamp(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanObjPropReference(char *text, void **payload, int32_t *count,
                                           int32_t sizeOnly);
BACFMT_API int BACnetSScanDevObjReference(char *text, void **payload, int32_t *count,
                                          int32_t sizeOnly);
BACFMT_API int BACnetSScanDevObjPropReference(char *text, void **payload, int32_t *count,
                                              int32_t sizeOnly);
/* Uses the shared backup buffer: not reentrant. "()" reads as no
 * element (count 0, result 0). */
BACFMT_API int BACnetSScanSetpointReference(char *text, void **payload, int32_t *count,
                                            int32_t sizeOnly);
BACFMT_API int BACnetSScanPropertyReference(char *text, void **payload, int32_t *count,
                                            int32_t sizeOnly);
/* "[choice] value"; an unknown name is stored as the lookup answers it. */
BACFMT_API int BACnetSScanPropertyStates(char *text, void **payload, int32_t *count,
                                         int32_t sizeOnly);
/* Values with nested content (embedded records, arrays of time values):
 * nested parts go behind the element array, or at `*tail` when that is not
 * null (which then gets the advanced cursor), or into malloc blocks of
 * their own when `separateLists` is set or the scanner allocated the
 * element array. The result counts the elements and every nested part;
 * an embedded record is counted once more on top of its element. */
BACFMT_API int BACnetSScanTimeValue(char *text, void **payload, int32_t separateLists,
                                    void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanDailySchedule(char *text, void **payload, int32_t separateLists,
                                        void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanSpecialEvent(char *text, void **payload, int32_t separateLists,
                                       void **tail, int32_t *count, int32_t sizeOnly);
/* Property values: a caller that lets the scanner allocate the element
 * array must pass `separateLists` nonzero (this implementation switches
 * to separate blocks itself then rather than write behind the array).
 * The sizing pass reads only the value parts. A device object property
 * value reads one value; its list form sizes but does not fill (-2). */
BACFMT_API int BACnetSScanPropertyValue(char *text, void **payload, int32_t separateLists,
                                        void **tail, int32_t *count, int32_t sizeOnly);
/* Recipients and bindings. A MAC is "0x" (or X'') and at most eight
 * octets in pairs of hexadecimal digits; anything else is -2. */
BACFMT_API int BACnetSScanAddress(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanRecipient(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanDestination(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanAddressBinding(char *text, void **payload, int32_t *count,
                                         int32_t sizeOnly);
/* Subscriptions, access control and network security values. A value
 * of fields is one group "(a,b,...)", a list a group of groups. An
 * authentication factor's octets lie behind the element array (the
 * dispatcher moves its cursor past the elements only) or in blocks of
 * their own. */
BACFMT_API int BACnetSScanClientCov(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanCovSubscription(char *text, void **payload, int32_t *count,
                                          int32_t sizeOnly);
BACFMT_API int BACnetSScanEventNotificationSubscription(char *text, void **payload,
                                                        int32_t separateLists, int32_t *count,
                                                        int32_t sizeOnly);
BACFMT_API int BACnetSScanProcessIdSelection(char *text, void **payload, int32_t separateLists,
                                             int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanAuthenticationFactorFormat(char *text, void **payload, int32_t *count,
                                                     int32_t sizeOnly);
BACFMT_API int BACnetSScanAuthenticationFactor(char *text, void **payload, int32_t separateLists,
                                               void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanAssignedAccessRights(char *text, void **payload, int32_t *count,
                                               int32_t sizeOnly);
BACFMT_API int BACnetSScanAccessRule(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanPortPermission(char *text, void **payload, int32_t separateLists,
                                         int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanVtSession(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanNetworkSecurityPolicy(char *text, void **payload, int32_t *count,
                                                int32_t sizeOnly);
BACFMT_API int BACnetSScanKeyIdentifier(char *text, void **payload, int32_t *count,
                                        int32_t sizeOnly);
BACFMT_API int BACnetSScanCredentialAuthenticationFactor(char *text, void **payload,
                                                         int32_t separateLists, void **tail,
                                                         int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanAuthenticationPolicy(char *text, void **payload, int32_t separateLists,
                                               void **tail, int32_t *count, int32_t sizeOnly);
/* A session key holds at most eleven octets. */
BACFMT_API int BACnetSScanSessionKey(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanSecurityKeySet(char *text, void **payload, int32_t separateLists,
                                         void **tail, int32_t *count, int32_t sizeOnly);
/* Event and fault parameters. The filling pass counts an extended list as
 * 128 bytes whatever it holds (and a change-of-character-string list not
 * at all): size with the sizing pass. The sizing pass takes fault type 0
 * and character-string extended values, which the filling pass refuses. */
BACFMT_API int BACnetSScanEventParameter(char *text, void **payload, int32_t separateLists,
                                         void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanFaultParameter(char *text, void **payload, int32_t separateLists,
                                         void **tail, int32_t *count, int32_t sizeOnly);
/* Notification parameters: one element when the text starts with its
 * "[type]" tag (the expected count is then not checked), else a list of
 * bracketed elements. The sizing pass does not check the fields of types
 * 7 and 10, and tells an absent present value (type 18) by the second
 * field rather than the first. */
BACFMT_API int BACnetSScanNotificationParameters(char *text, void **payload, int32_t separateLists,
                                                 void **tail, int32_t *count, int32_t sizeOnly);
/* Log records. A text without a top-level comma holds no record (0). A
 * record whose choice part starts with "[" is read alone; a list's log
 * records must have three parts each and known choices. An event log
 * record's notification blocks go at the tail (in separate-list mode in
 * blocks of their own); its sizing pass counts them, its filling pass does
 * not. */
BACFMT_API int BACnetSScanLogRecord(char *text, void **payload, int32_t separateLists, void **tail,
                                    int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanLogRecordMultiple(char *text, void **payload, int32_t separateLists,
                                            void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanLogRecordMultipleEntry(char *text, void **payload, int32_t separateLists,
                                                 void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanEventLogRecord(char *text, void **payload, int32_t separateLists,
                                         void **tail, int32_t *count, int32_t sizeOnly);
/* Priority array slots: the filling pass counts the slots only, the sizing
 * pass adds what strings, octet strings and embedded records need behind
 * them, so size with the sizing pass. */
BACFMT_API int BACnetSScanPriArrayItem(char *text, void **payload, int32_t separateLists,
                                       void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanDevObjPropValue(char *text, void **payload, int32_t separateLists,
                                          void **tail, int32_t *count, int32_t sizeOnly);

/* Commands, actions and metering values. An action list reads
 * "(command,...)"; a single command written bare, with eight or nine
 * fields, is a list of one. The action list array (what the dispatcher
 * calls for CT_ACTION_LIST) reads one list or a list of lists. */
BACFMT_API int BACnetSScanActionList(char *text, void **payload, int32_t separateLists,
                                     void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanActionListArray(char *text, void **payload, int32_t separateLists,
                                          void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanLightingCommand(char *text, void **payload, int32_t *count,
                                          int32_t sizeOnly);
BACFMT_API int BACnetSScanChannelValue(char *text, void **payload, int32_t separateLists,
                                       void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanAccumulatorRecord(char *text, void **payload, int32_t *count,
                                            int32_t sizeOnly);
BACFMT_API int BACnetSScanPrescale(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanScale(char *text, void **payload, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanShedLevel(char *text, void **payload, int32_t *count, int32_t sizeOnly);

/* Read access specifications and results. Allocating the element array
 * itself (a null `*payload` in the filling pass), the specification and
 * result scanners make room for one element only: a list of more than one
 * then fails with -2 instead of being read. A result item's value is read
 * without a datatype tag, which separate blocks cannot do (-3): read
 * results into one block. The filling pass takes the size of one object
 * identifier (8 bytes) more per specification or result than the sizing
 * pass counts, and in a list moves the tail by as much: give a block laid
 * out from the sizing pass 8 bytes more per element. */
BACFMT_API int BACnetSScanReadAccessSpec(char *text, void **payload, int32_t separateLists,
                                         void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanReadAccessResult(char *text, void **payload, int32_t separateLists,
                                           void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanReadAccessResultItem(char *text, void **payload, int32_t separateLists,
                                               void **tail, int32_t *count, int32_t sizeOnly);
BACFMT_API int BACnetSScanPropertyAccessResult(char *text, void **payload, int32_t separateLists,
                                               void **tail, int32_t *count, int32_t sizeOnly);

/*
 * Releases a scanned record and every block it owns. Call it only on a
 * record whose payload was allocated block by block: one the filling pass
 * allocated (a null record pointer on entry), also after a failed scan.
 * Never call it on a payload laid out in one caller buffer.
 */
BACFMT_API void BACnetFreeContents(BACnetContents *contents);
/* The same for a record the caller owns (scanned with `separateLists` set
 * into a record of its own): releases the payload blocks and clears `data`. */
BACFMT_API void BACnetFreeContentsPayload(BACnetContents *contents);

/* Bit-string helpers. */
BACFMT_API int BACnetTestBitStringBit(const BACnetBitString *bits, uint8_t bit);
BACFMT_API int BACnetSetBitStringBit(BACnetBitString *bits, uint8_t bit, uint8_t value);
/* "10TF..." into a bit string; 0, or 22 (EINVAL) for a bad argument or character. */
BACFMT_API int BACnetCharStringToBitString(const char *text, BACnetBitString *bits);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_SCAN_H */
