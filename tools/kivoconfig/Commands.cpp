#include "Commands.h"

namespace kivoconfig {

// Each is defined in a file of its own, commands/<Command>.cpp.
Work prepareCheck(CommandOptions& options, Call& call);
Work prepareComplete(CommandOptions& options, Call& call);
Work prepareCompletion(CommandOptions& options, Call& call);
Work prepareDump(CommandOptions& options, Call& call);
Work prepareExplain(CommandOptions& options, Call& call);
Work prepareLint(CommandOptions& options, Call& call);
Work prepareList(CommandOptions& options, Call& call);
Work prepareManual(CommandOptions& options, Call& call);
Work prepareSchema(CommandOptions& options, Call& call);
Work prepareTemplate(CommandOptions& options, Call& call);

std::span<Command const> allCommands() {
    constexpr bool TAKES_ARGUMENTS = true;
    constexpr bool IS_SILENT = true;
    static constexpr Command COMMANDS[] = {
        {"list", "List the specifications of the installation", prepareList},
        {"lint", "Say what is wrong with registry files, or doubtful", prepareLint},
        {"explain", "Explain values: what a tool reads, where it comes from, and why the rest lost", prepareExplain,
         TAKES_ARGUMENTS},
        {"check", "Report all faults in what a tool would be given", prepareCheck, TAKES_ARGUMENTS},
        {"template", "Write a values file to start from: every setting explained, none given", prepareTemplate},
        {"dump", "Write the values that a tool would get as a values file", prepareDump, TAKES_ARGUMENTS},
        {"schema", "Write an XML Schema of a specification's values files, for editors", prepareSchema},
        {"manual", "Write a manual page about a specification", prepareManual},
        {"completion", "Write a script that lets a shell complete a tool's command line", prepareCompletion},
        {"complete", "Print what can stand at the end of a tool's command line, for such a script", prepareComplete,
         TAKES_ARGUMENTS, IS_SILENT},
    };
    return COMMANDS;
}

} // namespace kivoconfig
