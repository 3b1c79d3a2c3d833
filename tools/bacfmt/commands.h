// The subcommands, each defined in its own file.
#ifndef BACFMT_TOOL_COMMANDS_H
#define BACFMT_TOOL_COMMANDS_H

#include "cli.h"

namespace bacfmt::tool {

extern const Command kCheckCommand;
extern const Command kScanCommand;
extern const Command kUnitsCommand;
extern const Command kStatusCommand;
extern const Command kErrorCommand;
extern const Command kAbortCommand;
extern const Command kRejectCommand;
extern const Command kPropsCommand;
extern const Command kEnumCommand;
extern const Command kSummaryCommand;

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_COMMANDS_H
