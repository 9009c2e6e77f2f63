#pragma once

#include "support/TemporaryInstallation.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

namespace kivo::test {

/// A process locale whose code page has 256 characters, and whose numbers have a decimal comma: it is compiled, since
/// few machines have one.
class Latin1Locale {
public:
    Latin1Locale() {
        mDirectory.write("characters", "<code_set_name> ISO-8859-1\n<escape_char> /\nCHARMAP\n"
                                       "<U0000>..<U00FF> /x00 all\nEND CHARMAP\n");
        mDirectory.write("source",
                         "escape_char /\nLC_CTYPE\nupper <U0041>\nlower <U0061>\nEND LC_CTYPE\n"
                         "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n");
        // The missing categories make it complain, but not fail.
        auto const command =
            "cd " + mDirectory.at("") + " && localedef -c -f characters -i source ./latin1 2>/dev/null";
        [[maybe_unused]] int const status = std::system(command.c_str());
        EXPECT_TRUE(std::setlocale(LC_ALL, "latin1"));
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    }
    ~Latin1Locale() { std::setlocale(LC_ALL, "C"); }

private:
    TemporaryDirectory mDirectory;
    ScopedEnvironment mSearchPath{"LOCPATH", mDirectory.at("")};
};

} // namespace kivo::test
