// Status, error, abort and reject texts: the fallbacks of every table, the
// buffer form of the diagnostic with its unchecked appends, and the log form.
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/diag.h>
#include <bacfmt/enumtext.h>

#include "diag/error_texts.h"

namespace {

constexpr uint32_t kHuge = 0xFFFFFFFFu;

BACnetErrorInfo Record(uint32_t errorClass, uint32_t errorCode = 0) {
    // The first word is never read: fill it with something that would show.
    return BACnetErrorInfo{0xDEADBEEFu, errorClass, errorCode};
}

struct StatusCase {
    unsigned status;
    const char *text;
};

TEST(StatusString, KnownCodesGapsAndOutOfRange) {
    const StatusCase cases[] = {
        {0, "OK"},
        {5, "Reject"},
        {6, "Unknown BACnet status"},
        {16, "Invalid parameter or invalid syntax"},
        {17, "Unknown BACnet status"},
        {19, "Bad configuration (APDU properties?)"},
        {20, "Unknown BACnet status"},
        {49, "Unknown BACnet status"},
        {54, "Value out of space"},
        {64, "BACnet error"},
        {65, "BACnet reject"},
        {66, "BACnet abort"},
        {67, "Invalid packet"},
        {80, "Driver didn't find Packet Driver"},
        {83, "Driver can't send"},
        {84, "Unknown BACnet status"},
        {kHuge, "Unknown BACnet status"},
    };
    for (const StatusCase &c : cases)
        EXPECT_STREQ(BACnetStatusString(c.status), c.text) << "status " << c.status;
}

using Lookup = const char *(*)(const BACnetErrorInfo *);

struct LookupCase {
    const char *family;
    Lookup lookup;
    uint32_t errorClass;
    uint32_t errorCode;
    const char *text;
};

TEST(ErrorTexts, IndexedEntriesAndFallbacks) {
    const LookupCase cases[] = {
        {"class", BACnetErrorClassString, 0, 0, "Device"},
        {"class", BACnetErrorClassString, 7, 0, "Communication"},
        {"class", BACnetErrorClassString, 8, 0, "Unknown error class"},
        {"class", BACnetErrorClassString, kHuge, 0, "Unknown error class"},
        {"code", BACnetErrorCodeString, 0, 0, "Other"},
        {"code", BACnetErrorCodeString, 0, 33, "Reserved - 33"},
        {"code", BACnetErrorCodeString, 0, 47, "Datatype not supported"},
        {"code", BACnetErrorCodeString, 0, 48, "duplicate-name"},
        {"code", BACnetErrorCodeString, 0, 84, "success"},
        {"code", BACnetErrorCodeString, 0, 135, "abort-insufficient-security"},
        // 136 and everything above read "abort-security-error"; the table's
        // own "Unknown error code" (137) is never answered.
        {"code", BACnetErrorCodeString, 0, 136, "abort-security-error"},
        {"code", BACnetErrorCodeString, 0, 137, "abort-security-error"},
        {"code", BACnetErrorCodeString, 0, 500, "abort-security-error"},
        {"code", BACnetErrorCodeString, 0, kHuge, "abort-security-error"},
        {"abort", BACnetAbortReasonString, 0, 0, "Other"},
        {"abort", BACnetAbortReasonString, 4, 0, "Segmentation not supported"},
        {"abort", BACnetAbortReasonString, 5, 0, "Unknown abort reason"},
        {"abort", BACnetAbortReasonString, kHuge, 0, "Unknown abort reason"},
        {"reject", BACnetRejectReasonString, 0, 0, "Other"},
        {"reject", BACnetRejectReasonString, 9, 0, "Unrecognized service"},
        {"reject", BACnetRejectReasonString, 10, 0, "Unknown reject reason"},
        {"reject", BACnetRejectReasonString, kHuge, 0, "Unknown reject reason"},
        // Reasons come from the second word; a code in the third is ignored.
        {"abort", BACnetAbortReasonString, 3, 1, "Preempted by higher priority task"},
        {"reject", BACnetRejectReasonString, 2, 9, "Inconsistent parameters"},
        // An error class ignores the code, and the code ignores the class.
        {"class", BACnetErrorClassString, 2, 500, "Property"},
        {"code", BACnetErrorCodeString, 500, 31, "Unknown object"},
    };
    for (const LookupCase &c : cases) {
        const BACnetErrorInfo e = Record(c.errorClass, c.errorCode);
        EXPECT_STREQ(c.lookup(&e), c.text) << c.family << " " << c.errorClass << "/" << c.errorCode;
    }
}

TEST(ErrorTexts, NullRecordGivesEachTablesFallback) {
    EXPECT_STREQ(BACnetErrorClassString(nullptr), "Unknown error class");
    EXPECT_STREQ(BACnetErrorCodeString(nullptr), "abort-security-error");
    EXPECT_STREQ(BACnetAbortReasonString(nullptr), "Unknown abort reason");
    EXPECT_STREQ(BACnetRejectReasonString(nullptr), "Unknown reject reason");
}

TEST(ErrorTexts, TablesHaveTheirLengthsAndUnknownEntries) {
    EXPECT_STREQ(bacfmt::errorClassStrings[bacfmt::kErrorClassTextCount - 1], "Unknown error class");
    EXPECT_STREQ(bacfmt::abortReasonStrings[bacfmt::kAbortReasonTextCount - 1], "Unknown abort reason");
    EXPECT_STREQ(bacfmt::rejectReasonStrings[bacfmt::kRejectReasonTextCount - 1],
                 "Unknown reject reason");
    EXPECT_STREQ(bacfmt::errorCodeStrings[bacfmt::kErrorCodeTextCount - 1], "Unknown error code");
    for (uint32_t i = 0; i < bacfmt::kErrorCodeTextCount; ++i) {
        ASSERT_NE(bacfmt::errorCodeStrings[i], nullptr) << i;
        EXPECT_GT(std::strlen(bacfmt::errorCodeStrings[i]), 0u) << i;
    }
}

// From 48 on, the texts are the standard's names of the error codes; the
// enumeration data of the repository lists them independently.
TEST(ErrorTexts, HyphenatedCodesMatchTheEnumerationData) {
    std::ifstream file(BACFMT_SOURCE_DIR "/data/object-properties/error-code.tsv");
    ASSERT_TRUE(file) << "data/object-properties/error-code.tsv is missing";
    std::string line;
    std::getline(file, line);  // header
    int compared = 0;
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        uint32_t value = 0;
        std::string name;
        if (!(fields >> value >> name) || value < 48 || value > 136) continue;
        EXPECT_STREQ(bacfmt::errorCodeStrings[value], name.c_str()) << "error code " << value;
        ++compared;
    }
    EXPECT_EQ(compared, 136 - 48 + 1);
}

struct SPrintCase {
    const char *what;
    unsigned size;
    unsigned status;
    bool withRecord;
    uint32_t errorClass;
    uint32_t errorCode;
    const char *text;
};

TEST(SPrintError, StatusTextAndDetailLines) {
    const SPrintCase cases[] = {
        {"ok without record", 100, 0, false, 0, 0, "OK: "},
        {"ok with record", 100, 0, true, 1, 2, "OK: "},
        {"unknown status", 100, 17, false, 0, 0, "Unknown BACnet status: "},
        {"reject", 100, 65, true, 2, 0,
         "BACnet reject: BACnet Reject Reason 2:\nInconsistent parameters\n"},
        {"reject out of range", 100, 65, true, 10, 0,
         "BACnet reject: BACnet Reject Reason 10:\nUnknown reject reason\n"},
        {"abort", 100, 66, true, 3, 0,
         "BACnet abort: BACnet Abort Reason 3:\nPreempted by higher priority task\n"},
        {"error", 100, 64, true, 2, 32,
         "BACnet error: BACnet Error Class, Code 2, 32:\nProperty, Unknown property\n"},
        {"error out of range", 100, 64, true, 9, 500,
         "BACnet error: BACnet Error Class, Code 9, 500:\n"
         "Unknown error class, abort-security-error\n"},
        {"numbers print signed", 100, 66, true, kHuge, 0,
         "BACnet abort: BACnet Abort Reason -1:\nUnknown abort reason\n"},
        {"error status without record", 100, 64, false, 0, 0, "BACnet error: "},
        {"other status ignores record", 100, 48, true, 2, 32, "Timeout: "},
        // "BACnet error" is 12 characters: with ": " it needs 15 bytes.
        {"status text just fits", 15, 64, true, 1, 31,
         "BACnet error: BACnet Error Class, Code 1, 31:\nObject, Unknown object\n"},
        {"status text dropped", 14, 64, true, 1, 31,
         "BACnet Error Class, Code 1, 31:\nObject, Unknown object\n"},
        {"tiny buffer still gets the lines", 5, 64, true, 2, 32,
         "BACnet Error Class, Code 2, 32:\nProperty, Unknown property\n"},
    };
    for (const SPrintCase &c : cases) {
        char buffer[256];
        std::memset(buffer, 'x', sizeof buffer);
        const BACnetErrorInfo e = Record(c.errorClass, c.errorCode);
        const unsigned count =
            BACnetSPrintError(buffer, c.size, c.status, c.withRecord ? &e : nullptr);
        EXPECT_EQ(count, std::strlen(c.text)) << c.what;
        EXPECT_EQ(std::string(buffer, count), c.text) << c.what;
        EXPECT_EQ(buffer[count], '\0') << c.what;
    }
}

TEST(SPrintError, StatusThatDoesNotFitWritesNothingAtAll) {
    // "OK" needs 5 bytes with ": " and the terminator; not even a zero is
    // written when there are fewer.
    for (unsigned size : {0u, 1u, 4u}) {
        char buffer[8];
        std::memset(buffer, 'x', sizeof buffer);
        EXPECT_EQ(BACnetSPrintError(buffer, size, 0, nullptr), 0u) << size;
        EXPECT_EQ(std::string(buffer, sizeof buffer), std::string(8, 'x')) << size;
    }
    char buffer[8];
    EXPECT_EQ(BACnetSPrintError(buffer, 5, 0, nullptr), 4u);
    EXPECT_STREQ(buffer, "OK: ");
}

// The appends are unchecked, so the documented room must hold the longest
// diagnostic: every class, code and reason, and the widest numbers.
TEST(SPrintError, LongestDiagnosticFitsTheDocumentedRoom) {
    std::vector<uint32_t> numbers{0x80000000u, kHuge};
    for (uint32_t n = 0; n < bacfmt::kErrorCodeTextCount; ++n) numbers.push_back(n);
    unsigned longest = 0;
    for (unsigned status : {BACNET_STATUS_ERROR, BACNET_STATUS_REJECT, BACNET_STATUS_ABORT})
        for (uint32_t errorClass : numbers)
            for (uint32_t errorCode : numbers) {
                char buffer[512];
                const BACnetErrorInfo e = Record(errorClass, errorCode);
                const unsigned count = BACnetSPrintError(buffer, sizeof buffer, status, &e);
                ASSERT_EQ(count, std::strlen(buffer));
                if (count > longest) longest = count;
            }
    EXPECT_LT(longest, BACNET_ERROR_TEXT_SIZE);
    EXPECT_GT(longest, BACNET_ERROR_TEXT_SIZE / 2);  // the room is not wildly off either
}

// Captures the log lines and answers each call with its own number, so that
// the result of BACnetPrintError shows which call it came from.
struct LogCapture {
    static std::vector<std::string> lines;
    static int Handler(int level, const char *format, va_list args) {
        EXPECT_EQ(level, 0);
        char text[512];
        std::vsnprintf(text, sizeof text, format, args);
        lines.emplace_back(text);
        return 1000 + static_cast<int>(lines.size());
    }
    LogCapture() {
        lines.clear();
        PAppSetPrintHandler(Handler);
    }
    ~LogCapture() { PAppSetPrintHandler(nullptr); }
};
std::vector<std::string> LogCapture::lines;

struct PrintCase {
    const char *what;
    unsigned status;
    bool withRecord;
    uint32_t errorClass;
    uint32_t errorCode;
    std::vector<std::string> lines;
};

TEST(PrintError, SendsTheSameDiagnosticLineByLine) {
    const PrintCase cases[] = {
        {"ok", 0, false, 0, 0, {"BACnet Status Code 0:\n", "OK\n"}},
        {"ok with record", 0, true, 1, 1, {"BACnet Status Code 0:\n", "OK\n"}},
        {"reject", 65, true, 5, 0,
         {"BACnet Status Code 65:\n", "BACnet reject\n", "BACnet Reject Reason 5:\n",
          "Missing required parameter\n"}},
        {"abort", 66, true, 1, 0,
         {"BACnet Status Code 66:\n", "BACnet abort\n", "BACnet Abort Reason 1:\n",
          "Buffer overflow\n"}},
        {"error", 64, true, 5, 29,
         {"BACnet Status Code 64:\n", "BACnet error\n", "BACnet Error Class, Code 5, 29:\n",
          "Services, Service request denied\n"}},
        {"error without record", 64, false, 0, 0, {"BACnet Status Code 64:\n", "BACnet error\n"}},
        {"unknown status", 1000, true, 0, 0,
         {"BACnet Status Code 1000:\n", "Unknown BACnet status\n"}},
    };
    for (const PrintCase &c : cases) {
        LogCapture capture;
        const BACnetErrorInfo e = Record(c.errorClass, c.errorCode);
        const int result = BACnetPrintError(c.status, c.withRecord ? &e : nullptr, &e);
        EXPECT_EQ(LogCapture::lines, c.lines) << c.what;
        EXPECT_EQ(result, 1000 + static_cast<int>(c.lines.size())) << c.what << ": last call's result";
    }
}

}  // namespace
