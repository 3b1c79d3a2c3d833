// The write position of the service summaries and the three ways they
// write at it. Unlike the measured writer of the printers, the position is a
// small unsigned counter (8 bits, 16 in the multiple-access summaries) that
// wraps on every addition, nothing is measured first, and every piece
// counts in full whether or not it fit: the summaries return the position
// as their caller has always seen it.
#ifndef BACFMT_DIAG_SUMMARY_WRITER_H
#define BACFMT_DIAG_SUMMARY_WRITER_H

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace bacfmt {

template <typename Counter>
class SummaryWriter {
public:
    SummaryWriter(char *dst, int size) : dst_(dst), size_(size) {}

    int position() const { return position_; }
    char *at() const { return dst_ + position_; }
    // What nested printers get as their capacity; zero or negative once the
    // position has reached the end.
    int room() const { return size_ - position_; }
    bool Reached() const { return position_ >= size_; }

    // Adds as the counter does: a negative count steps back, and every sum
    // wraps modulo the counter's width (-2 adds 254 to an 8-bit position).
    void Add(int count) { position_ = static_cast<Counter>(position_ + count); }

    // A fixed text and its terminator, whatever the room.
    void Copy(const char *text) {
        const size_t length = std::strlen(text);
        std::memcpy(at(), text, length + 1);
        Add(static_cast<int>(length));
    }

    // The whole pattern, whatever the room.
    void Write(const char *format, ...) __attribute__((format(printf, 2, 3))) {
        va_list args;
        va_start(args, format);
        Add(std::vsprintf(at(), format, args));
        va_end(args);
    }

    // The pattern cut at the end of the buffer (nothing at all once the
    // position has reached it), counted in full.
    void Append(const char *format, ...) __attribute__((format(printf, 2, 3))) {
        va_list args;
        va_start(args, format);
        const int capacity = room() > 0 ? room() : 0;
        Add(std::vsnprintf(at(), static_cast<size_t>(capacity), format, args));
        va_end(args);
    }

    // A nested printer at the position with the room left; its result is
    // added as it is.
    template <typename Printer, typename... Args>
    void Put(Printer printer, Args... args) {
        Add(printer(at(), room(), args...));
    }

private:
    char *dst_;
    int size_;
    Counter position_ = 0;
};

using ShortSummary = SummaryWriter<uint8_t>;  // single requests
using LongSummary = SummaryWriter<uint16_t>;  // multiple-access requests

}  // namespace bacfmt

#endif  // BACFMT_DIAG_SUMMARY_WRITER_H
