// Fuzzes BACnetSScanContent as constructed scanners use it: several values
// scanned one after the other into records of a caller, their payloads laid
// out behind each other in one block through a running cursor, sized
// first; then the same values into records with blocks of their own.
//
// Input: lines of text, one value each (at most eight); a line that starts
// with "[" names its datatype, any other is guessed. The first byte of the
// input chooses the expected count (counted from 0x20).
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <bacfmt/bacfmt.h>

namespace {

constexpr size_t kMostValues = 8;
constexpr uint32_t kTypeFromText = 0xFFFFFFFFu;

std::vector<std::vector<char>> Lines(const uint8_t *data, size_t size) {
    std::vector<std::vector<char>> lines(1);
    for (size_t i = 0; i < size && lines.size() <= kMostValues; ++i) {
        if (data[i] == '\n') {
            lines.emplace_back();
            continue;
        }
        lines.back().push_back(static_cast<char>(data[i]));
    }
    if (lines.size() > kMostValues) lines.resize(kMostValues);
    for (auto &line : lines) line.push_back('\0');
    return lines;
}

int Scan(std::vector<char> line, BACnetContents *record, int32_t expected, int32_t separate, void **tail,
         int32_t sizeOnly) {
    record->type = kTypeFromText;
    BACnetContents *slot = record;
    const int result = BACnetSScanContent(line.data(), &slot, expected, separate, tail, sizeOnly);
    if (slot != record) {
        std::fprintf(stderr, "record replaced: sizing %d, separate %d, text \"%s\"\n", sizeOnly, separate, line.data());
        std::abort();  // a caller's record is never replaced
    }
    return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 1) return 0;
    const int32_t expected = static_cast<uint8_t>(data[0] - 0x20) % 4;
    const std::vector<std::vector<char>> lines = Lines(data + 1, size - 1);

    // Sizing: what each value's payload needs behind its record.
    std::vector<BACnetContents> records(lines.size());
    size_t total = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        void *tail = nullptr;
        const int needed = Scan(lines[i], &records[i], expected, 0, &tail, 1);
        if (needed < 0) return 0;
        total += static_cast<size_t>(needed) - std::min(static_cast<size_t>(needed), sizeof(BACnetContents));
    }

    // Filling: every payload into one block of that size, one after the
    // other; a value that takes more than it was sized for overruns it. A
    // boolean moves the cursor one byte whatever its count, also when it
    // holds none and was sized at nothing: one byte of slack per value.
    // Zeroed room behind it: the octet string printer reads the first
    // element of a record that holds none.
    // Read access specifications and results take one object identifier
    // more per element when filling than the sizing pass counts: room for
    // as many as the text has groups.
    size_t slack = lines.size();
    for (const auto &line : lines)
        slack += sizeof(BACnetObjectID) * static_cast<size_t>(std::count(line.begin(), line.end(), '('));
    constexpr size_t kFirstElementRoom = 64;
    auto *block = static_cast<unsigned char *>(std::calloc(1, total + slack + kFirstElementRoom));
    void *cursor = block;
    for (size_t i = 0; i < lines.size(); ++i) {
        void *before = cursor;
        if (Scan(lines[i], &records[i], expected, 0, &cursor, 0) < 0) break;
        if (cursor < before || cursor > block + total + slack) std::abort();
        // Printers may write up to BACNET_PRINT_OVERRUN bytes past `size`.
        char printed[2048 + BACNET_PRINT_OVERRUN];
        BACnetSPrintContents(printed, 2048, &records[i], 85, 1, 2);
    }
    std::free(block);

    // Separate blocks into the caller's records, released payload by payload.
    for (size_t i = 0; i < lines.size(); ++i) {
        void *tail = nullptr;
        std::memset(&records[i], 0, sizeof records[i]);
        Scan(lines[i], &records[i], expected, 1, &tail, 0);
        BACnetFreeContentsPayload(&records[i]);
        if (records[i].data != nullptr) std::abort();
    }
    return 0;
}
