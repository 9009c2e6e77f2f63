#include "kernel/kvProcessInit.h"

#include "inspection/InspectionPipeline.h"

#include <configuration/Flags.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/Specification.h>
#include <configuration/ValueProvider.h>

#include "inspection/LaterOccurrences.h"
#include "inspection/Masking.h"
#include "inspection/SeparateOrigins.h"
#include "providers/CommandLineArguments.h"
#include "providers/EnvironmentNames.h"
#include "providers/EnvironmentVariables.h"
#include "providers/GnuArguments.h"
#include "providers/HelpRequest.h"
#include "schema/FaultCollection.h"
#include "schema/NameSuggestion.h"
#include "schema/QuotedText.h"
#include "values/ChildSearch.h"
#include "values/GroupEditing.h"
#include "visitors/ParameterValueAggregationVisitor.h"
#include "visitors/SecondPhaseValidationVisitor.h"
#include "visitors/UnboundedParameterValueFixer.h"

#include <utility>

namespace kivo::configuration {

namespace {

bool isMissingItem(Rule rule) {
    return rule == Rule::MISSING_SETTING || rule == Rule::MISSING_SECTION || rule == Rule::MISSING_GROUP;
}

} // namespace

InspectionPipeline::InspectionPipeline(Specification const& specification, int flags, bool isOpen)
    : ValuePipeline(specification, flags, COLLECT_FAULTS),
      mSpecification(specification),
      mRoot(specification.getParameterGroup()),
      mFlags(flags),
      mIsOpen(isOpen),
      mItems(*mRoot),
      mSecretArguments(*mRoot, (flags & RESOLVE_FLAG_NAMES) != 0) {}

SettingNames const& InspectionPipeline::names() {
    if (!mNames) {
        mNames.emplace(*mRoot);
    }
    return *mNames;
}

void InspectionPipeline::addArguments(ParameterValueGroup const& arguments, ArgumentTexts const& texts) {
    lookForSecrets(texts);
    auto const separated = separateOrigins(arguments, StoredOrigin::ofCommandLine());
    ParameterErrors faults;
    ParameterValueGroup values(nullptr);
    values.addItem(assignArguments(separated, mSpecification, mFlags, &faults).release());
    takeFaults(faults);
    send(values, false);
}

void InspectionPipeline::addArguments(GnuArguments const& arguments) {
    lookForSecrets({arguments.texts, arguments.indexes});
    ParameterErrors faults;
    auto split = splitGnuArguments(arguments, mSpecification, mFlags, faults);
    takeFaults(faults);
    ParameterValueGroup values(nullptr);
    values.addItem(split.values.release());
    send(separateOrigins(values, StoredOrigin::ofCommandLine()), false);
}

void InspectionPipeline::lookForSecrets(ArgumentTexts const& arguments) {
    for (std::size_t i = 1; i < arguments.texts.size(); ++i) {
        mSecretArguments.add(arguments.texts[i], arguments.indexOf(i));
    }
}

void InspectionPipeline::addEnvironment(EnvironmentVariables const& environment) {
    EnvironmentNames const names(*mRoot, environment.prefix);
    for (auto const& variable : environment.variables) {
        if (!names.isKnown(variable.name)) {
            char const* const closest = mFindings.wantsSuggestion() ? names.suggest(variable.name) : nullptr;
            mFindings.add(Finding::WARNING_SEVERITY, Rule::UNKNOWN_VARIABLE,
                          quoted(variable.name) + " is not a recognized environment variable",
                          StoredOrigin(Origin::ENVIRONMENT_SOURCE, variable.name), closest ? closest : "");
        }
    }
    ParameterErrors faults;
    ParameterValueGroup values(nullptr);
    values.addItem(names.assign(environment.variables, faults).release());
    takeFaults(faults);
    send(separateOrigins(values, StoredOrigin(Origin::ENVIRONMENT_SOURCE, "")), false);
}

void InspectionPipeline::addFile(ParameterValueGroup const& tree, bool isFixed) {
    auto separated = separateOrigins(tree, StoredOrigin(Origin::FILE_SOURCE, ""));
    reportForeignFile(tree);
    if (isFixed) {
        send(separated, true);
        return;
    }
    ParameterErrors faults;
    UnboundedParameterValueFixer fixer(&mSpecification, UnboundedParameterValueFixer::COPY, &faults);
    separated.accept(fixer);
    takeFaults(faults);
    send(*fixer.getResult(), true);
}

void InspectionPipeline::reportForeignFile(ParameterValueGroup const& tree) {
    char const* id = tree.getParameterItemId();
    if (!id || equalIgnoringCase(id, mRoot->getId())) {
        return;
    }
    mFindings.add(Finding::WARNING_SEVERITY, Rule::FOREIGN_FILE,
                  "The file is for " + quoted(id) + ", not for " + quoted(mRoot->getId()), tree.getStoredOrigin(),
                  closestName(id, {mRoot->getId()}));
}

void InspectionPipeline::addApplicationValues(ParameterValueGroup const& values) {
    send(separateOrigins(values, StoredOrigin::ofApplication()), false);
}

void InspectionPipeline::send(ParameterValueGroup const& values, bool isFile) {
    mIsFile = isFile;
    addSource(nullptr, values, mCollected);
    mItems.endSource();
}

bool InspectionPipeline::addProvider(ValueProvider& provider, int flags) {
    ParameterErrors faults;
    ParameterValueGroup values(nullptr);
    StoredOrigin const origin(Origin::PROVIDER_SOURCE, provider.getName() ? provider.getName() : "");
    bool hasMore = true;
    runOrCollect(&faults, Rule::FAILED_PROVIDER, origin,
                 [&] { hasMore = provider.getValues(&mSpecification, values, flags); });
    takeFaults(faults);
    faults.clear();

    values = separateOrigins(values, origin);
    onMatched(values);
    mItems.noteSurvivors(values);
    ParameterValueAggregationVisitor aggregation(&mSpecification, mCollected, faults, false);
    values.accept(aggregation);
    for (unsigned long i = 0; i < values.getNumberOfItems(); ++i) {
        if (auto const& item = *values.getItem(i); item.getParameterItem() != mRoot) {
            mCollected.addItem(item.clone(ParameterValueItem::DEEP_COPY)); // as the provider would have added it
        }
    }
    mItems.endSource();
    bool isHelp = false;
    runOrCollect(&faults, Rule::WRONG_KIND, origin, [&] { isHelp = readsAsTrue(values, HELP); });
    return hasMore || isHelp;
}

void InspectionPipeline::complete(bool isRequired) {
    ParameterErrors faults;
    runOrCollect(&faults, Rule::WRONG_KIND, StoredOrigin(), [&] { readsAsTrue(mCollected, HELP); });
    takeFaults(faults);
    ValuePipeline::complete(mCollected, mResult);
    if (mResult.getNumberOfItems() == 0 && isRequired && !mIsOpen && !mHasMisgiven) {
        mFindings.add(Finding::ERROR_SEVERITY, Rule::MISSING_GROUP,
                      std::string("The \"") + mSpecification.getId() + "\" group was not found", StoredOrigin());
    }
}

void InspectionPipeline::takeFaults(ParameterErrors const& faults) { take(faults, Finding::ERROR_SEVERITY); }

/// What a phase says about a text or an element that a phase before found fault with is left out: it is about the same
/// fault.
void InspectionPipeline::take(ParameterErrors const& faults, Finding::Severity severity) {
    std::vector<void const*> faulty;
    for (unsigned long i = 0; i < faults.getNumberOfErrors(); ++i) {
        auto const& origin = faults.getStoredOrigin(i);
        auto const rule = faults.getRule(i);
        bool const isAboutSameFault = mFaulty.contains(origin.identity()) || mMisgiven.contains(faults.getError(i));
        if (isAboutSameFault || (mIsOpen && isMissingItem(rule))) {
            continue;
        }
        bool const isSaidAgain = rule == Rule::WRONG_KIND && i + 1 < faults.getNumberOfErrors() &&
                                 faults.getRule(i + 1) == rule &&
                                 faults.getStoredOrigin(i + 1).identity() == origin.identity() && origin.identity();
        if (isSaidAgain) {
            continue; // a request shows only what binding throws
        }
        if (origin.identity() && rule != Rule::EXCLUSIVE_SETTINGS) { // a choice is at fault there, not a text
            faulty.push_back(origin.identity());
        }
        auto const* item = mItems.find(origin);
        if (item && rule == Rule::WRONG_KIND) {
            noteMisgiven(*item);
        }
        bool const isIgnored = rule == Rule::UNKNOWN_SETTING && (mFlags & STRICT_RECOGNITION) == 0;
        auto const masked = maskedMessage(faults, i, item, mSecretArguments);
        bool const isSuggested = item && masked.empty() && mFindings.wantsSuggestion();
        mFindings.add(isIgnored ? Finding::WARNING_SEVERITY : severity, rule, faults.getError(i), origin,
                      isSuggested ? suggest(rule, *item) : std::string(), masked);
    }
    mFaulty.insert(faulty.begin(), faulty.end());
}

/// What was given as a setting though it is a section, or the other way round, is not missing, too.
void InspectionPipeline::noteMisgiven(GivenItem const& item) {
    mHasMisgiven = true;
    auto const* meant = item.section ? item.section->getGroup().getItem(item.id.c_str(), false) : nullptr;
    if (meant && meant->getItemType() == ParameterItem::PARAMETER_GROUP) {
        auto const& section = static_cast<ParameterGroup const&>(*meant);
        mMisgiven.insert(SecondPhaseValidationVisitor::composeMissingSection(section));
    }
}

std::string InspectionPipeline::suggest(Rule rule, GivenItem const& item) {
    auto* const holder = mItems.holderOf(item);
    if (holder && holder->section && rule == Rule::UNKNOWN_SETTING) {
        return names().suggestSetting(holder->section->getGroup(), holder->section->getPrefix(), item.id);
    }
    return holder && rule == Rule::UNKNOWN_SECTION ? suggestElement(*holder) : std::string();
}

/// An element is explained with the first message that it brings.
std::string InspectionPipeline::suggestElement(GivenItem& element) {
    auto const* const holder = mItems.holderOf(element);
    auto const* const around = holder ? holder->section : nullptr;
    if (!around || std::exchange(element.isExplained, true)) {
        return {};
    }
    return names().suggestElement(around->getGroup(), around->getPrefix(), element.id);
}

/// Of an element that is not known, the library says something only when it holds anything.
void InspectionPipeline::noteUnknownElement(GivenItem& element) {
    auto const suggestion = mFindings.wantsSuggestion() ? suggestElement(element) : std::string();
    mFindings.add(Finding::WARNING_SEVERITY, Rule::UNKNOWN_SECTION, quoted(element.id) + " is not a known section",
                  element.origin, suggestion);
}

void InspectionPipeline::endPhase(ParameterErrors& errors) {
    takeFaults(errors);
    errors.clear();
}

void InspectionPipeline::onMatched(ParameterValueGroup& values) {
    for (auto const position : mItems.note(values)) {
        noteUnknownElement(mItems.get()[position]);
    }
    mFormerNames.report(*this);
}

void InspectionPipeline::onAggregated(ParameterValueGroup const& values) {
    mItems.noteSurvivors(const_cast<ParameterValueGroup&>(values));
    bool const isEmpty = values.getNumberOfItems() == 1 &&
                         values.getItem(0UL)->getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP &&
                         static_cast<ParameterValueGroup const*>(values.getItem(0UL))->getNumberOfItems() == 0;
    if (isEmpty) {
        mItems.dropEmptyRoot();
    }
}

/// "help" is a setting like any other; but in a file, it is help for every tool that reads the file.
bool InspectionPipeline::isHelpRequest(ParameterValueGroup const& group) {
    auto const* const help = findChildValue(group, HELP);
    auto const origin = help ? help->getStoredOrigin(0) : group.getStoredOrigin();
    bool isSet = false;
    ParameterErrors faults;
    runOrCollect(&faults, help ? Rule::UNKNOWN_LABEL : Rule::WRONG_KIND, origin,
                 [&] { isSet = readsAsTrue(group, HELP); });
    takeFaults(faults);
    if (isSet && mIsFile) {
        mFindings.add(Finding::WARNING_SEVERITY, Rule::HELP_IN_FILE,
                      "\"help\" is set in a file: every tool that reads it shows its help and does nothing else",
                      origin);
    }
    if (isSet && origin.source() == Origin::ENVIRONMENT_SOURCE) {
        mFindings.add(Finding::WARNING_SEVERITY, Rule::HELP_IN_ENVIRONMENT,
                      "\"help\" is set in the environment: the tool shows its help and does nothing else", origin);
    }
    return false;
}

void InspectionPipeline::onValidated(ParameterValueGroup& values) {
    ParameterErrors faults;
    checkLaterOccurrences(values, *mRoot, faults);
    takeWarnings(faults);
    if (mIsOpen && values.getNumberOfItems() == 0) {
        addGroup(values, *mRoot);
    }
}

} // namespace kivo::configuration
