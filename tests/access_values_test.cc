// Subscriptions, access control and network security values: notations
// read back in every layout, and the texts refused.
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::Notation;

const Notation kNotations[] = {
    {CT_CLIENT_COV, "([1] NULL,[0] 2.000000)"},
    {CT_COV_SUBSCRIPTION, "(([0] (8,5),7,((0,1),85,-),T,300,0.500000))", 152},
    {CT_COV_SUBSCRIPTION, "(([0] (device,5),7,((analog-input,1),85 => present-value,-),T,300,-),"
                          "([1] (0,0x0a),8,((analog-input,2),85 => present-value,3),F,0,1.500000))", 0, 1},
    {CT_EVENT_NOTIFICATION_SUBSCRIPTION, "(([0] (8,5),7,T,300),([1] (0,0x0a),8,F,0))"},
    {CT_PROCESS_ID_SELECTION, "([1] NULL,[0] 3)"},
    {CT_AUTHENTICATION_FACTOR_FORMAT, "((1,-,-),(2,260,3))"},
    {CT_AUTHENTICATION_FACTOR, "((1,2,0x0a0b),(3,4,0x))"},
    {CT_ASSIGNED_ACCESS_RIGHTS, "(((-,(0,1)),T),(((8,5),(0,2)),F))"},
    {CT_ACCESS_RULE, "((0,((0,1),85,-,-),1,-,T),(1,-,0,(-,(0,2)),F))"},
    {CT_PORT_PERMISSION, "((1,T),(2,F))"},
    {CT_VT_SESSION, "((1,2,(0,0x0a)),(3,4,(5,0x)))"},
    {CT_NETWORK_SECURITY_POLICY, "((1,2),(3,0))"},
    {CT_KEY_IDENTIFIER, "((1,2),(3,4))"},
    {CT_CREDENTIAL_AUTHENTICATION_FACTOR, "((0,(1,2,0x0a)),(1,(3,4,0x)))"},
    {CT_AUTHENTICATION_POLICY, "(((((-,(0,1)),1),(((8,5),(0,2)),2)),T,30),((),F,0))"},
    {CT_SESSION_KEY, "((0x0102030405060708,(0,0x0a)),(0x,(1,0x)))"},
    {CT_SECURITY_KEY_SET, "((1,((monday, 1-january-2024),00:00:00.00),((*,*-*-*),*:*:*.*),((1,2),(3,4))),"
                          "(2,((monday, 1-january-2024),00:00:00.00),((*,*-*-*),*:*:*.*),()))"},
};

TEST(AccessValues, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        bacfmt_test::ExpectFixedPoint(n);
        if (n.symbolic == 0) bacfmt_test::ExpectBoundedAtEveryCapacity(n, 1);  // the hex terminator
    }
}

TEST(AccessValues, RefusedTexts) {
    struct Case {
        uint32_t code;
        const char *text;
        int result;
    } cases[] = {
        {CT_CLIENT_COV, "[1] 0.5", -2},             // the default has no value
        {CT_CLIENT_COV, "0.5", -3},                 // no choice tag
        {CT_PROCESS_ID_SELECTION, "[0] x", -2},
        {CT_PORT_PERMISSION, "(x,T)", -2},
        {CT_AUTHENTICATION_FACTOR_FORMAT, "(1,x,-)", -2},
        {CT_COV_SUBSCRIPTION, "([0] (8,5),7,((0,1),85,-),T,300)", -2},  // a field missing
        {CT_ACCESS_RULE, "(0,-,1,-,T)", -2},         // specified, but no time range
        {CT_SESSION_KEY, "(0x0102030405060708090a0b0c,(0,0x0a))", -2},  // more than eleven octets
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
