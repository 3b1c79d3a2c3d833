// Elements of a payload laid out in one block may start at any byte: the
// cursor moves by 5 behind a NULL, by 1 behind a boolean, by a string's
// length plus one. Such elements are never touched through a typed pointer;
// they are copied out into an aligned object and copied back.
#ifndef BACFMT_DATATYPES_UNALIGNED_H
#define BACFMT_DATATYPES_UNALIGNED_H

#include <cstring>
#include <type_traits>

namespace bacfmt {

template <typename T>
T LoadUnaligned(const void *from) {
    static_assert(std::is_trivially_copyable_v<T>);
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <typename T>
void StoreUnaligned(void *to, const T &value) {
    static_assert(std::is_trivially_copyable_v<T>);
    std::memcpy(to, &value, sizeof value);
}

// The i-th element of an array that may start at any byte.
template <typename T>
T LoadElement(const void *array, size_t i) {
    return LoadUnaligned<T>(static_cast<const unsigned char *>(array) + i * sizeof(T));
}

template <typename T>
void StoreElement(void *array, size_t i, const T &value) {
    StoreUnaligned(static_cast<unsigned char *>(array) + i * sizeof(T), value);
}

}  // namespace bacfmt

#endif  // BACFMT_DATATYPES_UNALIGNED_H
