// Bit strings: "(1,0,T,F)" is one bit string, "((1,0),(T,T))" a list of
// them. Besides the value bits each element marks the bits the text spelled
// out; the two sets differ on purpose (see MarkBit).
#include <cerrno>
#include <cstring>

#include <bacfmt/scan.h>

#include "scan/lexical.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

void SetMask(uint8_t (&field)[BACNET_BITSTRING_BYTES], int bit) {
    field[bit / 8] = static_cast<uint8_t>(field[bit / 8] | (0x80 >> (bit % 8)));
}

// The value bit is set by "1", "T" and "t"; the given-mark by "1", "T",
// "0" and "F". So "t" is set but not marked, "f" neither: a lower-case
// letter is taken as a default rather than as an explicit value.
void MarkBit(BACnetBitString &value, int bit, char letter) {
    if (letter == '1' || letter == 'T' || letter == 't') SetMask(value.bits, bit);
    if (letter == '1' || letter == 'T' || letter == '0' || letter == 'F') SetMask(value.given, bit);
}

// One bit string from its bit elements. Every bit is counted, the first 80
// are stored.
int ReadBits(ElementList &bits, BACnetBitString &value, int32_t expectedBits) {
    std::memset(&value, 0, sizeof value);
    const int32_t bitCount = bits.count();
    if (bitCount < 0) return kSyntaxError;
    if (expectedBits > 0 && expectedBits != bitCount) return kCountMismatch;
    value.bitCount = static_cast<uint32_t>(bitCount);
    for (int32_t bit = 0; bit < bitCount && bit < BACNET_BITSTRING_MAX_BITS; ++bit) {
        char *text = bits.Next();
        if (text == nullptr) return kSyntaxError;
        MarkBit(value, bit, KillTrailLeadSpace(text)[0]);
    }
    return 0;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSScanBitString(char *text, void **payload, int32_t *count,
                                    int32_t *expectedBits, int32_t sizeOnly) {
    const int32_t wantBits = expectedBits != nullptr ? *expectedBits : 0;
    ElementList list(text);
    if (list.count() < 0) return kSyntaxError;
    if (list.firstIsGroup()) {
        return ScanElements<BACnetBitString>(list, payload, count, sizeOnly,
                                             [wantBits](char *group, BACnetBitString &value) {
                                                 ElementList bits(group);
                                                 return ReadBits(bits, value, wantBits);
                                             });
    }
    if (list.count() == 0) {
        NoElements none;
        return ScanElements<BACnetBitString>(none, payload, count, sizeOnly,
                                             [](char *, BACnetBitString &) { return 0; });
    }
    // The whole text is the one bit string: its elements are the bits.
    SingleElement one(list.first());
    return ScanElements<BACnetBitString>(one, payload, count, sizeOnly,
                                         [&list, wantBits](char *, BACnetBitString &value) {
                                             return ReadBits(list, value, wantBits);
                                         });
}

extern "C" int BACnetCharStringToBitString(const char *text, BACnetBitString *bits) {
    if (text == nullptr || bits == nullptr) return EINVAL;
    std::memset(bits, 0, sizeof *bits);
    const std::size_t length = std::strlen(text);
    bits->bitCount = static_cast<uint8_t>(length);  // the count wraps at 256
    for (std::size_t i = 0; i < length; ++i) {
        const auto bit = static_cast<uint8_t>(i);
        switch (text[i]) {
        case '1': case 'T': case 't': BACnetSetBitStringBit(bits, bit, 1); break;
        case '0': case 'F': case 'f': BACnetSetBitStringBit(bits, bit, 0); break;
        default: return EINVAL;
        }
    }
    return 0;
}
