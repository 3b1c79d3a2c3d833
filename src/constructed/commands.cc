// Commands and their actions:
//   action command  "(" device|- "," object "," property "," index|- ","
//                   value "," priority|- "," post-delay|- "," quit "," written ")"
//   action list     "(" commands ")"
//   lighting        "(" operation "," target "," ramp "," step "," fade ","
//                   priority ")", "-" for a field that is not present
//   channel value   "[tag] " value, the value carrying its datatype
#include <cstdlib>
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/commands.h"
#include "constructed/fields.h"
#include "constructed/nested_frame.h"
#include "datatypes/release.h"
#include "datatypes/table.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

// The command's value prints under the "action" property, whatever
// property the command writes.
constexpr uint32_t kPropertyAction = 2;
constexpr uint32_t kPropertyLightingCommand = 380;
constexpr int kCommandFields = 9;
constexpr int kCommandFieldsWithoutWritten = 8;

bool IsAbsent(const char *field) { return std::strcmp(field, HyphenString) == 0; }

// A piece of one character needs it and the terminator.
int Mark(Writer &out, const char *mark) { return out.Text(mark); }


// "-" or the number, setting `bit` of `present` when there is a number.
template <typename Number, typename Convert>
void ReadOptional(char *text, uint32_t &present, uint32_t bit, Number &value, Convert convert) {
    if (IsAbsent(text)) return;
    present |= bit;
    value = convert(text);
}

// Counts the top-level parts of `text` without cutting it.
int PartCount(const char *text) {
    char *copy = strdup(text);
    if (copy == nullptr) return -2;
    const int count = ParseElement(copy, nullptr, nullptr);
    std::free(copy);
    return count;
}

// Whether `text` is one command written bare (its own fields at the top
// level) rather than a list of commands: its first field is a device
// ("-" or an identifier's two parts), not a command of nine.
bool IsBareCommand(const char *text) {
    const int fields = PartCount(text);
    if (fields != kCommandFields && fields != kCommandFieldsWithoutWritten) return false;
    char *copy = strdup(text);
    if (copy == nullptr) return false;
    ElementList list(copy);
    const int firstParts = list.count() > 0 ? PartCount(list.first()) : 0;
    std::free(copy);
    return firstParts < kCommandFieldsWithoutWritten;
}

}  // namespace

int ReadActionCommand(char *text, BACnetActionCommand &command, NestedParts &parts) {
    ElementList list(text);
    if (list.count() != kCommandFields && list.count() != kCommandFieldsWithoutWritten)
        return kSyntaxError;
    char *field[kCommandFields] = {};
    for (int i = 0; i < list.count(); ++i)
        if ((field[i] = list.Next()) == nullptr) return kSyntaxError;
    for (char *&f : field)
        if (f != nullptr) f = KillTrailLeadSpace(f);

    int result = 0;
    command.present = 0;
    if (!IsAbsent(field[0])) {
        command.present |= BACNET_ACTION_DEVICE_PRESENT;
        if ((result = ScanOneElement(BACnetSScanObjectID, field[0], command.device)) < 0) return result;
    }
    if ((result = ScanOneElement(BACnetSScanObjectID, field[1], command.object)) < 0) return result;
    if ((result = ReadPropertyIdentifier(field[2], command.propertyId)) < 0) return result;
    if (IsVoidString(field[3]) != 0)
        command.arrayIndex = BACNET_ABSENT_U32;
    else if (IsDecimalDigit(field[3][0]))
        command.arrayIndex = TextToUnsigned(field[3], 10);
    else
        return kTagMismatch;  // an index that is neither void nor a number

    command.value.type = 0xFFFFFFFFu;  // the value's text says its type
    const int valueBytes = parts.Value(field[4], command.value);
    if (valueBytes < 0) return valueBytes;

    command.priority = IsVoidString(field[5]) != 0 ? BACNET_ABSENT_U32 : TextToUnsigned(field[5], 10);
    ReadOptional(field[6], command.present, BACNET_ACTION_POST_DELAY_PRESENT, command.postDelay,
                 [](char *t) { return TextToUnsigned(t, 10); });
    if ((result = ReadBooleanField(field[7], command.quitOnFailure)) < 0) return result;
    command.writeSuccessful = 0;
    if (field[8] != nullptr && (result = ReadBooleanField(field[8], command.writeSuccessful)) < 0)
        return result;
    return valueBytes;
}

int ReadActionList(char *text, BACnetActionList &list, NestedParts &parts) {
    return parts.ArrayAtTail(BACnetSScanActionList, text, list.commands, list.count);
}

int ReadLightingCommand(char *text, BACnetLightingCommand &command) {
    ElementList list(text);
    if (list.count() != 6) return kSyntaxError;
    char *field[6];
    for (char *&f : field) {
        if ((f = list.Next()) == nullptr) return kSyntaxError;
        f = KillTrailLeadSpace(f);
    }
    void *slot = &command.operation;
    int32_t one = 1;
    const int result = BACnetSScanEnum(field[0], &slot, &one, kPropertyLightingCommand, 0);
    if (result < 0) return result;
    command.present = 0;
    auto real = [](char *t) { return static_cast<float>(TextToDouble(t)); };
    auto whole = [](char *t) { return TextToUnsigned(t, 10); };
    ReadOptional(field[1], command.present, BACNET_LIGHTING_TARGET_LEVEL, command.targetLevel, real);
    ReadOptional(field[2], command.present, BACNET_LIGHTING_RAMP_RATE, command.rampRate, real);
    ReadOptional(field[3], command.present, BACNET_LIGHTING_STEP_INCREMENT, command.stepIncrement, real);
    ReadOptional(field[4], command.present, BACNET_LIGHTING_FADE_TIME, command.fadeTime, whole);
    ReadOptional(field[5], command.present, BACNET_LIGHTING_PRIORITY, command.priority, whole);
    return 0;
}

int ReadChannelValue(char *text, BACnetChannelValue &value, NestedParts &parts) {
    char *after = nullptr;
    const int tag = ParseChoice(text, -1, &after);
    if (tag < 0) return kSyntaxError;
    value.type = tag < 16 ? static_cast<uint32_t>(tag) * 16u : static_cast<uint32_t>(tag);
    return parts.InlineElement(value.type, KillTrailLeadSpace(after), &value.u, sizeof value.u);
}

void ReleaseActionLists(void *lists, uint32_t count) {
    ReleaseEach<BACnetActionList>(lists, count, [](BACnetActionList &list) {
        ReleaseArray(list.commands, list.count,
                     [](BACnetActionCommand &command) { ReleasePayload(command.value); });
    });
}

void ReleaseChannelValues(void *values, uint32_t count) {
    ReleaseEach<BACnetChannelValue>(values, count, [](BACnetChannelValue &value) {
        // A failed scan leaves the code its text chose, which may name an
        // element larger than the union: the scanner stored nothing then.
        const DatatypeInfo *row = FindDatatype(value.type);
        if (row != nullptr && row->release != nullptr && row->elementSize <= sizeof value.u)
            row->release(&value.u, 1);
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintActionCommand(char *dst, int size, const BACnetActionCommand *command,
                                         uint8_t symbolic) {
    Writer out(dst, size);
    const bool hasDevice = (command->present & BACNET_ACTION_DEVICE_PRESENT) != 0;
    const bool hasDelay = (command->present & BACNET_ACTION_POST_DELAY_PRESENT) != 0;
    const bool hasPriority = command->priority != BACNET_ABSENT_U32;
    // An enumerated value prints as a number whatever the flag says.
    const uint8_t valueNames = command->value.type == CT_ENUMERATED ? 0 : symbolic;
    const char *property = BACnetPropIDString(command->propertyId);
    return out.Sequence(
        [&] { return Mark(out, LBraceString); },
        [&] {
            return hasDevice ? out.Put(BACnetSPrintObjectID, &command->device, uint8_t{0})
                             : Mark(out, HyphenString);
        },
        [&] { return Mark(out, CommaString); },
        [&] { return out.Put(BACnetSPrintObjectID, &command->object, symbolic); },
        [&] {
            return command->arrayIndex == BACNET_ABSENT_U32
                       ? out.Format(",%s,-,", property)
                       : out.Format(",%s,%i,", property, static_cast<int>(command->arrayIndex));
        },
        [&] {
            return out.Put(BACnetSPrintContents, &command->value, kPropertyAction, valueNames,
                           uint8_t{1});
        },
        [&] {
            const auto priority = static_cast<int>(command->priority);
            if (!hasPriority) return hasDelay ? out.Format(",-,%u,", command->postDelay) : out.Text(",-,-,");
            return hasDelay ? out.Format(",%i,%u,", priority, command->postDelay)
                            : out.Format(",%i,-,", priority);
        },
        [&] { return out.Put(BACnetSPrintBoolean, command->quitOnFailure, symbolic); },
        [&] { return Mark(out, CommaString); },
        [&] { return out.Put(BACnetSPrintBoolean, command->writeSuccessful, symbolic); },
        [&] { return Mark(out, RBraceString); });
}

// "(" elements ")" with "," between, stopping at the first failure.
template <typename Element, typename PrintOne>
int PrintBracketed(Writer &out, const Element *elements, uint32_t count, PrintOne printOne) {
    if (Mark(out, LBraceString) < 0) return kNoRoom;
    for (uint32_t i = 0; i < count; ++i) {
        if (i > 0 && Mark(out, CommaString) < 0) return kNoRoom;
        const int result = printOne(LoadElement<Element>(elements, i));
        if (result < 0) return result;
    }
    return Mark(out, RBraceString) < 0 ? kNoRoom : out.used();
}

extern "C" int BACnetSPrintActionList(char *dst, int size, const BACnetActionList *list,
                                      uint8_t symbolic) {
    Writer out(dst, size);
    return PrintBracketed(out, list->commands, list->commands != nullptr ? list->count : 0,
                          [&](const BACnetActionCommand &command) {
                              return out.Put(BACnetSPrintActionCommand, &command, symbolic);
                          });
}

extern "C" int BACnetSPrintAction(char *dst, int size, const BACnetActionList *lists,
                                  uint8_t symbolic, uint32_t count) {
    Writer out(dst, size);
    return PrintBracketed(out, lists, lists != nullptr ? count : 0, [&](const BACnetActionList &list) {
        return out.Put(BACnetSPrintActionList, &list, symbolic);
    });
}

extern "C" int BACnetSPrintLightingCommand(char *dst, int size,
                                           const BACnetLightingCommand *command, uint8_t symbolic) {
    Writer out(dst, size);
    auto optional = [&](uint32_t bit, auto print) {
        return [&out, command, bit, print] {
            if (Mark(out, CommaString) < 0) return kNoRoom;
            return (command->present & bit) != 0 ? print() : Mark(out, HyphenString);
        };
    };
    return out.Sequence(
        [&] { return Mark(out, LBraceString); },
        [&] {
            return out.Put(BACnetSPrintEnum, command->operation, kPropertyLightingCommand, symbolic);
        },
        optional(BACNET_LIGHTING_TARGET_LEVEL, [&] { return out.Put(BACnetSPrintReal, command->targetLevel); }),
        optional(BACNET_LIGHTING_RAMP_RATE, [&] { return out.Put(BACnetSPrintReal, command->rampRate); }),
        optional(BACNET_LIGHTING_STEP_INCREMENT, [&] { return out.Put(BACnetSPrintReal, command->stepIncrement); }),
        optional(BACNET_LIGHTING_FADE_TIME, [&] { return out.Put(BACnetSPrintUnsigned, command->fadeTime); }),
        optional(BACNET_LIGHTING_PRIORITY, [&] { return out.Put(BACnetSPrintUnsigned, command->priority); }),
        [&] { return Mark(out, RBraceString); });
}

extern "C" int BACnetSPrintChannelValue(char *dst, int size, const BACnetChannelValue *value,
                                        uint8_t symbolic) {
    // The value as a record of its own, with its datatype prefix.
    const BACnetContents record{value->type, 1, const_cast<void *>(static_cast<const void *>(&value->u)),
                                static_cast<int32_t>(sizeof value->u), {0, 0}};
    return BACnetSPrintContents(dst, size, &record, 0, symbolic, 2);
}

extern "C" int BACnetSScanActionList(char *text, void **payload, int32_t separateLists,
                                     void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    if (IsBareCommand(text)) {
        SingleElement one(text);
        return ScanNestedElements<BACnetActionCommand>(one, payload, separateLists, tail, count,
                                                       sizeOnly, ReadActionCommand);
    }
    ElementList commands(text);
    if (commands.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetActionCommand>(commands, payload, separateLists, tail, count,
                                                   sizeOnly, ReadActionCommand);
}

// One list of commands, or a list of such lists: the text is one list when
// it is a bare command or its first element is a command.
extern "C" int BACnetSScanActionListArray(char *text, void **payload, int32_t separateLists,
                                          void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    bool oneList = IsBareCommand(text);
    if (!oneList) {
        char *copy = strdup(text);
        if (copy == nullptr) return kSyntaxError;
        ElementList probe(copy);
        oneList = probe.count() > 0 && PartCount(probe.first()) >= kCommandFieldsWithoutWritten;
        std::free(copy);
    }
    if (oneList) {
        SingleElement one(text);
        return ScanNestedElements<BACnetActionList>(one, payload, separateLists, tail, count,
                                                    sizeOnly, ReadActionList);
    }
    ElementList lists(text);
    if (lists.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetActionList>(lists, payload, separateLists, tail, count,
                                                sizeOnly, ReadActionList);
}

extern "C" int BACnetSScanLightingCommand(char *text, void **payload, int32_t *count,
                                          int32_t sizeOnly) {
    return ScanGroups<BACnetLightingCommand>(text, payload, count, sizeOnly, ReadLightingCommand);
}

extern "C" int BACnetSScanChannelValue(char *text, void **payload, int32_t separateLists,
                                       void **tail, int32_t *count, int32_t sizeOnly) {
    ElementList values(text);
    if (values.count() < 0) return kSyntaxError;
    return ScanNestedElements<BACnetChannelValue>(values, payload, separateLists, tail, count,
                                                  sizeOnly, ReadChannelValue);
}
