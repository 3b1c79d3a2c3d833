#include "notification_scan.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include <bacfmt/bacfmt.h>

namespace bacfmt::tool {
namespace {

// The elements of `text`, printed one a line, scanned into one block that
// the sizing pass measured (with room to spare for the passes that count
// differently).
std::optional<std::string> PrintedForm(std::string_view text, bool symbolic) {
    std::string copy(text);
    void *none = nullptr;
    void *tail = nullptr;
    int32_t count = 0;
    const int sized = BACnetSScanNotificationParameters(copy.data(), &none, 0, &tail, &count, 1);
    if (sized <= 0) return std::nullopt;
    std::vector<uint64_t> block(static_cast<size_t>(sized) / 8 + text.size() + 16, 0);
    void *slot = block.data();
    copy.assign(text);
    count = 0;
    if (BACnetSScanNotificationParameters(copy.data(), &slot, 0, &tail, &count, 0) <= 0) return std::nullopt;
    std::string printed;
    std::vector<char> line(1 << 16);
    for (int32_t i = 0; i < count; ++i) {
        BACnetNotificationParameters element;
        std::memcpy(&element, reinterpret_cast<const char *>(block.data()) + i * sizeof element, sizeof element);
        if (BACnetSPrintNotificationParameters(line.data(), static_cast<int>(line.size()) / 2, &element,
                                               symbolic ? 1 : 0) < 0)
            return std::nullopt;
        printed += line.data();
        printed += '\n';
    }
    return printed;
}

}  // namespace

std::optional<std::string> ScanNotificationParameters(std::string_view text, bool symbolic) {
    const auto printed = PrintedForm(text, symbolic);
    if (!printed) return std::nullopt;
    // Several elements read back as a list of bracketed elements.
    std::string again;
    size_t lines = 0;
    for (size_t start = 0; start < printed->size();) {
        const size_t end = printed->find('\n', start);
        again += (lines++ == 0 ? "(" : ",(") + printed->substr(start, end - start) + ")";
        start = end + 1;
    }
    if (lines == 1) again = printed->substr(0, printed->size() - 1);
    if (lines > 1) again = "(" + again + ")";
    const auto reread = PrintedForm(again, symbolic);
    if (!reread || *reread != *printed) return std::nullopt;
    return printed;
}

}  // namespace bacfmt::tool
