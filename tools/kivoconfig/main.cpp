// The command kivoconfig: answers questions about the settings of an installation's tools.

#include "Call.h"
#include "Complaints.h"
#include "ExitStatus.h"
#include "Faults.h"
#include "RegistryReport.h"
#include "StandardOutput.h"

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstring>
#include <string>
#include <vector>

using namespace kivoconfig;

namespace {

/// Says what is wrong: call it where an exception is handled.
ExitStatus reportFault(Call& call, StandardOutput const& output) {
    try {
        try {
            throw;
        } catch (RegistryFault const& fault) {
            reportRegistryFault(fault, call);
            call.out.flush();
        }
    } catch (std::ios_base::failure const&) {
        if (output.getFault() != EPIPE) {
            complain(std::string("standard output cannot be written: ") + std::strerror(output.getFault()));
        }
    } catch (std::exception const& fault) {
        complain(fault.what());
    }
    return NO_ANSWER;
}

} // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_CTYPE, "");  // names, files and the terminal share the user's character set
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is noticed when something is written
    std::vector<std::string> const words(argv + (argc > 0 ? 1 : 0), argv + argc);
    StandardOutput output;
    std::ostream out(&output);
    out.exceptions(std::ios::badbit);
    Call call{out};
    try {
        auto const status = answer(words, call);
        out.flush();
        return status;
    } catch (...) {
        return isSilent(words) ? NO_ERROR_FOUND : reportFault(call, output);
    }
}
