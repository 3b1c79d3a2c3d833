#include "array_read.h"

#include <vector>

#include <bacfmt/bacfmt.h>

namespace bacfmt::tool {
namespace {

constexpr uint32_t kMostElements = 256;

// A list scanner of any element type, over raw storage.
using ListScanner = int (*)(const char *, void *, uint32_t *);

struct ArrayRow {
    uint32_t datatype;
    uint32_t elementSize;
    ListScanner scan;
};

template <typename Element>
ArrayRow Row(uint32_t datatype, int (*scan)(const char *, Element *, uint32_t *)) {
    return ArrayRow{datatype, sizeof(Element), reinterpret_cast<ListScanner>(scan)};
}

// Dates, times and the others without a list scanner read one element.
template <typename Element, int (*Scan)(const char *, Element *)>
int OneElement(const char *text, Element *element, uint32_t *count) {
    const int result = Scan(text, element);
    *count = result == 0 ? 1 : 0;
    return result;
}

const ArrayRow kRows[] = {
    Row(CT_DATE, BACnetScanDateList),
    Row(CT_TIME, OneElement<BACnetTime, BACnetScanTime>),
    Row(CT_DATE_TIME, OneElement<BACnetDateTime, BACnetScanDateTime>),
    Row(CT_OBJECT_ID, OneElement<BACnetObjectID, BACnetScanObjectIdentifier>),
    Row(CT_BIT_STRING, BACnetScanBitStringList),
    Row(CT_DATE_RANGE, OneElement<BACnetDateRange, BACnetScanDateRange>),
    Row(CT_WEEK_N_DAY, OneElement<BACnetWeekNDay, BACnetScanWeekNDay>),
    Row(CT_CALENDAR_ENTRY, BACnetScanCalendarEntryList),
    Row(CT_OBJ_PROP_REFERENCE, OneElement<BACnetObjPropReference, BACnetScanObjPropReference>),
    Row(CT_SETPOINT_REFERENCE, OneElement<BACnetSetpointReference, BACnetScanSetpointReference>),
    Row(CT_DEV_OBJ_REFERENCE, BACnetScanDevObjReferenceList),
    Row(CT_DEV_OBJ_PROP_REFERENCE, BACnetScanDevObjPropReferenceList),
    Row(CT_SCALE, OneElement<BACnetScale, BACnetScanScale>),
    Row(CT_PRESCALE, OneElement<BACnetPrescale, BACnetScanPrescale>),
    Row(CT_PROPERTY_STATES, BACnetScanPropertyStatesList),
    Row(CT_ACCUMULATOR_RECORD, OneElement<BACnetAccumulatorRecord, BACnetScanAccumulatorRecord>),
    Row(CT_ADDRESS, OneElement<BACnetAddress, BACnetScanAddress>),
    Row(CT_RECIPIENT, BACnetScanRecipientList),
    Row(CT_ADDRESS_BINDING, BACnetScanAddressBindingList),
    Row(CT_DESTINATION, BACnetScanDestinationList),
};

}  // namespace

std::optional<ArrayReading> ReadThroughArrays(uint32_t datatype, std::string_view text, bool symbolic) {
    for (const ArrayRow &row : kRows) {
        if (row.datatype != datatype) continue;
        const std::string copy(text);
        std::vector<uint64_t> storage((static_cast<size_t>(row.elementSize) * kMostElements + 7) / 8, 0);
        uint32_t count = kMostElements;
        ArrayReading reading{row.scan(copy.c_str(), storage.data(), &count), {}};
        if (count > 0) {
            const BACnetContents record{datatype, count, storage.data(), 0, {0, 0}};
            std::vector<char> out(1 << 16);
            if (BACnetSPrintContents(out.data(), static_cast<int>(out.size()) / 2, &record, 0, symbolic ? 1 : 0, 0) >= 0)
                reading.printed = out.data();
        }
        return reading;
    }
    return std::nullopt;
}

}  // namespace bacfmt::tool
