// Fuzzes the lexical helpers and the name lookups on arbitrary bytes. The
// first byte sizes the destinations and limits; the rest is the text. Each
// helper gets its own fresh copy, since most of them cut the text in place.
// Besides memory safety it checks what must hold for any text: counting
// mode and in-place mode of the splitter agree, and the walk yields as many
// elements as were counted.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <bacfmt/scan.h>

#include "scan/guess.h"
#include "fuzz_text.h"
#include "scan/lexical.h"

namespace {

using namespace bacfmt;

void CheckSplitter(Text &text) {
    const int counted = ParseElement(text.fresh(), nullptr, nullptr);
    char *first = nullptr;
    char *rest = nullptr;
    if (ParseElement(text.fresh(), &first, &rest) != counted) std::abort();

    ElementList list(text.fresh());
    if (list.count() != counted) std::abort();
    int walked = 0;
    while (list.Next() != nullptr) ++walked;
    if (walked != (counted > 0 ? counted : 0)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 1) return 0;
    const int room = data[0] % 64;
    Text text(data + 1, size - 1);

    CheckSplitter(text);
    KillTrailLeadSpace(text.fresh());
    KillQuote(text.fresh());
    DeBracket(text.fresh());
    std::vector<char> dst(static_cast<size_t>(room) + 1);
    ParseBrackets(text.fresh(), dst.data(), room);
    char *after = nullptr;
    ParseChoice(text.fresh(), -1, &after);
    ParseChoice(text.fresh(), 36, &after);
    IsUnknownString(text.fresh());
    IsUnspecifiedString(text.fresh());
    IsVoidString(text.fresh());
    std::vector<uint8_t> hex(static_cast<size_t>(room) + 1);
    SScanHexByte(text.fresh(), hex.data(), room);
    my_str_str(text.fresh(), ",");
    str_i_cmp(text.fresh(), "multistate-value");
    GuessValueType(text.fresh(), -1);
    BACnetGetEnumValue(text.fresh(), 79, 0, 0);
    BACnetBitString bits;
    BACnetCharStringToBitString(text.fresh(), &bits);
    SaveText(backupString, text.fresh());
    RestoreText(text.fresh(), backupString);
    return 0;
}
