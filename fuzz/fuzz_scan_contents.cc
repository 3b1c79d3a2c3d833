// Fuzzes the scan dispatcher for every datatype code. Input: one byte that
// chooses the code (every row of the datatype table plus a few codes that
// are not in it), one byte that chooses the hint, the expected count and
// separate lists, then the text. Both bytes are read as printable
// characters, so the seeds stay text files.
//
// Each input runs the sizing pass, then the filling pass into a malloc
// block of exactly the size found (so an undercount shows as an overflow),
// into a block with a nested cursor, and into a new record with blocks of
// its own, which is then freed block by block.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <bacfmt/scan.h>

#include "fuzz_text.h"
#include "constructed/notification.h"
#include "datatypes/table.h"

namespace {

using bacfmt::DatatypeInfo;

constexpr uint32_t kCodesOutsideTheTable[] = {267, 309, 511, 516, 1, 0xFFFFFFFFu, 0xFFFFFFFEu};
constexpr int32_t kHints[] = {-1, -1, 36, 85, 117, 79, 0, 96, 7, 111};
constexpr int kHintCount = sizeof kHints / sizeof kHints[0];

std::vector<uint32_t> AllCodes() {
    std::vector<uint32_t> codes;
    for (const DatatypeInfo *row = bacfmt::DatatypeRowsBegin(); row != bacfmt::DatatypeRowsEnd(); ++row)
        codes.push_back(row->code);
    codes.insert(codes.end(), std::begin(kCodesOutsideTheTable), std::end(kCodesOutsideTheTable));
    return codes;
}

struct Choice {
    uint32_t type;
    int32_t hint;
    int32_t expectedCount;
    int32_t separateLists;
};

Choice Choose(uint8_t codeByte, uint8_t flagByte) {
    static const std::vector<uint32_t> codes = AllCodes();
    const unsigned flags = static_cast<uint8_t>(flagByte - 0x20);
    return Choice{codes[static_cast<uint8_t>(codeByte - 0x20) % codes.size()], kHints[flags % kHintCount],
                  static_cast<int32_t>(flags / kHintCount % 4), static_cast<int32_t>(flags / 40 % 2)};
}


int ScanInto(unsigned char *block, const Choice &c, char *text, void *cursor) {
    auto *record = reinterpret_cast<BACnetContents *>(block);
    std::memset(record, 0, sizeof *record);
    record->type = c.type;
    BACnetContents *slot = record;
    void *tail = cursor;
    const int result = BACnetSScanContents(text, &slot, c.expectedCount, 0, &tail, 0, c.hint);
    if (result >= 0 && slot != record) std::abort();  // a caller's record is never replaced
    return result;
}


void ScanNotification(Text &text, int32_t expectedCount) {
    void *none = nullptr;
    void *tail = nullptr;
    int32_t count = expectedCount;
    BACnetSScanNotificationParameters(text.fresh(), &none, 0, &tail, &count, 1);
    void *own = nullptr;
    count = expectedCount;
    BACnetSScanNotificationParameters(text.fresh(), &own, 1, &tail, &count, 0);
    if (own != nullptr) {
        bacfmt::ReleaseNotificationParameters(own, static_cast<uint32_t>(count) + 1);
        std::free(own);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 2) return 0;
    const Choice c = Choose(data[0], data[1]);
    Text text(data + 2, size - 2);

    BACnetContents probe{};
    probe.type = c.type;
    BACnetContents *slot = &probe;
    void *tail = nullptr;
    const int sized = BACnetSScanContents(text.fresh(), &slot, c.expectedCount, 0, &tail, 1, c.hint);
    BACnetContents *none = nullptr;
    BACnetSScanContents(text.fresh(), &none, c.expectedCount, c.separateLists, &tail, 1, -1);
    if (none != nullptr) std::abort();  // the sizing pass allocates nothing

    if (sized >= static_cast<int>(sizeof(BACnetContents))) {
        auto *block = static_cast<unsigned char *>(std::malloc(static_cast<size_t>(sized)));
        ScanInto(block, c, text.fresh(), nullptr);
        std::free(block);

        // A nested cursor: the payload goes behind a gap, within the same size.
        constexpr size_t kGap = 64;
        auto *nested = static_cast<unsigned char *>(std::malloc(static_cast<size_t>(sized) + kGap));
        ScanInto(nested, c, text.fresh(), nested + sizeof(BACnetContents) + kGap);
        std::free(nested);
    }

    BACnetContents *record = nullptr;
    BACnetSScanContents(text.fresh(), &record, c.expectedCount, c.separateLists, &tail, 0, c.hint);
    BACnetFreeContents(record);  // also after a failure: it stopped at `count`

    // Notification parameters have no datatype code of their own: the
    // same text through their scanner, sized and then in blocks of its own.
    if (c.type == CT_EVENT_LOG_RECORD) ScanNotification(text, c.expectedCount);
    return 0;
}
