// Which files Expat finishes, and that Xerces-C would read them alike.

#include "registry/xml/PlainXml.h"
#include "registry/xml/Readers.h"
#include "registry/xml/XmlFile.h"
#include "registry/xml/XmlInput.h"
#include "registry/xml/XmlScope.h"

#include "support/CaseFile.h"
#include "support/Latin1Locale.h"
#include "support/Repeat.h"
#include "support/TemporaryInstallation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace kivo::test {

using namespace configuration;

namespace {

enum Reader { PLAIN, XERCES };

class BorderTest : public testing::Test {
protected:
    void check(Reader reader, std::string const& content) const {
        SCOPED_TRACE(content.substr(0, 100));
        auto const file = directory.write("f.xml", content);
        auto const plain = readPlain(file);
        EXPECT_EQ(plain ? PLAIN : XERCES, reader);
        EXPECT_EQ(plain.value_or(readFile(file)), readWithXerces(file));
    }

    XmlScope const scope;
    TemporaryDirectory const directory;
};

TEST_F(BorderTest, OfPlainFiles) {
    std::ifstream file(TEST_DATA_DIR "/xml/plain-border.txt");
    int count = 0;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && !line.starts_with('#')) {
            ++count;
            check(line.starts_with("plain") ? PLAIN : XERCES, expanded(unescaped(line.substr(7))));
        }
    }
    EXPECT_GT(count, 70);
}

TEST_F(BorderTest, OfTextsInAnotherCodePage) {
    Latin1Locale const locale;
    check(PLAIN, "<r a='&#65;'><!--\xC3\xA9-->\xC3\xA9<?p \xC3\xA9?></r>");
    check(XERCES, "<r a='\xC3\xA9'/>");
    check(XERCES, "<r a='&#233;'/>");
    check(XERCES, "<r a='&#x20AC;'/>");
}

TEST_F(BorderTest, OfSizes) {
    auto const file = directory.write("f.xml", "<r>");
    auto const fill = [&](std::uintmax_t size) { // with spaces, and the end tag
        std::filesystem::resize_file(file, 3);
        std::ofstream stream(file, std::ios::app);
        stream << std::string(size - 7, ' ') << "</r>";
    };
    constexpr std::uintmax_t LIMIT = 64 << 20;
    fill(LIMIT);
    EXPECT_EQ(readPlain(file), "r[]()");
    fill(LIMIT + 1);
    EXPECT_EQ(readPlain(file), std::nullopt);
    EXPECT_EQ(readFile(file), "r[]()");
}

TEST_F(BorderTest, AllFilesAreReadAlikeAndTheExamplesArePlain) {
    int count = 0;
    for (char const* folder : {"etc", "examples", "docs", "fuzz/corpus", "tests"}) {
        for (auto const& entry : std::filesystem::recursive_directory_iterator(SOURCE_DIR + std::string(folder))) {
            auto const path = entry.path().string();
            bool const isXml = path.ends_with(".crg") || path.ends_with(".xml") || path.ends_with(".config") ||
                               path.find("corpus/values-file/") != std::string::npos ||
                               path.find("corpus/xml-readers/") != std::string::npos;
            if (!entry.is_regular_file() || !isXml) {
                continue;
            }
            SCOPED_TRACE(path);
            ++count;
            auto const withXerces = readWithXerces(path);
            EXPECT_EQ(readFile(path), withXerces);
            bool const isTest = path.find("/fuzz/") != std::string::npos || path.find("/tests/") != std::string::npos;
            EXPECT_TRUE(isTest || readPlain(path) || withXerces.starts_with("XML ERROR: "));
        }
    }
    EXPECT_GT(count, 20);
}

TEST(XmlInput, HasOneFileWhateverBecomesOfIt) {
    TemporaryDirectory const directory;
    for (auto const& [replace, expected] : {
             std::pair<void (*)(std::string const&), std::string>([](auto& file) { std::filesystem::remove(file); },
                                                                  "0123456789"),
             {[](auto& file) { std::filesystem::resize_file(file, 2); }, "01234"},
             {[](auto& file) { std::ofstream(file, std::ios::app) << "more"; }, "0123456789more"},
         }) {
        auto const file = directory.write("f.xml", "0123456789");
        XmlInput input(file.c_str());
        EXPECT_EQ(input.readOn(3), "012");
        EXPECT_EQ(input.readOn(2), "34");
        replace(file);
        char buffer[20];
        std::string copied;
        for (std::size_t const size : {1u, 6u, 20u, 20u}) {
            copied.append(buffer, input.copy(buffer, size).value());
        }
        EXPECT_EQ(copied, expected);
    }
}

std::string positions(XmlFile const& file, XmlElement const& element) {
    auto const toText = [](XmlPosition position) {
        return " " + std::to_string(position.line) + ":" + std::to_string(position.column) + "\n";
    };
    auto text = element.getName() + toText(file.getDocument().getPosition(element));
    for (auto const& attribute : element.getAttributes()) {
        text += std::string(attribute.name) + toText(file.getDocument().getPosition(element, attribute));
    }
    for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        text += positions(file, *child);
    }
    return text;
}

TEST(XmlPositions, CountLinesAndCharacters) {
    TemporaryDirectory const directory;
    checkCases("xml/positions.txt", [&](FileCase const& row) {
        XmlFile const file(directory.write("f.xml", expanded(unescaped(row["file"]))).c_str());
        return file.getErrors().getNumberOfErrors() ? "" : positions(file, file.getDocument().getRoot());
    });
}

} // namespace

} // namespace kivo::test
