// Property states: "[choice] value", the value named by the enumeration
// that the choice selects ("[1] active", "[0] T"), or a number.
#include <cstdlib>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/priority.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kBooleanChoice = 0;
constexpr uint32_t kUnsignedChoice = 11;
constexpr uint32_t kNoKey = 0;  // nothing is printed or read for the value

// The enumeration key of each choice, as printed and as read. The reading
// keys differ for choices 22, 26 and 30, and choices 12 and 13 read numbers
// only: names printed for those choices do not all read back.
struct ChoiceKeys {
    uint32_t print;
    uint32_t scan;
};
constexpr ChoiceKeys kKeys[] = {
    {kNoKey, kNoKey}, {85, 85},   {37, 37},   {84, 84},   {90, 90},   {92, 92},   {100, 100},
    {103, 103},       {36, 36},   {112, 112}, {117, 117}, {kNoKey, kNoKey}, {160, kNoKey},
    {164, kNoKey},    {196, 196}, {226, 226}, {2, 2},     {235, 235}, {231, 231}, {85, 85},
    {41, 41},         {233, 233}, {160, 161}, {158, 158}, {208, 208}, {72, 72},   {307, 327},
    {85, 85},         {163, 163}, {kNoKey, kNoKey}, {247, 272}, {296, 296}, {303, 303},
    {263, 263},       {260, 260}, {kNoKey, kNoKey}, {338, 338},
};
constexpr uint32_t kChoices = sizeof kKeys / sizeof kKeys[0];

bool NamesValue(uint32_t choice) { return choice < kChoices && kKeys[choice].print != kNoKey; }

}  // namespace

int ReadPropertyStates(char *text, BACnetPropertyStates &states) {
    char *after = nullptr;
    const int choice = ParseChoice(text, -1, &after);
    if (choice < 0) return kUnsupported;  // no tag
    states.choice = static_cast<uint32_t>(choice);
    char *value = KillTrailLeadSpace(after);
    if (states.choice == kBooleanChoice) return ScanOneElement(BACnetSScanBoolean, value, states.u.boolean);
    if (states.choice == kUnsignedChoice) {
        states.u.value = TextToUnsigned(value, 0);
    } else if (states.choice == 12 || states.choice == 13) {
        states.u.value = static_cast<uint32_t>(TextToSigned(value));
    } else if (NamesValue(states.choice)) {
        value = NumberedPart(value);
        // An unknown name is stored as the lookup answers it.
        states.u.value = IsDecimalDigit(value[0])
                             ? static_cast<uint32_t>(TextToSigned(value))
                             : static_cast<uint32_t>(BACnetGetEnumValue(value, kKeys[states.choice].scan, 0, 0));
    }
    return 0;
}

}  // namespace bacfmt

using namespace bacfmt;

// A choice without a value writes only its tag and counts it twice.
extern "C" int BACnetSPrintPropertyStates(char *dst, int size, const BACnetPropertyStates *value,
                                          int names) {
    Writer out(dst, size);
    const int tag = out.Format("[%d] ", static_cast<int>(value->choice));
    if (tag < 0) return tag;
    const auto symbolic = static_cast<uint8_t>(names);
    int result;
    if (value->choice == kBooleanChoice) {
        result = out.Put(BACnetSPrintBoolean, value->u.boolean, symbolic);
    } else if (value->choice == kUnsignedChoice) {
        result = out.Put(BACnetSPrintUnsigned, value->u.value);
    } else if (NamesValue(value->choice)) {
        result = out.Put(BACnetSPrintEnum, value->u.value, kKeys[value->choice].print, symbolic);
    } else {
        return 2 * tag;
    }
    return result < 0 ? result : out.used();
}

extern "C" int BACnetSScanPropertyStates(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<BACnetPropertyStates>(text, payload, count, sizeOnly, ReadPropertyStates);
}
