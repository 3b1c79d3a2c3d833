// The array scanners of values whose elements own nested parts: the
// datatype's two-pass scanner sizes the text, then fills the caller's
// elements with the nested parts laid out in the caller's room.
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <bacfmt/array_scan.h>
#include <bacfmt/scan.h>

#include "constructed/event_parameters.h"

namespace bacfmt {
namespace {

constexpr int kInvalid = EINVAL;
constexpr int kNoMemory = ENOMEM;

using NestedScanner = int (*)(char *, void **, int32_t, void **, int32_t *, int32_t);
using Copy = std::unique_ptr<char, decltype(&std::free)>;

// Sizes `text`, then fills up to `capacity` elements at `elements` (null:
// count only) with the nested parts in `room`. `found` gets the count.
template <typename Element>
int ScanWithRoom(const char *text, Element *elements, uint32_t capacity, uint32_t &found, void *room,
                 uint32_t roomSize, NestedScanner scanner, int32_t expected) {
    if (text == nullptr || (room == nullptr && roomSize != 0)) return kInvalid;
    Copy sizing(strdup(text), &std::free);
    if (sizing == nullptr) return kNoMemory;
    void *none = nullptr;
    void *noTail = nullptr;
    int32_t count = expected;
    const int sized = scanner(sizing.get(), &none, 0, &noTail, &count, 1);
    if (sized < 0 || count < 0) return kInvalid;
    found = static_cast<uint32_t>(count);
    if (elements == nullptr) return 0;
    const int64_t nested = int64_t{sized} - int64_t{count} * static_cast<int64_t>(sizeof(Element));
    if (found > capacity || nested + BACNET_ARRAY_SCAN_SLACK > roomSize) return kInvalid;

    Copy filling(strdup(text), &std::free);
    if (filling == nullptr) return kNoMemory;
    unsigned char spare = 0;  // a place to point at when nothing nests
    void *slot = elements;
    void *cursor = room != nullptr ? room : &spare;
    count = expected;
    return scanner(filling.get(), &slot, 0, &cursor, &count, 0) < 0 ? kInvalid : 0;
}

template <typename Element>
int ScanOneWithRoom(const char *text, Element *element, void *room, uint32_t roomSize, NestedScanner scanner) {
    if (element == nullptr) return kInvalid;
    uint32_t found = 0;
    return ScanWithRoom(text, element, 1, found, room, roomSize, scanner, 1);
}

template <typename Element>
int ScanListWithRoom(const char *text, Element *elements, uint32_t *count, void *room, uint32_t roomSize,
                     NestedScanner scanner) {
    if (count == nullptr) return kInvalid;
    uint32_t found = 0;
    const int result = ScanWithRoom(text, elements, *count, found, room, roomSize, scanner, 0);
    if (result == 0 || elements == nullptr) *count = found;
    return result;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

#define BACFMT_NESTED_ELEMENT(Name, Type, Scanner) \
    extern "C" int Name(const char *text, Type *element, void *room, uint32_t roomSize) { \
        return ScanOneWithRoom(text, element, room, roomSize, Scanner); \
    }

BACFMT_NESTED_ELEMENT(BACnetScanTimeValue, BACnetTimeValue, BACnetSScanTimeValue)
BACFMT_NESTED_ELEMENT(BACnetScanSpecialEvent, BACnetSpecialEvent, BACnetSScanSpecialEvent)
BACFMT_NESTED_ELEMENT(BACnetScanEventParameter, BACnetEventParameter, BACnetSScanEventParameter)
BACFMT_NESTED_ELEMENT(BACnetScanFaultParameter, BACnetFaultParameter, BACnetSScanFaultParameter)
BACFMT_NESTED_ELEMENT(BACnetScanActionCommand, BACnetActionCommand, BACnetSScanActionList)
BACFMT_NESTED_ELEMENT(BACnetScanTaggedValue, BACnetChannelValue, BACnetSScanChannelValue)
BACFMT_NESTED_ELEMENT(BACnetScanReadAccessSpec, BACnetReadAccessSpec, BACnetSScanReadAccessSpec)

extern "C" int BACnetScanPriorityArray(const char *text, BACnetPriArrayItem *sixteenItems, void *room,
                                       uint32_t roomSize) {
    constexpr uint32_t kSlots = 16;
    if (sixteenItems == nullptr) return kInvalid;
    uint32_t found = 0;
    return ScanWithRoom(text, sixteenItems, kSlots, found, room, roomSize, BACnetSScanPriArrayItem, kSlots);
}

#define BACFMT_NESTED_LIST(Name, Type, Scanner) \
    extern "C" int Name(const char *text, Type *elements, uint32_t *count, void *room, uint32_t roomSize) { \
        return ScanListWithRoom(text, elements, count, room, roomSize, Scanner); \
    }

BACFMT_NESTED_LIST(BACnetScanTimeValueList, BACnetTimeValue, BACnetSScanTimeValue)
BACFMT_NESTED_LIST(BACnetScanDailySchedule, BACnetDailySchedule, BACnetSScanDailySchedule)
BACFMT_NESTED_LIST(BACnetScanSpecialEventList, BACnetSpecialEvent, BACnetSScanSpecialEvent)
BACFMT_NESTED_LIST(BACnetScanActionCommandList, BACnetActionCommand, BACnetSScanActionList)
BACFMT_NESTED_LIST(BACnetScanActionCommandListArray, BACnetActionList, BACnetSScanActionListArray)
BACFMT_NESTED_LIST(BACnetScanReadAccessSpecList, BACnetReadAccessSpec, BACnetSScanReadAccessSpec)
BACFMT_NESTED_LIST(BACnetScanExtendedValues, BACnetExtendedParameter, bacfmt::ScanEventExtendedParameters)
BACFMT_NESTED_ELEMENT(BACnetScanOctetString, BACnetOctetString, BACnetSScanOctetString)
