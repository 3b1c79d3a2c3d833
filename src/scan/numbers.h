// Number conversion for the scanners. The notation's numbers are read with
// the acceptance of the C library's atoi/atol/strtoul/strtol/atof (leading
// white space, optional sign, longest valid prefix, nothing reported), but
// independently of the process locale and with the 32-bit target's `long`,
// so that a text converts alike on every build.
#ifndef BACFMT_SCAN_NUMBERS_H
#define BACFMT_SCAN_NUMBERS_H

#include <cstdint>

namespace bacfmt {

// strtoul of a 32-bit `long`: base 0 reads "0x" hexadecimal and
// leading-zero octal; a negative number wraps, an overflow gives 2^32-1.
uint32_t TextToUnsigned(const char *text, int base);

// strtol of a 32-bit `long` (and so atol and atoi): saturates at the limits.
int32_t TextToSigned(const char *text, int base = 10);

// atof in the "C" locale: decimal and hexadecimal forms, "inf", "nan".
double TextToDouble(const char *text);

// The value of a two-character hexadecimal pair read on its own, as
// strtol(pair, 0, 16) gives it; only its low eight bits are kept.
uint8_t HexPairValue(const char *pair);

inline bool IsDecimalDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace bacfmt

#endif  // BACFMT_SCAN_NUMBERS_H
