// Dates and times. Each field that is unspecified or out of range prints
// as "*"; the whole pattern is measured before it is written.
#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>

#include "print/writer.h"

namespace bacfmt {
namespace {

constexpr uint16_t kYearUnspecified = 65535;
constexpr uint8_t kDayUnspecified = 255;
constexpr uint8_t kLastSpecialDay = 34;  // 32..34: last day, odd days, even days

// Decimal digits of `value` in `width` places, padded with `pad`.
const char *Digits(char *text, unsigned value, int width, char pad) {
    text[width] = '\0';
    for (int i = width - 1; i >= 0; --i, value /= 10)
        text[i] = value != 0 || i == width - 1 ? static_cast<char>('0' + value % 10) : pad;
    return text;
}

// "%02d" of a field within its range, else "*".
const char *TwoDigits(char (&text)[4], unsigned value, unsigned limit) {
    return value > limit ? UnspecifiedString : Digits(text, value, 2, '0');
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
        day = Digits(dayText, value->day, 2, ' ');
    }
    char yearText[8];
    const char *year = UnspecifiedString;
    if (value->year != kYearUnspecified && value->year <= 9999) {
        year = Digits(yearText, value->year, 4, '0');
    }
    return Writer(dst, size).Concat({"(", weekday, ",", day, "-", month, "-", year, ")"});
}

extern "C" int BACnetSPrintTime(char *dst, int size, const BACnetTime *value) {
    // The hour prints up to 24 on purpose; the scanners stop at 23.
    char hour[4], minute[4], second[4], hundredths[4];
    return Writer(dst, size).Concat({TwoDigits(hour, value->hour, 24), ":",
                                     TwoDigits(minute, value->minute, 59), ":",
                                     TwoDigits(second, value->second, 59), ".",
                                     TwoDigits(hundredths, value->hundredths, 99)});
}

extern "C" int BACnetSPrintDateTime(char *dst, int size, const BACnetDateTime *value) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return out.Put(BACnetSPrintDate, &value->date); },
                        [&] { return out.Text(CommaString); },
                        [&] { return out.Put(BACnetSPrintTime, &value->time); },
                        [&] { return out.Text(RBraceString); });
}
