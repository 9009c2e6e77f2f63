// Writes a script that lets a shell complete the command line of a tool. What it offers comes from "kivoconfig
// complete", so the script stays the same when the tool's settings change.

#include "Commands.h"
#include "Faults.h"
#include "Inputs.h"
#include "Installation.h"
#include "completion/Scripts.h"

#include <algorithm>
#include <cctype>
#include <memory>

namespace kivoconfig {

namespace {

bool isLetterOrDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// The name of the tool stands in the script as it is.
void requirePlainName(std::string const& tool) {
    bool const isPlain = !tool.empty() && tool.front() != '-' && std::ranges::all_of(tool, [](char c) {
        return isLetterOrDigit(c) || std::string_view("._+-").find(c) != std::string_view::npos;
    });
    if (!isPlain) {
        throw CallFault("\"" + tool + "\" is not the name of a tool: letters, digits and \"._+-\"");
    }
}

std::string functionOf(std::string tool) {
    std::ranges::replace_if(
        tool, [](char c) { return !isLetterOrDigit(c); }, '_');
    return "_kivoconfig_complete_" + tool;
}

/// A text as one word of a shell.
std::string shellQuoted(std::string const& text) {
    std::string word = "'";
    for (char const c : text) {
        c == '\'' ? word.append("'\\''") : word.append(1, c);
    }
    return word + '\'';
}

void replaceAll(std::string& text, std::string_view placeholder, std::string const& value) {
    for (auto at = text.find(placeholder); at != std::string::npos; at = text.find(placeholder, at + value.size())) {
        text.replace(at, placeholder.size(), value);
    }
}

/// A shell runs what stands on standard output: no finding may get there, which could hold any text.
void requireSpecification(std::string const& id) {
    try {
        findSpecification(id);
    } catch (RegistryFault const&) {
        throw CallFault("the registry does not load; kivoconfig lint says why");
    }
}

} // namespace

Work prepareCompletion(CommandOptions& options, Call& call) {
    struct Arguments {
        std::string shell;
        std::string tool;
        bool isGnu = false;
    };
    auto const given = std::make_shared<Arguments>();
    options.addText("SHELL", given->shell, "bash or zsh").require().accept({"bash", "zsh"});
    options.addText("TOOL", given->tool, "Name by which the tool is called").require();
    addSpecification(options, call);
    addGnu(options, given->isGnu);
    return [&call, given] {
        requirePlainName(given->tool);
        requireSpecification(call.specification);
        std::string script = given->shell == "bash" ? BASH_SCRIPT : ZSH_SCRIPT;
        replaceAll(script, "%FUNCTION%", functionOf(given->tool));
        replaceAll(script, "%TOOL%", given->tool);
        replaceAll(script, "%SPEC%", shellQuoted(call.specification) + (given->isGnu ? " --gnu" : ""));
        call.out << script;
        return NO_ERROR_FOUND;
    };
}

} // namespace kivoconfig
