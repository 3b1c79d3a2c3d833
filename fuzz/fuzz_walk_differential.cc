// Differential target of the scanners' faster paths: every input is split
// and scanned twice, once with the linear element walk and the other faster
// paths, once with the straightforward ones that define the results (see
// scan/element_walk.h), and both must agree on everything a caller can see:
// element counts and texts, the NUL bytes left in the text, the
// dispatcher's results, and the records and payloads byte for byte (in
// optimized builds, see below).
//
// Input as for fuzz_scan_contents: one byte that chooses the datatype
// code, one the hint and expected count, then the text.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <bacfmt/scan.h>

#include "datatypes/table.h"
#include "fuzz_text.h"
#include "scan/element_walk.h"
#include "scan/lexical.h"

namespace {

using namespace bacfmt;

constexpr int32_t kHints[] = {-1, -1, 36, 85, 117, 79, 0, 96, 7, 111};
constexpr int kHintCount = sizeof kHints / sizeof kHints[0];
// Payloads larger than this are compared by their sizing result only.
constexpr int kLargestBlock = 1 << 20;

void Require(bool holds) {
    if (!holds) std::abort();
}

// The same walk over a fresh copy, and what it yields as offsets into it.
struct Walked {
    std::vector<uint8_t> text;
    std::vector<long> offsets;  // -1 for a null element
    int count = 0;
    bool firstIsGroup = false;
};

long OffsetIn(const std::vector<uint8_t> &text, const char *p) {
    return p == nullptr ? -1 : static_cast<long>(reinterpret_cast<const uint8_t *>(p) - text.data());
}

Walked Walk(Text &source, bool reference) {
    useReferencePaths = reference;
    Walked walked;
    walked.text = source.bytes;
    char *text = reinterpret_cast<char *>(walked.text.data());
    ElementList list(text);
    walked.count = list.count();
    walked.firstIsGroup = list.firstIsGroup();
    walked.offsets.push_back(OffsetIn(walked.text, list.first()));
    // One more Next() than there are elements: the end must agree too.
    const int steps = walked.count > 0 ? walked.count + 1 : 1;
    for (int i = 0; i < steps; ++i) {
        char *element = list.Next();
        walked.offsets.push_back(OffsetIn(walked.text, element));
        if (element == nullptr) break;
    }
    useReferencePaths = false;
    return walked;
}

struct Parsed {
    std::vector<uint8_t> text;
    int result = 0;
    int counted = 0;
    long first = -1;
    long rest = -1;
};

Parsed Parse(Text &source, bool reference) {
    useReferencePaths = reference;
    Parsed parsed;
    parsed.text = source.bytes;
    char *text = reinterpret_cast<char *>(parsed.text.data());
    parsed.counted = ParseElement(text, nullptr, nullptr);
    char *first = nullptr;
    char *rest = nullptr;
    parsed.result = ParseElement(text, &first, &rest);
    parsed.first = OffsetIn(parsed.text, first);
    parsed.rest = OffsetIn(parsed.text, rest);
    useReferencePaths = false;
    return parsed;
}

struct Scanned {
    std::vector<uint8_t> text;
    std::vector<uint8_t> block;
    int sized = 0;
    int filled = 0;
};

// Both passes into `block`, the text in `buffer`: the same addresses for
// both walks, so that pointers inside the payload (into the block, or into
// the text) compare equal.
Scanned Scan(Text &source, uint32_t type, int32_t hint, int32_t expected, bool reference,
             std::vector<uint8_t> &buffer, std::vector<uint8_t> &block) {
    useReferencePaths = reference;
    Scanned scanned;
    auto fresh = [&] {
        std::copy(source.bytes.begin(), source.bytes.end(), buffer.begin());
        return reinterpret_cast<char *>(buffer.data());
    };
    BACnetContents probe{};
    probe.type = type;
    BACnetContents *slot = &probe;
    void *tail = nullptr;
    scanned.sized = BACnetSScanContents(fresh(), &slot, expected, 0, &tail, 1, hint);
    if (scanned.sized >= static_cast<int>(sizeof(BACnetContents)) && scanned.sized <= kLargestBlock) {
        char *text = fresh();
        std::fill(block.begin(), block.begin() + scanned.sized, 0);
        auto *record = reinterpret_cast<BACnetContents *>(block.data());
        record->type = type;
        slot = record;
        tail = nullptr;
        scanned.filled = BACnetSScanContents(text, &slot, expected, 0, &tail, 0, hint);
        scanned.block.assign(block.begin(), block.begin() + scanned.sized);
    }
    scanned.text = buffer;
    useReferencePaths = false;
    return scanned;
}

uint32_t CodeOf(uint8_t byte) {
    static const std::vector<uint32_t> codes = [] {
        std::vector<uint32_t> all;
        for (const DatatypeInfo *row = DatatypeRowsBegin(); row != DatatypeRowsEnd(); ++row)
            all.push_back(row->code);
        all.push_back(0xFFFFFFFFu);  // no type: guessed from the text
        return all;
    }();
    return codes[static_cast<uint8_t>(byte - 0x20) % codes.size()];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 2) return 0;
    const unsigned flags = static_cast<uint8_t>(data[1] - 0x20);
    const uint32_t type = CodeOf(data[0]);
    const int32_t hint = kHints[flags % kHintCount];
    const auto expected = static_cast<int32_t>(flags / kHintCount % 4);
    Text text(data + 2, size - 2);

    const Walked linear = Walk(text, false);
    const Walked straight = Walk(text, true);
    Require(linear.count == straight.count && linear.firstIsGroup == straight.firstIsGroup &&
            linear.offsets == straight.offsets && linear.text == straight.text);

    const Parsed parsedLinear = Parse(text, false);
    const Parsed parsedStraight = Parse(text, true);
    Require(parsedLinear.result == parsedStraight.result && parsedLinear.counted == parsedStraight.counted &&
            parsedLinear.first == parsedStraight.first && parsedLinear.rest == parsedStraight.rest &&
            parsedLinear.text == parsedStraight.text);

    std::vector<uint8_t> buffer(text.bytes.size());
    static std::vector<uint8_t> block(kLargestBlock);  // one address for every input
    const Scanned scanLinear = Scan(text, type, hint, expected, false, buffer, block);
    const Scanned scanStraight = Scan(text, type, hint, expected, true, buffer, block);
    Require(scanLinear.sized == scanStraight.sized && scanLinear.filled == scanStraight.filled &&
            scanLinear.text == scanStraight.text);
#ifdef __OPTIMIZE__
    // The record and payload byte for byte where the build copies elements
    // whole (the fuzzing builds); an unoptimized build may leave different
    // padding bytes in the elements it copies, which are no part of a value.
    Require(scanLinear.block == scanStraight.block);
#endif
    return 0;
}
