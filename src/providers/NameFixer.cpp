#include "kernel/kvProcessInit.h"

#include "providers/NameFixer.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "providers/ParameterSearchVisitor.h"

#include <string>

namespace kivo::configuration {

namespace {

[[noreturn]] void throwAmbiguous(char const* flag, ParameterSearchVisitor const& found) {
    std::string message = "The flag \"";
    message.append(flag).append("\" is ambiguous, matching the following allowed flags: ");
    for (unsigned long i = 0; i < found.getNumberOfFoundItems(); ++i) {
        message.append(i > 0 ? ", " : "").append(found.getFoundItem(i)->getName());
    }
    throw ConfigurationException("%s", message.append(". Please be more specific.").c_str());
}

} // namespace

NameFixer::NameFixer(ParameterGroup const* rootGroup) : ParameterValueVisitor(false), mRootGroup(rootGroup) {}

bool NameFixer::visitGroupStart(ParameterValueGroup& group) {
    if (mGroupStack.empty()) {
        mGroupStack.push_back(mRootGroup);
        return true;
    }
    char const* id = group.getParameterItemId();
    auto const* item = mGroupStack.back()->getItem(id ? id : "", false);
    if (!item || item->getItemType() != ParameterItem::PARAMETER_GROUP) {
        throw ConfigurationException("\"%s\" is not a valid group id", id ? id : "");
    }
    mGroupStack.push_back(static_cast<ParameterGroup const*>(item));
    return true;
}

void NameFixer::visitGroupEnd(ParameterValueGroup&) { mGroupStack.pop_back(); }

bool NameFixer::visitParameterValue(ParameterValue& value) {
    char const* flag = value.getParameterItemId();
    if (!flag) {
        return true; // matching reports values without a name
    }
    ParameterSearchVisitor search(flag);
    search.search(*mGroupStack.back());
    if (search.getNumberOfFoundItems() == 1) {
        setParameterItemId(value, search.getFoundItem(0)->getId());
    } else if (search.getNumberOfFoundItems() > 1) {
        throwAmbiguous(flag, search);
    }
    return true;
}

} // namespace kivo::configuration
