// Dates and times are assembled from their fields without a formatting
// pass; they must read exactly as the printf patterns "(%s,%2d-%s-%04d)" and
// "%02d:%02d:%02d.%02d" would write them, unspecified fields as "*", at
// every capacity.
#include <cstdio>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

namespace {

// "%0<width>d" when zero-padded, else "%<width>d"; "*" when unspecified.
std::string Field(bool specified, int width, bool zeroPadded, unsigned value) {
    if (!specified) return "*";
    char text[16];
    if (zeroPadded)
        std::snprintf(text, sizeof text, "%0*u", width, value);
    else
        std::snprintf(text, sizeof text, "%*u", width, value);
    return text;
}

std::string ExpectedDate(const BACnetDate &d) {
    const std::string weekday = d.dayOfWeek != 0 ? BACnetDayOfWeekString(d.dayOfWeek) : "*";
    const std::string month = d.month != 0 ? BACnetMonthString(d.month) : "*";
    return "(" + weekday + "," + Field(d.day <= 34, 2, false, d.day) + "-" + month + "-" +
           Field(d.year <= 9999, 4, true, d.year) + ")";
}

std::string ExpectedTime(const BACnetTime &t) {
    return Field(t.hour <= 24, 2, true, t.hour) + ":" + Field(t.minute <= 59, 2, true, t.minute) +
           ":" + Field(t.second <= 59, 2, true, t.second) + "." +
           Field(t.hundredths <= 99, 2, true, t.hundredths);
}

// The printer's text at full room, and -2 with a terminated empty text at
// every room that is not larger than the text.
template <typename Element>
void ExpectPrints(int (*printer)(char *, int, const Element *), const Element &value,
                  const std::string &expected) {
    char text[128];
    ASSERT_EQ(printer(text, sizeof text, &value), static_cast<int>(expected.size()));
    ASSERT_EQ(std::string(text), expected);
    const int length = static_cast<int>(expected.size());
    for (int size : {0, 1, length - 1, length}) {
        if (size < 0) continue;
        char small[128];
        small[0] = 'x';
        EXPECT_EQ(printer(small, size, &value), -2) << expected << " at " << size;
    }
}

TEST(DateTimeFormat, MatchesThePrintfPatternsOverRandomFields) {
    std::mt19937 random(20261124);
    std::uniform_int_distribution<unsigned> byte(0, 255), word(0, 70000), name(0, 16);
    for (int i = 0; i < 20000; ++i) {
        const BACnetDate date{static_cast<uint16_t>(word(random) % 65536), name(random),
                              static_cast<uint8_t>(byte(random)), name(random) % 9};
        ExpectPrints(BACnetSPrintDate, date, ExpectedDate(date));
        const BACnetTime time{static_cast<uint8_t>(byte(random) % 30),
                              static_cast<uint8_t>(byte(random) % 70),
                              static_cast<uint8_t>(byte(random)),
                              static_cast<uint8_t>(byte(random) % 110)};
        ExpectPrints(BACnetSPrintTime, time, ExpectedTime(time));
    }
}

}  // namespace
