#include "kernel/kvProcessInit.h"

#include "inspection/SettingLister.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterVisitor.h>

#include "inspection/InspectedSettingImpl.h"
#include "inspection/InspectionPipeline.h"
#include "values/ChildSearch.h"

#include <algorithm>
#include <set>

namespace kivo::configuration {

namespace {

std::optional<std::string> copyOf(char const* text) { return text ? std::optional<std::string>(text) : std::nullopt; }

std::string joined(std::vector<std::string> const& path) {
    std::string name;
    for (auto const& part : path) {
        name.append(name.empty() ? "" : ".").append(part);
    }
    return name;
}

} // namespace

/// Lists what stands in one section. Sections further inside are listed where the walk meets them.
class SettingLister::Walk final : public ParameterVisitor {
public:
    Walk(SettingLister& lister, Place const& place) : mLister(lister), mPlace(place) {}

    bool visitGroupStart(ParameterGroup const& group) override {
        bool const isRoot = mIsInChoice.empty();
        if (!isRoot && group.getGroupType() == ParameterGroup::CONTAINER) {
            listOccurrences(group);
            return false;
        }
        mIsInChoice.push_back((isRoot ? mPlace.isInChoice : mIsInChoice.back()) || group.itemsAreExclusive());
        return true;
    }
    void visitGroupEnd(ParameterGroup const&) override { mIsInChoice.pop_back(); }

    bool visitParameter(Parameter const& parameter) override {
        if (mListed.insert(parameter.getId()).second) {
            mLister.listSetting(parameter, mPlace, mIsInChoice.back());
        }
        return true;
    }

private:
    /// A section that nobody gave is listed once.
    void listOccurrences(ParameterGroup const& container) {
        auto const values = findValues(container);
        auto const* const sections = mPlace.section ? &mPlace.section->occurrencesOf(container) : nullptr;
        auto const count = std::max({values.size(), sections ? sections->size() : 0, std::size_t{1}});
        for (std::size_t i = 0; i < count; ++i) {
            Place place{sections && i < sections->size() ? (*sections)[i].get() : nullptr,
                        i < values.size() ? values[i] : nullptr, mPlace.path, mPlace.isFilled && i == 0,
                        mIsInChoice.back()};
            place.path.push_back(composeSectionName(container, i + 1));
            mLister.listSection(container, place);
        }
    }

    std::vector<ParameterValueGroup const*> findValues(ParameterGroup const& container) {
        if (!mPlace.values) {
            return {};
        }
        if (!container.isUnbounded()) {
            auto const* const only = findChildGroup(*mPlace.values, container.getId());
            return only ? std::vector<ParameterValueGroup const*>{only} : std::vector<ParameterValueGroup const*>{};
        }
        if (mRepeated.empty()) {
            for (unsigned long i = 0; i < mPlace.values->getNumberOfItems(); ++i) {
                auto const& item = *mPlace.values->getItem(i);
                if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
                    mRepeated[item.getParameterItem()].push_back(static_cast<ParameterValueGroup const*>(&item));
                }
            }
        }
        return mRepeated[&container];
    }

    SettingLister& mLister;
    Place const& mPlace;
    std::vector<bool> mIsInChoice; // of the open groups
    std::set<std::string_view, CaseInsensitiveLess> mListed;
    std::unordered_map<ParameterItem const*, std::vector<ParameterValueGroup const*>> mRepeated; // groups of values
};

std::vector<InspectedSetting> SettingLister::list() {
    assignTexts();
    auto const& root = mPipeline.getRoot();
    auto const& result = mPipeline.getResult();
    auto const& sections = mPipeline.getItems().getRootSections();
    auto const count = std::max({sections.size(), std::size_t{result.getNumberOfItems()}, std::size_t{1}});
    for (std::size_t i = 0; i < count; ++i) {
        ParameterValueItem const* const item = i < result.getNumberOfItems() ? result.getItem(i) : nullptr;
        bool const isGroup = item && item->getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP;
        auto const* const values = isGroup ? static_cast<ParameterValueGroup const*>(item) : nullptr;
        Place place{i < sections.size() ? sections[i].get() : nullptr, values, {}, values != nullptr, false};
        if (root.isUnbounded()) {
            place.path.push_back(composeRootName(root, i + 1));
        }
        listSection(root, place);
    }
    return std::move(mSettings);
}

/// Gives each text to the setting that it was given for. What belongs to a section further inside goes to its first
/// occurrence.
void SettingLister::assignTexts() {
    SectionPaths paths;
    auto& items = mPipeline.getItems().get();
    for (std::size_t position = 0; position < items.size(); ++position) {
        auto& item = items[position];
        char const* const id = item.parameter ? item.parameter->getId() : nullptr;
        auto const* const path = id && item.section ? paths.find(item.section->getGroup(), id) : nullptr;
        if (!path) {
            continue;
        }
        auto* target = item.section;
        for (auto const* container : *path) {
            target = &target->first(*container);
        }
        item.meant = path->empty() ? std::string() : target->getPrefix() + id;
        target->addText(id, position);
    }
}

void SettingLister::listSection(ParameterGroup const& group, Place const& place) {
    Walk walk(*this, place);
    group.accept(walk);
}

void SettingLister::listSetting(Parameter const& parameter, Place const& place, bool isInChoice) {
    auto setting = std::make_shared<InspectedSetting::Impl>();
    auto const* const value = place.values ? findChildValue(*place.values, parameter.getId()) : nullptr;
    if (value) {
        setting->values = listValues(parameter, *value);
    }
    setting->alternatives = listAlternatives(parameter, place.section);
    auto const* const standard = parameter.getDefaultValue();
    bool const isGiven = !setting->alternatives.empty() || (value && !value->isUsingDefaultValue());
    for (unsigned long i = 0; standard && !(value && value->isUsingDefaultValue()) && i < standard->getNumberOfValues();
         ++i) {
        bool const isExcluded = !value && place.isFilled && isInChoice;
        setting->alternatives.push_back(InspectedText(std::make_shared<InspectedText::Impl>(InspectedText::Impl{
            copyOf(standard->getValue(i, true)), standard->getOrigin(i),
            isExcluded ? InspectedText::EXCLUDED : InspectedText::NOT_USED, parameter.isSensitive()})));
    }
    setting->parameter = &parameter;
    setting->path = place.path;
    setting->path.emplace_back(parameter.getId());
    setting->name = joined(setting->path);
    (parameter.isHidden() && !isGiven ? mHidden : mSettings).push_back(InspectedSetting(std::move(setting)));
}

std::vector<InspectedText> SettingLister::listValues(Parameter const& parameter, ParameterValue const& value) {
    std::vector<InspectedText> texts;
    for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
        if (auto* item = mPipeline.getItems().find(value.getStoredOrigin(i))) {
            item->wins = true;
        }
        texts.push_back(InspectedText(std::make_shared<InspectedText::Impl>(InspectedText::Impl{
            copyOf(value.getValue(i, false)), value.getOrigin(i), InspectedText::WINS, parameter.isSensitive()})));
    }
    return texts;
}

std::vector<InspectedText> SettingLister::listAlternatives(Parameter const& parameter, Section const* section) {
    std::vector<InspectedText> alternatives;
    if (!section) {
        return alternatives;
    }
    auto const& texts = section->textsOf(parameter.getId());
    for (auto const position : texts) {
        if (auto const& item = mPipeline.getItems().get()[position]; !item.wins) {
            alternatives.push_back(InspectedText(std::make_shared<InspectedText::Impl>(InspectedText::Impl{
                item.text, item.origin.toOrigin(), verdictOn(item, texts), parameter.isSensitive()})));
        }
    }
    return alternatives;
}

InspectedText::Verdict SettingLister::verdictOn(GivenItem const& item, std::vector<std::size_t> const& texts) const {
    if (!item.meant.empty()) {
        return InspectedText::MISPLACED;
    }
    bool const hasEarlierSource = mPipeline.getItems().get()[texts.front()].source < item.source;
    return item.survivesMerge && hasEarlierSource ? InspectedText::OVERRIDDEN : InspectedText::MERGED_AWAY;
}

} // namespace kivo::configuration
