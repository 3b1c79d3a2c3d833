// Priority array slots and the priority array of sixteen of them:
//   slot   NULL | a value, tagged "[n] value" or told by its text
//   array  "(" slot "," ... sixteen ... ")"
// A slot prints without its tag, so a slot's datatype reads back only as
// far as the text tells it (a real has a ".", an enumeration is a name).
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/nested_frame.h"
#include "constructed/priority.h"
#include "datatypes/release.h"
#include "datatypes/table.h"
#include "print/writer.h"
#include "scan/enum_lookup.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kEmbeddedRecord = CT_ASN1_THIRD;  // the slot holds a whole record
constexpr uint32_t kUnknownType = 0xFFFFFFFFu;
constexpr int kPrioritySlots = 16;
constexpr double kLargestSingle = 3.4028234663852886e38;

// A double slot is measured as the "%d" of its first word and written as
// its "%e": a caller gives room for the longer text.
int PrintDoubleSlot(Writer &out, const uint32_t (&words)[2]) {
    double value;
    std::memcpy(&value, words, sizeof value);
    char measured[16];
    if (FormatSigned(measured, static_cast<int32_t>(words[0])) >= out.room()) return kNoRoom;
    char text[32];
    const int length = FormatExponent(text, value);
    text[length] = '\0';
    return out.Unchecked(text);
}

// The datatype a tag names: "[n]" is n times 16 below 15, else n; "[C0]"
// is an embedded record, "[C1]" a date-time. -3 for another tag.
int64_t TaggedType(const char *tag) {
    if (tag[0] == 'C') {
        if (tag[1] == '0') return kEmbeddedRecord;
        if (tag[1] == '1') return CT_DATE_TIME;
        return kUnsupported;
    }
    if (!IsDecimalDigit(tag[0])) return kUnsupported;
    const int64_t number = TextToSigned(tag);
    return number < 15 ? number * 16 : number;
}

// An untagged slot's datatype, told by its text.
int64_t TypeOfText(const char *text) {
    if (std::strcmp(text, NullString) == 0) return CT_NULL;
    const bool dot = std::strchr(text, '.') != nullptr;
    if (dot && std::strchr(text, 'e') != nullptr) {
        const double value = TextToDouble(text);
        return value <= kLargestSingle && value >= -kLargestSingle ? CT_REAL : CT_DOUBLE;
    }
    if (dot) return CT_REAL;
    if (IsDecimalDigit(text[0])) return CT_UNSIGNED;
    if ((text[0] >= 'a' && text[0] <= 'z') || (text[0] >= 'A' && text[0] <= 'Z')) return CT_ENUMERATED;
    if (std::strchr(text, '?') != nullptr) return kUnknownType;
    return kUnsupported;
}

// The value of a slot of `type` from its text. In the sizing pass the
// result is what a string, octet string or embedded record adds beyond
// the slot; the filling pass counts the slots only.
int ReadSlotValue(char *text, BACnetPriArrayItem &item, NestedParts &parts) {
    switch (item.type) {
    case CT_NULL:
    case kUnknownType:
        item.u.unsignedValue = 0;
        return 0;
    case CT_UNSIGNED:
    case CT_SIGNED:  // read as unsigned too: "-5" stores all ones minus 4
        item.u.unsignedValue = TextToUnsigned(text, 0);
        return 0;
    case CT_REAL:
        item.u.real = static_cast<float>(TextToDouble(text));
        return 0;
    case CT_DOUBLE: {
        const double value = TextToDouble(text);
        std::memcpy(item.u.doubleWords, &value, sizeof value);
        return 0;
    }
    case CT_ENUMERATED:
        item.u.unsignedValue = IsDecimalDigit(text[0]) ? static_cast<uint32_t>(TextToSigned(text))
                                                       : static_cast<uint32_t>(GetAnyEnumValue(text));
        return 0;
    case kEmbeddedRecord: {
        item.u.contents.type = kTypeFromText;
        const int result = parts.Value(text, item.u.contents);
        if (result < 0) return result;
        return parts.sizing() ? result - static_cast<int>(sizeof(BACnetContents)) : 0;
    }
    case CT_BOOLEAN:
    case CT_OCTET_STRING:
    case CT_CHARACTER_STRING:
    case CT_BIT_STRING:
    case CT_DATE:
    case CT_TIME:
    case CT_OBJECT_ID:
    case CT_DATE_TIME: {
        const int result = parts.InlineElement(item.type, text, &item.u, sizeof item.u);
        if (result < 0) return result;
        return parts.sizing() ? result : 0;
    }
    default:
        return kTagMismatch;
    }
}

}  // namespace

int ReadPriArrayItem(char *text, BACnetPriArrayItem &item, NestedParts &parts) {
    char *open = std::strchr(text, '[');
    char *close = open != nullptr ? std::strchr(open, ']') : nullptr;
    int64_t type;
    if (close != nullptr) {
        *close = '\0';
        type = TaggedType(open + 1);
        text = KillTrailLeadSpace(close + 1);
    } else {
        type = TypeOfText(text);
    }
    if (type < 0 && type != kUnknownType) return static_cast<int>(type);
    item.type = static_cast<uint32_t>(type);
    return ReadSlotValue(text, item, parts);
}

void ReleasePriArrayItems(void *items, uint32_t count) {
    ReleaseEach<BACnetPriArrayItem>(items, count, [](BACnetPriArrayItem &item) {
        if (item.type == kEmbeddedRecord) {
            ReleasePayload(item.u.contents);
            return;
        }
        const DatatypeInfo *row = FindDatatype(item.type);
        if (row != nullptr && row->release != nullptr && row->elementSize <= sizeof item.u)
            row->release(&item.u, 1);
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintPriArrayItem(char *dst, int size, const BACnetPriArrayItem *value) {
    Writer out(dst, size);
    switch (value->type) {
    case CT_NULL:
        return out.Text(NullString);
    case CT_UNSIGNED:
        return out.Format("%u", value->u.unsignedValue);
    case CT_SIGNED:
        return out.Format("%d", value->u.signedValue);
    case CT_REAL: {
        char digits[kFixedBufferSize];
        return out.Chars(digits, FormatFixed(digits, value->u.real));
    }
    case CT_DOUBLE:
        return PrintDoubleSlot(out, value->u.doubleWords);
    case CT_OCTET_STRING:
        return BACnetSPrintOctetString(dst, size, &value->u.octets);
    case CT_CHARACTER_STRING:
    case CT_OPTIONAL_CHARACTER_STRING:
        return BACnetSPrintAnyString(dst, static_cast<uint32_t>(size), &value->u.string, 0, 1);
    case CT_BIT_STRING:
        return BACnetSPrintBitString(dst, size, &value->u.bits, 0, 0);
    case CT_ENUMERATED:  // always named as a binary present value
        return out.Format("%s", BACnetBinaryPVString(value->u.unsignedValue));
    case CT_DATE:
        return BACnetSPrintDate(dst, size, &value->u.date);
    case CT_TIME:
        return BACnetSPrintTime(dst, size, &value->u.time);
    case CT_DATE_TIME:
        return BACnetSPrintDateTime(dst, size, &value->u.dateTime);
    case kEmbeddedRecord:
        return BACnetSPrintContents(dst, size, &value->u.contents, 0xFFFFFFFFu, 0, 1);
    default:
        return out.Text(UnknownString);
    }
}

extern "C" int BACnetSPrintPriArray(char *dst, int size, const BACnetPriArrayItem *sixteenItems) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] {
                            return PrintEach(out, sixteenItems, kPrioritySlots, [&](const BACnetPriArrayItem &item) {
                                return out.Put(BACnetSPrintPriArrayItem, &item);
                            });
                        },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSScanPriArrayItem(char *text, void **payload, int32_t separateLists, void **tail,
                                       int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetPriArrayItem>(elements, payload, separateLists, tail, count, sizeOnly,
                                                  ReadPriArrayItem);
}
