// The datatype of a text that carries no tag and has no type given, guessed
// from its shape.
#ifndef BACFMT_SCAN_GUESS_H
#define BACFMT_SCAN_GUESS_H

#include <cstdint>

namespace bacfmt {

// A BACnet application tag number 0..12, or -1 when nothing fits (null or
// empty text). `hint` -1 lets a known enumeration name decide.
int GuessValueType(char *text, int32_t hint);

}  // namespace bacfmt

#endif  // BACFMT_SCAN_GUESS_H
