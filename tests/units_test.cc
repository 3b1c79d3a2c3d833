// Engineering-unit symbols: chosen entries byte for byte, the fallback past
// the table, and the rule that the only non-ASCII bytes are the degree sign
// and the superscript two.
#include <cstdint>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/catalog.h>

namespace {

constexpr uint32_t kUnitCount = 142;

struct UnitCase {
    uint32_t unit;
    const char *symbol;
};

TEST(UnitSymbols, ChosenUnitsAndFallback) {
    const UnitCase cases[] = {
        {0, "m\xC2\xB2"},
        {1, "ft\xC2\xB2"},
        {4, "O"},  // ohm, kept ASCII
        {14, "\xC2\xB0 phase"},
        {29, "%rF"},
        {34, "W/ft\xC2\xB2"},
        {59, "mmHG"},
        {62, "\xC2\xB0" "C"},
        {64, "\xC2\xB0" "F"},
        {65, "Gt \xC2\xB0" "C"},
        {67, "Jahre"},
        {68, "Monate"},
        {69, "Wochen"},
        {70, "Tage"},
        {71, "h"},
        {79, "ft3"},  // cubic, kept ASCII
        {80, "m3"},
        {84, "ft3/min"},
        {85, "m3/s"},
        {90, "\xC2\xB0"},
        {95, ""},
        {98, "%"},
        {102, "psi/\xC2\xB0" "F"},
        {104, "U/min"},
        {114, "currency-10"},
        {115, "del-unit-115"},
        {121, "del-unit-121"},
        {122, "kO"},
        {123, "MO"},
        {126, "mJ"},
        {135, "m3/h"},
        {137, "kWh/m\xC2\xB2"},
        {141, "W/m\xC2\xB2K"},
        {142, ""},
        {1000, ""},
        {0xFFFFFFFFu, ""},
    };
    for (const UnitCase &c : cases) {
        const char *symbol = BACnetUnit2IsoUnitString(c.unit);
        ASSERT_NE(symbol, nullptr) << c.unit;
        EXPECT_EQ(std::string(symbol), std::string(c.symbol)) << "unit " << c.unit;
    }
}

TEST(UnitSymbols, OnlyUnit95IsEmptyInsideTheTable) {
    for (uint32_t unit = 0; unit < kUnitCount; ++unit) {
        const char *symbol = BACnetUnit2IsoUnitString(unit);
        ASSERT_NE(symbol, nullptr) << unit;
        EXPECT_EQ(symbol[0] == '\0', unit == 95) << "unit " << unit;
    }
}

// Symbols stay ASCII except for C2 B0 (degree) and C2 B2 (superscript two):
// no ohm sign, no superscript three, no Latin-1 bytes.
TEST(UnitSymbols, NonAsciiBytesAreDegreeOrSquareOnly) {
    int degreeSigns = 0;
    int squares = 0;
    for (uint32_t unit = 0; unit < kUnitCount; ++unit) {
        const auto *bytes = reinterpret_cast<const unsigned char *>(BACnetUnit2IsoUnitString(unit));
        const size_t length = std::strlen(BACnetUnit2IsoUnitString(unit));
        for (size_t i = 0; i < length; ++i) {
            if (bytes[i] < 0x80) continue;
            ASSERT_EQ(bytes[i], 0xC2) << "unit " << unit << " byte " << i;
            ASSERT_LT(i + 1, length) << "unit " << unit;
            const unsigned char second = bytes[++i];
            EXPECT_TRUE(second == 0xB0 || second == 0xB2) << "unit " << unit << " byte " << i;
            (second == 0xB0 ? degreeSigns : squares)++;
        }
    }
    EXPECT_EQ(degreeSigns, 11);
    EXPECT_EQ(squares, 10);
}

}  // namespace
