#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

// Gives each test a directory of its own and an environment in which the kernel sees only what the test sets.
class KernelTest : public testing::Test {
protected:
    KernelTest() {
        for (char const* const name :
             {"KIVO_ETC_DIR", "KIVO_PLUGINS_DIR", "KIVO_CONFIG_DIR", "KIVO_HOME", "KIVO_MAIN_LOG"}) {
            char const* const value = std::getenv(name);
            mSaved[name] = value ? std::optional<std::string>(value) : std::nullopt;
            unsetenv(name);
        }
        std::string pattern = (std::filesystem::temp_directory_path() / "kivo-kernel-XXXXXX").string();
        if (!mkdtemp(pattern.data())) {
            throw std::runtime_error("no temporary directory");
        }
        mRoot = pattern;
    }

    ~KernelTest() override {
        for (auto const& [name, value] : mSaved) {
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        }
        std::filesystem::remove_all(mRoot);
    }

    // A path in the test's directory.
    std::string at(std::string const& name) const { return mRoot + "/" + name; }

    void writeFile(std::string const& name) const { std::ofstream(at(name)) << "text\n"; }

    static std::string contentOf(std::string const& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void logTo(std::string const& path) const { setenv("KIVO_MAIN_LOG", path.c_str(), 1); }

    // The header line of a record, as a regular expression: time, process, category.
    static std::string headerPattern(std::string const& process, std::string const& category) {
        std::string const time = "[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}Z";
        return time + ' ' + process + ' ' + category;
    }

    // The records of a log as "<category>|<text>".
    static std::vector<std::string> recordsOf(std::string const& log) {
        auto const isHeader = testing::Matches(testing::MatchesRegex(headerPattern("[0-9]+", "[^ ]*")));
        std::vector<std::string> records;
        char separator = '|';
        std::ifstream file(log);
        for (std::string line; std::getline(file, line);) {
            if (isHeader(line)) {
                records.push_back(line.substr(line.rfind(' ') + 1));
                separator = '|';
            } else if (records.empty()) {
                records.push_back("no header: " + line);
            } else {
                records.back() += separator + line;
                separator = '\n';
            }
        }
        return records;
    }

private:
    std::string mRoot;
    std::map<std::string, std::optional<std::string>> mSaved;
};
