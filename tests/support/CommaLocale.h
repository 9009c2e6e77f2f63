#pragma once

// A process locale whose numbers have a decimal comma, for as long as the object lives. It is compiled on the spot,
// since few machines have any but "C".
//
//     CommaLocale const locale;
//     ASSERT_TRUE(locale.isActive());

#include "support/TemporaryInstallation.h"

namespace kivo::test {

class CommaLocale {
public:
    CommaLocale();
    ~CommaLocale();
    CommaLocale(CommaLocale const&) = delete;
    CommaLocale& operator=(CommaLocale const&) = delete;

    /// Whether the C library writes a comma now.
    bool isActive() const;

private:
    std::string mBefore;
    TemporaryDirectory mDirectory;
    ScopedEnvironment mSearchPath{"LOCPATH", mDirectory.at("")};
};

} // namespace kivo::test
