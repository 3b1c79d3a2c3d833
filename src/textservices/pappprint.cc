// The log print function. The library logs only through PAppPrint; a host
// stack that wants the lines elsewhere installs a handler.
#include <cstdarg>
#include <cstdio>

#include <bacfmt/enumtext.h>

namespace {

__attribute__((format(printf, 2, 0))) int PrintToStandardError(int /*level*/, const char *format,
                                                             va_list args) {
    return std::vfprintf(stderr, format, args);
}

PAppPrintHandler currentHandler = PrintToStandardError;

}  // namespace

extern "C" int PAppPrint(int level, const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int result = currentHandler(level, format, args);
    va_end(args);
    return result;
}

extern "C" void PAppSetPrintHandler(PAppPrintHandler handler) {
    currentHandler = handler != nullptr ? handler : PrintToStandardError;
}
