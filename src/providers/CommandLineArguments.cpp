#include "kernel/kvProcessInit.h"

#include "providers/CommandLineArguments.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Flags.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/NameFixer.h"
#include "schema/FaultCollection.h"
#include "schema/LocatedException.h"
#include "values/GroupEditing.h"
#include "values/ItemTaker.h"
#include "values/ValueItemUtil.h"

#include <string_view>

namespace kivo::configuration {

namespace {

constexpr char const* WHITE_SPACE = " \t\n\v\f\r";

/// The name by which an argument that is no flag's value is added.
std::string nameOf(std::string const& argument, StoredOrigin const& origin, int flags) {
    if (!isFlag(argument)) {
        if ((flags & STRICT_RECOGNITION) != 0) {
            throw located(origin, ConfigurationException("%s", composeUnexpectedArgument(argument).c_str()));
        }
        return argument;
    }
    if (argument.size() == 1) {
        throw located(origin, ConfigurationException("A command line parameter cannot be empty"));
    }
    return argument.substr(1);
}

/// What an argument breaks that is refused.
Rule ruleOf(std::string const& argument) {
    return argument.empty() || argument == "-" ? Rule::EMPTY_ARGUMENT : Rule::UNEXPECTED_ARGUMENT;
}

/// A value's text, or null: a value of white space only counts as none.
char const* textOf(std::string const* value) { return value && !value->empty() ? value->c_str() : nullptr; }

/// Gives every value that shares its id with an earlier one to that one.
void mergeValuesOfOneId(ParameterValueGroup& group) {
    std::unordered_set<ParameterValueItem const*> merged;
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        if (auto const* later = group.getItem(i); giveTextsToFirst(group, *later)) {
            merged.insert(later);
        }
    }
    if (!merged.empty()) {
        ItemTaker::destroy(group, merged);
    }
}

} // namespace

bool isFlag(std::string const& argument) { return argument.starts_with('-'); }

std::vector<CommandLineArgument> pairArguments(std::vector<std::string> const& arguments) {
    std::vector<CommandLineArgument> pairs;
    pairs.reserve(arguments.size());
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        auto const& argument = arguments[i];
        bool const hasValue = isFlag(argument) && i + 1 < arguments.size() && !isFlag(arguments[i + 1]);
        pairs.push_back({&argument, hasValue ? &arguments[i + 1] : nullptr, i});
        i += hasValue ? 1 : 0;
    }
    return pairs;
}

std::string trimArgument(char const* argument) {
    std::string_view text(argument ? argument : "");
    auto const first = text.find_first_not_of(WHITE_SPACE);
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(WHITE_SPACE) - first + 1));
}

std::string composeUnexpectedArgument(std::string const& argument) {
    return "The \"" + argument + "\" command line argument is not recognized";
}

std::unique_ptr<ParameterValueGroup> makeArguments() {
    auto group = std::make_unique<ParameterValueGroup>(nullptr);
    group->setStoredOrigin(StoredOrigin::ofCommandLine());
    return group;
}

std::unique_ptr<ParameterValueGroup> parseArguments(ArgumentTexts const& arguments, int flags,
                                                    ParameterErrors* collected) {
    auto values = makeArguments();
    for (auto const& pair : pairArguments(arguments.texts)) {
        auto const origin = StoredOrigin::ofCommandLine().at(arguments.indexOf(pair.index));
        runOrCollect(collected, ruleOf(*pair.argument), origin, [&] {
            values->addValueAt(nameOf(*pair.argument, origin, flags).c_str(), textOf(pair.value), origin);
        });
    }
    return values;
}

std::unique_ptr<ParameterValueGroup> assignArguments(ParameterValueGroup const& arguments,
                                                     Specification const& specification, int flags,
                                                     ParameterErrors* collected) {
    std::unique_ptr<ParameterValueGroup> values(arguments.clone(ParameterValueItem::DEEP_COPY));
    ValueItemUtil().setParameterItemId(*values, specification.getId());
    if ((flags & RESOLVE_FLAG_NAMES) != 0) {
        NameFixer fixer(specification.getParameterGroup(), collected);
        values->accept(fixer);
        mergeValuesOfOneId(*values);
    }
    return values;
}

} // namespace kivo::configuration
