#include <configuration/ConfigurationException.h>
#include <configuration/InspectionReport.h>
#include <configuration/RegistryInspection.h>

#include "support/CaseFile.h"
#include "support/ManagerTest.h"
#include "support/Repeat.h"

#include <gmock/gmock.h>

#include <set>

namespace kivo::test {

using namespace configuration;

namespace {

std::string document(std::string const& content) {
    bool const isWhole = content.starts_with("<?xml") || content.starts_with("<ConfigurationRegist");
    return isWhole ? content : "<ConfigurationRegistry>" + content + "</ConfigurationRegistry>";
}

/// The findings in their order, with paths in the installation. @param removed what the paths begin with
std::string shown(std::vector<Finding> const& findings, std::string const& removed) {
    std::string text;
    for (auto const& finding : findings) {
        auto line = composeFindings({finding});
        line.resize(line.find('\n') + 1); // without the count
        text += line.starts_with(removed) ? line.substr(removed.size()) : line;
    }
    return text;
}

std::set<std::string> rulesOf(RegistryInspection const& inspection) {
    std::set<std::string> rules;
    for (auto const& finding : inspection.getFindings()) {
        rules.insert(finding.getRule());
    }
    return rules;
}

using RegistryInspectionTest = ManagerTest;

TEST_F(RegistryInspectionTest, FindsAllFaultsOfAllFiles) {
    checkCases("lint/findings.txt", [this](FileCase const& row) {
        std::vector<std::string> given;
        for (std::string const name : {"a", "b", "c"}) {
            std::filesystem::remove(installation.at("etc/" + name + ".crg"));
            if (row.fields.contains(name)) {
                installation.write("etc/" + name + ".crg", document(row[name]));
            }
        }
        if (row.fields.contains("given")) {
            given.push_back(installation.write("elsewhere/C.crg", document(row["given"])));
        }
        auto text = shown(RegistryInspection(given).getFindings(), installation.at("etc/"));
        for (auto place = text.find(installation.at("")); place != std::string::npos;
             place = text.find(installation.at(""))) {
            text.replace(place, installation.at("").size(), "@/"); // in messages about XML
        }
        return text;
    });
}

TEST_F(RegistryInspectionTest, EveryRuleHasAnExampleThatRaisesItAndOneThatDoesNot) {
    for (auto const& row : readCases(TEST_DATA_DIR "/lint/rules.txt")) {
        SCOPED_TRACE(row["case"]);
        auto const name = row.fields.contains("name") ? row["name"] : "etc/tool.crg";
        auto const path = installation.write(name, document(expanded(row["raises"])));
        std::set<std::string> expected{row["case"]};
        if (row.fields.contains("with")) {
            expected.insert(row["with"]);
        }
        EXPECT_EQ(rulesOf(RegistryInspection()), expected);
        std::filesystem::remove(path);
        installation.write("etc/tool.crg", document(expanded(row["fine"])));
        RegistryInspection const inspection;
        EXPECT_THAT(rulesOf(inspection), testing::IsEmpty()) << composeFindings(inspection.getFindings());
    }
}

TEST_F(RegistryInspectionTest, LeavesTheManagerAsItWas) {
    installation.write("etc/a.crg", document("<Parameters><Parameter id='p'/></Parameters>"));
    EXPECT_THROW(Manager::getInstance(), ConfigurationException);
    auto* const before = Manager::getInstance();
    auto const log = installation.mainLog("Configuration");
    RegistryInspection const inspection;
    EXPECT_EQ(inspection.getNumberOfFindings(Finding::ERROR_SEVERITY), 1u);
    EXPECT_EQ(inspection.getNumberOfFindings(Finding::WARNING_SEVERITY), 1u);
    EXPECT_EQ(Manager::getInstance(), before);
    EXPECT_EQ(installation.mainLog("Configuration"), log);

    Manager::shutdown();
    auto copy = RegistryInspection({installation.write("a.crg", document(""))});
    EXPECT_THAT(copy.getFiles(), testing::ElementsAre(installation.at("etc/kivobase.crg"), installation.at("a.crg")));
    copy = inspection;
    EXPECT_EQ(copy.getFindings().size(), 2u);
    EXPECT_THROW(Manager::getInstance(), ConfigurationException); // there was none, so it is made now
}

TEST_F(RegistryInspectionTest, FilesThatNobodyReads) {
    namespace fs = std::filesystem;
    fs::remove(installation.at("etc/kivobase.crg"));
    installation.write("plugins/p/A.Crg", "no XML");
    installation.write("plugins/p/b.crg", document(""));
    installation.write("plugins/p/B.crg", document(""));
    fs::create_symlink("nowhere", installation.at("plugins/p/c.crg"));
    fs::create_symlink("nowhere", installation.at("etc/library.so"));
    auto const given = installation.write("own.xml", document(""));
    auto const findings = sortFindings(RegistryInspection({given, "", "nowhere.crg"}).getFindings());
    char const* const name = "warning: no tool reads this file: names of registry files end in \".crg\", in lower case "
                             "[unread-file]\n";
    EXPECT_EQ(shown(findings, installation.at("")),
              std::string("error: File \"\" was not found [missing-file]\nown.xml: ") + name + "plugins/p/A.Crg: " +
                  name + "plugins/p/b.crg: warning: this file is not read: its path differs from \"" +
                  installation.at("plugins/p/B.crg") +
                  "\" only in letter case [unread-file]\n"
                  "plugins/p/c.crg: warning: this link leads nowhere, so it is not read [unread-file]\n"
                  "nowhere.crg: error: File \"nowhere.crg\" was not found [missing-file]\n"
                  "error: Unable to find the kivobase.crg file. [missing-file]\n");
}

} // namespace

} // namespace kivo::test
