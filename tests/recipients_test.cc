// Addresses, recipients, destinations and address bindings: notations read
// back in every layout, by number and by name, and the texts refused.
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::Notation;

const Notation kNotations[] = {
    {CT_ADDRESS, "(0,0xc0a80001bac0)"},
    {CT_ADDRESS, "((0,0x0a),(65535,0x))"},
    {CT_RECIPIENT, "([0] (8,5))", 116},  // the property asks for a list
    {CT_RECIPIENT, "([0] (device,5),[1] (5,0x0a0b))", 0, 1},
    {CT_DESTINATION, "(((0,1,1,1,1,1,0),06:00:00.00,18:00:00.00,[0] (8,5),7,T,(1,1,1)))", 102},
    {CT_DESTINATION,
     "(((1,1,1,1,1,1,1),00:00:00.00,23:59:59.99,[1] (0,0xc0a80001bac0),0,F,(1,0,1)),"
     "((0,0,0,0,0,0,0),*:*:*.*,*:*:*.*,[0] (device,9),4194303,T,(0,0,0)))", 0, 1},
    {CT_ADDRESS_BINDING, "(((8,5),(0,0xc0a80001bac0)))", 30},
    {CT_ADDRESS_BINDING, "(((device,5),(0,0x0a)),((device,6),(2,0x0b)))", 0, 1},
};

TEST(Recipients, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        bacfmt_test::ExpectFixedPoint(n);
        if (n.symbolic == 0) bacfmt_test::ExpectBoundedAtEveryCapacity(n, 1);  // the hex terminator
    }
}

TEST(Recipients, RefusedTexts) {
    struct Case {
        uint32_t code;
        const char *text;
        int result;
    } cases[] = {
        {CT_ADDRESS, "(0,0xabc)", -2},                 // an odd number of digits
        {CT_ADDRESS, "(0,0x010203040506070809)", -2},  // more than eight octets
        {CT_ADDRESS, "(0,c0a8)", -2},                  // no 0x
        {CT_ADDRESS, "(65536,0x01)", -2},              // no such network
        {CT_ADDRESS, "(0,0x0g)", -2},
        {CT_RECIPIENT, "(device,5)", -3},              // no choice tag
        {CT_RECIPIENT, "[2] (device,5)", -3},
        {CT_DESTINATION, "((F,T,T,T,T,T,F),06:00:00.00,18:00:00.00,[0] (8,5),x,T,(T,T,T))", -2},
        {CT_DESTINATION, "((F,T),06:00:00.00,18:00:00.00,[0] (8,5),7,T,(T,T,T))", -2},  // two days
        {CT_DESTINATION, "((F,T,T,T,T,T,F),06:00:00.00,18:00:00.00,[0] (8,5),7,T,(T,T))", -2},
        {CT_ADDRESS_BINDING, "((8,5))", -2},
    };
    for (const Case &c : cases) {
        BACnetContents *record = nullptr;
        void *tail = nullptr;
        const std::string text = "[" + std::to_string(c.code) + "] " + c.text;
        EXPECT_EQ(bacfmt_test::Scan(text, &record, 0, &tail, 0), c.result) << c.text;
        BACnetFreeContents(record);
    }
}

}  // namespace
