// Values that point at a property of an object, and values that carry one:
//   object property reference         "(" object "," property "," index|- ")"
//   device object reference           "(" device|- "," object ")"
//   device object property reference  "(" object "," property "," index|- "," device|- ")"
//   setpoint reference                "(" object property reference ")", or "()"
//   property reference                "(" property "," index|- ")"
//   property value                    "(" property "," index|- "," [tag] value "," priority|- ")"
//   device object property value      "(" device "," object "," property "," index|- "," [tag] value ")"
// A property prints by number, or as "85 => name" with names on; the
// scanners take the number in front, or a name alone.
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/nested_frame.h"
#include "constructed/references.h"
#include "datatypes/release.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr int32_t kAbsentIndex = -1;
constexpr uint8_t kNumericObject = 0;
constexpr uint8_t kTaggedValue = 1;  // "[tag] " before a primitive value

uint8_t Flag(int names) { return static_cast<uint8_t>(names); }

int PutObject(Writer &out, const BACnetObjectID &object, int names) {
    return out.Put(BACnetSPrintObjectID, &object, Flag(names));
}

int PutProperty(Writer &out, uint32_t property, int names) {
    return out.Put(BACnetSPrintEnum, property, uint32_t{BACNET_TABLE_PROPERTIES}, Flag(names));
}

int PutValue(Writer &out, const BACnetContents &value, int names) {
    return out.Put(BACnetSPrintContents, &value, uint32_t{0}, Flag(names), kTaggedValue);
}

// ",%i" + close, or ",-" + close: the last part of a property reference
// and of a property value.
int PutOptionalLast(Writer &out, uint32_t number) {
    if (number == BACNET_ABSENT_U32) return out.Format(",-%s", RBraceString);
    return out.Format(",%i%s", static_cast<int>(number), RBraceString);
}

// The walked parts of one reference; missing ones are null.
int ReadObjPropParts(char *const (&part)[3], BACnetObjPropReference &reference) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    int result = ScanOneElement(BACnetSScanObjectID, part[0], reference.object);
    if (result < 0) return result;
    if ((result = ReadPropertyIdentifier(part[1], reference.propertyId)) < 0) return result;
    // Only a number is an index; anything else, "-" included, is none.
    const bool numbered = part[2] != nullptr && IsDecimalDigit(part[2][0]);
    reference.arrayIndex = numbered ? TextToSigned(part[2]) : kAbsentIndex;
    return 0;
}

int ReadDevObjParts(char *const (&part)[2], BACnetDevObjReference &reference) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    reference.devicePresent = IsVoidString(part[0]) != 0 ? 0 : 1;
    if (reference.devicePresent != 0) {
        const int result = ScanOneElement(BACnetSScanObjectID, part[0], reference.device);
        if (result < 0) return result;
    }
    return ScanOneElement(BACnetSScanObjectID, part[1], reference.object);
}

// What follows the property decides: nothing (no index, no device), a
// bracketed part (the device, no index), or the index and then, unless
// void, the device.
int ReadDevObjPropParts(char *const (&part)[4], const char *textStart,
                        BACnetDevObjPropReference &reference) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    int result = ScanOneElement(BACnetSScanObjectID, part[0], reference.object);
    if (result < 0) return result;
    if ((result = ReadPropertyIdentifier(part[1], reference.propertyId)) < 0) return result;
    reference.arrayIndex = kAbsentIndex;
    reference.devicePresent = 0;
    char *device = nullptr;
    if (part[2] != nullptr && WrittenAsGroup(part[2], textStart)) {
        device = part[2];
    } else if (part[2] != nullptr) {
        if (std::strchr(part[2], ',') != nullptr) return kCountMismatch;
        reference.arrayIndex = VoidOrIndex(part[2]);
        if (part[3] != nullptr && IsVoidString(part[3]) == 0) device = part[3];
    }
    if (device == nullptr) return 0;
    reference.devicePresent = 1;
    return ScanOneElement(BACnetSScanObjectID, device, reference.device);
}

int ReadPropertyReferenceParts(char *property, char *index, BACnetPropertyReference &reference) {
    if (property == nullptr || index == nullptr) return kSyntaxError;
    const int result = ReadPropertyIdentifier(property, reference.propertyId);
    if (result < 0) return result;
    reference.arrayIndex = VoidOrDecimal(index);
    return 0;
}

// The sizing pass reads the value part only.
int ReadPropertyValueParts(char *const (&part)[4], BACnetPropertyValue &value, NestedParts &parts) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    if (!parts.sizing()) {
        const int result = ReadPropertyIdentifier(part[0], value.propertyId);
        if (result < 0) return result;
        value.arrayIndex = VoidOrDecimal(part[1]);
        value.priority = VoidOrDecimal(part[3]);
    }
    value.value.type = kTypeFromText;
    return parts.Value(part[2], value.value);
}

int ReadDevObjPropValueParts(char *const (&part)[5], BACnetDevObjPropValue &value,
                             NestedParts &parts) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    if (!parts.sizing()) {
        int result = ScanOneElement(BACnetSScanObjectID, part[0], value.device);
        if (result < 0) return result;
        if ((result = ScanOneElement(BACnetSScanObjectID, part[1], value.object)) < 0) return result;
        if ((result = ReadPropertyIdentifier(part[2], value.propertyId)) < 0) return result;
        value.arrayIndex = VoidOrDecimal(part[3]);
    }
    value.value.type = kTypeFromText;
    return parts.Value(part[4], value.value);
}

// Commas in the text of a first element, up to two.
int CommasIn(const char *text) {
    const char *comma = std::strchr(text, ',');
    if (comma == nullptr) return 0;
    return std::strchr(comma + 1, ',') == nullptr ? 1 : 2;
}

// The no-element answer of the scanners that accept an empty text.
int NoElement(int32_t *count) {
    *count = 0;
    return 0;
}

}  // namespace

int ReadObjPropReference(char *text, BACnetObjPropReference &reference) {
    char *part[3];
    if (!SplitParts(text, part, 2)) return kSyntaxError;
    return ReadObjPropParts(part, reference);
}

int ReadDevObjReference(char *text, BACnetDevObjReference &reference) {
    char *part[2];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadDevObjParts(part, reference);
}

int ReadDevObjPropReference(char *text, BACnetDevObjPropReference &reference) {
    const char *start = text;
    char *part[4];
    if (!SplitParts(text, part, 2)) return kSyntaxError;
    return ReadDevObjPropParts(part, start, reference);
}

int ReadPropertyReference(char *text, BACnetPropertyReference &reference) {
    char *comma = std::strchr(text, ',');
    if (comma == nullptr) return kSyntaxError;
    *comma = '\0';
    return ReadPropertyReferenceParts(KillTrailLeadSpace(text), KillTrailLeadSpace(comma + 1), reference);
}

int ReadPropertyValue(char *text, BACnetPropertyValue &value, NestedParts &parts) {
    char *part[4];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadPropertyValueParts(part, value, parts);
}

int ReadSetpointReference(char *text, BACnetSetpointReference &reference) {
    reference.present = text[0] == '\0' ? 0 : 1;
    if (reference.present == 0) return 0;
    return ScanOneElement(BACnetSScanObjPropReference, text, reference.reference);
}

void ReleasePropertyValues(void *values, uint32_t count) {
    ReleaseEach<BACnetPropertyValue>(values, count,
                                     [](BACnetPropertyValue &value) { ReleasePayload(value.value); });
}

void ReleaseDevObjPropValues(void *values, uint32_t count) {
    ReleaseEach<BACnetDevObjPropValue>(values, count,
                                       [](BACnetDevObjPropValue &value) { ReleasePayload(value.value); });
}

}  // namespace bacfmt

using namespace bacfmt;

// ---- printers ----

extern "C" int BACnetSPrintObjPropReference(char *dst, int size, const BACnetObjPropReference *value,
                                            int names) {
    // Both parts are printed aside first, into buffers of their own.
    char object[50];
    char property[200];
    int result = BACnetSPrintObjectID(object, sizeof object, &value->object, Flag(names));
    if (result < 0) return result;
    result = BACnetSPrintEnum(property, sizeof property, value->propertyId, BACNET_TABLE_PROPERTIES,
                              Flag(names));
    if (result < 0) return result;
    Writer out(dst, size);
    if (value->arrayIndex == kAbsentIndex) return out.Format("(%s,%s,-)", object, property);
    return out.Format("(%s,%s,%i)", object, property, value->arrayIndex);
}

extern "C" int BACnetSPrintDevObjReference(char *dst, int size, const BACnetDevObjReference *value,
                                           int names) {
    if (size < 2) return kNoRoom;
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return value->devicePresent != 0 ? PutObject(out, value->device, names) : out.Text(HyphenString); },
        [&] { return out.Text(CommaString); },
        [&] { return PutObject(out, value->object, names); },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintDevObjPropReference(char *dst, int size,
                                               const BACnetDevObjPropReference *value, int names) {
    Writer out(dst, size);
    const bool hasIndex = value->arrayIndex != kAbsentIndex;
    const bool hasDevice = value->devicePresent != 0;
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return PutObject(out, value->object, names); },
        [&] { return out.Text(CommaString); },
        [&] { return PutProperty(out, value->propertyId, names); },
        [&] {
            if (!hasIndex) return hasDevice ? out.Text(",-,") : out.Format(",-,-%s", RBraceString);
            return hasDevice ? out.Format(",%i,", value->arrayIndex)
                             : out.Format(",%i,-%s", value->arrayIndex, RBraceString);
        },
        [&] { return hasDevice ? PutObject(out, value->device, names) : 0; },
        [&] { return hasDevice ? out.Text(RBraceString) : 0; });
}

extern "C" int BACnetSPrintSetpointReference(char *dst, int size,
                                             const BACnetSetpointReference *value, int names) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return value->present != 0 ? out.Put(BACnetSPrintObjPropReference, &value->reference, names) : 0; },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintPropertyReference(char *dst, int size,
                                             const BACnetPropertyReference *value, int names) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return PutProperty(out, value->propertyId, names); },
                        [&] { return PutOptionalLast(out, value->arrayIndex); });
}

extern "C" int BACnetSPrintPropertyValue(char *dst, int size, const BACnetPropertyValue *value,
                                         int names) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return PutProperty(out, value->propertyId, names); },
        [&] {
            if (value->arrayIndex == BACNET_ABSENT_U32) return out.Text(",-,");
            return out.Format(",%i,", static_cast<int>(value->arrayIndex));
        },
        [&] { return PutValue(out, value->value, names); },
        [&] { return PutOptionalLast(out, value->priority); });
}

// The device prints numerically whatever `names` says; the property by its
// name always.
extern "C" int BACnetSPrintDevObjPropValue(char *dst, int size, const BACnetDevObjPropValue *value,
                                           int names) {
    if (size < 2) return kNoRoom;
    Writer out(dst, size);
    const char *property = BACnetPropIDString(value->propertyId);
    if (property == nullptr) property = "";
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return PutObject(out, value->device, kNumericObject); },
        [&] { return out.Text(CommaString); },
        [&] { return PutObject(out, value->object, names); },
        [&] {
            if (value->arrayIndex == BACNET_ABSENT_U32) return out.Format(",%s,-,", property);
            return out.Format(",%s,%i,", property, static_cast<int>(value->arrayIndex));
        },
        [&] { return PutValue(out, value->value, names); },
        [&] { return out.Text(RBraceString); });
}

// The closing bracket goes to the start of the destination: the text left
// is ")" while the result is the whole text's length plus one.
extern "C" int BACnetSPrintObjectList(char *dst, int size, const BACnetObjectID *list,
                                      unsigned count, int names) {
    Writer out(dst, size);
    if (out.Text(LBraceString) < 0) return kNoRoom;
    const int result = PrintEach(out, list, count,
                                 [&](const BACnetObjectID &object) { return PutObject(out, object, names); });
    if (result < 0) return result;
    const int closing = static_cast<int>(std::strlen(RBraceString));
    if (closing >= out.room()) return kNoRoom;
    std::memcpy(dst, RBraceString, static_cast<size_t>(closing) + 1);
    return out.used() + closing + 1;
}

extern "C" int BACnetSPrintObjPropRefList(char *dst, int size, const BACnetObjPropReference *list,
                                          int names, unsigned count) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] {
                            return PrintEach(out, list, count, [&](const BACnetObjPropReference &reference) {
                                return out.Put(BACnetSPrintObjPropReference, &reference, names);
                            });
                        },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintDevObjRefList(char *dst, int size, const BACnetDevObjReference *list,
                                         int names, unsigned count) {
    Writer out(dst, size);
    return SumBracketed(out, list, count, [&](const BACnetDevObjReference &reference) {
        return out.AddPut(BACnetSPrintDevObjReference, &reference, names);
    });
}

extern "C" int BACnetSPrintDevObjPropRefList(char *dst, int size,
                                             const BACnetDevObjPropReference *list, int names,
                                             unsigned count) {
    Writer out(dst, size);
    return SumBracketed(out, list, count, [&](const BACnetDevObjPropReference &reference) {
        return out.AddPut(BACnetSPrintDevObjPropReference, &reference, names);
    });
}

// ---- scanners ----

// One reference "(object,property,index)" (its object has no bracket left
// after the walk), or a list of them.
extern "C" int BACnetSScanObjPropReference(char *text, void **payload, int32_t *count,
                                           int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (std::strchr(elements.first(), '(') == nullptr) {
        if (elements.count() != 3 && elements.count() != 2) return kSyntaxError;
        WalkedParts<3> one(elements);
        return ScanElements<BACnetObjPropReference>(
            one, payload, count, sizeOnly,
            [&one](char *, BACnetObjPropReference &reference) { return ReadObjPropParts(one.part, reference); });
    }
    return ScanElements<BACnetObjPropReference>(elements, payload, count, sizeOnly, ReadObjPropReference);
}

// The first element tells one reference from a list: no comma (a void
// device), one comma (a device identifier), or more (a whole reference).
extern "C" int BACnetSScanDevObjReference(char *text, void **payload, int32_t *count,
                                          int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) return NoElement(count);
    const int commas = CommasIn(elements.first());
    if (commas < 2) {
        if (commas == 1 && elements.count() != 2) return kSyntaxError;
        WalkedParts<2> one(elements);
        return ScanElements<BACnetDevObjReference>(
            one, payload, count, sizeOnly,
            [&one](char *, BACnetDevObjReference &reference) { return ReadDevObjParts(one.part, reference); });
    }
    return ScanElements<BACnetDevObjReference>(elements, payload, count, sizeOnly, ReadDevObjReference);
}

extern "C" int BACnetSScanDevObjPropReference(char *text, void **payload, int32_t *count,
                                              int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    const char *start = text;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) return NoElement(count);
    const int commas = CommasIn(elements.first());
    if (commas == 0) return kSyntaxError;
    if (commas == 1) {
        if (elements.count() < 2 || elements.count() > 4) return kSyntaxError;
        WalkedParts<4> one(elements);
        return ScanElements<BACnetDevObjPropReference>(
            one, payload, count, sizeOnly, [&](char *, BACnetDevObjPropReference &reference) {
                return ReadDevObjPropParts(one.part, start, reference);
            });
    }
    return ScanElements<BACnetDevObjPropReference>(elements, payload, count, sizeOnly,
                                                   ReadDevObjPropReference);
}

// "(reference)", "()", or a list of them. A reference written without the
// setpoint's own brackets is taken whole from the saved text.
extern "C" int BACnetSScanSetpointReference(char *text, void **payload, int32_t *count,
                                            int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    SaveText(backupString, text);
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) {  // one empty reference: nothing stored
        if (*count > 0 && *count != 1) return kCountMismatch;
        return NoElement(count);
    }
    const char *first = elements.first();
    const char *comma = std::strchr(first, ',');
    if (comma != nullptr && std::strchr(comma + 1, ',') == nullptr) {
        if (elements.count() != 3 && elements.count() != 2) return kCountMismatch;
        RestoreText(text, backupString);
        SingleElement one(DeBracket(text));
        return ScanElements<BACnetSetpointReference>(one, payload, count, sizeOnly, ReadSetpointReference);
    }
    return ScanElements<BACnetSetpointReference>(elements, payload, count, sizeOnly, ReadSetpointReference);
}

extern "C" int BACnetSScanPropertyReference(char *text, void **payload, int32_t *count,
                                            int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (std::strchr(elements.first(), ',') == nullptr) {
        if (elements.count() != 2) return kSyntaxError;
        WalkedParts<2> one(elements);
        return ScanElements<BACnetPropertyReference>(
            one, payload, count, sizeOnly, [&one](char *, BACnetPropertyReference &reference) {
                return ReadPropertyReferenceParts(one.part[0], one.part[1], reference);
            });
    }
    return ScanElements<BACnetPropertyReference>(elements, payload, count, sizeOnly, ReadPropertyReference);
}

// One value when nothing behind the first element is bracketed, else a
// list: a single value whose value part is bracketed reads as a list.
extern "C" int BACnetSScanPropertyValue(char *text, void **payload, int32_t separateLists,
                                        void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) return NoElement(count);
    const char *rest = elements.rest();
    const bool one = rest == nullptr || std::strpbrk(rest, "({") == nullptr;
    if (one) {
        if (elements.count() != 4) return kSyntaxError;
        WalkedParts<4> value(elements);
        return ScanNestedElements<BACnetPropertyValue>(
            value, payload, separateLists, tail, count, sizeOnly,
            [&value](char *, BACnetPropertyValue &element, NestedParts &parts) {
                return ReadPropertyValueParts(value.part, element, parts);
            });
    }
    return ScanNestedElements<BACnetPropertyValue>(elements, payload, separateLists, tail, count,
                                                   sizeOnly, ReadPropertyValue);
}

// One value "(device,object,property,index,value)" or a list. The list
// form's filling pass reads the parts behind the device from the device's
// own text, so a list sizes but does not fill; that is how it has always
// been.
extern "C" int BACnetSScanDevObjPropValue(char *text, void **payload, int32_t separateLists,
                                          void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) return NoElement(count);
    const int commas = CommasIn(elements.first());
    if (commas == 0) return kSyntaxError;
    if (commas == 1) {
        if (elements.count() != 5) return kSyntaxError;
        WalkedParts<5> value(elements);
        return ScanNestedElements<BACnetDevObjPropValue>(
            value, payload, separateLists, tail, count, sizeOnly,
            [&value](char *, BACnetDevObjPropValue &element, NestedParts &parts) {
                return ReadDevObjPropValueParts(value.part, element, parts);
            });
    }
    return ScanNestedElements<BACnetDevObjPropValue>(
        elements, payload, separateLists, tail, count, sizeOnly,
        [](char *element, BACnetDevObjPropValue &value, NestedParts &parts) {
            char *part[5];
            if (!SplitParts(element, part)) return kSyntaxError;
            if (!parts.sizing()) {
                char *fromDevice[4];
                if (!SplitParts(part[0], fromDevice)) return kSyntaxError;
                std::memcpy(part + 1, fromDevice, sizeof fromDevice);
            }
            return ReadDevObjPropValueParts(part, value, parts);
        });
}
