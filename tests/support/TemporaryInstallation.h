#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kivo::test {

/// A directory that is removed with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory() {
        if (!mkdtemp(mPath.data())) {
            throw std::runtime_error("no temporary directory");
        }
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    TemporaryDirectory(TemporaryDirectory const&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory const&) = delete;

    /// The path of a file or directory in it.
    std::string at(std::string const& relativePath) const { return mPath + "/" + relativePath; }
    /// Writes a file, and the directories above it. @return its path
    std::string write(std::string const& relativePath, std::string const& content) const {
        std::filesystem::path const path = at(relativePath);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file.exceptions(std::ios::failbit | std::ios::badbit);
        file << content << std::flush;
        return path.string();
    }

private:
    std::string mPath = std::filesystem::temp_directory_path() / "kivo-test-XXXXXX";
};

/// Sets an environment variable, or removes it, and gives it its old value back.
class ScopedEnvironment {
public:
    ScopedEnvironment(std::string const& name, std::optional<std::string> const& value) : mName(name) {
        if (char const* before = std::getenv(mName.c_str())) {
            mBefore = before;
        }
        set(value);
    }
    ~ScopedEnvironment() { set(mBefore); }
    ScopedEnvironment(ScopedEnvironment const&) = delete;
    ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;

private:
    void set(std::optional<std::string> const& value) const {
        value ? setenv(mName.c_str(), value->c_str(), 1) : unsetenv(mName.c_str());
    }

    std::string mName;
    std::optional<std::string> mBefore;
};

/// An installation of a test's own: directories "etc" (with a main registry file without entries), "plugins" and
/// "config", and a main log, which the environment names for as long as the object lives.
class TemporaryInstallation : public TemporaryDirectory {
public:
    TemporaryInstallation() {
        write("etc/kivobase.crg", "<?xml version=\"1.0\"?><ConfigurationRegistry/>");
        std::filesystem::create_directory(at("plugins"));
        std::filesystem::create_directory(at("config"));
    }

    /// The texts of the main log's records of one category, in order.
    std::vector<std::string> mainLog(std::string const& category) const {
        std::vector<std::string> records;
        bool isWanted = false;
        std::ifstream log(at("main.log"));
        for (std::string line; std::getline(log, line);) {
            bool const isHeader = line.size() > 24 && line[10] == 'T' && line.compare(23, 2, "Z ") == 0;
            isWanted = isHeader ? line.ends_with(" " + category) : isWanted;
            if (isWanted && isHeader) {
                records.emplace_back();
            } else if (isWanted) {
                records.back() += line + '\n';
            }
        }
        for (auto& record : records) {
            record.resize(record.empty() ? 0 : record.size() - 1); // the last line feed is the log's own
        }
        return records;
    }

private:
    ScopedEnvironment mHome{"KIVO_HOME", std::nullopt};
    ScopedEnvironment mEtc{"KIVO_ETC_DIR", at("etc")};
    ScopedEnvironment mPlugins{"KIVO_PLUGINS_DIR", at("plugins")};
    ScopedEnvironment mConfig{"KIVO_CONFIG_DIR", at("config")};
    ScopedEnvironment mLog{"KIVO_MAIN_LOG", at("main.log")};
};

} // namespace kivo::test
