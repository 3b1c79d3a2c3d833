// bacfmt: BACnet values between text and records, on the command line.
#include <cstdio>
#include <cstring>
#include <string>

#include "commands.h"

namespace bacfmt::tool {
namespace {

const Command *const kCommands[] = {
    &kCheckCommand, &kScanCommand,  &kUnitsCommand, &kStatusCommand, &kErrorCommand,
    &kAbortCommand, &kRejectCommand, &kPropsCommand, &kEnumCommand, &kSummaryCommand,
};

const Command *FindCommand(const char *name) {
    for (const Command *command : kCommands) {
        if (std::strcmp(command->name, name) == 0) return command;
    }
    return nullptr;
}

void PrintToolHelp() {
    std::printf(
        "Usage: bacfmt COMMAND [OPTION]... [ARGUMENT]...\n"
        "\n"
        "BACnet values between their text notation and the records of a\n"
        "protocol stack, and the library's diagnostics and catalogue texts.\n"
        "\n"
        "Commands:\n");
    for (const Command *command : kCommands) {
        std::printf("  %-8s %s\n", command->name, command->summary);
    }
    std::printf(
        "  help     show the help of a command\n"
        "\n"
        "'bacfmt COMMAND --help' describes each command.\n"
        "Exit status: 0 success, 1 some value or lookup failed, 2 usage error.\n");
}

int UnknownCommand(const char *name) {
    std::fprintf(stderr, "bacfmt: unknown command '%s'\nTry 'bacfmt --help'.\n", name);
    return kExitUsage;
}

int Main(int argc, char **argv) {
    if (argc < 2) {
        std::fprintf(stderr, "bacfmt: no command given\nTry 'bacfmt --help'.\n");
        return kExitUsage;
    }
    const char *first = argv[1];
    if (std::strcmp(first, "--help") == 0 || std::strcmp(first, "-h") == 0) {
        PrintToolHelp();
        return kExitOk;
    }
    if (std::strcmp(first, "--version") == 0) {
        std::printf("bacfmt %s\n", BACFMT_VERSION);
        return kExitOk;
    }
    if (std::strcmp(first, "help") == 0) {
        if (argc < 3) {
            PrintToolHelp();
            return kExitOk;
        }
        const Command *command = FindCommand(argv[2]);
        if (command == nullptr) return UnknownCommand(argv[2]);
        PrintHelp(*command);
        return kExitOk;
    }
    const Command *command = FindCommand(first);
    if (command == nullptr) return UnknownCommand(first);
    return command->run(*command, argc - 1, argv + 1);
}

}  // namespace
}  // namespace bacfmt::tool

int main(int argc, char **argv) { return bacfmt::tool::Main(argc, argv); }
