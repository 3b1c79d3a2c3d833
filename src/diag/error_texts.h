// The text tables behind the status, error, abort and reject texts. The
// public functions in diag.h index them; the tables are reachable here for
// the read-access printers and the tests.
#ifndef BACFMT_DIAG_ERROR_TEXTS_H
#define BACFMT_DIAG_ERROR_TEXTS_H

#include <cstdint>

namespace bacfmt {

inline constexpr uint32_t kErrorClassTextCount = 9;
inline constexpr uint32_t kAbortReasonTextCount = 6;
inline constexpr uint32_t kRejectReasonTextCount = 11;
inline constexpr uint32_t kErrorCodeTextCount = 138;

// The last entry of each table is its "unknown" text.
extern const char *const errorClassStrings[kErrorClassTextCount];
extern const char *const abortReasonStrings[kAbortReasonTextCount];
extern const char *const rejectReasonStrings[kRejectReasonTextCount];
extern const char *const errorCodeStrings[kErrorCodeTextCount];

}  // namespace bacfmt

#endif  // BACFMT_DIAG_ERROR_TEXTS_H
