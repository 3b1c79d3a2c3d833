#include "constructed/extended.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <bacfmt/print.h>

#include "datatypes/release.h"
#include "datatypes/unaligned.h"
#include "scan/lexical.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kExtendedEnumKey = 83;
constexpr int kReferenceTag = 16;

int TagOf(uint32_t type) {
    return type == CT_DEV_OBJ_PROP_REFERENCE || type == CT_DEV_OBJ_PROP_VALUE ? kReferenceTag
                                                                                : static_cast<int>(type >> 4);
}

// "[tag] " and then a nested printer.
template <typename Printer, typename... Args>
int TagThen(Writer &out, int tag, Printer printer, Args... args) {
    return out.Sequence([&] { return out.Format("[%d] ", tag); }, [&] { return out.Put(printer, args...); });
}

}  // namespace

int PutExtendedValue(Writer &out, uint32_t type, const void *value, uint8_t names, uint32_t bitsProperty,
                     std::initializer_list<uint32_t> printable) {
    if (std::find(printable.begin(), printable.end(), type) == printable.end()) return 0;
    const int tag = TagOf(type);
    switch (type) {
    case CT_NULL:
        return out.Unchecked("[0] NULL");  // copied as it is, room or not
    case CT_BOOLEAN: {
        char text[1000];
        const int result = BACnetSPrintBoolean(text, sizeof text, LoadUnaligned<uint8_t>(value), names);
        return result < 0 ? result : out.Format("[%d] %s", tag, text);
    }
    case CT_UNSIGNED:
        return out.Format("[%d] %u", tag, LoadUnaligned<uint32_t>(value));
    case CT_SIGNED:
        return out.Format("[%d] %d", tag, LoadUnaligned<int32_t>(value));
    case CT_REAL: {
        char digits[kFixedBufferSize];
        digits[FormatFixed(digits, LoadUnaligned<float>(value))] = '\0';
        return out.Format("[%d] %s", tag, digits);
    }
    case CT_DOUBLE: {
        char digits[32];
        digits[FormatExponent(digits, LoadUnaligned<double>(value))] = '\0';
        return out.Format("[%d] %s", tag, digits);
    }
    case CT_BIT_STRING: {
        const auto bits = LoadUnaligned<BACnetBitString>(value);
        return TagThen(out, tag, BACnetSPrintBitString, &bits, bitsProperty, names);
    }
    case CT_OCTET_STRING: {
        const auto octets = LoadUnaligned<BACnetOctetString>(value);
        return TagThen(out, tag, BACnetSPrintOctetString, &octets);
    }
    case CT_ENUMERATED:
        return TagThen(out, tag, BACnetSPrintEnum, LoadUnaligned<uint32_t>(value), kExtendedEnumKey, names);
    case CT_DEV_OBJ_PROP_REFERENCE: {
        const auto reference = LoadUnaligned<BACnetDevObjPropReference>(value);
        return TagThen(out, tag, BACnetSPrintDevObjPropReference, &reference, int{names});
    }
    case CT_DEV_OBJ_PROP_VALUE: {
        const auto property = LoadUnaligned<BACnetDevObjPropValue>(value);
        return TagThen(out, tag, BACnetSPrintDevObjPropValue, &property, int{names});
    }
    default:
        return 0;
    }
}

int ReadExtendedValue(char *text, uint32_t &type, void *value, size_t room, NestedParts &parts,
                      const ExtendedRules &rules) {
    char *after = nullptr;
    const int tag = ParseChoice(text, -1, &after);
    if (tag < 0) return kUnsupported;
    type = tag == kReferenceTag ? rules.referenceType : static_cast<uint32_t>(tag) * 16;
    if (std::find(rules.accepted.begin(), rules.accepted.end(), type) == rules.accepted.end()) return rules.refusal;
    if (type == CT_NULL) return 0;
    return parts.InlineElement(type, KillTrailLeadSpace(after), value, room);
}

void ReleaseExtendedValue(uint32_t type, void *value) {
    if (type == CT_OCTET_STRING) {
        auto octets = LoadUnaligned<BACnetOctetString>(value);
        std::free(octets.octets);
        octets.octets = nullptr;
        StoreUnaligned(value, octets);
    }
    if (type == CT_DEV_OBJ_PROP_VALUE) {
        auto property = LoadUnaligned<BACnetDevObjPropValue>(value);
        ReleasePayload(property.value);
        StoreUnaligned(value, property);
    }
}

}  // namespace bacfmt
