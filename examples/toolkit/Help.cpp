#include "toolkit/Help.h"

#include <configuration/Manager.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

using namespace kivo::configuration;

namespace toolkit {

bool isSet(ValueGroup const& settings, char const* flag) {
    ValueIterator value = settings.getValueIterator(flag);
    return value.next() && value.asBoolean();
}

std::string composeHelp(Manager const& manager, Specification const& specification, ValueGroup const& settings,
                        std::string const& notes) {
    std::string const name = specification.getId();
    std::string const usage =
        "Usage: " + name + '\n' + manager.composeUsageMessage(Manager::COMMAND_LINE_PROVIDER_NAME, name.c_str()) + '\n';
    if (isSet(settings, "quiet")) {
        return usage;
    }
    std::string const title = isSet(settings, "notitle") ? "" : name + ": " + specification.getDescription() + "\n\n";
    return title + usage + '\n' + manager.composeDetailedHelp(name.c_str(), 0) + notes;
}

} // namespace toolkit
