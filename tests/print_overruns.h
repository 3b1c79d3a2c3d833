// The writes past `size` that the printers make on purpose, in one list that
// the capacity sweep and the printer fuzz target both check against.
//
// Four number printers and the tag printer compare `size` with a fixed
// threshold instead of measuring and then write their whole text; the hex
// printer accepts exactly 2 + 2n although its terminator needs one byte more;
// the enumeration printer copies the name with the whole initial size as its
// capacity, behind the number and " => ". Printers built from these hand them
// the room they have left, so their overrun is that of the part at their end.
#ifndef BACFMT_TESTS_PRINT_OVERRUNS_H
#define BACFMT_TESTS_PRINT_OVERRUNS_H

#include <algorithm>
#include <cstdint>

#include <bacfmt/bacfmt.h>

namespace overruns {

struct ThresholdPrinter {
    const char *name;
    int threshold;  // writes once size exceeds this
    int refused;    // result at or below the threshold (nothing written)
    int longest;    // longest text, terminator not counted
};

// "4294967295", "-2147483648", "%f" of -FLT_MAX and of -DBL_MAX, and
// "[-2147483648]".
inline constexpr ThresholdPrinter kUnsigned{"BACnetSPrintUnsigned", 6, -2, 10};
inline constexpr ThresholdPrinter kSigned{"BACnetSPrintSigned", 7, 0, 11};
inline constexpr ThresholdPrinter kReal{"BACnetSPrintReal", 12, -2, 47};
inline constexpr ThresholdPrinter kDouble{"BACnetSPrintDouble", 12, -2, 317};
inline constexpr ThresholdPrinter kTag{"BACnetSPrintTag", 8, -2, 13};
inline constexpr ThresholdPrinter kThresholdPrinters[] = {kUnsigned, kSigned, kReal, kDouble, kTag};

// Bytes a threshold printer writes at `size` for a text of `length`
// characters: nothing at or below the threshold, else the whole text and
// its terminator.
constexpr int ThresholdExtent(const ThresholdPrinter &printer, int size, int length) {
    return size > printer.threshold ? length + 1 : 0;
}

// The furthest a threshold printer reaches past `size`.
constexpr int MostPast(const ThresholdPrinter &printer) {
    return printer.longest + 1 - (printer.threshold + 1);
}

// Bytes the hex printer writes at `size` for `length` octets: the check lets
// exactly 2 + 2n through, and the terminator then lands one byte behind.
constexpr int64_t HexExtent(int size, uint32_t length) {
    const int64_t text = 2 + 2 * int64_t{length};
    return size >= text ? text + 1 : 0;
}

// The furthest an enumeration reaches past its own size: a name copied with
// the whole size behind an 11-character number and " => ".
inline constexpr int kEnumMostPast = 11 + 4;

// The furthest a value of a primitive datatype code reaches past `size`
// when printed by the dispatcher, and the bound for every other code.
constexpr int MostPastOfDatatype(uint32_t code, uint8_t symbolic) {
    switch (code) {
    case CT_UNSIGNED:
    case CT_OBJECT_ID: return MostPast(kUnsigned);
    case CT_SIGNED: return MostPast(kSigned);
    case CT_REAL: return MostPast(kReal);
    case CT_DOUBLE: return MostPast(kDouble);
    case CT_ENUMERATED: return symbolic != 0 ? kEnumMostPast : MostPast(kSigned);
    // Bit names are enumerations of bit numbers below 80: "79 => ".
    case CT_BIT_STRING: return symbolic != 0 ? 2 + 4 : 0;
    case CT_OCTET_STRING:
    case CT_ASN1_FIRST:
    case CT_ASN1_SECOND:
    case CT_ASN1_THIRD: return 1;
    case CT_NULL:
    case CT_BOOLEAN:
    case CT_CHARACTER_STRING:
    case CT_DATE:
    case CT_TIME: return 0;
    default: return BACNET_PRINT_OVERRUN;
    }
}

// The public header's bound covers every threshold printer.
constexpr int MostPastOfAny() {
    int most = kEnumMostPast;
    for (const ThresholdPrinter &printer : kThresholdPrinters) most = std::max(most, MostPast(printer));
    return most;
}
static_assert(MostPastOfAny() == BACNET_PRINT_OVERRUN, "the header's overrun bound is the largest one");

}  // namespace overruns

#endif  // BACFMT_TESTS_PRINT_OVERRUNS_H
