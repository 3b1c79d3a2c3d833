// Event parameters: "[event type] (" the algorithm's settings ")", e.g.
//   [5] (30,15.000000,28.000000,0.500000)       out of range
//   [1] (30,([1] 1))                           change of state
//   [9] (7,1,([2] 5,[4] 1.500000))             extended
// Nested values keep their own notations (bit strings, references,
// property states, enumeration and string lists).
#include <cstdlib>
#include <cstring>

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

using Parameter = BACnetEventParameter;

constexpr uint32_t kEventTypeKey = 37;
constexpr uint32_t kLifeSafetyKey = 166;
constexpr uint32_t kAccessEventPrintKey = 272;
constexpr uint32_t kAccessEventScanKey = 247;
// The filling pass counts an extended list as 32 times the size of the
// unsigned value read before it, whatever the list holds.
constexpr int kExtendedListCount = 32 * static_cast<int>(sizeof(uint32_t));
constexpr int kNestedScratch = 1000;

// ---- printing ----

// A nested value printed aside, for a format that inserts it as "%s".
struct Aside {
    char text[kNestedScratch];
    int result;
    template <typename Printer, typename... Args>
    explicit Aside(Printer printer, Args... args) : result(printer(text, sizeof text, args...)) {}
};

// The items of a list, each followed by "," when another follows.
template <typename Element, typename PutOne>
int PutItems(Writer &out, const Element *items, uint32_t count, PutOne putOne) {
    for (uint32_t i = 0; items != nullptr && i < count; ++i) {
        const int result = putOne(LoadElement<Element>(items, i));
        if (result < 0) return result;
        if (i + 1 < count && out.Text(CommaString) < 0) return kNoRoom;
    }
    return 0;
}

// "))" after a list, with room for three characters.
int CloseTwice(Writer &out) {
    if (out.room() < 3) return kNoRoom;
    return out.Unchecked("))");
}

// "%f" of a value, as text to insert.
const char *Fixed(char (&digits)[kFixedBufferSize], double value) {
    digits[FormatFixed(digits, value)] = '\0';
    return digits;
}

int PutFields(Writer &out, const Parameter &value, uint32_t propertyId, uint8_t names) {
    const auto &u = value.u;
    const char *open = LBraceString;
    const char *close = RBraceString;
    switch (value.eventType) {
    case 0: {
        const auto &change = u.changeOfBitstring;
        const Aside bitmask(BACnetSPrintBitString, &change.bitmask, propertyId, names);
        if (bitmask.result < 0) return bitmask.result;
        return out.Sequence([&] { return out.Format("%s%u,%s,%s", open, change.timeDelay, bitmask.text, open); },
                            [&] {
                                return PutItems(out, change.values, change.count, [&](const BACnetBitString &bits) {
                                    return out.Put(BACnetSPrintBitString, &bits, propertyId, names);
                                });
                            },
                            [&] { return CloseTwice(out); });
    }
    case 1: {
        const auto &change = u.changeOfState;
        return out.Sequence([&] { return out.Format("%s%u,%s", open, change.timeDelay, open); },
                            [&] {
                                return PutItems(out, change.values, change.count, [&](const BACnetPropertyStates &state) {
                                    return out.Put(BACnetSPrintPropertyStates, &state, int{names});
                                });
                            },
                            [&] { return CloseTwice(out); });
    }
    case 2: {
        const auto &change = u.changeOfValue;
        const int choice = static_cast<int>(change.choice);
        if (change.choice == 0) {
            const Aside bitmask(BACnetSPrintBitString, &change.u.bitmask, propertyId, names);
            if (bitmask.result < 0) return bitmask.result;
            return out.Format("%s%u,[%d] %s%s", open, change.timeDelay, choice, bitmask.text, close);
        }
        if (change.choice == 1) {
            char digits[kFixedBufferSize];
            return out.Format("%s%u,[%d] %s%s", open, change.timeDelay, choice, Fixed(digits, change.u.increment), close);
        }
        return out.Format("%s%u,[%d] %s%s", open, change.timeDelay, choice, UnknownString, close);
    }
    case 3:
        return out.Sequence([&] { return out.Format("%s%u,", open, u.commandFailure.timeDelay); },
                            [&] { return out.Put(BACnetSPrintDevObjPropReference, &u.commandFailure.feedback, int{names}); },
                            [&] { return out.Text(close); });
    case 4: {
        const auto &limit = u.floatingLimit;
        const Aside setpoint(BACnetSPrintDevObjPropReference, &limit.setpoint, int{names});
        if (setpoint.result < 0) return setpoint.result;
        char low[kFixedBufferSize], high[kFixedBufferSize], deadband[kFixedBufferSize];
        return out.Format("%s%u,%s,%s,%s,%s%s", open, limit.timeDelay, setpoint.text, Fixed(low, limit.lowDiffLimit),
                          Fixed(high, limit.highDiffLimit), Fixed(deadband, limit.deadband), close);
    }
    case 5: {
        const auto &range = u.outOfRange;
        char low[kFixedBufferSize], high[kFixedBufferSize], deadband[kFixedBufferSize];
        return out.Format("%s%u,%s,%s,%s%s", open, range.timeDelay, Fixed(low, range.lowLimit),
                          Fixed(high, range.highLimit), Fixed(deadband, range.deadband), close);
    }
    case 7:
    case 10:
        return out.Format("%s%u,%u%s", open, u.bufferReady.threshold, u.bufferReady.previousCount, close);
    case 8: {
        const auto &change = u.changeOfLifeSafety;
        const Aside mode(BACnetSPrintDevObjPropReference, &change.mode, int{names});
        if (mode.result < 0) return mode.result;
        auto values = [&](const uint32_t *items, uint32_t count) {
            return PutItems(out, items, count, [&](uint32_t item) {
                return out.Put(BACnetSPrintEnum, item, kLifeSafetyKey, names);
            });
        };
        return out.Sequence([&] { return out.Format("%s%u,%s", open, change.timeDelay, open); },
                            [&] { return values(change.lifeSafetyValues, change.lifeSafetyCount); },
                            [&] { return out.Format("%s,%s", close, open); },
                            [&] { return values(change.alarmValues, change.alarmCount); },
                            [&] { return out.Format("%s,%s%s", close, mode.text, close); });
    }
    case 9: {
        const auto &extended = u.extended;
        return out.Sequence(
            [&] { return out.Format("%s%u,%u,%s", open, extended.vendorId, extended.extendedType, open); },
            [&] {
                // A value without a form prints nothing, its comma stays.
                return PutItems(out, extended.parameters, extended.count, [&](const BACnetExtendedParameter &parameter) {
                    return PutExtendedValue(out, parameter.type, &parameter.u, names, propertyId, kEventExtendedTypes);
                });
            },
            [&] { return CloseTwice(out); });
    }
    case 11:
        return out.Format("%s%u,%u,%u%s", open, u.unsignedRange.timeDelay, u.unsignedRange.lowLimit,
                          u.unsignedRange.highLimit, close);
    case 13: {
        const auto &event = u.accessEvent;
        return out.Sequence(
            [&] { return out.Text(open); },
            [&] { return out.Put(BACnetSPrintEnumList, event.accessEvents, event.count, kAccessEventPrintKey, names); },
            [&] { return out.Text(CommaString); },
            [&] { return out.Put(BACnetSPrintDevObjPropReference, &event.timeReference, int{names}); },
            [&] { return out.Unchecked(close); });
    }
    case 14: {
        const auto &range = u.doubleOutOfRange;
        double low, high, deadband;
        std::memcpy(&low, range.lowLimit, sizeof low);
        std::memcpy(&high, range.highLimit, sizeof high);
        std::memcpy(&deadband, range.deadband, sizeof deadband);
        char lowText[kFixedBufferSize], highText[kFixedBufferSize], deadbandText[kFixedBufferSize];
        return out.Format("%s%u,%s,%s,%s%s", open, range.timeDelay, Fixed(lowText, low),
                          Fixed(highText, high), Fixed(deadbandText, deadband), close);
    }
    case 15:
        return out.Format("%s%u,%d,%d,%d%s", open, u.signedOutOfRange.timeDelay, u.signedOutOfRange.lowLimit,
                          u.signedOutOfRange.highLimit, u.signedOutOfRange.deadband, close);
    case 16:
        return out.Format("%s%u,%u,%u,%u%s", open, u.unsignedOutOfRange.timeDelay, u.unsignedOutOfRange.lowLimit,
                          u.unsignedOutOfRange.highLimit, u.unsignedOutOfRange.deadband, close);
    case 17:
        return out.Sequence(
            [&] { return out.Format("%s%u,", open, u.changeOfCharacterString.timeDelay); },
            [&] { return out.Put(BACnetSPrintStringList, u.changeOfCharacterString.strings, u.changeOfCharacterString.count); },
            [&] { return out.Unchecked(close); });
    case 18:
        return out.Sequence(
            [&] { return out.Format("%s%u,", open, u.changeOfStatusFlags.timeDelay); },
            [&] { return out.Put(BACnetSPrintBitString, &u.changeOfStatusFlags.selectedFlags, propertyId, names); },
            [&] { return out.Unchecked(close); });
    default:
        return 0;  // the tag alone
    }
}

// ---- scanning ----

constexpr int kNoFields = -1;
constexpr int kFieldCounts[] = {3, 2, 2, 2, 5, 4, kNoFields, 2, 4, 3, 2, 3, kNoFields, 2, 4, 4, 4, 2, 2};
constexpr uint32_t kEventTypes = sizeof kFieldCounts / sizeof kFieldCounts[0];

// The bit strings of a list, any number of bits each.
int ScanBitStrings(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return BACnetSScanBitString(text, payload, count, nullptr, sizeOnly);
}

template <typename Field>
int ReadValue(NestedParts &parts, uint32_t code, char *text, Field &field) {
    return parts.sizing() ? 0 : parts.InlineElement(code, text, &field, sizeof field);
}

int ReadReference(NestedParts &parts, char *text, BACnetDevObjPropReference &reference) {
    return parts.sizing() ? 0 : ScanOneElement(BACnetSScanDevObjPropReference, text, reference);
}

int ReadDouble(NestedParts &parts, char *text, uint32_t (&words)[2]) {
    double value = 0;
    const int result = ReadValue(parts, CT_DOUBLE, text, value);
    std::memcpy(words, &value, sizeof value);
    return result;
}

// Runs the readers in order; the first negative result ends it.
template <typename... Readers>
int All(Readers &&...readers) {
    int result = 0;
    (void)(((result = readers()) >= 0) && ...);
    return result < 0 ? result : 0;
}

// The fields of one element: returns what the element's lists add (as each
// pass counts them), or a negative code.
int ReadFields(char *const *part, Parameter &value, NestedParts &parts) {
    auto &u = value.u;
    auto whole = [&](char *text, uint32_t &field) { return [&parts, text, &field] { return ReadValue(parts, CT_UNSIGNED, text, field); }; };
    auto real = [&](char *text, float &field) { return [&parts, text, &field] { return ReadValue(parts, CT_REAL, text, field); }; };
    auto whole3 = [&](uint32_t &a, uint32_t &b, uint32_t &c) {
        return All(whole(part[0], a), whole(part[1], b), whole(part[2], c));
    };
    switch (value.eventType) {
    case 0: {
        auto &change = u.changeOfBitstring;
        const int fields = All(whole(part[0], change.timeDelay), [&] { return ReadValue(parts, CT_BIT_STRING, part[1], change.bitmask); });
        return fields < 0 ? fields : parts.ArrayAtTail(ScanBitStrings, part[2], change.values, change.count);
    }
    case 1: {
        auto &change = u.changeOfState;
        const int fields = ReadValue(parts, CT_UNSIGNED, part[0], change.timeDelay);
        return fields < 0 ? fields : parts.ArrayAtTail(BACnetSScanPropertyStates, part[1], change.values, change.count);
    }
    case 2: {
        auto &change = u.changeOfValue;
        char *after = nullptr;
        const int choice = ParseChoice(part[1], -1, &after);
        if (choice != 0 && choice != 1) return kUnsupported;
        change.choice = static_cast<uint32_t>(choice);
        after = KillTrailLeadSpace(after);
        return All(whole(part[0], change.timeDelay), [&] {
            return choice == 0 ? ReadValue(parts, CT_BIT_STRING, after, change.u.bitmask)
                               : ReadValue(parts, CT_REAL, after, change.u.increment);
        });
    }
    case 3:
        return All(whole(part[0], u.commandFailure.timeDelay), [&] { return ReadReference(parts, part[1], u.commandFailure.feedback); });
    case 4: {
        auto &limit = u.floatingLimit;
        return All(whole(part[0], limit.timeDelay), [&] { return ReadReference(parts, part[1], limit.setpoint); },
                   real(part[2], limit.lowDiffLimit), real(part[3], limit.highDiffLimit), real(part[4], limit.deadband));
    }
    case 5:
        return All(whole(part[0], u.outOfRange.timeDelay), real(part[1], u.outOfRange.lowLimit),
                   real(part[2], u.outOfRange.highLimit), real(part[3], u.outOfRange.deadband));
    case 7:
    case 10:
        return All(whole(part[0], u.bufferReady.threshold), whole(part[1], u.bufferReady.previousCount));
    case 8: {
        auto &change = u.changeOfLifeSafety;
        int result = ReadValue(parts, CT_UNSIGNED, part[0], change.timeDelay);
        if (result < 0) return result;
        const int first = parts.ArrayAtTail(ScanEnumItems<kLifeSafetyKey>, part[1], change.lifeSafetyValues, change.lifeSafetyCount);
        if (first < 0) return first;
        const int second = parts.ArrayAtTail(ScanEnumItems<kLifeSafetyKey>, part[2], change.alarmValues, change.alarmCount);
        if (second < 0) return second;
        result = ReadReference(parts, part[3], change.mode);
        return result < 0 ? result : first + second;
    }
    case 9: {
        auto &extended = u.extended;
        const int fields = All(whole(part[0], extended.vendorId), whole(part[1], extended.extendedType));
        if (fields < 0) return fields;
        const int list = parts.ArrayAtTail(ScanEventExtendedParameters, part[2], extended.parameters, extended.count);
        return list < 0 || parts.sizing() ? list : kExtendedListCount;
    }
    case 11:
        return whole3(u.unsignedRange.timeDelay, u.unsignedRange.lowLimit, u.unsignedRange.highLimit);
    case 13: {
        auto &event = u.accessEvent;
        const int list = parts.ArrayAtTail(ScanEnumItems<kAccessEventScanKey>, part[0], event.accessEvents, event.count);
        if (list < 0) return list;
        const int reference = ReadReference(parts, part[1], event.timeReference);
        return reference < 0 ? reference : list;
    }
    case 14: {
        auto &range = u.doubleOutOfRange;
        return All(whole(part[0], range.timeDelay), [&] { return ReadDouble(parts, part[1], range.lowLimit); },
                   [&] { return ReadDouble(parts, part[2], range.highLimit); },
                   [&] { return ReadDouble(parts, part[3], range.deadband); });
    }
    case 15: {
        auto &range = u.signedOutOfRange;
        return All(whole(part[0], range.timeDelay), [&] { return ReadValue(parts, CT_SIGNED, part[1], range.lowLimit); },
                   [&] { return ReadValue(parts, CT_SIGNED, part[2], range.highLimit); },
                   [&] { return ReadValue(parts, CT_SIGNED, part[3], range.deadband); });
    }
    case 16: {
        auto &range = u.unsignedOutOfRange;
        return All(whole(part[0], range.timeDelay), whole(part[1], range.lowLimit), whole(part[2], range.highLimit),
                   whole(part[3], range.deadband));
    }
    case 17: {
        // The filling pass does not count the strings.
        auto &change = u.changeOfCharacterString;
        const int fields = ReadValue(parts, CT_UNSIGNED, part[0], change.timeDelay);
        if (fields < 0) return fields;
        const int list = parts.ArrayAtTail(BACnetSScanString, part[1], change.strings, change.count);
        return list < 0 || parts.sizing() ? list : 0;
    }
    case 18:
        return All(whole(part[0], u.changeOfStatusFlags.timeDelay),
                   [&] { return ReadValue(parts, CT_BIT_STRING, part[1], u.changeOfStatusFlags.selectedFlags); });
    default:
        return kUnsupported;
    }
}

}  // namespace

int ReadEventExtendedParameter(char *text, BACnetExtendedParameter &parameter, NestedParts &parts) {
    static const ExtendedRules rules{CT_DEV_OBJ_PROP_REFERENCE, kEventExtendedTypes, kUnsupported};
    return ReadExtendedValue(text, parameter.type, &parameter.u, sizeof parameter.u, parts, rules);
}

int ScanEventExtendedParameters(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                           int32_t sizeOnly) {
    ElementList items(text);
    if (items.count() < 0) return kUnsupported;  // a list that does not split
    return ScanNestedElements<BACnetExtendedParameter>(items, payload, separateLists, tail, count, sizeOnly,
                                                       ReadEventExtendedParameter);
}

int ReadEventParameter(char *text, BACnetEventParameter &value, NestedParts &parts) {
    char *after = nullptr;
    const int type = ParseChoice(text, static_cast<int32_t>(kEventTypeKey), &after);
    if (type < 0) return kUnsupported;
    value.eventType = static_cast<uint32_t>(type);
    if (value.eventType >= kEventTypes || kFieldCounts[value.eventType] == kNoFields) return kUnsupported;
    constexpr int kMostFields = 5;
    char *part[kMostFields] = {};
    ElementList fields(KillTrailLeadSpace(after));
    if (fields.count() != kFieldCounts[value.eventType]) return kSyntaxError;
    for (int i = 0; i < fields.count(); ++i) {
        if ((part[i] = fields.Next()) == nullptr) return kSyntaxError;
        part[i] = KillTrailLeadSpace(part[i]);
    }
    return ReadFields(part, value, parts);
}

void ReleaseEventParameters(void *elements, uint32_t count) {
    auto plain = [](auto *&items) {
        std::free(items);
        items = nullptr;
    };
    ReleaseEach<Parameter>(elements, count, [&](Parameter &value) {
        auto &u = value.u;
        switch (value.eventType) {
        case 0: plain(u.changeOfBitstring.values); break;
        case 1: plain(u.changeOfState.values); break;
        case 8:
            plain(u.changeOfLifeSafety.lifeSafetyValues);
            plain(u.changeOfLifeSafety.alarmValues);
            break;
        case 9:
            ReleaseArray(u.extended.parameters, u.extended.count, [](BACnetExtendedParameter &parameter) {
                ReleaseExtendedValue(parameter.type, &parameter.u);
            });
            break;
        case 13: plain(u.accessEvent.accessEvents); break;
        case 17:
            ReleaseArray(u.changeOfCharacterString.strings, u.changeOfCharacterString.count, [](BACnetCharString &string) {
                std::free(string.chars);
                string.chars = nullptr;
            });
            break;
        default: break;
        }
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintEventParameter(char *dst, int size, const BACnetEventParameter *value,
                                          uint32_t propertyId, uint8_t symbolic) {
    Writer out(dst, size);
    const int tag = out.Format("[%d] ", static_cast<int>(value->eventType));
    if (tag < 0) return tag;
    const int result = PutFields(out, *value, propertyId, symbolic);
    return result < 0 ? result : out.used();
}

extern "C" int BACnetSScanEventParameter(char *text, void **payload, int32_t separateLists, void **tail,
                                         int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetEventParameter>(elements, payload, separateLists, tail, count, sizeOnly,
                                                    ReadEventParameter);
}
