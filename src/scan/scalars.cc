// Scanners of the scalar datatypes: booleans, numbers and enumerations.
// Numbers convert without any check, as the C library's conversions do: a
// word reads as 0 and only the leading number of a text counts.
#include <cstring>

#include <bacfmt/scan.h>

#include "scan/element_walk.h"
#include "scan/enum_lookup.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

// Only this many leading bytes of a boolean are looked at.
constexpr std::size_t kBooleanCompared = 31;

int ReadBoolean(char *text, uint8_t &value) {
    char head[kBooleanCompared + 1] = {};
    std::strncpy(head, text, kBooleanCompared);
    // "?" reads as false: an unknown boolean is stored as the safe value.
    if (head[0] == '0' || head[0] == '?' || str_i_cmp(head, "f") == 0 || str_i_cmp(head, "false") == 0) {
        value = 0;
        return 0;
    }
    if (head[0] == '1' || str_i_cmp(head, "t") == 0 || str_i_cmp(head, "true") == 0) {
        value = 1;
        return 0;
    }
    return kSyntaxError;
}

// The special texts of the real printer's three single-precision patterns.
// The infinity patterns carry the double-precision exponent width, so read
// as single precision all three are NaNs; they are kept exactly so.
struct SpecialReal {
    const char *text;
    uint32_t bits;
};
constexpr SpecialReal kSpecialReals[] = {
    {"1.#QNAN0", 0x7FFFFFFFu},
    {"+1.INF", 0x7FF00000u},
    {"-1.INF", 0xFFF00000u},
};

// atof, narrowed to Real or kept as Double; the special texts give their
// single-precision pattern, widened for Double (where they stay NaNs).
template <typename Floating>
int ReadFloating(char *text, Floating &value) {
    // Every special text holds a '#' or an 'I': one look for those spares
    // the three searches in the common case.
    const char *mark = text;
    while (*mark != '\0' && *mark != '#' && *mark != 'I') ++mark;
    if (!useReferencePaths && *mark == '\0') {
        value = static_cast<Floating>(TextToDouble(text));
        return 0;
    }
    for (const SpecialReal &special : kSpecialReals) {
        if (std::strstr(text, special.text) == nullptr) continue;
        float pattern;
        std::memcpy(&pattern, &special.bits, sizeof pattern);
        value = static_cast<Floating>(pattern);
        return 0;
    }
    value = static_cast<Floating>(TextToDouble(text));
    return 0;
}

bool StartsWithDigit(const char *text) { return IsDecimalDigit(text[0]); }

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSScanBoolean(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<uint8_t>(text, payload, count, sizeOnly, ReadBoolean);
}

extern "C" int BACnetSScanUnsigned(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<uint32_t>(text, payload, count, sizeOnly, [](char *element, uint32_t &value) {
        value = TextToUnsigned(element, 0);
        return 0;
    });
}

extern "C" int BACnetSScanSigned(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<int32_t>(text, payload, count, sizeOnly, [](char *element, int32_t &value) {
        value = TextToSigned(element);
        return 0;
    });
}

extern "C" int BACnetSScanReal(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<float>(text, payload, count, sizeOnly, ReadFloating<float>);
}

extern "C" int BACnetSScanDouble(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<double>(text, payload, count, sizeOnly, ReadFloating<double>);
}

extern "C" int BACnetSScanEnum(char *text, void **payload, int32_t *count, int32_t selector,
                               int32_t sizeOnly) {
    return ScanList<uint32_t>(text, payload, count, sizeOnly, [selector](char *element, uint32_t &value) {
        // "proprietary-300", or any name ending in "-<digits>", reads as the number.
        if (char *hyphen = std::strrchr(element, '-'); hyphen != nullptr && IsDecimalDigit(hyphen[1]))
            element = hyphen + 1;
        if (StartsWithDigit(element)) {
            value = static_cast<uint32_t>(TextToSigned(element));
            return 0;
        }
        const bool anyTable = selector == -1;
        const int32_t found = anyTable ? GetAnyEnumValue(element)
                                       : BACnetGetEnumValue(element, static_cast<uint32_t>(selector), 0, 0);
        if (found != BACNET_ENUM_UNKNOWN) {
            value = static_cast<uint32_t>(found);
            return 0;
        }
        if (!anyTable && element[0] == '?') {
            value = 1;
            return 0;
        }
        return kUnsupported;
    });
}
