#include "toolkit/Faults.h"

#include <exception>
#include <iostream>
#include <sstream>
#include <string>

namespace toolkit {

namespace {

constexpr int LOST_OUTPUT = 1;
constexpr int FAULTY_SETTINGS = 2;

// The exception of a phase holds all of its faults, one a line. A validator's message ends with a line break of its
// own.
void printFaults(char const* tool, std::string const& message) {
    std::istringstream faults(message);
    for (std::string fault; std::getline(faults, fault);) {
        if (!fault.empty()) {
            std::cerr << tool << ": " << fault << '\n';
        }
    }
}

} // namespace

int runTool(char const* tool, std::function<void()> const& work) {
    try {
        work();
        if (!std::cout.flush()) {
            std::cerr << tool << ": standard output cannot be written\n";
            return LOST_OUTPUT;
        }
        return 0;
    } catch (std::exception const& exception) {
        printFaults(tool, exception.what());
        return FAULTY_SETTINGS;
    }
}

} // namespace toolkit
