// The text of a number that has no name.
#ifndef BACFMT_TEXTSERVICES_PROPRIETARY_NAME_H
#define BACFMT_TEXTSERVICES_PROPRIETARY_NAME_H

#include <cstdint>

namespace bacfmt::text {

// "proprietary-N" in decimal, which the scanners read back as N. The text
// lives in a small per-thread ring, so the last few results stay valid
// together (a printer may hold a month and a weekday at once).
const char *ProprietaryName(uint32_t value);

// How many results of ProprietaryName stay valid together.
inline constexpr unsigned kProprietaryNameRing = 8;

}  // namespace bacfmt::text

#endif  // BACFMT_TEXTSERVICES_PROPRIETARY_NAME_H
