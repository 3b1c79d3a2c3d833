// Dates "(weekday, day-month-year)", times "hh:mm:ss.hh" and their pair
// "((weekday, day-month-year),hh:mm:ss.hh)". A field holding "*" or "?" is
// unspecified. Fields are checked after they are cut to their width, so an
// hour of 300 (44 in eight bits) passes.
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/scan.h>

#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint8_t kUnspecifiedOctet = 255;
constexpr uint16_t kUnspecifiedYear = 65535;
constexpr uint32_t kUnspecifiedName = 0;
constexpr uint8_t kFirstInvalidDay = 35;  // 32..34 are the special days
constexpr uint32_t kLastMonth = 14;       // 13 and 14 are odd and even months

// Cuts `text` at the first `separator`: returns the text behind it and
// leaves the field before it terminated; null when there is none.
char *CutAt(char *text, char separator) {
    char *at = std::strchr(text, separator);
    if (at == nullptr) return nullptr;
    *at = '\0';
    return at + 1;
}

bool IsUnspecified(char *field) { return IsUnspecifiedString(field) != 0; }

// A time field: unspecified or a number below `limit` after narrowing.
int ReadTimeField(char *field, unsigned limit, uint8_t &value) {
    if (IsUnspecified(field)) {
        value = kUnspecifiedOctet;
        return 0;
    }
    value = static_cast<uint8_t>(TextToSigned(field));
    return value < limit ? 0 : kSyntaxError;
}

int ReadTime(char *text, BACnetTime &time) {
    char *minute = CutAt(text, ':');
    char *second = minute != nullptr ? CutAt(minute, ':') : nullptr;
    char *hundredths = second != nullptr ? CutAt(second, '.') : nullptr;
    if (hundredths == nullptr) return kSyntaxError;
    const int results[] = {
        ReadTimeField(text, 24, time.hour),
        ReadTimeField(minute, 60, time.minute),
        ReadTimeField(second, 60, time.second),
        ReadTimeField(hundredths, 100, time.hundredths),
    };
    for (int result : results)
        if (result < 0) return result;
    return 0;
}

// A name of a date table; weekdays must be names, months may be numbers.
int32_t DateName(char *field, uint32_t table) { return BACnetGetEnumValue(field, table, 0, 0); }

int ReadDate(char *text, BACnetDate &date) {
    char *day = CutAt(text, ',');
    char *month = day != nullptr ? CutAt(day, '-') : nullptr;
    char *year = month != nullptr ? CutAt(month, '-') : nullptr;
    if (year == nullptr) return kSyntaxError;

    if (IsUnspecified(text)) {
        date.dayOfWeek = kUnspecifiedName;
    } else {
        const int32_t weekday = DateName(text, BACNET_TABLE_WEEKDAYS);
        if (weekday == BACNET_ENUM_UNKNOWN) return kSyntaxError;
        date.dayOfWeek = static_cast<uint32_t>(weekday);
    }
    if (IsUnspecified(day)) {
        date.day = kUnspecifiedOctet;
    } else {
        date.day = static_cast<uint8_t>(TextToSigned(day));
        if (date.day == 0 || date.day >= kFirstInvalidDay) return kSyntaxError;
    }
    if (IsUnspecified(month)) {
        date.month = kUnspecifiedName;
    } else {
        int32_t number = DateName(month, BACNET_TABLE_MONTHS);
        if (number == BACNET_ENUM_UNKNOWN) number = TextToSigned(month);
        date.month = static_cast<uint32_t>(number);
        if (date.month == 0 || date.month > kLastMonth) return kSyntaxError;
    }
    date.year = IsUnspecified(year) ? kUnspecifiedYear : static_cast<uint16_t>(TextToSigned(year));
    return 0;
}

// Runs one nested scanner for exactly one element into `element`.
template <typename Element>
int ScanOne(int (*scanner)(char *, void **, int32_t *, int32_t), char *text, Element &element) {
    void *slot = &element;
    int32_t one = 1;
    const int result = scanner(text, &slot, &one, 0);
    return result < 0 ? result : 0;
}

int ReadDateTime(char *date, char *time, BACnetDateTime &value) {
    const int result = ScanOne(BACnetSScanDate, date, value.date);
    return result < 0 ? result : ScanOne(BACnetSScanTime, time, value.time);
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSScanTime(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<BACnetTime>(text, payload, count, sizeOnly, ReadTime);
}

extern "C" int BACnetSScanDate(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanGroups<BACnetDate>(text, payload, count, sizeOnly, ReadDate);
}

extern "C" int BACnetSScanDateTime(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    ElementList list(text);
    if (list.count() < 0) return kSyntaxError;
    // A list when the first element's content is itself "(date),time".
    if (list.count() > 0 && std::strchr(list.first(), '(') != nullptr) {
        return ScanElements<BACnetDateTime>(list, payload, count, sizeOnly,
                                            [](char *group, BACnetDateTime &value) {
                                                ElementList pair(group);
                                                if (pair.count() != 2) return kSyntaxError;
                                                char *date = pair.Next();
                                                return ReadDateTime(date, pair.Next(), value);
                                            });
    }
    if (list.count() != 2) return kSyntaxError;
    char *date = list.Next();
    char *time = list.Next();
    SingleElement one(date);
    return ScanElements<BACnetDateTime>(one, payload, count, sizeOnly,
                                        [time](char *dateText, BACnetDateTime &value) {
                                            return ReadDateTime(dateText, time, value);
                                        });
}
