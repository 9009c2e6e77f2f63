#include "registry/ConfigurationRegistryLoader.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterVisitor.h>
#include <configuration/Specification.h>

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "support/Repeat.h"
#include "text/ParameterItemRepresentationVisitor.h"

#include <gmock/gmock.h>

namespace kivo::test {

using namespace configuration;

namespace {

/// Writes a schema as registry/every-element.txt shows it.
class SchemaText final : public ParameterVisitor {
public:
    bool visitGroupStart(ParameterGroup const& group) override {
        add(group);
        text += group.getGroupType() == ParameterGroup::CONTAINER ? " {}" : (group.itemsAreExclusive() ? " []" : " ()");
        indentation += "    ";
        return true;
    }
    void visitGroupEnd(ParameterGroup const&) override { indentation.resize(indentation.size() - 4); }
    bool visitParameter(Parameter const& parameter) override {
        add(parameter);
        text += parameter.isHidden() ? " ~:" : " :";
        text += ParameterItemRepresentationVisitor::getValueTypeString(parameter.getValueType());
        add(" =", parameter.getDefaultValue() ? parameter.getDefaultValue()->getValue(0, false) : nullptr);
        add(" #", parameter.getValueName());
        add(" !", parameter.getValidator() ? parameter.getValidator()->getName() : nullptr);
        add(" @", parameter.getEnumDefinition() ? parameter.getEnumDefinition()->getName() : nullptr);
        return true;
    }

    std::string text;

private:
    void add(ParameterItem const& item) {
        text += (text.empty() ? "" : "\n") + indentation + item.getId() + "/" + item.getName();
        text.append(item.isSpecialized() ? "+" : "").append(item.isOptional() ? "?" : "");
        text.append(item.isUnbounded() ? "*" : "").append(" '").append(item.getDescription()).append("'");
    }
    void add(char const* sign, char const* value) { text += value ? std::string(sign) + value : ""; }

    std::string indentation;
};

/// An element by its start tag.
std::string tag(std::string const& start, std::string const& content = "") {
    return "<" + start + ">" + content + "</" + start.substr(0, start.find(' ')) + ">";
}

class LoaderTest : public ManagerTest {
protected:
    /// What loading throws; each load is recorded once.
    std::string loadFile(char const* file) {
        manager();
        auto records = installation.mainLog("Configuration");
        auto const thrown = whatOf([&] { loader.loadFile(file); });
        bool const isLoaded = thrown == "<nothing>";
        records.push_back("loadConfigurationRegistryFile: [" + std::string(isLoaded ? "succeeded" : "failed") +
                          "]\n [file = \"" + (file ? file : "") + "\"]" +
                          (isLoaded ? "" : "\n [error = \"" + (thrown == "<null>" ? "" : thrown) + "\"]"));
        EXPECT_EQ(installation.mainLog("Configuration"), records);
        return thrown;
    }

    std::string load(std::string const& sections) {
        return loadFile(installation.write("f.crg", tag("ConfigurationRegistry", sections)).c_str());
    }

    static std::string schema(char const* id) {
        SchemaText visitor;
        if (auto const* const item = manager().getParameterItem(id)) {
            item->accept(visitor);
        }
        return visitor.text;
    }

    ConfigurationRegistryLoader loader;
};

TEST_F(LoaderTest, ReadsEveryElementOfTheFormat) {
    createItem("free?*~");
    EXPECT_EQ(loadFile(TEST_DATA_DIR "/registry/every-element.crg"), "<nothing>");
    checkCases("registry/every-element.txt", [](FileCase const& row) { return schema(row["item"].c_str()) + '\n'; });
    EXPECT_STREQ(manager().getSpecification("Tool")->getDescription(), "What the tool accepts");
    EXPECT_EQ(manager().getNumberOfSpecifications(), 3u);

    // Counting goes on from the number given; a repeated label keeps its number, but still counts.
    std::string labels;
    for (char const* name : {"levels", "answers"}) {
        auto const& definition = *manager().getEnumDefinition(name);
        for (unsigned long i = 0; i < definition.getNumberOfSymbols(); ++i) {
            char const* const label = definition.getSymbol(i);
            labels.append(label).append("=").append(std::to_string(definition.getValue(label))).append(" ");
        }
    }
    EXPECT_EQ(labels, "a=0 b=10 c=11 d=-3 e=-2 f=41 none=0 least=-2147483648 most=2147483647 no=0 ");
    EXPECT_STREQ(manager().getSpecificationAt(0)->getId(), manager().getSpecification("Tool")->getId());
}

std::string parameter(std::string const& attributes) { return tag("Parameters", tag("Parameter " + attributes)); }
std::string group(std::string const& items, std::string const& id = "g") {
    return tag("Groups", tag("Group id='" + id + "' name='n' description='d'", items));
}
std::string container(std::string const& items) { return tag("Container id='c' name='n' description='d'", items); }
std::string specification(std::string const& items, std::string const& id = "s") {
    return tag("Specifications", tag("Specification id='" + id + "' name='n' description='d'", items));
}

std::string const P = parameter("id='p' name='p' description='d' type='int'");
std::string const REF = "<ParameterRef id='p'/>";

TEST_F(LoaderTest, ReadsSectionsUpToTheFirstFault) {
    checkCases("registry/sections.txt", [this](FileCase const& row) {
        manager().reset();
        auto const thrown = load(row["file"]);
        std::string registered = manager().getEnumDefinition("e") ? "e" : "";
        for (char const* id : {"p", "g", "c", "m", "s"}) {
            registered += manager().getParameterItem(id) ? id : "";
        }
        EXPECT_EQ(registered + (manager().getSpecification("s") ? "!" : ""), row["registered"]);
        // The loader is as good as new: what it reads next is not added to what it was reading.
        EXPECT_EQ(load(group("", "new")), "<nothing>");
        EXPECT_EQ(schema("new"), "new/n? 'd' ()");
        EXPECT_THAT(schema("s") + schema("g"), testing::Not(testing::HasSubstr("new")));
        return lines({thrown == "<nothing>" ? "" : thrown});
    });
}

TEST_F(LoaderTest, RefusesWhatIsNoRegistryFile) {
    auto const file = installation.write("f.crg", "<configurationRegistry/>");
    EXPECT_EQ(loadFile(file.c_str()), "Expected \"ConfigurationRegistry\" tag but found \"configurationRegistry\"");
    installation.write("f.crg", "<r>\n<a></r>");
    EXPECT_EQ(loadFile(file.c_str()),
              "XML ERROR: expected end of tag 'a'. File: \"" + file + "\". Line: 2. Column: 6.");
    EXPECT_EQ(loadFile("no%s%n.crg"), "File \"no%s%n.crg\" was not found");
    EXPECT_EQ(loadFile(nullptr), "File \"\" was not found");
}

TEST_F(LoaderTest, AFaultWithoutATextIsAFault) {
    struct Silent final : ParameterValidator {
        using ParameterValidator::ParameterValidator;
        char* validate(ParameterValue const&) const override { throw ConfigurationException(nullptr); }
        char* validate(char const*) const override { return nullptr; }
    };
    manager().addValidator(std::make_unique<Silent>("silent").release());
    EXPECT_EQ(load(parameter("id='p' name='p' description='d' type='int' default='1' validator='silent'")), "<null>");
}

TEST_F(LoaderTest, EarlierFilesCanBeReferredTo) {
    EXPECT_EQ(load(P + group("")), "<nothing>");
    EXPECT_EQ(load(specification("<ParameterRef id='p'/><GroupRef id='g'/><GroupRef id='g'/>")), "<nothing>");
    EXPECT_EQ(load(P + group("")), "Parameter id \"p\" is not unique");
    EXPECT_EQ(schema("s"), "s/n 'd' {}\n    p/p 'd' :int\n    g/n? 'd' ()\n    g/n? 'd' ()"); // what was there stays
}

/// Groups each of which refers `references` times to the one before, then to g0, which holds `parameters` of them.
std::string chainOfGroups(int groups, int references, int parameters = 1) {
    std::string text;
    auto items = repeat(parameters, REF);
    for (int i = 0; i < groups; ++i) {
        auto const id = "g" + std::to_string(i);
        text += tag("Group id='" + id + "' name='n' description='d'", items);
        items = repeat(references, "<GroupRef id='" + id + "'/>") + "<GroupRef id='g0'/>";
    }
    return P + tag("Groups", text);
}

TEST_F(LoaderTest, SchemasCannotExplode) {
    // Each group has more than twice the items of the one before.
    EXPECT_EQ(load(chainOfGroups(40, 2)), "Group \"g17\" unfolds to too many items");
    manager().reset();
    // The way down through the first item of each group is the longest, not that through the last one.
    EXPECT_EQ(load(chainOfGroups(2000, 1)), "Group \"g999\" unfolds to too many levels");
    manager().reset();
    // 898 items in g0, (898 + 1) * 11 in g1, (9,889 + 1) * 10 + 899 in g2, and 998,899 in g3.
    EXPECT_EQ(load(chainOfGroups(4, 10, 898)), "<nothing>");
    EXPECT_EQ(load(specification(repeat(1100, REF) + "<GroupRef id='g3'/>")), "<nothing>");
    EXPECT_EQ(load(specification(container(repeat(1100, REF) + "<GroupRef id='g3'/>"), "t")),
              "Group \"g3\" unfolds to too many items");

    // Code can make a group endless.
    auto* const endless = ParameterGroup::CreateGroup("endless", "n", "d");
    endless->addItem(endless);
    EXPECT_EQ(load(specification("<GroupRef id='endless'/>", "u")), "Group \"endless\" unfolds to too many levels");
}

} // namespace

} // namespace kivo::test
