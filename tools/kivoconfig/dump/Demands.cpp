#include "dump/Demands.h"

#include <configuration/Parameter.h>

using namespace kivo::configuration;

namespace kivoconfig {

Demands::Demands(DumpedSection const& specification, bool isOpen) : mIsOpen(isOpen) {
    for (auto const& setting : specification.settings) {
        mPresent.insert(&setting.getParameter());
    }
    look(*specification.group, {});
}

Demands::Demands(DumpedSection const& section, Demands const& around) : mIsOpen(false) {
    for (auto const& setting : section.settings) {
        mPresent.insert(&setting.getParameter());
    }
    auto const found = around.mInside.find(section.group);
    look(*section.group, found == around.mInside.end() ? Surroundings{} : found->second);
}

void Demands::look(ParameterGroup const& group, Surroundings surroundings) {
    surroundings.areRequired = surroundings.areRequired || !group.isOptional();
    surroundings.lackSetting =
        surroundings.lackSetting || (!mIsOpen && !surroundings.areRequired && lacksSetting(group));
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        if (item.getItemType() == ParameterItem::PARAMETER) {
            if (surroundings.lackSetting) {
                mForbidden.insert(&item);
            }
            continue;
        }
        auto const& inner = static_cast<ParameterGroup const&>(item);
        if (inner.getGroupType() == ParameterGroup::CONSTRAINT) {
            look(inner, surroundings);
        } else {
            mInside.emplace(&inner, surroundings);
        }
    }
}

bool Demands::lacksSetting(ParameterGroup const& group) const {
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        if (item.getItemType() == ParameterItem::PARAMETER && !item.isOptional() && !mPresent.contains(&item)) {
            return true;
        }
    }
    return false;
}

} // namespace kivoconfig
