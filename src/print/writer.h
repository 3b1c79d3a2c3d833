// The output conventions shared by every printer, in one place.
//
// A printer writes at `at()` with `room()` bytes left (terminator included).
// Pieces are measured before they are written and written only when they fit
// strictly inside the room; a piece that does not fit answers -2 and leaves
// the text written so far terminated. The writer never writes past the end of
// the destination on its own account; the few printers that deliberately hand
// a nested printer more room than is left say so where they do it. The number
// and tag printers with a fixed threshold write their whole text once the
// threshold is passed (WriteWhole); a result longer than the room leaves
// room() negative, and every later piece is then refused.
#ifndef BACFMT_PRINT_WRITER_H
#define BACFMT_PRINT_WRITER_H

#include <cstdarg>
#include <cstdint>
#include <initializer_list>

namespace bacfmt {

// Result of a piece that does not fit.
inline constexpr int kNoRoom = -2;

class Writer {
public:
    Writer(char *dst, int size) : begin_(dst), size_(size) {}

    char *begin() const { return begin_; }
    char *at() const { return begin_ + used_; }
    int room() const { return size_ - used_; }
    int used() const { return used_; }

    // Takes the result of a piece written at at() within room(): a
    // non-negative result advances past it. The result is passed back so
    // that the caller decides whether a failure stops it.
    int Step(int result) {
        if (result > 0) used_ += result;
        return result;
    }

    // Runs a nested printer at the current position with the room left.
    template <typename Printer, typename... Args>
    int Put(Printer printer, Args... args) {
        return Step(printer(at(), room(), args...));
    }

    // Takes a piece's result into a running total without checking it, as
    // the printers that sum their pieces do: a negative result moves the
    // position back by as much, but never before the start.
    int Add(int result) {
        used_ = used_ + result > 0 ? used_ + result : 0;
        return result;
    }
    template <typename Printer, typename... Args>
    int AddPut(Printer printer, Args... args) {
        return Add(printer(at(), room(), args...));
    }
    int AddText(const char *text);

    // Copies a text whatever the room: for the few pieces that are written
    // without a capacity check. Callers give room for the whole text.
    int Unchecked(const char *text);

    // Fixed text: -2 when its length plus the terminator exceeds the room.
    int Text(const char *text);

    // A whole pattern, measured first: -2 when the measured length is at
    // least the room, otherwise written.
    int Format(const char *format, ...) __attribute__((format(printf, 2, 3)));
    int FormatV(const char *format, va_list args) __attribute__((format(printf, 2, 0)));

    // Texts written one after the other as one pattern, as "%s%s..." would
    // write them: measured as a whole, -2 when the total is at least the
    // room. No formatting pass: the pieces are copied.
    int Concat(std::initializer_list<const char *> pieces);

    // Digits prepared elsewhere (a number formatted into a scratch buffer):
    // written only when they fit strictly inside the room.
    int Chars(const char *chars, int length);

    // Runs the pieces in order and stops at the first negative result, which
    // it returns; otherwise the characters written so far.
    template <typename... Pieces>
    int Sequence(Pieces &&...pieces) {
        int result = 0;
        (void)(((result = pieces()) >= 0) && ...);
        return result < 0 ? result : used_;
    }

private:
    char *begin_;
    int size_;
    int used_ = 0;
};

// Copies `length` characters and the terminator to `dst` without looking at
// any room: for printers whose only check is a fixed threshold.
int WriteWhole(char *dst, const char *text, int length);

// Number formatting into a scratch buffer, independent of the process
// locale and identical to printf's "%u", "%d" and "%f".
int FormatUnsigned(char (&out)[16], uint32_t value);
int FormatSigned(char (&out)[16], int32_t value);
// "%f" of a double: six decimals; inf/nan spelled as the C library does.
inline constexpr int kFixedBufferSize = 330;
int FormatFixed(char (&out)[kFixedBufferSize], double value);
// "%e" of a double: six decimals and an exponent of at least two digits.
int FormatExponent(char (&out)[32], double value);

}  // namespace bacfmt

#endif  // BACFMT_PRINT_WRITER_H
