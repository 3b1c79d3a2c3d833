// How the scan dispatcher calls the scanner of a datatype code and accounts
// for its bytes; one ScanEntry per row of the datatype table.
#ifndef BACFMT_SCAN_SCAN_ENTRY_H
#define BACFMT_SCAN_SCAN_ENTRY_H

#include <cstdint>

namespace bacfmt {

enum class ScanKind : uint8_t {
    None, // no scanner: the code answers -3
};

struct ScanEntry {
    ScanKind kind = ScanKind::None;
};

}  // namespace bacfmt

#endif  // BACFMT_SCAN_SCAN_ENTRY_H
