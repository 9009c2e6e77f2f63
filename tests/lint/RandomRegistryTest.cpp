// An inspection says what loading does, for any registry files.

#include <configuration/InspectionReport.h>
#include <configuration/RegistryInspection.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"

#include <algorithm>
#include <functional>
#include <random>

namespace kivo::test {

using namespace configuration;

namespace {

/// Random registry files, most of them nearly right.
class RandomRegistry {
public:
    RandomRegistry(unsigned long seed, TemporaryInstallation const& installation)
        : mRandom(seed), mFaults(oneIn(2) ? 0 : 1 + below(60)) {
        for (int file = 0; file < 3; ++file) {
            auto text = "<ConfigurationRegistry>\n" + sections() + "</ConfigurationRegistry>";
            for (auto n = oneIn(20) ? 1 + below(3) : 0; n > 0; --n) {
                text[below(text.size())] = pick({"<", "\"", "x", " ", "\n", "&", "\1", "\xff"})[0];
            }
            installation.write("etc/f" + std::to_string(file) + ".crg", text);
        }
    }

private:
    bool oneIn(unsigned long n) { return mRandom() % n == 0; }
    bool isFault() { return mFaults > 0 && oneIn(7 * mFaults); }
    unsigned long below(unsigned long n) { return mRandom() % n; }
    std::string pick(std::initializer_list<char const*> texts) { return *(texts.begin() + below(texts.size())); }

    std::string attribute(std::string name, std::string const& value) {
        if (isFault()) {
            return "";
        }
        name = isFault() ? name.substr(1) + name[0] : name;
        return " " + name + "=\"" + (isFault() ? pick({"", "x", "-1", "99999999999", "%s"}) : value) + "\"";
    }
    std::string element(std::string name, std::string const& attributes, std::string const& content = "") {
        name = isFault() ? pick({"Paramter", "Contaner", "X", "Value", "GroupRef"}) : name;
        return "<" + name + attributes + ">" + content + "</" + name + ">\n";
    }
    std::string freshId(char const* kind) { return kind + std::to_string(isFault() ? below(3) : mCount++); }
    std::string known(std::vector<std::string> const& ids) {
        return ids.empty() || isFault() ? pick({"p0", "g1", "e2", "", "nothing"}) : ids[below(ids.size())];
    }
    std::string referTo(char const* name, std::vector<std::string> const& ids, std::string const& attributes = "") {
        return ids.empty() && !isFault() ? "" : element(name, attribute("id", known(ids)) + attributes);
    }
    std::string named(std::string const& id) {
        return attribute("id", id) + attribute("name", oneIn(9) ? "n" + id : id) + attribute("description", "d");
    }
    std::string flag(char const* name) { return oneIn(2) ? attribute(name, pick({"true", "1", "false", "no"})) : ""; }

    std::string enumeration() {
        auto const id = freshId("e");
        std::string values;
        for (auto n = below(4); n > 0; --n) {
            values += element("Value", attribute("label", pick({"low", "high", "none"})) +
                                           (oneIn(2) ? attribute("value", "3") : ""));
        }
        auto const text = element("Enumeration", attribute("id", id), values);
        mEnumerations.push_back(id);
        return text;
    }

    std::string parameter() {
        static char const* const TYPES[] = {"bool", "string", "int",      "uint", "double",
                                            "oid",  "size",   "duration", "enum"};
        static char const* const TEXTS[] = {"true", "x", "7", "7", "7.5", "1-2-3-4", "7k", "7s", "low"};
        auto const type = below(mEnumerations.empty() ? 8 : 9);
        bool const isNumber = type >= 2 && type != 5 && type != 8;
        auto const id = freshId("p");
        auto text = named(id) + attribute("type", TYPES[type]);
        text += type == 8 ? attribute("enumType", known(mEnumerations)) : "";
        text += oneIn(3) ? "" : attribute("default", TEXTS[type]);
        text += isNumber && oneIn(3) ? attribute("min", TEXTS[type]) : "";
        text += isNumber && oneIn(3) ? attribute("max", TEXTS[type]) : "";
        text += oneIn(9) ? attribute("formerly", "f" + std::to_string(below(6))) : "";
        text += oneIn(9) ? attribute("deprecated", "d") : "";
        text += isFault() ? attribute("validator", "nobody") : flag("sensitive");
        mParameters.push_back(id);
        return element("Parameter", text);
    }

    std::string items(int depth) {
        std::string text;
        for (auto n = below(5); n > 0; --n) {
            auto const kind = below(depth > 3 ? 8 : 10);
            if (kind < 6) {
                text += referTo("ParameterRef", mParameters,
                                flag("hidden") + (oneIn(2) ? attribute("unbounded", "1") : "") +
                                    (oneIn(9) ? attribute("optional", "1") : ""));
            } else if (kind < 8) {
                text += referTo("GroupRef", mGroups);
            } else {
                bool const isChoice = kind == 8;
                text += element(isChoice ? "MutuallyExclusive" : "Container",
                                named(freshId("c")) + flag("optional") + (isChoice ? "" : flag("unbounded")),
                                items(depth + 1));
            }
        }
        return text;
    }

    std::string section(char const* name, std::function<std::string()> const& make) {
        std::string text;
        for (auto n = below(5); n > 0; --n) {
            text += make();
        }
        return text.empty() ? "" : element(name, "", text);
    }
    std::string group() {
        auto const id = freshId("g");
        auto const text = element("Group", named(id), items(0));
        mGroups.push_back(id);
        return text;
    }
    std::string sections() {
        return section("Enumerations", [this] { return enumeration(); }) +
               section("Parameters", [this] { return parameter(); }) + section("Groups", [this] { return group(); }) +
               section("Specifications", [this] { return element("Specification", named(freshId("s")), items(0)); });
    }

    std::mt19937_64 mRandom;
    unsigned long mFaults; // the more, the fewer; 0 stands for none
    unsigned long mCount = 10;
    std::vector<std::string> mEnumerations;
    std::vector<std::string> mParameters;
    std::vector<std::string> mGroups;
};

using RandomRegistryTest = ManagerTest;

TEST_F(RandomRegistryTest, TheFirstErrorIsWhatLoadingThrows) {
    int loaded = 0;
    constexpr int COUNT = 600;
    for (unsigned long seed = 1; seed <= COUNT && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomRegistry const registry(seed, installation);
        RegistryInspection const inspection;
        auto const thrown = whatOf([] { Manager::getInstance(); });
        auto const& findings = inspection.getFindings();
        auto const first = std::ranges::find(findings, Finding::ERROR_SEVERITY, &Finding::getSeverity);
        if (first == findings.end()) {
            EXPECT_EQ(thrown, "<nothing>") << composeFindings(findings);
        } else {
            EXPECT_EQ(thrown.substr(0, thrown.find('\n')), first->getMessage()) << composeFindings(findings);
        }
        loaded += thrown == "<nothing>" ? 1 : 0;
        Manager::shutdown();
    }
    EXPECT_GT(loaded, COUNT / 10);
    EXPECT_LT(loaded, COUNT - COUNT / 10);
}

} // namespace

} // namespace kivo::test
