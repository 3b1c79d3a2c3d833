#include "value_codec.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "scan_words.h"

namespace bacfmt::tool {
namespace {

// The scanners cut their text in place, so every pass gets a fresh copy.
std::vector<char> WritableCopy(std::string_view text) {
    std::vector<char> copy(text.begin(), text.end());
    copy.push_back('\0');
    return copy;
}

int RunPass(std::string_view text, BACnetContents *record, const ScanRequest &request,
            bool sizeOnly) {
    std::vector<char> copy = WritableCopy(text);
    void *tail = nullptr;  // payload directly behind the record
    BACnetContents *slot = record;
    return BACnetSScanContents(copy.data(), &slot, request.expectedCount, 0, &tail,
                               sizeOnly ? 1 : 0, request.hint);
}

}  // namespace

ScannedValue ScanValue(std::string_view text, const ScanRequest &request) {
    ScannedValue result;
    // The sizing pass reads the datatype from a record too; it writes nothing.
    BACnetContents probe{};
    probe.type = request.datatype;
    const int needed = RunPass(text, &probe, request, true);
    if (needed < 0) {
        result.code = needed;
        return result;
    }
    result.blockSize = std::max<std::size_t>(static_cast<std::size_t>(needed),
                                             sizeof(BACnetContents));
    result.block.reset(static_cast<unsigned char *>(std::calloc(1, result.blockSize)));
    if (result.block == nullptr) {
        result.code = kOutOfMemory;
        return result;
    }
    auto *record = reinterpret_cast<BACnetContents *>(result.block.get());
    record->type = request.datatype;
    result.code = RunPass(text, record, request, false);
    if (result.code > static_cast<int>(result.blockSize)) {
        // The block has been overrun already; say so rather than go on.
        result.code = kSizingUndercount;
    }
    return result;
}

PrintedValue PrintValue(const BACnetContents &record, const PrintRequest &request) {
    // Values in value files are short; the buffer grows for long lists. Some
    // printers copy a name with the whole capacity as its bound instead of
    // the room left, so the buffer is twice the capacity handed over.
    constexpr int kFirstCapacity = 4096;
    constexpr int kLastCapacity = 4 << 20;
    PrintedValue result;
    for (int capacity = kFirstCapacity; capacity <= kLastCapacity; capacity *= 2) {
        std::vector<char> buffer(2 * static_cast<std::size_t>(capacity), '\0');
        result.code = BACnetSPrintContents(buffer.data(), capacity, &record, request.property,
                                           request.symbolic ? 1 : 0, request.prefixMode);
        if (result.code == -2) continue;
        if (result.code >= 0) {
            // The count can fall short of the text (escapes inserted into a
            // quoted string are not counted); the terminator is the truth.
            result.text.assign(buffer.data(), strnlen(buffer.data(), buffer.size()));
        }
        return result;
    }
    return result;
}

std::string PrintQuotedString(const BACnetCharString &string) {
    // Room for every unit as six UTF-8 bytes, an escape before each, quotes.
    constexpr std::size_t kBytesPerUnit = 7;
    constexpr std::size_t kQuotesAndTerminator = 3;
    const std::size_t capacity =
        static_cast<std::size_t>(string.bufferSize) * kBytesPerUnit + kQuotesAndTerminator;
    std::vector<char> buffer(capacity, '\0');
    BACnetSPrintAnyString(buffer.data(), static_cast<uint32_t>(capacity), &string, 2, 1);
    return std::string(buffer.data(), strnlen(buffer.data(), buffer.size()));
}

}  // namespace bacfmt::tool
