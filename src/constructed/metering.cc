// Accumulator records "(datetime,present,accumulated,status)", prescales
// "(multiplier,modulo)", scales "[3] -2" or "[4] 0.500000" and shed levels
// "[0] 50", "[1] 3" or "[2] 12.500000".
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/metering.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr int kSignedTag = 3;
constexpr int kRealTag = 4;

// "[tag] %f" of a real, independent of the locale.
int TaggedReal(Writer &out, int tag, float value) {
    char digits[kFixedBufferSize];
    const int length = FormatFixed(digits, value);
    return out.Format("[%d] %.*s", tag, length, digits);
}

// A choice-tagged number: the tag, and the text behind it.
int ReadTag(char *text, char *&value) {
    const int tag = ParseChoice(text, -1, &value);
    return tag < 0 ? kSyntaxError : tag;
}

// Cuts `text` into exactly `n` top-level parts.
template <size_t N>
bool SplitExactly(char *text, char *(&parts)[N]) {
    ElementList list(text);
    if (list.count() != static_cast<int>(N)) return false;
    for (char *&part : parts) {
        part = list.Next();
        if (part == nullptr) return false;
        part = KillTrailLeadSpace(part);
    }
    return true;
}

}  // namespace

int ReadAccumulatorRecord(char *text, BACnetAccumulatorRecord &record) {
    char *parts[4];
    if (!SplitExactly(text, parts)) return kSyntaxError;
    const int result = ScanOneElement(BACnetSScanDateTime, parts[0], record.timestamp);
    if (result < 0) return result;
    record.presentValue = TextToUnsigned(parts[1], 10);
    record.accumulatedValue = TextToUnsigned(parts[2], 10);
    record.status = TextToUnsigned(parts[3], 10);
    return 0;
}

int ReadPrescale(char *text, BACnetPrescale &prescale) {
    char *parts[2];
    if (!SplitExactly(text, parts)) return kSyntaxError;
    prescale.multiplier = TextToUnsigned(parts[0], 10);
    prescale.moduloDivide = TextToUnsigned(parts[1], 10);
    return 0;
}

int ReadScale(char *text, BACnetScale &scale) {
    char *value = nullptr;
    switch (ReadTag(text, value)) {
    case kSignedTag:
        scale.type = CT_SIGNED;
        scale.factor.integer = TextToSigned(value);
        return 0;
    case kRealTag:
        scale.type = CT_REAL;
        scale.factor.real = static_cast<float>(TextToDouble(value));
        return 0;
    case kSyntaxError:
        return kSyntaxError;
    default:
        return kUnsupported;
    }
}

int ReadShedLevel(char *text, BACnetShedLevel &shedLevel) {
    char *value = nullptr;
    const int tag = ReadTag(text, value);
    switch (tag) {
    case BACNET_SHED_PERCENT:
    case BACNET_SHED_LEVEL:
        shedLevel.choice = static_cast<uint8_t>(tag);
        shedLevel.value.unsignedValue = TextToUnsigned(value, 10);
        return 0;
    case BACNET_SHED_AMOUNT:
        shedLevel.choice = BACNET_SHED_AMOUNT;
        shedLevel.value.amount = static_cast<float>(TextToDouble(value));
        return 0;
    case kSyntaxError:
        return kSyntaxError;
    default:
        return kUnsupported;
    }
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintAccumulatorRecord(char *dst, int size,
                                             const BACnetAccumulatorRecord *record) {
    if (size < 2) return kNoRoom;
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return out.Put(BACnetSPrintDateTime, &record->timestamp); },
                        [&] {
                            return out.Format(",%u,%u,%u%s", record->presentValue,
                                              record->accumulatedValue, record->status,
                                              RBraceString);
                        });
}

extern "C" int BACnetSPrintPrescale(char *dst, int size, const BACnetPrescale *prescale) {
    return Writer(dst, size).Format("%s%u,%u%s", LBraceString, prescale->multiplier,
                                    prescale->moduloDivide, RBraceString);
}

extern "C" int BACnetSPrintScale(char *dst, int size, const BACnetScale *scale) {
    Writer out(dst, size);
    switch (scale->type) {
    case CT_SIGNED: return out.Format("[%d] %i", kSignedTag, scale->factor.integer);
    case CT_REAL: return TaggedReal(out, kRealTag, scale->factor.real);
    default: return kUnsupported;
    }
}

extern "C" int BACnetSPrintShedLevel(char *dst, int size, const BACnetShedLevel *shedLevel) {
    Writer out(dst, size);
    switch (shedLevel->choice) {
    case BACNET_SHED_PERCENT:
    case BACNET_SHED_LEVEL:
        return out.Format("[%d] %u", shedLevel->choice, shedLevel->value.unsignedValue);
    case BACNET_SHED_AMOUNT: return TaggedReal(out, BACNET_SHED_AMOUNT, shedLevel->value.amount);
    default: return kUnsupported;
    }
}

// One record has four top-level parts; anything else is a list of records.
extern "C" int BACnetSScanAccumulatorRecord(char *text, void **payload, int32_t *count,
                                            int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    const int parts = ParseElement(text, nullptr, nullptr);
    if (parts < 0) return kSyntaxError;
    if (parts == 4) {
        SingleElement one(text);
        return ScanElements<BACnetAccumulatorRecord>(one, payload, count, sizeOnly,
                                                     ReadAccumulatorRecord);
    }
    return ScanList<BACnetAccumulatorRecord>(text, payload, count, sizeOnly, ReadAccumulatorRecord);
}

extern "C" int BACnetSScanPrescale(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanGroups<BACnetPrescale>(text, payload, count, sizeOnly, ReadPrescale);
}

extern "C" int BACnetSScanScale(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<BACnetScale>(text, payload, count, sizeOnly, ReadScale);
}

extern "C" int BACnetSScanShedLevel(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanList<BACnetShedLevel>(text, payload, count, sizeOnly, ReadShedLevel);
}
