// Where notifications go, and which device answers at which address:
//   address          "(" network "," MAC ")", the MAC as octets: (0,0xc0a80001bac0)
//   recipient        "[0] " device | "[1] " address
//   destination      "(" valid days "," from "," to "," recipient "," process ","
//                    confirmed "," transitions ")"
//   address binding  "(" device "," address ")"
// A network of 0 is the local network; a MAC of no octets, "0x", a
// broadcast.
#include <cctype>
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/recipients.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kDaysOfWeekProperty = 0;   // valid days print as bits
constexpr uint32_t kTransitionsProperty = 0;  // so do the transitions
constexpr uint32_t kDays = 7;
constexpr uint32_t kTransitions = 3;

int ReadMac(char *text, BACnetAddress &address) {
    return ReadOctetField(text, address.mac, sizeof address.mac, address.macLength);
}

int ReadAddressParts(char *network, char *mac, BACnetAddress &address) {
    if (network == nullptr || mac == nullptr) return kSyntaxError;
    network = KillTrailLeadSpace(network);
    if (!IsDecimalDigit(network[0])) return kSyntaxError;
    const uint32_t number = TextToUnsigned(network, 0);
    if (number > 0xFFFFu) return kSyntaxError;
    address.network = static_cast<uint16_t>(number);
    return ReadMac(mac, address);
}

int PutAddress(Writer &out, const BACnetAddress &address) {
    return out.Sequence([&] { return out.Format("%s%u,", LBraceString, unsigned{address.network}); },
                        [&] { return out.Put(BACnetSPrintHex, address.mac, uint32_t{address.macLength}); },
                        [&] { return out.Text(RBraceString); });
}

}  // namespace

int ReadOctetField(char *text, uint8_t *octets, size_t room, uint8_t &length) {
    text = KillTrailLeadSpace(text);
    const char *digits = text;
    if (digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        digits += 2;
    } else if ((digits[0] == 'X' || digits[0] == 'x') && digits[1] == '\'') {
        digits += 2;
    } else {
        return kSyntaxError;
    }
    const size_t count = std::strcspn(digits, "'");
    if (digits[count] == '\'' && digits[count + 1] != '\0') return kSyntaxError;
    if (count % 2 != 0 || count / 2 > room) return kSyntaxError;
    for (size_t i = 0; i < count; ++i)
        if (std::isxdigit(static_cast<unsigned char>(digits[i])) == 0) return kSyntaxError;
    std::memset(octets, 0, room);
    length = static_cast<uint8_t>(SScanHexByte(text, octets, static_cast<int>(count / 2)));
    return 0;
}

int ReadAddress(char *text, BACnetAddress &address) {
    char *part[2];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadAddressParts(part[0], part[1], address);
}

int ReadRecipient(char *text, BACnetRecipient &recipient) {
    char *after = nullptr;
    const int choice = ParseChoice(text, -1, &after);
    if (choice < 0) return kUnsupported;
    recipient.choice = static_cast<uint32_t>(choice);
    after = KillTrailLeadSpace(after);
    switch (choice) {
    case BACNET_RECIPIENT_DEVICE:
        return ScanOneElement(BACnetSScanObjectID, after, recipient.u.device);
    case BACNET_RECIPIENT_ADDRESS:
        return ReadAddress(DeBracket(after), recipient.u.address);
    default:
        return kUnsupported;
    }
}

int ReadDestination(char *text, BACnetDestination &destination) {
    char *part[7];
    if (!SplitParts(text, part)) return kSyntaxError;
    // Seven days, Monday first, and three transitions, no more, no less.
    auto bits = [](char *field, BACnetBitString &value, uint32_t length) {
        void *slot = &value;
        int32_t one = 1;
        const int result = BACnetSScanBitString(field, &slot, &one, nullptr, 0);
        if (result < 0) return result;
        return one == 1 && value.bitCount == length ? 0 : kSyntaxError;
    };
    int result = bits(part[0], destination.validDays, kDays);
    if (result < 0 || (result = ScanOneElement(BACnetSScanTime, part[1], destination.fromTime)) < 0 ||
        (result = ScanOneElement(BACnetSScanTime, part[2], destination.toTime)) < 0 ||
        (result = ReadRecipient(part[3], destination.recipient)) < 0)
        return result;
    if (!IsDecimalDigit(part[4][0])) return kSyntaxError;
    destination.processId = TextToUnsigned(part[4], 0);
    if ((result = ScanOneElement(BACnetSScanBoolean, part[5], destination.issueConfirmed)) < 0) return result;
    return bits(part[6], destination.transitions, kTransitions);
}

int ReadAddressBinding(char *text, BACnetAddressBinding &binding) {
    char *part[2];
    if (!SplitParts(text, part)) return kSyntaxError;
    const int result = ScanOneElement(BACnetSScanObjectID, part[0], binding.device);
    return result < 0 ? result : ReadAddress(part[1], binding.address);
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintAddress(char *dst, int size, const BACnetAddress *value) {
    Writer out(dst, size);
    return PutAddress(out, *value);
}

extern "C" int BACnetSPrintRecipient(char *dst, int size, const BACnetRecipient *value, uint8_t symbolic) {
    Writer out(dst, size);
    switch (value->choice) {
    case BACNET_RECIPIENT_DEVICE:
        return out.Sequence([&] { return out.Text("[0] "); },
                            [&] { return out.Put(BACnetSPrintObjectID, &value->u.device, symbolic); });
    case BACNET_RECIPIENT_ADDRESS:
        return out.Sequence([&] { return out.Text("[1] "); }, [&] { return PutAddress(out, value->u.address); });
    default:
        return out.Format("[%u] %s", value->choice, UnknownString);
    }
}

extern "C" int BACnetSPrintDestination(char *dst, int size, const BACnetDestination *value, uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return out.Put(BACnetSPrintBitString, &value->validDays, kDaysOfWeekProperty, uint8_t{0}); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintTime, &value->fromTime); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintTime, &value->toTime); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintRecipient, &value->recipient, symbolic); },
        [&] { return out.Format(",%u,", value->processId); },
        [&] { return out.Put(BACnetSPrintBoolean, value->issueConfirmed, uint8_t{1}); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintBitString, &value->transitions, kTransitionsProperty, uint8_t{0}); },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintAddressBinding(char *dst, int size, const BACnetAddressBinding *value,
                                          uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return out.Put(BACnetSPrintObjectID, &value->device, symbolic); },
                        [&] { return out.Text(CommaString); },
                        [&] { return PutAddress(out, value->address); },
                        [&] { return out.Text(RBraceString); });
}

// A single address is two numbers; a list holds bracketed ones.
extern "C" int BACnetSScanAddress(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanGroups<BACnetAddress>(text, payload, count, sizeOnly, ReadAddress);
}

// A single recipient starts with its tag.
extern "C" int BACnetSScanRecipient(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    text = KillTrailLeadSpace(text);
    if (text[0] == '[') {
        SingleElement one(text);
        return ScanElements<BACnetRecipient>(one, payload, count, sizeOnly, ReadRecipient);
    }
    return ScanList<BACnetRecipient>(text, payload, count, sizeOnly, ReadRecipient);
}

// One destination has seven fields, the first a group of bits; a list's
// elements are groups of seven.
template <typename Element, size_t Fields, typename Read>
int ScanRecords(char *text, void **payload, int32_t *count, int32_t sizeOnly, Read read) {
    if (text == nullptr) return kSyntaxError;
    SaveText(strBackup, text);
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == static_cast<int>(Fields) && std::strchr(elements.first(), '(') == nullptr) {
        RestoreText(text, strBackup);
        SingleElement one(DeBracket(text));
        return ScanElements<Element>(one, payload, count, sizeOnly, read);
    }
    return ScanElements<Element>(elements, payload, count, sizeOnly, read);
}

extern "C" int BACnetSScanDestination(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanRecords<BACnetDestination, 7>(text, payload, count, sizeOnly, ReadDestination);
}

extern "C" int BACnetSScanAddressBinding(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanRecords<BACnetAddressBinding, 2>(text, payload, count, sizeOnly, ReadAddressBinding);
}
