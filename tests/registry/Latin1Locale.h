#pragma once

// A process locale whose code page has 256 characters, for as long as the object lives:
//
//     Latin1Locale const locale;
//     ASSERT_TRUE(locale.isActive());

#include "support/TemporaryInstallation.h"

#include <string>

namespace kivo::test {

class Latin1Locale {
public:
    /// Compiles a locale, since few machines have one.
    Latin1Locale();
    ~Latin1Locale();
    Latin1Locale(Latin1Locale const&) = delete;
    Latin1Locale& operator=(Latin1Locale const&) = delete;

    /// Whether the C library uses the code page now.
    bool isActive() const;

private:
    std::string mBefore;
    TemporaryDirectory mDirectory;
    ScopedEnvironment mSearchPath;
};

} // namespace kivo::test
