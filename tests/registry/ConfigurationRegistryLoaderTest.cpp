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

#include <gmock/gmock.h>

#include <chrono>

namespace kivo::test {

using namespace configuration;
using testing::ElementsAre;

namespace {

/// Writes a schema as one line: an item's id, name behind "/", "+" when it is specialized, "?" optional, "*" unbounded,
/// "~" hidden, a parameter's type word, default, value name, validator and labels, each behind a sign of its own, and
/// the description in quotes. Items stand in {} for a container, () for a group constraint, [] for an exclusive one.
class SchemaText final : public ParameterVisitor {
public:
    static std::string of(ParameterItem const& item) {
        SchemaText visitor;
        item.accept(visitor);
        return visitor.mText;
    }

    bool visitGroupStart(ParameterGroup const& group) override {
        add(group, "");
        mText += brackets(group)[0];
        return true;
    }
    void visitGroupMiddle(ParameterGroup const&) override { mText += ' '; }
    void visitGroupEnd(ParameterGroup const& group) override { mText += brackets(group)[1]; }

    bool visitParameter(Parameter const& parameter) override {
        static char const* const typeWords[] = {"bool", "string", "int", "uint", "double", "oid", "enum"};
        std::string more = std::string(parameter.isHidden() ? "~:" : ":") + typeWords[parameter.getValueType()];
        if (parameter.getDefaultValue()) {
            more += std::string("=") + parameter.getDefaultValue()->getValue(0, false);
        }
        if (parameter.getValueName()) {
            more += std::string("<") + parameter.getValueName() + ">";
        }
        if (parameter.getValidator()) {
            more += std::string("!") + parameter.getValidator()->getName();
        }
        if (parameter.getEnumDefinition()) {
            more += std::string("@") + parameter.getEnumDefinition()->getName();
        }
        add(parameter, more);
        return true;
    }

private:
    static char const* brackets(ParameterGroup const& group) {
        return group.getGroupType() == ParameterGroup::CONTAINER ? "{}" : (group.itemsAreExclusive() ? "[]" : "()");
    }

    void add(ParameterItem const& item, std::string const& more) {
        mText.append(item.getId()).append("/").append(item.getName()).append(item.isSpecialized() ? "+" : "");
        mText.append(item.isOptional() ? "?" : "").append(item.isUnbounded() ? "*" : "").append(more);
        mText.append("'").append(item.getDescription()).append("'");
    }

    std::string mText;
};

std::string inRoot(std::string const& sections) {
    return "<ConfigurationRegistry>" + sections + "</ConfigurationRegistry>";
}

class LoaderTest : public ManagerTest {
protected:
    LoaderTest() { manager(); } // its own files are in the log before ours

    /// What loading throws.
    std::string load(std::string const& content, std::string const& name = "f.crg") {
        file = installation.write(name, content);
        return whatOf([this] { loader.loadFile(file.c_str()); });
    }

    std::string record(std::string const& error) const {
        return error == "<nothing>" ? "loadConfigurationRegistryFile: [succeeded]\n [file = \"" + file + "\"]"
                                    : "loadConfigurationRegistryFile: [failed]\n [file = \"" + file +
                                          "\"]\n [error = \"" + error + "\"]";
    }

    std::string lastRecord() const { return installation.mainLog("Configuration").back(); }

    static std::string schema(char const* id) {
        auto const* const item = manager().getParameterItem(id);
        return item ? SchemaText::of(*item) : "<none>";
    }

    ConfigurationRegistryLoader loader;
    std::string file;
};

TEST_F(LoaderTest, ReadsEveryElementOfTheFormat) {
    loader.loadFile(TEST_DATA_DIR "/registry/every-element.crg");
    EXPECT_EQ(
        schema("TOOL"),
        "tool/Tool*'What the tool accepts'{"
        "level/Level:enum=b@levels'How much is said' "
        "target/Target+*~:string<path>!storageLocation'Somewhere else' "
        "disk/Disk?'Where it is'{"
        "force/Force:bool'Whether' "
        "owner/Owner+?:oid=#1-2-3-4'Whose' "
        "all/All?'A group of a group'(numbers/Numbers?'Numbers that belong together'("
        "count/Count:uint=4'How many' choice/Choice' '[ratio/Ratio:double'How large' least/Least:int'How few']))} "
        "either/Either?'One of them'[]}");
    EXPECT_EQ(schema("target"), "target/Target:string<path>!storageLocation'Where to'");
    EXPECT_STREQ(manager().getSpecification("Tool")->getDescription(), "What the tool accepts");
    EXPECT_EQ(manager().getNumberOfSpecifications(), 1u);

    // Counting goes on from the number given; a repeated label keeps its number, but still counts.
    auto const& levels = *manager().getEnumDefinition("levels");
    std::vector<int> numbers;
    for (char const* label : {"a", "b", "c", "d", "e", "f", "none", "least", "most"}) {
        numbers.push_back(levels.getValue(label));
    }
    EXPECT_THAT(numbers, ElementsAre(0, 10, 11, -3, -2, 41, 0, -2147483648, 2147483647));
}

struct FaultCase {
    char const* label;
    std::string sections;
    std::string fault;
};

class Faults : public LoaderTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(Faults, EndTheLoadAndAreRecorded) {
    auto const recordsBefore = installation.mainLog("Configuration").size();
    EXPECT_EQ(load(inRoot(GetParam().sections)), GetParam().fault);
    EXPECT_EQ(lastRecord(), record(GetParam().fault));
    EXPECT_EQ(installation.mainLog("Configuration").size(), recordsBefore + 1);
    // The loader is as good as new: what it reads next is not added to what it was reading.
    EXPECT_EQ(load(inRoot("<Specifications><Specification id='new' name='n' description='d'/></Specifications>")),
              "<nothing>");
    EXPECT_EQ(schema("new"), "new/n'd'{}");
    EXPECT_THAT(schema("s"), testing::Not(testing::HasSubstr("new")));
}

std::string missing(char const* attribute) {
    return std::string("Expected attribute \"") + attribute + "\" was not found";
}

std::string enumerations(std::string const& values) {
    return "<Enumerations><Enumeration id='e'>" + values + "</Enumeration></Enumerations>";
}

std::string parameter(std::string const& attributes) {
    return "<Parameters><Parameter " + attributes + "/></Parameters>";
}

/// The specification "s" with parameter "p", group "g" and container "c" at hand.
std::string specification(std::string const& items) {
    return "<Parameters><Parameter id='p' name='p' description='d' type='int'/></Parameters>"
           "<Groups><Group id='g' name='g' description='d'><Container id='c' name='c' "
           "description='d'/></Group></Groups>"
           "<Specifications><Specification id='s' name='s' description='d'>" +
           items + "</Specification></Specifications>";
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Structure, Faults, testing::Values(
    FaultCase{"OtherElementOfEnumerations", "<Enumerations><Enum/></Enumerations>", "Expected \"Enumeration\" tag but found \"Enum\""},
    FaultCase{"OtherElementOfEnumeration", enumerations("<value/>"), "Expected \"Value\" tag but found \"value\""},
    FaultCase{"OtherElementOfParameters", "<Parameters><Enumeration id='e'/></Parameters>", "Expected \"Parameter\" tag but found \"Enumeration\""},
    FaultCase{"OtherElementOfGroups", "<Groups><x:Grou xmlns:x='u'/></Groups>", "Expected \"Group\" tag but found \"Grou\""},
    FaultCase{"OtherElementOfSpecifications", "<Specifications><Group/></Specifications>", "\"Group\" is not a valid element"},
    FaultCase{"OtherItem", specification("<Container id='d' name='d' description='d'><Parameter/></Container>"), "\"Parameter\" is not a valid element"},
    FaultCase{"OtherItemOfAGroup", "<Groups><Group id='g' name='n' description='d'><\xC3\xA9/></Group></Groups>", "\"\xC3\xA9\" is not a valid element"}),
    [](auto const& row) { return std::string(row.param.label); });

// The attributes are asked for in an order of their own, not in that of the file.
INSTANTIATE_TEST_SUITE_P(MissingAttributes, Faults, testing::Values(
    FaultCase{"EnumerationId", "<Enumerations><Enumeration ID='e'/></Enumerations>", missing("id")},
    FaultCase{"Label", enumerations("<Value value='x'/>"), missing("label")},
    FaultCase{"ParameterId", parameter("x:id='p' xmlns:x='u'"), missing("id")},
    FaultCase{"ParameterName", parameter("id='p'"), missing("name")},
    FaultCase{"ParameterDescription", parameter("id='p' name='p' type='Enum'"), missing("description")},
    FaultCase{"ParameterType", parameter("id='p' name='p' description='d' validator='none'"), missing("type")},
    FaultCase{"EnumType", parameter("id='p' name='p' description='d' type='enum' validator='none'"), missing("enumType")},
    FaultCase{"GroupId", "<Groups><Group/></Groups>", missing("id")},
    FaultCase{"GroupDescription", "<Groups><Group id='g' name='g'/></Groups>", missing("description")},
    FaultCase{"SpecificationName", "<Specifications><Specification id='s'/></Specifications>", missing("name")},
    FaultCase{"ContainerDescription", specification("<Container id='d' name='d'/>"), missing("description")},
    FaultCase{"MutuallyExclusiveName", specification("<MutuallyExclusive id='d'/>"), missing("name")},
    FaultCase{"ParameterRefId", specification("<ParameterRef/>"), missing("id")},
    FaultCase{"GroupRefId", specification("<GroupRef/>"), missing("id")}),
    [](auto const& row) { return std::string(row.param.label); });

INSTANTIATE_TEST_SUITE_P(Values, Faults, testing::Values(
    FaultCase{"LettersBehindANumber", enumerations("<Value label='a' value='12abc'/>"), "\"12abc\" is not a valid enumeration value"},
    FaultCase{"BlankBehindANumber", enumerations("<Value label='a' value='1 '/>"), "\"1 \" is not a valid enumeration value"},
    FaultCase{"OnlyBlanks", enumerations("<Value label='a' value=' '/>"), "\" \" is not a valid enumeration value"},
    FaultCase{"Beyond32Bits", enumerations("<Value label='a' value='2147483648'/>"), "\"2147483648\" is not a valid enumeration value"},
    FaultCase{"Below32Bits", enumerations("<Value label='a' value='-2147483649'/>"), "\"-2147483649\" is not a valid enumeration value"},
    FaultCase{"Beyond64Bits", enumerations("<Value label='a' value='9223372036854775808'/>"), "\"9223372036854775808\" is not a valid enumeration value"},
    FaultCase{"CountedBeyond32Bits", enumerations("<Value label='a' value='2147483647'/><Value label='b'/>"), "\"2147483648\" is not a valid enumeration value"},
    FaultCase{"TypeInCapitals", parameter("id='p' name='p' description='d' type='Enum'"), "\"Enum\" is not a acceptable value for the \"type\" attribute"},
    FaultCase{"EmptyType", parameter("id='p' name='p' description='d' type=''"), "\"\" is not a acceptable value for the \"type\" attribute"},
    FaultCase{"PercentSigns", parameter("id='p' name='p' description='d' type='%s%n'"), "\"%s%n\" is not a acceptable value for the \"type\" attribute"},
    FaultCase{"UnknownEnumeration", parameter("id='p' name='p' description='d' type='enum' enumType='e%n'"), "The \"e%n\" enumeration was not found"},
    FaultCase{"UnknownValidator", parameter("id='p' name='p' description='d' type='int' validator=''"), contractText("objectKey != 0 && *objectKey != '\\0'")},
    FaultCase{"UnregisteredValidator", parameter("id='p' name='p' description='d' type='int' validator='v'"), "Validator \"v\" was not found"},
    FaultCase{"BadDefault", parameter("id='p' name='p' description='d' type='int' default='x'"), "\"x\" is not a valid default value for parameter \"p\""},
    FaultCase{"EmptyNamesArePresent", parameter("id='' name='' description=''  type='int'"), contractText("objectKey != 0 && *objectKey != '\\0'")},
    FaultCase{"EmptyDescription", parameter("id='p' name='p' description='' type='int'"), contractText("description && strlen(description) > 0")},
    FaultCase{"SameEnumeration", "<Enumerations><Enumeration id='e'/><Enumeration id='E'/></Enumerations>", "The \"E\" enumeration has already been defined"},
    FaultCase{"SameContainer", specification("<Container id='C' name='c' description='d'/>"), "Container id \"C\" is not unique"}),
    [](auto const& row) { return std::string(row.param.label); });

INSTANTIATE_TEST_SUITE_P(References, Faults, testing::Values(
    FaultCase{"UnknownParameter", specification("<ParameterRef id='%n'/>"), "Parameter \"%n\" was not found"},
    FaultCase{"GroupAsParameter", specification("<ParameterRef id='g'/>"), "Invalid item type. Expected: 0, found: 1"},
    FaultCase{"UnknownGroup", specification("<GroupRef id='%n'/>"), "Group\"%n\" was not found"},
    FaultCase{"ParameterAsGroup", specification("<GroupRef id='p'/>"), "Invalid item type. Expected: 1, found: 0"},
    FaultCase{"ContainerAsGroup", specification("<GroupRef id='c'/>"), "\"c\" is not a group"},
    FaultCase{"ExclusiveAsGroup", specification("<MutuallyExclusive id='m' name='m'><GroupRef id='m'/></MutuallyExclusive>"), "\"m\" is not a group"},
    FaultCase{"LaterGroup", "<Groups><Group id='a' name='a' description='d'><GroupRef id='b'/></Group><Group id='b' name='b' description='d'/></Groups>", "Group\"b\" was not found"},
    FaultCase{"Itself", "<Groups><Group id='a' name='a' description='d'><GroupRef id='A'/></Group></Groups>", "Group \"a\" cannot contain itself"},
    FaultCase{"ItselfInAContainer", "<Groups><Group id='a' name='a' description='d'><Container id='c' name='c' description='d'>"
        "<MutuallyExclusive id='m' name='m'><GroupRef id='a'/></MutuallyExclusive></Container></Group></Groups>", "Group \"a\" cannot contain itself"}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

TEST_F(LoaderTest, RefusesWhatIsNoRegistryFile) {
    EXPECT_EQ(load("<configurationRegistry/>"),
              "Expected \"ConfigurationRegistry\" tag but found \"configurationRegistry\"");
    auto const beginning = "XML ERROR: expected end of tag 'a'. File: \"" + installation.at("f.crg") + "\". Line: 2.";
    auto const fault = load("<r>\n<a></r>");
    EXPECT_EQ(fault.substr(0, beginning.size()), beginning);
    EXPECT_EQ(lastRecord(), record(fault));
    file = installation.at("etc");
    EXPECT_EQ(whatOf([this] { loader.loadFile(file.c_str()); }),
              "XML ERROR: this is not a regular file. File: \"" + file + "\".");
    for (auto const& path : {installation.at("no%s%n.crg"), std::string()}) {
        file = path;
        EXPECT_EQ(whatOf<ConfigurationException>([this] { loader.loadFile(file.c_str()); }),
                  "File \"" + file + "\" was not found");
        EXPECT_EQ(lastRecord(), record("File \"" + file + "\" was not found"));
    }
}

struct SectionsCase {
    char const* label;
    std::string sections;
    char const* registered; ///< which of e(numeration), p(arameter), g(roup), s(pecification)
};

class Sections : public LoaderTest, public testing::WithParamInterface<SectionsCase> {};

TEST_P(Sections, AreReadUpToTheFirstThatDoesNotFit) {
    EXPECT_EQ(load(inRoot(GetParam().sections)), "<nothing>");
    EXPECT_EQ(lastRecord(), record("<nothing>"));
    std::string registered;
    registered += manager().getEnumDefinition("e") ? "e" : "";
    registered += manager().getParameterItem("p") ? "p" : "";
    registered += manager().getParameterItem("g") ? "g" : "";
    registered += manager().getSpecification("s") ? "s" : "";
    EXPECT_EQ(registered, GetParam().registered);
}

std::string const E = enumerations("");
std::string const P = parameter("id='p' name='p' description='d' type='int'");
std::string const G = "<Groups><Group id='g' name='g' description='d'/></Groups>";
std::string const S = "<Specifications><Specification id='s' name='s' description='d'/></Specifications>";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Orders, Sections, testing::Values(
    SectionsCase{"None", "", ""},
    SectionsCase{"All", E + P + G + S, "epgs"},
    SectionsCase{"SomeLeftOut", E + G, "eg"},
    SectionsCase{"Late", S + G + P + E, "s"},
    SectionsCase{"EnumerationsLate", P + E, "p"},
    SectionsCase{"Twice", E + P + "<Parameters><Parameter/></Parameters>" + G, "ep"},
    SectionsCase{"SomethingElseBefore", "<Version/>" + E, ""},
    SectionsCase{"SomethingElseBetween", E + "<parameters/>" + P, "e"},
    SectionsCase{"SomethingElseBehind", E + P + G + S + "<Anything/>", "epgs"}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

TEST_F(LoaderTest, AReferenceSpecialisesOnlyWhatItChanges) {
    createParameter({.id = "given", .optional = true, .unbounded = true, .hidden = true});
    std::string const refs[] = {"id='p'",
                                "id='P' optional='false' unbounded='0' hidden='no'",
                                "id='p' description='d'",
                                "id='p' default='1'",
                                "id='p' hidden='TRUE' default='1'",
                                "id='p' unbounded='1'",
                                "id='given'",
                                "id='given' hidden='false'"};
    std::string items;
    for (auto const& ref : refs) {
        items += "<ParameterRef " + ref + "/>";
    }
    EXPECT_EQ(load(inRoot(specification(items))), "<nothing>");
    EXPECT_EQ(schema("s"), "s/s'd'{p/p:int'd' p/p:int'd' p/p+:int'd' p/p+:int=1'd' p/p+~:int=1'd' p/p+*:int'd' "
                           "given/given?*~:string'Description' given/given+?*:string'Description'}");
    EXPECT_EQ(manager().getParameterItem("s"), manager().getSpecification("s")->getParameterGroup());
}

TEST_F(LoaderTest, EarlierFilesCanBeReferredTo) {
    EXPECT_EQ(load(inRoot(E + P + G)), "<nothing>");
    EXPECT_EQ(load(inRoot("<Specifications><Specification id='s' name='s' description='d'><ParameterRef id='p'/>"
                          "<GroupRef id='g'/><GroupRef id='g'/></Specification></Specifications>")),
              "<nothing>");
    EXPECT_EQ(schema("s"), "s/s'd'{p/p:int'd' g/g?'d'() g/g?'d'()}");
    EXPECT_EQ(load(inRoot(E)), "The \"e\" enumeration has already been defined");
    EXPECT_EQ(load(inRoot(P + G)), "Parameter id \"p\" is not unique");
    EXPECT_EQ(schema("s"), "s/s'd'{p/p:int'd' g/g?'d'() g/g?'d'()}"); // what was there stays
}

TEST_F(LoaderTest, NonAsciiTextsStayWhole) {
    EXPECT_EQ(load("<?xml version='1.0' encoding='ISO-8859-1'?>" +
                   inRoot("<Enumerations><Enumeration id='\xE9'><Value label='\xFC'/></Enumeration></Enumerations>"
                          "<Parameters><Parameter id='\xE9' name='&#x20AC;' description='&#x1F600;' type='enum' "
                          "enumType='\xE9' valueName='\xFC' default='\xFC'/></Parameters>")),
              "<nothing>");
    EXPECT_EQ(schema("\xC3\xA9"), "\xC3\xA9/\xE2\x82\xAC:enum=\xC3\xBC<\xC3\xBC>@\xC3\xA9'\xF0\x9F\x98\x80'");
    EXPECT_EQ(manager().getEnumDefinition("\xC3\xA9")->getValue("\xC3\xBC"), 0);
}

/// Groups each of which refers `references` times to the one before; the first holds `parameters` of them.
std::string chainOfGroups(int groups, int references, int parameters = 1) {
    std::string text = P + "<Groups>";
    for (int i = 0; i < groups; ++i) {
        auto const id = std::to_string(i);
        text += "<Group id='g" + id + "' name='n' description='d'>";
        for (int j = 0; j < (i == 0 ? parameters : references); ++j) {
            text += i == 0 ? "<ParameterRef id='p'/>" : "<GroupRef id='g" + std::to_string(i - 1) + "'/>";
        }
        text += "</Group>";
    }
    return text + "</Groups>";
}

TEST_F(LoaderTest, SchemasCannotExplode) {
    auto const start = std::chrono::steady_clock::now();
    // Each group has twice the items of the one before, and two more.
    EXPECT_EQ(load(inRoot(chainOfGroups(40, 2))), "Group \"g18\" unfolds to too many items");
    manager().reset();
    EXPECT_EQ(load(inRoot(chainOfGroups(2000, 1))), "Group \"g999\" unfolds to too many levels");
    manager().reset();
    // 998 items in g0, (998 + 1) * 10 in g1, 99,910 in g2, and 999,110 in g3.
    EXPECT_EQ(load(inRoot(chainOfGroups(4, 10, 998))), "<nothing>");
    auto const loadSpecification = [this](std::string const& id, int parameters) {
        std::string items = "<Container id='c" + id + "' name='n' description='d'>";
        for (int i = 0; i < parameters; ++i) {
            items += "<ParameterRef id='p'/>";
        }
        return load(inRoot("<Specifications><Specification id='" + id + "' name='n' description='d'>" + items +
                           "<GroupRef id='g3'/></Container></Specification></Specifications>"));
    };
    EXPECT_EQ(loadSpecification("most", 888), "<nothing>");
    EXPECT_EQ(loadSpecification("more", 889), "Group \"g3\" unfolds to too many items");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST_F(LoaderTest, AGroupThatCodeMakesEndlessIsRefused) {
    auto* const group = createGroup({.id = "endless"});
    auto const loadSpecification = [this](std::string const& id) {
        return load(inRoot("<Specifications><Specification id='" + id + "' name='n' description='d'>" +
                           "<GroupRef id='endless'/></Specification></Specifications>"));
    };
    EXPECT_EQ(loadSpecification("s"), "<nothing>");
    group->addItem(group);
    group->addItem(group);
    EXPECT_EQ(loadSpecification("t"), "Group \"endless\" unfolds to too many levels");
}

} // namespace

} // namespace kivo::test
