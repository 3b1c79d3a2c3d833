// Fuzzes the UTF-8 coders, the whole-string conversions in every character
// set and the scanning and printing of character strings, with the
// scanners' character-set setting taken from the input.
//
// Input: a byte for the character set of the setting and of the elements
// (counted from 0x20, so the seeds stay text), a byte for the element's
// buffer size, then the text. Every buffer is exactly as large as the
// function may use, so that AddressSanitizer sees any byte beyond it.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <bacfmt/bacfmt.h>

#include "fuzz_text.h"

namespace {

// Character sets 0 to 5, the NULL choice and two codes no set has.
constexpr uint32_t kSets[] = {0, 1, 2, 3, 4, 5, 0xFFFFFFFFu, 6, 850};
constexpr int kSetCount = sizeof kSets / sizeof kSets[0];

uint32_t UnitBytes(uint32_t set) { return set == 3 ? 4 : (set == 1 || set == 4) ? 2 : 1; }

// Encodes `code` at every capacity: nothing beyond the capacity, and a
// form written whole or not at all.
void EncodeEverywhere(uint32_t code) {
    for (int capacity = 0; capacity <= 7; ++capacity) {
        std::vector<uint8_t> dst(static_cast<size_t>(capacity) + (capacity == 0));
        const int written = utf8_encode(code, dst.data(), capacity);
        if (written < 0 || written > capacity) std::abort();
        if (written > 0) {
            uint32_t back = 0;
            std::vector<uint8_t> copy(dst.begin(), dst.begin() + written);
            copy.push_back(0);
            // Six-byte forms end unmarked and read back differently.
            if (written < 6 && (utf8_decode(&back, copy.data()) != written || back != code)) std::abort();
        }
    }
}

// Decodes the text to its end: each step consumes 1 to 6 bytes or stops.
void DecodeAll(const std::vector<uint8_t> &text) {
    for (size_t at = 0; at < text.size();) {
        uint32_t code;
        const int consumed = utf8_decode(&code, text.data() + at);
        if (consumed <= 0) break;
        if (consumed > 6) std::abort();
        at += static_cast<size_t>(consumed);
        EncodeEverywhere(code);
    }
}

// An element of `set` holding the input's bytes as units, zero-terminated.
std::vector<uint8_t> Units(const uint8_t *data, size_t size, uint32_t set) {
    const uint32_t unit = UnitBytes(set);
    std::vector<uint8_t> units(data, data + size);
    units.resize((units.size() + unit - 1) / unit * unit + unit, 0);
    return units;
}

void Convert(uint32_t set, uint32_t bufferSize, const std::vector<uint8_t> &utf8) {
    // Text into an element of the set, in a buffer of exactly its size.
    // At least one byte, so that no buffer is a null pointer.
    std::vector<uint8_t> chars(bufferSize + (bufferSize == 0));
    BACnetCharString s{set, 0, bufferSize, chars.data()};
    const int stored = bacstr_from_utf8(&s, utf8.data(), static_cast<uint32_t>(utf8.size() - 1));
    if (stored > static_cast<int>(bufferSize)) std::abort();

    // The element back to UTF-8, at a capacity of exactly the bytes given.
    std::vector<uint8_t> units = Units(utf8.data(), utf8.size() - 1, set);
    const BACnetCharString element{set, 0, static_cast<uint32_t>(units.size()), units.data()};
    std::vector<uint8_t> out(bufferSize + (bufferSize == 0));
    const int written = bacstr_to_utf8(&element, out.data(), bufferSize);
    if (written > static_cast<int>(bufferSize)) std::abort();
    std::vector<char> printed(bufferSize + 1);
    BACnetSPrintAnyString(printed.data(), bufferSize + 1, &element, 2, static_cast<uint8_t>(bufferSize & 1));
}

// A string value scanned with the setting in force, printed back, released.
void ScanAndPrint(Text &text) {
    std::string tagged = "[7] ";
    tagged += reinterpret_cast<const char *>(text.bytes.data());
    std::vector<char> copy(tagged.begin(), tagged.end());
    copy.push_back('\0');
    BACnetContents *record = nullptr;
    void *tail = nullptr;
    if (BACnetSScanContents(copy.data(), &record, 0, 0, &tail, 0, -1) >= 0 && record != nullptr) {
        std::vector<char> printed(8192);
        BACnetSPrintContents(printed.data(), static_cast<int>(printed.size()), record, 3, 1, 0);
    }
    BACnetFreeContents(record);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 2) return 0;
    const uint32_t set = kSets[static_cast<uint8_t>(data[0] - 0x20) % kSetCount];
    const uint32_t bufferSize = static_cast<uint8_t>(data[1] - 0x20) % 72;
    Text text(data + 2, size - 2);

    BACnetSetBACnetCharstringEncodingTypeAndCodepage(set, static_cast<uint32_t>(data[1]) * 7);
    DecodeAll(text.bytes);
    Convert(set, bufferSize, text.bytes);
    ScanAndPrint(text);
    BACnetSetBACnetCharstringEncodingTypeAndCodepage(0, 850);
    return 0;
}
