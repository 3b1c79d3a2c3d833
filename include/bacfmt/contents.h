/*
 * The value record, its datatype codes and the element layouts of the
 * primitive datatypes.
 *
 * A BACnetContents record carries one BACnet data value: a datatype code,
 * an element count and a pointer to an array of that many elements laid out
 * as the code prescribes. The byte counts quoted in comments are those of
 * the 32-bit target; code uses sizeof so that a 64-bit host stays consistent.
 */
#ifndef BACFMT_CONTENTS_H
#define BACFMT_CONTENTS_H

#include <stdint.h>

#if defined(BACFMT_BUILDING_LIBRARY)
#define BACFMT_API __attribute__((visibility("default")))
#else
#define BACFMT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* One value: 24 bytes on the 32-bit target. */
typedef struct BACnetContents {
    uint32_t type;        /* a BACnetContentsType code */
    uint32_t count;       /* number of elements; 1 for a single value */
    void *data;           /* array of `count` elements */
    int32_t size;         /* payload bytes as computed by the scanner */
    uint32_t reserved[2]; /* never read or written by the library */
} BACnetContents;

/* Datatype codes: primitive codes are the application tag times 16,
 * constructed codes start at 256, 512..515 hold raw encoded data. */
typedef enum BACnetContentsType {
    CT_NULL = 0,
    CT_BOOLEAN = 16,
    CT_UNSIGNED = 32,
    CT_SIGNED = 48,
    CT_REAL = 64,
    CT_DOUBLE = 80,
    CT_OCTET_STRING = 96,
    CT_CHARACTER_STRING = 112,
    CT_BIT_STRING = 128,
    CT_ENUMERATED = 144,
    CT_DATE = 160,
    CT_TIME = 176,
    CT_OBJECT_ID = 192,

    CT_PRI_ARRAY_ITEM = 256,
    CT_ADDRESS = 257,
    CT_DATE_TIME = 258,
    CT_OBJ_PROP_REFERENCE = 259,
    CT_PROPERTY_STATES = 260,
    CT_EVENT_PARAMETER = 261,
    CT_DATE_RANGE = 262,
    CT_WEEK_N_DAY = 263,
    CT_CALENDAR_ENTRY = 264,
    CT_TIME_VALUE = 265,
    CT_SPECIAL_EVENT = 266,
    /* 267 is left unassigned */
    CT_RECIPIENT = 268,
    CT_SETPOINT_REFERENCE = 269,
    CT_DESTINATION = 270,
    CT_DAILY_SCHEDULE = 271,
    CT_TIME_STAMP = 272,
    CT_PROPERTY_REFERENCE = 273,
    CT_ADDRESS_BINDING = 274,
    CT_DEV_OBJ_PROP_REFERENCE = 275,
    CT_CLIENT_COV = 276,
    CT_LOG_RECORD = 277,
    CT_ACTION_LIST = 278,
    CT_READ_ACCESS_SPEC = 279,
    CT_READ_ACCESS_RESULT = 280,
    CT_COV_SUBSCRIPTION = 281,
    CT_DEV_OBJ_REFERENCE = 282,
    CT_DEV_OBJ_PROP_VALUE = 283,
    CT_ACCUMULATOR_RECORD = 284,
    CT_PRESCALE = 285,
    CT_SCALE = 286,
    CT_EVENT_LOG_RECORD = 287,
    CT_LOG_RECORD_MULTIPLE = 288,
    CT_SHED_LEVEL = 289,
    CT_AUTHENTICATION_POLICY = 290,
    CT_AUTHENTICATION_FACTOR = 291,
    CT_CREDENTIAL_AUTHENTICATION_FACTOR = 292,
    CT_ACCESS_RULE = 293,
    CT_ASSIGNED_ACCESS_RIGHTS = 294,
    CT_AUTHENTICATION_FACTOR_FORMAT = 295,
    CT_OPTIONAL_CHARACTER_STRING = 296,
    CT_PROPERTY_ACCESS_RESULT = 297,
    CT_VT_SESSION = 298,
    CT_SESSION_KEY = 299,
    CT_NETWORK_SECURITY_POLICY = 300,
    CT_KEY_IDENTIFIER = 301,
    CT_SECURITY_KEY_SET = 302,
    CT_LIGHTING_COMMAND = 303,
    CT_CHANNEL_VALUE = 304,
    CT_EVENT_NOTIFICATION_SUBSCRIPTION = 305,
    CT_PROCESS_ID_SELECTION = 306,
    CT_PORT_PERMISSION = 307,
    CT_FAULT_PARAMETER = 308,

    CT_ASN1_FIRST = 512,
    CT_ASN1_SECOND = 513,
    CT_ASN1_THIRD = 514,
    CT_ASN1_LAST = 515 /* scans, but prints as "?" */
} BACnetContentsType;

/* Character set codes of a character string (first field of the element). */
enum {
    BACNET_CHARSET_ANSI_X34 = 0,  /* 8-bit units, printed as UTF-8 with each unit taken as a code */
    BACNET_CHARSET_DBCS = 1,      /* 16-bit units, carries a code page */
    BACNET_CHARSET_JIS_X0208 = 2, /* 8-bit units */
    BACNET_CHARSET_UCS4 = 3,      /* 32-bit units */
    BACNET_CHARSET_UCS2 = 4,      /* 16-bit units */
    BACNET_CHARSET_ISO8859_1 = 5, /* 8-bit units */
    BACNET_CHARSET_NULL_CHOICE = -1 /* 0xFFFFFFFF: the NULL of an optional string */
};

/* A 32-bit array index, priority or week field of all ones means absent. */
#define BACNET_ABSENT_U32 0xFFFFFFFFu

/* Octet string element (12 bytes): pointer first, length last. */
typedef struct BACnetOctetString {
    uint8_t *octets;
    uint32_t bufferSize; /* the scanner sets both sizes to the octet count */
    uint32_t length;
} BACnetOctetString;

/* Character string element (16 bytes): zero-terminated units of 1, 2 or 4
 * bytes depending on the character set. */
typedef struct BACnetCharString {
    uint32_t charSet;
    uint16_t codePage;   /* only for BACNET_CHARSET_DBCS, else 0 */
    uint32_t bufferSize; /* bytes, terminating unit included */
    void *chars;
} BACnetCharString;

#define BACNET_BITSTRING_MAX_BITS 80
#define BACNET_BITSTRING_BYTES 10

/* Bit string element (24 bytes). Bit n lives in byte n/8 under mask
 * 0x80 >> (n % 8). `given` marks the bits a scanned text spelled out. */
typedef struct BACnetBitString {
    uint32_t bitCount;
    uint8_t bits[BACNET_BITSTRING_BYTES];
    uint8_t given[BACNET_BITSTRING_BYTES];
} BACnetBitString;

/* Date element (16 bytes). */
typedef struct BACnetDate {
    uint16_t year;      /* full year; 65535 = unspecified */
    uint32_t month;     /* 0 = unspecified */
    uint8_t day;        /* 255 = unspecified; 32..34 are special days */
    uint32_t dayOfWeek; /* 0 = unspecified, 1 = Monday */
} BACnetDate;

/* Time element (4 bytes); 255 in a field means unspecified. */
typedef struct BACnetTime {
    uint8_t hour;
    uint8_t minute;
    uint8_t second;
    uint8_t hundredths;
} BACnetTime;

/* Object identifier element (8 bytes). */
typedef struct BACnetObjectID {
    uint32_t type;
    uint32_t instance;
} BACnetObjectID;

/* Raw encoded data element (8 bytes): length first, pointer last. */
typedef struct BACnetRawASN1 {
    uint32_t length;
    uint8_t *octets;
} BACnetRawASN1;

/* Date and time element (20 bytes). */
typedef struct BACnetDateTime {
    BACnetDate date;
    BACnetTime time;
} BACnetDateTime;

/*
 * Element layouts of the constructed datatypes. Sizes are those of the
 * 32-bit target. In a payload laid out in one block, a nested array or an
 * embedded record's payload may start at any byte address (the cursor moves
 * by 5 after a NULL, by 1 after a boolean); the library reads and writes
 * such elements by copying them, and callers walking such a payload
 * should do the same.
 */

/* Date range element (32 bytes). */
typedef struct BACnetDateRange {
    BACnetDate start;
    BACnetDate end;
} BACnetDateRange;

/* Week-and-day element (12 bytes). */
typedef struct BACnetWeekNDay {
    uint32_t month;     /* 0 = unspecified, 13 odd, 14 even months */
    uint32_t week;      /* BACNET_ABSENT_U32 = unspecified */
    uint32_t dayOfWeek; /* 0 = unspecified, 1 = Monday */
} BACnetWeekNDay;

enum {
    BACNET_CALENDAR_DATE = 0,
    BACNET_CALENDAR_DATE_RANGE = 1,
    BACNET_CALENDAR_WEEK_N_DAY = 2
};

/* Calendar entry element (36 bytes): a date, a range or a pattern. */
typedef struct BACnetCalendarEntry {
    uint32_t choice; /* BACNET_CALENDAR_... */
    union {
        BACnetDate date;
        BACnetDateRange range;
        BACnetWeekNDay weekNDay;
    } u;
} BACnetCalendarEntry;

/* Time/value element (28 bytes): the value is a whole record of its own. */
typedef struct BACnetTimeValue {
    BACnetTime time;
    BACnetContents value;
} BACnetTimeValue;

/* Daily schedule element (8 bytes). */
typedef struct BACnetDailySchedule {
    BACnetTimeValue *timeValues;
    uint32_t count;
} BACnetDailySchedule;

enum {
    BACNET_SPECIAL_EVENT_CALENDAR_ENTRY = 0,
    BACNET_SPECIAL_EVENT_CALENDAR_REFERENCE = 1
};

/* Special event element (52 bytes). */
typedef struct BACnetSpecialEvent {
    uint32_t periodChoice; /* BACNET_SPECIAL_EVENT_... */
    union {
        BACnetCalendarEntry entry;
        BACnetObjectID calendar;
    } period;
    BACnetTimeValue *timeValues;
    uint32_t count;
    uint8_t priority;
} BACnetSpecialEvent;

enum {
    BACNET_TIME_STAMP_TIME = 0,
    BACNET_TIME_STAMP_SEQUENCE = 1,
    BACNET_TIME_STAMP_DATE_TIME = 2
};

/* Time stamp element (24 bytes). */
typedef struct BACnetTimeStamp {
    uint32_t choice; /* BACNET_TIME_STAMP_... */
    union {
        BACnetTime time;
        uint32_t sequence;
        BACnetDateTime dateTime;
    } u;
} BACnetTimeStamp;

/* Object property reference element (16 bytes). */
/* Priority array slot (28 bytes): a datatype code (all ones = unknown)
 * and a value of that type. A double is kept as two words (the slot is
 * only 4-byte aligned on the 32-bit target); copy it out with memcpy.
 * Code 514 holds a whole embedded record. */
typedef struct BACnetPriArrayItem {
    uint32_t type;
    union {
        uint8_t boolean;
        uint32_t unsignedValue; /* also an enumeration value */
        int32_t signedValue;
        float real;
        uint32_t doubleWords[2];
        BACnetOctetString octets;
        BACnetCharString string;
        BACnetBitString bits;
        BACnetDate date;
        BACnetTime time;
        BACnetObjectID objectId;
        BACnetDateTime dateTime;
        BACnetContents contents;
    } u;
} BACnetPriArrayItem;

/* Property states element (8 bytes): the choice and its value, a boolean
 * for choice 0. */
typedef struct BACnetPropertyStates {
    uint32_t choice;
    union {
        uint8_t boolean;
        uint32_t value;
    } u;
} BACnetPropertyStates;

typedef struct BACnetObjPropReference {
    BACnetObjectID object;
    uint32_t propertyId;
    int32_t arrayIndex; /* -1 (all ones) = absent */
} BACnetObjPropReference;

/* Device object reference element (20 bytes). */
typedef struct BACnetDevObjReference {
    BACnetObjectID object;
    uint8_t devicePresent;
    BACnetObjectID device; /* valid when devicePresent is nonzero */
} BACnetDevObjReference;

/* Device object property reference element (28 bytes). */
typedef struct BACnetDevObjPropReference {
    BACnetObjectID object;
    uint32_t propertyId;
    int32_t arrayIndex; /* -1 (all ones) = absent */
    uint8_t devicePresent;
    BACnetObjectID device;
} BACnetDevObjPropReference;

/* Setpoint reference element (20 bytes). */
typedef struct BACnetSetpointReference {
    uint8_t present;
    BACnetObjPropReference reference;
} BACnetSetpointReference;

/* Property reference element (8 bytes). */
typedef struct BACnetPropertyReference {
    uint32_t propertyId;
    uint32_t arrayIndex; /* BACNET_ABSENT_U32 = absent */
} BACnetPropertyReference;

/* Property value element (36 bytes); it has no datatype code of its own. */
typedef struct BACnetPropertyValue {
    uint32_t propertyId;
    uint32_t arrayIndex; /* BACNET_ABSENT_U32 = absent */
    BACnetContents value;
    uint32_t priority;   /* BACNET_ABSENT_U32 = absent */
} BACnetPropertyValue;

/* Device object property value element (48 bytes). */
typedef struct BACnetDevObjPropValue {
    BACnetObjectID device;
    BACnetObjectID object;
    uint32_t propertyId;
    uint32_t arrayIndex; /* BACNET_ABSENT_U32 = absent */
    BACnetContents value;
} BACnetDevObjPropValue;

/* Recipients and bindings. */

/* Network address element (12 bytes): network 0 is the local network; a
 * MAC of length 0 a broadcast. */
typedef struct BACnetAddress {
    uint16_t network;
    uint8_t macLength;
    uint8_t mac[8];
} BACnetAddress;

enum {
    BACNET_RECIPIENT_DEVICE = 0,
    BACNET_RECIPIENT_ADDRESS = 1
};

/* Recipient element (16 bytes): a device or an address. */
typedef struct BACnetRecipient {
    uint32_t choice; /* BACNET_RECIPIENT_... */
    union {
        BACnetObjectID device;
        BACnetAddress address;
    } u;
} BACnetRecipient;

/* Notification destination element (80 bytes). */
typedef struct BACnetDestination {
    BACnetBitString validDays; /* Monday first */
    BACnetTime fromTime;
    BACnetTime toTime;
    BACnetRecipient recipient;
    uint32_t processId;
    uint8_t issueConfirmed;
    BACnetBitString transitions; /* to-offnormal, to-fault, to-normal */
} BACnetDestination;

/* Address binding element (20 bytes). */
typedef struct BACnetAddressBinding {
    BACnetObjectID device;
    BACnetAddress address;
} BACnetAddressBinding;

/* Subscriptions. */

enum {
    BACNET_CLIENT_COV_REAL_INCREMENT = 0,
    BACNET_CLIENT_COV_DEFAULT_INCREMENT = 1
};

/* Client COV increment element (8 bytes): a real increment, or the
 * object's default. */
typedef struct BACnetClientCov {
    uint32_t choice; /* BACNET_CLIENT_COV_... */
    float increment;
} BACnetClientCov;

/* COV subscription element (52 bytes). */
typedef struct BACnetCovSubscription {
    BACnetRecipient recipient;
    uint32_t processId;
    BACnetObjPropReference monitored;
    uint8_t issueConfirmed;
    uint32_t timeRemaining;
    uint8_t incrementPresent;
    float increment;
} BACnetCovSubscription;

/* Event notification subscription element (28 bytes). */
typedef struct BACnetEventNotificationSubscription {
    BACnetRecipient recipient;
    uint32_t processId;
    uint8_t issueConfirmed;
    uint32_t timeRemaining;
} BACnetEventNotificationSubscription;

enum {
    BACNET_PROCESS_ID = 0,
    BACNET_PROCESS_ID_NULL = 1
};

/* Process identifier selection element (8 bytes). */
typedef struct BACnetProcessIdSelection {
    uint32_t choice; /* BACNET_PROCESS_ID... */
    uint32_t processId;
} BACnetProcessIdSelection;

/* Access control values. */

/* Authentication factor format element (12 bytes); vendor fields all ones
 * when absent. */
typedef struct BACnetAuthenticationFactorFormat {
    uint32_t formatType;
    uint32_t vendorId;
    uint32_t vendorFormat;
} BACnetAuthenticationFactorFormat;

/* Authentication factor element (20 bytes): its octets lie behind the
 * element array or in a block of their own. */
typedef struct BACnetAuthenticationFactor {
    uint32_t formatType;
    uint32_t formatClass;
    BACnetOctetString value;
} BACnetAuthenticationFactor;

/* Credential authentication factor element (24 bytes). */
typedef struct BACnetCredentialAuthenticationFactor {
    uint32_t disable; /* enumerated */
    BACnetAuthenticationFactor factor;
} BACnetCredentialAuthenticationFactor;

/* One entry of an authentication policy (24 bytes). */
typedef struct BACnetAuthenticationPolicyEntry {
    BACnetDevObjReference credentialDataInput;
    uint32_t index;
} BACnetAuthenticationPolicyEntry;

/* Authentication policy element (16 bytes): its entries lie behind the
 * element array or in a block of their own. */
typedef struct BACnetAuthenticationPolicy {
    uint32_t count;
    BACnetAuthenticationPolicyEntry *entries;
    uint8_t orderEnforced;
    uint32_t timeout;
} BACnetAuthenticationPolicy;

/* Assigned access rights element (24 bytes). */
typedef struct BACnetAssignedAccessRights {
    BACnetDevObjReference accessRights;
    uint8_t enable;
} BACnetAssignedAccessRights;

/* Access rule element (60 bytes): a time range and a location, each
 * "specified" (0) by its reference or "always"/"all" (1). */
typedef struct BACnetAccessRule {
    uint32_t timeRangeSpecifier;
    BACnetDevObjPropReference timeRange;
    uint32_t locationSpecifier;
    BACnetDevObjReference location;
    uint8_t enable;
} BACnetAccessRule;

/* Port permission element (8 bytes). */
typedef struct BACnetPortPermission {
    uint32_t portId;
    uint8_t enabled;
} BACnetPortPermission;

/* Network security values. */

/* VT session element (20 bytes). */
typedef struct BACnetVtSession {
    uint32_t localSessionId;
    uint32_t remoteSessionId;
    BACnetAddress remoteAddress;
} BACnetVtSession;

/* Network security policy element (8 bytes). */
typedef struct BACnetNetworkSecurityPolicy {
    uint32_t portId;
    uint32_t securityLevel; /* enumerated */
} BACnetNetworkSecurityPolicy;

/* Key identifier element (8 bytes). */
typedef struct BACnetKeyIdentifier {
    uint32_t algorithm;
    uint32_t keyId;
} BACnetKeyIdentifier;

/* Session key element (24 bytes): up to eleven key octets and the peer. */
typedef struct BACnetSessionKey {
    uint8_t keyLength;
    uint8_t key[11];
    BACnetAddress peer;
} BACnetSessionKey;

/* Security key set element (52 bytes): its key identifiers lie behind the
 * element array or in a block of their own. */
typedef struct BACnetSecurityKeySet {
    uint32_t revision;
    BACnetDateTime activation;
    BACnetDateTime expiration;
    uint32_t count;
    BACnetKeyIdentifier *keyIds;
} BACnetSecurityKeySet;

/* Event and fault parameters. */

/* Extended parameter (32 bytes): a datatype code (0, 16, 32, 64, 80, 96,
 * 128, 144 or CT_DEV_OBJ_PROP_REFERENCE) and its value. A double is kept
 * as two words; copy it out with memcpy. */
typedef struct BACnetExtendedParameter {
    uint32_t type;
    union {
        uint8_t boolean;
        uint32_t unsignedValue; /* also an enumeration value */
        float real;
        uint32_t doubleWords[2];
        BACnetOctetString octets;
        BACnetBitString bits;
        BACnetDevObjPropReference reference;
    } u;
} BACnetExtendedParameter;

/* Event parameter element (52 bytes): the event type and, by type, the
 * algorithm's settings. Doubles are kept as word pairs. */
typedef struct BACnetEventParameter {
    uint32_t eventType;
    union {
        struct { uint32_t timeDelay; BACnetBitString bitmask; BACnetBitString *values; uint32_t count; } changeOfBitstring; /* 0 */
        struct { uint32_t timeDelay; BACnetPropertyStates *values; uint32_t count; } changeOfState;                         /* 1 */
        struct {
            uint32_t timeDelay;
            uint32_t choice; /* 0 bitmask, 1 referenced property increment */
            union { BACnetBitString bitmask; float increment; } u;
        } changeOfValue;                                                                                                  /* 2 */
        struct { uint32_t timeDelay; BACnetDevObjPropReference feedback; } commandFailure;                                 /* 3 */
        struct {
            uint32_t timeDelay;
            BACnetDevObjPropReference setpoint;
            float lowDiffLimit;
            float highDiffLimit;
            float deadband;
        } floatingLimit;                                                                                                  /* 4 */
        struct { uint32_t timeDelay; float lowLimit; float highLimit; float deadband; } outOfRange;                        /* 5 */
        struct { uint32_t threshold; uint32_t previousCount; } bufferReady;                                               /* 7, 10 */
        struct {
            uint32_t timeDelay;
            uint32_t lifeSafetyCount;
            uint32_t *lifeSafetyValues;
            uint32_t alarmCount;
            uint32_t *alarmValues;
            BACnetDevObjPropReference mode;
        } changeOfLifeSafety;                                                                                             /* 8 */
        struct { uint32_t vendorId; uint32_t extendedType; uint32_t count; BACnetExtendedParameter *parameters; } extended; /* 9 */
        struct { uint32_t timeDelay; uint32_t lowLimit; uint32_t highLimit; } unsignedRange;                              /* 11 */
        struct { uint32_t count; uint32_t *accessEvents; BACnetDevObjPropReference timeReference; } accessEvent;           /* 13 */
        struct { uint32_t timeDelay; uint32_t lowLimit[2]; uint32_t highLimit[2]; uint32_t deadband[2]; } doubleOutOfRange; /* 14 */
        struct { uint32_t timeDelay; int32_t lowLimit; int32_t highLimit; int32_t deadband; } signedOutOfRange;            /* 15 */
        struct { uint32_t timeDelay; uint32_t lowLimit; uint32_t highLimit; uint32_t deadband; } unsignedOutOfRange;      /* 16 */
        struct { uint32_t timeDelay; uint32_t count; BACnetCharString *strings; } changeOfCharacterString;                 /* 17 */
        struct { uint32_t timeDelay; BACnetBitString selectedFlags; } changeOfStatusFlags;                                /* 18 */
        uint32_t words[12];
    } u;
} BACnetEventParameter;

/* Fault parameter element (40 bytes): the fault type and its settings. */
typedef struct BACnetFaultParameter {
    uint32_t faultType;
    union {
        struct { uint32_t count; BACnetCharString *strings; } characterString;                                              /* 1 */
        struct { uint32_t vendorId; uint32_t extendedType; uint32_t count; BACnetExtendedParameter *parameters; } extended; /* 2 */
        struct { uint32_t count; uint32_t *values; BACnetDevObjPropReference mode; } lifeSafety;                           /* 3 */
        struct { uint32_t count; BACnetPropertyStates *values; } state;                                                    /* 4 */
        BACnetDevObjPropReference statusFlags;                                                                            /* 5 */
        uint32_t words[9];
    } u;
} BACnetFaultParameter;

/* Notification parameters: the values an event notification carries, by
 * event type (the types of the event parameters). No datatype code of
 * their own: event log records hold them. */

/* Extended notification parameter (52 bytes): a datatype code (0, 16, 32,
 * 48, 64, 80, 96, 128, 144 or CT_DEV_OBJ_PROP_VALUE) and its value. A
 * double is kept as two words; copy it out with memcpy. */
typedef struct BACnetNotificationExtendedParameter {
    uint32_t type;
    union {
        uint8_t boolean;
        uint32_t unsignedValue; /* also an enumeration value */
        int32_t signedValue;
        float real;
        uint32_t doubleWords[2];
        BACnetOctetString octets;
        BACnetBitString bits;
        BACnetDevObjPropValue value;
    } u;
} BACnetNotificationExtendedParameter;

/* Notification parameters element (104 bytes): the event type and, by
 * type, its fields. Doubles are kept as word pairs. */
typedef struct BACnetNotificationParameters {
    uint32_t eventType;
    union {
        struct { BACnetBitString referencedBits; BACnetBitString statusFlags; } changeOfBitstring;          /* 0 */
        struct { BACnetPropertyStates newState; BACnetBitString statusFlags; } changeOfState;                /* 1 */
        struct {
            uint32_t choice; /* 0 changed bits, 1 changed value */
            union { BACnetBitString changedBits; float changedValue; } u;
            BACnetBitString statusFlags;
        } changeOfValue;                                                                                     /* 2 */
        struct {
            uint32_t type; /* CT_ENUMERATED, CT_SHED_LEVEL or CT_UNSIGNED */
            uint32_t commandValue[2];
            uint32_t feedbackValue[2];
            BACnetBitString statusFlags;
        } commandFailure;                                                                                    /* 3 */
        struct { float referenceValue; BACnetBitString statusFlags; float setpointValue; float errorLimit; } floatingLimit; /* 4 */
        struct { float exceedingValue; BACnetBitString statusFlags; float deadband; float exceededLimit; } outOfRange;     /* 5 */
        struct { uint32_t count; BACnetPropertyValue *values; } complexEvent;                                /* 6 */
        struct { BACnetObjectID bufferDevice; BACnetObjectID bufferObject; BACnetDateTime previous; BACnetDateTime current; } bufferFirst; /* 7 */
        struct { uint32_t newState; uint32_t newMode; BACnetBitString statusFlags; uint32_t operationExpected; } changeOfLifeSafety; /* 8 */
        struct { uint32_t vendorId; uint32_t extendedType; uint32_t count; BACnetNotificationExtendedParameter *parameters; } extended; /* 9 */
        struct { BACnetDevObjPropReference bufferProperty; uint32_t previousNotification; uint32_t currentNotification; } bufferReady; /* 10 */
        struct { uint32_t exceedingValue; BACnetBitString statusFlags; uint32_t exceededLimit; } unsignedRange; /* 11 */
        struct {
            uint32_t accessEvent;
            BACnetBitString statusFlags;
            uint32_t accessEventTag;
            BACnetTimeStamp accessEventTime;
            BACnetDevObjReference accessCredential;
            uint8_t factorPresent;
            BACnetAuthenticationFactor factor;
        } accessEvent;                                                                                       /* 13 */
        struct { uint32_t exceedingValue[2]; BACnetBitString statusFlags; uint32_t deadband[2]; uint32_t exceededLimit[2]; } doubleOutOfRange; /* 14 */
        struct { int32_t exceedingValue; BACnetBitString statusFlags; int32_t deadband; int32_t exceededLimit; } signedOutOfRange; /* 15 */
        struct { uint32_t exceedingValue; BACnetBitString statusFlags; uint32_t deadband; uint32_t exceededLimit; } unsignedOutOfRange; /* 16 */
        struct { BACnetCharString changedValue; BACnetBitString statusFlags; BACnetCharString alarmValue; } changeOfCharacterString; /* 17 */
        struct { uint8_t presentValuePresent; BACnetContents presentValue; BACnetBitString referencedFlags; } changeOfStatusFlags; /* 18 */
        struct { uint32_t reliability; BACnetBitString statusFlags; uint32_t count; BACnetPropertyValue *values; } changeOfReliability; /* 19 */
        uint32_t words[25];
    } u;
} BACnetNotificationParameters;

/* Log records. Each starts with a word that the notation does not carry. */

/* The value a log record or log data entry holds, by its choice. */
typedef union BACnetLogDatum {
    BACnetBitString bits;
    uint8_t boolean;
    float real;
    uint32_t enumerated;
    uint32_t unsignedValue;
    int32_t signedValue;
    struct { uint32_t errorClass; uint32_t errorCode; } failure;
    BACnetContents any;
} BACnetLogDatum;

/* Log record element (80 bytes). Choices: 0 log status, 1 boolean, 2 real,
 * 3 enumerated, 4 unsigned, 5 signed, 6 bit string, 7 null, 8 failure,
 * 9 time change (a real), 10 any value. */
typedef struct BACnetLogRecord {
    uint32_t reserved;
    BACnetDateTime timestamp;
    uint32_t choice;
    BACnetLogDatum datum;
    uint8_t statusFlagsPresent;
    BACnetBitString statusFlags;
} BACnetLogRecord;

/* One value of a multiple-value log record (28 bytes). Choices: 0 boolean,
 * 1 real, 2 enumerated, 3 unsigned, 4 signed, 5 bit string, 6 null,
 * 7 failure, 8 any value. */
typedef struct BACnetLogDataEntry {
    uint32_t choice;
    BACnetLogDatum datum;
} BACnetLogDataEntry;

/* Multiple-value log record element (52 bytes). Choices: 0 log status,
 * 1 log data, 2 time change. */
typedef struct BACnetLogRecordMultiple {
    uint32_t reserved;
    BACnetDateTime timestamp;
    uint32_t choice;
    union {
        BACnetBitString logStatus;
        struct { uint32_t count; BACnetLogDataEntry *entries; } data;
        float timeChange;
    } u;
} BACnetLogRecordMultiple;

/* The two blocks of a logged event notification. */
typedef struct BACnetEventLogHeader {
    uint32_t processId;
    BACnetTimeStamp timeStamp;
    uint32_t notificationClass;
    uint8_t priority;
    uint32_t eventType;
    uint32_t notifyType;
} BACnetEventLogHeader;

typedef struct BACnetEventLogState {
    uint8_t ackRequired;
    uint32_t fromState;
    uint32_t toState;
    BACnetNotificationParameters parameters;
} BACnetEventLogState;

/* Event log record element (68 bytes). Choices: 0 log status,
 * 1 notification, 2 time change. A message whose character set is all
 * ones is no message. */
typedef struct BACnetEventLogRecord {
    uint32_t reserved;
    BACnetDateTime timestamp;
    uint32_t choice;
    union {
        BACnetBitString logStatus;
        struct {
            BACnetObjectID initiatingDevice;
            BACnetObjectID eventObject;
            BACnetCharString message;
            BACnetEventLogHeader *header;
            BACnetEventLogState *state;
        } notification;
        float timeChange;
    } u;
} BACnetEventLogRecord;

/* Commands, actions and metering values. */

/* Bits of BACnetActionCommand.present. */
#define BACNET_ACTION_DEVICE_PRESENT 0x1u
#define BACNET_ACTION_POST_DELAY_PRESENT 0x2u

/* Action command element (64 bytes): one write of a command object. */
typedef struct BACnetActionCommand {
    uint32_t present;        /* BACNET_ACTION_..._PRESENT bits */
    BACnetObjectID device;
    BACnetObjectID object;
    uint32_t propertyId;
    uint32_t arrayIndex;     /* BACNET_ABSENT_U32 = none */
    BACnetContents value;
    uint32_t priority;       /* BACNET_ABSENT_U32 = none */
    uint32_t postDelay;
    uint8_t quitOnFailure;
    uint8_t writeSuccessful;
} BACnetActionCommand;

/* Action list element (8 bytes): the count comes first. */
typedef struct BACnetActionList {
    uint32_t count;
    BACnetActionCommand *commands;
} BACnetActionList;

/* Bits of BACnetLightingCommand.present. */
#define BACNET_LIGHTING_TARGET_LEVEL 0x01u
#define BACNET_LIGHTING_RAMP_RATE 0x02u
#define BACNET_LIGHTING_STEP_INCREMENT 0x04u
#define BACNET_LIGHTING_FADE_TIME 0x08u
#define BACNET_LIGHTING_PRIORITY 0x10u

/* Lighting command element (28 bytes). */
typedef struct BACnetLightingCommand {
    uint32_t present;   /* BACNET_LIGHTING_... bits */
    uint32_t operation; /* enumerated */
    float targetLevel;
    float rampRate;
    float stepIncrement;
    uint32_t fadeTime;
    uint32_t priority;
} BACnetLightingCommand;

/* Channel value element (32 bytes): a datatype code and that type's
 * element. A double is kept as two words (the element is only 4-byte
 * aligned on the 32-bit target); copy it out with memcpy. */
typedef struct BACnetChannelValue {
    uint32_t type; /* a BACnetContentsType code */
    union {
        uint8_t boolean;
        uint32_t unsignedValue; /* also an enumeration value */
        int32_t signedValue;
        float real;
        uint32_t doubleWords[2];
        BACnetOctetString octets;
        BACnetCharString string;
        BACnetBitString bits;
        BACnetDate date;
        BACnetTime time;
        BACnetObjectID objectId;
        BACnetLightingCommand lighting;
    } u;
} BACnetChannelValue;

/* Accumulator record element (32 bytes). */
typedef struct BACnetAccumulatorRecord {
    BACnetDateTime timestamp;
    uint32_t presentValue;
    uint32_t accumulatedValue;
    uint32_t status; /* enumerated accumulator status */
} BACnetAccumulatorRecord;

/* Prescale element (8 bytes). */
typedef struct BACnetPrescale {
    uint32_t multiplier;
    uint32_t moduloDivide;
} BACnetPrescale;

/* Scale element (8 bytes): CT_SIGNED for an integer factor, CT_REAL for a
 * real one. */
typedef struct BACnetScale {
    uint32_t type;
    union {
        int32_t integer;
        float real;
    } factor;
} BACnetScale;

enum {
    BACNET_SHED_PERCENT = 0,
    BACNET_SHED_LEVEL = 1,
    BACNET_SHED_AMOUNT = 2
};

/* Shed level element (8 bytes). */
typedef struct BACnetShedLevel {
    uint8_t choice; /* BACNET_SHED_... */
    union {
        uint32_t unsignedValue; /* percent or level */
        float amount;
    } value;
} BACnetShedLevel;

/* Read access specifications and results. */

/* Error type element (8 bytes). */
typedef struct BACnetErrorType {
    uint32_t errorClass;
    uint32_t errorCode;
} BACnetErrorType;

/* Read access specification element (16 bytes). */
typedef struct BACnetReadAccessSpec {
    BACnetObjectID object;
    uint32_t count; /* property references */
    BACnetPropertyReference *references;
} BACnetReadAccessSpec;

/* One property's value or error in a read access result (36 bytes). */
typedef struct BACnetReadAccessResultItem {
    uint32_t propertyId;
    uint32_t arrayIndex; /* BACNET_ABSENT_U32 = absent */
    uint8_t isValue;     /* nonzero: value, zero: error */
    union {
        BACnetContents value;
        BACnetErrorType error;
    } result;
} BACnetReadAccessResultItem;

/* Read access result element (20 bytes). */
typedef struct BACnetReadAccessResult {
    BACnetObjectID object;
    uint32_t count;       /* items; the printers read this one */
    uint32_t itemCount;   /* the scanner sets it to the same number */
    BACnetReadAccessResultItem *items;
} BACnetReadAccessResult;

/* Property access result element (56 bytes). */
typedef struct BACnetPropertyAccessResult {
    BACnetObjectID object;
    uint32_t propertyId;
    int32_t arrayIndex; /* -1 (all ones) = absent */
    uint8_t devicePresent;
    BACnetObjectID device;
    uint8_t isValue;    /* nonzero: value, zero: error */
    union {
        BACnetContents value;
        BACnetErrorType error;
    } result;
} BACnetPropertyAccessResult;

/* One-token texts of the notation. */
BACFMT_API extern const char UnknownString[];       /* "?" */
BACFMT_API extern const char UnspecifiedString[];   /* "*" */
BACFMT_API extern const char CommaString[];         /* "," */
BACFMT_API extern const char QuoteString[];         /* "\"" */
BACFMT_API extern const char SingleQuoteString[];   /* "'" */
BACFMT_API extern const char AccentGraveString[];   /* C2 B4, the acute accent */
BACFMT_API extern const char EscapeQuoteString[];   /* "\\" */
BACFMT_API extern const char HexQuoteString[];      /* "0x" */
BACFMT_API extern const char HexUnspecifiedString[];/* "ff" */
BACFMT_API extern const char SpaceString[];         /* " " */
BACFMT_API extern const char NullString[];          /* "NULL" */
BACFMT_API extern const char TrueString[];          /* "T" */
BACFMT_API extern const char FalseString[];         /* "F" */
BACFMT_API extern const char LBraceString[];        /* "(" */
BACFMT_API extern const char RBraceString[];        /* ")" */
BACFMT_API extern const char LBracketString[];      /* "(" */
BACFMT_API extern const char RBracketString[];      /* ")" */
BACFMT_API extern const char HyphenString[];        /* "-" */
BACFMT_API extern const char EqualsToString[];      /* " => " */

/* The name of a datatype code ("CT_REAL"), or NULL for a code that has none. */
BACFMT_API const char *BACnetContentsTypeName(uint32_t type);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_CONTENTS_H */
