// The enumeration text services: names, the "proprietary-N" fallback the
// scanners read back, the published table set and the log redirection.
#include <bacfmt/enumtext.h>

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr uint32_t kAny = BACNET_ENUM_ANY_OBJECT;

using NameService = const char *(*)(uint32_t);

struct NameCase {
    NameService service;
    uint32_t value;
    const char *expected;
};

const NameCase kNameCases[] = {
    {BACnetPropIDString,    85,         "present-value"},
    {BACnetPropIDString,    0,          "acked-transitions"},
    {BACnetPropIDString,    18,         "proprietary-18"},  // unassigned gap
    {BACnetPropIDString,    512,        "proprietary-512"},
    {BACnetPropIDString,    4194307,    "current-health"},  // 22-bit run
    {BACnetPropIDString,    4194350,    "proprietary-4194350"},
    {BACnetObjTypeString,   0,          "analog-input"},
    {BACnetObjTypeString,   8,          "device"},
    {BACnetObjTypeString,   64,         "color-temperature"},
    {BACnetObjTypeString,   128,        "proprietary-128"},
    {BACnetMonthString,     1,          "january"},
    {BACnetMonthString,     12,         "december"},
    {BACnetMonthString,     13,         "odd"},
    {BACnetMonthString,     14,         "even"},
    {BACnetMonthString,     0,          "*"},
    {BACnetMonthString,     255,        "*"},
    {BACnetMonthString,     15,         "proprietary-15"},
    {BACnetDayOfWeekString, 1,          "monday"},
    {BACnetDayOfWeekString, 7,          "sunday"},
    {BACnetDayOfWeekString, 0,          "*"},
    {BACnetDayOfWeekString, 255,        "*"},
    {BACnetDayOfWeekString, 8,          "proprietary-8"},
    {BACnetBinaryPVString,  0,          "inactive"},
    {BACnetBinaryPVString,  1,          "active"},
    {BACnetBinaryPVString,  2,          "proprietary-2"},
    {BACnetBinaryPVString,  0xFFFFFFFF, "proprietary-4294967295"},  // longest text
};

TEST(TextServices, NameServices) {
    for (const NameCase &c : kNameCases) {
        const char *name = c.service(c.value);
        ASSERT_NE(name, nullptr) << c.value;
        EXPECT_STREQ(name, c.expected) << c.value;
    }
}

struct EnumCase {
    uint32_t value;
    uint32_t selector;
    uint32_t property;
    const char *expected;
};

const EnumCase kEnumCases[] = {
    {2,     kAny, 36,      "offnormal"},
    {1,     kAny, 85,      "active"},            // binary objects by default
    {0,     28,   85,      "shed-inactive"},     // load control
    {2,     28,   85,      "shed-compliant"},
    {1,     30,   85,      "unlock"},            // access door
    {1,     55,   85,      "on"},                // binary lighting output
    {1,     0,    85,      "active"},            // no row for analog input: default
    {2,     kAny, 85,      "proprietary-2"},     // known table, no such value
    {3,     kAny, 7,       "fault"},             // life-safety states
    {2,     21,   158,     "need-service-operational"},
    {62,    kAny, 117,     "degrees-celsius"},
    {47979, kAny, 117,     "microseconds"},      // units' extended run
    {62,    kAny, 455,     "degrees-celsius"},   // another units property
    {8,     kAny, 79,      "device"},
    {8,     kAny, 96,      "device"},
    {85,    kAny, 78,      "present-value"},
    {85,    kAny, 371,     "present-value"},
    {2,     kAny, 131,     "log-interrupted"},   // log record status bits
    {1,     kAny, 380,     "fade-to"},           // lighting command operation
    {0,     kAny, 4194318, "no-hub-connection"},
    {3,     kAny, 83,      "proprietary-3"},     // property without enumeration
};

TEST(TextServices, EnumStringBySelectorAndProperty) {
    for (const EnumCase &c : kEnumCases) {
        EXPECT_STREQ(BACnetEnumString(c.value, c.selector, c.property), c.expected)
            << c.value << " " << c.selector << " " << c.property;
    }
}

TEST(TextServices, ProprietaryResultsStayValidTogether) {
    // A printer holds a weekday and a month at once; the ring keeps eight.
    std::vector<const char *> held;
    for (uint32_t i = 0; i < 8; ++i) {
        held.push_back(i % 2 == 0 ? BACnetPropIDString(1000 + i) : BACnetObjTypeString(1000 + i));
    }
    // Another thread's results come from its own ring.
    std::thread other([] {
        for (uint32_t i = 0; i < 20; ++i) {
            BACnetEnumString(i + 500, kAny, 83);
        }
    });
    other.join();
    for (uint32_t i = 0; i < 8; ++i) {
        EXPECT_EQ(std::string(held[i]), "proprietary-" + std::to_string(1000 + i));
    }
}

const BACnetStringTableInfo *TableInfo() {
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    return info;
}

const BACnetStringTable *FindTable(uint32_t key) {
    const BACnetStringTableInfo *info = TableInfo();
    for (uint32_t i = 0; i < info->tableCount; ++i) {
        if (info->tables[i].tableId == key) {
            return &info->tables[i];
        }
    }
    return nullptr;
}

TEST(TextServices, TablesAreUniqueAndAgreeWithTheServices) {
    const BACnetStringTableInfo *info = TableInfo();
    ASSERT_NE(info, nullptr);
    ASSERT_GT(info->tableCount, 0u);
    BACnetGetStringTableInfo(nullptr);  // tolerated
    for (uint32_t i = 0; i < info->tableCount; ++i) {
        const BACnetStringTable &table = info->tables[i];
        if (i > 0) {
            EXPECT_LT(info->tables[i - 1].tableId, table.tableId) << "keys unique, ascending";
        }
        ASSERT_NE(table.names, nullptr) << table.tableId;
        ASSERT_GT(table.nameCount, 0u) << table.tableId;
        // The scanners take a name's index as its value: every published
        // name must be what the services print for that value.
        for (uint32_t value = 0; value < table.nameCount; ++value) {
            if (table.names[value] != nullptr) {
                EXPECT_STREQ(BACnetEnumString(value, kAny, table.tableId), table.names[value])
                    << table.tableId << "/" << value;
            }
        }
    }
}

TEST(TextServices, DedicatedServicesPrintWhatTheScannersLookUp) {
    const struct {
        uint32_t key;
        NameService service;
    } services[] = {{BACNET_TABLE_WEEKDAYS, BACnetDayOfWeekString},
                    {BACNET_TABLE_MONTHS, BACnetMonthString},
                    {BACNET_TABLE_PROPERTIES, BACnetPropIDString},
                    {BACNET_TABLE_OBJECT_TYPES, BACnetObjTypeString}};
    for (const auto &s : services) {
        const BACnetStringTable *table = FindTable(s.key);
        ASSERT_NE(table, nullptr) << s.key;
        for (uint32_t value = 1; value < table->nameCount; ++value) {
            if (table->names[value] != nullptr) {
                EXPECT_STREQ(s.service(value), table->names[value]) << s.key << "/" << value;
            }
        }
    }
}

struct TableCase {
    uint32_t key;
    uint32_t value;
    const char *expected;  // null: no name
};

const TableCase kTableCases[] = {
    {BACNET_TABLE_OBJECT_TYPES, 8,   "device"},
    {BACNET_TABLE_PROPERTIES,   85,  "present-value"},
    {BACNET_TABLE_PROPERTIES,   18,  nullptr},
    {BACNET_TABLE_WEEKDAYS,     0,   nullptr},
    {BACNET_TABLE_WEEKDAYS,     1,   "monday"},
    {BACNET_TABLE_WEEKDAYS,     7,   "sunday"},
    {BACNET_TABLE_MONTHS,       1,   "january"},
    {BACNET_TABLE_MONTHS,       14,  "even"},
    {85,                        0,   "inactive"},
    {85,                        1,   "active"},
    {117,                       62,  "degrees-celsius"},
    {166,                       2,   "alarm"},
};

TEST(TextServices, TableContents) {
    for (const TableCase &c : kTableCases) {
        const BACnetStringTable *table = FindTable(c.key);
        ASSERT_NE(table, nullptr) << c.key;
        ASSERT_LT(c.value, table->nameCount) << c.key;
        if (c.expected == nullptr) {
            EXPECT_EQ(table->names[c.value], nullptr) << c.key << "/" << c.value;
        } else {
            EXPECT_STREQ(table->names[c.value], c.expected) << c.key << "/" << c.value;
        }
    }
    EXPECT_EQ(FindTable(85)->nameCount, 2u);
    EXPECT_EQ(FindTable(BACNET_TABLE_WEEKDAYS)->nameCount, 8u);
    EXPECT_EQ(FindTable(BACNET_TABLE_MONTHS)->nameCount, 15u);
}

TEST(TextServices, EveryKeyThePrintersAndScannersUseHasATable) {
    const uint32_t keys[] = {0,   2,   7,   32,  35,  36,  37,  39,  41,  56,  72,  78,
                             79,  84,  85,  90,  92,  100, 103, 111, 112, 117, 131, 158,
                             160, 161, 163, 164, 166, 196, 208, 226, 231, 233, 235, 247,
                             260, 263, 272, 275, 296, 303, 307, 327, 338, 359, 380};
    for (uint32_t key : keys) {
        EXPECT_NE(FindTable(key), nullptr) << key;
    }
}

TEST(TextServices, DateFieldNamesHoldNoHyphen) {
    // The date notation separates day-month-year with '-'.
    for (uint32_t key : {BACNET_TABLE_WEEKDAYS, BACNET_TABLE_MONTHS}) {
        const BACnetStringTable *table = FindTable(key);
        ASSERT_NE(table, nullptr);
        for (uint32_t value = 0; value < table->nameCount; ++value) {
            if (table->names[value] != nullptr) {
                EXPECT_EQ(std::strchr(table->names[value], '-'), nullptr) << table->names[value];
            }
        }
    }
}

std::string captured;
int capturedLevel = -1;

int CaptureHandler(int level, const char *format, va_list args) {
    char line[64];
    const int length = std::vsnprintf(line, sizeof line, format, args);
    captured = line;
    capturedLevel = level;
    return length;
}

TEST(TextServices, PAppPrintGoesThroughTheHandler) {
    PAppSetPrintHandler(CaptureHandler);
    EXPECT_EQ(PAppPrint(3, "%s=%d", "x", 42), 4);
    EXPECT_EQ(captured, "x=42");
    EXPECT_EQ(capturedLevel, 3);

    PAppSetPrintHandler(nullptr);  // back to standard error
    captured.clear();
    PAppPrint(0, "%s", "");
    EXPECT_EQ(captured, "");
}

}  // namespace
