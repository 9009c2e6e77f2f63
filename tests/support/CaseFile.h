#pragma once

// Cases as a data file below tests/data; README.md there says how it is written.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kivo::test {

struct FileCase {
    /// The text of a field, empty when the case does not have it.
    std::string operator[](std::string const& name) const { return fields.contains(name) ? fields.at(name) : ""; }

    std::map<std::string, std::string> fields;
    std::string expected; ///< each line with a line feed
};

inline std::vector<FileCase> readCases(std::string const& path) {
    std::vector<FileCase> cases;
    FileCase shared;
    auto* current = &shared;
    std::string* field = nullptr;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        line.resize(line.size() - (line.ends_with(" |") ? 1 : 0));
        auto const restFrom = [&](std::size_t column) { return line.substr(std::min(column, line.size())); };
        if (line.empty()) {
            current = &shared;
        } else if (line.front() == '>') {
            current->expected += restFrom(2) + '\n';
        } else if (line.front() == ' ') {
            field->append(restFrom(4) + '\n');
        } else if (line.front() != '#') {
            auto const colon = line.find(':');
            if (line.starts_with("case:")) {
                current = &cases.emplace_back(shared);
            }
            field = &(current->fields[line.substr(0, colon)] = restFrom(colon + 2));
        }
    }
    return cases;
}

/// Compares what is made of each case of a file below tests/data with what it expects.
inline void checkCases(std::string const& path, std::function<std::string(FileCase const&)> const& run) {
    auto const cases = readCases(TEST_DATA_DIR "/" + path);
    EXPECT_FALSE(cases.empty()) << path;
    for (auto const& row : cases) {
        SCOPED_TRACE(path + ": " + row["case"]);
        EXPECT_NO_THROW(EXPECT_EQ(run(row), row.expected));
    }
}

inline std::string unescaped(std::string const& text) {
    static std::map<char, char> const CONTROLS{{'n', '\n'}, {'r', '\r'}, {'t', '\t'}};
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
        } else if (text.at(++i) == 'x') {
            result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            result += CONTROLS.contains(text[i]) ? CONTROLS.at(text[i]) : text[i];
        }
    }
    return result;
}

/// Those of some texts that are not empty, each as a line.
inline std::string lines(std::initializer_list<std::string> texts) {
    std::string joined;
    for (auto const& text : texts) {
        joined += text.empty() ? "" : text + '\n';
    }
    return joined;
}

} // namespace kivo::test
