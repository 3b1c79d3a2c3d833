// What every subcommand shares: exit codes, option parsing over getopt_long,
// the "bacfmt SUB: message" error form and strict number parsing.
#ifndef BACFMT_TOOL_CLI_H
#define BACFMT_TOOL_CLI_H

#include <getopt.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bacfmt::tool {

// 0 all good; 1 some value, name or lookup failed; 2 the command itself
// could not be carried out as asked (usage, unreadable file).
enum ExitCode : int { kExitOk = 0, kExitFailed = 1, kExitUsage = 2 };

// One subcommand: its name, a one-line summary for the tool's help, the
// full help text and the function that runs it on the arguments after the
// subcommand name.
struct Command {
    const char *name;
    const char *summary;
    const char *help;
    int (*run)(const Command &self, int argc, char **argv);
};

// Messages on standard error, prefixed "bacfmt SUB: ".
void PrintError(const char *command, const std::string &message);
// A usage error: the message, a pointer to --help, and kExitUsage.
int UsageError(const char *command, const std::string &message);

// getopt_long over the arguments of one subcommand. Options come first or
// anywhere (GNU order); "--" ends them, which texts beginning with "-" need.
// --help (-h) is always accepted. Next() returns the option character, 'h'
// after printing the help, -1 at the end of the options, '?' after getopt
// has reported a bad option.
class OptionParser {
public:
    OptionParser(const Command &command, int argc, char **argv, const char *shortOptions,
                 const std::vector<option> &longOptions);
    int Next();
    const char *Argument() const { return optarg; }
    // The arguments after the options.
    std::vector<std::string> Operands() const;

private:
    const Command &command_;
    std::string programName_;
    std::vector<char *> argv_;
    std::string shortOptions_;
    std::vector<option> longOptions_;
};

// Runs the option loop of a subcommand that takes no options but --help.
// Returns the operands, or nothing when the command is done (help shown or
// bad option); `exitCode` then holds the status to return.
std::optional<std::vector<std::string>> OperandsOnly(const Command &command, int argc,
                                                     char **argv, int &exitCode);

// A whole decimal or 0x-hexadecimal number that fits 32 bits, nothing else.
std::optional<uint32_t> ParseNumber(std::string_view text);

void PrintHelp(const Command &command);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_CLI_H
