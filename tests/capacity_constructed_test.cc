// The capacity sweep over the constructed values: every datatype whose
// value can be scanned and printed is printed at every capacity, and a
// datatype that gains a scanner without a sweep entry here fails the test.
// The bytes a printer writes past the capacity on purpose are listed with
// the entry; no other write past the capacity may appear.
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "datatypes/table.h"
#include "roundtrip_harness.h"

namespace {

struct SweepEntry {
    bacfmt_test::Notation notation;
    int overrun;  // bytes written past `size` by the contract
};

// "[4] " before a read access result item's value is copied unchecked; an
// octet string's hex printer may put its terminator one byte past.
const SweepEntry kSweep[] = {
    {{CT_PRI_ARRAY_ITEM, "(NULL,21.500000,16,active,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,?)", 87}, 0},
    {{CT_PROPERTY_STATES, "([0] 1,[11] 7,[12] 3)"}, 0},
    {{CT_OPTIONAL_CHARACTER_STRING, "([7]\"flame failure\",[0]NULL)"}, 0},
    {{CT_LOG_RECORD, "((((tuesday,24-november-2026),08:00:00.00),[10] [4] 2.500000,(1,0,0,0)))", 131}, 0},
    {{CT_LOG_RECORD_MULTIPLE, "((((tuesday,24-november-2026),08:00:00.00),[1] ([1] 21.500000,[8] [2] 7)))", 131}, 0},
    {{CT_EVENT_LOG_RECORD, "((((tuesday,24-november-2026),08:00:00.00),[0] (1,0)))", 131}, 0},
    // Event types 13, 17 and 18 close without a room check; "[0] NULL" is copied whole.
    {{CT_EVENT_PARAMETER, "([9] (7,1,([0] NULL,[4] 1.500000)),[13] ((1,2),((0,1),85,-,-)),[18] (30,(1,0,0,0)))"}, 9},
    {{CT_FAULT_PARAMETER, "([3] ((1,2),((0,1),87,-,-)),[4] ([1] 1,[0] 1))"}, 0},
    {{CT_ADDRESS, "((0,0x0a),(5,0xc0a80001bac0))"}, 1},
    {{CT_RECIPIENT, "([0] (8,5),[1] (5,0x0a0b))"}, 1},
    {{CT_DESTINATION, "(((0,1,1,1,1,1,0),06:00:00.00,18:00:00.00,[1] (0,0x0a),7,T,(1,1,1)))", 102}, 1},
    {{CT_ADDRESS_BINDING, "(((8,5),(0,0xc0a80001bac0)))", 30}, 1},
    {{CT_CLIENT_COV, "([1] NULL,[0] 2.000000)"}, 0},
    {{CT_COV_SUBSCRIPTION, "(([0] (8,5),7,((0,1),85,-),T,300,0.500000))", 152}, 0},
    {{CT_EVENT_NOTIFICATION_SUBSCRIPTION, "(([0] (8,5),7,T,300),([1] (0,0x0a),8,F,0))"}, 1},
    {{CT_PROCESS_ID_SELECTION, "([1] NULL,[0] 3)"}, 0},
    {{CT_AUTHENTICATION_FACTOR_FORMAT, "((1,-,-),(2,260,3))"}, 0},
    {{CT_AUTHENTICATION_FACTOR, "((1,2,0x0a0b),(3,4,0x))"}, 1},
    {{CT_ASSIGNED_ACCESS_RIGHTS, "(((-,(0,1)),T),(((8,5),(0,2)),F))"}, 0},
    {{CT_ACCESS_RULE, "((0,((0,1),85,-,-),1,-,T),(1,-,0,(-,(0,2)),F))"}, 0},
    {{CT_PORT_PERMISSION, "((1,T),(2,F))"}, 0},
    {{CT_VT_SESSION, "((1,2,(0,0x0a)),(3,4,(5,0x)))"}, 1},
    {{CT_NETWORK_SECURITY_POLICY, "((1,2),(3,0))"}, 0},
    {{CT_KEY_IDENTIFIER, "((1,2),(3,4))"}, 0},
    {{CT_CREDENTIAL_AUTHENTICATION_FACTOR, "((0,(1,2,0x0a)),(1,(3,4,0x)))"}, 1},
    {{CT_AUTHENTICATION_POLICY, "(((((-,(0,1)),1),(((8,5),(0,2)),2)),T,30),((),F,0))"}, 0},
    {{CT_SESSION_KEY, "((0x0102030405060708,(0,0x0a)),(0x,(1,0x)))"}, 1},
    {{CT_SECURITY_KEY_SET, "((1,((monday, 1-january-2024),00:00:00.00),((*,*-*-*),*:*:*.*),((1,2),(3,4))))"}, 0},
    {{CT_DATE_TIME, "((monday, 1-january-2024),08:00:00.00)"}, 0},
    {{CT_OBJ_PROP_REFERENCE, "(((0,1),85,3),((3,2),77,-))"}, 0},
    {{CT_DATE_RANGE, "((monday, 1-january-2024),(*,31-december-2024))"}, 0},
    {{CT_WEEK_N_DAY, "(january-*-monday,*-02-*)"}, 0},
    {{CT_CALENDAR_ENTRY, "([0] (*,3-october-2025),[2] august-*-sunday)"}, 0},
    {{CT_TIME_VALUE, "((08:00:00.00,[4] 21.000000),(17:00:00.00,[0] NULL))"}, 0},
    {{CT_SPECIAL_EVENT, "(([1] (6,1),((08:00:00.00,[4] 16.000000)),8))", 38}, 0},
    {{CT_SETPOINT_REFERENCE, "(((0,1),85,-))"}, 0},
    {{CT_DAILY_SCHEDULE, "(((08:00:00.00,[9] 1)),())", 123}, 0},
    {{CT_TIME_STAMP, "([1] 4711,[0] 08:00:00.00)"}, 0},
    {{CT_PROPERTY_REFERENCE, "((85,-),(87,16))"}, 0},
    {{CT_DEV_OBJ_PROP_REFERENCE, "((0,1),85,2,(8,5))"}, 0},
    {{CT_ACTION_LIST, "((-,(4,1),present-value,-,[9] 1,8,-,0,0))"}, 0},
    {{CT_READ_ACCESS_SPEC, "((0,1),((85,-),(77,3)))"}, 0},
    {{CT_READ_ACCESS_RESULT, "((0,1),((85,-,[4] 21.500000),(77,-,[5] (2,32))))"}, 4},
    {{CT_DEV_OBJ_REFERENCE, "((-,(0,1)),((8,5),(0,2)))"}, 0},
    {{CT_DEV_OBJ_PROP_VALUE, "((8,5),(0,1),present-value,-,[4] 21.500000)"}, 0},
    {{CT_ACCUMULATOR_RECORD, "(((tuesday,24-november-2026),08:00:00.00),12,345,1)"}, 0},
    {{CT_PRESCALE, "(10,1000)"}, 0},
    {{CT_SCALE, "([3] 1,[4] 2.500000)"}, 0},
    {{CT_SHED_LEVEL, "([1] 3,[2] 12.500000)"}, 0},
    {{CT_PROPERTY_ACCESS_RESULT, "((0,1),85,-,(8,5),[5] (1,31))"}, 0},
    {{CT_LIGHTING_COMMAND, "(1,50.000000,-,-,1000,8)"}, 0},
    {{CT_CHANNEL_VALUE, "([4] 21.500000,[6] 0x0102)"}, 1},
};

TEST(CapacitySweep, ConstructedValuesStayWithinTheirCapacity) {
    for (const SweepEntry &entry : kSweep) {
        if (bacfmt::FindDatatype(entry.notation.code)->scan.scan == nullptr) continue;
        bacfmt_test::ExpectBoundedAtEveryCapacity(entry.notation, entry.overrun);
    }
}

TEST(CapacitySweep, EveryScannableConstructedValueIsSwept) {
    std::set<uint32_t> swept;
    for (const SweepEntry &entry : kSweep) swept.insert(entry.notation.code);
    for (const bacfmt::DatatypeInfo *row = bacfmt::DatatypeRowsBegin(); row != bacfmt::DatatypeRowsEnd(); ++row) {
        const bool constructed = row->code > CT_OBJECT_ID && (row->code < CT_ASN1_FIRST || row->code > CT_ASN1_LAST);
        if (!constructed || row->scan.scan == nullptr || row->print == nullptr) continue;
        EXPECT_TRUE(swept.count(row->code) != 0) << row->name << " has no entry in the sweep";
    }
}

}  // namespace
