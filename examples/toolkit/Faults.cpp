#include "toolkit/Faults.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/InspectionReport.h>

#include <exception>
#include <iostream>
#include <string>

using namespace kivo::configuration;

namespace toolkit {

namespace {

constexpr int LOST_OUTPUT = 1;
constexpr int FAULTY_SETTINGS = 2;

// One line, whatever users wrote: a line end or an escape sequence in a value is shown, not obeyed. A validator's
// message ends with a line break of its own.
void printFault(char const* tool, std::string message, Origin const& origin, char const* suggestion) {
    message.erase(message.find_last_not_of("\r\n") + 1);
    std::cerr << tool << ": ";
    if (origin.isKnown()) {
        std::cerr << escapeText(origin.toString().c_str()) << ": ";
    }
    std::cerr << escapeText(message.c_str());
    if (suggestion) {
        std::cerr << "; did you mean \"" << escapeText(suggestion) << "\"?";
    }
    std::cerr << '\n';
}

// The exception of a phase holds all of its faults.
void printFaults(char const* tool, ConfigurationParameterException const& exception) {
    ParameterErrors const& faults = exception.getErrors();
    if (exception.what() != composeMessage(faults)) {
        printFault(tool, exception.what(), exception.getOrigin(), nullptr); // one message that stands for all of them
        return;
    }
    for (unsigned long i = 0; i < faults.getNumberOfErrors(); ++i) {
        printFault(tool, faults.getError(i), faults.getOrigin(i), faults.getSuggestion(i));
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
    } catch (ConfigurationParameterException const& exception) {
        printFaults(tool, exception);
    } catch (ConfigurationException const& exception) {
        printFault(tool, exception.what(), exception.getOrigin(), nullptr);
    } catch (std::exception const& exception) {
        printFault(tool, exception.what(), Origin(), nullptr);
    }
    return FAULTY_SETTINGS;
}

} // namespace toolkit
