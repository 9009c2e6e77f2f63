#include "support/TemporaryInstallation.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace kivo::test {

namespace {

void setVariable(std::string const& name, std::optional<std::string> const& value) {
    value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
}

/// The category that a record's header line ends with; no value for a line of a text.
std::optional<std::string> categoryOf(std::string const& line) {
    std::istringstream words(line);
    std::string time;
    std::string process;
    std::string category;
    words >> time >> process >> category;
    bool const isHeader = time.size() == 24 && time[10] == 'T' && time.back() == 'Z' &&
                          process.find_first_not_of("0123456789") == std::string::npos &&
                          line == time + ' ' + process + ' ' + category;
    return isHeader ? std::optional(category) : std::nullopt;
}

} // namespace

TemporaryDirectory::TemporaryDirectory() {
    auto pattern = (std::filesystem::temp_directory_path() / "kivo-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        throw std::runtime_error("no temporary directory");
    }
    mPath = pattern;
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
}

std::string TemporaryDirectory::write(std::string const& relativePath, std::string const& content) const {
    auto const path = mPath / relativePath;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    if (!(file << content).flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
    return path.string();
}

ScopedEnvironment::ScopedEnvironment(std::string name, std::optional<std::string> const& value)
    : mName(std::move(name)) {
    if (char const* before = std::getenv(mName.c_str())) {
        mBefore = before;
    }
    setVariable(mName, value);
}

ScopedEnvironment::~ScopedEnvironment() { setVariable(mName, mBefore); }

TemporaryInstallation::TemporaryInstallation() {
    write("etc/kivobase.crg", "<?xml version=\"1.0\"?><ConfigurationRegistry/>");
    std::filesystem::create_directory(at("plugins"));
    std::filesystem::create_directory(at("config"));
}

std::vector<std::string> TemporaryInstallation::mainLog(std::string const& category) const {
    std::vector<std::string> records;
    bool isWanted = false;
    bool isFirstLine = false;
    std::ifstream log(at("main.log"));
    for (std::string line; std::getline(log, line);) {
        if (auto const header = categoryOf(line)) {
            isWanted = *header == category;
            isFirstLine = true;
            if (isWanted) {
                records.emplace_back();
            }
        } else if (isWanted) {
            records.back() += (isFirstLine ? "" : "\n") + line;
            isFirstLine = false;
        }
    }
    return records;
}

} // namespace kivo::test
