#include "constructed/fields.h"

#include <bacfmt/enumtext.h>

#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {

char *NumberedPart(char *text) {
    for (char *p = text; *p != '\0'; ++p)
        if (*p == '-' && IsDecimalDigit(p[1])) text = p + 1;
    return KillTrailLeadSpace(text);
}

int ReadPropertyIdentifier(char *text, uint32_t &property) {
    text = NumberedPart(text);
    if (IsDecimalDigit(text[0])) {
        property = static_cast<uint32_t>(TextToSigned(text));
        return 0;
    }
    const int32_t named = BACnetGetEnumValue(text, BACNET_TABLE_PROPERTIES, 0, 0);
    if (named == BACNET_ENUM_UNKNOWN) return kSyntaxError;
    property = static_cast<uint32_t>(named);
    return 0;
}

uint32_t VoidOrDecimal(char *text) {
    if (IsVoidString(text) != 0) return BACNET_ABSENT_U32;
    return static_cast<uint32_t>(TextToSigned(text));
}

bool WrittenAsGroup(const char *part, const char *textStart) {
    while (part > textStart && part[-1] == ' ') --part;
    return part > textStart && IsOpeningBracket(part[-1]) != 0;
}

int ReadNumberField(char *text, uint32_t &value) {
    text = KillTrailLeadSpace(text);
    if (!IsDecimalDigit(text[0])) return kSyntaxError;
    value = TextToUnsigned(text, 0);
    return 0;
}

int ReadOptionalNumberField(char *text, uint32_t &value) {
    if (IsVoidString(text) != 0) {
        value = BACNET_ABSENT_U32;
        return 0;
    }
    return ReadNumberField(text, value);
}

int32_t VoidOrIndex(char *text) { return static_cast<int32_t>(VoidOrDecimal(text)); }

}  // namespace bacfmt
