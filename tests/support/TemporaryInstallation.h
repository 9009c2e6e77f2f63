#pragma once

// An installation of a test's own: directories "etc", "plugins" and "config" and a main log, which the environment
// names for as long as the object lives. "etc" holds a main registry file without entries.
//
//     TemporaryInstallation installation;
//     installation.write("plugins/a/more.crg", "<ConfigurationRegistry/>");
//     EXPECT_EQ(installation.mainLog("Configuration").size(), 1u);

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kivo::test {

/// A directory that is removed with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;

    /// The path of a file or directory in it.
    std::string at(std::string const& relativePath) const { return (mPath / relativePath).string(); }
    /// Writes a file, and the directories above it. @return its path
    std::string write(std::string const& relativePath, std::string const& content) const;

private:
    std::filesystem::path mPath;
};

/// Sets an environment variable, or removes it, and gives it its old value back.
class ScopedEnvironment {
public:
    ScopedEnvironment(std::string name, std::optional<std::string> const& value);
    ~ScopedEnvironment();
    ScopedEnvironment(ScopedEnvironment const&) = delete;
    ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;

private:
    std::string mName;
    std::optional<std::string> mBefore;
};

class TemporaryInstallation : public TemporaryDirectory {
public:
    TemporaryInstallation();

    /// The texts of the main log's records of one category, in order.
    std::vector<std::string> mainLog(std::string const& category) const;

private:
    ScopedEnvironment mHome{"KIVO_HOME", std::nullopt};
    ScopedEnvironment mEtc{"KIVO_ETC_DIR", at("etc")};
    ScopedEnvironment mPlugins{"KIVO_PLUGINS_DIR", at("plugins")};
    ScopedEnvironment mConfig{"KIVO_CONFIG_DIR", at("config")};
    ScopedEnvironment mLog{"KIVO_MAIN_LOG", at("main.log")};
};

} // namespace kivo::test
