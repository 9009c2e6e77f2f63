#include "kernel/kvProcessInit.h"

#include "inspection/GivenItems.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueVisitor.h>

#include "visitors/SettingNames.h"

#include <utility>

namespace kivo::configuration {

class GivenItems::Noter final : public ParameterValueVisitor {
public:
    explicit Noter(GivenItems& items) : ParameterValueVisitor(false), mItems(items) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        auto* const around = mGroups.empty() ? nullptr : mGroups.back().section;
        auto* const section = enter(group.getParameterGroup(), around);
        char const* id = group.getParameterItemId();
        auto const position = id ? add(id, group.getStoredOrigin(), section) : GivenItem::NONE;
        if (around && !section && group.getNumberOfItems() == 0 && id && !around->getGroup().getItem(id, false)) {
            unknownAndEmpty.push_back(position);
        }
        mGroups.push_back({position, section});
        return true;
    }
    void visitGroupEnd(ParameterValueGroup&) override { mGroups.pop_back(); }

    bool visitParameterValue(ParameterValue& value) override {
        char const* id = value.getParameterItemId();
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            auto* const section = mGroups.empty() ? nullptr : mGroups.back().section;
            auto& item = mItems.mItems[add(id ? id : "", value.getStoredOrigin(i), section)];
            char const* text = value.getValue(i, false);
            item.text = text ? std::optional<std::string>(text) : std::nullopt;
            item.isPresent = value.getValue(i, true) != nullptr;
            item.parameter = value.getParameter();
        }
        return true;
    }

    std::vector<std::size_t> unknownAndEmpty; // positions of groups

private:
    struct OpenGroup {
        std::size_t position;
        Section* section;
    };

    Section* enter(ParameterGroup const* schemaGroup, Section* around) {
        if (schemaGroup == &mItems.mRoot) {
            return &mItems.enterRoot();
        }
        if (!schemaGroup || !around) {
            return nullptr;
        }
        return schemaGroup->getGroupType() == ParameterGroup::CONTAINER ? &around->enter(*schemaGroup) : around;
    }

    std::size_t add(char const* id, StoredOrigin const& origin, Section* section) {
        auto const position = mItems.mItems.size();
        auto& item = mItems.mItems.emplace_back();
        item.id = id;
        item.holder = mGroups.empty() ? GivenItem::NONE : mGroups.back().position;
        item.origin = origin;
        item.section = section;
        item.source = mItems.mSource;
        mItems.mPositions.emplace(origin.identity(), position);
        return position;
    }

    GivenItems& mItems;
    std::vector<OpenGroup> mGroups;
};

class GivenItems::SurvivorNoter final : public ParameterValueVisitor {
public:
    explicit SurvivorNoter(GivenItems& items) : ParameterValueVisitor(false), mItems(items) {}

    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            if (auto* item = mItems.find(value.getStoredOrigin(i))) {
                item->survivesMerge = true;
            }
        }
        return true;
    }

private:
    GivenItems& mItems;
};

GivenItems::GivenItems(ParameterGroup const& root) : mRoot(root) {
    if (!root.isUnbounded()) {
        mRootSections.push_back(std::make_unique<Section>(root, std::string()));
    }
}

std::vector<std::size_t> GivenItems::note(ParameterValueGroup& values) {
    Noter noter(*this);
    values.accept(noter);
    return std::move(noter.unknownAndEmpty);
}

void GivenItems::noteSurvivors(ParameterValueGroup& values) {
    SurvivorNoter noter(*this);
    values.accept(noter);
}

Section& GivenItems::enterRoot() {
    if (mRoot.isUnbounded()) {
        auto prefix = composePrefix({}, composeRootName(mRoot, mRootSections.size() + 1));
        mRootSections.push_back(std::make_unique<Section>(mRoot, std::move(prefix)));
    }
    return *mRootSections.back();
}

void GivenItems::dropEmptyRoot() {
    if (mRoot.isUnbounded() && !mRootSections.empty()) {
        mEmptyRoots.push_back(std::move(mRootSections.back()));
        mRootSections.pop_back();
    }
}

GivenItem* GivenItems::find(StoredOrigin const& origin) {
    auto const found = origin.identity() ? mPositions.find(origin.identity()) : mPositions.end();
    return found == mPositions.end() ? nullptr : &mItems[found->second];
}

} // namespace kivo::configuration
