#include "proprietary_name.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace bacfmt::text {
namespace {

constexpr std::string_view kPrefix = "proprietary-";
constexpr std::size_t kLongestNumber = 10;  // 4294967295
using Slot = std::array<char, 24>;
static_assert(kPrefix.size() + kLongestNumber + 1 <= Slot{}.size());

}  // namespace

const char *ProprietaryName(uint32_t value) {
    thread_local std::array<Slot, kProprietaryNameRing> ring{};
    thread_local unsigned next = 0;

    Slot &slot = ring[next];
    next = (next + 1) % ring.size();
    char *digits = std::copy(kPrefix.begin(), kPrefix.end(), slot.begin());
    // to_chars ignores the locale; the slot always has room (see above).
    char *end = std::to_chars(digits, slot.end() - 1, value).ptr;
    *end = '\0';
    return slot.data();
}

}  // namespace bacfmt::text
