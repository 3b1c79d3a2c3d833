// Fuzzes the lookups over numbers: status, error, abort and reject texts,
// engineering units, the property catalogue, datatype names and the
// enumeration text services; and the lookups over names: enumeration
// values and bit strings written as text.
//
// Input: 32-bit words, each looked up with every lookup together with the
// 256 numbers of its block (so that a seed reaches every number of a
// range); the whole input is also taken as a name.
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <bacfmt/bacfmt.h>

#include "fuzz_sweep.h"
#include "fuzz_text.h"

namespace {

// Reading every byte of a text shows a text that is not terminated.
void Read(const char *text) {
    if (text == nullptr) return;
    volatile size_t length = std::strlen(text);
    (void)length;
}

__attribute__((format(printf, 2, 0))) int Quiet(int, const char *format, va_list args) {
    char line[512];
    return std::vsnprintf(line, sizeof line, format, args);
}

void LookUp(uint32_t n, uint32_t other) {
    const BACnetErrorInfo error{n, n, other};
    Read(BACnetStatusString(n));
    Read(BACnetErrorClassString(&error));
    Read(BACnetErrorCodeString(&error));
    Read(BACnetAbortReasonString(&error));
    Read(BACnetRejectReasonString(&error));
    char text[BACNET_ERROR_TEXT_SIZE];
    const unsigned written = BACnetSPrintError(text, other % (sizeof text + 1), n % 80, &error);
    if (written >= sizeof text) std::abort();
    BACnetPrintError(n % 80, n % 2 != 0 ? &error : nullptr, nullptr);

    Read(BACnetUnit2IsoUnitString(n));
    Read(BACnetContentsTypeName(n));
    IsObjectSupportedByDriver(n);
    if (const ObjPropDescription *row = GetObjPropDescription(n, other)) Read(BACnetContentsTypeName(row->datatype));
    uint32_t rows = 0;
    const ObjPropDescription *list = GetObjPropDescriptionList(n, &rows);
    for (uint32_t i = 0; list != nullptr && i < rows; ++i) Read(BACnetPropIDString(list[i].propertyId));

    Read(BACnetPropIDString(n));
    Read(BACnetObjTypeString(n));
    Read(BACnetEnumString(n, other, n));
    Read(BACnetEnumString(other, BACNET_ENUM_ANY_OBJECT, n));
    Read(BACnetMonthString(n));
    Read(BACnetDayOfWeekString(n));
    Read(BACnetBinaryPVString(n));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    PAppSetPrintHandler(Quiet);
    Bytes in(data, size);
    for (int words = 0; in.left() > 0 && words < 4; ++words) {
        const auto n = in.Take<uint32_t>();
        for (uint32_t i = 0; i < 256; ++i) LookUp((n & ~0xFFu) | i, n + i);
    }

    // The input as a name, a bit string and a format argument.
    Text text(data, size);
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    const uint32_t selector = info != nullptr && info->tableCount > 0
                                  ? info->tables[(size != 0 ? data[0] : 0) % info->tableCount].tableId
                                  : 0;
    BACnetGetEnumValue(text.fresh(), selector, 0, 0);
    BACnetGetEnumValue(text.fresh(), BACNET_ENUM_ANY_OBJECT, 0, 1);
    BACnetBitString bits{};
    BACnetCharStringToBitString(text.fresh(), &bits);
    for (uint32_t bit = 0; bit < 100; ++bit) {
        BACnetSetBitStringBit(&bits, static_cast<uint8_t>(bit), static_cast<uint8_t>(bit & 1));
        if (BACnetTestBitStringBit(&bits, static_cast<uint8_t>(bit)) > 1) std::abort();
    }
    const char *printable = text.fresh();
    if (_scprintf("%s|%u", printable, static_cast<unsigned>(size)) < 0) std::abort();
    PAppPrint(0, "%s", printable);
    uint32_t bufferSize = 0;
    if (BACnetPrintBuffer(&bufferSize) == nullptr || bufferSize != BACNET_PRINT_BUFFER_SIZE) std::abort();
    PAppSetPrintHandler(nullptr);
    return 0;
}
