/*
 * One-line summaries of service requests for traces and logs.
 *
 * The request records below are those of the protocol stack that calls
 * these functions; only the fields named are read, in the order given.
 * Sizes in comments are those of the 32-bit target.
 *
 * These printers are older than the rest of the printing code and keep
 * their own rules, which differ from print.h:
 * - The write position is a small unsigned counter: 8 bits, or 16 bits in
 *   SPrintReadMultipleInfo and SPrintWriteMultipleInfo. Every addition wraps
 *   modulo its width, so a text longer than 255 (65535) characters restarts
 *   inside the buffer and the result is not its length.
 * - Nothing is measured before it is written, and the result is the final
 *   write position: the characters the text is counted as, never a
 *   negative code. A piece cut short at the end of the buffer still counts
 *   in full, and a value that does not fit (BACnetSPrintContents answering
 *   -2) counts as it is: 254 in the 8-bit counter of
 *   SPrintCOVNotifyInfo, -2 in the 16-bit one of SPrintWriteMultipleInfo.
 *
 * The caller's obligation: a buffer large enough for the whole summary.
 * Some pieces are written without looking at `size`:
 * - SPrintDate and SPrintTime write their whole text (up to 36 and 16
 *   bytes with the terminator, for out-of-range fields); SPrintDateTime
 *   writes the date whole and, when the blank behind it leaves the
 *   position below `size`, the whole time.
 * - SPrintObjectId writes its whole text once `size` is greater than 25,
 *   however long the object type's name is.
 * - SPrintAddress writes its "NNNN," header with its terminator (6 bytes)
 *   once `size` is at least 5.
 * - SPrintReadInfo, SPrintWriteInfo and SPrintReadRangeInfo write "Obj:"
 *   and its terminator (5 bytes) whatever `size` is.
 * - SPrintReadMultipleInfo writes "Obj:" (the first one whatever `size`
 *   is), ",Props:\n" and the "\n" that ends a specification, with their
 *   terminators, whenever the position is still below `size`.
 * - SPrintCOVNotifyInfo writes the "," behind each value and a terminator
 *   after it, that terminator at dst[size] when the value filled the
 *   buffer; behind a value that did not fit, the comma goes two bytes
 *   before where the value started.
 * - SPrintReadFileInfo and SPrintWriteFileInfo write the access part
 *   (",accesstype:...,", the start and the count or length) whole once the
 *   object's text is shorter than `size`, also when SPrintObjectId wrote
 *   nothing because `size` was 25 or less.
 * Every other formatted piece is cut at the end of the buffer and leaves
 * the text terminated there. A buffer of 256 bytes, passed as `size`,
 * holds every single-request summary with standard object type and
 * property names (the longest, a read-range by time, takes 177 bytes),
 * except the values of a COV notification; the multiple-access summaries
 * and the value lists need room for every specification and value.
 */
#ifndef BACFMT_SERVICE_H
#define BACFMT_SERVICE_H

#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Object identifier (8 bytes). */
typedef struct ObjectIdInfo {
    uint32_t type;
    uint32_t instance;
} ObjectIdInfo;

/* Network address (14 bytes). */
typedef struct AddressInfo {
    uint16_t network;
    uint16_t reserved; /* not read */
    uint8_t mac[8];
    uint8_t macLength;
} AddressInfo;

/* ReadProperty (16 bytes). */
typedef struct ReadInfo {
    ObjectIdInfo object;
    uint32_t propertyId;
    int32_t arrayIndex;
} ReadInfo;

/* WriteProperty (44 bytes); only the object, property and index are read. */
typedef struct WriteInfo {
    uint32_t reserved; /* not read */
    ObjectIdInfo object;
    uint32_t propertyId;
    int32_t arrayIndex;
    BACnetContents value; /* not read */
} WriteInfo;

/* Range kinds of a ReadRange request; any other value means no range. */
#define BACNET_RANGE_BY_POSITION 1u
#define BACNET_RANGE_BY_TIME 2u

/* ReadRange (44 bytes). */
typedef struct ReadRangeInfo {
    ObjectIdInfo object;
    uint32_t propertyId;
    int32_t arrayIndex;
    uint32_t rangeKind; /* BACNET_RANGE_... */
    union {
        struct {
            int32_t referencePosition;
            uint32_t count;
        } byPosition;
        struct {
            BACnetDateTime reference;
            int32_t count;
        } byTime;
    } range;
} ReadRangeInfo;

/* One property of a ReadPropertyMultiple specification (8 bytes). */
typedef struct ReadMultipleProperty {
    uint32_t propertyId;
    int32_t arrayIndex;
} ReadMultipleProperty;

/* One ReadPropertyMultiple specification (16 bytes). */
typedef struct ReadMultipleSpec {
    ObjectIdInfo object;
    uint32_t propertyCount;
    const ReadMultipleProperty *properties;
} ReadMultipleSpec;

/* ReadPropertyMultiple (8 bytes). */
typedef struct ReadMultipleInfo {
    uint32_t specCount;
    const ReadMultipleSpec *specifications;
} ReadMultipleInfo;

/* One WritePropertyMultiple specification (16 bytes). */
typedef struct WriteMultipleSpec {
    ObjectIdInfo object;
    uint32_t valueCount;
    const BACnetPropertyValue *values;
} WriteMultipleSpec;

/* WritePropertyMultiple (8 bytes). */
typedef struct WriteMultipleInfo {
    uint32_t specCount;
    const WriteMultipleSpec *specifications;
} WriteMultipleInfo;

/* COV notification (32 bytes). */
typedef struct COVNotifyInfo {
    uint32_t processId;
    ObjectIdInfo device; /* only its instance is printed */
    ObjectIdInfo object;
    uint32_t timeRemaining;
    const BACnetPropertyValue *values;
    uint32_t valueCount;
} COVNotifyInfo;

/* SubscribeCOV (24 bytes). */
typedef struct SubsCOVInfo {
    uint8_t subscribe;
    uint32_t processId;
    ObjectIdInfo object;
    uint8_t confirmed;
    uint32_t lifetime;
} SubsCOVInfo;

/* File access kinds: stream is 0, any other value is record access. */
#define BACNET_FILE_ACCESS_STREAM 0u
#define BACNET_FILE_ACCESS_RECORD 1u

/* AtomicReadFile (20 bytes). */
typedef struct ReadFileInfo {
    ObjectIdInfo file;
    uint32_t accessKind;
    int32_t start;  /* position or record */
    uint32_t count; /* octets or records */
} ReadFileInfo;

/* AtomicWriteFile (32 bytes): a record access prints the record count, a
 * stream access the data's length. */
typedef struct WriteFileInfo {
    ObjectIdInfo file;
    uint32_t accessKind;
    int32_t start; /* position or record */
    uint32_t recordCount;
    BACnetOctetString data;
} WriteFileInfo;

/* "(type name,instance)" when `size` is greater than 25, else nothing and 0. */
BACFMT_API int SPrintObjectId(char *dst, int size, const ObjectIdInfo *r);
/* "NNNN," and two upper-case hex digits per MAC octet. 0 for a null
 * argument or a `size` below 5, and 0 (with the text so far left in place)
 * when an octet does not fit. */
BACFMT_API int SPrintAddress(char *dst, int size, const AddressInfo *r);
/* "dd.mm.yyyy (weekday number)" and "hh:mm:ss.hh", numbers as stored. */
BACFMT_API int SPrintDate(char *dst, int size, const BACnetDate *r);
BACFMT_API int SPrintTime(char *dst, int size, const BACnetTime *r);
BACFMT_API int SPrintDateTime(char *dst, int size, const BACnetDateTime *r);

/* "Obj:(analog-input,1),Prop:present-value,Idx -1" */
BACFMT_API int SPrintReadInfo(char *dst, int size, const ReadInfo *r);
BACFMT_API int SPrintWriteInfo(char *dst, int size, const WriteInfo *r);
/* As SPrintReadInfo with a comma, then "by ref. pos. P, count C",
 * "by time <date-time>, count C" or "No supported range". */
BACFMT_API int SPrintReadRangeInfo(char *dst, int size, const ReadRangeInfo *r);
/* Per specification "Obj:(...),Props:\n(name,Idx i),...\n". */
BACFMT_API int SPrintReadMultipleInfo(char *dst, int size, const ReadMultipleInfo *r);
/* Per specification "Obj:(...)" and ",Prop:name,Idx:i,Value:value" per
 * value, values printed by number; "," between specifications. */
BACFMT_API int SPrintWriteMultipleInfo(char *dst, int size, const WriteMultipleInfo *r);
/* "Proc Id:P, Device Id:D, Obj:(...), Time:T, Values:" and each value
 * (printed by number) followed by ",". The value index is 8 bits wide:
 * at most 256 values are printed. */
BACFMT_API int SPrintCOVNotifyInfo(char *dst, int size, const COVNotifyInfo *r);
/* "ProcID: P, Obj:(...),confirmed:C,lifetime:L,subscribe:S" */
BACFMT_API int SPrintSubsCOVInfo(char *dst, int size, const SubsCOVInfo *r);
/* "(...),accesstype:STREAM,startpos:S,length:N" or
 * "(...),accesstype:RECORD,startrecord:S,count:N". */
BACFMT_API int SPrintReadFileInfo(char *dst, int size, const ReadFileInfo *r);
BACFMT_API int SPrintWriteFileInfo(char *dst, int size, const WriteFileInfo *r);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_SERVICE_H */
