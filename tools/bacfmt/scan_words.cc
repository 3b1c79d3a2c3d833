#include "scan_words.h"

namespace bacfmt::tool {

const char *ScanCodeWords(int code) {
    switch (code) {
        case -1: return "element count differs";
        case -2: return "syntax error";
        case -3: return "datatype not settled or not supported";
        case -4: return "choice tag disagrees with the datatype";
        case kSizingUndercount: return "value needs more room than its sizing pass found";
        case kPrintFailed: return "value does not print back";
        case kOutOfMemory: return "out of memory";
        default: return "scanner failed";
    }
}

}  // namespace bacfmt::tool
