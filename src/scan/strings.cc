// Variable-length elements: octet strings and raw encoded data ("0x0a0b",
// "X'0a0b'"), character strings (quoted or bare) and optional character
// strings ("[7]" and a string, or "[0]NULL"). Their content goes
// behind the element array or into blocks of their own (scan_list.h).
#include <cstring>

#include <bacfmt/scan.h>

#include "charset/charset.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

// Octets: the hexadecimal pairs behind a "0x", "0X" or "X'" prefix. The
// count halves what follows the prefix, so the closing quote of X'..'
// drops out and an odd digit is ignored.
int PrepareOctets(char *text, Content &content) {
    if (std::strncmp(text, "0x", 2) != 0 && std::strncmp(text, "0X", 2) != 0 &&
        std::strncmp(text, "X'", 2) != 0)
        return kUnsupported;
    content.source = text + 2;
    content.reserved = static_cast<int32_t>((std::strlen(text) - 2) / 2);
    content.advance = content.reserved;
    return 0;
}

void DecodeOctets(uint8_t *octets, const Content &content) {
    for (int32_t i = 0; i < content.reserved; ++i) octets[i] = HexPairValue(content.source + 2 * i);
}

template <typename Element, typename Store>
int ScanOctets(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
               int32_t sizeOnly, Store store) {
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanVariableElements<Element>(elements, payload, separateLists, tail, count, sizeOnly,
                                         PrepareOctets, store);
}

// Bytes of a string's buffer per character and terminator, by the character
// set that scanned strings get; 0 for a set the scanner cannot build. JIS
// X 0208 is reserved at four bytes a character although its units are one
// byte wide.
int32_t BufferBytesPerCharacter(uint32_t charSet) {
    switch (charSet) {
    case BACNET_CHARSET_ANSI_X34:
    case BACNET_CHARSET_DBCS:
    case BACNET_CHARSET_ISO8859_1:
    case static_cast<uint32_t>(BACNET_CHARSET_NULL_CHOICE):
        return 1;
    case BACNET_CHARSET_JIS_X0208:
    case BACNET_CHARSET_UCS4:
        return 4;
    case BACNET_CHARSET_UCS2:
        return 2;
    default:
        return 0;
    }
}

// The characters are the unquoted bytes as they are: escapes are not
// interpreted and UTF-8 is not converted. The buffer is counted by the
// character set, while a single block takes only the bytes and terminator.
int PrepareCharacters(char *text, Content &content) {
    content.source = KillQuote(text);
    const auto length = static_cast<int64_t>(std::strlen(content.source));
    const int reserved = ArrayBytes(length + 1, static_cast<uint64_t>(BufferBytesPerCharacter(tBACnetStringType)));
    if (reserved < 0) return kSyntaxError;
    content.reserved = reserved;
    content.advance = static_cast<int32_t>(length + 1);
    return 0;
}

void StoreCharacters(BACnetCharString &s, char *chars, const Content &content) {
    s.charSet = tBACnetStringType;
    s.codePage = tBACnetStringType == BACNET_CHARSET_DBCS ? static_cast<uint16_t>(nStringCodepage) : 0;
    s.bufferSize = static_cast<uint32_t>(content.reserved);
    s.chars = chars;
    std::memcpy(chars, content.source, static_cast<std::size_t>(content.advance));
}

// An optional string is "[7]" and a string, or "[0]NULL" for its NULL
// choice, which is an element of the character set BACNET_CHARSET_NULL_CHOICE
// holding an empty text: a reader of the characters still finds a
// terminated text, and every element owns one block to release.
constexpr int kNullChoiceTag = 0;
constexpr int kStringChoiceTag = 7;
constexpr auto kNullChoiceSet = static_cast<uint32_t>(BACNET_CHARSET_NULL_CHOICE);
constexpr char kNoCharacters[] = "";

int PrepareOptionalCharacters(char *text, Content &content) {
    char *value = nullptr;
    switch (ParseChoice(text, -1, &value)) {
    case kStringChoiceTag:
        // Under the setting -1 the string would read back as the NULL choice.
        if (tBACnetStringType == kNullChoiceSet || BufferBytesPerCharacter(tBACnetStringType) == 0)
            return kUnsupported;
        return PrepareCharacters(value, content);
    case kNullChoiceTag:
        if (str_i_cmp(KillTrailLeadSpace(value), NullString) != 0) return kSyntaxError;
        content.source = kNoCharacters;
        content.reserved = sizeof kNoCharacters;
        content.advance = sizeof kNoCharacters;
        return 0;
    default:
        return kUnsupported;  // no tag, or a choice the type does not have
    }
}

void StoreOptionalCharacters(BACnetCharString &s, char *chars, const Content &content) {
    StoreCharacters(s, chars, content);
    if (content.source != kNoCharacters) return;
    s.charSet = kNullChoiceSet;
    s.codePage = 0;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSScanOctetString(char *text, void **payload, int32_t separateLists, void **tail,
                                      int32_t *count, int32_t sizeOnly) {
    return ScanOctets<BACnetOctetString>(
        text, payload, separateLists, tail, count, sizeOnly,
        [](BACnetOctetString &value, char *octets, const Content &content) {
            value.octets = reinterpret_cast<uint8_t *>(octets);
            value.bufferSize = static_cast<uint32_t>(content.reserved);
            value.length = static_cast<uint32_t>(content.reserved);
            DecodeOctets(value.octets, content);
        });
}

extern "C" int BACnetSScanASN1String(char *text, void **payload, int32_t separateLists, void **tail,
                                     int32_t *count, int32_t sizeOnly) {
    return ScanOctets<BACnetRawASN1>(
        text, payload, separateLists, tail, count, sizeOnly,
        [](BACnetRawASN1 &value, char *octets, const Content &content) {
            value.length = static_cast<uint32_t>(content.reserved);
            value.octets = reinterpret_cast<uint8_t *>(octets);
            DecodeOctets(value.octets, content);
        });
}

extern "C" int BACnetSScanString(char *text, void **payload, int32_t separateLists, void **tail,
                                 int32_t *count, int32_t sizeOnly) {
    if (BufferBytesPerCharacter(tBACnetStringType) == 0) return kUnsupported;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() > 0 || KillTrailLeadSpace(text)[0] == '(') {
        return ScanVariableElements<BACnetCharString>(elements, payload, separateLists, tail, count,
                                                      sizeOnly, PrepareCharacters, StoreCharacters);
    }
    // No element at all is one empty string; only "()" is an empty list.
    SingleElement empty(text + std::strlen(text));
    return ScanVariableElements<BACnetCharString>(empty, payload, separateLists, tail, count,
                                                  sizeOnly, PrepareCharacters, StoreCharacters);
}

extern "C" int BACnetSScanOptionalCharString(char *text, void **payload, int32_t separateLists,
                                             void **tail, int32_t *count, int32_t sizeOnly) {
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanVariableElements<BACnetCharString>(elements, payload, separateLists, tail, count,
                                                  sizeOnly, PrepareOptionalCharacters,
                                                  StoreOptionalCharacters);
}
