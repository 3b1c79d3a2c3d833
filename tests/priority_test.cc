// Priority array slots and property states: what a slot's text reads as,
// the printed forms that read back, and the printers' odd results.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::Notation;

// Slots print without their tags, so only texts that tell their datatype
// read back: NULL, reals, unsigned numbers, binary states, "?".
const Notation kNotations[] = {
    {CT_PRI_ARRAY_ITEM, "(NULL,21.500000,16,active,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,?)", 87},
    {CT_PROPERTY_STATES, "[1] 1"},
    {CT_PROPERTY_STATES, "([0] 1,[11] 7,[12] 3)"},
};

TEST(Priority, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        bacfmt_test::ExpectFixedPoint(n);
        bacfmt_test::ExpectBoundedAtEveryCapacity(n, 1);  // octets' terminator
    }
}

// What one untagged or tagged slot reads as.
TEST(Priority, SlotTypes) {
    struct Case {
        const char *text;
        int result;  // 1 for success
        uint32_t type;
        uint32_t word;  // the first word of the value, when checked
        bool checkWord;
    } cases[] = {
        {"NULL", 1, CT_NULL, 0, true},
        {"1.5e3", 1, CT_REAL, 0x44BB8000u, true},  // 1500.0f
        {"1.0e40", 1, CT_DOUBLE, 0, false},
        {"1e3", 1, CT_UNSIGNED, 1, true},
        {"1.5", 1, CT_REAL, 0x3FC00000u, true},
        {"0x10", 1, CT_UNSIGNED, 16, true},
        {"?", 1, 0xFFFFFFFFu, 0, false},
        {"-5", -3, 0, 0, false},
        {"[3] -5", 1, CT_SIGNED, 0xFFFFFFFBu, true},
        {"[1] T", 1, CT_BOOLEAN, 1, false},
        {"[C1] ((monday, 1-january-2024),08:00:00.00)", 1, CT_DATE_TIME, 0, false},
        {"[C2] 1", -3, 0, 0, false},
        {"[x] 1", -3, 0, 0, false},
        {"[15] 1", -4, 0, 0, false},
    };
    for (const Case &c : cases) {
        std::string text = c.text;
        BACnetPriArrayItem items[2]{};
        void *slot = items;
        void *tail = nullptr;
        int32_t count = 0;
        const int result = BACnetSScanPriArrayItem(text.data(), &slot, 1, &tail, &count, 0);
        EXPECT_EQ(result > 0 ? 1 : result, c.result) << c.text;
        if (result <= 0) continue;
        EXPECT_EQ(items[0].type, c.type) << c.text;
        if (c.checkWord) {
            uint32_t word;
            std::memcpy(&word, &items[0].u, sizeof word);
            EXPECT_EQ(word, c.word) << c.text;
        }
    }
}

TEST(Priority, PrinterResults) {
    char out[64];
    BACnetPriArrayItem item{};
    item.type = CT_BOOLEAN;  // booleans and object identifiers print "?"
    EXPECT_EQ(BACnetSPrintPriArrayItem(out, sizeof out, &item), 1);
    EXPECT_STREQ(out, "?");
    item.type = CT_ENUMERATED;
    item.u.unsignedValue = 1;
    ASSERT_GT(BACnetSPrintPriArrayItem(out, sizeof out, &item), 0);
    EXPECT_STREQ(out, BACnetBinaryPVString(1));

    // A double is measured by its first word's "%d" and written whole.
    const double value = 21.5;
    item.type = CT_DOUBLE;
    std::memcpy(item.u.doubleWords, &value, sizeof value);
    uint32_t first;
    std::memcpy(&first, item.u.doubleWords, sizeof first);
    const int measured = std::snprintf(nullptr, 0, "%d", static_cast<int>(first));
    char guarded[32];
    std::memset(guarded, '#', sizeof guarded);
    EXPECT_EQ(BACnetSPrintPriArrayItem(guarded, measured + 1, &item), 12);
    EXPECT_STREQ(guarded, "2.150000e+01");
    EXPECT_EQ(BACnetSPrintPriArrayItem(guarded, measured, &item), -2);

    BACnetPropertyStates states{35, {0}};
    EXPECT_EQ(BACnetSPrintPropertyStates(out, sizeof out, &states, 1), 10);
    EXPECT_STREQ(out, "[35] ");
}

TEST(Priority, PropertyStatesReading) {
    struct Case {
        const char *text;
        uint32_t value;
    } cases[] = {
        {"[12] 3", 3},
        {"[12] name", 0},      // numbers only for this choice
        {"[11] 0x20", 32},
        {"[2] x-17", 17},      // the number behind a hyphen
        {"[2] no-such-name", static_cast<uint32_t>(BACNET_ENUM_UNKNOWN)},
    };
    for (const Case &c : cases) {
        std::string text = c.text;
        BACnetPropertyStates states{};
        void *slot = &states;
        int32_t count = 0;
        ASSERT_GT(BACnetSScanPropertyStates(text.data(), &slot, &count, 0), 0) << c.text;
        EXPECT_EQ(states.u.value, c.value) << c.text;
    }
    std::string untagged = "active";
    BACnetPropertyStates states{};
    void *slot = &states;
    int32_t count = 0;
    EXPECT_EQ(BACnetSScanPropertyStates(untagged.data(), &slot, &count, 0), -3);
}

}  // namespace
