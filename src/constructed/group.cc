// A group's members and current values, print only:
//   members  "(" member "," ... ")", a member "(" object "," references ")"
//   values   "(" result "," ... ")", a result "(" object ["," items] ")"
//   item     "(" property name "," [index ","] value with its tag | error ")"
// The pieces are summed unchecked, as these printers always did: a piece
// that does not fit counts its negative result and the position follows.
#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>

#include "constructed/list_printers.h"
#include "datatypes/unaligned.h"
#include "print/writer.h"

using namespace bacfmt;

extern "C" int BACnetSPrintGroup(char *dst, int size, const BACnetReadAccessSpec *members,
                                 uint8_t symbolic, uint32_t count) {
    Writer out(dst, size);
    return SumBracketed(out, members, count, [&](const BACnetReadAccessSpec &member) {
        return out.AddPut(BACnetSPrintGroupMember, &member, symbolic);
    });
}

extern "C" int BACnetSPrintGroupMember(char *dst, int size, const BACnetReadAccessSpec *member,
                                       uint8_t symbolic) {
    Writer out(dst, size);
    int sum = out.AddText(LBraceString);
    sum += out.AddPut(BACnetSPrintObjectID, &member->object, symbolic);
    sum += out.AddText(CommaString);  // also when no reference follows
    for (uint32_t i = 0; member->references != nullptr && i < member->count; ++i) {
        if (i > 0) sum += out.AddText(CommaString);
        const auto reference = LoadElement<BACnetPropertyReference>(member->references, i);
        sum += out.AddPut(BACnetSPrintPropertyReference, &reference, int{symbolic});
    }
    return sum + out.AddText(RBraceString);
}

extern "C" int BACnetSPrintGroupRes(char *dst, int size, const BACnetReadAccessResult *results,
                                    uint8_t symbolic, uint32_t count) {
    Writer out(dst, size);
    return SumBracketed(out, results, count, [&](const BACnetReadAccessResult &result) {
        return out.AddPut(BACnetSPrintGroupResLstMember, &result, symbolic);
    });
}

extern "C" int BACnetSPrintGroupResLstMember(char *dst, int size,
                                             const BACnetReadAccessResult *result,
                                             uint8_t symbolic) {
    Writer out(dst, size);
    int sum = out.AddText(LBraceString);
    sum += out.AddPut(BACnetSPrintObjectID, &result->object, symbolic);
    for (uint32_t i = 0; result->items != nullptr && i < result->count; ++i) {
        sum += out.AddText(CommaString);
        const auto item = LoadElement<BACnetReadAccessResultItem>(result->items, i);
        sum += out.AddPut(BACnetSPrintRawResult, &item, symbolic);
    }
    return sum + out.AddText(RBraceString);
}

extern "C" int BACnetSPrintRawResult(char *dst, int size, const BACnetReadAccessResultItem *item,
                                     uint8_t symbolic) {
    Writer out(dst, size);
    int sum = out.AddText(LBraceString);
    sum += out.AddText(BACnetPropIDString(item->propertyId));  // the name, whatever the flag
    sum += out.AddText(CommaString);
    if (item->arrayIndex != BACNET_ABSENT_U32) {
        sum += out.AddPut(BACnetSPrintUnsigned, item->arrayIndex);
        sum += out.AddText(CommaString);
    }
    if (item->isValue != 0)
        sum += out.AddPut(BACnetSPrintContents, &item->result.value, item->propertyId, symbolic, uint8_t{1});
    else
        sum += out.AddPut(BACnetSPrintErrorType, &item->result.error);
    return sum + out.AddText(RBraceString);
}
