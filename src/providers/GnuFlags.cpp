#include "kernel/kvProcessInit.h"

#include "providers/GnuFlags.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "schema/QuotedText.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kivo::configuration {

namespace {

/// The rank of a name without its sections: after all names with theirs.
constexpr std::size_t WITHOUT_SECTIONS = std::numeric_limits<std::size_t>::max() - 1;

} // namespace

GnuFlags::GnuFlags(ParameterGroup const& root, bool resolvesNames) : mResolvesNames(resolvesNames) {
    root.accept(*this);
    std::ranges::sort(mNames, [](Name const& a, Name const& b) {
        int const order = compareIgnoringCase(a.text, b.text);
        return order != 0 ? order < 0 : std::pair(a.rank, a.setting) < std::pair(b.rank, b.setting);
    });
}

bool GnuFlags::visitGroupStart(ParameterGroup const& group) {
    if (mSections.empty()) {
        mSections.push_back({&group, 0, 0, "", "", ""});
        mIds.emplace_back();
        mOpenGroups.push_back({0, nullptr});
        return true;
    }
    auto const around = mOpenGroups.back().section;
    auto const& [holder, number, depth, prefix, prefixByNames, obstacle] = mSections[around];
    for (auto const& name : {std::string(group.getId()), prefix + group.getId(), prefixByNames + group.getName()}) {
        mGroups.insert(name);
    }
    if (group.getGroupType() != ParameterGroup::CONTAINER) {
        mOpenGroups.push_back({around, &group});
        return true;
    }
    if (!mIds[around].insert(group.getId()).second) {
        return false;
    }
    Section section{&group,
                    around,
                    depth + 1,
                    prefix + group.getId() + '.',
                    prefixByNames + group.getName() + '.',
                    obstacle.empty() ? obstacleTo(group) : obstacle};
    mOpenGroups.push_back({mSections.size(), nullptr});
    mSections.push_back(std::move(section));
    mIds.emplace_back();
    return true;
}

/// No source can give a section that is part of a constraint; and of those of one that repeats, flags cannot say which.
std::string GnuFlags::obstacleTo(ParameterGroup const& container) const {
    if (container.isUnbounded()) {
        return quoted(container.getId()) + " may be repeated";
    }
    auto const* const constraint = mOpenGroups.back().constraint;
    return constraint ? quoted(container.getId()) + " is part of " + quoted(constraint->getId()) : "";
}

void GnuFlags::visitGroupEnd(ParameterGroup const&) { mOpenGroups.pop_back(); }

bool GnuFlags::visitParameter(Parameter const& parameter) {
    auto const section = mOpenGroups.empty() ? 0 : mOpenGroups.back().section;
    if (!mSections.empty() && mIds[section].insert(parameter.getId()).second) {
        mSettings.push_back({&parameter, section});
        addNames(mSettings.back());
    }
    return true;
}

void GnuFlags::addNames(Setting const& setting) {
    auto const& section = mSections[setting.section];
    auto const& parameter = *setting.parameter;
    std::size_t const rank = 2 * section.depth;
    for (bool const isName : {true, false}) {
        std::string const own = isName ? parameter.getName() : parameter.getId();
        if (!isName && own == parameter.getName()) {
            continue;
        }
        std::size_t const second = isName == mResolvesNames ? 0 : 1;
        addName(section.prefix, own, rank + second, isName);
        if (section.prefixByNames != section.prefix) {
            addName(section.prefixByNames, own, rank + second, isName);
        }
        if (section.depth > 0) {
            addName("", own, WITHOUT_SECTIONS + second, isName);
        }
    }
    if (char const* const former = parameter.getFormerName()) {
        auto const firstFormer = mNames.size();
        addName(section.prefix, former, rank + 1, false);
        if (section.prefixByNames != section.prefix) {
            addName(section.prefixByNames, former, rank + 1, false);
        }
        if (section.depth > 0) {
            addName("", former, WITHOUT_SECTIONS + 1, false);
        }
        for (auto i = firstFormer; i < mNames.size(); ++i) {
            mNames[i].isFormer = true;
        }
    }
}

/// Adds a name of the last setting.
void GnuFlags::addName(std::string const& prefix, std::string const& name, std::size_t rank, bool canBeShortened) {
    bool const isHidden = mSettings.back().parameter->isHidden();
    mNames.push_back({prefix + name, rank, mSettings.size() - 1, prefix.size(), false, canBeShortened && !isHidden});
}

/// The first name that is not before a text.
std::vector<GnuFlags::Name>::const_iterator GnuFlags::firstFrom(std::string_view text) const {
    return std::ranges::lower_bound(mNames, text, CaseInsensitiveLess(), &Name::text);
}

GnuFlags::Names GnuFlags::findFull(std::string_view name) const {
    Names found;
    for (auto each = firstFrom(name); each != mNames.end() && equalIgnoringCase(each->text, name); ++each) {
        if (!found.empty() && found.front()->rank != each->rank) {
            break;
        }
        if (found.empty() || found.back()->setting != each->setting) {
            found.push_back(&*each);
        }
    }
    return found;
}

GnuFlags::Names GnuFlags::findShortened(std::string_view text) const {
    Names found;
    for (auto each = firstFrom(text); each != mNames.end() && beginsIgnoringCase(each->text, text); ++each) {
        if (each->canBeShortened && text.size() > each->prefix) {
            found.push_back(&*each);
        }
    }
    std::ranges::stable_sort(found, {}, &Name::setting);
    auto const isSame = [](Name const* a, Name const* b) { return a->setting == b->setting; };
    found.erase(std::unique(found.begin(), found.end(), isSame), found.end());
    return found;
}

std::string GnuFlags::flagOf(Name const& name) const { return sectionOf(name).prefix + parameterOf(name).getName(); }

} // namespace kivo::configuration
