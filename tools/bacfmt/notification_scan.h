// Notification parameters for bacfmt scan: they have no datatype code of
// their own, so the tool reads them through their own scanner.
#ifndef BACFMT_TOOL_NOTIFICATION_SCAN_H
#define BACFMT_TOOL_NOTIFICATION_SCAN_H

#include <optional>
#include <string>
#include <string_view>

namespace bacfmt::tool {

// The word --type takes for them.
inline constexpr std::string_view kNotificationParametersType = "notification-parameters";

// Each element of `text` printed (with names when `symbolic`), one a line;
// nothing when the text does not scan, or does not read back from its own
// printed form.
std::optional<std::string> ScanNotificationParameters(std::string_view text, bool symbolic);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_NOTIFICATION_SCAN_H
