#include "CommandOptions.h"

#include <CLI/CLI.hpp>

namespace kivoconfig {

CommandOption& CommandOption::require(bool isRequired) {
    mOption->required(isRequired);
    return *this;
}

CommandOption& CommandOption::showAs(char const* valueName) {
    mOption->type_name(valueName);
    return *this;
}

CommandOption& CommandOption::accept(std::initializer_list<char const*> texts) {
    mOption->check(CLI::IsMember(std::vector<std::string>(texts.begin(), texts.end())));
    return *this;
}

CommandOption& CommandOption::check(std::string (*findFault)(std::string const& text)) {
    mOption->check(findFault);
    return *this;
}

CommandOption& CommandOption::need(CommandOption const& other) {
    mOption->needs(other.mOption);
    return *this;
}

CommandOption& CommandOption::exclude(CommandOption const& other) {
    mOption->excludes(other.mOption);
    return *this;
}

CommandOption CommandOptions::addFlag(char const* name, bool& value, char const* help) {
    return CommandOption(*mParser.add_flag(name, value, help));
}

CommandOption CommandOptions::addText(char const* name, std::string& value, char const* help) {
    return CommandOption(*mParser.add_option(name, value, help));
}

CommandOption CommandOptions::addTexts(char const* name, std::vector<std::string>& values, char const* help) {
    auto* const added = mParser.add_option(name, values, help);
    if (*name == '-') {
        added->allow_extra_args(false);
    }
    return CommandOption(*added);
}

CommandOption CommandOptions::addNumber(char const* name, int& value, int least, int most, char const* help) {
    return CommandOption(*mParser.add_option(name, value, help)->check(CLI::Range(least, most)));
}

void CommandOptions::setFooter(char const* text) { mParser.footer(text); }

} // namespace kivoconfig
