#include "kernel/kvProcessInit.h"

#include "inspection/InspectionPipeline.h"

#include <configuration/Flags.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueVisitor.h>
#include <configuration/Specification.h>
#include <configuration/ValueProvider.h>

#include "inspection/Masking.h"
#include "providers/CommandLineArguments.h"
#include "providers/EnvironmentNames.h"
#include "providers/EnvironmentVariables.h"
#include "providers/GnuArguments.h"
#include "providers/HelpRequest.h"
#include "providers/ProviderOrigins.h"
#include "schema/FaultCollection.h"
#include "schema/NameSuggestion.h"
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

/// Gives every text and every group an origin that no other one shares.
class InspectionPipeline::OriginSeparator final : public ParameterValueVisitor {
public:
    OriginSeparator() : ParameterValueVisitor(false) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        group.setStoredOrigin(group.getStoredOrigin().unshared());
        return true;
    }
    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            value.setStoredOrigin(i, value.getStoredOrigin(i).unshared());
        }
        return true;
    }
};

/// Notes what a source gives, once its values are bound.
class InspectionPipeline::ItemNoter final : public ParameterValueVisitor {
public:
    explicit ItemNoter(InspectionPipeline& pipeline) : ParameterValueVisitor(false), mPipeline(pipeline) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        auto* const around = mGroups.empty() ? nullptr : mGroups.back().section;
        auto* const section = enter(group.getParameterGroup(), around);
        char const* id = group.getParameterItemId();
        auto const position = id ? add(id, group.getStoredOrigin(), section) : GivenItem::NONE;
        if (around && !section && group.getNumberOfItems() == 0 && id && !around->getGroup().getItem(id, false)) {
            mPipeline.noteUnknownElement(mPipeline.mItems[position]);
        }
        mGroups.push_back({position, section});
        return true;
    }
    void visitGroupEnd(ParameterValueGroup&) override { mGroups.pop_back(); }

    bool visitParameterValue(ParameterValue& value) override {
        char const* id = value.getParameterItemId();
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            auto* const section = mGroups.empty() ? nullptr : mGroups.back().section;
            auto& item = mPipeline.mItems[add(id ? id : "", value.getStoredOrigin(i), section)];
            char const* text = value.getValue(i, false);
            item.text = text ? std::optional<std::string>(text) : std::nullopt;
            item.isPresent = value.getValue(i, true) != nullptr;
            item.parameter = value.getParameter();
        }
        return true;
    }

private:
    struct OpenGroup {
        std::size_t position;
        Section* section;
    };

    Section* enter(ParameterGroup const* schemaGroup, Section* around) {
        if (schemaGroup == mPipeline.mRoot && schemaGroup) {
            return &mPipeline.enterRoot();
        }
        if (!schemaGroup || !around) {
            return nullptr;
        }
        return schemaGroup->getGroupType() == ParameterGroup::CONTAINER ? &around->enter(*schemaGroup) : around;
    }

    std::size_t add(char const* id, StoredOrigin const& origin, Section* section) {
        auto const position = mPipeline.mItems.size();
        auto& item = mPipeline.mItems.emplace_back();
        item.id = id;
        item.holder = mGroups.empty() ? GivenItem::NONE : mGroups.back().position;
        item.origin = origin;
        item.section = section;
        item.source = mPipeline.mSource;
        mPipeline.mPositions.emplace(origin.identity(), position);
        return position;
    }

    InspectionPipeline& mPipeline;
    std::vector<OpenGroup> mGroups;
};

/// Notes which texts of a source are still there when its values were merged among themselves.
class InspectionPipeline::SurvivorNoter final : public ParameterValueVisitor {
public:
    explicit SurvivorNoter(InspectionPipeline& pipeline) : ParameterValueVisitor(false), mPipeline(pipeline) {}

    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            if (auto* item = mPipeline.findItem(value.getStoredOrigin(i))) {
                item->survivesMerge = true;
            }
        }
        return true;
    }

private:
    InspectionPipeline& mPipeline;
};

/// Checks the occurrences of repeating sections that a request does not look at: all but the first one of each group.
class InspectionPipeline::OccurrenceValidator final : public ParameterValueVisitor {
public:
    OccurrenceValidator(ParameterGroup const& root, ParameterErrors& faults)
        : ParameterValueVisitor(false), mRoot(root), mFaults(faults) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        auto const* const schemaGroup = group.getParameterGroup();
        auto const* const holder = holderOf(group);
        bool const isLater = schemaGroup && schemaGroup != &mRoot && holder && schemaGroup->isUnbounded() &&
                             findChildGroup(*holder, schemaGroup->getId()) != &group;
        bool const isInRequired = !mIsRequired.empty() && mIsRequired.back();
        if (isLater) {
            SecondPhaseValidationVisitor validation(group, mFaults, isInRequired);
            schemaGroup->accept(validation);
        }
        mIsRequired.push_back(isInRequired || (schemaGroup && !schemaGroup->isOptional()));
        return true;
    }
    void visitGroupEnd(ParameterValueGroup&) override { mIsRequired.pop_back(); }

private:
    ParameterGroup const& mRoot;
    ParameterErrors& mFaults;
    std::vector<bool> mIsRequired; // whether an open group, or one around it, is not optional
};

/// A copy of a tree, in which every text and every group has an origin of its own.
/// @param origin for those that have none
ParameterValueGroup InspectionPipeline::separate(ParameterValueGroup const& tree, StoredOrigin const& origin) {
    ParameterValueGroup separated(tree);
    fillOrigins(separated, origin);
    OriginSeparator separator;
    separated.accept(separator);
    return separated;
}

InspectionPipeline::InspectionPipeline(Specification const& specification, int flags, bool isOpen)
    : ValuePipeline(specification, flags, COLLECT_FAULTS),
      mSpecification(specification),
      mRoot(specification.getParameterGroup()),
      mFlags(flags),
      mIsOpen(isOpen) {
    if (!mRoot->isUnbounded()) {
        mRootSections.push_back(std::make_unique<Section>(*mRoot, std::string()));
    }
}

SettingNames const& InspectionPipeline::names() {
    if (!mNames) {
        mNames.emplace(*mRoot);
    }
    return *mNames;
}

GivenItem* InspectionPipeline::findItem(StoredOrigin const& origin) {
    auto const found = origin.identity() ? mPositions.find(origin.identity()) : mPositions.end();
    return found == mPositions.end() ? nullptr : &mItems[found->second];
}

void InspectionPipeline::addArguments(ParameterValueGroup const& arguments) {
    auto const separated = separate(arguments, StoredOrigin::ofCommandLine());
    ParameterErrors faults;
    ParameterValueGroup values(nullptr);
    values.addItem(assignArguments(separated, mSpecification, mFlags, &faults).release());
    takeFaults(faults);
    send(values, false);
}

void InspectionPipeline::addArguments(GnuArguments const& arguments) {
    ParameterErrors faults;
    auto split = splitGnuArguments(arguments, mSpecification, mFlags, faults);
    takeFaults(faults);
    ParameterValueGroup values(nullptr);
    values.addItem(split.values.release());
    send(separate(values, StoredOrigin::ofCommandLine()), false);
}

void InspectionPipeline::addEnvironment(EnvironmentVariables const& environment) {
    EnvironmentNames const names(*mRoot, environment.prefix);
    for (auto const& variable : environment.variables) {
        if (!names.isKnown(variable.name)) {
            char const* const closest = mFindings.wantsSuggestion() ? names.suggest(variable.name) : nullptr;
            mFindings.add(Finding::WARNING_SEVERITY, Rule::UNKNOWN_VARIABLE,
                          "\"" + variable.name + "\" is not a recognized environment variable",
                          StoredOrigin(Origin::ENVIRONMENT_SOURCE, variable.name), closest ? closest : "");
        }
    }
    ParameterErrors faults;
    ParameterValueGroup values(nullptr);
    values.addItem(names.assign(environment.variables, faults).release());
    takeFaults(faults);
    send(separate(values, StoredOrigin(Origin::ENVIRONMENT_SOURCE, "")), false);
}

void InspectionPipeline::addFile(ParameterValueGroup const& tree, bool isFixed) {
    auto separated = separate(tree, StoredOrigin(Origin::FILE_SOURCE, ""));
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
    ClosestName closest(id);
    closest.offer(mRoot->getId());
    auto const message = std::string("The file is for \"") + id + "\", not for \"" + mRoot->getId() + "\"";
    mFindings.add(Finding::WARNING_SEVERITY, Rule::FOREIGN_FILE, message, tree.getStoredOrigin(),
                  closest.get() ? closest.get() : "");
}

void InspectionPipeline::addApplicationValues(ParameterValueGroup const& values) {
    send(separate(values, StoredOrigin::ofApplication()), false);
}

void InspectionPipeline::send(ParameterValueGroup const& values, bool isFile) {
    mIsFile = isFile;
    addSource(nullptr, values, mCollected);
    ++mSource;
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

    values = separate(values, origin);
    onMatched(values);
    SurvivorNoter survivors(*this);
    values.accept(survivors);
    ParameterValueAggregationVisitor aggregation(&mSpecification, mCollected, faults, false);
    values.accept(aggregation);
    for (unsigned long i = 0; i < values.getNumberOfItems(); ++i) {
        if (auto const& item = *values.getItem(i); item.getParameterItem() != mRoot) {
            mCollected.addItem(item.clone(ParameterValueItem::DEEP_COPY)); // as the provider would have added it
        }
    }
    ++mSource;
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
        auto const* item = findItem(origin);
        if (item && rule == Rule::WRONG_KIND) {
            noteMisgiven(*item);
        }
        bool const isIgnored = rule == Rule::UNKNOWN_SETTING && (mFlags & STRICT_RECOGNITION) == 0;
        auto const suggestion = item && mFindings.wantsSuggestion() ? suggest(rule, *item) : std::string();
        mFindings.add(isIgnored ? Finding::WARNING_SEVERITY : severity, rule, faults.getError(i), origin, suggestion,
                      maskedMessage(faults, i, item));
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
    if (item.holder == GivenItem::NONE) {
        return {};
    }
    auto& holder = mItems[item.holder];
    if (rule == Rule::UNKNOWN_SETTING && holder.section) {
        return names().suggestSetting(holder.section->getGroup(), holder.section->getPrefix(), item.id);
    }
    return rule == Rule::UNKNOWN_SECTION ? suggestElement(holder) : std::string();
}

/// An element is explained with the first message that it brings.
std::string InspectionPipeline::suggestElement(GivenItem& element) {
    auto const* around = element.holder == GivenItem::NONE ? nullptr : mItems[element.holder].section;
    if (!around || std::exchange(element.isExplained, true)) {
        return {};
    }
    return names().suggestElement(around->getGroup(), around->getPrefix(), element.id);
}

/// Of an element that is not known, the library says something only when it holds anything.
void InspectionPipeline::noteUnknownElement(GivenItem& element) {
    auto const suggestion = mFindings.wantsSuggestion() ? suggestElement(element) : std::string();
    mFindings.add(Finding::WARNING_SEVERITY, Rule::UNKNOWN_SECTION, "\"" + element.id + "\" is not a known section",
                  element.origin, suggestion);
}

Section& InspectionPipeline::enterRoot() {
    if (mRoot->isUnbounded()) {
        auto prefix = composePrefix({}, composeRootName(*mRoot, mRootSections.size() + 1));
        mRootSections.push_back(std::make_unique<Section>(*mRoot, std::move(prefix)));
    }
    return *mRootSections.back();
}

void InspectionPipeline::endPhase(ParameterErrors& errors) {
    takeFaults(errors);
    errors.clear();
}

void InspectionPipeline::onMatched(ParameterValueGroup& values) {
    ItemNoter noter(*this);
    values.accept(noter);
    mFormerNames.report(*this);
}

void InspectionPipeline::onAggregated(ParameterValueGroup const& values) {
    SurvivorNoter noter(*this);
    const_cast<ParameterValueGroup&>(values).accept(noter);
    bool const isEmpty = values.getNumberOfItems() == 1 &&
                         values.getItem(0UL)->getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP &&
                         static_cast<ParameterValueGroup const*>(values.getItem(0UL))->getNumberOfItems() == 0;
    if (isEmpty && mRoot->isUnbounded() && !mRootSections.empty()) {
        mEmptyRoots.push_back(std::move(mRootSections.back()));
        mRootSections.pop_back();
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
    OccurrenceValidator validator(*mRoot, faults);
    values.accept(validator);
    takeWarnings(faults);
    if (mIsOpen && values.getNumberOfItems() == 0) {
        addGroup(values, *mRoot);
    }
}

} // namespace kivo::configuration
