#include "registry/ConfigurationRegistryLoader.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterVisitor.h>
#include <configuration/Specification.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "text/ParameterItemRepresentationVisitor.h"

#include <gmock/gmock.h>

namespace kivo::test {

using namespace configuration;

namespace {

/// Writes a schema as one line: an item's id, name behind "/", "+" when it is specialized, "?" optional, "*" unbounded,
/// its description in quotes; then "~" for a hidden parameter, its type, default, value name, validator and
/// enumeration, or the items in "{}" for a container, "({}" for a group constraint, "[{}" for an exclusive one.
class SchemaText final : public ParameterVisitor {
public:
    bool visitGroupStart(ParameterGroup const& group) override {
        add(group);
        text += group.getGroupType() == ParameterGroup::CONTAINER ? "{" : (group.itemsAreExclusive() ? "[{" : "({");
        return true;
    }
    void visitGroupMiddle(ParameterGroup const&) override { text += ' '; }
    void visitGroupEnd(ParameterGroup const&) override { text += '}'; }
    bool visitParameter(Parameter const& parameter) override {
        add(parameter);
        text += parameter.isHidden() ? "~:" : ":";
        text += ParameterItemRepresentationVisitor::getValueTypeString(parameter.getValueType());
        add("=", parameter.getDefaultValue() ? parameter.getDefaultValue()->getValue(0, false) : nullptr);
        add("#", parameter.getValueName());
        add("!", parameter.getValidator() ? parameter.getValidator()->getName() : nullptr);
        add("@", parameter.getEnumDefinition() ? parameter.getEnumDefinition()->getName() : nullptr);
        return true;
    }

    std::string text;

private:
    void add(ParameterItem const& item) {
        text.append(item.getId()).append("/").append(item.getName()).append(item.isSpecialized() ? "+" : "");
        text.append(item.isOptional() ? "?" : "").append(item.isUnbounded() ? "*" : "");
        text.append("'").append(item.getDescription()).append("'");
    }
    void add(char const* sign, char const* value) { text += value ? std::string(sign) + value : ""; }
};

std::string inRoot(std::string const& sections) {
    return "<ConfigurationRegistry>" + sections + "</ConfigurationRegistry>";
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
        return loadFile(installation.write("f.crg", inRoot(sections)).c_str());
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
    EXPECT_EQ(loadFile(TEST_DATA_DIR "/registry/every-element.crg"), "<nothing>");
    EXPECT_EQ(schema("TOOL"), "tool/Tool*'What the tool accepts'{"
                              "level/Level'How much is said':enum=b@levels "
                              "target/Target+*'Somewhere else'~:string#path!storageLocation "
                              "disk/Disk?'Where it is'{force/Force'Whether':bool owner/Owner+?'Whose':OID=#1-2-3-4 "
                              "all/All?'A group of a group'({numbers/Numbers?'Numbers that belong together'({"
                              "count/Count'How many':unsigned int=4 "
                              "choice/Choice' '[{ratio/Ratio'How large':double least/Least'How few':int}}}} "
                              "either/Either?'One of them'[{}}");
    EXPECT_EQ(schema("target"), "target/Target'Where to':string#path!storageLocation");
    EXPECT_STREQ(manager().getSpecification("Tool")->getDescription(), "What the tool accepts");
    EXPECT_EQ(manager().getNumberOfSpecifications(), 1u);

    // Counting goes on from the number given; a repeated label keeps its number, but still counts.
    std::vector<int> numbers;
    for (char const* label : {"a", "b", "c", "d", "e", "f", "none", "least", "most"}) {
        numbers.push_back(manager().getEnumDefinition("levels")->getValue(label));
    }
    EXPECT_THAT(numbers, testing::ElementsAre(0, 10, 11, -3, -2, 41, 0, -2147483648, 2147483647));
}

struct FaultCase {
    char const* label;
    std::string sections;
    std::string fault;
};

class Faults : public LoaderTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(Faults, EndTheLoad) {
    EXPECT_EQ(load(GetParam().sections), GetParam().fault);
    // The loader is as good as new: what it reads next is not added to what it was reading.
    EXPECT_EQ(load("<Groups><Group id='new' name='n' description='d'/></Groups>"), "<nothing>");
    EXPECT_EQ(schema("new"), "new/n?'d'({}");
    EXPECT_THAT(schema("s"), testing::Not(testing::HasSubstr("new")));
}

std::string missing(std::string const& attribute) { return "Expected attribute \"" + attribute + "\" was not found"; }

std::string enumerations(std::string const& values) {
    return "<Enumerations><Enumeration id='e'>" + values + "</Enumeration></Enumerations>";
}

std::string parameter(std::string const& attributes) {
    return "<Parameters><Parameter " + attributes + "/></Parameters>";
}

std::string const E = enumerations("");
std::string const P = parameter("id='p' name='p' description='d' type='int'");
std::string const G =
    "<Groups><Group id='g' name='g' description='d'><Container id='c' name='c' description='d'/></Group></Groups>";

std::string specification(std::string const& items, std::string const& id = "s") {
    return "<Specifications><Specification id='" + id + "' name='s' description='d'>" + items +
           "</Specification></Specifications>";
}

// Attributes are asked for in an order of their own, not in that of the file.
// clang-format off
INSTANTIATE_TEST_SUITE_P(Loader, Faults, testing::Values(
    FaultCase{"OtherElementOfEnumerations", "<Enumerations><Enum/></Enumerations>", "Expected \"Enumeration\" tag but found \"Enum\""},
    FaultCase{"OtherElementOfEnumeration", enumerations("<value/>"), "Expected \"Value\" tag but found \"value\""},
    FaultCase{"OtherElementOfGroups", "<Groups><x:Grou xmlns:x='u'/></Groups>", "Expected \"Group\" tag but found \"Grou\""},
    FaultCase{"OtherElementOfSpecifications", "<Specifications><Group/></Specifications>", "\"Group\" is not a valid element"},
    FaultCase{"OtherItem", P + G + specification("<Container id='d' name='d' description='d'><Parameter/></Container>"), "\"Parameter\" is not a valid element"},
    FaultCase{"OtherItemOfAGroup", "<Groups><Group id='g' name='n' description='d'><\xC3\xA9/></Group></Groups>", "\"\xC3\xA9\" is not a valid element"},
    FaultCase{"EnumerationId", "<Enumerations><Enumeration ID='e'/></Enumerations>", missing("id")},
    FaultCase{"ParameterId", parameter("x:id='p' xmlns:x='u'"), missing("id")},
    FaultCase{"ParameterDescription", parameter("id='p' name='p' type='Enum'"), missing("description")},
    FaultCase{"ParameterType", parameter("id='p' name='p' description='d' validator='none'"), missing("type")},
    FaultCase{"EnumType", parameter("id='p' name='p' description='d' type='enum' validator='none'"), missing("enumType")},
    FaultCase{"LettersBehindANumber", enumerations("<Value label='a' value='12abc'/>"), "\"12abc\" is not a valid enumeration value"},
    FaultCase{"Beyond32Bits", enumerations("<Value label='a' value='2147483648'/>"), "\"2147483648\" is not a valid enumeration value"},
    FaultCase{"Below32Bits", enumerations("<Value label='a' value='-2147483649'/>"), "\"-2147483649\" is not a valid enumeration value"},
    FaultCase{"CountedBeyond32Bits", enumerations("<Value label='a' value='2147483647'/><Value label='b'/>"), "\"2147483648\" is not a valid enumeration value"},
    FaultCase{"PercentSigns", parameter("id='p' name='p' description='d' type='%s%n'"), "\"%s%n\" is not a acceptable value for the \"type\" attribute"},
    FaultCase{"UnknownEnumeration", parameter("id='p' name='p' description='d' type='enum' enumType='e%n'"), "The \"e%n\" enumeration was not found"},
    FaultCase{"EmptyNamesArePresent", parameter("id='' name='' description=''  type='int'"), contractText("objectKey != 0 && *objectKey != '\\0'")},
    FaultCase{"SameEnumeration", "<Enumerations><Enumeration id='e'/><Enumeration id='E'/></Enumerations>", "The \"E\" enumeration has already been defined"},
    FaultCase{"UnknownParameter", P + G + specification("<ParameterRef id='%n'/>"), "Parameter \"%n\" was not found"},
    FaultCase{"GroupAsParameter", P + G + specification("<ParameterRef id='g'/>"), "Invalid item type. Expected: 0, found: 1"},
    FaultCase{"UnknownGroup", P + G + specification("<GroupRef id='%n'/>"), "Group\"%n\" was not found"},
    FaultCase{"ParameterAsGroup", P + G + specification("<GroupRef id='p'/>"), "Invalid item type. Expected: 1, found: 0"},
    FaultCase{"ContainerAsGroup", P + G + specification("<GroupRef id='c'/>"), "\"c\" is not a group"},
    FaultCase{"ItselfInAContainer", "<Groups><Group id='a' name='a' description='d'><Container id='c' name='c' description='d'>"
        "<MutuallyExclusive id='m' name='m'><GroupRef id='a'/></MutuallyExclusive></Container></Group></Groups>", "Group \"a\" cannot contain itself"}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

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

TEST_F(LoaderTest, ReadsSectionsUpToTheFirstThatDoesNotFit) {
    std::string const S = specification("");
    for (auto const& [sections, expected] : {
             std::pair<std::string, std::string>("", ""),
             {E + G, "eg"},
             {S + G + P + E, "s"},
             {P + E, "p"},
             {E + P + "<Parameters><Parameter/></Parameters>" + G, "ep"},
             {"<Version/>" + E, ""},
             {E + "<parameters/>" + P, "e"},
             {E + P + G + S + "<Anything/>", "epgs"},
         }) {
        manager().reset();
        EXPECT_EQ(load(sections), "<nothing>");
        auto const& m = manager();
        EXPECT_EQ(std::string(m.getEnumDefinition("e") ? "e" : "") + (m.getParameterItem("p") ? "p" : "") +
                      (m.getParameterItem("g") ? "g" : "") + (m.getSpecification("s") ? "s" : ""),
                  expected);
    }
}

TEST_F(LoaderTest, AReferenceSpecialisesOnlyWhatItChanges) {
    manager();
    createParameter({.id = "given", .optional = true, .unbounded = true, .hidden = true});
    std::string items;
    for (char const* ref :
         {"id='p'", "id='P' optional='false' unbounded='0' hidden='no'", "id='p' description='d'", "id='p' default='1'",
          "id='p' hidden='TRUE' default='1'", "id='p' unbounded='1'", "id='given'", "id='given' hidden='false'"}) {
        items += "<ParameterRef " + std::string(ref) + "/>";
    }
    EXPECT_EQ(load(P + specification(items)), "<nothing>");
    EXPECT_EQ(schema("s"), "s/s'd'{p/p'd':int p/p'd':int p/p+'d':int p/p+'d':int=1 p/p+'d'~:int=1 p/p+*'d':int "
                           "given/given?*'Description'~:string given/given+?*'Description':string}");
}

TEST_F(LoaderTest, EarlierFilesCanBeReferredTo) {
    EXPECT_EQ(load(P + G), "<nothing>");
    EXPECT_EQ(load(specification("<ParameterRef id='p'/><GroupRef id='g'/><GroupRef id='g'/>")), "<nothing>");
    EXPECT_EQ(load(P + G), "Parameter id \"p\" is not unique");
    EXPECT_EQ(schema("s"), "s/s'd'{p/p'd':int g/g?'d'({c/c'd'{}} g/g?'d'({c/c'd'{}}}"); // what was there stays
}

TEST_F(LoaderTest, NonAsciiTextsStayWhole) {
    auto const content =
        inRoot("<Enumerations><Enumeration id='\xE9'><Value label='\xFC'/></Enumeration></Enumerations>"
               "<Parameters><Parameter id='\xE9' name='&#x20AC;' description='&#x1F600;' type='enum' "
               "enumType='\xE9' valueName='\xFC' default='\xFC'/></Parameters>");
    EXPECT_EQ(loadFile(installation.write("\xE9.crg", "<?xml version='1.0' encoding='ISO-8859-1'?>" + content).c_str()),
              "<nothing>");
    EXPECT_EQ(schema("\xC3\xA9"), "\xC3\xA9/\xE2\x82\xAC'\xF0\x9F\x98\x80':enum=\xC3\xBC#\xC3\xBC@\xC3\xA9");
}

std::string repeat(int count, std::string const& text) { return count > 0 ? text + repeat(count - 1, text) : ""; }

/// Groups each of which refers `references` times to the one before; the first holds `parameters` of them.
std::string chainOfGroups(int groups, int references, int parameters = 1) {
    std::string text;
    auto items = repeat(parameters, "<ParameterRef id='p'/>");
    for (int i = 0; i < groups; ++i) {
        auto const id = "g" + std::to_string(i);
        text += "<Group id='" + id + "' name='n' description='d'>" + items + "</Group>";
        items = repeat(references, "<GroupRef id='" + id + "'/>");
    }
    return P + "<Groups>" + text + "</Groups>";
}

TEST_F(LoaderTest, SchemasCannotExplode) {
    // Each group has twice the items of the one before, and two more.
    EXPECT_EQ(load(chainOfGroups(40, 2)), "Group \"g18\" unfolds to too many items");
    manager().reset();
    EXPECT_EQ(load(chainOfGroups(2000, 1)), "Group \"g999\" unfolds to too many levels");
    manager().reset();
    // 998 items in g0, (998 + 1) * 10 in g1, 99,910 in g2, and 999,110 in g3.
    EXPECT_EQ(load(chainOfGroups(4, 10, 998)), "<nothing>");
    auto const inContainer = [](int parameters, std::string const& id) {
        return specification("<Container id='c" + id + "' name='n' description='d'>" +
                                 repeat(parameters, "<ParameterRef id='p'/>") + "<GroupRef id='g3'/></Container>",
                             id);
    };
    EXPECT_EQ(load(inContainer(888, "most")), "<nothing>");
    EXPECT_EQ(load(inContainer(889, "more")), "Group \"g3\" unfolds to too many items");

    // Code can make a group endless.
    auto* const group = createGroup({.id = "endless"});
    group->addItem(group);
    group->addItem(group);
    EXPECT_EQ(load(specification("<GroupRef id='endless'/>")), "Group \"endless\" unfolds to too many levels");
}

} // namespace

} // namespace kivo::test
