// Notification parameters: every event type read and printed back, in one
// block and in separate blocks, and the printer's and scanner's quirks.
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "constructed/notification.h"

namespace {

// Scans `text` as one element, in one block (sized first) or into blocks of
// its own, and prints it back by number.
std::string RoundTrip(const std::string &text, bool separate) {
    std::string copy = text;
    void *none = nullptr;
    void *tail = nullptr;
    int32_t count = 0;
    const int sized = BACnetSScanNotificationParameters(copy.data(), &none, 0, &tail, &count, 1);
    if (sized <= 0) return "<sizing " + std::to_string(sized) + ">";
    std::vector<unsigned char> block(static_cast<size_t>(sized));
    void *slot = separate ? nullptr : block.data();
    copy = text;
    count = 0;
    const int filled = BACnetSScanNotificationParameters(copy.data(), &slot, separate ? 1 : 0, &tail, &count, 0);
    std::string printed = "<filling " + std::to_string(filled) + ">";
    if (filled > 0) {
        BACnetNotificationParameters value;
        std::memcpy(&value, slot, sizeof value);
        char out[1024];
        const int length = BACnetSPrintNotificationParameters(out, sizeof out, &value, 0);
        printed = length < 0 ? "<print " + std::to_string(length) + ">" : std::string(out);
    }
    if (separate) {
        // The scanner's own blocks: the element array and what it owns.
        bacfmt::ReleaseNotificationParameters(slot, static_cast<uint32_t>(count) + 1);
        std::free(slot);
    }
    return printed;
}

TEST(Notification, EveryTypeReadsBack) {
    const char *texts[] = {
        "[0] (1,0),(0,0,0,0)",
        "[1] [1] 1,(1,0,0,0)",
        "[2] [0] (1,1),(0,0,0,0)",
        "[2] [1] 2.500000,(1,0,0,0)",
        "[3] [9] 1,(0,0,0,0),0",
        "[3] [16] [0] 5,(0,0,0,0),[1] 7",
        "[3] [2] 5,(0,0,0,0),6",
        "[4] 21.000000,(0,0,0,0),20.000000,0.500000",
        "[5] 21.500000,(1,0,0,0),0.500000,20.000000",
        "[6] ((85,-,[4] 1.000000,-),(87,3,[2] 4,8))",
        "[8] 1,2,(0,0,0,0),3",
        "[9] 7,1,([2] 5,[4] 1.500000,[6] 0x0a0b,[16] ((8,5),(0,1),present-value,-,[4] 2.000000))",
        "[10] ((0,1),85,-,-),3,4",
        "[11] 5,(0,0,0,0),4",
        "[14] 1.500000,(0,0,0,0),2.500000,3.500000",
        "[15] -1,(0,0,0,0),2,3",
        "[16] 1,(0,0,0,0),2,3",
        "[17] abc,(0,0,0,0),x",
        "[18] [4] 2.500000,(0,0,0,0)",
        "[18] -,(0,1,0,0)",
        "[13] 3,(0,0,0,0),7,[1] 12,(-,(0,1)),-",
        "[13] 3,(0,0,0,0),7,[1] 12,(-,(0,1)),(1,2,0x0a0b)",
    };
    for (const char *text : texts) {
        EXPECT_EQ(RoundTrip(text, false), text) << "one block";
        EXPECT_EQ(RoundTrip(text, true), text) << "separate blocks";
    }
    // Texts that print otherwise than they are read: a change of
    // reliability prints its values without a comma before them, a first
    // buffer form is read with the fields of a buffer-ready one.
    EXPECT_EQ(RoundTrip("[19] 3,(F,F,F,F),((85,-,[4] 1.0,-))", true), "[19] 3,(0,0,0,0)((85,-,[4] 1.000000,-))");
    EXPECT_EQ(RoundTrip("[7] ((0,1),85,-,-),3,4", false).rfind("[7] (0,1),(85,4294967295),", 0), 0u);
}

TEST(Notification, ScannerOutcomes) {
    struct Case {
        const char *text;
        int32_t expectedCount;
        int sizing;  // 1 for any size
    } cases[] = {
        {"[12] ", 0, -3},
        {"[20] 1", 0, -3},
        {"[5] 1,(F,F,F,F),2", 0, -2},              // a field missing
        {"[2] [2] 1,(F,F,F,F)", 0, 1},             // the sub-choice is read when filling
        {"[5] 21.5,(F,F,F,F),0.5,20.0", 3, 1},     // a tagged text is one element
        {"(([11] 5,(F,F,F,F),4),([16] 1,(F,F,F,F),2,3))", 3, -1},
        {"(([11] 5,(F,F,F,F),4),([16] 1,(F,F,F,F),2,3))", 2, 1},
        {"[7] ((0,1),85,-,-),3", 0, 1},            // sizing does not count type 7's fields
    };
    for (const Case &c : cases) {
        std::string text = c.text;
        void *none = nullptr;
        void *tail = nullptr;
        int32_t count = c.expectedCount;
        const int result = BACnetSScanNotificationParameters(text.data(), &none, 0, &tail, &count, 1);
        EXPECT_EQ(result > 0 ? 1 : result, c.sizing) << c.text;
    }
    std::string changeOfValue = "[2] [2] 1,(F,F,F,F)";
    BACnetNotificationParameters value[2]{};
    void *slot = value;
    void *tail = nullptr;
    int32_t count = 0;
    EXPECT_EQ(BACnetSScanNotificationParameters(changeOfValue.data(), &slot, 0, &tail, &count, 0), -3);
}

TEST(Notification, PrinterRefusals) {
    char out[128];
    BACnetNotificationParameters value{};
    value.eventType = 3;
    value.u.commandFailure.type = CT_REAL;
    EXPECT_EQ(BACnetSPrintNotificationParameters(out, sizeof out, &value, 0), -3);
    value.eventType = 2;
    value.u.changeOfValue.choice = 2;
    EXPECT_EQ(BACnetSPrintNotificationParameters(out, sizeof out, &value, 0), -3);
    value.eventType = 12;
    EXPECT_EQ(BACnetSPrintNotificationParameters(out, sizeof out, &value, 0), 5);
    EXPECT_STREQ(out, "[12] ");
    EXPECT_EQ(BACnetSPrintNotificationParameters(out, 5, &value, 0), -2);
}

}  // namespace
