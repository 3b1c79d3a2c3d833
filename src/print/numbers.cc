// Printers of numbers and octets. Several use a fixed capacity threshold
// instead of measuring; the thresholds are part of the contract. A number
// that passes its threshold is written whole, also where it is longer than
// the room: callers that add up parts count on the number's full length,
// and the public header tells every caller how far past `size` each
// printer may write.
#include <cstdint>
#include <cstring>

#include <bacfmt/print.h>

#include "print/writer.h"

namespace bacfmt {
namespace {

// Single-precision patterns of the special texts, in read-only data. The
// infinity patterns carry the double-precision exponent width, so all three
// are NaNs as floats: the comparisons below never match, and every value is
// printed with "%f". The scanners produce these patterns from the texts.
constexpr uint32_t kSpecialRealBits[3] = {0x7FFFFFFFu, 0x7FF00000u, 0xFFF00000u};
constexpr const char *kSpecialTexts[3] = {"1.#QNAN0", "+1.INF", "-1.INF"};

float SpecialReal(int i) {
    float value;
    std::memcpy(&value, &kSpecialRealBits[i], sizeof value);
    return value;
}

// Shared by the real and double printers: threshold 12, then the special
// texts (never reached), then "%f".
int PrintFixed(char *dst, int size, double value) {
    if (size <= 12) return kNoRoom;
    for (int i = 0; i < 3; ++i)
        if (!(value != static_cast<double>(SpecialReal(i))))
            return BACnetSPrintString(dst, size, kSpecialTexts[i]);
    char text[kFixedBufferSize];
    return WriteWhole(dst, text, FormatFixed(text, value));
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintUnsigned(char *dst, int size, uint32_t value) {
    if (size <= 6) return kNoRoom;
    char text[16];
    return WriteWhole(dst, text, FormatUnsigned(text, value));
}

extern "C" int BACnetSPrintSigned(char *dst, int size, int32_t value) {
    // Threshold 7 and a result of 0, unlike the unsigned printer: callers
    // that add up parts rely on a short room costing nothing.
    if (size <= 7) return 0;
    char text[16];
    return WriteWhole(dst, text, FormatSigned(text, value));
}

extern "C" int BACnetSPrintBoolean(char *dst, int size, uint8_t value, uint8_t symbolic) {
    if (symbolic != 0) return BACnetSPrintString(dst, size, value != 0 ? TrueString : FalseString);
    return BACnetSPrintUnsigned(dst, size, value);
}

extern "C" int BACnetSPrintReal(char *dst, int size, float value) {
    return PrintFixed(dst, size, static_cast<double>(value));
}

extern "C" int BACnetSPrintDouble(char *dst, int size, double value) {
    return PrintFixed(dst, size, value);
}

extern "C" int BACnetSPrintHex(char *dst, int size, const uint8_t *octets, uint32_t length) {
    // Exactly 2 + 2 * length passes although the terminator then needs one
    // byte more; callers give the room for it.
    if (size < 0 || static_cast<uint64_t>(size) < 2 + 2 * static_cast<uint64_t>(length))
        return kNoRoom;
    static constexpr char kDigits[] = "0123456789abcdef";
    std::memcpy(dst, HexQuoteString, 2);
    char *at = dst + 2;
    for (uint32_t i = 0; i < length; ++i) {
        *at++ = kDigits[octets[i] >> 4];
        *at++ = kDigits[octets[i] & 0x0F];
    }
    *at = '\0';
    return static_cast<int>(at - dst);
}

extern "C" int BACnetSPrintOctetString(char *dst, int size, const BACnetOctetString *value) {
    if (size < 0 || static_cast<uint64_t>(size) <= static_cast<uint64_t>(value->length) + 2)
        return kNoRoom;
    return BACnetSPrintHex(dst, size, value->octets, value->length);
}

extern "C" int BACnetSPrintRawASN1(char *dst, int size, const BACnetRawASN1 *value) {
    return BACnetSPrintHex(dst, size, value->octets, value->length);
}
