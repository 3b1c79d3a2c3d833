// Dates and times. Each field that is unspecified or out of range prints
// as "*"; the whole pattern is measured before it is written.
#include <cstdio>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>

#include "print/writer.h"

namespace bacfmt {
namespace {

constexpr uint16_t kYearUnspecified = 65535;
constexpr uint8_t kDayUnspecified = 255;
constexpr uint8_t kLastSpecialDay = 34;  // 32..34: last day, odd days, even days

// "%02d" of a field within its range, else "*".
const char *TwoDigits(char (&text)[4], unsigned value, unsigned limit) {
    if (value > limit) return UnspecifiedString;
    std::snprintf(text, sizeof text, "%02u", value);
    return text;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintDate(char *dst, int size, const BACnetDate *value) {
    const char *weekday =
        value->dayOfWeek != 0 ? BACnetDayOfWeekString(value->dayOfWeek) : UnspecifiedString;
    const char *month = value->month != 0 ? BACnetMonthString(value->month) : UnspecifiedString;
    char dayText[4];
    const char *day = UnspecifiedString;
    if (value->day != kDayUnspecified && value->day <= kLastSpecialDay) {
        std::snprintf(dayText, sizeof dayText, "%2d", value->day);
        day = dayText;
    }
    char yearText[8];
    const char *year = UnspecifiedString;
    if (value->year != kYearUnspecified && value->year <= 9999) {
        std::snprintf(yearText, sizeof yearText, "%04d", value->year);
        year = yearText;
    }
    return Writer(dst, size).Format("(%s,%s-%s-%s)", weekday, day, month, year);
}

extern "C" int BACnetSPrintTime(char *dst, int size, const BACnetTime *value) {
    // The hour prints up to 24 on purpose; the scanners stop at 23.
    char hour[4], minute[4], second[4], hundredths[4];
    return Writer(dst, size).Format("%s:%s:%s.%s", TwoDigits(hour, value->hour, 24),
                                    TwoDigits(minute, value->minute, 59),
                                    TwoDigits(second, value->second, 59),
                                    TwoDigits(hundredths, value->hundredths, 99));
}

extern "C" int BACnetSPrintDateTime(char *dst, int size, const BACnetDateTime *value) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return out.Put(BACnetSPrintDate, &value->date); },
                        [&] { return out.Text(CommaString); },
                        [&] { return out.Put(BACnetSPrintTime, &value->time); },
                        [&] { return out.Text(RBraceString); });
}
