#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace kivoconfig {

/// An option, or an argument, of a command.
class CommandOption {
public:
    explicit CommandOption(CLI::Option& option) : mOption(&option) {}

    CommandOption& require(bool isRequired = true);
    /// What help shows in the place of the value.
    CommandOption& showAs(char const* valueName);
    CommandOption& accept(std::initializer_list<char const*> texts);
    /// @param findFault says what is wrong with a text; empty: nothing
    CommandOption& check(std::string (*findFault)(std::string const& text));
    CommandOption& need(CommandOption const& other);
    CommandOption& exclude(CommandOption const& other);

private:
    CLI::Option* mOption;
};

/// What a command takes. The headers of the parser behind it take seconds to compile: commands do without them.
class CommandOptions {
public:
    explicit CommandOptions(CLI::App& parser) : mParser(parser) {}

    // Values are written when the options are read; until then they are the defaults. A name without dashes is that of
    // an argument.

    CommandOption addFlag(char const* name, bool& value, char const* help);
    CommandOption addText(char const* name, std::string& value, char const* help);
    /// For an option, one text each time it is given; for an argument, any number.
    CommandOption addTexts(char const* name, std::vector<std::string>& values, char const* help);
    CommandOption addNumber(char const* name, int& value, int least, int most, char const* help);
    /// What help says at its end.
    void setFooter(char const* text);

private:
    CLI::App& mParser;
};

} // namespace kivoconfig
