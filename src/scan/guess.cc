#include "scan/guess.h"

#include <cstring>

#include <bacfmt/scan.h>

#include "scan/lexical.h"
#include "scan/numbers.h"

namespace bacfmt {
namespace {

enum ApplicationTag : int {
    kTagNull = 0,
    kTagBoolean = 1,
    kTagUnsigned = 2,
    kTagSigned = 3,
    kTagReal = 4,
    kTagOctetString = 6,
    kTagCharacterString = 7,
    kTagBitString = 8,
    kTagEnumerated = 9,
    kTagDate = 10,
    kTagTime = 11,
    kTagObjectId = 12,
};

bool IsBooleanWord(const char *text) {
    if (str_i_cmp(text, "TRUE") == 0 || str_i_cmp(text, "FALSE") == 0) return true;
    return text[1] == '\0' && std::strchr("TFtf", text[0]) != nullptr;
}

bool IsBooleanLetter(char c) { return c != '\0' && std::strchr("TtFf", c) != nullptr; }

bool SpellsBoolean(const char *text) {
    static constexpr const char *kWords[] = {"True", "true", "TRUE", "False", "false", "FALSE"};
    for (const char *word : kWords)
        if (std::strstr(text, word) != nullptr) return true;
    return false;
}

// A '-' in [from, to).
bool HyphenBetween(const char *from, const char *to) {
    const char *hyphen = std::strchr(from, '-');
    return hyphen != nullptr && hyphen < to;
}

// The shapes of bracketed values: bit strings, dates, object identifiers.
// -1 when the brackets decide nothing.
int GuessBracketed(const char *text) {
    const char *open = std::strchr(text, '(');
    const char *close = std::strchr(text, ')');
    if (open == nullptr || close == nullptr) {
        open = std::strchr(text, '{');
        close = std::strchr(text, '}');
        if (open == nullptr || close == nullptr) return -1;
    }
    const char *comma = std::strchr(text, ',');
    const bool commaInside = comma != nullptr && comma > open && comma < close;
    if (commaInside && std::strchr(text, '-') == nullptr &&
        (SpellsBoolean(text) || IsBooleanLetter(open[1])))
        return kTagBitString;
    if (HyphenBetween(comma != nullptr ? comma + 1 : text, close)) return kTagDate;
    if (comma != nullptr && IsDecimalDigit(comma[1])) return kTagObjectId;
    return -1;
}

bool LooksLikeTime(const char *text) {
    return std::strlen(text) > 8 && text[2] == ':' && text[5] == ':' && text[8] == '.';
}

}  // namespace

int GuessValueType(char *text, int32_t hint) {
    if (text == nullptr || *text == '\0') return -1;
    if (IsQuote(text[0]) != 0) return kTagCharacterString;
    if (str_i_cmp(text, "NULL") == 0) return kTagNull;
    if (text[0] == '+' || text[0] == '-') return kTagSigned;
    if (BACnetGetEnumValue(text, static_cast<uint32_t>(-1), 0, 0) != BACNET_ENUM_UNKNOWN && hint == -1)
        return kTagEnumerated;
    if (IsBooleanWord(text)) return kTagBoolean;
    if (std::strncmp(text, "0x", 2) == 0 || std::strncmp(text, "0X", 2) == 0 ||
        std::strncmp(text, "X'", 2) == 0)
        return kTagOctetString;
    if (const int bracketed = GuessBracketed(text); bracketed >= 0) return bracketed;
    if (LooksLikeTime(text)) return kTagTime;
    return std::strchr(text, '.') == nullptr ? kTagUnsigned : kTagReal;
}

}  // namespace bacfmt
