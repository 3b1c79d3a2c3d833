// Enumerations, object identifiers and the "[n] " tag are written with the
// writer's own digit routines; over many random values they must read
// exactly as the printf patterns "%d", "(%u,%u)", "(%s,%u)" and "[%d] "
// would write them.
#include <cstdarg>
#include <cstdio>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

namespace {

__attribute__((format(printf, 1, 2))) std::string Printf(const char *format, ...) {
    char text[128];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    return text;
}

// Values spread over every digit count, the limits included.
uint32_t RandomValue(std::mt19937 &random) {
    switch (random() % 4) {
    case 0: return random() % 100;
    case 1: return random() % 100000;
    case 2: return static_cast<uint32_t>(random());
    default: return 0xFFFFFFFFu - random() % 3;
    }
}

TEST(SymbolicFormat, EnumerationsAndObjectIdentifiersReadAsTheirPatterns) {
    std::mt19937 random(1124);
    char text[256];
    for (int i = 0; i < 20000; ++i) {
        const uint32_t value = RandomValue(random);
        const uint32_t instance = RandomValue(random);
        const std::string number = Printf("%d", static_cast<int>(value));

        ASSERT_EQ(BACnetSPrintEnum(text, sizeof text, value, 117, 0), static_cast<int>(number.size()));
        ASSERT_EQ(text, number);

        const BACnetObjectID oid{value, instance};
        const std::string plain = Printf("(%u,%u)", value, instance);
        ASSERT_EQ(BACnetSPrintObjectID(text, sizeof text, &oid, 0), static_cast<int>(plain.size()));
        ASSERT_EQ(text, plain);
        const std::string named = Printf("(%s,%u)", BACnetObjTypeString(value), instance);
        ASSERT_EQ(BACnetSPrintObjectID(text, sizeof text, &oid, 1), static_cast<int>(named.size()));
        ASSERT_EQ(text, named);
    }
}

TEST(SymbolicFormat, TheTagReadsAsItsPattern) {
    std::mt19937 random(2026);
    char text[256];
    for (int i = 0; i < 2000; ++i) {
        uint32_t value = RandomValue(random);
        const BACnetContents record{CT_UNSIGNED, 1, &value, 0, {0, 0}};
        const std::string expected = Printf("[%d] %u", CT_UNSIGNED >> 4, value);
        ASSERT_EQ(BACnetSPrintContents(text, sizeof text, &record, 85, 0, 1), static_cast<int>(expected.size()));
        ASSERT_EQ(text, expected);
    }
}

}  // namespace
