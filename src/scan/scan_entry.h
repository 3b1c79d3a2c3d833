// How the scan dispatcher calls the scanner of a datatype code and accounts
// for its bytes; one ScanEntry per row of the datatype table.
//
// A row names its scanner through ScanWith<Scanner>(kind): the adapter is
// chosen from the scanner's argument list, the kind says how the dispatcher
// counts the bytes in the sizing pass and moves its cursor in the filling
// pass. A constructed family plugs in by filling its rows this way: Fixed
// for the fixed scanners and for those taking (text, payload,
// separateLists, count, sizeOnly); Variable for those with a tail;
// VariableArrayCursor for the tail-taking ones whose cursor moves by the
// element array only.
#ifndef BACFMT_SCAN_SCAN_ENTRY_H
#define BACFMT_SCAN_SCAN_ENTRY_H

#include <cstdint>

#include <bacfmt/scan.h>

namespace bacfmt {

// Everything a scanner of any argument list may take.
struct ScanCall {
    char *text;
    void **payload;        // the record's data slot (a scratch slot when sizing)
    int32_t separateLists;
    void **innerTail;      // points to a null cursor: content goes behind the elements
    int32_t *count;        // expected count in, elements found out
    int32_t sizeOnly;
    int32_t hint;          // enumeration selector, -1 for none
};

using ScanFunction = int (*)(const ScanCall &call);

enum class ScanKind : uint8_t {
    None,                // no scanner: the code answers -3
    Null,                // no scanner: the dispatcher stores "NULL" itself, 5 bytes
    Fixed,               // the scanner's result is `count` elements
    FixedOneByteCursor,  // as Fixed, but the cursor advances one byte whatever the count
    FixedDoubleSizing,   // as Fixed, but sizing counts the result twice plus the elements
    Variable,            // result = elements + content; both passes add the elements again
    VariableArrayCursor, // as Variable, but the cursor advances by the elements only
};

struct ScanEntry {
    ScanKind kind = ScanKind::None;
    ScanFunction scan = nullptr;
};

namespace scan_adapters {

template <auto Scanner>
struct Adapt;

// (text, payload, count, sizeOnly)
template <int (*Scanner)(char *, void **, int32_t *, int32_t)>
struct Adapt<Scanner> {
    static int Call(const ScanCall &c) { return Scanner(c.text, c.payload, c.count, c.sizeOnly); }
};

// (text, payload, count, selector, sizeOnly): enumerations take the hint.
template <int (*Scanner)(char *, void **, int32_t *, int32_t, int32_t)>
struct Adapt<Scanner> {
    static int Call(const ScanCall &c) {
        return Scanner(c.text, c.payload, c.count, c.hint, c.sizeOnly);
    }
};

// (text, payload, count, expectedBits, sizeOnly): bit strings accept any
// count and any number of bits, whatever the caller expected.
template <int (*Scanner)(char *, void **, int32_t *, int32_t *, int32_t)>
struct Adapt<Scanner> {
    static int Call(const ScanCall &c) {
        int32_t anyBits = 0;
        *c.count = 0;
        return Scanner(c.text, c.payload, c.count, &anyBits, c.sizeOnly);
    }
};

// (text, payload, separateLists, tail, count, sizeOnly)
template <int (*Scanner)(char *, void **, int32_t, void **, int32_t *, int32_t)>
struct Adapt<Scanner> {
    static int Call(const ScanCall &c) {
        return Scanner(c.text, c.payload, c.separateLists, c.innerTail, c.count, c.sizeOnly);
    }
};

// (text, payload, separateLists, count, sizeOnly)
template <int (*Scanner)(char *, void **, int32_t, int32_t *, int32_t)>
struct Adapt<Scanner> {
    static int Call(const ScanCall &c) {
        return Scanner(c.text, c.payload, c.separateLists, c.count, c.sizeOnly);
    }
};

}  // namespace scan_adapters

template <auto Scanner>
constexpr ScanEntry ScanWith(ScanKind kind) {
    return ScanEntry{kind, &scan_adapters::Adapt<Scanner>::Call};
}

inline constexpr ScanEntry kScanNull{ScanKind::Null, nullptr};

}  // namespace bacfmt

#endif  // BACFMT_SCAN_SCAN_ENTRY_H
