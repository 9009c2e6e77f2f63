#include "toolkit/Help.h"

#include <configuration/Manager.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

#include <algorithm>

#include <sys/ioctl.h>
#include <unistd.h>

using namespace kivo::configuration;

namespace toolkit {

namespace {

constexpr unsigned long DEFAULT_WIDTH = 80;
constexpr unsigned long MAX_NAME_WIDTH = 24;

unsigned long terminalWidth() {
    winsize size{};
    bool const isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : DEFAULT_WIDTH;
}

} // namespace

bool isSet(ValueGroup const& settings, char const* flag) {
    ValueIterator value = settings.getValueIterator(flag);
    return value.next() && value.asBoolean();
}

std::string composeHelp(Manager const& manager, Specification const& specification, ValueGroup const& settings,
                        std::string const& notes) {
    char const* const provider = Manager::COMMAND_LINE_PROVIDER_NAME;
    std::string const name = specification.getId();
    std::string const usage = "Usage: " + name + '\n' + manager.composeUsageMessage(provider, name.c_str()) + '\n';
    if (isSet(settings, "quiet")) {
        return usage;
    }
    std::string const title = isSet(settings, "notitle") ? "" : name + ": " + specification.getDescription() + "\n\n";
    unsigned long const width = terminalWidth();
    return title + usage + '\n' +
           manager.composeHelpMessage(provider, name.c_str(), width, std::min(MAX_NAME_WIDTH, width / 2)) + notes;
}

} // namespace toolkit
