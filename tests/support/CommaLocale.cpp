#include "support/CommaLocale.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace kivo::test {

CommaLocale::CommaLocale() : mBefore(std::setlocale(LC_ALL, nullptr)) {
    // A character set of our own, so that the package with the real ones need not be installed.
    std::string characters = "<code_set_name> PLAIN\n<escape_char> /\nCHARMAP\n";
    for (unsigned i = 0; i < 128; ++i) {
        char line[40];
        std::snprintf(line, sizeof(line), "<U%04X> /x%02x character\n", i, i);
        characters += line;
    }
    auto const charmap = mDirectory.write("charmap", characters + "END CHARMAP\n");
    auto const source = mDirectory.write(
        "source", "escape_char /\nLC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n");
    auto const command = "localedef -c -f " + charmap + " -i " + source + " " + mDirectory.at("comma");
    // It warns of the missing categories; isActive() tells whether the rest was done.
    [[maybe_unused]] int const status = std::system((command + " >/dev/null 2>&1").c_str());
    std::setlocale(LC_ALL, "comma");
}

CommaLocale::~CommaLocale() { std::setlocale(LC_ALL, mBefore.c_str()); }

bool CommaLocale::isActive() const { return *std::localeconv()->decimal_point == ','; }

} // namespace kivo::test
