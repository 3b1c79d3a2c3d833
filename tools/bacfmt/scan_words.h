// The scanners' result codes in words, for error lines.
#ifndef BACFMT_TOOL_SCAN_WORDS_H
#define BACFMT_TOOL_SCAN_WORDS_H

namespace bacfmt::tool {

// Tool-side failures that have no scanner code of their own.
constexpr int kSizingUndercount = -100;  // the filling pass needed more bytes
constexpr int kPrintFailed = -101;       // the value scanned but does not print
constexpr int kOutOfMemory = -102;

// "syntax error" for -2 and so on; a generic text for other codes.
const char *ScanCodeWords(int code);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_SCAN_WORDS_H
