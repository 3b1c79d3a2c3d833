#include "input_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace bacfmt::tool {

std::optional<std::string> ReadInput(const std::string &path, std::string &error) {
    const bool standardInput = path == "-";
    struct Closer {
        bool owned;
        void operator()(std::FILE *file) const {
            if (owned) std::fclose(file);
        }
    };
    std::unique_ptr<std::FILE, Closer> file(standardInput ? stdin : std::fopen(path.c_str(), "rb"),
                                            Closer{!standardInput});
    if (file == nullptr) {
        error = std::strerror(errno);
        return std::nullopt;
    }
    std::string bytes;
    char chunk[1 << 16];
    for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, file.get())) > 0;) {
        bytes.append(chunk, got);
    }
    // fopen opens a directory for reading; the error comes with the first read.
    if (std::ferror(file.get())) {
        error = std::strerror(errno);
        return std::nullopt;
    }
    return bytes;
}

std::string InputName(const std::string &path) { return path == "-" ? "<stdin>" : path; }

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            lines.push_back(text.substr(start));
            break;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

}  // namespace bacfmt::tool
