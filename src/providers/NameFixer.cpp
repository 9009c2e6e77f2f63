#include "kernel/kvProcessInit.h"

#include "providers/NameFixer.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "providers/ParameterSearchVisitor.h"
#include "schema/FaultCollection.h"
#include "schema/ItemKinds.h"
#include "schema/LocatedException.h"

#include <string>

namespace kivo::configuration {

namespace {

[[noreturn]] void throwAmbiguous(ParameterValue const& value, ParameterGroup const& group) {
    char const* flag = value.getParameterItemId();
    ParameterSearchVisitor found(flag);
    group.accept(found);
    std::string message = "The flag \"";
    message.append(flag).append("\" is ambiguous, matching the following allowed flags: ");
    for (unsigned long i = 0; i < found.getNumberOfFoundItems(); ++i) {
        message.append(i > 0 ? ", " : "").append(found.getFoundItem(i)->getName());
    }
    throw located(value.getStoredOrigin(0),
                  ConfigurationException("%s", message.append(". Please be more specific.").c_str()));
}

} // namespace

NameFixer::NameFixer(ParameterGroup const* rootGroup, ParameterErrors* collected)
    : ParameterValueVisitor(false), mRootGroup(rootGroup), mCollected(collected) {}

bool NameFixer::visitGroupStart(ParameterValueGroup& group) {
    if (mGroupStack.empty()) {
        open(group, *mRootGroup);
        return true;
    }
    char const* id = group.getParameterItemId();
    auto const* schemaGroup = asGroup(mGroupStack.back()->getItem(id ? id : "", false));
    if (!schemaGroup) {
        throw located(group.getStoredOrigin(), ConfigurationException("\"%s\" is not a valid group id", id ? id : ""));
    }
    open(group, *schemaGroup);
    return true;
}

void NameFixer::open(ParameterValueGroup const& group, ParameterGroup const& schemaGroup) {
    mGroupStack.push_back(&schemaGroup);
    schemaGroup.accept(mMatchesStack.emplace_back(group));
}

void NameFixer::visitGroupEnd(ParameterValueGroup&) {
    mGroupStack.pop_back();
    mMatchesStack.pop_back();
}

bool NameFixer::visitParameterValue(ParameterValue& value) {
    char const* flag = value.getParameterItemId();
    if (!flag) {
        return true; // matching reports values without a name
    }
    auto const& match = mMatchesStack.back()[flag];
    if (match.isFormerName) {
        return true; // matching replaces it, although it may be the beginning of other names
    }
    if (match.count == 1) {
        setParameterItemId(value, match.first->getId());
    } else if (match.count > 1) {
        runOrCollect(mCollected, Rule::AMBIGUOUS_FLAG, value.getStoredOrigin(0),
                     [&] { throwAmbiguous(value, *mGroupStack.back()); });
    }
    return true;
}

} // namespace kivo::configuration
