#include "datatypes/table.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <type_traits>

#include <bacfmt/print.h>

#include "constructed/access_control.h"
#include "constructed/commands.h"
#include "constructed/event_parameters.h"
#include "constructed/log_records.h"
#include "constructed/network_security.h"
#include "constructed/priority.h"
#include "constructed/calendar.h"
#include "constructed/schedule.h"
#include "constructed/read_access.h"
#include "constructed/recipients.h"
#include "constructed/references.h"
#include "datatypes/release.h"
#include "datatypes/unaligned.h"
#include "print/element_printers.h"

namespace bacfmt {
namespace {

// Adapts an element printer of the public signature to the dispatcher's:
// the element is copied out of the payload (which may start at any byte in
// a nested layout) into an aligned object, scalars are passed by value and
// structures by pointer, and the property and symbolic flag are handed on
// where the printer takes them.
template <typename Element>
class Loaded {
    using Value = std::remove_cv_t<std::remove_pointer_t<Element>>;
    Value value_;

public:
    explicit Loaded(const void *element) : value_(LoadUnaligned<Value>(element)) {}
    Element get() const {
        if constexpr (std::is_pointer_v<Element>)
            return &value_;
        else
            return value_;
    }
};

template <auto Printer>
struct Adapt;

template <typename E, int (*Printer)(char *, int, E)>
struct Adapt<Printer> {
    static int Print(char *dst, int size, const void *e, const PrintContext &) {
        return Printer(dst, size, Loaded<E>(e).get());
    }
};

template <typename E, int (*Printer)(char *, int, E, uint8_t)>
struct Adapt<Printer> {
    static int Print(char *dst, int size, const void *e, const PrintContext &c) {
        return Printer(dst, size, Loaded<E>(e).get(), c.symbolic);
    }
};

// The constructed printers take the names flag as an int.
template <typename E, int (*Printer)(char *, int, E, int)>
struct Adapt<Printer> {
    static int Print(char *dst, int size, const void *e, const PrintContext &c) {
        return Printer(dst, size, Loaded<E>(e).get(), c.symbolic);
    }
};

template <typename E, int (*Printer)(char *, int, E, uint32_t, uint8_t)>
struct Adapt<Printer> {
    static int Print(char *dst, int size, const void *e, const PrintContext &c) {
        return Printer(dst, size, Loaded<E>(e).get(), c.propertyId, c.symbolic);
    }
};

template <auto Printer>
constexpr ElementPrinter Print = &Adapt<Printer>::Print;

using R = BracketRule;

constexpr DatatypeInfo Row(uint32_t code, const char *name, uint32_t elementSize,
                           ElementPrinter print = nullptr, PropertySet bracketProperties = {},
                           BracketRule brackets = R::CountOrProperty) {
    DatatypeInfo row{};
    row.code = code;
    row.name = name;
    row.elementSize = elementSize;
    row.print = print;
    row.bracketProperties = bracketProperties;
    row.brackets = brackets;
    return row;
}

constexpr DatatypeInfo Special(DatatypeInfo row, PrintForm form) {
    row.form = form;
    return row;
}

constexpr DatatypeInfo Led(DatatypeInfo row, const char *lead) {
    row.lead = lead;
    return row;
}

// The scan column: how the scan dispatcher calls the code's scanner.
constexpr DatatypeInfo Scans(DatatypeInfo row, ScanEntry scan) {
    row.scan = scan;
    return row;
}

using K = ScanKind;

// The release column: what one element owns besides itself.
constexpr DatatypeInfo Frees(DatatypeInfo row, ElementRelease release) {
    row.release = release;
    return row;
}

template <typename Element, auto Field>
void FreeField(void *elements, uint32_t count) {
    ReleaseEach<Element>(elements, count, [](Element &e) {
        std::free(e.*Field);
        e.*Field = nullptr;
    });
}

constexpr ElementRelease kFreeOctets = FreeField<BACnetOctetString, &BACnetOctetString::octets>;
constexpr ElementRelease kFreeChars = FreeField<BACnetCharString, &BACnetCharString::chars>;
constexpr ElementRelease kFreeRaw = FreeField<BACnetRawASN1, &BACnetRawASN1::octets>;

// Element sizes of the constructed codes are those of their layouts on the
// 32-bit target (the catalogue's shapes are checked against them); a family
// without a printer yet prints "?".
constexpr DatatypeInfo kRows[] = {
    Scans(Special(Row(CT_NULL, "CT_NULL", 5), PrintForm::Null),                                                                     kScanNull),
    Scans(Row(CT_BOOLEAN,          "CT_BOOLEAN",          sizeof(uint8_t),           Print<BACnetSPrintBoolean>,   {169, 172}),             ScanWith<BACnetSScanBoolean>(K::FixedOneByteCursor)),
    Scans(Row(CT_UNSIGNED,         "CT_UNSIGNED",         sizeof(uint32_t),          Print<BACnetSPrintUnsigned>,  {7, 39}),                ScanWith<BACnetSScanUnsigned>(K::Fixed)),
    Scans(Row(CT_SIGNED,           "CT_SIGNED",           sizeof(int32_t),           Print<BACnetSPrintSigned>),                            ScanWith<BACnetSScanSigned>(K::Fixed)),
    Scans(Row(CT_REAL,             "CT_REAL",             sizeof(float),             Print<BACnetSPrintReal>),                              ScanWith<BACnetSScanReal>(K::Fixed)),
    Scans(Row(CT_DOUBLE,           "CT_DOUBLE",           sizeof(double),            Print<BACnetSPrintDouble>),                            ScanWith<BACnetSScanDouble>(K::FixedDoubleSizing)),
    Frees(Scans(Special(Row(CT_OCTET_STRING, "CT_OCTET_STRING", sizeof(BACnetOctetString), Print<BACnetSPrintOctetString>), PrintForm::FirstElementOnly), ScanWith<BACnetSScanOctetString>(K::Variable)), kFreeOctets),
    Frees(Scans(Row(CT_CHARACTER_STRING, "CT_CHARACTER_STRING", sizeof(BACnetCharString),  PrintCharacterStringElement, {3, 110, 210, 220, 346}), ScanWith<BACnetSScanString>(K::Variable)), kFreeChars),
    Scans(Row(CT_BIT_STRING,       "CT_BIT_STRING",       sizeof(BACnetBitString),   Print<BACnetSPrintBitString>),                         ScanWith<BACnetSScanBitString>(K::Fixed)),
    Scans(Row(CT_ENUMERATED,       "CT_ENUMERATED",       sizeof(uint32_t),          Print<BACnetSPrintEnum>,      {7, 39, 166, 234, 303}), ScanWith<BACnetSScanEnum>(K::Fixed)),
    Scans(Row(CT_DATE,             "CT_DATE",             sizeof(BACnetDate),        Print<BACnetSPrintDate>),                              ScanWith<BACnetSScanDate>(K::Fixed)),
    Scans(Row(CT_TIME,             "CT_TIME",             sizeof(BACnetTime),        Print<BACnetSPrintTime>),                              ScanWith<BACnetSScanTime>(K::Fixed)),
    Scans(Row(CT_OBJECT_ID,        "CT_OBJECT_ID",        sizeof(BACnetObjectID),    Print<BACnetSPrintObjectID>,  {76, 154, 209}),         ScanWith<BACnetSScanObjectID>(K::Fixed)),

    Frees(Scans(Row(CT_PRI_ARRAY_ITEM, "CT_PRI_ARRAY_ITEM", sizeof(BACnetPriArrayItem), Print<BACnetSPrintPriArrayItem>, {87}), ScanWith<BACnetSScanPriArrayItem>(K::Variable)), ReleasePriArrayItems),
    Scans(Row(CT_ADDRESS,          "CT_ADDRESS",          sizeof(BACnetAddress),     Print<BACnetSPrintAddress>),    ScanWith<BACnetSScanAddress>(K::Fixed)),
    Scans(Row(CT_DATE_TIME,        "CT_DATE_TIME",              sizeof(BACnetDateTime), Print<BACnetSPrintDateTime>), ScanWith<BACnetSScanDateTime>(K::Fixed)),
    Scans(Row(CT_OBJ_PROP_REFERENCE, "CT_OBJ_PROP_REFERENCE", sizeof(BACnetObjPropReference), Print<BACnetSPrintObjPropReference>), ScanWith<BACnetSScanObjPropReference>(K::Fixed)),
    Scans(Row(CT_PROPERTY_STATES,  "CT_PROPERTY_STATES",  sizeof(BACnetPropertyStates), Print<BACnetSPrintPropertyStates>), ScanWith<BACnetSScanPropertyStates>(K::Fixed)),
    Frees(Scans(Row(CT_EVENT_PARAMETER, "CT_EVENT_PARAMETER", sizeof(BACnetEventParameter), Print<BACnetSPrintEventParameter>, {}, R::Always), ScanWith<BACnetSScanEventParameter>(K::Variable)), ReleaseEventParameters),
    Scans(Row(CT_DATE_RANGE,       "CT_DATE_RANGE",       sizeof(BACnetDateRange),   Print<BACnetSPrintDateRange>),  ScanWith<BACnetSScanDateRange>(K::Fixed)),
    Scans(Row(CT_WEEK_N_DAY,       "CT_WEEK_N_DAY",       sizeof(BACnetWeekNDay),    Print<BACnetSPrintWeekNDay>),   ScanWith<BACnetSScanWeekNDay>(K::Fixed)),
    Scans(Row(CT_CALENDAR_ENTRY,   "CT_CALENDAR_ENTRY",   sizeof(BACnetCalendarEntry), Print<BACnetSPrintCalendarEntry>, {23}), ScanWith<BACnetSScanCalendarEntry>(K::Fixed)),
    Frees(Scans(Row(CT_TIME_VALUE, "CT_TIME_VALUE", sizeof(BACnetTimeValue), Print<BACnetSPrintTimeValue>), ScanWith<BACnetSScanTimeValue>(K::Variable)), ReleaseTimeValues),
    Frees(Scans(Row(CT_SPECIAL_EVENT, "CT_SPECIAL_EVENT", sizeof(BACnetSpecialEvent), Print<BACnetSPrintSpecialEvent>, {38}), ScanWith<BACnetSScanSpecialEvent>(K::Variable)), ReleaseSpecialEvents),
    Scans(Row(CT_RECIPIENT,        "CT_RECIPIENT",        sizeof(BACnetRecipient),   Print<BACnetSPrintRecipient>, {116, 202, 206, 350}), ScanWith<BACnetSScanRecipient>(K::Fixed)),
    Scans(Row(CT_SETPOINT_REFERENCE, "CT_SETPOINT_REFERENCE", sizeof(BACnetSetpointReference), Print<BACnetSPrintSetpointReference>, {}, R::OnlyWhenEmpty), ScanWith<BACnetSScanSetpointReference>(K::Fixed)),
    Scans(Row(CT_DESTINATION,      "CT_DESTINATION",      sizeof(BACnetDestination), Print<BACnetSPrintDestination>, {102}), ScanWith<BACnetSScanDestination>(K::Fixed)),
    Frees(Scans(Row(CT_DAILY_SCHEDULE, "CT_DAILY_SCHEDULE", sizeof(BACnetDailySchedule), Print<BACnetSPrintDailySchedule>, {123}), ScanWith<BACnetSScanDailySchedule>(K::Variable)), ReleaseDailySchedules),
    Scans(Row(CT_TIME_STAMP,       "CT_TIME_STAMP",       sizeof(BACnetTimeStamp),   Print<BACnetSPrintTimeStamp>, {130}), ScanWith<BACnetSScanTimeStamp>(K::Fixed)),
    Scans(Row(CT_PROPERTY_REFERENCE, "CT_PROPERTY_REFERENCE", sizeof(BACnetPropertyReference), Print<BACnetSPrintPropertyReference>), ScanWith<BACnetSScanPropertyReference>(K::Fixed)),
    Scans(Row(CT_ADDRESS_BINDING,  "CT_ADDRESS_BINDING",  sizeof(BACnetAddressBinding), Print<BACnetSPrintAddressBinding>, {30, 170, 171}), ScanWith<BACnetSScanAddressBinding>(K::Fixed)),
    Scans(Row(CT_DEV_OBJ_PROP_REFERENCE, "CT_DEV_OBJ_PROP_REFERENCE", sizeof(BACnetDevObjPropReference), Print<BACnetSPrintDevObjPropReference>, {54}), ScanWith<BACnetSScanDevObjPropReference>(K::Fixed)),
    Scans(Row(CT_CLIENT_COV, "CT_CLIENT_COV", sizeof(BACnetClientCov), Print<BACnetSPrintClientCOV>), ScanWith<BACnetSScanClientCov>(K::Fixed)),
    Frees(Scans(Row(CT_LOG_RECORD, "CT_LOG_RECORD", sizeof(BACnetLogRecord), Print<BACnetSPrintLogRecord>, {131}), ScanWith<BACnetSScanLogRecord>(K::Variable)), ReleaseLogRecords),
    Frees(Scans(Row(CT_ACTION_LIST, "CT_ACTION_LIST", sizeof(BACnetActionList), Print<BACnetSPrintActionList>, {2}), ScanWith<BACnetSScanActionListArray>(K::Variable)), ReleaseActionLists),
    Frees(Scans(Row(CT_READ_ACCESS_SPEC, "CT_READ_ACCESS_SPEC", sizeof(BACnetReadAccessSpec), Print<BACnetSPrintReadAccessSpec>, {53}), ScanWith<BACnetSScanReadAccessSpec>(K::Variable)), ReleaseReadAccessSpecs),
    Frees(Scans(Row(CT_READ_ACCESS_RESULT, "CT_READ_ACCESS_RESULT", sizeof(BACnetReadAccessResult), Print<BACnetSPrintReadAccessResult>, {85}), ScanWith<BACnetSScanReadAccessResult>(K::Variable)), ReleaseReadAccessResults),
    Scans(Row(CT_COV_SUBSCRIPTION, "CT_COV_SUBSCRIPTION", sizeof(BACnetCovSubscription), Print<BACnetSPrintCovSubscription>, {152}), ScanWith<BACnetSScanCovSubscription>(K::Fixed)),
    Scans(Row(CT_DEV_OBJ_REFERENCE, "CT_DEV_OBJ_REFERENCE", sizeof(BACnetDevObjReference), Print<BACnetSPrintDevObjReference>, {159, 165, 211, 265, 266, 268, 269, 286}), ScanWith<BACnetSScanDevObjReference>(K::Fixed)),
    Frees(Scans(Row(CT_DEV_OBJ_PROP_VALUE, "CT_DEV_OBJ_PROP_VALUE", sizeof(BACnetDevObjPropValue), Print<BACnetSPrintDevObjPropValue>), ScanWith<BACnetSScanDevObjPropValue>(K::Variable)), ReleaseDevObjPropValues),
    Scans(Row(CT_ACCUMULATOR_RECORD, "CT_ACCUMULATOR_RECORD", sizeof(BACnetAccumulatorRecord), Print<BACnetSPrintAccumulatorRecord>), ScanWith<BACnetSScanAccumulatorRecord>(K::Fixed)),
    Scans(Row(CT_PRESCALE,         "CT_PRESCALE",         sizeof(BACnetPrescale),    Print<BACnetSPrintPrescale>),   ScanWith<BACnetSScanPrescale>(K::Fixed)),
    Scans(Row(CT_SCALE,            "CT_SCALE",            sizeof(BACnetScale),       Print<BACnetSPrintScale>),      ScanWith<BACnetSScanScale>(K::Fixed)),
    Frees(Scans(Row(CT_EVENT_LOG_RECORD, "CT_EVENT_LOG_RECORD", sizeof(BACnetEventLogRecord), Print<BACnetSPrintEventLogRecord>, {131}), ScanWith<BACnetSScanEventLogRecord>(K::Variable)), ReleaseEventLogRecords),
    Frees(Scans(Row(CT_LOG_RECORD_MULTIPLE, "CT_LOG_RECORD_MULTIPLE", sizeof(BACnetLogRecordMultiple), Print<BACnetSPrintLogRecordMultiple>, {131}), ScanWith<BACnetSScanLogRecordMultiple>(K::Variable)), ReleaseLogRecordsMultiple),
    Scans(Row(CT_SHED_LEVEL,       "CT_SHED_LEVEL",       sizeof(BACnetShedLevel),   Print<BACnetSPrintShedLevel>),  ScanWith<BACnetSScanShedLevel>(K::Fixed)),
    Frees(Scans(Row(CT_AUTHENTICATION_POLICY, "CT_AUTHENTICATION_POLICY", sizeof(BACnetAuthenticationPolicy), Print<BACnetSPrintAuthenticationPolicy>), ScanWith<BACnetSScanAuthenticationPolicy>(K::VariableArrayCursor)), ReleaseAuthenticationPolicies),
    Frees(Scans(Row(CT_AUTHENTICATION_FACTOR, "CT_AUTHENTICATION_FACTOR", sizeof(BACnetAuthenticationFactor), Print<BACnetSPrintAuthenticationFactor>), ScanWith<BACnetSScanAuthenticationFactor>(K::VariableArrayCursor)), ReleaseAuthenticationFactors),
    Frees(Scans(Row(CT_CREDENTIAL_AUTHENTICATION_FACTOR, "CT_CREDENTIAL_AUTHENTICATION_FACTOR", sizeof(BACnetCredentialAuthenticationFactor), Print<BACnetSPrintCredentialAuthenticationFactor>), ScanWith<BACnetSScanCredentialAuthenticationFactor>(K::VariableArrayCursor)), ReleaseCredentialAuthenticationFactors),
    Scans(Row(CT_ACCESS_RULE, "CT_ACCESS_RULE", sizeof(BACnetAccessRule), Print<BACnetSPrintAccessRule>), ScanWith<BACnetSScanAccessRule>(K::Fixed)),
    Scans(Row(CT_ASSIGNED_ACCESS_RIGHTS, "CT_ASSIGNED_ACCESS_RIGHTS", sizeof(BACnetAssignedAccessRights), Print<BACnetSPrintAssignedAccessRights>), ScanWith<BACnetSScanAssignedAccessRights>(K::Fixed)),
    Scans(Row(CT_AUTHENTICATION_FACTOR_FORMAT, "CT_AUTHENTICATION_FACTOR_FORMAT", sizeof(BACnetAuthenticationFactorFormat), Print<BACnetSPrintAuthenticationFactorFormat>), ScanWith<BACnetSScanAuthenticationFactorFormat>(K::Fixed)),
    Frees(Scans(Row(CT_OPTIONAL_CHARACTER_STRING, "CT_OPTIONAL_CHARACTER_STRING", sizeof(BACnetCharString),
        PrintOptionalCharacterStringElement, {7, 39}), ScanWith<BACnetSScanOptionalCharString>(K::Variable)), kFreeChars),
    Frees(Scans(Row(CT_PROPERTY_ACCESS_RESULT, "CT_PROPERTY_ACCESS_RESULT", sizeof(BACnetPropertyAccessResult), Print<BACnetSPrintPropertyAccessResult>), ScanWith<BACnetSScanPropertyAccessResult>(K::VariableArrayCursor)), ReleasePropertyAccessResults),
    Scans(Row(CT_VT_SESSION, "CT_VT_SESSION", sizeof(BACnetVtSession), Print<BACnetSPrintVtSession>), ScanWith<BACnetSScanVtSession>(K::Fixed)),
    Scans(Row(CT_SESSION_KEY, "CT_SESSION_KEY", sizeof(BACnetSessionKey), Print<BACnetSPrintSessionKey>), ScanWith<BACnetSScanSessionKey>(K::Fixed)),
    Scans(Row(CT_NETWORK_SECURITY_POLICY, "CT_NETWORK_SECURITY_POLICY", sizeof(BACnetNetworkSecurityPolicy), Print<BACnetSPrintNetworkSecurityPolicy>), ScanWith<BACnetSScanNetworkSecurityPolicy>(K::Fixed)),
    Scans(Row(CT_KEY_IDENTIFIER, "CT_KEY_IDENTIFIER", sizeof(BACnetKeyIdentifier), Print<BACnetSPrintKeyIdentifier>), ScanWith<BACnetSScanKeyIdentifier>(K::Fixed)),
    Frees(Scans(Row(CT_SECURITY_KEY_SET, "CT_SECURITY_KEY_SET", sizeof(BACnetSecurityKeySet), Print<BACnetSPrintSecurityKeySet>), ScanWith<BACnetSScanSecurityKeySet>(K::Variable)), ReleaseSecurityKeySets),
    Scans(Row(CT_LIGHTING_COMMAND, "CT_LIGHTING_COMMAND", sizeof(BACnetLightingCommand), Print<BACnetSPrintLightingCommand>), ScanWith<BACnetSScanLightingCommand>(K::Fixed)),
    Frees(Scans(Row(CT_CHANNEL_VALUE, "CT_CHANNEL_VALUE", sizeof(BACnetChannelValue), Print<BACnetSPrintChannelValue>), ScanWith<BACnetSScanChannelValue>(K::Variable)), ReleaseChannelValues),
    Scans(Row(CT_EVENT_NOTIFICATION_SUBSCRIPTION, "CT_EVENT_NOTIFICATION_SUBSCRIPTION", sizeof(BACnetEventNotificationSubscription), Print<BACnetSPrintEventNotificationSubscription>), ScanWith<BACnetSScanEventNotificationSubscription>(K::Fixed)),
    Scans(Row(CT_PROCESS_ID_SELECTION, "CT_PROCESS_ID_SELECTION", sizeof(BACnetProcessIdSelection), Print<BACnetSPrintProcessIdSelection>), ScanWith<BACnetSScanProcessIdSelection>(K::Fixed)),
    Scans(Row(CT_PORT_PERMISSION, "CT_PORT_PERMISSION", sizeof(BACnetPortPermission), Print<BACnetSPrintPortPermission>), ScanWith<BACnetSScanPortPermission>(K::Fixed)),
    Frees(Scans(Row(CT_FAULT_PARAMETER, "CT_FAULT_PARAMETER", sizeof(BACnetFaultParameter), Print<BACnetSPrintFaultParameter>), ScanWith<BACnetSScanFaultParameter>(K::VariableArrayCursor)), ReleaseFaultParameters),

    Frees(Scans(Led(Row(CT_ASN1_FIRST,  "CT_ASN1_FIRST",  sizeof(BACnetRawASN1), Print<BACnetSPrintRawASN1>), "[ASN1]"), ScanWith<BACnetSScanASN1String>(K::Variable)), kFreeRaw),
    Frees(Scans(Led(Row(CT_ASN1_SECOND, "CT_ASN1_SECOND", sizeof(BACnetRawASN1), Print<BACnetSPrintRawASN1>), "[ASN1]"), ScanWith<BACnetSScanASN1String>(K::Variable)), kFreeRaw),
    Frees(Scans(Led(Row(CT_ASN1_THIRD,  "CT_ASN1_THIRD",  sizeof(BACnetRawASN1), Print<BACnetSPrintRawASN1>), "[ASN1]"), ScanWith<BACnetSScanASN1String>(K::Variable)), kFreeRaw),
    // Scans, but has no printer: it prints "?" like an unknown code.
    Frees(Scans(Row(CT_ASN1_LAST,  "CT_ASN1_LAST",  sizeof(BACnetRawASN1)),                                       ScanWith<BACnetSScanASN1String>(K::Variable)), kFreeRaw),
};

constexpr bool InCodeOrder() {
    for (size_t i = 1; i < std::size(kRows); ++i)
        if (kRows[i - 1].code >= kRows[i].code) return false;
    return true;
}
static_assert(InCodeOrder(), "rows stay in code order, the order of the listings");

// Every code's row by direct index: the dispatchers look a row up per
// record, so no search.
constexpr uint8_t kNoRow = 0xFF;
constexpr auto kRowOfCode = [] {
    std::array<uint8_t, CT_ASN1_LAST + 1> rows{};
    rows.fill(kNoRow);
    for (size_t i = 0; i < std::size(kRows); ++i) rows[kRows[i].code] = static_cast<uint8_t>(i);
    return rows;
}();
static_assert(std::size(kRows) < kNoRow, "row numbers fit in a byte");

}  // namespace

const DatatypeInfo *FindDatatype(uint32_t code) {
    if (code >= kRowOfCode.size()) return nullptr;
    const uint8_t row = kRowOfCode[code];
    return row != kNoRow ? &kRows[row] : nullptr;
}

const DatatypeInfo *DatatypeRowsBegin() { return std::begin(kRows); }
const DatatypeInfo *DatatypeRowsEnd() { return std::end(kRows); }

}  // namespace bacfmt

extern "C" const char *BACnetContentsTypeName(uint32_t type) {
    const bacfmt::DatatypeInfo *row = bacfmt::FindDatatype(type);
    return row != nullptr ? row->name : nullptr;
}
