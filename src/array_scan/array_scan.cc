// The array scanners: text into a caller's own elements, with a system
// error number as the result. The element scanners run the two-pass
// scanner of their datatype (its converter) on a working copy; the list
// scanners walk a parenthesised list and hand each element to the element
// scanner. The string, unsigned and time scanners and the date list are
// written out as they have always worked.
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <bacfmt/array_scan.h>
#include <bacfmt/scan.h>

#include "charset/charset.h"
#include "scan/lexical.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr int kInvalid = EINVAL;
constexpr int kNoMemory = ENOMEM;
constexpr uint32_t kCountingLimit = 100000;
constexpr size_t kTimeScratch = 64;
constexpr uint32_t kCharStringBytes = 16;  // what each string counts in `bytes`

// A working copy of a caller's text, released with the scope.
struct WorkingCopy {
    std::unique_ptr<char, decltype(&std::free)> text{nullptr, &std::free};
    explicit WorkingCopy(const char *source) : text(strdup(source), &std::free) {}
    char *get() const { return text.get(); }
};

// The bracketed content of `text`, which must be the whole text.
bool WholeContent(char *text, char *content, size_t room) {
    char *behind = ParseBrackets(text, content, static_cast<int>(room));
    return behind != nullptr && *KillTrailLeadSpace(behind) == '\0';
}

using FixedScanner = int (*)(char *, void **, int32_t *, int32_t);

// One element through its two-pass scanner, on a copy.
template <typename Element>
int ScanElement(const char *text, Element *element, FixedScanner scanner) {
    if (text == nullptr || element == nullptr) return kInvalid;
    WorkingCopy copy(text);
    if (copy.get() == nullptr) return kNoMemory;
    void *slot = element;
    int32_t one = 1;
    return scanner(copy.get(), &slot, &one, 0) < 0 ? kInvalid : 0;
}

int ScanBits(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return BACnetSScanBitString(text, payload, count, nullptr, sizeOnly);
}

// "(element,element,...)": each element (cut at a comma outside brackets
// and quotes) handed to `scanOne`, into the next slot or, counting, into
// a scratch element. Stops at the limit, the first failure or the end.
template <typename Element, typename ScanOne>
int ScanElementList(const char *text, Element *elements, uint32_t *count, ScanOne scanOne) {
    if (text == nullptr || count == nullptr) return kInvalid;
    WorkingCopy copy(text);
    WorkingCopy content(text);
    if (copy.get() == nullptr || content.get() == nullptr) return kNoMemory;
    const size_t room = std::strlen(text) + 1;
    if (ParseBrackets(KillTrailLeadSpace(copy.get()), content.get(), static_cast<int>(room)) == nullptr)
        return kInvalid;
    const uint32_t limit = elements != nullptr ? *count : (*count != 0 ? *count : kCountingLimit);
    uint16_t found = 0;  // the element counter is 16 bits wide
    int result = 0;
    char *at = content.get();
    while (*at != '\0' && found < limit) {
        while (*at == ' ' || *at == '\t') ++at;
        if (*at == '\0') break;
        char *start = at;
        int depth = 0;
        char quote = '\0';
        for (; *at != '\0'; ++at) {
            if (quote != '\0') {
                if (*at == quote && at[-1] != '\\') quote = '\0';
            } else if (*at == '"') {
                quote = *at;
            } else if (IsOpeningBracket(*at) != 0) {
                ++depth;
            } else if (IsClosingBracket(*at) != 0) {
                --depth;
            } else if (*at == ',' && depth == 0) {
                break;
            }
        }
        if (*at == ',') *at++ = '\0';
        Element scratch{};
        if ((result = scanOne(KillTrailLeadSpace(start), elements != nullptr ? &elements[found] : &scratch)) != 0)
            break;
        ++found;
    }
    *count = found;
    return result;
}

// The numbers of the time fields: "*" or "?" is 255.
uint8_t TimeField(char *text) {
    if (IsUnspecifiedString(text) != 0) return 0xFF;
    return static_cast<uint8_t>(std::atoi(text));
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetScanTime(const char *text, BACnetTime *element) {
    if (text == nullptr || element == nullptr) return kInvalid;
    WorkingCopy copy(text);
    if (copy.get() == nullptr) return kNoMemory;
    char scratch[kTimeScratch];
    if (!WholeContent(KillTrailLeadSpace(copy.get()), scratch, sizeof scratch)) return kInvalid;
    char *minute = std::strchr(scratch, ':');
    char *second = minute != nullptr ? std::strchr(minute + 1, ':') : nullptr;
    if (second == nullptr) return kInvalid;
    *minute++ = '\0';
    *second++ = '\0';
    char *hundredths = std::strchr(second, '.');
    if (hundredths != nullptr) *hundredths++ = '\0';
    const uint8_t hour = TimeField(scratch);
    const uint8_t minutes = TimeField(minute);
    const uint8_t seconds = TimeField(second);
    // The hour stops at 23 here although the printer writes an hour of 24.
    if ((hour > 23 && hour != 0xFF) || (minutes > 59 && minutes != 0xFF) || (seconds > 59 && seconds != 0xFF))
        return kInvalid;
    element->hour = hour;
    element->minute = minutes;
    element->second = seconds;
    if (hundredths != nullptr) {
        const uint8_t value = TimeField(hundredths);
        if (value > 99 && value != 0xFF) return kInvalid;
        element->hundredths = value;
    }
    return 0;
}

extern "C" int BACnetScanStringArray(const char *text, uint32_t *count, BACnetCharString *strings,
                                     uint32_t *bytes) {
    if (text == nullptr || count == nullptr || bytes == nullptr) return kInvalid;
    WorkingCopy copy(text);
    WorkingCopy content(text);
    if (copy.get() == nullptr || content.get() == nullptr) return kNoMemory;
    if (!WholeContent(KillTrailLeadSpace(copy.get()), content.get(), std::strlen(text) + 1)) return kInvalid;
    char *list = content.get();
    if (*KillTrailLeadSpace(list) == '\0') {
        *count = 0;
        *bytes = 0;
        return 0;
    }
    uint32_t elements = 1;
    for (char *comma = my_str_str(list, ","); comma != nullptr; comma = my_str_str(comma + 1, ",")) ++elements;
    if (strings == nullptr) {
        *count = elements;
        *bytes = static_cast<uint32_t>(std::strlen(list)) + kCharStringBytes * elements;
        return 0;
    }
    std::memset(strings, 0, sizeof *strings * elements);
    char *characters = reinterpret_cast<char *>(strings + elements);
    *bytes = 0;
    char *at = list;
    for (uint32_t i = 0; i < elements; ++i) {
        char *comma = my_str_str(at, ",");
        if (comma != nullptr) *comma = '\0';
        char *item = KillQuote(KillTrailLeadSpace(at));
        const auto length = static_cast<uint32_t>(std::strlen(item));
        strings[i].charSet = tBACnetStringType;
        strings[i].codePage = static_cast<uint16_t>(nStringCodepage);
        strings[i].chars = characters;
        std::memcpy(characters, item, length + 1);
        strings[i].bufferSize = length + 1;
        characters += length + 1;
        *bytes += length + 1 + kCharStringBytes;
        if (comma == nullptr) break;
        at = comma + 1;
    }
    *count = elements;
    return 0;
}

extern "C" int BACnetScanUnsignedArray(const char *text, uint32_t *count, uint32_t *values) {
    if (text == nullptr || count == nullptr) return kInvalid;
    WorkingCopy copy(text);
    WorkingCopy content(text);
    if (copy.get() == nullptr || content.get() == nullptr) return kNoMemory;
    if (!WholeContent(KillTrailLeadSpace(copy.get()), content.get(), std::strlen(text) + 1)) return kInvalid;
    char *list = KillTrailLeadSpace(content.get());
    if (*list == '\0') {
        *count = 0;
        return 0;
    }
    uint32_t elements = 1;
    for (const char *p = list; *p != '\0'; ++p)
        if (*p == ',') ++elements;
    *count = elements;
    if (values == nullptr) return 0;
    std::memset(values, 0, sizeof *values * elements);
    char *at = list;
    for (uint32_t i = 0; i < elements; ++i) {
        char *item = KillTrailLeadSpace(at);
        char *end = nullptr;
        errno = 0;
        const long value = std::strtol(item, &end, 0);
        if (end == item) return kInvalid;  // no digits
        values[i] = static_cast<uint32_t>(value);
        char *comma = std::strchr(at, ',');
        if (comma == nullptr) break;
        at = comma + 1;
    }
    return 0;
}

#define BACFMT_ELEMENT_SCANNER(Name, Type, Scanner) \
    extern "C" int Name(const char *text, Type *element) { return ScanElement(text, element, Scanner); }

BACFMT_ELEMENT_SCANNER(BACnetScanDate, BACnetDate, BACnetSScanDate)
BACFMT_ELEMENT_SCANNER(BACnetScanDateTime, BACnetDateTime, BACnetSScanDateTime)
BACFMT_ELEMENT_SCANNER(BACnetScanDateRange, BACnetDateRange, BACnetSScanDateRange)
BACFMT_ELEMENT_SCANNER(BACnetScanWeekNDay, BACnetWeekNDay, BACnetSScanWeekNDay)
BACFMT_ELEMENT_SCANNER(BACnetScanCalendarEntry, BACnetCalendarEntry, BACnetSScanCalendarEntry)
BACFMT_ELEMENT_SCANNER(BACnetScanBitString, BACnetBitString, ScanBits)
BACFMT_ELEMENT_SCANNER(BACnetScanObjectIdentifier, BACnetObjectID, BACnetSScanObjectID)
BACFMT_ELEMENT_SCANNER(BACnetScanObjPropReference, BACnetObjPropReference, BACnetSScanObjPropReference)
BACFMT_ELEMENT_SCANNER(BACnetScanSetpointReference, BACnetSetpointReference, BACnetSScanSetpointReference)
BACFMT_ELEMENT_SCANNER(BACnetScanDevObjReference, BACnetDevObjReference, BACnetSScanDevObjReference)
BACFMT_ELEMENT_SCANNER(BACnetScanDevObjPropReference, BACnetDevObjPropReference, BACnetSScanDevObjPropReference)
BACFMT_ELEMENT_SCANNER(BACnetScanScale, BACnetScale, BACnetSScanScale)
BACFMT_ELEMENT_SCANNER(BACnetScanPrescale, BACnetPrescale, BACnetSScanPrescale)
BACFMT_ELEMENT_SCANNER(BACnetScanPropertyStates, BACnetPropertyStates, BACnetSScanPropertyStates)
BACFMT_ELEMENT_SCANNER(BACnetScanAccumulatorRecord, BACnetAccumulatorRecord, BACnetSScanAccumulatorRecord)
BACFMT_ELEMENT_SCANNER(BACnetScanAddress, BACnetAddress, BACnetSScanAddress)
BACFMT_ELEMENT_SCANNER(BACnetScanRecipient, BACnetRecipient, BACnetSScanRecipient)
BACFMT_ELEMENT_SCANNER(BACnetScanAddressBinding, BACnetAddressBinding, BACnetSScanAddressBinding)
BACFMT_ELEMENT_SCANNER(BACnetScanDestination, BACnetDestination, BACnetSScanDestination)

#define BACFMT_LIST_SCANNER(Name, Type, ElementScanner) \
    extern "C" int Name(const char *text, Type *elements, uint32_t *count) { \
        return ScanElementList(text, elements, count, ElementScanner); \
    }

BACFMT_LIST_SCANNER(BACnetScanDateList, BACnetDate, BACnetScanDate)
BACFMT_LIST_SCANNER(BACnetScanCalendarEntryList, BACnetCalendarEntry, BACnetScanCalendarEntry)
BACFMT_LIST_SCANNER(BACnetScanBitStringList, BACnetBitString, BACnetScanBitString)
BACFMT_LIST_SCANNER(BACnetScanDevObjReferenceList, BACnetDevObjReference, BACnetScanDevObjReference)
BACFMT_LIST_SCANNER(BACnetScanDevObjPropReferenceList, BACnetDevObjPropReference, BACnetScanDevObjPropReference)
BACFMT_LIST_SCANNER(BACnetScanPropertyStatesList, BACnetPropertyStates, BACnetScanPropertyStates)
BACFMT_LIST_SCANNER(BACnetScanRecipientList, BACnetRecipient, BACnetScanRecipient)
BACFMT_LIST_SCANNER(BACnetScanAddressBindingList, BACnetAddressBinding, BACnetScanAddressBinding)
BACFMT_LIST_SCANNER(BACnetScanDestinationList, BACnetDestination, BACnetScanDestination)

extern "C" int BACnetScanEnumList(const char *text, uint32_t *elements, uint32_t *count, uint32_t propertyId) {
    return ScanElementList(text, elements, count, [propertyId](char *item, uint32_t *value) {
        void *slot = value;
        int32_t one = 1;
        return BACnetSScanEnum(item, &slot, &one, static_cast<int32_t>(propertyId), 0) < 0 ? kInvalid : 0;
    });
}
