#include "registry/Latin1Locale.h"

#include <langinfo.h>

#include <clocale>
#include <cstdlib>
#include <iomanip>
#include <sstream>

namespace kivo::test {

namespace {

std::string latin1Characters() {
    std::ostringstream text;
    text << "<code_set_name> ISO-8859-1\n<escape_char> /\nCHARMAP\n" << std::hex << std::uppercase << std::setfill('0');
    for (int i = 0; i < 256; ++i) {
        text << "<U00" << std::setw(2) << i << "> /x" << std::setw(2) << i << " character\n";
    }
    text << "END CHARMAP\n";
    return text.str();
}

} // namespace

Latin1Locale::Latin1Locale() : mBefore(std::setlocale(LC_ALL, nullptr)), mSearchPath("LOCPATH", mDirectory.at("")) {
    auto const characters = mDirectory.write("characters", latin1Characters());
    auto const source =
        mDirectory.write("source", "escape_char /\nLC_CTYPE\nupper <U0041>\nlower <U0061>\nEND LC_CTYPE\n");
    // The missing categories make it complain, but not fail.
    auto const command =
        "localedef --quiet -c -f " + characters + " -i " + source + " " + mDirectory.at("latin1") + " >/dev/null 2>&1";
    [[maybe_unused]] int const status = std::system(command.c_str());
    std::setlocale(LC_ALL, "latin1");
}

Latin1Locale::~Latin1Locale() { std::setlocale(LC_ALL, mBefore.c_str()); }

bool Latin1Locale::isActive() const { return std::string(nl_langinfo(CODESET)) == "ISO-8859-1"; }

} // namespace kivo::test
