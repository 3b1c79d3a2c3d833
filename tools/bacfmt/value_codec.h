// One value through the library and back: text scanned into a record in the
// two passes, record printed into a string.
#ifndef BACFMT_TOOL_VALUE_CODEC_H
#define BACFMT_TOOL_VALUE_CODEC_H

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <bacfmt/contents.h>

namespace bacfmt::tool {

// Datatype code that lets the scanner take the type from a tag or a guess.
constexpr uint32_t kGuessDatatype = 0xFFFFFFFFu;
// Hint that names no property: names of every table are accepted and a
// leading "[n]" tag may set the datatype.
constexpr int32_t kNoHint = -1;

struct ScanRequest {
    uint32_t datatype = kGuessDatatype;
    int32_t expectedCount = 0;  // 0: any number of elements
    int32_t hint = kNoHint;
};

struct FreeDeleter {
    void operator()(void *block) const { std::free(block); }
};

// The record and its payload in the one malloc block the sizing pass asked
// for; `code` is the scanner's result (bytes used, or a negative code).
struct ScannedValue {
    int code = 0;
    std::size_t blockSize = 0;
    std::unique_ptr<unsigned char, FreeDeleter> block;

    bool ok() const { return code >= 0 && block != nullptr; }
    const BACnetContents &record() const {
        return *reinterpret_cast<const BACnetContents *>(block.get());
    }
};

ScannedValue ScanValue(std::string_view text, const ScanRequest &request);

// Whether `printed` scans into the same record as `value` holds, byte for
// byte. The block is reused for that scan: on success it holds an equal
// record, on failure something else.
bool ReadsBackTheSame(ScannedValue &value, std::string_view printed, const ScanRequest &request);

struct PrintRequest {
    uint32_t property = 0;
    bool symbolic = true;
    uint8_t prefixMode = 0;
};

// The printed text, or kPrintFailed when the value does not print whole
// into the largest buffer the tool tries.
struct PrintedValue {
    int code = 0;
    std::string text;
};

PrintedValue PrintValue(const BACnetContents &record, const PrintRequest &request);

// One character string in the quotes the string printer chooses, whatever
// the property.
std::string PrintQuotedString(const BACnetCharString &string);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_VALUE_CODEC_H
