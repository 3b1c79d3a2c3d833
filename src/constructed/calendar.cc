// The values a calendar is written with, and the time stamps other values
// embed:
//   date range      "(" date "," date ")"
//   week-and-day    month "-" week "-" weekday, "*" for any; or X'mmwwdd'
//   calendar entry  "[0] " date | "[1] " date range | "[2] " week-and-day
//   time stamp      "[0] " time | "[1] " sequence number | "[2] " date-time
#include <cstdlib>
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/calendar.h"
#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kUnspecifiedWeek = BACNET_ABSENT_U32;
constexpr uint32_t kUnspecifiedOctet = 0xFF;
constexpr uint32_t kAnyMonthOrDay = 0;

// A date printed aside, as the range printer does, with room of its own.
constexpr int kDateScratch = 100;

// "[n] " in front of a choice: -2 when it does not fit.
int PutChoice(Writer &out, uint32_t choice) { return out.Format("[%d] ", static_cast<int>(choice)); }

// A month or weekday: any ("*" or "?") is 0; else a name of the table or a
// number; a resulting 0 is refused.
int ReadNamedField(char *text, uint32_t table, uint32_t &field) {
    text = KillTrailLeadSpace(text);
    if (IsUnspecifiedString(text) != 0) {
        field = kAnyMonthOrDay;
        return 0;
    }
    const int32_t named = BACnetGetEnumValue(text, table, 0, 0);
    field = named == BACNET_ENUM_UNKNOWN ? static_cast<uint32_t>(TextToSigned(text)) : static_cast<uint32_t>(named);
    return field == kAnyMonthOrDay ? kSyntaxError : 0;
}

// "month-week-weekday".
int ReadNamedPattern(char *text, BACnetWeekNDay &pattern) {
    char *week = std::strchr(text, '-');
    char *weekday = week != nullptr ? std::strchr(week + 1, '-') : nullptr;
    if (weekday == nullptr) return kSyntaxError;
    *week++ = '\0';
    *weekday++ = '\0';
    int result = ReadNamedField(text, BACNET_TABLE_MONTHS, pattern.month);
    if (result < 0) return result;
    week = KillTrailLeadSpace(week);
    pattern.week = IsUnspecifiedString(week) != 0 ? kUnspecifiedWeek : static_cast<uint32_t>(TextToSigned(week));
    return ReadNamedField(weekday, BACNET_TABLE_WEEKDAYS, pattern.dayOfWeek);
}

// X'mmwwdd': FF is any; a month or weekday of 0 is refused.
int ReadOctetPattern(const char *text, BACnetWeekNDay &pattern) {
    const size_t length = std::strlen(text);
    auto octetAt = [&](size_t at) -> uint8_t {
        if (at + 1 >= length) return 0;
        const char pair[3] = {text[at], text[at + 1], '\0'};
        return static_cast<uint8_t>(std::strtoul(pair, nullptr, 16));
    };
    const uint8_t octets[3] = {octetAt(2), octetAt(4), octetAt(6)};
    auto field = [](uint8_t octet) { return octet == kUnspecifiedOctet ? kAnyMonthOrDay : uint32_t{octet}; };
    if (octets[0] == 0 || octets[2] == 0) return kSyntaxError;
    pattern.month = field(octets[0]);
    pattern.week = octets[1] == kUnspecifiedOctet ? kUnspecifiedWeek : octets[1];
    pattern.dayOfWeek = field(octets[2]);
    return 0;
}

}  // namespace

int ReadDateRange(char *text, BACnetDateRange &range) {
    char *part[2];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadDateRangeParts(part, range);
}

int ReadDateRangeParts(char *const (&part)[2], BACnetDateRange &range) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    const int result = ScanOneElement(BACnetSScanDate, part[0], range.start);
    return result < 0 ? result : ScanOneElement(BACnetSScanDate, part[1], range.end);
}

int ReadWeekNDay(char *text, BACnetWeekNDay &pattern) {
    if (std::strchr(text, '-') != nullptr) return ReadNamedPattern(text, pattern);
    if (std::strchr(text, 'X') != nullptr) return ReadOctetPattern(text, pattern);
    return kSyntaxError;
}

int ReadCalendarEntry(char *text, BACnetCalendarEntry &entry) {
    char *after = nullptr;
    const int choice = ParseChoice(text, -1, &after);
    if (choice < 0) return kUnsupported;  // no tag
    entry.choice = static_cast<uint32_t>(choice);
    after = KillTrailLeadSpace(after);
    switch (choice) {
    case BACNET_CALENDAR_DATE:
        return ScanOneElement(BACnetSScanDate, after, entry.u.date);
    case BACNET_CALENDAR_DATE_RANGE:
        return ScanOneElement(BACnetSScanDateRange, after, entry.u.range);
    case BACNET_CALENDAR_WEEK_N_DAY:
        return ScanOneElement(BACnetSScanWeekNDay, after, entry.u.weekNDay);
    default:
        return kUnsupported;
    }
}

int ReadTimeStamp(char *text, BACnetTimeStamp &stamp) {
    char *after = nullptr;
    const int choice = ParseChoice(text, -1, &after);
    if (choice < 0) return kSyntaxError;  // no tag
    stamp.choice = static_cast<uint32_t>(choice);
    after = KillTrailLeadSpace(after);
    switch (choice) {
    case BACNET_TIME_STAMP_TIME:
        return ScanOneElement(BACnetSScanTime, after, stamp.u.time);
    case BACNET_TIME_STAMP_SEQUENCE:
        // Decimal, 0x hexadecimal or 0 octal, and never an error.
        stamp.u.sequence = static_cast<uint32_t>(std::strtoul(after, nullptr, 0));
        return 0;
    case BACNET_TIME_STAMP_DATE_TIME:
        return ScanOneElement(BACnetSScanDateTime, after, stamp.u.dateTime);
    default:
        return kUnsupported;
    }
}

}  // namespace bacfmt

using namespace bacfmt;

// ---- printers ----

extern "C" int BACnetSPrintDateRange(char *dst, int size, const BACnetDateRange *value) {
    char start[kDateScratch];
    char end[kDateScratch];
    int result = BACnetSPrintDate(start, sizeof start, &value->start);
    if (result < 0) return result;
    if ((result = BACnetSPrintDate(end, sizeof end, &value->end)) < 0) return result;
    Writer out(dst, size);
    return out.Format("%s%s,%s%s", LBraceString, start, end, RBraceString);
}

extern "C" int BACnetSPrintWeekNDay(char *dst, int size, const BACnetWeekNDay *value) {
    // Both names are asked for before the week is looked at.
    const char *month = BACnetMonthString(value->month);
    const char *weekday = BACnetDayOfWeekString(value->dayOfWeek);
    Writer out(dst, size);
    if (value->week == kUnspecifiedWeek) return out.Format("%s-%s-%s", month, UnspecifiedString, weekday);
    return out.Format("%s-%02u-%s", month, value->week, weekday);
}

// An unknown choice writes only its tag and counts it twice.
extern "C" int BACnetSPrintCalendarEntry(char *dst, int size, const BACnetCalendarEntry *value) {
    Writer out(dst, size);
    const int tag = PutChoice(out, value->choice);
    if (tag < 0) return tag;
    int result;
    switch (value->choice) {
    case BACNET_CALENDAR_DATE:
        result = out.Put(BACnetSPrintDate, &value->u.date);
        break;
    case BACNET_CALENDAR_DATE_RANGE:
        result = out.Put(BACnetSPrintDateRange, &value->u.range);
        break;
    case BACNET_CALENDAR_WEEK_N_DAY:
        result = out.Put(BACnetSPrintWeekNDay, &value->u.weekNDay);
        break;
    default:
        return 2 * tag;
    }
    return result < 0 ? result : out.used();
}

extern "C" int BACnetSPrintTimeStamp(char *dst, int size, const BACnetTimeStamp *value) {
    Writer out(dst, size);
    const int choice = static_cast<int>(value->choice);
    switch (value->choice) {
    case BACNET_TIME_STAMP_TIME:
        return out.Sequence([&] { return PutChoice(out, value->choice); },
                            [&] { return out.Put(BACnetSPrintTime, &value->u.time); });
    case BACNET_TIME_STAMP_SEQUENCE:
        return out.Format("[%d] %u", choice, value->u.sequence);
    case BACNET_TIME_STAMP_DATE_TIME:
        return out.Sequence([&] { return PutChoice(out, value->choice); },
                            [&] { return out.Put(BACnetSPrintDateTime, &value->u.dateTime); });
    default:
        return out.Format("[%d] %s", choice, UnknownString);
    }
}

extern "C" int BACnetSPrintCalendarEntryList(char *dst, int size, const BACnetCalendarEntry *list,
                                             unsigned count) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] {
                            return PrintEach(out, list, count, [&](const BACnetCalendarEntry &entry) {
                                return out.Put(BACnetSPrintCalendarEntry, &entry);
                            });
                        },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintTimeStampList(char *dst, int size, const BACnetTimeStamp *list,
                                         unsigned count, int /*ignored*/) {
    Writer out(dst, size);
    return SumBracketed(out, list, count, [&](const BACnetTimeStamp &stamp) {
        return out.AddPut(BACnetSPrintTimeStamp, &stamp);
    });
}

// ---- scanners ----

// One range of two dates, or a list of ranges (the first element then
// holds a bracket).
extern "C" int BACnetSScanDateRange(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (std::strchr(elements.first(), '(') == nullptr) {
        if (elements.count() != 2) return kSyntaxError;
        WalkedParts<2> one(elements);
        return ScanElements<BACnetDateRange>(one, payload, count, sizeOnly,
                                             [&one](char *, BACnetDateRange &range) {
                                                 return ReadDateRangeParts(one.part, range);
                                             });
    }
    return ScanElements<BACnetDateRange>(elements, payload, count, sizeOnly, ReadDateRange);
}

// A failing pattern leaves the count at the number of patterns found.
extern "C" int BACnetSScanWeekNDay(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    const int result = ScanElements<BACnetWeekNDay>(elements, payload, count, sizeOnly, ReadWeekNDay);
    if (result == kSyntaxError) *count = elements.count();
    return result;
}

extern "C" int BACnetSScanCalendarEntry(char *text, void **payload, int32_t *count,
                                        int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) {
        *count = 0;
        return 0;
    }
    return ScanElements<BACnetCalendarEntry>(elements, payload, count, sizeOnly, ReadCalendarEntry);
}

extern "C" int BACnetSScanTimeStamp(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<BACnetTimeStamp>(text, payload, count, sizeOnly, ReadTimeStamp);
}
