// Fuzzes every array scanner: the first byte (counted from 0x20) chooses
// the member, the rest is its text. Element scanners read into one
// element; list scanners count (null array) and then fill a few elements.
#include <cstdint>
#include <string>

#include <bacfmt/bacfmt.h>

namespace {

constexpr uint32_t kRoom = 4;

template <typename Element>
void Element1(int (*scan)(const char *, Element *), const char *text) {
    Element element{};
    scan(text, &element);
}

template <typename Element>
void List(int (*scan)(const char *, Element *, uint32_t *), const char *text) {
    uint32_t count = 0;
    scan(text, nullptr, &count);
    Element elements[kRoom] = {};
    count = kRoom;
    scan(text, elements, &count);
    if (count > kRoom) __builtin_trap();
}

constexpr uint32_t kRoomBytes = 4096;

template <typename Element>
void Nested(int (*scan)(const char *, Element *, void *, uint32_t), const char *text) {
    Element element{};
    alignas(8) static unsigned char room[kRoomBytes];
    scan(text, &element, room, kRoomBytes);
}

template <typename Element>
void NestedList(int (*scan)(const char *, Element *, uint32_t *, void *, uint32_t), const char *text) {
    uint32_t count = 0;
    scan(text, nullptr, &count, nullptr, 0);
    Element elements[kRoom] = {};
    alignas(8) static unsigned char room[kRoomBytes];
    count = kRoom;
    scan(text, elements, &count, room, kRoomBytes);
    if (count > kRoom) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 1) return 0;
    const std::string text(reinterpret_cast<const char *>(data + 1), size - 1);
    const char *t = text.c_str();
    switch (static_cast<uint8_t>(data[0] - 0x20) % 43) {
    case 0: Element1(BACnetScanTime, t); break;
    case 1: Element1(BACnetScanDate, t); break;
    case 2: Element1(BACnetScanDateTime, t); break;
    case 3: Element1(BACnetScanDateRange, t); break;
    case 4: Element1(BACnetScanWeekNDay, t); break;
    case 5: Element1(BACnetScanCalendarEntry, t); break;
    case 6: Element1(BACnetScanBitString, t); break;
    case 7: Element1(BACnetScanObjectIdentifier, t); break;
    case 8: Element1(BACnetScanObjPropReference, t); break;
    case 9: Element1(BACnetScanSetpointReference, t); break;
    case 10: Element1(BACnetScanDevObjReference, t); break;
    case 11: Element1(BACnetScanDevObjPropReference, t); break;
    case 12: Element1(BACnetScanScale, t); break;
    case 13: Element1(BACnetScanPrescale, t); break;
    case 14: Element1(BACnetScanPropertyStates, t); break;
    case 15: Element1(BACnetScanAccumulatorRecord, t); break;
    case 16: Element1(BACnetScanAddress, t); break;
    case 17: Element1(BACnetScanRecipient, t); break;
    case 18: Element1(BACnetScanAddressBinding, t); break;
    case 19: Element1(BACnetScanDestination, t); break;
    case 20: {
        uint32_t count = 0, bytes = 0;
        if (BACnetScanStringArray(t, &count, nullptr, &bytes) == 0 && count < 64 && bytes < (1u << 16)) {
            std::string block(count * sizeof(BACnetCharString) + bytes + 1, '\0');
            BACnetScanStringArray(t, &count, reinterpret_cast<BACnetCharString *>(block.data()), &bytes);
        }
        break;
    }
    case 21: {
        uint32_t count = 0;
        if (BACnetScanUnsignedArray(t, &count, nullptr) == 0 && count < 1024) {
            std::basic_string<uint32_t> values(count + 1, 0);
            BACnetScanUnsignedArray(t, &count, values.data());
        }
        break;
    }
    case 22: List(BACnetScanDateList, t); break;
    case 23: List(BACnetScanCalendarEntryList, t); break;
    case 24: List(BACnetScanBitStringList, t); break;
    case 25: List(BACnetScanDevObjReferenceList, t); break;
    case 26: List(BACnetScanDevObjPropReferenceList, t); break;
    case 27: List(BACnetScanPropertyStatesList, t); break;
    case 28: List(BACnetScanRecipientList, t); break;
    case 29: List(BACnetScanAddressBindingList, t); break;
    case 30: List(BACnetScanDestinationList, t); break;
    case 31: Nested(BACnetScanTimeValue, t); break;
    case 32: Nested(BACnetScanSpecialEvent, t); break;
    case 33: Nested(BACnetScanEventParameter, t); break;
    case 34: Nested(BACnetScanFaultParameter, t); break;
    case 35: Nested(BACnetScanActionCommand, t); break;
    case 36: Nested(BACnetScanTaggedValue, t); break;
    case 37: Nested(BACnetScanReadAccessSpec, t); break;
    case 38: {
        BACnetPriArrayItem slots[16] = {};
        alignas(8) unsigned char room[2048];
        BACnetScanPriorityArray(t, slots, room, sizeof room);
        break;
    }
    case 39: NestedList(BACnetScanDailySchedule, t); break;
    case 40: NestedList(BACnetScanSpecialEventList, t); break;
    case 41: NestedList(BACnetScanTimeValueList, t); NestedList(BACnetScanActionCommandList, t);
             NestedList(BACnetScanActionCommandListArray, t); NestedList(BACnetScanReadAccessSpecList, t);
             NestedList(BACnetScanExtendedValues, t); Nested(BACnetScanOctetString, t); break;
    default: {
        uint32_t count = 0;
        BACnetScanEnumList(t, nullptr, &count, 117);
        uint32_t values[kRoom] = {};
        count = kRoom;
        BACnetScanEnumList(t, values, &count, 117);
        break;
    }
    }
    return 0;
}
