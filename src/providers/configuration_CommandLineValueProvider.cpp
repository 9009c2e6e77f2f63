#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/CommandLineArguments.h"
#include "providers/NameFixer.h"
#include "schema/ContractChecks.h"
#include "schema/LocatedException.h"
#include "values/GroupEditing.h"
#include "values/ItemTaker.h"
#include "values/ValueItemUtil.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kivo::configuration {

class CommandLineValueProvider::Impl {
public:
    std::unique_ptr<ParameterValueGroup> mArguments = noArguments();
    std::vector<unsigned long> mOriginalIndexes; // of the next arguments; empty: as they are counted

    static std::unique_ptr<ParameterValueGroup> noArguments() {
        auto group = std::make_unique<ParameterValueGroup>(nullptr);
        group->setStoredOrigin(StoredOrigin::ofCommandLine());
        return group;
    }
};

namespace {

constexpr char const* WHITE_SPACE = " \t\n\v\f\r";

std::string trim(char const* argument) {
    std::string_view text(argument ? argument : "");
    auto const first = text.find_first_not_of(WHITE_SPACE);
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(WHITE_SPACE) - first + 1));
}

std::vector<std::string> trimAll(int argc, char const* const* argv) {
    std::vector<std::string> texts(static_cast<std::size_t>(argc));
    std::transform(argv, argv + argc, texts.begin(), trim);
    return texts;
}

/// The name by which an argument that is no flag's value is added.
std::string nameOf(std::string const& argument, StoredOrigin const& origin, int flags) {
    if (!isFlag(argument)) {
        if ((flags & STRICT_RECOGNITION) != 0) {
            throw located(
                origin, ConfigurationException("The \"%s\" command line argument is not recognized", argument.c_str()));
        }
        return argument;
    }
    if (argument.size() == 1) {
        throw located(origin, ConfigurationException("A command line parameter cannot be empty"));
    }
    return argument.substr(1);
}

/// A value's text, or null: a value of white space only counts as none.
char const* textOf(std::string const* value) { return value && !value->empty() ? value->c_str() : nullptr; }

/// Gives every value that shares its id with an earlier one to that one.
void mergeValuesOfOneId(ParameterValueGroup& group) {
    std::unordered_set<ParameterValueItem const*> merged;
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const* later = group.getItem(i);
        auto* earlier = group.getValue(later->getParameterItemId());
        if (earlier == later) {
            continue;
        }
        appendTexts(*earlier, static_cast<ParameterValue const&>(*later));
        merged.insert(later);
    }
    if (!merged.empty()) {
        ItemTaker::destroy(group, merged);
    }
}

} // namespace

CommandLineValueProvider::CommandLineValueProvider(int priority)
    : ValueProvider(priority), mImpl(std::make_unique<Impl>()) {}

CommandLineValueProvider::~CommandLineValueProvider() = default;

char const* CommandLineValueProvider::getName() const { return Manager::COMMAND_LINE_PROVIDER_NAME; }

void CommandLineValueProvider::setArguments(int argc, char const* const* argv, int flags) {
    std::vector<std::string> const texts = argv && argc > 0 ? trimAll(argc, argv) : std::vector<std::string>();
    auto const originalIndexes = std::exchange(mImpl->mOriginalIndexes, {});
    auto arguments = Impl::noArguments();
    for (auto const& [argument, value, index] : pairArguments(texts)) {
        auto const origin =
            StoredOrigin::ofCommandLine().at(index < originalIndexes.size() ? originalIndexes[index] : index);
        arguments->addValueAt(nameOf(*argument, origin, flags).c_str(), textOf(value), origin);
    }
    mImpl->mArguments = std::move(arguments);
}

bool CommandLineValueProvider::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    KIVO_REQUIRE(specification != 0);
    std::unique_ptr<ParameterValueGroup> values(mImpl->mArguments->clone(ParameterValueItem::DEEP_COPY));
    ValueItemUtil().setParameterItemId(*values, specification->getId());
    if ((flags & RESOLVE_FLAG_NAMES) != 0) {
        NameFixer fixer(specification->getParameterGroup());
        values->accept(fixer);
        mergeValuesOfOneId(*values);
    }
    setDataCache(ParameterValueGroup(nullptr));
    getDataCache().addItem(values.release());
    return ValueProvider::getValues(specification, result, flags);
}

void CommandLineValueProvider::reset() {
    mImpl->mArguments = Impl::noArguments();
    mImpl->mOriginalIndexes.clear();
    ValueProvider::reset();
}

void CommandLineValueProvider::setOriginalIndexes(std::vector<unsigned long> indexes) {
    mImpl->mOriginalIndexes = std::move(indexes);
}

bool CommandLineValueProvider::removeParameter(Specification const* specification, char const* parameterName) {
    KIVO_REQUIRE(specification != 0);
    KIVO_REQUIRE(parameterName != 0 && *parameterName != '\0');
    std::unique_ptr<ParameterValueItem> found(mImpl->mArguments->getItem(parameterName));
    mImpl->mArguments->removeItem(parameterName);
    return found != nullptr;
}

} // namespace kivo::configuration
