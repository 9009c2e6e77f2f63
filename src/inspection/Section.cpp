#include "kernel/kvProcessInit.h"

#include "inspection/Section.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterVisitor.h>

#include "visitors/SettingNames.h"

#include <utility>

namespace kivo::configuration {

namespace {

/// Notes the path to every setting below a container. Of several of one id the first one counts, unless the container
/// itself has one.
class PathNoter final : public ParameterVisitor {
public:
    using Paths = std::map<std::string_view, Section::Path, CaseInsensitiveLess>;

    bool visitGroupStart(ParameterGroup const& group) override {
        if (mIsInside && group.getGroupType() == ParameterGroup::CONTAINER) {
            mPath.push_back(&group);
        }
        mIsInside = true;
        return true;
    }
    void visitGroupEnd(ParameterGroup const& group) override {
        if (!mPath.empty() && mPath.back() == &group) {
            mPath.pop_back();
        }
    }
    bool visitParameter(Parameter const& parameter) override {
        auto const [entry, isNew] = paths.try_emplace(parameter.getId(), mPath);
        if (!isNew && mPath.empty()) {
            entry->second.clear();
        }
        return true;
    }

    Paths paths;

private:
    bool mIsInside = false;
    Section::Path mPath;
};

} // namespace

Section::Section(ParameterGroup const& group, std::string prefix) : mGroup(&group), mPrefix(std::move(prefix)) {}

Section& Section::add(ParameterGroup const& container) {
    auto& occurrences = mInside[&container];
    auto prefix = composePrefix(mPrefix, composeSectionName(container, occurrences.size() + 1));
    return *occurrences.emplace_back(std::make_unique<Section>(container, std::move(prefix)));
}

Section& Section::enter(ParameterGroup const& container) {
    return container.isUnbounded() ? add(container) : first(container);
}

Section& Section::first(ParameterGroup const& container) {
    auto const& occurrences = mInside[&container];
    return occurrences.empty() ? add(container) : *occurrences.front();
}

std::vector<std::size_t> const& Section::textsOf(char const* id) const {
    static std::vector<std::size_t> const none;
    auto const found = mTexts.find(id);
    return found == mTexts.end() ? none : found->second;
}

std::vector<std::unique_ptr<Section>> const& Section::occurrencesOf(ParameterGroup const& container) const {
    static std::vector<std::unique_ptr<Section>> const none;
    auto const found = mInside.find(&container);
    return found == mInside.end() ? none : found->second;
}

Section::Path const* SectionPaths::find(ParameterGroup const& container, char const* id) {
    auto const [entry, isNew] = mPaths.try_emplace(&container);
    if (isNew) {
        PathNoter noter;
        container.accept(noter);
        entry->second = std::move(noter.paths);
    }
    auto const found = entry->second.find(id);
    return found == entry->second.end() ? nullptr : &found->second;
}

} // namespace kivo::configuration
