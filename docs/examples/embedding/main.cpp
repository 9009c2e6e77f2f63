#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/ValueGroup.h>

#include <exception>
#include <iostream>

using namespace kivo::configuration;

namespace {

void probe(ValueGroup const& settings) {
    std::cout << "Probing " << settings.getValue("host").asString() << ':'
              << settings.getValue("port").asUnsignedInteger() << ", at most "
              << settings.getValue("timeout").asDouble() << " seconds, "
              << settings.getValueGroup("retry").getValue("count").asUnsignedInteger() << " retries\n";
    ValueIterator tag = settings.getValueIterator("tag");
    while (tag.next()) {
        std::cout << "Tag: " << tag.asString() << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        Manager& manager = *Manager::getInstance();
        manager.enableConfiguration(true, nullptr, static_cast<unsigned int>(argc), argv);
        ValueGroup const settings = manager.getValueGroup("probe", true, RESOLVE_FLAG_NAMES | STRICT_RECOGNITION);
        if (ValueIterator help = settings.getValueIterator("help"); help.next() && help.asBoolean()) {
            std::cout << manager.composeUsageMessage("CLI", "probe") << "\n\n"
                      << manager.composeHelpMessage("CLI", "probe", 80, 24);
        } else {
            probe(settings);
        }
        return 0;
    } catch (std::exception const& faults) {
        std::cerr << faults.what() << '\n';
        return 2;
    }
}
