// Print -> scan -> print in every layout a caller can ask for, for the
// constructed families' tests: one block behind the record, a caller's
// record with its payload at an odd cursor of a caller buffer (so that
// nested elements are misaligned), separate blocks into a caller's record,
// and a record the scanner allocates, released with BACnetFreeContents.
#ifndef BACFMT_TESTS_ROUNDTRIP_HARNESS_H
#define BACFMT_TESTS_ROUNDTRIP_HARNESS_H

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

namespace bacfmt_test {

struct Notation {
    uint32_t code;
    const char *text;      // as the printer writes it
    uint32_t property = 0; // for the bracket rule and enumeration names
    uint8_t symbolic = 0;
};

inline std::string Print(const BACnetContents &record, const Notation &n) {
    std::vector<char> out(1 << 16);
    const int length = BACnetSPrintContents(out.data(), static_cast<int>(out.size()), &record,
                                            n.property, n.symbolic, 0);
    if (length < 0) return "<print " + std::to_string(length) + ">";
    return std::string(out.data(), static_cast<size_t>(length));
}

// Scans a copy of `text` (scanning cuts it) with the dispatcher.
inline int Scan(const std::string &text, BACnetContents **record, int32_t separate, void **tail,
                int32_t sizeOnly, int32_t hint = -1) {
    std::vector<char> copy(text.begin(), text.end());
    copy.push_back('\0');
    return BACnetSScanContents(copy.data(), record, 0, separate, tail, sizeOnly, hint);
}

// A typed record is scanned with the property as hint: with no hint (-1) a
// leading choice tag such as the "[1]" of a time stamp would be taken as
// the datatype instead of being left to the type's scanner.
inline int32_t Hint(const Notation &n) { return static_cast<int32_t>(n.property); }

inline BACnetContents Typed(uint32_t code) { return {code, 0, nullptr, 0, {0, 0}}; }

// Checks the fixed point in every layout; `what` names the case in failures.
inline void ExpectFixedPoint(const Notation &n) {
    SCOPED_TRACE(n.text);
    const std::string text = n.text;

    // Sizing, then one block with the record at its start.
    BACnetContents sizingRecord = Typed(n.code);
    BACnetContents *sizingTarget = &sizingRecord;
    void *noTail = nullptr;
    const int bytes = Scan(text, &sizingTarget, 0, &noTail, 1, Hint(n));
    ASSERT_GT(bytes, 0) << "sizing pass";
    {
        std::vector<unsigned char> block(static_cast<size_t>(bytes), 0xA5);
        auto *record = reinterpret_cast<BACnetContents *>(block.data());
        *record = Typed(n.code);
        void *tail = nullptr;
        const int filled = Scan(text, &record, 0, &tail, 0, Hint(n));
        ASSERT_GT(filled, 0) << "single block";
        EXPECT_LE(filled, bytes) << "filling needs more than sizing found";
        EXPECT_EQ(Print(*record, n), text) << "single block";
    }
    // A caller's record, its payload at an odd address of a caller buffer.
    {
        std::vector<unsigned char> buffer(static_cast<size_t>(bytes) + 1, 0xA5);
        BACnetContents own = Typed(n.code);
        BACnetContents *record = &own;
        void *tail = buffer.data() + 1;
        const int filled = Scan(text, &record, 0, &tail, 0, Hint(n));
        ASSERT_GT(filled, 0) << "caller buffer";
        EXPECT_LE(static_cast<unsigned char *>(tail), buffer.data() + buffer.size());
        EXPECT_EQ(Print(own, n), text) << "caller buffer";
    }
    // Separate blocks into a caller's record: like a record the scanner
    // allocates, it learns its type from a tag.
    const std::string tagged = "[" + std::to_string(n.code) + "] " + text;
    {
        BACnetContents own = Typed(n.code);
        BACnetContents *record = &own;
        void *tail = nullptr;
        const int filled = Scan(tagged, &record, 1, &tail, 0);
        EXPECT_GT(filled, 0) << "separate blocks";
        EXPECT_EQ(Print(own, n), text) << "separate blocks";
        BACnetFreeContentsPayload(&own);
        EXPECT_EQ(own.data, nullptr);
    }
    // A record the scanner allocates: it learns its type from the tag.
    {
        BACnetContents *record = nullptr;
        void *tail = nullptr;
        const int filled = Scan(tagged, &record, 0, &tail, 0);
        ASSERT_NE(record, nullptr);
        EXPECT_GT(filled, 0) << "allocating";
        EXPECT_EQ(Print(*record, n), text) << "allocating";
        BACnetFreeContents(record);
    }
}

// Prints the scanned value at every capacity from 0 to its length with
// guard bytes behind the capacity: nothing may be written past
// `size + overrun` (overrun: the bytes a printer is known to write past
// its capacity), the text stays terminated, and a full result is the
// whole text.
inline void ExpectBoundedAtEveryCapacity(const Notation &n, int overrun = 0) {
    SCOPED_TRACE(n.text);
    const std::string text = n.text;
    BACnetContents sizing = Typed(n.code);
    BACnetContents *target = &sizing;
    void *tail = nullptr;
    const int bytes = Scan(text, &target, 0, &tail, 1, Hint(n));
    ASSERT_GT(bytes, 0);
    std::vector<unsigned char> block(static_cast<size_t>(bytes));
    auto *record = reinterpret_cast<BACnetContents *>(block.data());
    *record = Typed(n.code);
    ASSERT_GT(Scan(text, &record, 0, &tail, 0, Hint(n)), 0);
    const std::string full = Print(*record, n);
    const int length = static_cast<int>(full.size());
    constexpr unsigned char kGuard = 0xA5;
    for (int size = 0; size <= length + 1; ++size) {
        std::vector<unsigned char> buffer(static_cast<size_t>(length) + 64, kGuard);
        char *dst = reinterpret_cast<char *>(buffer.data());
        const int result = BACnetSPrintContents(dst, size, record, n.property, n.symbolic, 0);
        const size_t limit = static_cast<size_t>(size + overrun);
        for (size_t i = limit; i < buffer.size(); ++i)
            ASSERT_EQ(buffer[i], kGuard) << "size " << size << ", byte " << i;
        if (size > 0) {
            EXPECT_NE(std::memchr(dst, '\0', limit), nullptr) << "size " << size;
        }
        if (result == length) {
            EXPECT_EQ(std::string(dst), full) << "size " << size;
        }
        EXPECT_LE(result, size + overrun) << "size " << size;
    }
}

}  // namespace bacfmt_test

#endif  // BACFMT_TESTS_ROUNDTRIP_HARNESS_H
