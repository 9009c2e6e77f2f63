#include "kernel/kvProcessInit.h"

#include "schema/FormerNames.h"

#include <configuration/ConfigurationException.h>

#include "schema/FaultCollection.h"
#include "schema/ItemKinds.h"
#include "schema/NameComparison.h"

#include <atomic>
#include <map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace kivo::configuration {

namespace {

std::atomic<bool> formerNamesExist{false};

using Names = std::map<std::string_view, ParameterItem const*, CaseInsensitiveLess>;

/// What stands below a group. Each group is entered once, however many refer to it.
struct Contents {
    explicit Contents(ParameterGroup const& root) {
        std::vector<ParameterGroup const*> groups{&root};
        std::unordered_set<ParameterGroup const*> known{&root};
        while (!groups.empty()) {
            auto const& group = *groups.back();
            groups.pop_back();
            for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
                auto const* item = group.getItem(i);
                add(*item);
                if (auto const* inner = asGroup(item); inner && known.insert(inner).second) {
                    groups.push_back(inner);
                }
            }
        }
    }

    void add(ParameterItem const& item) {
        names.try_emplace(item.getId(), &item);
        names.try_emplace(item.getName(), &item);
        if (auto const* parameter = asParameter(&item); parameter && parameter->getFormerName()) {
            renamed.push_back(parameter);
        }
    }

    Names names; ///< ids and names
    std::vector<Parameter const*> renamed;
};

} // namespace

void noteFormerName() noexcept { formerNamesExist.store(true, std::memory_order_relaxed); }

bool areThereFormerNames() noexcept { return formerNamesExist.load(std::memory_order_relaxed); }

void checkFormerNames(ParameterGroup const& root, ParameterErrors* collected) {
    Contents const contents(root);
    Names formerNames;
    for (auto const* parameter : contents.renamed) {
        char const* const former = parameter->getFormerName();
        auto const taken = contents.names.find(former);
        auto const* const owner =
            taken != contents.names.end() ? taken->second : formerNames.try_emplace(former, parameter).first->second;
        if (taken != contents.names.end() || !equalIgnoringCase(owner->getId(), parameter->getId())) {
            runOrCollect(collected, Rule::INVALID_REGISTRY, {}, [&] {
                throw ConfigurationException("Former name \"%s\" of parameter \"%s\" is taken by \"%s\"", former,
                                             parameter->getName(), owner->getName());
            });
        }
    }
}

Parameter const* FormerNames::find(std::string_view name) {
    if (areThereFormerNames() && !std::exchange(mIsWalked, true)) {
        mRoot.accept(*this);
    }
    auto const found = mParameters.find(name);
    return found == mParameters.end() ? nullptr : found->second;
}

bool FormerNames::visitGroupStart(ParameterGroup const& group) { return mGroups.insert(&group).second; }

bool FormerNames::visitParameter(Parameter const& parameter) {
    if (char const* former = parameter.getFormerName()) {
        mParameters.try_emplace(former, &parameter);
    }
    return true;
}

} // namespace kivo::configuration
