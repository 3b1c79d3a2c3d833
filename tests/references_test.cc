// Object and property references and property values: their notations
// read back in every layout, the scanners' shape rules, and the printers'
// odd results that callers rely on.
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::ExpectBoundedAtEveryCapacity;
using bacfmt_test::ExpectFixedPoint;
using bacfmt_test::Notation;

const Notation kNotations[] = {
    {CT_OBJ_PROP_REFERENCE, "((0,1),85,-)"},
    {CT_OBJ_PROP_REFERENCE, "(((0,1),85,3),((3,2),77,-))"},
    {CT_DEV_OBJ_REFERENCE, "(-,(0,1))"},
    {CT_DEV_OBJ_REFERENCE, "(((8,5),(0,1)))", 159},  // the property asks for a list
    {CT_DEV_OBJ_REFERENCE, "((-,(0,1)),((8,5),(0,2)))"},
    {CT_DEV_OBJ_PROP_REFERENCE, "((0,1),85,-,-)"},
    {CT_DEV_OBJ_PROP_REFERENCE, "((0,1),85,2,(8,5))"},
    {CT_DEV_OBJ_PROP_REFERENCE, "(((0,1),85,-,(8,5)),((0,2),87,16,-))", 54},
    {CT_SETPOINT_REFERENCE, "(((0,1),85,-))"},
    {CT_SETPOINT_REFERENCE, "(((0,1),85,-)),()"},  // brackets only when empty
    {CT_PROPERTY_REFERENCE, "(85,-)"},
    {CT_PROPERTY_REFERENCE, "((85,-),(87,16))"},
    {CT_DEV_OBJ_PROP_VALUE, "((8,5),(0,1),present-value,-,[4] 21.500000)"},
    {CT_DEV_OBJ_PROP_VALUE, "((8,5),(0,1),priority-array,3,[2] 7)"},
};

TEST(References, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        ExpectFixedPoint(n);
        ExpectBoundedAtEveryCapacity(n);
    }
}

// The four-argument scanners: count found (or the failing index) and the
// result, filling a caller's array.
struct ScanCase {
    int (*scan)(char *, void **, int32_t *, int32_t);
    const char *text;
    int32_t expectedCount;  // in
    int result;             // 1 for any positive result, else the code
    int32_t count;          // out: found, or the failing index (a bad shape leaves it)
};

TEST(References, ScannerShapes) {
    const ScanCase cases[] = {
        {BACnetSScanObjPropReference, "((0,1),85)", 0, 1, 1},
        {BACnetSScanObjPropReference, "((0,1),85,3,4)", 0, -2, 0},
        {BACnetSScanObjPropReference, "((0,1),no-such-property,-)", 0, -2, 0},
        {BACnetSScanObjPropReference, "((0,1),85,-)", 2, -1, 1},
        {BACnetSScanDevObjReference, "", 0, 0, 0},
        {BACnetSScanDevObjReference, "((8,5),(0,1),(0,2))", 0, -2, 0},
        {BACnetSScanDevObjPropReference, "(a)", 0, -2, 0},
        {BACnetSScanDevObjPropReference, "((0,1),85,1,2,3)", 0, -2, 0},
        {BACnetSScanSetpointReference, "()", 0, 0, 0},
        {BACnetSScanSetpointReference, "((0,1),85,1,2)", 0, -1, 0},
        {BACnetSScanPropertyReference, "(85)", 0, -2, 0},
        {BACnetSScanPropertyReference, "((85,-),(87))", 0, -2, 1},
        {BACnetSScanPropertyReference, "(x-512,-)", 0, 1, 1},
    };
    for (const ScanCase &c : cases) {
        std::string text = c.text;
        alignas(8) unsigned char elements[4 * 32] = {};
        void *slot = elements;
        int32_t count = c.expectedCount;
        const int result = c.scan(text.data(), &slot, &count, 0);
        EXPECT_EQ(result > 0 ? 1 : result, c.result) << c.text;
        EXPECT_EQ(count, c.count) << c.text;
    }
}

// What the parts after the property mean in a device object property
// reference, and which property a number behind a hyphen names.
TEST(References, OptionalParts) {
    struct Case {
        const char *text;
        int32_t index;
        uint8_t device;
    } cases[] = {
        {"((0,1),85)", -1, 0},
        {"((0,1),85,(8,5))", -1, 1},
        {"((0,1),85,3,-)", 3, 0},
        {"((0,1),85,-,(8,5))", -1, 1},
        {"((0,1),85,4,(8,5))", 4, 1},
    };
    for (const Case &c : cases) {
        std::string text = c.text;
        BACnetDevObjPropReference reference{};
        void *slot = &reference;
        int32_t count = 0;
        ASSERT_EQ(BACnetSScanDevObjPropReference(text.data(), &slot, &count, 0),
                  static_cast<int>(sizeof reference))
            << c.text;
        EXPECT_EQ(reference.propertyId, 85u) << c.text;
        EXPECT_EQ(reference.arrayIndex, c.index) << c.text;
        EXPECT_EQ(reference.devicePresent, c.device) << c.text;
        if (c.device != 0) {
            EXPECT_EQ(reference.device.instance, 5u) << c.text;
        }
    }
    for (const char *written : {"(proprietary-512,-)", "(x-512,-)", "(512,-)"}) {
        std::string text = written;
        BACnetPropertyReference reference{};
        void *slot = &reference;
        int32_t count = 0;
        ASSERT_GT(BACnetSScanPropertyReference(text.data(), &slot, &count, 0), 0) << written;
        EXPECT_EQ(reference.propertyId, 512u) << written;
        EXPECT_EQ(reference.arrayIndex, BACNET_ABSENT_U32) << written;
    }
}

// A property value has no datatype code: scanned and printed directly.
TEST(References, PropertyValues) {
    const std::string printed = "(85,-,[4] 21.500000,8)";
    std::string text = printed;
    void *none = nullptr;
    void *tail = nullptr;
    int32_t count = 0;
    const int sized = BACnetSScanPropertyValue(text.data(), &none, 0, &tail, &count, 1);
    ASSERT_GT(sized, 0);

    // One block: the element, then the value's payload behind it.
    std::vector<unsigned char> block(static_cast<size_t>(sized), 0);
    void *slot = block.data();
    text = printed;
    count = 0;
    ASSERT_EQ(BACnetSScanPropertyValue(text.data(), &slot, 0, &tail, &count, 0), sized);
    ASSERT_EQ(count, 1);
    BACnetPropertyValue value;
    std::memcpy(&value, block.data(), sizeof value);
    EXPECT_EQ(value.priority, 8u);
    char out[128];
    ASSERT_EQ(BACnetSPrintPropertyValue(out, sizeof out, &value, 0), static_cast<int>(printed.size()));
    EXPECT_EQ(std::string(out), printed);

    // The scanner's own array, each value in a block of its own.
    const std::string list = "((85,-,[4] 1.000000,-),(87,3,[2] 4,16))";
    text = list;
    void *owned = nullptr;
    count = 0;
    ASSERT_GT(BACnetSScanPropertyValue(text.data(), &owned, 1, &tail, &count, 0), 0);
    ASSERT_EQ(count, 2);
    const auto *values = static_cast<const BACnetPropertyValue *>(owned);
    ASSERT_GT(BACnetSPrintPropertyValue(out, sizeof out, &values[1], 0), 0);
    EXPECT_STREQ(out, "(87,3,[2] 4,16)");
    for (int i = 0; i < 2; ++i) std::free(values[i].value.data);
    std::free(owned);

    // The sizing pass reads the value only: an unknown property passes.
    text = "(no-such-property,-,[2] 4,-)";
    count = 0;
    EXPECT_GT(BACnetSScanPropertyValue(text.data(), &none, 0, &tail, &count, 1), 0);
    text = "(no-such-property,-,[2] 4,-)";
    BACnetPropertyValue one[2]{};
    slot = one;
    EXPECT_EQ(BACnetSScanPropertyValue(text.data(), &slot, 1, &tail, &count, 0), -2);
}

TEST(References, PrinterResults) {
    char out[256];
    const BACnetObjectID objects[] = {{0, 1}, {8, 5}};
    // The object list closes its bracket at the start: ")" is left.
    EXPECT_EQ(BACnetSPrintObjectList(out, sizeof out, objects, 2, 0), 14);  // 13 + 1
    EXPECT_STREQ(out, ")");

    const BACnetDevObjReference device{{0, 1}, 0, {0, 0}};
    EXPECT_EQ(BACnetSPrintDevObjReference(out, 1, &device, 0), -2);

    // The device lists add every piece's result and go on.
    const BACnetDevObjReference two[] = {device, device};
    const int whole = BACnetSPrintDevObjRefList(out, sizeof out, two, 0, 2);
    EXPECT_EQ(whole, 21);
    EXPECT_STREQ(out, "((-,(0,1)),(-,(0,1)))");
    std::vector<char> guard(64, '#');
    const int cut = BACnetSPrintDevObjRefList(guard.data(), 12, two, 0, 2);
    EXPECT_LT(cut, whole);
    for (size_t i = 12; i < guard.size(); ++i) ASSERT_EQ(guard[i], '#') << i;

    // The property of a device object property value is always a name,
    // its device always numeric.
    float real = 21.5f;
    BACnetDevObjPropValue value{};
    value.device = {8, 5};
    value.object = {0, 1};
    value.propertyId = 85;
    value.arrayIndex = BACNET_ABSENT_U32;
    value.value = {CT_REAL, 1, &real, 4, {0, 0}};
    ASSERT_GT(BACnetSPrintDevObjPropValue(out, sizeof out, &value, 1), 0);
    EXPECT_EQ(std::string(out).rfind("((8,5),(", 0), 0u) << out;
    EXPECT_NE(std::strstr(out, ",present-value,-,[4] 21.500000)"), nullptr) << out;

    const BACnetSetpointReference empty{};
    EXPECT_EQ(BACnetSPrintSetpointReference(out, sizeof out, &empty, 0), 2);
    EXPECT_STREQ(out, "()");
}

}  // namespace
