// The scan dispatcher: settling the datatype (given, tagged, guessed), the
// two passes and their byte accounting, the three layouts (malloc blocks,
// one caller block, a nested cursor), and the name lookups.
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/scan.h>

#include "datatypes/table.h"
#include "scan/enum_lookup.h"
#include "scan/guess.h"

namespace bacfmt {
namespace {

constexpr int kRecord = sizeof(BACnetContents);
constexpr int32_t kUnsetType = -1;

std::vector<char> Copy(const std::string &text) {
    std::vector<char> copy(text.begin(), text.end());
    copy.push_back('\0');
    return copy;
}

// Both passes into one caller block of the size the sizing pass found,
// the record preset to `type`.
struct BlockScan {
    int sized = 0;
    int filled = 0;
    std::vector<unsigned char> block;
    BACnetContents *record() { return reinterpret_cast<BACnetContents *>(block.data()); }
};

BlockScan ScanIntoBlock(const std::string &text, int32_t type, int32_t hint = -1, int32_t expected = 0) {
    BlockScan scan;
    BACnetContents probe{};
    probe.type = static_cast<uint32_t>(type);
    BACnetContents *slot = &probe;
    void *tail = nullptr;
    auto sizing = Copy(text);
    scan.sized = BACnetSScanContents(sizing.data(), &slot, expected, 0, &tail, 1, hint);
    scan.block.assign(scan.sized > kRecord ? scan.sized : kRecord, 0xEE);
    *scan.record() = BACnetContents{};
    scan.record()->type = static_cast<uint32_t>(type);
    slot = scan.record();
    auto filling = Copy(text);
    scan.filled = BACnetSScanContents(filling.data(), &slot, expected, 0, &tail, 0, hint);
    return scan;
}

// A filling pass with no record: the dispatcher allocates the record and
// one payload block (the texts here have no per-element blocks).
struct OwnScan {
    explicit OwnScan(const std::string &text) {
        auto copy = Copy(text);
        void *tail = nullptr;
        result = BACnetSScanContents(copy.data(), &record, 0, 0, &tail, 0, -1);
    }
    ~OwnScan() {
        if (record != nullptr) std::free(record->data);
        std::free(record);
    }
    int result = 0;
    BACnetContents *record = nullptr;
};

TEST(ScanDispatch, TagOnANewRecordSetsTheType) {
    OwnScan scan("  [4] 1.5 ");
    ASSERT_EQ(scan.result, kRecord + 4);
    EXPECT_EQ(scan.record->type, static_cast<uint32_t>(CT_REAL));
    EXPECT_EQ(scan.record->count, 1u);
    EXPECT_EQ(scan.record->size, 4);
    EXPECT_EQ(*static_cast<float *>(scan.record->data), 1.5f);
    EXPECT_EQ(scan.record->reserved[0], 0u);
    EXPECT_EQ(scan.record->reserved[1], 0u);

    BACnetContents *none = nullptr;
    void *tail = nullptr;
    auto text = Copy("[4] 1.5");
    EXPECT_EQ(BACnetSScanContents(text.data(), &none, 0, 0, &tail, 1, -1), kRecord + 4);
    EXPECT_EQ(none, nullptr) << "the sizing pass allocates nothing";
}

TEST(ScanDispatch, ResultCodesOfSettlingTheType) {
    struct Case { const char *text; int32_t type; int32_t hint; int result; uint32_t settled; };
    const Case cases[] = {
        {"1.5", kUnsetType, -1, kRecord + 4, CT_REAL},                   // guessed
        {"null", kUnsetType, -1, kRecord + 5, CT_NULL},
        {"[2] 7", CT_UNSIGNED, 5, kRecord + 4, CT_UNSIGNED},             // a tag that agrees
        {"[3] 7", CT_UNSIGNED, 5, -4, CT_UNSIGNED},                      // one that does not
        {"[3] 7", CT_UNSIGNED, -1, kRecord + 4, CT_SIGNED},              // with no hint it overrides
        {"[2][2] 5", kUnsetType, 85, kRecord + 4, CT_UNSIGNED},          // a second tag must agree
        {"[2][3] 5", kUnsetType, 85, -4, CT_UNSIGNED},
        {"[2 5", CT_UNSIGNED, -1, -4, CT_UNSIGNED},                      // incomplete tag: the record's type, then a bad tag
        {"[258](x)", CT_OBJ_PROP_REFERENCE, 5, -4, CT_OBJ_PROP_REFERENCE},
        {"[267]", kUnsetType, -1, -3, 267},
        {"[600] 1", kUnsetType, -1, -3, 600},
        {"[-1] 1", kUnsetType, -1, -3, static_cast<uint32_t>(-16)},
        {"x", 267, -1, -3, 267},
        {"[ASN1]0102", kUnsetType, -1, -3, CT_ASN1_LAST},                // 515, but no hexadecimal prefix
        {"[ASN1]0x0102", kUnsetType, -1, kRecord + static_cast<int>(sizeof(BACnetRawASN1)) + 2, CT_ASN1_LAST},
        {"", kUnsetType, -1, -3, static_cast<uint32_t>(-2)},             // nothing to guess from
    };
    for (const Case &c : cases) {
        BlockScan scan = ScanIntoBlock(c.text, c.type, c.hint);
        EXPECT_EQ(scan.filled, c.result) << c.text;
        EXPECT_EQ(scan.record()->type, c.settled) << c.text;
    }
    OwnScan untagged("1.5");
    EXPECT_EQ(untagged.result, -3) << "a new record learns its type only from a tag";
}

TEST(ScanDispatch, NullIsStoredByTheDispatcher) {
    for (const char *text : {"null", "[0] anything"}) {
        BlockScan scan = ScanIntoBlock(text, kUnsetType);
        ASSERT_EQ(scan.filled, kRecord + 5) << text;
        EXPECT_EQ(scan.record()->size, 5);
        EXPECT_STREQ(static_cast<char *>(scan.record()->data), "NULL");
    }
    OwnScan own("[0]");
    EXPECT_STREQ(static_cast<char *>(own.record->data), "NULL");
}

// What the sizing and the filling pass count for one text of each kind.
TEST(ScanDispatch, ByteAccountingOfBothPasses) {
    const int octet = sizeof(BACnetOctetString);
    const int string = sizeof(BACnetCharString);
    struct Case { const char *text; int32_t type; int sized, filled; };
    const Case cases[] = {
        {"(1,2,3)", CT_UNSIGNED, kRecord + 12, kRecord + 12},
        {"(T,F)", CT_BOOLEAN, kRecord + 2, kRecord + 2},
        {"1.5", CT_DOUBLE, kRecord + 24, kRecord + 8},                    // the double's over-estimate
        {"(1.5,2)", CT_DOUBLE, kRecord + 48, kRecord + 16},
        {"0x0102", CT_OCTET_STRING, kRecord + 2 * octet + 2, kRecord + octet + 2},
        {"(ab,c)", CT_CHARACTER_STRING, kRecord + 4 * string + 5, kRecord + 2 * string + 5},
        {"((1,0),(1))", CT_BIT_STRING, kRecord + 48, kRecord + 48},
        {"((*,1-1-2000),07:00:00.00)", CT_DATE_TIME, kRecord + 20, kRecord + 20},
    };
    for (const Case &c : cases) {
        BlockScan scan = ScanIntoBlock(c.text, c.type);
        EXPECT_EQ(scan.sized, c.sized) << c.text;
        EXPECT_EQ(scan.filled, c.filled) << c.text;
        EXPECT_EQ(scan.record()->data, scan.block.data() + kRecord) << c.text;
    }
}

TEST(ScanDispatch, NestedCursorAdvancesByTheKindsRule) {
    const int string = sizeof(BACnetCharString);
    struct Case { const char *text; int32_t type; int advance; };
    const Case cases[] = {
        {"(1,2)", CT_UNSIGNED, 8},
        {"(T,F,T)", CT_BOOLEAN, 1},                     // one byte whatever the count
        {"null", CT_NULL, 5},
        {"(ab,c)", CT_CHARACTER_STRING, 2 * string + 2 * string + 5},   // elements twice plus content
        {"1.5", CT_DOUBLE, 8},
    };
    for (const Case &c : cases) {
        std::vector<unsigned char> block(512);
        auto *record = reinterpret_cast<BACnetContents *>(block.data());
        *record = BACnetContents{};
        record->type = static_cast<uint32_t>(c.type);
        BACnetContents *slot = record;
        unsigned char *start = block.data() + 96;  // an aligned cursor, as a caller keeps it
        void *tail = start;
        auto text = Copy(c.text);
        ASSERT_GT(BACnetSScanContents(text.data(), &slot, 0, 0, &tail, 0, -1), 0) << c.text;
        EXPECT_EQ(record->data, start) << c.text;
        EXPECT_EQ(static_cast<unsigned char *>(tail) - start, c.advance) << c.text;
    }
}

TEST(ScanDispatch, ExpectedCountAndItsExceptions) {
    BlockScan wrong = ScanIntoBlock("(1,2)", CT_UNSIGNED, -1, 3);
    EXPECT_EQ(wrong.sized, -1);
    EXPECT_EQ(wrong.filled, -1);
    EXPECT_EQ(wrong.record()->size, -1) << "the failure stays in the record";
    EXPECT_EQ(wrong.record()->count, 2u);
    EXPECT_EQ(ScanIntoBlock("(1,2)", CT_UNSIGNED, -1, 2).filled, kRecord + 8);
    EXPECT_EQ(ScanIntoBlock("(1,0)", CT_BIT_STRING, -1, 5).filled, kRecord + 24) << "bit strings take any count";
}

TEST(ScanDispatch, SeparateListsNeedATag) {
    BACnetContents record{};
    record.type = CT_UNSIGNED;
    BACnetContents *slot = &record;
    void *tail = nullptr;
    auto text = Copy("5");
    EXPECT_EQ(BACnetSScanContents(text.data(), &slot, 0, 1, &tail, 0, -1), -3);
    auto tagged = Copy("[3] -5");  // BACnetSScanContent has no hint: the tag sets the type
    ASSERT_EQ(BACnetSScanContent(tagged.data(), &slot, 0, 1, &tail, 0), kRecord + 4);
    EXPECT_EQ(record.type, static_cast<uint32_t>(CT_SIGNED));
    EXPECT_EQ(*static_cast<int32_t *>(record.data), -5);
    std::free(record.data);
}

TEST(ScanDispatch, GuessValueTypeByShape) {
    struct Case { const char *text; int tag; };
    const Case cases[] = {
        {"\"abc\"", 7}, {"'x'", 7}, {"NuLl", 0}, {"+5", 3}, {"-5", 3}, {"TRUE", 1}, {"f", 1}, {"0x01", 6},
        {"X'01'", 6}, {"(T,F)", 8}, {"(1,true)", 8}, {"{f,t}", 8}, {"(1,0)", 12}, {"(analog-input,1)", 12},
        {"(analog-input, 1)", 2},   // a blank after the comma
        {"(*,1-1-2000)", 10}, {"(monday, 5-january-2026)", 10}, {"12:30:00.00", 11}, {"1:30:00.00", 4},
        {"42", 2}, {"4.2", 4}, {"high-limit", 2}, {"", -1},
    };
    for (const Case &c : cases) {
        auto text = Copy(c.text);
        EXPECT_EQ(GuessValueType(text.data(), -1), c.tag) << c.text;
    }
    EXPECT_EQ(GuessValueType(nullptr, -1), -1);
}

TEST(ScanDispatch, EnumValueLookupsAndSelectorAliases) {
    struct Case { const char *text; uint32_t selector; uint8_t exact; int32_t value; };
    const Case cases[] = {
        {"to-fault", 35, 0, 1},           {"to-fault", 0, 0, 1},   // 0 and 1 use table 35
        {"  To-Fault ", 1, 0, 1},         {"To-Fault", 1, 1, -255},
        {"device", 96, 0, 8},             {"active", 6, 0, 1},     // 96 objects, 6 present values
        {"degrees-celsius", 20, 0, 62},   {"proprietary-513", 36, 0, 513},
        {"proprietary-513", 99999, 0, -255},                        // no such table
        {"proprietary-", 36, 0, -255},
        {"multistate-input", 79, 0, 13},  {"multistate-value", 79, 0, 19},
        {"MULTISTATE-VALUE", 79, 0, -255},                          // the spellings are exact
        {"enable", 78, 0, 133},           {"nonsense", 36, 0, -255},
    };
    for (const Case &c : cases) {
        auto text = Copy(c.text);
        EXPECT_EQ(BACnetGetEnumValue(text.data(), c.selector, 0, c.exact), c.value) << c.text << " in " << c.selector;
    }
    auto known = Copy("degrees-celsius");
    EXPECT_EQ(GetAnyEnumValue(known.data()), 62);
    auto unknown = Copy("no-such-name-anywhere");
    EXPECT_EQ(GetAnyEnumValue(unknown.data()), -255);
    EXPECT_NE(pStringTableInfo, nullptr) << "fetched on first use";
}

TEST(ScanDispatch, EveryConstructedCodeWithoutScannerAnswersMinus3) {
    for (const DatatypeInfo *row = DatatypeRowsBegin(); row != DatatypeRowsEnd(); ++row) {
        if (row->scan.kind != ScanKind::None) continue;
        BlockScan scan = ScanIntoBlock("(1,2)", static_cast<int32_t>(row->code));
        EXPECT_EQ(scan.filled, -3) << row->name;
    }
    auto text = Copy("5");
    BACnetContents *slot = nullptr;
    void *tail = nullptr;
    EXPECT_EQ(BACnetSScanContents(nullptr, &slot, 0, 0, &tail, 1, -1), -2);
    EXPECT_EQ(BACnetSScanContents(text.data(), nullptr, 0, 0, &tail, 1, -1), -2);
}

}  // namespace
}  // namespace bacfmt
