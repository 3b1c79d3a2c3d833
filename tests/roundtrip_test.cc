// Print, scan, print again: every primitive datatype (and the date-time,
// whose scanner is a primitive one), numeric and symbolic, must read back
// into the same record, through both passes in one caller block and
// through a new record with blocks of its own. The passes agree on the
// byte count except where the contract has them differ.
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "datatypes/table.h"

namespace bacfmt {
namespace {

constexpr int kRecord = sizeof(BACnetContents);

uint8_t booleans[] = {1, 0, 1};
uint32_t unsigneds[] = {0, 4294967295u, 7};
int32_t signeds[] = {-5, INT32_MIN, 2147483647};
float reals[] = {21.5f, -0.125f, 0.1f, 1e6f};
double doubles[] = {-1234.0625, 0.5, 1e15};
uint8_t octets[] = {0x01, 0xAB, 0xFF};
BACnetOctetString octetStrings[] = {{octets, 3, 3}};
BACnetOctetString noOctets[] = {{octets, 0, 0}};
char name[] = "Room 1.23 supply air";
char comma[] = "a,b";
char apostrophe[] = "it's";
char empty[] = "";
BACnetCharString oneName[] = {{0, 0, sizeof name, name}};
BACnetCharString quoted[] = {{0, 0, sizeof comma, comma}, {0, 0, sizeof apostrophe, apostrophe}};
BACnetCharString emptyString[] = {{0, 0, 1, empty}};
BACnetBitString bitStrings[] = {{3, {0xA0}, {}}, {10, {0xFF, 0x40}, {}}};
uint32_t eventStates[] = {0, 3, 500};
BACnetDate dates[] = {{2026, 11, 21, 6}, {65535, 0, 255, 0}, {2000, 13, 32, 0}, {1999, 14, 34, 7}};
BACnetTime times[] = {{7, 5, 0, 0}, {255, 30, 255, 255}, {23, 59, 59, 99}};
BACnetObjectID objects[] = {{8, 1234}, {0, 1}, {13, 4194303}, {600, 5}};
BACnetDateTime dateTimes[] = {{{2026, 1, 5, 1}, {7, 5, 0, 0}}, {{65535, 0, 255, 0}, {255, 255, 255, 255}}};
uint8_t raw[] = {0x01, 0x02};
BACnetRawASN1 rawData[] = {{2, raw}, {1, raw + 1}};

struct Case {
    const char *label;
    BACnetContents record;
    uint32_t property;
};

BACnetContents Record(uint32_t type, uint32_t count, void *data) { return {type, count, data, 0, {0, 0}}; }

const Case kCases[] = {
    {"null", Record(CT_NULL, 1, nullptr), 85},
    {"one boolean, bracketed by its property", Record(CT_BOOLEAN, 1, booleans), 172},
    {"booleans", Record(CT_BOOLEAN, 3, booleans), 85},
    {"one unsigned", Record(CT_UNSIGNED, 1, unsigneds + 1), 85},
    {"unsigneds", Record(CT_UNSIGNED, 3, unsigneds), 85},
    {"one unsigned, bracketed", Record(CT_UNSIGNED, 1, unsigneds + 2), 7},
    {"signeds", Record(CT_SIGNED, 3, signeds), 85},
    {"reals", Record(CT_REAL, 4, reals), 85},
    {"one real", Record(CT_REAL, 1, reals), 85},
    {"doubles", Record(CT_DOUBLE, 3, doubles), 85},
    {"octet string", Record(CT_OCTET_STRING, 1, octetStrings), 85},
    {"empty octet string", Record(CT_OCTET_STRING, 1, noOctets), 85},
    {"bare character string", Record(CT_CHARACTER_STRING, 1, oneName), 77},
    {"quoted character strings", Record(CT_CHARACTER_STRING, 2, quoted), 77},
    {"one quoted string by its property", Record(CT_CHARACTER_STRING, 1, quoted), 3},
    {"empty character string", Record(CT_CHARACTER_STRING, 1, emptyString), 77},
    {"one bit string", Record(CT_BIT_STRING, 1, bitStrings), 111},
    {"bit strings", Record(CT_BIT_STRING, 2, bitStrings), 111},
    {"enumerations", Record(CT_ENUMERATED, 3, eventStates), 36},
    {"one enumeration", Record(CT_ENUMERATED, 1, eventStates + 1), 36},
    {"dates", Record(CT_DATE, 4, dates), 85},
    {"one date", Record(CT_DATE, 1, dates), 85},
    {"times", Record(CT_TIME, 3, times), 85},
    {"object identifiers", Record(CT_OBJECT_ID, 4, objects), 85},
    {"one object identifier", Record(CT_OBJECT_ID, 1, objects + 3), 85},
    {"date-times", Record(CT_DATE_TIME, 2, dateTimes), 85},
    {"one date-time", Record(CT_DATE_TIME, 1, dateTimes), 85},
};

std::string Print(const BACnetContents &record, uint32_t property, uint8_t symbolic, uint8_t prefixMode = 0) {
    std::vector<char> text(4096);
    const int length = BACnetSPrintContents(text.data(), 2048, &record, property, symbolic, prefixMode);
    EXPECT_GE(length, 0);
    return text.data();
}

std::vector<char> Copy(const std::string &text) { return std::vector<char>(text.c_str(), text.c_str() + text.size() + 1); }

// What an element holds: the bytes of a plain element, the fields of a
// date (which has padding) and the content of the pointer-bearing ones.
std::string ElementBytes(uint32_t type, const void *element) {
    auto bytes = [](const void *p, std::size_t n) { return std::string(static_cast<const char *>(p), n); };
    switch (type) {
    case CT_OCTET_STRING: return bytes(static_cast<const BACnetOctetString *>(element)->octets, static_cast<const BACnetOctetString *>(element)->length);
    case CT_CHARACTER_STRING: return static_cast<const char *>(static_cast<const BACnetCharString *>(element)->chars);
    case CT_BIT_STRING: return bytes(element, offsetof(BACnetBitString, given));  // the marks are the scanner's
    case CT_DATE: {
        const auto *d = static_cast<const BACnetDate *>(element);
        return std::to_string(d->year) + "/" + std::to_string(d->month) + "/" + std::to_string(d->day) + "/" + std::to_string(d->dayOfWeek);
    }
    case CT_DATE_TIME: return ElementBytes(CT_DATE, element) + ElementBytes(CT_TIME, &static_cast<const BACnetDateTime *>(element)->time);
    case CT_ASN1_FIRST: return bytes(static_cast<const BACnetRawASN1 *>(element)->octets, static_cast<const BACnetRawASN1 *>(element)->length);
    default: return bytes(element, FindDatatype(type)->elementSize);
    }
}

void ExpectSamePayload(const BACnetContents &original, const BACnetContents &scanned, const std::string &where) {
    ASSERT_EQ(scanned.count, original.count) << where;
    if (original.type == CT_NULL) {
        EXPECT_STREQ(static_cast<const char *>(scanned.data), "NULL") << where;
        return;
    }
    const uint32_t size = FindDatatype(original.type)->elementSize;
    for (uint32_t i = 0; i < original.count; ++i)
        EXPECT_EQ(ElementBytes(original.type, static_cast<const char *>(scanned.data) + i * size),
                  ElementBytes(original.type, static_cast<const char *>(original.data) + i * size))
            << where << " element " << i;
}

// What the sizing pass counts beyond the filling pass.
int SizingSurplus(const BACnetContents &record) {
    const DatatypeInfo *row = FindDatatype(record.type);
    switch (row->scan.kind) {
    case ScanKind::FixedDoubleSizing: return 2 * static_cast<int>(record.count * row->elementSize);
    case ScanKind::Variable: return static_cast<int>(record.count * row->elementSize);
    default: return 0;
    }
}

TEST(RoundTrip, PrintedValuesScanBackIntoOneBlock) {
    for (const Case &c : kCases) {
        for (uint8_t symbolic : {0, 1}) {
            const std::string text = Print(c.record, c.property, symbolic);
            const std::string where = std::string(c.label) + (symbolic ? " (symbolic) " : " ") + text;

            BACnetContents probe{};
            probe.type = c.record.type;
            BACnetContents *slot = &probe;
            void *tail = nullptr;
            auto sizing = Copy(text);
            const int sized = BACnetSScanContents(sizing.data(), &slot, 0, 0, &tail, 1, static_cast<int32_t>(c.property));
            ASSERT_GT(sized, 0) << where;

            std::vector<unsigned char> block(static_cast<std::size_t>(sized));
            auto *record = reinterpret_cast<BACnetContents *>(block.data());
            *record = BACnetContents{};
            record->type = c.record.type;
            slot = record;
            auto filling = Copy(text);
            const int filled = BACnetSScanContents(filling.data(), &slot, 0, 0, &tail, 0, static_cast<int32_t>(c.property));
            EXPECT_EQ(filled + SizingSurplus(c.record), sized) << where;
            EXPECT_EQ(record->type, c.record.type) << where;
            ExpectSamePayload(c.record, *record, where);
            EXPECT_EQ(Print(*record, c.property, symbolic), text) << where;
        }
    }
}

// Frees what a new record's scan allocated: the record, its element array
// and each element's own block.
void FreeScanned(BACnetContents *record) {
    if (record == nullptr) return;
    for (uint32_t i = 0; record->data != nullptr && i < record->count; ++i) {
        if (record->type == CT_CHARACTER_STRING) std::free(static_cast<BACnetCharString *>(record->data)[i].chars);
        if (record->type == CT_OCTET_STRING) std::free(static_cast<BACnetOctetString *>(record->data)[i].octets);
        if (record->type >= CT_ASN1_FIRST) std::free(static_cast<BACnetRawASN1 *>(record->data)[i].octets);
    }
    std::free(record->data);
    std::free(record);
}

TEST(RoundTrip, TaggedTextsBuildNewRecords) {
    for (const Case &c : kCases) {
        const std::string text = Print(c.record, c.property, 1, 2);  // "[n] " before every value
        BACnetContents *record = nullptr;
        void *tail = nullptr;
        auto copy = Copy(text);
        const int result = BACnetSScanContents(copy.data(), &record, 0, 0, &tail, 0, -1);
        ASSERT_GT(result, kRecord) << c.label << ": " << text;
        EXPECT_EQ(record->type, c.record.type) << text;
        ExpectSamePayload(c.record, *record, std::string(c.label) + " " + text);
        FreeScanned(record);
    }
}

TEST(RoundTrip, RawDataScansBackAsTheLastRawCode) {
    // "[ASN1]" carries no number: the tag reads as 515 whichever code printed it.
    const BACnetContents original = Record(CT_ASN1_FIRST, 2, rawData);
    const std::string text = Print(original, 85, 0);
    EXPECT_EQ(text, "[ASN1](0x0102,0x02)");
    BACnetContents *record = nullptr;
    void *tail = nullptr;
    auto copy = Copy(text);
    ASSERT_EQ(BACnetSScanContents(copy.data(), &record, 0, 0, &tail, 0, -1),
              kRecord + 2 * static_cast<int>(sizeof(BACnetRawASN1)) + 3);
    EXPECT_EQ(record->type, static_cast<uint32_t>(CT_ASN1_LAST));
    record->type = CT_ASN1_FIRST;
    EXPECT_EQ(Print(*record, 85, 0), text);
    ExpectSamePayload(original, *record, text);
    FreeScanned(record);
}

TEST(RoundTrip, OneRealIsARecordAndFourBytesOnTheTarget) {
    if (sizeof(void *) != 4) GTEST_SKIP() << "sizes of the 32-bit target";
    char text[] = "[4] 21.5";
    BACnetContents *record = nullptr;
    void *tail = nullptr;
    EXPECT_EQ(BACnetSScanContents(text, &record, 0, 0, &tail, 1, -1), 24 + 4);
    char again[] = "[4] 21.5";
    EXPECT_EQ(BACnetSScanContents(again, &record, 0, 0, &tail, 0, -1), 24 + 4);
    FreeScanned(record);
    char doubleText[] = "[5] 21.5";
    EXPECT_EQ(BACnetSScanContents(doubleText, &record, 0, 0, &tail, 1, -1), 24 + 3 * 8);
    char stringText[] = "[7] abc";
    EXPECT_EQ(BACnetSScanContents(stringText, &record, 0, 0, &tail, 1, -1), 24 + 2 * 16 + 4);
}

}  // namespace
}  // namespace bacfmt
