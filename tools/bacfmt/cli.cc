#include "cli.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace bacfmt::tool {

void PrintError(const char *command, const std::string &message) {
    std::fprintf(stderr, "bacfmt %s: %s\n", command, message.c_str());
}

int UsageError(const char *command, const std::string &message) {
    PrintError(command, message);
    std::fprintf(stderr, "Try 'bacfmt %s --help'.\n", command);
    return kExitUsage;
}

void PrintHelp(const Command &command) { std::fputs(command.help, stdout); }

OptionParser::OptionParser(const Command &command, int argc, char **argv,
                           const char *shortOptions, const std::vector<option> &longOptions)
    : command_(command),
      programName_(std::string("bacfmt ") + command.name),
      // "+" would stop at the first operand; GNU order lets options follow
      // the texts, as users of other tools expect.
      shortOptions_(std::string(":h") + shortOptions),
      longOptions_(longOptions) {
    argv_.push_back(programName_.data());
    for (int i = 1; i < argc; ++i) argv_.push_back(argv[i]);
    argv_.push_back(nullptr);
    longOptions_.push_back({"help", no_argument, nullptr, 'h'});
    longOptions_.push_back({nullptr, 0, nullptr, 0});
    optind = 0;  // glibc: start a fresh scan for this argument vector
    opterr = 0;  // our own messages, in the "bacfmt SUB:" form
}

int OptionParser::Next() {
    const int argc = static_cast<int>(argv_.size()) - 1;
    const int c = getopt_long(argc, argv_.data(), shortOptions_.c_str(), longOptions_.data(),
                              nullptr);
    if (c == 'h') {
        PrintHelp(command_);
        return 'h';
    }
    if (c == '?' || c == ':') {
        // optopt names a bad short option; for a long one only the word
        // itself tells what was wrong.
        const bool shortOption = c == '?' && optopt != 0;
        const std::string word = shortOption ? std::string("-") + static_cast<char>(optopt)
                                             : std::string(argv_[optind - 1]);
        UsageError(command_.name, c == ':' ? "option '" + word + "' needs an argument"
                                           : "unknown option '" + word + "'");
        return '?';
    }
    return c;
}

std::vector<std::string> OptionParser::Operands() const {
    std::vector<std::string> operands;
    for (std::size_t i = static_cast<std::size_t>(optind); i + 1 < argv_.size(); ++i) {
        operands.emplace_back(argv_[i]);
    }
    return operands;
}

std::optional<std::vector<std::string>> OperandsOnly(const Command &command, int argc,
                                                     char **argv, int &exitCode) {
    OptionParser parser(command, argc, argv, "", {});
    if (const int c = parser.Next(); c != -1) {
        exitCode = c == 'h' ? kExitOk : kExitUsage;
        return std::nullopt;
    }
    return parser.Operands();
}

std::optional<uint32_t> ParseNumber(std::string_view text) {
    if (text.empty() || text.size() > 32) return std::nullopt;
    const std::string copy(text);
    const bool hex = copy.size() > 2 && copy[0] == '0' && (copy[1] == 'x' || copy[1] == 'X');
    // strtoul would accept a sign and leading blanks; a number here is
    // digits only.
    for (std::size_t i = hex ? 2 : 0; i < copy.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(copy[i]);
        const bool digit = c >= '0' && c <= '9';
        const bool hexDigit = (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        if (!digit && !(hex && hexDigit)) return std::nullopt;
    }
    errno = 0;
    char *end = nullptr;
    const unsigned long long value = std::strtoull(copy.c_str(), &end, hex ? 16 : 10);
    if (errno != 0 || *end != '\0' || value > UINT32_MAX) return std::nullopt;
    return static_cast<uint32_t>(value);
}

}  // namespace bacfmt::tool
