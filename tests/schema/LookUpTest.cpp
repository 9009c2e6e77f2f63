#include "schema/NameComparison.h"
#include "support/CaseFile.h"
#include "support/Repeat.h"

#include <configuration/NameSuggestion.h>

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <sstream>

using namespace kivo::configuration;
using namespace kivo::test;
using namespace std::string_view_literals;

namespace {

int signOf(int number) { return (number > 0) - (number < 0); }

void compare(std::string_view a, std::string_view b, int sign) {
    ASSERT_EQ(signOf(compareIgnoringCase(a, b)), sign) << a << " / " << b;
    ASSERT_EQ(equalIgnoringCase(a, b), sign == 0) << a << " / " << b;
    ASSERT_EQ(hashIgnoringCase(a) == hashIgnoringCase(b), sign == 0) << a << " / " << b;
}

TEST(NameComparison, FoldsAToZOnly) {
    compare("", "", 0);
    compare("por", "PORT", -1);
    compare("Zebra", "ant", 1);
    compare("a\0b"sv, "a\0C"sv, -1);
    compare("a"sv, "a\0"sv, -1);
    // Every pair of bytes, in names of all sizes that are compared and hashed in different ways.
    for (int pair = 0; pair < 256 * 256; ++pair) {
        int const a = pair / 256;
        int const b = pair % 256;
        auto const size = 1 + static_cast<unsigned>(a * 31 + b) % 20;
        auto const changed = static_cast<unsigned>(a + b / 20) % size;
        std::string first(size, 'm');
        std::string second(size, 'M');
        first[changed] = static_cast<char>(a);
        second[changed] = static_cast<char>(b);
        ASSERT_NO_FATAL_FAILURE(compare(first, second, signOf(std::tolower(a) - std::tolower(b))));
    }
}

TEST(NameSuggestion, IsTheClosestName) {
    checkCases("schema/suggestions.txt", [](FileCase const& row) {
        std::vector<std::string> words;
        std::istringstream text(expanded(row["names"]));
        for (std::string word; text >> word;) {
            words.push_back(word);
        }
        std::vector<char const*> names;
        for (auto const& word : words) {
            names.push_back(word.c_str());
        }
        auto const given = row["given"].empty() ? row["case"] : expanded(row["given"]);
        auto const* const closest = suggestName(given.c_str(), names.data(), names.size());
        auto const found = std::string(closest ? closest : "<none>") + '\n';
        bool const isLong = found.size() > 100;
        return isLong ? "name " + std::to_string(std::ranges::find(names, closest) - names.begin() + 1) + '\n' : found;
    });
}

} // namespace
