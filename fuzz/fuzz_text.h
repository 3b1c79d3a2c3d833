// A fuzz input as scanner text. The scanners cut their text in place, so
// every pass gets a fresh NUL-terminated copy.
#ifndef BACFMT_FUZZ_FUZZ_TEXT_H
#define BACFMT_FUZZ_FUZZ_TEXT_H

#include <cstddef>
#include <cstdint>
#include <vector>

struct Text {
    Text(const uint8_t *data, size_t size) : bytes(data, data + size) { bytes.push_back(0); }
    char *fresh() {
        copy = bytes;
        return reinterpret_cast<char *>(copy.data());
    }
    std::vector<uint8_t> bytes, copy;
};

#endif  // BACFMT_FUZZ_FUZZ_TEXT_H
