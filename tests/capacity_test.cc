// Every printer, through the dispatcher, at every capacity from 0 to the
// length it needs: nothing is written behind the capacity (guard bytes),
// except the overruns the printers make on purpose (print_overruns.h),
// each reaching exactly as far as listed.
#include <algorithm>
#include <cfloat>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "print_overruns.h"

namespace {

constexpr unsigned char kGuard = 0xA5;

struct SweepCase {
    const char *what;
    BACnetContents record;
    uint32_t property;
    uint8_t symbolic;
    uint8_t prefix;
    // How far the printer writes past the capacity at worst, exactly: the
    // threshold printers' whole numbers, the hex printer's terminator at
    // exactly 2 + 2n, an enumeration name copied with the whole initial size.
    int overrun;
};

uint32_t unsignedValues[] = {0, 4294967295u, 17};
int32_t signedValues[] = {-2147483647 - 1, 5};
float realValues[] = {21.5f, -3.4e38f};
double doubleValues[] = {1e300, -DBL_MAX};
uint8_t booleans[] = {1, 0};
uint32_t enums[] = {2, 7};
BACnetDate dates[] = {{2026, 11, 21, 6}, {65535, 0, 255, 0}};
BACnetTime times[] = {{7, 5, 0, 0}, {255, 255, 255, 255}};
BACnetDateTime dateTimes[] = {{{2026, 1, 2, 5}, {23, 59, 59, 99}}};
BACnetObjectID objectIds[] = {{8, 4194303}, {0, 1}};
uint8_t octets[] = {0xde, 0xad, 0xbe, 0xef};
BACnetOctetString octetStrings[] = {{octets, 4, 4}};
BACnetRawASN1 raw[] = {{4, octets}, {1, octets}};
char text1[] = "hello, world";
char text2[] = "it's \"quoted\"";
BACnetCharString strings[] = {{0, 0, sizeof text1, text1}, {0, 0, sizeof text2, text2}};
BACnetBitString bits[] = {{6, {0xA4}, {0}}};

BACnetContents Record(uint32_t type, uint32_t count, void *data) {
    return {type, count, data, 0, {0, 0}};
}

std::vector<SweepCase> Cases() {
    return {
        {"unsigned list", Record(CT_UNSIGNED, 3, unsignedValues), 85, 0, 0, 4},
        {"unsigned with prefix", Record(CT_UNSIGNED, 1, unsignedValues + 1), 85, 0, 1, 4},
        {"signed list", Record(CT_SIGNED, 2, signedValues), 85, 0, 0, 4},
        {"reals", Record(CT_REAL, 2, realValues), 85, 0, 0, 35},
        {"double", Record(CT_DOUBLE, 1, doubleValues), 85, 0, 0, 296},
        {"largest double", Record(CT_DOUBLE, 1, doubleValues + 1), 85, 0, 0, BACNET_PRINT_OVERRUN},
        {"booleans by name", Record(CT_BOOLEAN, 2, booleans), 85, 1, 0, 0},
        {"booleans by number", Record(CT_BOOLEAN, 2, booleans), 169, 0, 0, 0},
        {"enumerations by number", Record(CT_ENUMERATED, 2, enums), 36, 0, 0, 0},
        {"enumerations by name", Record(CT_ENUMERATED, 2, enums), 36, 1, 0, 5},
        {"dates", Record(CT_DATE, 2, dates), 0, 0, 0, 0},
        {"times", Record(CT_TIME, 2, times), 0, 0, 0, 0},
        {"date-time", Record(CT_DATE_TIME, 1, dateTimes), 0, 0, 2, 0},
        {"object identifiers by number", Record(CT_OBJECT_ID, 2, objectIds), 0, 0, 0, 1},
        {"object identifiers by name", Record(CT_OBJECT_ID, 2, objectIds), 76, 1, 0, 1},
        {"octet string", Record(CT_OCTET_STRING, 1, octetStrings), 0, 0, 0, 1},
        {"raw data", Record(CT_ASN1_FIRST, 2, raw), 0, 0, 0, 1},
        {"quoted strings", Record(CT_CHARACTER_STRING, 2, strings), 0, 0, 0, 0},
        {"bare string", Record(CT_CHARACTER_STRING, 1, strings), 77, 0, 0, 0},
        {"optional strings", Record(CT_OPTIONAL_CHARACTER_STRING, 2, strings), 0, 0, 0, 0},
        {"bits by number", Record(CT_BIT_STRING, 1, bits), 111, 0, 0, 0},
        {"null", Record(CT_NULL, 1, nullptr), 0, 0, 1, 0},
        {"unknown code", Record(267, 1, nullptr), 0, 0, 2, 0},
    };
}

TEST(CapacitySweep, NothingWrittenPastTheCapacity) {
    for (const SweepCase &c : Cases()) {
        char full[4096];
        const int length = BACnetSPrintContents(full, sizeof full, &c.record, c.property, c.symbolic, c.prefix);
        ASSERT_GT(length, 0) << c.what;
        ASSERT_EQ(static_cast<size_t>(length), std::strlen(full)) << c.what;

        ASSERT_LE(c.overrun, overruns::MostPastOfDatatype(c.record.type, c.symbolic)) << c.what;
        int furthest = 0;
        for (int size = 0; size <= length + 1; ++size) {
            std::vector<unsigned char> buffer(static_cast<size_t>(length) + BACNET_PRINT_OVERRUN + 64,
                                              kGuard);
            char *dst = reinterpret_cast<char *>(buffer.data());
            const int result = BACnetSPrintContents(dst, size, &c.record, c.property, c.symbolic, c.prefix);
            const size_t limit = static_cast<size_t>(size + c.overrun);
            for (size_t i = limit; i < buffer.size(); ++i)
                ASSERT_EQ(buffer[i], kGuard) << c.what << ": size " << size << ", byte " << i;
            for (size_t i = static_cast<size_t>(size); i < limit; ++i)
                if (buffer[i] != kGuard) furthest = std::max(furthest, static_cast<int>(i) + 1 - size);
            if (size > 0) {
                EXPECT_NE(std::memchr(dst, '\0', limit), nullptr) << c.what << ": size " << size;
            }
            if (result == length) {
                EXPECT_STREQ(dst, full) << c.what << ": size " << size;
            }
            EXPECT_LE(result, size + c.overrun) << c.what << ": size " << size;
        }
        EXPECT_EQ(furthest, c.overrun) << c.what << ": the listed overrun is not reached";
    }
}

// The threshold printers at every capacity around their threshold, with
// their longest texts and a short one: nothing at or below the threshold,
// above it the whole text however small the room, and not a byte more.
struct ThresholdCase {
    const overruns::ThresholdPrinter &printer;
    int (*print)(char *dst, int size);
    const char *text;
};

const ThresholdCase kThresholdCases[] = {
    {overruns::kUnsigned, [](char *d, int n) { return BACnetSPrintUnsigned(d, n, 4294967295u); }, "4294967295"},
    {overruns::kUnsigned, [](char *d, int n) { return BACnetSPrintUnsigned(d, n, 7u); }, "7"},
    {overruns::kSigned, [](char *d, int n) { return BACnetSPrintSigned(d, n, -2147483647 - 1); }, "-2147483648"},
    {overruns::kSigned, [](char *d, int n) { return BACnetSPrintSigned(d, n, 42); }, "42"},
    {overruns::kReal, [](char *d, int n) { return BACnetSPrintReal(d, n, -FLT_MAX); },
     "-340282346638528859811704183484516925440.000000"},
    {overruns::kReal, [](char *d, int n) { return BACnetSPrintReal(d, n, 1e10f); }, "10000000000.000000"},
    {overruns::kDouble, [](char *d, int n) { return BACnetSPrintDouble(d, n, -DBL_MAX); }, nullptr},
    {overruns::kDouble, [](char *d, int n) { return BACnetSPrintDouble(d, n, 0.5); }, "0.500000"},
    {overruns::kTag, [](char *d, int n) { return BACnetSPrintTag(d, n, -2147483647 - 1); }, "[-2147483648]"},
    {overruns::kTag, [](char *d, int n) { return BACnetSPrintTag(d, n, 1234567); }, "[1234567]"},
};

TEST(CapacitySweep, ThresholdPrintersWriteTheWholeNumber) {
    for (const ThresholdCase &c : kThresholdCases) {
        char reference[400];
        std::snprintf(reference, sizeof reference, "%f", -DBL_MAX);
        const std::string text = c.text != nullptr ? c.text : reference;
        const int length = static_cast<int>(text.size());
        ASSERT_LE(length, c.printer.longest) << c.printer.name << " " << text;
        for (int size = 0; size <= length + 2; ++size) {
            std::vector<unsigned char> buffer(static_cast<size_t>(length) + 16, kGuard);
            char *dst = reinterpret_cast<char *>(buffer.data());
            const int result = c.print(dst, size);
            const int extent = overruns::ThresholdExtent(c.printer, size, length);
            for (size_t i = static_cast<size_t>(extent); i < buffer.size(); ++i)
                ASSERT_EQ(buffer[i], kGuard) << c.printer.name << " " << text << ": size " << size;
            if (extent == 0) {
                EXPECT_EQ(result, c.printer.refused) << c.printer.name << " " << text << ": size " << size;
            } else {
                EXPECT_EQ(result, length) << c.printer.name << ": size " << size;
                EXPECT_EQ(std::string(dst), text) << c.printer.name << ": size " << size;
            }
        }
    }
}

}  // namespace
