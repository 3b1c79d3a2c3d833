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

// Strings of the default character set hold the bytes of the text as typed,
// and a value file is UTF-8; the string printer, though, takes each byte of
// that set as a character of its own and would encode "é" anew on every
// pass. Such a string is printed from a UCS-4 copy made by the library's
// own decoder, so that text comes out as it went in. Bytes that are not
// UTF-8 stay as they are: then the byte-per-character reading is the right
// one.
BACnetCharString PrintableString(const BACnetCharString &string, std::vector<uint32_t> &units) {
    if (string.charSet != BACNET_CHARSET_ANSI_X34 || string.chars == nullptr) return string;
    const auto *bytes = static_cast<const uint8_t *>(string.chars);
    const std::size_t length = strnlen(static_cast<const char *>(string.chars), string.bufferSize);
    if (std::all_of(bytes, bytes + length, [](uint8_t byte) { return byte < 0x80; })) {
        return string;
    }
    // One unit a character at most, and the decoder keeps one unit free.
    constexpr std::size_t kSpareUnits = 2;
    units.assign(length + kSpareUnits, 0);
    BACnetCharString recoded{};
    recoded.charSet = BACNET_CHARSET_UCS4;
    recoded.bufferSize = static_cast<uint32_t>(units.size() * sizeof(uint32_t));
    recoded.chars = units.data();
    if (bacstr_from_utf8(&recoded, bytes, static_cast<uint32_t>(length)) < 0) return string;
    return recoded;
}

// A record whose character strings are printable as above; other records
// are passed through untouched.
class PrintableRecord {
public:
    explicit PrintableRecord(const BACnetContents &record) : record_(record) {
        if (record.type != CT_CHARACTER_STRING || record.data == nullptr) return;
        const auto *strings = static_cast<const BACnetCharString *>(record.data);
        units_.resize(record.count);
        for (uint32_t i = 0; i < record.count; ++i) {
            strings_.push_back(PrintableString(strings[i], units_[i]));
        }
        record_.data = strings_.data();
    }
    const BACnetContents &record() const { return record_; }

private:
    BACnetContents record_;
    std::vector<std::vector<uint32_t>> units_;
    std::vector<BACnetCharString> strings_;
};

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
    // Zeroed room behind the payload: the octet string printer reads one
    // element of a record that holds none ("()"), so a value must never end
    // at the end of its allocation.
    constexpr std::size_t kSlack = 64;
    result.block.reset(static_cast<unsigned char *>(std::calloc(1, result.blockSize + kSlack)));
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
    // the room left, and the number printers write a whole number once the
    // room passes their threshold, so the buffer is twice the capacity
    // handed over, far more than the library's overrun bound.
    constexpr int kFirstCapacity = 4096;
    static_assert(kFirstCapacity >= BACNET_PRINT_OVERRUN);
    constexpr int kLastCapacity = 32 << 20;
    const PrintableRecord printable(record);
    PrintedValue result;
    for (int capacity = kFirstCapacity; capacity <= kLastCapacity; capacity *= 2) {
        std::vector<char> buffer(2 * static_cast<std::size_t>(capacity), '\0');
        const int code = BACnetSPrintContents(buffer.data(), capacity, &printable.record(),
                                              request.property, request.symbolic ? 1 : 0,
                                              request.prefixMode);
        // Any negative result may mean "no room": a list's printer adds up
        // its parts' results, so a -2 of one part can arrive as -1. And an
        // element cut off by the end of the room may leave a positive
        // result that no longer counts the text. Only a count that matches
        // the text is a whole value.
        const std::size_t length = strnlen(buffer.data(), buffer.size());
        if (code >= 0 && static_cast<std::size_t>(code) == length) {
            result.code = code;
            result.text.assign(buffer.data(), length);
            return result;
        }
    }
    // Still no whole text at the largest room: the printer fails on this
    // value, or counts a text it did not write (the escapes it inserts into
    // a string that holds every kind of quote are not counted).
    result.code = kPrintFailed;
    return result;
}

bool ReadsBackTheSame(ScannedValue &value, std::string_view printed, const ScanRequest &request) {
    // Records hold pointers into their own block. Scanned into the very same
    // block, an equal value gives equal bytes, pointers included.
    const std::vector<unsigned char> first(value.block.get(), value.block.get() + value.blockSize);
    BACnetContents probe{};
    probe.type = request.datatype;
    const int needed = RunPass(printed, &probe, request, true);
    if (needed < 0 || std::max<std::size_t>(static_cast<std::size_t>(needed), sizeof(BACnetContents)) !=
                          value.blockSize) {
        return false;
    }
    std::memset(value.block.get(), 0, value.blockSize);
    auto *record = reinterpret_cast<BACnetContents *>(value.block.get());
    record->type = request.datatype;
    const int code = RunPass(printed, record, request, false);
    if (code < 0 || code > static_cast<int>(value.blockSize)) return false;
    value.code = code;
    return std::equal(first.begin(), first.end(), value.block.get());
}

std::string PrintQuotedString(const BACnetCharString &original) {
    std::vector<uint32_t> units;
    const BACnetCharString string = PrintableString(original, units);
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
