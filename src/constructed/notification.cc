// Notification parameters: "[event type] " and the fields the event type
// carries, comma-separated and without enclosing brackets, for example
//   [5] 21.500000,(T,F,F,F),0.500000,20.000000     out of range
//   [13] 3,(F,F,F,F),7,[1] 12,(-,(32,1)),-          access event, no factor
// A list of several elements brackets each one: "(([0] ...),([1] ...))".
#include <cstdlib>
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/access_control.h"
#include "constructed/extended.h"
#include "constructed/field_writer.h"
#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/nested_frame.h"
#include "constructed/notification.h"
#include "datatypes/release.h"
#include "datatypes/table.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

using Parameters = BACnetNotificationParameters;
using Extended = BACnetNotificationExtendedParameter;

constexpr uint32_t kEventTypeKey = 37;
constexpr uint32_t kAnyTable = 0xFFFFFFFFu;
constexpr uint32_t kReferenceTag = 16;
constexpr uint8_t kTagged = 1;

// "(" each property value "," ... ")".
int PutPropertyValues(Writer &out, const BACnetPropertyValue *values, uint32_t count, uint8_t names) {
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] {
                            return PrintEach(out, values, count, [&](const BACnetPropertyValue &value) {
                                return out.Put(BACnetSPrintPropertyValue, &value, int{names});
                            });
                        },
                        [&] { return out.Text(RBraceString); });
}

int PutExtendedList(Writer &out, const Parameters &value, uint8_t names) {
    const auto &extended = value.u.extended;
    return out.Sequence(
        [&] { return out.Format("%u,%u,%s", extended.vendorId, extended.extendedType, LBraceString); },
        [&] {
            // The comma stays also after a parameter that printed nothing.
            for (uint32_t i = 0; extended.parameters != nullptr && i < extended.count; ++i) {
                if (i > 0 && out.Text(CommaString) < 0) return kNoRoom;
                const Extended parameter = LoadElement<Extended>(extended.parameters, i);
                const int result = PutExtendedValue(out, parameter.type, &parameter.u, names, 0, kNotificationExtendedTypes);
                if (result < 0) return result;
            }
            return 0;
        },
        [&] { return out.room() < 3 ? kNoRoom : out.Text(RBraceString); });
}

// The fields of a command failure by the datatype of its values.
int PutCommandFailure(Writer &out, Fields &fields, const Parameters &value) {
    const auto &failure = value.u.commandFailure;
    BACnetShedLevel command;
    BACnetShedLevel feedback;
    std::memcpy(&command, failure.commandValue, sizeof command);
    std::memcpy(&feedback, failure.feedbackValue, sizeof feedback);
    switch (failure.type) {
    case CT_ENUMERATED:
        return fields.Add([&] { return out.Format("[%d] ", CT_ENUMERATED >> 4); })
            .Then([&] { return out.Put(BACnetSPrintEnum, failure.commandValue[0], kAnyTable, uint8_t{0}); })
            .Flags(failure.statusFlags)
            .Enum(failure.feedbackValue[0], kAnyTable)
            .Result();
    case CT_SHED_LEVEL:
        return fields.Add([&] { return out.Format("[%d] ", static_cast<int>(kReferenceTag)); })
            .Then([&] { return out.Put(BACnetSPrintShedLevel, &command); })
            .Flags(failure.statusFlags)
            .Add([&] { return out.Put(BACnetSPrintShedLevel, &feedback); })
            .Result();
    case CT_UNSIGNED:
        return fields.Add([&] { return out.Format("[%d] %u", CT_UNSIGNED >> 4, failure.commandValue[0]); })
            .Flags(failure.statusFlags)
            .Add([&] { return out.Format("%u", failure.feedbackValue[0]); })
            .Result();
    default:
        return kUnsupported;
    }
}

int PutFactor(Writer &out, const BACnetAuthenticationFactor &factor, uint8_t names) {
    return out.Put(BACnetSPrintAuthenticationFactor, &factor, names);
}

int PutAccessEvent(Writer &out, Fields &fields, const Parameters &value, uint8_t names) {
    const auto &event = value.u.accessEvent;
    return fields.Enum(event.accessEvent, 247)
        .Flags(event.statusFlags)
        .Unsigned(event.accessEventTag)
        .Add([&] { return out.Put(BACnetSPrintTimeStamp, &event.accessEventTime); })
        .Add([&] { return out.Put(BACnetSPrintDevObjReference, &event.accessCredential, int{names}); })
        .Add([&] { return event.factorPresent != 0 ? PutFactor(out, event.factor, names) : out.Text(HyphenString); })
        .Result();
}

int PutFields(Writer &out, const Parameters &value, uint8_t names) {
    Fields fields(out, names);
    const auto &u = value.u;
    switch (value.eventType) {
    case 0:
        return fields.Bits(u.changeOfBitstring.referencedBits).Flags(u.changeOfBitstring.statusFlags).Result();
    case 1:
        return fields.Add([&] { return out.Put(BACnetSPrintPropertyStates, &u.changeOfState.newState, int{names}); })
            .Flags(u.changeOfState.statusFlags)
            .Result();
    case 2: {
        const auto &change = u.changeOfValue;
        if (change.choice > 1) return kUnsupported;
        fields.Add([&] { return out.Format("[%d] ", static_cast<int>(change.choice)); });
        if (change.choice == 0) {
            fields.Then([&] { return out.Put(BACnetSPrintBitString, &change.u.changedBits, 0u, names); });
        } else {
            fields.Then([&] { return out.Put(BACnetSPrintReal, change.u.changedValue); });
        }
        return fields.Flags(change.statusFlags).Result();
    }
    case 3:
        return PutCommandFailure(out, fields, value);
    case 4:
        return fields.Real(u.floatingLimit.referenceValue)
            .Flags(u.floatingLimit.statusFlags)
            .Real(u.floatingLimit.setpointValue)
            .Real(u.floatingLimit.errorLimit)
            .Result();
    case 5:
        return fields.Real(u.outOfRange.exceedingValue)
            .Flags(u.outOfRange.statusFlags)
            .Real(u.outOfRange.deadband)
            .Real(u.outOfRange.exceededLimit)
            .Result();
    case 6:
        return fields.Add([&] { return PutPropertyValues(out, u.complexEvent.values, u.complexEvent.count, names); })
            .Result();
    case 7:
        return fields.Add([&] { return out.Put(BACnetSPrintObjectID, &u.bufferFirst.bufferDevice, names); })
            .Add([&] { return out.Put(BACnetSPrintObjectID, &u.bufferFirst.bufferObject, names); })
            .Add([&] { return out.Put(BACnetSPrintDateTime, &u.bufferFirst.previous); })
            .Add([&] { return out.Put(BACnetSPrintDateTime, &u.bufferFirst.current); })
            .Result();
    case 8:
        return fields.Enum(u.changeOfLifeSafety.newState, 164)
            .Enum(u.changeOfLifeSafety.newMode, 160)
            .Flags(u.changeOfLifeSafety.statusFlags)
            .Enum(u.changeOfLifeSafety.operationExpected, 161)
            .Result();
    case 9:
        return fields.Add([&] { return PutExtendedList(out, value, names); }).Result();
    case 10:
        return fields.Add([&] { return out.Put(BACnetSPrintDevObjPropReference, &u.bufferReady.bufferProperty, int{names}); })
            .Unsigned(u.bufferReady.previousNotification)
            .Unsigned(u.bufferReady.currentNotification)
            .Result();
    case 11:
        return fields.Unsigned(u.unsignedRange.exceedingValue)
            .Flags(u.unsignedRange.statusFlags)
            .Unsigned(u.unsignedRange.exceededLimit)
            .Result();
    case 13:
        return PutAccessEvent(out, fields, value, names);
    case 14:
        return fields.Double(u.doubleOutOfRange.exceedingValue)
            .Flags(u.doubleOutOfRange.statusFlags)
            .Double(u.doubleOutOfRange.deadband)
            .Double(u.doubleOutOfRange.exceededLimit)
            .Result();
    case 15:
        return fields.Signed(u.signedOutOfRange.exceedingValue)
            .Flags(u.signedOutOfRange.statusFlags)
            .Signed(u.signedOutOfRange.deadband)
            .Signed(u.signedOutOfRange.exceededLimit)
            .Result();
    case 16:
        return fields.Unsigned(u.unsignedOutOfRange.exceedingValue)
            .Flags(u.unsignedOutOfRange.statusFlags)
            .Unsigned(u.unsignedOutOfRange.deadband)
            .Unsigned(u.unsignedOutOfRange.exceededLimit)
            .Result();
    case 17: {
        const auto &change = u.changeOfCharacterString;
        auto string = [&out](const BACnetCharString &text) {
            return [&out, string = &text] {
                if (out.room() <= 0) return kNoRoom;
                return out.Step(BACnetSPrintAnyString(out.at(), static_cast<uint32_t>(out.room()), string, 0, 0));
            };
        };
        return fields.Add(string(change.changedValue)).Flags(change.statusFlags).Add(string(change.alarmValue)).Result();
    }
    case 18: {
        const auto &change = u.changeOfStatusFlags;
        fields.Add([&] {
            if (change.presentValuePresent == 0) return out.Text(HyphenString);
            return out.Put(BACnetSPrintContents, &change.presentValue, kAnyTable, names, kTagged);
        });
        return fields.Bits(change.referencedFlags).Result();
    }
    case 19: {
        const auto &change = u.changeOfReliability;
        // The property values follow the flags without a comma.
        return fields.Enum(change.reliability, kAnyTable)
            .Bits(change.statusFlags)
            .Then([&] { return PutPropertyValues(out, change.values, change.count, names); })
            .Result();
    }
    default:
        return fields.Result();  // nothing after the tag
    }
}


// ---- scanning ----

constexpr int kNoFieldSet = -1;
// Fields per event type; the sizing pass does not check types 7 and 10.
constexpr int kFieldCounts[] = {2, 2, 2, 3, 4, 4, kNoFieldSet, 3, 4, 3, 3, 3, kNoFieldSet,
                                6, 4, 4, 4, 3, 2, 3};
constexpr uint32_t kEventTypes = sizeof kFieldCounts / sizeof kFieldCounts[0];
constexpr uint32_t kAccessEventScanKey = 275;

// One value of a primitive datatype into `field`, counted first.
template <typename Field>
int ReadValue(NestedParts &parts, uint32_t code, char *text, Field &field) {
    return parts.InlineElement(code, text, &field, sizeof field);
}

int ReadEnum(char *text, uint32_t key, uint32_t &value) {
    void *slot = &value;
    int32_t one = 1;
    const int result = BACnetSScanEnum(text, &slot, &one, static_cast<int32_t>(key), 0);
    return result < 0 ? result : 0;
}

int ReadDouble(NestedParts &parts, char *text, uint32_t (&words)[2]) {
    double value = 0;
    const int result = ReadValue(parts, CT_DOUBLE, text, value);
    std::memcpy(words, &value, sizeof value);
    return result;
}

// Runs the readers in order and stops at the first negative result.
template <typename... Readers>
int All(Readers &&...readers) {
    int result = 0;
    (void)(((result = readers()) >= 0) && ...);
    return result < 0 ? result : 0;
}

// A value behind an optional tag, which is skipped.
char *Untagged(char *text) {
    if (text[0] != '[') return text;
    char *close = std::strchr(text, ']');
    return close != nullptr ? KillTrailLeadSpace(close + 1) : text;
}

// "(value,...)": an array of its own; the bytes beyond one value.
int ReadPropertyValues(char *text, BACnetPropertyValue *&values, uint32_t &count, NestedParts &parts) {
    const int result = parts.ArrayAtTail(BACnetSScanPropertyValue, text, values, count);
    return result < 0 ? result : result - static_cast<int>(sizeof(BACnetPropertyValue));
}

int ReadExtendedParameter(char *text, Extended &parameter, NestedParts &parts) {
    static const ExtendedRules rules{CT_DEV_OBJ_PROP_VALUE, kNotificationExtendedTypes, kUnsupported};
    return ReadExtendedValue(text, parameter.type, &parameter.u, sizeof parameter.u, parts, rules);
}

int ScanExtendedParameters(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                           int32_t sizeOnly) {
    ElementList items(text);
    if (items.count() < 0) return kSyntaxError;
    return ScanNestedElements<Extended>(items, payload, separateLists, tail, count, sizeOnly,
                                        ReadExtendedParameter);
}

int ReadCommandFailure(char *const *part, Parameters &value, NestedParts &parts) {
    auto &failure = value.u.commandFailure;
    char *after = nullptr;
    const int tag = ParseChoice(part[0], -1, &after);
    after = KillTrailLeadSpace(after);
    char *feedback = part[2];
    int result;
    switch (tag) {
    case CT_ENUMERATED >> 4:
        failure.type = CT_ENUMERATED;
        result = All([&] { return ReadEnum(after, kAnyTable, failure.commandValue[0]); },
                     [&] { return ReadEnum(Untagged(feedback), kAnyTable, failure.feedbackValue[0]); });
        break;
    case kReferenceTag: {
        failure.type = CT_SHED_LEVEL;
        BACnetShedLevel command{};
        BACnetShedLevel back{};
        result = All([&] { return ScanOneElement(BACnetSScanShedLevel, after, command); },
                     [&] { return ScanOneElement(BACnetSScanShedLevel, feedback, back); });
        std::memcpy(failure.commandValue, &command, sizeof command);
        std::memcpy(failure.feedbackValue, &back, sizeof back);
        break;
    }
    case CT_UNSIGNED >> 4:
        failure.type = CT_UNSIGNED;
        result = All([&] { return ReadValue(parts, CT_UNSIGNED, after, failure.commandValue[0]); },
                     [&] { return ReadValue(parts, CT_UNSIGNED, Untagged(feedback), failure.feedbackValue[0]); });
        break;
    default:
        return kUnsupported;
    }
    return result < 0 ? result : ReadValue(parts, CT_BIT_STRING, part[1], failure.statusFlags);
}

// The fields of one element in the filling pass; returns what its nested
// parts add, or a negative code.
int ReadFields(char *const *part, Parameters &value, NestedParts &parts) {
    auto &u = value.u;
    auto flags = [&](char *text, BACnetBitString &bits) { return [&parts, text, &bits] { return ReadValue(parts, CT_BIT_STRING, text, bits); }; };
    auto real = [&](char *text, float &field) { return [&parts, text, &field] { return ReadValue(parts, CT_REAL, text, field); }; };
    auto whole = [&](char *text, uint32_t &field) { return [&parts, text, &field] { return ReadValue(parts, CT_UNSIGNED, text, field); }; };
    auto enumeration = [](char *text, uint32_t key, uint32_t &field) { return [text, key, &field] { return ReadEnum(text, key, field); }; };
    switch (value.eventType) {
    case 0:
        return All(flags(part[0], u.changeOfBitstring.referencedBits), flags(part[1], u.changeOfBitstring.statusFlags));
    case 1:
        return All([&] { return ScanOneElement(BACnetSScanPropertyStates, part[0], u.changeOfState.newState); },
                   flags(part[1], u.changeOfState.statusFlags));
    case 2: {
        auto &change = u.changeOfValue;
        char *after = nullptr;
        const int choice = ParseChoice(part[0], -1, &after);
        if (choice != 0 && choice != 1) return kUnsupported;
        change.choice = static_cast<uint32_t>(choice);
        after = KillTrailLeadSpace(after);
        return All([&] { return choice == 0 ? ReadValue(parts, CT_BIT_STRING, after, change.u.changedBits)
                                            : ReadValue(parts, CT_REAL, after, change.u.changedValue); },
                   flags(part[1], change.statusFlags));
    }
    case 3:
        return ReadCommandFailure(part, value, parts);
    case 4:
        return All(real(part[0], u.floatingLimit.referenceValue), flags(part[1], u.floatingLimit.statusFlags),
                   real(part[2], u.floatingLimit.setpointValue), real(part[3], u.floatingLimit.errorLimit));
    case 5:
        return All(real(part[0], u.outOfRange.exceedingValue), flags(part[1], u.outOfRange.statusFlags),
                   real(part[2], u.outOfRange.deadband), real(part[3], u.outOfRange.exceededLimit));
    case 7:  // read with the fields of a buffer ready notification, as it always was
    case 10:
        return All([&] { return ScanOneElement(BACnetSScanDevObjPropReference, part[0], u.bufferReady.bufferProperty); },
                   whole(part[1], u.bufferReady.previousNotification), whole(part[2], u.bufferReady.currentNotification));
    case 8:
        return All(enumeration(part[0], 164, u.changeOfLifeSafety.newState),
                   enumeration(part[1], 160, u.changeOfLifeSafety.newMode),
                   flags(part[2], u.changeOfLifeSafety.statusFlags),
                   enumeration(part[3], 161, u.changeOfLifeSafety.operationExpected));
    case 11:
        return All(whole(part[0], u.unsignedRange.exceedingValue), flags(part[1], u.unsignedRange.statusFlags),
                   whole(part[2], u.unsignedRange.exceededLimit));
    case 14:
        return All([&] { return ReadDouble(parts, part[0], u.doubleOutOfRange.exceedingValue); },
                   flags(part[1], u.doubleOutOfRange.statusFlags),
                   [&] { return ReadDouble(parts, part[2], u.doubleOutOfRange.deadband); },
                   [&] { return ReadDouble(parts, part[3], u.doubleOutOfRange.exceededLimit); });
    case 15:
        return All([&] { return ReadValue(parts, CT_SIGNED, part[0], u.signedOutOfRange.exceedingValue); },
                   flags(part[1], u.signedOutOfRange.statusFlags),
                   [&] { return ReadValue(parts, CT_SIGNED, part[2], u.signedOutOfRange.deadband); },
                   [&] { return ReadValue(parts, CT_SIGNED, part[3], u.signedOutOfRange.exceededLimit); });
    case 16:
        return All(whole(part[0], u.unsignedOutOfRange.exceedingValue), flags(part[1], u.unsignedOutOfRange.statusFlags),
                   whole(part[2], u.unsignedOutOfRange.deadband), whole(part[3], u.unsignedOutOfRange.exceededLimit));
    default:
        return kUnsupported;
    }
}

// The access event's name is read with another table than it prints
// with; the factor only when its field is not void.
int ReadAccessEvent(char *const *part, Parameters &value, NestedParts &parts) {
    auto &event = value.u.accessEvent;
    event.factorPresent = IsVoidString(part[5]) != 0 ? 0 : 1;
    const int factor = event.factorPresent != 0
                           ? parts.InlineElement(CT_AUTHENTICATION_FACTOR, part[5], &event.factor, sizeof event.factor)
                           : 0;
    if (factor < 0 || parts.sizing()) return factor;
    const int result =
        All([&] { return ReadEnum(part[0], kAccessEventScanKey, event.accessEvent); },
            [&] { return ReadValue(parts, CT_BIT_STRING, part[1], event.statusFlags); },
            [&] { return ReadValue(parts, CT_UNSIGNED, part[2], event.accessEventTag); },
            [&] { return ScanOneElement(BACnetSScanTimeStamp, part[3], event.accessEventTime); },
            [&] { return ScanOneElement(BACnetSScanDevObjReference, part[4], event.accessCredential); });
    return result < 0 ? result : factor;
}

void ReleaseAccessEvent(Parameters &value) {
    if (value.u.accessEvent.factorPresent != 0) ReleaseAuthenticationFactors(&value.u.accessEvent.factor, 1);
}

// What the fields with nested parts add, in both passes: a void present
// value is told by the first field when filling and by the second when
// sizing, as it always was.
int ReadNestedFields(char *const *part, Parameters &value, NestedParts &parts) {
    auto &u = value.u;
    switch (value.eventType) {
    case 9: {
        auto &extended = u.extended;
        if (!parts.sizing()) {
            const int result = All([&] { return ReadValue(parts, CT_UNSIGNED, part[0], extended.vendorId); },
                                   [&] { return ReadValue(parts, CT_UNSIGNED, part[1], extended.extendedType); });
            if (result < 0) return result;
        }
        extended.parameters = nullptr;
        extended.count = 0;
        return parts.ArrayAtTail(ScanExtendedParameters, part[2], extended.parameters, extended.count);
    }
    case 17: {
        auto &change = u.changeOfCharacterString;
        int added = ReadValue(parts, CT_CHARACTER_STRING, part[0], change.changedValue);
        if (added < 0) return added;
        if (!parts.sizing()) {
            const int result = ReadValue(parts, CT_BIT_STRING, part[1], change.statusFlags);
            if (result < 0) return result;
        }
        const int alarm = ReadValue(parts, CT_CHARACTER_STRING, part[2], change.alarmValue);
        return alarm < 0 ? alarm : added + alarm;
    }
    case 18: {
        auto &change = u.changeOfStatusFlags;
        const bool absent = IsVoidString(parts.sizing() ? part[1] : part[0]) != 0;
        change.presentValuePresent = absent ? 0 : 1;
        int added = 0;
        if (!absent) {
            change.presentValue.type = kTypeFromText;
            if ((added = parts.Value(part[0], change.presentValue)) < 0) return added;
        }
        if (!parts.sizing()) {
            const int result = ReadValue(parts, CT_BIT_STRING, part[1], change.referencedFlags);
            if (result < 0) return result;
        }
        return added;
    }
    case 19: {
        auto &change = u.changeOfReliability;
        if (!parts.sizing()) {
            const int result = All([&] { return ReadEnum(part[0], kAnyTable, change.reliability); },
                                   [&] { return ReadValue(parts, CT_BIT_STRING, part[1], change.statusFlags); });
            if (result < 0) return result;
        }
        change.values = nullptr;
        change.count = 0;
        return ReadPropertyValues(part[2], change.values, change.count, parts);
    }
    case 13:
        return ReadAccessEvent(part, value, parts);
    default:
        return parts.sizing() ? 0 : ReadFields(part, value, parts);
    }
}

int ReadElement(char *text, Parameters &value, NestedParts &parts) {
    char *after = nullptr;
    const int type = ParseChoice(text, static_cast<int32_t>(kEventTypeKey), &after);
    if (type < 0) return kUnsupported;
    value.eventType = static_cast<uint32_t>(type);
    after = KillTrailLeadSpace(after);
    if (value.eventType == 6) {
        value.u.complexEvent.values = nullptr;
        value.u.complexEvent.count = 0;
        return ReadPropertyValues(after, value.u.complexEvent.values, value.u.complexEvent.count, parts);
    }
    if (value.eventType >= kEventTypes || kFieldCounts[value.eventType] == kNoFieldSet) return kUnsupported;
    constexpr int kMostFields = 6;
    char *part[kMostFields] = {};
    ElementList fields(after);
    const bool unchecked = parts.sizing() && (value.eventType == 7 || value.eventType == 10);
    if (!unchecked && fields.count() != kFieldCounts[value.eventType]) return kSyntaxError;
    if (unchecked) return 0;
    for (int i = 0; i < fields.count() && i < kMostFields; ++i) {
        if ((part[i] = fields.Next()) == nullptr) return kSyntaxError;
        part[i] = KillTrailLeadSpace(part[i]);
    }
    return ReadNestedFields(part, value, parts);
}

}  // namespace

int ReadNotificationParameters(char *text, BACnetNotificationParameters &value, NestedParts &parts) {
    return ReadElement(text, value, parts);
}

void ReleaseNotificationParameters(void *elements, uint32_t count) {
    ReleaseEach<Parameters>(elements, count, [](Parameters &value) {
        auto &u = value.u;
        auto releaseValues = [](BACnetPropertyValue *&values, uint32_t n) {
            ReleaseArray(values, n, [](BACnetPropertyValue &v) { ReleasePayload(v.value); });
        };
        switch (value.eventType) {
        case 6:
            releaseValues(u.complexEvent.values, u.complexEvent.count);
            break;
        case 9:
            ReleaseArray(u.extended.parameters, u.extended.count,
                         [](Extended &parameter) { ReleaseExtendedValue(parameter.type, &parameter.u); });
            break;
        case 13:
            ReleaseAccessEvent(value);
            break;
        case 17:
            std::free(u.changeOfCharacterString.changedValue.chars);
            std::free(u.changeOfCharacterString.alarmValue.chars);
            u.changeOfCharacterString.changedValue.chars = nullptr;
            u.changeOfCharacterString.alarmValue.chars = nullptr;
            break;
        case 18:
            if (u.changeOfStatusFlags.presentValuePresent != 0) ReleasePayload(u.changeOfStatusFlags.presentValue);
            break;
        case 19:
            releaseValues(u.changeOfReliability.values, u.changeOfReliability.count);
            break;
        default:
            break;
        }
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintNotificationParameters(char *dst, int size,
                                                  const BACnetNotificationParameters *value,
                                                  uint8_t symbolic) {
    Writer out(dst, size);
    const int tag = out.Format("[%d] ", static_cast<int>(value->eventType));
    if (tag < 0) return tag;
    return PutFields(out, *value, symbolic);
}

// One element when the text starts with its tag (the caller's expected
// count is then not checked), else a list of bracketed elements.
extern "C" int BACnetSScanNotificationParameters(char *text, void **payload, int32_t separateLists,
                                                 void **tail, int32_t *count, int32_t sizeOnly) {
    text = KillTrailLeadSpace(text);
    if (text == nullptr) return kSyntaxError;
    if (text[0] == '[') {
        SingleElement one(text);
        *count = 0;
        return ScanNestedElements<BACnetNotificationParameters>(one, payload, separateLists, tail, count,
                                                                sizeOnly, ReadNotificationParameters);
    }
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetNotificationParameters>(elements, payload, separateLists, tail, count,
                                                            sizeOnly, ReadNotificationParameters);
}
