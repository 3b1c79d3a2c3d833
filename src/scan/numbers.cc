#include "scan/numbers.h"

#include <clocale>
#include <cstdlib>
#include <locale.h>

namespace bacfmt {
namespace {

// The white space that strtol skips in the "C" locale.
bool IsCSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

int DigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'z') return c - 'a' + 10;
    if (c >= 'A' && c <= 'Z') return c - 'A' + 10;
    return 99;
}

// Sign and magnitude of the longest number prefix, the magnitude saturated
// just above 32 bits so that every overflow stays visible to the callers.
struct Magnitude {
    bool negative = false;
    uint64_t value = 0;
};

constexpr uint64_t kSaturated = uint64_t{1} << 33;

Magnitude ReadMagnitude(const char *text, int base) {
    Magnitude result;
    while (IsCSpace(*text)) ++text;
    if (*text == '+' || *text == '-') result.negative = *text++ == '-';
    const bool hexPrefix = text[0] == '0' && (text[1] == 'x' || text[1] == 'X') &&
                           DigitValue(text[2]) < 16;
    if ((base == 0 || base == 16) && hexPrefix) {
        base = 16;
        text += 2;
    } else if (base == 0) {
        base = text[0] == '0' ? 8 : 10;
    }
    for (int digit; (digit = DigitValue(*text)) < base; ++text) {
        result.value = result.value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
        if (result.value > kSaturated) result.value = kSaturated;
    }
    return result;
}

}  // namespace

uint32_t TextToUnsigned(const char *text, int base) {
    const Magnitude m = ReadMagnitude(text, base);
    if (m.value > UINT32_MAX) return UINT32_MAX;
    const auto value = static_cast<uint32_t>(m.value);
    return m.negative ? 0u - value : value;
}

int32_t TextToSigned(const char *text, int base) {
    const Magnitude m = ReadMagnitude(text, base);
    if (m.negative) {
        if (m.value > uint64_t{1} << 31) return INT32_MIN;
        return static_cast<int32_t>(-static_cast<int64_t>(m.value));
    }
    return m.value > INT32_MAX ? INT32_MAX : static_cast<int32_t>(m.value);
}

double TextToDouble(const char *text) {
    // strtod reads the decimal point of the process locale ("," under a
    // German one); the "C" locale object keeps "." whatever the process uses.
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", locale_t{});
    return strtod_l(text, nullptr, cLocale);
}

uint8_t HexPairValue(const char *pair) {
    const char own[3] = {pair[0], pair[0] != '\0' ? pair[1] : '\0', '\0'};
    return static_cast<uint8_t>(TextToSigned(own, 16));
}

}  // namespace bacfmt
