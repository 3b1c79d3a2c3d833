// Fields printed in order with "," between, the way the notification
// parameters and event log records write them: every piece checks its
// room, and the first negative result ends the value.
#ifndef BACFMT_CONSTRUCTED_FIELD_WRITER_H
#define BACFMT_CONSTRUCTED_FIELD_WRITER_H

#include <cstdint>
#include <cstring>

#include <bacfmt/print.h>

#include "print/writer.h"

namespace bacfmt {

inline constexpr uint32_t kStatusFlagsProperty = 111;

class Fields {
public:
    Fields(Writer &out, uint8_t names) : out_(out), names_(names) {}

    // Each adds a field (with the comma before it, except for the first).
    Fields &Flags(const BACnetBitString &flags) { return Bits(flags, kStatusFlagsProperty); }
    Fields &Bits(const BACnetBitString &bits, uint32_t property = 0) {
        return Add([&] { return out_.Put(BACnetSPrintBitString, &bits, property, names_); });
    }
    Fields &Real(float value) { return Add([&] { return out_.Put(BACnetSPrintReal, value); }); }
    Fields &Double(const uint32_t (&words)[2]) {
        double value;
        std::memcpy(&value, words, sizeof value);
        return Add([&] { return out_.Put(BACnetSPrintDouble, value); });
    }
    Fields &Unsigned(uint32_t value) { return Add([&] { return out_.Put(BACnetSPrintUnsigned, value); }); }
    Fields &Signed(int32_t value) { return Add([&] { return out_.Put(BACnetSPrintSigned, value); }); }
    Fields &Enum(uint32_t value, uint32_t key) {
        return Add([&] { return out_.Put(BACnetSPrintEnum, value, key, names_); });
    }
    // Any other piece, a nested printer at the position.
    template <typename Piece>
    Fields &Add(Piece piece) {
        if (result_ < 0) return *this;
        if (fields_++ > 0 && (result_ = out_.Text(CommaString)) < 0) return *this;
        result_ = piece();
        return *this;
    }
    // A piece written straight behind the last, without a comma.
    template <typename Piece>
    Fields &Then(Piece piece) {
        if (result_ >= 0) result_ = piece();
        return *this;
    }

    int Result() const { return result_ < 0 ? result_ : out_.used(); }

private:
    Writer &out_;
    uint8_t names_;
    int fields_ = 0;
    int result_ = 0;
};

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_FIELD_WRITER_H
