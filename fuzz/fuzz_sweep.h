// Shared by the printer fuzz targets: a reader that takes typed values from
// the raw input, and the capacity sweep that prints a value at every size
// into a buffer with guard bytes behind `size`.
#ifndef BACFMT_FUZZ_FUZZ_SWEEP_H
#define BACFMT_FUZZ_FUZZ_SWEEP_H

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

// Takes values from the front of the input; zeros once it is used up.
class Bytes {
public:
    Bytes(const uint8_t *data, size_t size) : at_(data), end_(data + size) {}

    template <typename T>
    T Take() {
        T value{};
        const size_t n = std::min(sizeof value, static_cast<size_t>(end_ - at_));
        std::memcpy(&value, at_, n);
        at_ += n;
        return value;
    }
    // Up to `most` raw bytes.
    std::vector<uint8_t> TakeBytes(size_t most) {
        const size_t n = std::min(most, static_cast<size_t>(end_ - at_));
        std::vector<uint8_t> bytes(at_, at_ + n);
        at_ += n;
        return bytes;
    }
    size_t left() const { return static_cast<size_t>(end_ - at_); }

private:
    const uint8_t *at_;
    const uint8_t *end_;
};

// What a printer may write past `size`.
struct Reach {
    // Bytes written in all, exactly, for a whole text of `length` characters
    // (nothing written: 0); null when only a bound is known.
    int (*exact)(int size, int length) = nullptr;
    // With `exact`: the result when nothing is written.
    int refused = -2;
    // Otherwise the furthest it may reach past `size`.
    int mostPast = 0;
    // The printer writes a terminator at the start before anything else.
    bool terminatesFirst = false;
};

[[noreturn]] inline void Fail(const char *what, int size, int result, int furthest, const char *text) {
    std::fprintf(stderr, "%s at size %d: result %d, bytes written up to %d, text \"%.400s\"\n", what, size,
                 result, furthest, text);
    std::abort();
}

// Prints with `print(dst, size)` at every size from 0 to just past the whole
// text (a sample of sizes for long texts), with guard bytes behind the
// reach the contract allows; aborts on a write beyond it, on an exact reach
// missed, and on a text that differs from the whole one when given room.
template <typename Print>
void SweepSizes(const Print &print, const Reach &reach) {
    constexpr unsigned char kGuard = 0xA5;
    constexpr int kAmple = 1 << 16;
    static std::vector<char> whole(kAmple);
    whole[0] = '\0';
    const int wholeResult = print(whole.data(), kAmple);
    const int length = static_cast<int>(strnlen(whole.data(), kAmple));
    if (length >= kAmple / 2) return;

    // Some list printers count more than the text they leave (their marks
    // go to the start): the room they need is the larger of the two.
    const int last = std::max(length, wholeResult) + 16;
    const int past = reach.exact != nullptr ? length + 1 : reach.mostPast;
    std::vector<unsigned char> buffer(static_cast<size_t>(last + past) + 16);
    auto *dst = reinterpret_cast<char *>(buffer.data());
    for (int size = 0; size <= last; ++size) {
        // Every size up to 160 and near the end; a stride in between.
        if (size > 160 && size < length - 8 && size % 61 != 0) continue;
        std::fill(buffer.begin(), buffer.end(), kGuard);
        const int result = print(dst, size);
        int furthest = 0;
        for (int i = static_cast<int>(buffer.size()); i > 0; --i)
            if (buffer[static_cast<size_t>(i - 1)] != kGuard) {
                furthest = i;
                break;
            }
        const auto fail = [&](const char *what) { Fail(what, size, result, furthest, whole.data()); };
        if (reach.exact != nullptr) {
            const int extent = reach.exact(size, length);
            if (furthest > extent) fail("written past the exact reach");
            // What is written is the whole text, terminator included.
            if (extent > 0 && (extent != length + 1 || std::memcmp(dst, whole.data(), static_cast<size_t>(extent)) != 0))
                fail("not the whole text");
            if (result != (extent > 0 ? wholeResult : reach.refused)) fail("unexpected result");
        } else if (furthest > size + reach.mostPast) {
            fail("written past the bound");
        }
        if (reach.terminatesFirst && size > 0 &&
            std::memchr(dst, '\0', static_cast<size_t>(std::max(size, furthest))) == nullptr)
            fail("not terminated");
    }
    // With room to spare (list printers check a fixed room per element, more
    // than their text needs) the text and result are those of the whole.
    const int spare = std::max(last, 4096) + length;
    std::vector<char> roomy(static_cast<size_t>(spare), '\0');
    const int result = print(roomy.data(), spare);
    if (result != wholeResult || std::strcmp(roomy.data(), whole.data()) != 0)
        Fail("a different text with room to spare", spare, result, -1, whole.data());
}

#endif  // BACFMT_FUZZ_FUZZ_SWEEP_H
