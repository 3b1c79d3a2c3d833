// The values of reading several properties at once:
//   specification   "(" object ",(" property references "))"
//   result          "(" object ",(" items "))"
//   item            "(" property "," index|- "," "[4] " value | "[5] (class,code)" ")"
//   access result   "(" object "," property "," index|- "," device|- "," result ")"
// An item's property and index are numbers, its value carries no datatype
// tag: the "[4]" before it is the choice between value and error.
#include <cstring>

#include <bacfmt/diag.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/read_access.h"
#include "datatypes/release.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr int kValueChoice = 4;
constexpr int kErrorChoice = 5;
constexpr int kPlainValueChoice = 0;
constexpr int kPlainErrorChoice = 1;
// The sizing pass counts an error item although the filling pass stores
// it inside the item.
constexpr int kErrorSizing = 12;
constexpr uint32_t kPropertyTable = 78;
constexpr uint32_t kErrorStatus = 2;

// A bracket or comma needs itself, the terminator and one byte more.
int Mark(Writer &out, int needed, const char *text) {
    if (out.room() < needed) return kNoRoom;
    return out.Text(text);
}

// "[4] " and the value, or "[5] (class,code)".
int PrintResult(Writer &out, bool isValue, const BACnetContents &value, const BACnetErrorType &error,
                uint8_t names) {
    if (!isValue) return out.Format("[%d] (%u,%u)", kErrorChoice, error.errorClass, error.errorCode);
    out.Unchecked("[4] ");
    return out.Put(BACnetSPrintContents, &value, uint32_t{0}, names, uint8_t{0});
}

int PrintItem(Writer &out, const BACnetReadAccessResultItem &item, int names) {
    // An enumerated value prints as a number whatever the flag says.
    const bool enumerated = item.isValue != 0 && item.result.value.type == CT_ENUMERATED;
    const auto valueNames = static_cast<uint8_t>(enumerated ? 0 : names);
    return out.Sequence(
        [&] {
            return item.arrayIndex == BACNET_ABSENT_U32
                       ? out.Format("(%u,-,", item.propertyId)
                       : out.Format("(%u,%u,", item.propertyId, item.arrayIndex);
        },
        [&] { return PrintResult(out, item.isValue != 0, item.result.value, item.result.error, valueNames); },
        [&] { return Mark(out, 2, RBraceString); });
}

// "(" object ",(" elements "))"
template <typename Element, typename PrintOne>
int PrintObjectAndList(char *dst, int size, const BACnetObjectID &object, int names,
                       const Element *list, uint32_t count, PrintOne printOne) {
    Writer out(dst, size);
    return out.Sequence([&] { return Mark(out, 2, LBraceString); },
                        [&] { return out.Put(BACnetSPrintObjectID, &object, static_cast<uint8_t>(names)); },
                        [&] { return Mark(out, 3, ",("); },
                        [&] { return PrintEach(out, list, count, [&](const Element &e) { return printOne(out, e); }); },
                        [&] { return Mark(out, 3, "))"); });
}

int ReadItemParts(char *(&part)[3], BACnetReadAccessResultItem &item, NestedParts &parts);
int ReadAccessResultParts(char *(&part)[5], BACnetPropertyAccessResult &result, NestedParts &parts);

// The result part of an item or an access result: a value or an error.
int ReadResultPart(char *text, uint8_t &isValue, BACnetContents &value, BACnetErrorType &error,
                   NestedParts &parts) {
    char *after = nullptr;
    switch (ParseChoice(text, -1, &after)) {
    case kPlainValueChoice:
    case kValueChoice:
        isValue = 1;
        value.type = kTypeFromText;
        return parts.Value(KillTrailLeadSpace(after), value);
    case kPlainErrorChoice:
    case kErrorChoice: {
        isValue = 0;
        char *codes[2];
        if (!SplitParts(after, codes)) return kSyntaxError;
        error.errorClass = static_cast<uint32_t>(TextToSigned(codes[0]));
        error.errorCode = static_cast<uint32_t>(TextToSigned(codes[1]));
        return parts.sizing() ? kErrorSizing : 0;
    }
    default:
        return kTagMismatch;
    }
}

// The object's bytes that the filling pass counts per specification or
// result, and moves the tail by in a list.
int CountObject(NestedParts &parts, bool list) {
    if (parts.sizing()) return 0;
    if (list && !parts.separate()) parts.Advance(sizeof(BACnetObjectID));
    return sizeof(BACnetObjectID);
}

// The scanners of specifications and results: one, or a list, told apart
// by the object's content (one comma, or more in a list element).
template <typename Element, typename Read>
int ScanObjectLists(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                    int32_t sizeOnly, Read read) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) {
        *count = 0;
        return 0;
    }
    if (elements.count() == 1) return kCountMismatch;  // no top-level comma
    const char *comma = std::strchr(elements.first(), ',');
    const bool one = comma != nullptr && std::strchr(comma + 1, ',') == nullptr;
    if (one) {
        if (elements.count() != 2) return kSyntaxError;
        // The walk has cut the object off; the converter takes both parts.
        WalkedParts<2> pair(elements);
        if (pair.part[1] == nullptr) return kSyntaxError;
        return ScanNestedElements<Element>(
            pair, payload, separateLists, tail, count, sizeOnly,
            [&](char *objectText, Element &element, NestedParts &parts) {
                return read(objectText, pair.part[1], false, element, parts);
            },
            WhenAllocated::RoomForOne);
    }
    return ScanNestedElements<Element>(
        elements, payload, separateLists, tail, count, sizeOnly,
        [&](char *elementText, Element &element, NestedParts &parts) {
            char *pair[2];
            if (!SplitParts(elementText, pair)) return kSyntaxError;
            return read(pair[0], pair[1], true, element, parts);
        },
        WhenAllocated::RoomForOne);
}

int ReadSpecificationParts(char *objectText, char *references, bool list, BACnetReadAccessSpec &specification,
                  NestedParts &parts) {
    if (!parts.sizing()) {
        const int result = ScanOneElement(BACnetSScanObjectID, objectText, specification.object);
        if (result < 0) return result;
    }
    int bytes = CountObject(parts, list);
    specification.references = nullptr;
    specification.count = 0;
    if (IsEmptyGroup(references, objectText)) return kSyntaxError;  // "()" lists nothing
    if (references[0] != '\0') {
        const int result = parts.ArrayAtTail(BACnetSScanPropertyReference, references, specification.references, specification.count);
        if (result < 0) return result;
        bytes += result;
    }
    return bytes;
}

int ReadResultParts(char *objectText, char *items, bool list, BACnetReadAccessResult &result,
                    NestedParts &parts) {
    if (!parts.sizing()) {
        const int scanned = ScanOneElement(BACnetSScanObjectID, objectText, result.object);
        if (scanned < 0) return scanned;
    }
    int bytes = CountObject(parts, list);
    result.items = nullptr;
    result.count = 0;
    if (items[0] != '\0') {
        const int scanned = parts.ArrayAtTail(BACnetSScanReadAccessResultItem, items, result.items, result.count);
        if (scanned < 0) return scanned;
        bytes += scanned;
    }
    result.itemCount = result.count;
    return bytes;
}

}  // namespace

int ReadReadAccessSpec(char *text, BACnetReadAccessSpec &specification, NestedParts &parts) {
    char *pair[2];
    if (!SplitParts(text, pair)) return kSyntaxError;
    return ReadSpecificationParts(pair[0], pair[1], false, specification, parts);
}

int ReadReadAccessResult(char *text, BACnetReadAccessResult &result, NestedParts &parts) {
    char *pair[2];
    if (!SplitParts(text, pair)) return kSyntaxError;
    return ReadResultParts(pair[0], pair[1], false, result, parts);
}

int ReadReadAccessResultItem(char *text, BACnetReadAccessResultItem &item, NestedParts &parts) {
    char *part[3];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadItemParts(part, item, parts);
}

int ReadPropertyAccessResult(char *text, BACnetPropertyAccessResult &result, NestedParts &parts) {
    char *part[5];
    if (!SplitParts(text, part, 5)) return kSyntaxError;
    return ReadAccessResultParts(part, result, parts);
}

namespace {

int ReadItemParts(char *(&part)[3], BACnetReadAccessResultItem &item, NestedParts &parts) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    int result = ReadPropertyIdentifier(part[0], item.propertyId);
    if (result < 0) return result;
    item.arrayIndex = VoidOrDecimal(part[1]);
    return ReadResultPart(part[2], item.isValue, item.result.value, item.result.error, parts);
}

int ReadAccessResultParts(char *(&part)[5], BACnetPropertyAccessResult &result, NestedParts &parts) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    int scanned = ScanOneElement(BACnetSScanObjectID, part[0], result.object);
    if (scanned < 0) return scanned;
    if ((scanned = ReadPropertyIdentifier(part[1], result.propertyId)) < 0) return scanned;
    result.arrayIndex = VoidOrIndex(part[2]);
    result.devicePresent = IsVoidString(part[3]) != 0 ? 0 : 1;
    if (result.devicePresent != 0 &&
        (scanned = ScanOneElement(BACnetSScanObjectID, part[3], result.device)) < 0)
        return scanned;
    return ReadResultPart(part[4], result.isValue, result.result.value, result.result.error, parts);
}

}  // namespace

void ReleaseReadAccessSpecs(void *specifications, uint32_t count) {
    ReleaseEach<BACnetReadAccessSpec>(specifications, count, [](BACnetReadAccessSpec &specification) {
        ReleaseArray(specification.references, specification.count, [](BACnetPropertyReference &) {});
    });
}

void ReleaseReadAccessResults(void *results, uint32_t count) {
    ReleaseEach<BACnetReadAccessResult>(results, count, [](BACnetReadAccessResult &result) {
        ReleaseArray(result.items, result.count, [](BACnetReadAccessResultItem &item) {
            if (item.isValue != 0) ReleasePayload(item.result.value);
        });
    });
}

void ReleasePropertyAccessResults(void *results, uint32_t count) {
    ReleaseEach<BACnetPropertyAccessResult>(results, count, [](BACnetPropertyAccessResult &result) {
        if (result.isValue != 0) ReleasePayload(result.result.value);
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintReadAccessSpec(char *dst, int size, const BACnetReadAccessSpec *value,
                                          int names) {
    return PrintObjectAndList(dst, size, value->object, names, value->references, value->count,
                              [names](Writer &out, const BACnetPropertyReference &reference) {
                                  return out.Put(BACnetSPrintPropertyReference, &reference, names);
                              });
}

extern "C" int BACnetSPrintReadAccessResult(char *dst, int size,
                                            const BACnetReadAccessResult *value, int names) {
    return PrintObjectAndList(dst, size, value->object, names, value->items, value->count,
                              [names](Writer &out, const BACnetReadAccessResultItem &item) {
                                  return PrintItem(out, item, names);
                              });
}

extern "C" int BACnetSPrintPropertyAccessResult(char *dst, int size,
                                                const BACnetPropertyAccessResult *value, int names) {
    Writer out(dst, size);
    const bool hasIndex = value->arrayIndex != -1;
    const bool hasDevice = value->devicePresent != 0;
    const auto symbolic = static_cast<uint8_t>(names);
    return out.Sequence(
        [&] { return Mark(out, 2, LBraceString); },
        [&] { return out.Put(BACnetSPrintObjectID, &value->object, symbolic); },
        [&] { return Mark(out, 2, CommaString); },
        [&] { return out.Put(BACnetSPrintEnum, value->propertyId, kPropertyTable, symbolic); },
        [&] {
            if (!hasIndex) return hasDevice ? out.Text(",-,") : out.Text(",-,-");
            // With no device this piece closes a bracket: the text does not
            // read back, and that is how it has always been written.
            return hasDevice ? out.Format(",%i,", value->arrayIndex)
                             : out.Format(",%i,-%s", value->arrayIndex, RBraceString);
        },
        [&] { return hasDevice ? out.Put(BACnetSPrintObjectID, &value->device, uint8_t{0}) : 0; },
        [&] { return Mark(out, 2, CommaString); },
        [&] {
            return PrintResult(out, value->isValue != 0, value->result.value, value->result.error,
                               symbolic);
        },
        [&] { return Mark(out, 2, RBraceString); });
}

extern "C" int BACnetSPrintErrorType(char *dst, int size, const BACnetErrorType *value) {
    const BACnetErrorInfo error{kErrorStatus, value->errorClass, value->errorCode};
    Writer out(dst, size);
    return out.AddText(LBraceString) + out.AddText(BACnetErrorClassString(&error)) +
           out.AddText(CommaString) + out.AddText(BACnetErrorCodeString(&error)) +
           out.AddText(RBraceString);
}

extern "C" int BACnetSScanReadAccessSpec(char *text, void **payload, int32_t separateLists,
                                         void **tail, int32_t *count, int32_t sizeOnly) {
    return ScanObjectLists<BACnetReadAccessSpec>(text, payload, separateLists, tail, count, sizeOnly,
                                                 ReadSpecificationParts);
}

extern "C" int BACnetSScanReadAccessResult(char *text, void **payload, int32_t separateLists,
                                           void **tail, int32_t *count, int32_t sizeOnly) {
    return ScanObjectLists<BACnetReadAccessResult>(text, payload, separateLists, tail, count,
                                                   sizeOnly, ReadResultParts);
}

// One item "(property,index,result)", or a list of them.
extern "C" int BACnetSScanReadAccessResultItem(char *text, void **payload, int32_t separateLists,
                                               void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList items(text);
    if (items.count() < 0) return kSyntaxError;
    if (items.count() > 0 && std::strchr(items.first(), ',') == nullptr) {
        if (items.count() != 3) return kSyntaxError;
        WalkedParts<3> one(items);
        return ScanNestedElements<BACnetReadAccessResultItem>(
            one, payload, separateLists, tail, count, sizeOnly,
            [&one](char *, BACnetReadAccessResultItem &item, NestedParts &parts) {
                return ReadItemParts(one.part, item, parts);
            });
    }
    return ScanNestedElements<BACnetReadAccessResultItem>(items, payload, separateLists, tail, count,
                                                          sizeOnly, ReadReadAccessResultItem);
}

// One access result, or a list: a list's first element holds brackets.
extern "C" int BACnetSScanPropertyAccessResult(char *text, void **payload, int32_t separateLists,
                                               void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList results(text);
    if (results.count() < 0) return kSyntaxError;
    if (results.count() > 0 && std::strchr(results.first(), '(') == nullptr) {
        if (results.count() < 5) return kSyntaxError;
        WalkedParts<5> one(results);
        return ScanNestedElements<BACnetPropertyAccessResult>(
            one, payload, separateLists, tail, count, sizeOnly,
            [&one](char *, BACnetPropertyAccessResult &result, NestedParts &parts) {
                return ReadAccessResultParts(one.part, result, parts);
            });
    }
    return ScanNestedElements<BACnetPropertyAccessResult>(results, payload, separateLists, tail,
                                                          count, sizeOnly, ReadPropertyAccessResult);
}
