// Record and element sizes: the contract's byte counts are those of the
// 32-bit target and are asserted there; the host build only checks the
// layouts that do not hold pointers.
#include <cstddef>
#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

extern "C" int bacfmt_c_header_probe(void);

namespace {

constexpr bool kPointers32 = sizeof(void *) == 4;

TEST(Layout, PointerFreeElementsHaveContractSizes) {
    EXPECT_EQ(sizeof(BACnetBitString), 24u);
    EXPECT_EQ(sizeof(BACnetDate), 16u);
    EXPECT_EQ(sizeof(BACnetTime), 4u);
    EXPECT_EQ(sizeof(BACnetObjectID), 8u);
    EXPECT_EQ(sizeof(BACnetDateTime), 20u);
    EXPECT_EQ(sizeof(BACnetErrorInfo), 12u);
    EXPECT_EQ(sizeof(ObjPropDescription), 20u);
    EXPECT_EQ(sizeof(BACnetDateRange), 32u);
    EXPECT_EQ(sizeof(BACnetWeekNDay), 12u);
    EXPECT_EQ(sizeof(BACnetCalendarEntry), 36u);
    EXPECT_EQ(sizeof(BACnetTimeStamp), 24u);
    EXPECT_EQ(sizeof(BACnetPropertyStates), 8u);
    EXPECT_EQ(sizeof(BACnetAddress), 12u);
    EXPECT_EQ(sizeof(BACnetRecipient), 16u);
    EXPECT_EQ(sizeof(BACnetDestination), 80u);
    EXPECT_EQ(sizeof(BACnetAddressBinding), 20u);
    EXPECT_EQ(sizeof(BACnetClientCov), 8u);
    EXPECT_EQ(sizeof(BACnetCovSubscription), 52u);
    EXPECT_EQ(sizeof(BACnetEventNotificationSubscription), 28u);
    EXPECT_EQ(sizeof(BACnetProcessIdSelection), 8u);
    EXPECT_EQ(sizeof(BACnetAuthenticationFactorFormat), 12u);
    EXPECT_EQ(sizeof(BACnetAssignedAccessRights), 24u);
    EXPECT_EQ(sizeof(BACnetAccessRule), 60u);
    EXPECT_EQ(sizeof(BACnetPortPermission), 8u);
    EXPECT_EQ(sizeof(BACnetNetworkSecurityPolicy), 8u);
    EXPECT_EQ(sizeof(BACnetKeyIdentifier), 8u);
    EXPECT_EQ(sizeof(BACnetObjPropReference), 16u);
    EXPECT_EQ(sizeof(BACnetDevObjReference), 20u);
    EXPECT_EQ(sizeof(BACnetDevObjPropReference), 28u);
    EXPECT_EQ(sizeof(BACnetSetpointReference), 20u);
    EXPECT_EQ(sizeof(BACnetPropertyReference), 8u);
    EXPECT_EQ(sizeof(BACnetLightingCommand), 28u);
    EXPECT_EQ(sizeof(BACnetAccumulatorRecord), 32u);
    EXPECT_EQ(sizeof(BACnetPrescale), 8u);
    EXPECT_EQ(sizeof(BACnetScale), 8u);
    EXPECT_EQ(sizeof(BACnetShedLevel), 8u);
}

TEST(Layout, RecordAndPointerElementsOn32BitTarget) {
    if (!kPointers32) GTEST_SKIP() << "sizes of the 32-bit target";
    EXPECT_EQ(sizeof(BACnetContents), 24u);
    EXPECT_EQ(offsetof(BACnetContents, size), 12u);
    EXPECT_EQ(sizeof(BACnetOctetString), 12u);
    EXPECT_EQ(sizeof(BACnetCharString), 16u);
    EXPECT_EQ(sizeof(BACnetRawASN1), 8u);
    EXPECT_EQ(sizeof(BACnetStringTable), 28u);
    EXPECT_EQ(sizeof(BACnetTimeValue), 28u);
    EXPECT_EQ(sizeof(BACnetPriArrayItem), 28u);
    EXPECT_EQ(sizeof(BACnetAuthenticationFactor), 20u);
    EXPECT_EQ(sizeof(BACnetVtSession), 20u);
    EXPECT_EQ(sizeof(BACnetCredentialAuthenticationFactor), 24u);
    EXPECT_EQ(sizeof(BACnetAuthenticationPolicy), 16u);
    EXPECT_EQ(sizeof(BACnetSessionKey), 24u);
    EXPECT_EQ(sizeof(BACnetSecurityKeySet), 52u);
    EXPECT_EQ(sizeof(BACnetNotificationParameters), 104u);
    EXPECT_EQ(sizeof(BACnetExtendedParameter), 32u);
    EXPECT_EQ(sizeof(BACnetEventParameter), 52u);
    EXPECT_EQ(sizeof(BACnetFaultParameter), 40u);
    EXPECT_EQ(sizeof(BACnetNotificationExtendedParameter), 52u);
    EXPECT_EQ(sizeof(BACnetLogRecord), 80u);
    EXPECT_EQ(sizeof(BACnetLogDataEntry), 28u);
    EXPECT_EQ(sizeof(BACnetLogRecordMultiple), 52u);
    EXPECT_EQ(sizeof(BACnetEventLogRecord), 68u);
    EXPECT_EQ(sizeof(BACnetDailySchedule), 8u);
    EXPECT_EQ(sizeof(BACnetSpecialEvent), 52u);
    EXPECT_EQ(sizeof(BACnetPropertyValue), 36u);
    EXPECT_EQ(sizeof(BACnetDevObjPropValue), 48u);
    EXPECT_EQ(sizeof(BACnetActionCommand), 64u);
    EXPECT_EQ(sizeof(BACnetActionList), 8u);
    EXPECT_EQ(sizeof(BACnetChannelValue), 32u);
}

TEST(Layout, HeadersCompileAsC) { EXPECT_EQ(bacfmt_c_header_probe(), CT_REAL + 2 + 8); }

}  // namespace
