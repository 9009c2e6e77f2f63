#pragma once

// A process locale whose numbers have a decimal comma, for as long as the object lives. It is compiled on the spot,
// since few machines have any but "C".

#include "support/TemporaryInstallation.h"

#include <clocale>
#include <cstdlib>

namespace kivo::test {

class CommaLocale {
public:
    CommaLocale() {
        // A character set of our own, so that the package with the real ones need not be installed.
        mDirectory.write("charmap", "<code_set_name> PLAIN\n<escape_char> /\nCHARMAP\n"
                                    "<U0000>..<U007F> /x00 characters\nEND CHARMAP\n");
        mDirectory.write("source",
                         "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n");
        // It warns of the missing categories; isActive() tells whether the rest was done.
        auto const command =
            "cd " + mDirectory.at("") + " && localedef -c -f charmap -i source ./comma >/dev/null 2>&1";
        [[maybe_unused]] int const status = std::system(command.c_str());
        std::setlocale(LC_ALL, "comma");
    }
    ~CommaLocale() { std::setlocale(LC_ALL, mBefore.c_str()); }
    CommaLocale(CommaLocale const&) = delete;
    CommaLocale& operator=(CommaLocale const&) = delete;

    /// Whether the C library writes a comma now.
    bool isActive() const { return *std::localeconv()->decimal_point == ','; }

private:
    std::string mBefore = std::setlocale(LC_ALL, nullptr);
    TemporaryDirectory mDirectory;
    ScopedEnvironment mSearchPath{"LOCPATH", mDirectory.at("")};
};

} // namespace kivo::test
