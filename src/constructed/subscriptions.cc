// Subscriptions and what they choose between:
//   client COV increment            "[0] " real | "[1] NULL" (the object's default)
//   COV subscription                "(" recipient "," process "," (object,property,index) ","
//                                   confirmed "," time remaining "," increment|- ")"
//   event notification subscription "(" recipient "," process "," confirmed "," time remaining ")"
//   process identifier selection    "[0] " process | "[1] NULL"
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/recipients.h"
#include "constructed/tuples.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr int kNullChoice = 1;

// "[choice] value": `readValue` reads choice 0's value; choice 1 is NULL.
template <typename ReadValue>
int ReadChoiceOrNull(char *text, uint32_t &choice, ReadValue readValue) {
    char *after = nullptr;
    const int tag = ParseChoice(text, -1, &after);
    if (tag < 0) return kUnsupported;
    choice = static_cast<uint32_t>(tag);
    after = KillTrailLeadSpace(after);
    if (tag == kNullChoice) return str_i_cmp(after, NullString) == 0 ? 0 : kSyntaxError;
    return tag == 0 ? readValue(after) : kUnsupported;
}

// A list of such choices, or one written alone with its tag.
template <typename Element, typename Read>
int ScanChoices(char *text, void **payload, int32_t *count, int32_t sizeOnly, Read read) {
    if (text == nullptr) return kSyntaxError;
    text = KillTrailLeadSpace(text);
    if (text[0] == '[') {
        SingleElement one(text);
        return ScanElements<Element>(one, payload, count, sizeOnly, read);
    }
    return ScanList<Element>(text, payload, count, sizeOnly, read);
}

int PutRecipient(Writer &out, const BACnetRecipient &recipient, uint8_t names) {
    return out.Put(BACnetSPrintRecipient, &recipient, names);
}

}  // namespace

int ReadClientCov(char *text, BACnetClientCov &value) {
    value.increment = 0;
    return ReadChoiceOrNull(text, value.choice,
                            [&value](char *real) { return ScanOneElement(BACnetSScanReal, real, value.increment); });
}

int ReadProcessIdSelection(char *text, BACnetProcessIdSelection &value) {
    value.processId = 0;
    return ReadChoiceOrNull(text, value.choice,
                            [&value](char *number) { return ReadNumberField(number, value.processId); });
}

int ReadCovSubscription(char *const (&part)[6], BACnetCovSubscription &value) {
    int result = ReadRecipient(part[0], value.recipient);
    if (result < 0 || (result = ReadNumberField(part[1], value.processId)) < 0 ||
        (result = ScanOneElement(BACnetSScanObjPropReference, part[2], value.monitored)) < 0 ||
        (result = ReadBooleanField(part[3], value.issueConfirmed)) < 0 ||
        (result = ReadNumberField(part[4], value.timeRemaining)) < 0)
        return result;
    value.incrementPresent = IsVoidString(part[5]) != 0 ? 0 : 1;
    value.increment = 0;
    return value.incrementPresent != 0 ? ScanOneElement(BACnetSScanReal, part[5], value.increment) : 0;
}

int ReadEventNotificationSubscription(char *const (&part)[4], BACnetEventNotificationSubscription &value) {
    int result = ReadRecipient(part[0], value.recipient);
    if (result < 0 || (result = ReadNumberField(part[1], value.processId)) < 0 ||
        (result = ReadBooleanField(part[2], value.issueConfirmed)) < 0)
        return result;
    return ReadNumberField(part[3], value.timeRemaining);
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintClientCOV(char *dst, int size, const BACnetClientCov *value) {
    Writer out(dst, size);
    if (value->choice == BACNET_CLIENT_COV_DEFAULT_INCREMENT) return out.Format("[1] %s", NullString);
    if (value->choice != BACNET_CLIENT_COV_REAL_INCREMENT) return out.Format("[%u] %s", value->choice, UnknownString);
    return out.Sequence([&] { return out.Text("[0] "); }, [&] { return out.Put(BACnetSPrintReal, value->increment); });
}

extern "C" int BACnetSPrintCovSubscription(char *dst, int size, const BACnetCovSubscription *value,
                                           uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return PutRecipient(out, value->recipient, symbolic); },
        [&] { return out.Format(",%u,", value->processId); },
        [&] { return out.Put(BACnetSPrintObjPropReference, &value->monitored, int{symbolic}); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintBoolean, value->issueConfirmed, uint8_t{1}); },
        [&] { return out.Format(",%u,", value->timeRemaining); },
        [&] { return value->incrementPresent != 0 ? out.Put(BACnetSPrintReal, value->increment) : out.Text(HyphenString); },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintEventNotificationSubscription(char *dst, int size,
                                                         const BACnetEventNotificationSubscription *value,
                                                         uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return PutRecipient(out, value->recipient, symbolic); },
                        [&] { return out.Format(",%u,", value->processId); },
                        [&] { return out.Put(BACnetSPrintBoolean, value->issueConfirmed, uint8_t{1}); },
                        [&] { return out.Format(",%u%s", value->timeRemaining, RBraceString); });
}

extern "C" int BACnetSPrintProcessIdSelection(char *dst, int size, const BACnetProcessIdSelection *value,
                                              uint8_t /*symbolic*/) {
    Writer out(dst, size);
    if (value->choice == BACNET_PROCESS_ID_NULL) return out.Format("[1] %s", NullString);
    if (value->choice != BACNET_PROCESS_ID) return out.Format("[%u] %s", value->choice, UnknownString);
    return out.Format("[0] %u", value->processId);
}

extern "C" int BACnetSScanClientCov(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanChoices<BACnetClientCov>(text, payload, count, sizeOnly, ReadClientCov);
}

extern "C" int BACnetSScanProcessIdSelection(char *text, void **payload, int32_t /*separateLists*/,
                                             int32_t *count, int32_t sizeOnly) {
    return ScanChoices<BACnetProcessIdSelection>(text, payload, count, sizeOnly, ReadProcessIdSelection);
}

extern "C" int BACnetSScanCovSubscription(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetCovSubscription, 6>(text, payload, count, sizeOnly, LastIsPlain<6>,
                                                ReadCovSubscription);
}

extern "C" int BACnetSScanEventNotificationSubscription(char *text, void **payload, int32_t /*separateLists*/,
                                                        int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetEventNotificationSubscription, 4>(text, payload, count, sizeOnly, LastIsPlain<4>,
                                                              ReadEventNotificationSubscription);
}
