// UTF-8 coders for codes up to 31 bits (the original six-byte forms).
#include <cstdint>

#include <bacfmt/print.h>

#include "charset/charset.h"

namespace bacfmt {
namespace {

struct Utf8Form {
    uint32_t maxCode;
    int length;
    uint8_t lead;
};

constexpr Utf8Form kForms[] = {
    {0x7F, 1, 0x00},       {0x7FF, 2, 0xC0},      {0xFFFF, 3, 0xE0},
    {0x1FFFFF, 4, 0xF0},   {0x3FFFFFF, 5, 0xF8},  {0x7FFFFFFF, 6, 0xFC},
};

const Utf8Form *FormOf(uint32_t code) {
    for (const Utf8Form &form : kForms)
        if (code <= form.maxCode) return &form;
    return nullptr;
}

int Write(const Utf8Form &form, uint32_t code, uint8_t *dst) {
    int shift = 6 * (form.length - 1);
    dst[0] = static_cast<uint8_t>(form.lead | (code >> shift));
    for (int i = 1; i < form.length; ++i) {
        shift -= 6;
        dst[i] = static_cast<uint8_t>(0x80 | ((code >> shift) & 0x3F));
    }
    // The six-byte form ends in the code's low seven bits, unmarked.
    if (form.length == 6) dst[5] = static_cast<uint8_t>(code & 0x7F);
    return form.length;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

int SimpleUtf8Encode(uint32_t code, uint8_t *dst, int capacity) {
    if (code == 0) return 0;
    const Utf8Form *form = FormOf(code);
    if (form == nullptr) return -1;
    return capacity > form->length ? Write(*form, code, dst) : 0;
}

extern "C" int utf8_encode(uint32_t code, uint8_t *dst, int capacity) {
    if (code == 0) return 0;
    const Utf8Form *form = FormOf(code);
    if (form == nullptr) return 0;
    return capacity >= form->length ? Write(*form, code, dst) : 0;
}

extern "C" int utf8_decode(uint32_t *code, const uint8_t *src) {
    *code = 0;
    const uint8_t lead = src[0];
    if (lead == 0) return 0;
    int length = 1;
    if (lead >= 0xFC) length = 6;
    else if (lead >= 0xF8) length = 5;
    else if (lead >= 0xF0) length = 4;
    else if (lead >= 0xE0) length = 3;
    else if (lead >= 0xC0) length = 2;
    if (length == 1) {
        // A stray continuation byte is taken as a character of its own.
        *code = lead;
        return 1;
    }
    uint32_t value = lead & (0x7Fu >> length);
    for (int i = 1; i < length; ++i) {
        if (src[i] == 0) return -1;
        value = value << 6 | (src[i] & 0x3Fu);
    }
    *code = value;
    return length;
}
