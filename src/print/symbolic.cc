// Printers that can show names from the enumeration text services:
// enumerations, bit strings and object identifiers. They add up the
// results of their parts without checking them, so a part that fails
// shows up only in the sum; a failed part does not move the position.
#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "datatypes/table.h"
#include "print/writer.h"

namespace bacfmt {
namespace {

constexpr uint32_t kPropertyPresentValue = 85;
constexpr uint32_t kObjectTypeLoadControl = 28;
// Bit-string properties that never list the names of their set bits.
constexpr PropertySet kBitNamesSuppressed = {7, 39, 104, 342};

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintEnum(char *dst, int size, uint32_t value, uint32_t propertyId,
                                uint8_t mode) {
    Writer out(dst, size);
    const auto number = static_cast<int32_t>(value);  // 2^31 and above print negative
    int sum = out.Put(BACnetSPrintSigned, number);
    if (mode == 0) return sum;

    const uint32_t selector = mode == 3 && propertyId == kPropertyPresentValue
                                  ? kObjectTypeLoadControl
                                  : BACNET_ENUM_ANY_OBJECT;
    sum += out.Text(EqualsToString);
    // The name gets the full initial size as its capacity, not the room
    // left: long names may run past the room by the length of the number.
    sum += out.Step(BACnetSPrintString(out.at(), size, BACnetEnumString(value, selector, propertyId)));
    if (mode == 2) {
        sum += out.Text(SpaceString);
        sum += out.Text(LBracketString);
        sum += out.Put(BACnetSPrintSigned, number);
        sum += out.Text(RBracketString);
    }
    return sum;
}

extern "C" int BACnetSPrintBitString(char *dst, int size, const BACnetBitString *value,
                                     uint32_t propertyId, uint8_t symbolic) {
    Writer out(dst, size);
    int sum = out.Text(LBracketString);
    for (uint8_t bit = 0; bit < value->bitCount && bit < BACNET_BITSTRING_MAX_BITS; ++bit) {
        sum += out.Put(BACnetSPrintBoolean, static_cast<uint8_t>(BACnetTestBitStringBit(value, bit)),
                       symbolic);
        if (bit + 1u < value->bitCount) sum += out.Text(CommaString);
    }
    sum += out.Text(RBracketString);
    if (symbolic == 0 || kBitNamesSuppressed.Contains(propertyId)) return sum;

    sum += out.Text(SpaceString);
    sum += out.Text(LBracketString);
    bool first = true;
    for (uint8_t bit = 0; bit < BACNET_BITSTRING_MAX_BITS; ++bit) {
        if (!BACnetTestBitStringBit(value, bit)) continue;
        if (!first) sum += out.Text("|");
        first = false;
        sum += out.Put(BACnetSPrintEnum, uint32_t{bit}, propertyId, uint8_t{1});
    }
    sum += out.Text(RBracketString);
    return sum;
}

extern "C" int BACnetSPrintObjectID(char *dst, int size, const BACnetObjectID *value,
                                    uint8_t symbolic) {
    Writer out(dst, size);
    int sum = out.Text(LBracketString);
    sum += symbolic != 0 ? out.Text(BACnetObjTypeString(value->type))
                         : out.Put(BACnetSPrintUnsigned, value->type);
    sum += out.Text(CommaString);
    sum += out.Put(BACnetSPrintUnsigned, value->instance);
    sum += out.Text(RBracketString);
    return sum;
}

extern "C" int BACnetTestBitStringBit(const BACnetBitString *bits, uint8_t bit) {
    if (bit >= bits->bitCount || bit >= BACNET_BITSTRING_MAX_BITS) return 0;
    return (bits->bits[bit / 8] & (0x80 >> (bit % 8))) != 0 ? 1 : 0;
}

extern "C" int BACnetSetBitStringBit(BACnetBitString *bits, uint8_t bit, uint8_t value) {
    if (bit >= bits->bitCount || bit >= BACNET_BITSTRING_MAX_BITS) return 0;
    const auto mask = static_cast<uint8_t>(0x80 >> (bit % 8));
    if (value != 0)
        bits->bits[bit / 8] |= mask;
    else
        bits->bits[bit / 8] &= static_cast<uint8_t>(~mask);
    return 1;
}
