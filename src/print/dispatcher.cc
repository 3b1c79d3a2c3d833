// The print dispatcher: an optional "[n] " prefix, then the record's
// elements through the printer of their datatype, comma separated and
// bracketed as the datatype table says.
#include <cstdio>

#include <bacfmt/print.h>

#include "datatypes/table.h"
#include "print/writer.h"

namespace bacfmt {
namespace {

// The time-stamp property always shows the datatype of its value.
constexpr uint32_t kPropertyTimeStampPrefixed = 174;

// The printers may write past the capacity they are given (the number
// printers' fixed thresholds); the static buffer keeps that much room
// behind the capacity it hands out.
char printBuffer[BACNET_PRINT_BUFFER_SIZE + BACNET_PRINT_OVERRUN];

// Writes the "[n] " prefix that prefixMode asks for; 0 when there is none.
int WritePrefix(Writer &out, uint32_t code, bool primitive, uint8_t prefixMode) {
    if (prefixMode == 0) return 0;
    int number = static_cast<int>(code);
    if (primitive)
        number >>= 4;  // the application tag number
    else if (prefixMode != 2)
        return 0;
    char digits[16];
    digits[FormatSigned(digits, number)] = '\0';
    return out.Concat({"[", digits, "] "});
}

// One separator or bracket: needs the character and the terminator.
int WriteMark(Writer &out, const char *mark) {
    if (out.room() <= 1) return kNoRoom;
    return out.Text(mark);
}

int PrintList(Writer &out, const DatatypeInfo &row, const BACnetContents &contents,
              const PrintContext &base) {
    if (row.lead != nullptr) {
        if (out.room() <= 6) return kNoRoom;
        out.Text(row.lead);
    }
    const uint32_t count = contents.data != nullptr ? contents.count : 0;
    PrintContext context = base;
    context.bracketed = row.Bracketed(count, base.propertyId);

    if (context.bracketed && WriteMark(out, LBraceString) < 0) return kNoRoom;
    const auto *element = static_cast<const unsigned char *>(contents.data);
    for (uint32_t i = 0; i < count; ++i, element += row.elementSize) {
        const int result = out.Put(row.print, element, context);
        if (result < 0) return result;
        if (i + 1 < count && WriteMark(out, CommaString) < 0) return kNoRoom;
    }
    if (context.bracketed && WriteMark(out, RBraceString) < 0) return kNoRoom;
    return out.used();
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintContents(char *dst, int size, const BACnetContents *contents,
                                    uint32_t propertyId, uint8_t symbolic, uint8_t prefixMode) {
    if (size > 0) dst[0] = '\0';
    Writer out(dst, size);
    if (propertyId == kPropertyTimeStampPrefixed) prefixMode = 1;

    const DatatypeInfo *row = FindDatatype(contents->type);
    const bool primitive = row != nullptr && row->IsPrimitive();
    const int prefix = WritePrefix(out, contents->type, primitive, prefixMode);
    if (prefix < 0) return prefix;

    if (row == nullptr || (row->form == PrintForm::List && row->print == nullptr)) {
        // Unknown codes print "?"; the sum is returned even when "?" did not
        // fit, so that after a prefix the result is the prefix length - 2.
        return prefix + BACnetSPrintString(out.at(), out.room(), UnknownString);
    }

    const PrintContext context{propertyId, symbolic, false};
    switch (row->form) {
    case PrintForm::Null: {
        const int result = out.Text(NullString);
        return result < 0 ? result : out.used();
    }
    case PrintForm::FirstElementOnly: {
        if (contents->data == nullptr) return out.used();
        const int result = out.Put(row->print, contents->data, context);
        return result < 0 ? result : out.used();
    }
    case PrintForm::List: break;
    }
    return PrintList(out, *row, *contents, context);
}

extern "C" char *BACnetPrintContents(const BACnetContents *contents, uint32_t propertyId,
                                     uint8_t symbolic) {
    printBuffer[0] = '\0';
    BACnetSPrintContents(printBuffer, BACNET_PRINT_BUFFER_SIZE, contents, propertyId, symbolic, 0);
    return printBuffer;
}

extern "C" char *BACnetPrintBuffer(uint32_t *sizeOut) {
    if (sizeOut != nullptr) *sizeOut = BACNET_PRINT_BUFFER_SIZE;
    return printBuffer;
}

extern "C" int BACnetSPrintTag(char *dst, int size, int tag) {
    // A fixed threshold, no measuring: past it the tag is written whole,
    // up to "[-2147483648]", however small the room.
    if (size <= 8) return kNoRoom;
    char text[16];
    const int length = std::snprintf(text, sizeof text, "[%d]", tag);
    return WriteWhole(dst, text, length);
}
