// The printers format numbers without printf; they must write exactly what
// printf's "%u", "%d" and "%f" write, whatever the process locale.
#include <clocale>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/print.h>

namespace {

constexpr int kRoom = 400;

// printf's own text of each value, the reference for the printers.
std::string Printf(uint32_t value) { char t[kRoom]; std::snprintf(t, sizeof t, "%u", value); return t; }
std::string Printf(int32_t value) { char t[kRoom]; std::snprintf(t, sizeof t, "%d", value); return t; }
std::string Printf(double value) { char t[kRoom]; std::snprintf(t, sizeof t, "%f", value); return t; }

template <typename Value, typename Printer>
void ExpectSameAsPrintf(Value value, Printer printer) {
    const std::string expected = Printf(value);
    char actual[kRoom];
    ASSERT_EQ(printer(actual, kRoom, value), static_cast<int>(expected.size())) << expected;
    ASSERT_EQ(actual, expected);
}

TEST(NumberFormat, IntegersMatchPrintf) {
    std::mt19937 random(20261121);
    const uint32_t edges[] = {0, 9, 10, 99, 100, 999999, 1000000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    for (uint32_t value : edges) {
        ExpectSameAsPrintf(value, BACnetSPrintUnsigned);
        ExpectSameAsPrintf(static_cast<int32_t>(value), BACnetSPrintSigned);
    }
    for (int i = 0; i < 100000; ++i) {
        const uint32_t value = random() >> (random() % 32);
        ExpectSameAsPrintf(value, BACnetSPrintUnsigned);
        ExpectSameAsPrintf(static_cast<int32_t>(value), BACnetSPrintSigned);
    }
}

TEST(NumberFormat, RealsMatchPrintfOverAllBitPatterns) {
    std::mt19937 random(42);
    auto printReal = [](char *dst, int size, double value) {
        return BACnetSPrintReal(dst, size, static_cast<float>(value));
    };
    for (int i = 0; i < 100000; ++i) {
        const uint32_t bits = random();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        ExpectSameAsPrintf(static_cast<double>(value), printReal);
    }
    // Halfway cases round as printf does (to even on the exact binary value).
    for (double value : {0.0000005, 0.0000015, 2.5e-7, 1e-7, 0.125, 1e10, -0.0}) {
        ExpectSameAsPrintf(value, BACnetSPrintDouble);
    }
}

TEST(NumberFormat, DoublesMatchPrintf) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        ExpectSameAsPrintf(value, BACnetSPrintDouble);
    }
    std::uniform_real_distribution<double> everyday(-1e6, 1e6);
    for (int i = 0; i < 20000; ++i) ExpectSameAsPrintf(everyday(random), BACnetSPrintDouble);
}

TEST(NumberFormat, CommaLocaleKeepsTheDecimalPoint) {
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no de_DE.UTF-8 locale";
    char text[32];
    BACnetSPrintReal(text, sizeof text, 21.5f);
    std::setlocale(LC_ALL, "C");
    EXPECT_STREQ(text, "21.500000");
}

}  // namespace
