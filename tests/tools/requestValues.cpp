// Starts as a tool does and prints every value that it gets, sections and defaults included:
//
//   request-values <specification> <whether machine.config counts: 0 or 1> <file or ""> <argument>...

#include <configuration/Manager.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Value.h>
#include <configuration/ValueGroup.h>

#include <exception>
#include <iostream>
#include <map>
#include <string>

using namespace kivo::configuration;

namespace {

void print(ParameterValueGroup const& group, std::string const& path) {
    std::map<std::string, int> occurrences;
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        auto const name = path + item.getParameterItemId();
        if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
            auto const number = name + '[' + std::to_string(++occurrences[name]) + ']';
            std::cout << number << '\0';
            print(static_cast<ParameterValueGroup const&>(item), number + '.');
            continue;
        }
        auto const& value = static_cast<ParameterValue const&>(item);
        for (unsigned long j = 0; j < value.getNumberOfValues(); ++j) {
            char const* const text = value.getValue(j, false);
            std::cout << name << '#' << j << '=' << (text ? text : "nothing") << '\0';
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        Manager& manager = *Manager::getInstance();
        auto** const arguments = argv + 3; // that of the file stands for the tool's name
        manager.enableConfiguration(*argv[2] == '1', argv[3], static_cast<unsigned int>(argc - 3), arguments);
        auto const values = manager.getValueGroup(argv[1], false, 0);
        if (!values.isNull()) {
            print(*values.getCurrentValueGroup()->getParentGroup(), "");
        }
    } catch (std::exception const& faults) {
        std::cerr << faults.what() << '\n';
        return 1;
    }
}
