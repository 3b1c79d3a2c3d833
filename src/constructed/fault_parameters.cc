// Fault parameters: "[fault type] " and the algorithm's settings, e.g.
//   [1] ("no signal","overload")                fault character string
//   [3] ((1,2),((0,1),87,-,-))                  fault life safety
//   [5] ((0,1),111,-,-)                         fault status flags
#include <cstdlib>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/event_parameters.h"
#include "constructed/extended.h"
#include "constructed/fields.h"
#include "constructed/nested_frame.h"
#include "datatypes/release.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

using Parameter = BACnetFaultParameter;

constexpr uint32_t kFaultTypeKey = 359;
constexpr uint32_t kLifeSafetyKey = 166;
constexpr int kExtendedListCount = 32 * static_cast<int>(sizeof(uint32_t));

// "(" and the like where the contract asks for three characters of room.
int WithRoom(Writer &out, const char *text) {
    if (out.room() < 3) return kNoRoom;
    return out.Text(text);
}

template <typename Element, typename PutOne>
int PutItems(Writer &out, const Element *items, uint32_t count, PutOne putOne) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
        if (i > 0 && out.Text(CommaString) < 0) return kNoRoom;
        const int result = putOne(LoadElement<Element>(items, i));
        if (result < 0) return result;
    }
    return 0;
}

int PutFields(Writer &out, const Parameter &value, uint8_t names) {
    const auto &u = value.u;
    switch (value.faultType) {
    case 1:
        return out.Put(BACnetSPrintStringList, u.characterString.strings, u.characterString.count);
    case 2: {
        const auto &extended = u.extended;
        return out.Sequence(
            [&] { return WithRoom(out, LBraceString); },
            [&] { return out.Put(BACnetSPrintUnsigned, extended.vendorId); },
            [&] { return out.Text(CommaString); },
            [&] { return out.Put(BACnetSPrintUnsigned, extended.extendedType); },
            [&] { return out.Text(CommaString); },
            [&] { return WithRoom(out, LBraceString); },
            [&] {
                return PutItems(out, extended.parameters, extended.count, [&](const BACnetExtendedParameter &parameter) {
                    return PutExtendedValue(out, parameter.type, &parameter.u, names, 0, kEventExtendedTypes);
                });
            },
            [&] { return WithRoom(out, "))"); });
    }
    case 3: {
        const auto &safety = u.lifeSafety;
        char reference[1000];
        const int result = BACnetSPrintDevObjPropReference(reference, sizeof reference, &safety.mode, names);
        if (result < 0) return result;
        return out.Sequence([&] { return out.Format("%s%s", LBraceString, LBraceString); },
                            [&] {
                                return PutItems(out, safety.values, safety.count, [&](uint32_t item) {
                                    return out.Put(BACnetSPrintEnum, item, kLifeSafetyKey, names);
                                });
                            },
                            [&] { return out.Format("%s,%s%s", RBraceString, reference, RBraceString); });
    }
    case 4: {
        const auto &state = u.state;
        return out.Sequence([&] { return out.Text(LBraceString); },
                            [&] {
                                return PutItems(out, state.values, state.count, [&](const BACnetPropertyStates &item) {
                                    return out.Put(BACnetSPrintPropertyStates, &item, int{names});
                                });
                            },
                            [&] { return WithRoom(out, RBraceString); });
    }
    case 5:
        return out.Put(BACnetSPrintDevObjPropReference, &u.statusFlags, int{names});
    default:
        return 0;  // the tag alone
    }
}

int ReadExtendedParameter(char *text, BACnetExtendedParameter &parameter, NestedParts &parts) {
    // An unknown datatype is a syntax error here, not an unsupported value;
    // the sizing pass counts a character string that the filling pass
    // refuses.
    static const ExtendedRules filling{CT_DEV_OBJ_PROP_REFERENCE, kEventExtendedTypes, kSyntaxError};
    static const ExtendedRules sizing{CT_DEV_OBJ_PROP_REFERENCE,
                                      {CT_NULL, CT_BOOLEAN, CT_UNSIGNED, CT_REAL, CT_DOUBLE, CT_OCTET_STRING,
                                       CT_CHARACTER_STRING, CT_BIT_STRING, CT_ENUMERATED, CT_DEV_OBJ_PROP_REFERENCE},
                                      kSyntaxError};
    return ReadExtendedValue(text, parameter.type, &parameter.u, sizeof parameter.u, parts,
                             parts.sizing() ? sizing : filling);
}

int ScanExtendedParameters(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                           int32_t sizeOnly) {
    ElementList items(text);
    if (items.count() < 0) return kUnsupported;
    return ScanNestedElements<BACnetExtendedParameter>(items, payload, separateLists, tail, count, sizeOnly,
                                                       ReadExtendedParameter);
}

// Exactly `n` trimmed fields of `text`.
template <size_t N>
bool Fields(char *text, char *(&field)[N]) {
    return SplitParts(text, field);
}

}  // namespace

int ReadFaultParameter(char *text, BACnetFaultParameter &value, NestedParts &parts) {
    char *after = nullptr;
    const int type = ParseChoice(text, static_cast<int32_t>(kFaultTypeKey), &after);
    if (type < 0) return kUnsupported;
    value.faultType = static_cast<uint32_t>(type);
    after = KillTrailLeadSpace(after);
    auto &u = value.u;
    switch (value.faultType) {
    case 0:
    case 5:
        if (parts.sizing()) return 0;  // the sizing pass takes type 0, the filling pass does not
        if (value.faultType == 0) return kUnsupported;
        return ScanOneElement(BACnetSScanDevObjPropReference, after, u.statusFlags);
    case 1:
        return parts.ArrayAtTail(BACnetSScanString, after, u.characterString.strings, u.characterString.count);
    case 2: {
        auto &extended = u.extended;
        char *field[3];
        if (!Fields(after, field)) return kSyntaxError;
        if (!parts.sizing()) {
            int result = parts.InlineElement(CT_UNSIGNED, field[0], &extended.vendorId, sizeof extended.vendorId);
            if (result < 0 || (result = parts.InlineElement(CT_UNSIGNED, field[1], &extended.extendedType,
                                                            sizeof extended.extendedType)) < 0)
                return result;
        }
        const int list = parts.ArrayAtTail(ScanExtendedParameters, field[2], extended.parameters, extended.count);
        return list < 0 || parts.sizing() ? list : kExtendedListCount;
    }
    case 3: {
        auto &safety = u.lifeSafety;
        char *field[2];
        if (!Fields(after, field)) return kSyntaxError;
        const int list = parts.ArrayAtTail(ScanEnumItems<kLifeSafetyKey>, field[0], safety.values, safety.count);
        if (list < 0 || parts.sizing()) return list;
        const int reference = ScanOneElement(BACnetSScanDevObjPropReference, field[1], safety.mode);
        return reference < 0 ? reference : list;
    }
    case 4:
        return parts.ArrayAtTail(BACnetSScanPropertyStates, after, u.state.values, u.state.count);
    default:
        return kUnsupported;
    }
}

void ReleaseFaultParameters(void *elements, uint32_t count) {
    ReleaseEach<Parameter>(elements, count, [](Parameter &value) {
        auto &u = value.u;
        switch (value.faultType) {
        case 1:
            ReleaseArray(u.characterString.strings, u.characterString.count, [](BACnetCharString &string) {
                std::free(string.chars);
                string.chars = nullptr;
            });
            break;
        case 2:
            ReleaseArray(u.extended.parameters, u.extended.count, [](BACnetExtendedParameter &parameter) {
                ReleaseExtendedValue(parameter.type, &parameter.u);
            });
            break;
        case 3:
            std::free(u.lifeSafety.values);
            u.lifeSafety.values = nullptr;
            break;
        case 4:
            std::free(u.state.values);
            u.state.values = nullptr;
            break;
        default:
            break;
        }
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintFaultParameter(char *dst, int size, const BACnetFaultParameter *value, uint8_t symbolic) {
    Writer out(dst, size);
    const int tag = out.Format("[%d] ", static_cast<int>(value->faultType));
    if (tag < 0) return tag;
    const int result = PutFields(out, *value, symbolic);
    return result < 0 ? result : out.used();
}

extern "C" int BACnetSScanFaultParameter(char *text, void **payload, int32_t separateLists, void **tail,
                                         int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetFaultParameter>(elements, payload, separateLists, tail, count, sizeOnly,
                                                    ReadFaultParameter);
}
