#include "Call.h"

#include "Commands.h"
#include "Faults.h"

#include <configuration/NameSuggestion.h>
#include <configuration/Version.h>

#include <CLI/CLI.hpp>

#include <algorithm>

namespace kivoconfig {

namespace {

char const* const DESCRIPTION = "Answers questions about the settings of an installation's tools.";
char const* const FOOTER = "Exit status: 0 no error found, 1 an error found, 2 no answer.\n"
                           "After \"--\" stand the arguments of the tool in question, without its name.";

/// Moves the arguments of the tool in question out of the words.
void splitOffArguments(std::vector<std::string>& words, Call& call) {
    auto const separator = std::ranges::find(words, "--");
    if (separator != words.end()) {
        call.hasArguments = true;
        call.arguments.assign(separator + 1, words.end());
        words.erase(separator, words.end());
    }
}

Command const* findCommand(std::string const& name) {
    auto const commands = allCommands();
    auto const found = std::ranges::find(commands, name, &Command::name);
    return found == commands.end() ? nullptr : &*found;
}

[[noreturn]] void throwUnknownCommand(std::string const& name) {
    std::vector<char const*> names;
    for (auto const& command : allCommands()) {
        names.push_back(command.name);
    }
    auto const* const meant = kivo::configuration::suggestName(name.c_str(), names.data(), names.size());
    throw CallFault("\"" + name + "\" is not a command" +
                    (meant ? std::string("; did you mean \"") + meant + "\"?" : "; see kivoconfig --help"));
}

/// Reads the words into the options. @return whether an answer is left to give: not when help was asked for
bool parse(CLI::App& options, std::vector<std::string> words, std::ostream& out) {
    std::ranges::reverse(words); // as it wants them
    try {
        options.parse(words);
        return true;
    } catch (CLI::Success const& asked) { // --help, --version
        options.exit(asked, out, out);
        return false;
    } catch (CLI::ParseError const& fault) {
        throw CallFault(fault.what());
    }
}

} // namespace

CommandOption addSpecification(CommandOptions& options, Call& call) {
    return options.addText("SPEC", call.specification, "Id of a specification (kivoconfig list)").require();
}

CommandOption addJson(CommandOptions& options, Call& call) {
    return options.addFlag("--json", call.isJson, "Print one JSON document instead of text");
}

void addFatalWarnings(CommandOptions& options, Call& call) {
    options.addFlag("--fatal-warnings", call.areWarningsFatal, "End with 1 for warnings, too");
}

ExitStatus answer(std::vector<std::string> words, Call& call) {
    splitOffArguments(words, call);
    CLI::App options(DESCRIPTION, "kivoconfig");
    options.footer(FOOTER);
    options.require_subcommand(1);
    options.set_version_flag("--version", "kivoconfig " KIVO_CONFIGURATION_VERSION, "Print the version and exit");
    options.get_formatter()->label("SUBCOMMAND", "COMMAND [-- ARGUMENT...]");
    options.set_help_flag("--help", "Print this help message and exit");
    if (words.empty()) {
        throw CallFault("a command is required; see kivoconfig --help");
    }
    auto const* const asked = findCommand(words[0]);
    if (!asked && !words[0].starts_with('-')) {
        throwUnknownCommand(words[0]);
    }
    if (asked && call.hasArguments && !asked->takesArguments) {
        throw CallFault("\"" + words[0] + "\" takes no arguments of a tool: \"--\" is not expected");
    }
    Work work;
    for (auto const& command : allCommands()) {
        auto* const added = options.add_subcommand(command.name, command.summary);
        added->group("Commands")->footer("");
        if (asked == &command) {
            CommandOptions taken(*added);
            work = command.prepare(taken, call);
        }
    }
    return parse(options, std::move(words), call.out) ? work() : NO_ERROR_FOUND;
}

bool isSilent(std::vector<std::string> const& words) {
    auto const* const command = words.empty() ? nullptr : findCommand(words[0]);
    return command && command->isSilent;
}

} // namespace kivoconfig
