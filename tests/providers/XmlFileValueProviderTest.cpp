#include <configuration/ConfigurationException.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Manager.h>
#include <configuration/XmlFileValueProvider.h>

#include "providers/XmlValuesFile.h"
#include "registry/XercesDocument.h"
#include "registry/XercesLibraryInit.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/ValueTree.h"
#include "visitors/Notation.h"

#include <gmock/gmock.h>

namespace kivo::test {

using namespace configuration;

namespace {

class ValuesFileTest : public ManagerTest {
protected:
    ValuesFileTest() { manager(); } // its own records are in the log before ours

    /// The tree of a file.
    std::string read(std::string const& content) {
        file = installation.write("values.xml", content);
        return toText(*std::unique_ptr<ParameterValueGroup>(loadFromXmlFile(file.c_str())));
    }

    std::string file;
};

struct ReadingCase {
    char const* label;
    char const* content;
    char const* tree;
};

class Reading : public ValuesFileTest, public testing::WithParamInterface<ReadingCase> {};

TEST_P(Reading, MakesATreeOfElementsAndAttributes) {
    auto const recordsBefore = installation.mainLog("Configuration").size();
    EXPECT_EQ(read(GetParam().content), GetParam().tree);
    EXPECT_EQ(installation.mainLog("Configuration").size(), recordsBefore);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, Reading, testing::Values(
    ReadingCase{"OnlyTheRoot", "<?xml version='1.0'?><r/>", "r?{}"},
    ReadingCase{"Nested", "<r a='1'><b/><c d='2'><e f=''/></c></r>", "r?{a?=1 b?{} c?{d?=2 e?{f?=}}}"},
    ReadingCase{"SameNames", "<r><a b='1'/><c/><a b='2'/></r>", "r?{a?{b?=1} c?{} a?{b?=2}}"},
    ReadingCase{"SameNamesInAnotherCase", "<r A='1' a='2'/>", "r?{A?=1,2}"},
    ReadingCase{"OrderOfTheDocument", "<r z='1' y='2'><b/><a/></r>", "r?{y?=2 z?=1 b?{} a?{}}"}, // attributes have none there
    ReadingCase{"AnAttributeCalledValue", "<r value='1'/>", "r?{value?=1}"},
    ReadingCase{"NothingElseCounts", "<!--c--><r>text<!--c--><?p?><a/>more<![CDATA[<b/>]]></r>", "r?{a?{}}"},
    ReadingCase{"Prefixes", "<p:r xmlns:p='u' p:a='1'/>", "p:r?{p:a?=1 xmlns:p?=u}"},
    ReadingCase{"NonAscii", "<\xC3\xA9 \xC3\xBC='&#x20AC;%s%n'/>", "\xC3\xA9?{\xC3\xBC?=\xE2\x82\xAC%s%n}"},
    ReadingCase{"Entities", "<!DOCTYPE r [<!ENTITY e '&lt;x'><!ENTITY f '<a b=\"1\"/>'>]><r v='&e;'>&f;</r>", "r?{v?=<x a?{b?=1}}"},
    ReadingCase{"Defaults", "<!DOCTYPE r [<!ATTLIST a b CDATA '1'>]><r><a/><a b='2'/></r>", "r?{a?{b?=1} a?{b?=2}}"}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

TEST_F(ValuesFileTest, OneElementCanBeReadAlone) {
    file = installation.write("values.xml", "<r><a b='1'><c/></a></r>");
    XercesLibraryInit const library;
    XercesDocument const document(file.c_str(), nullptr);
    auto* const element = document.getDocument()->getDocumentElement()->getFirstElementChild();
    EXPECT_EQ(toText(*std::unique_ptr<ParameterValueGroup>(getGroupFromXmlElement(element))), "a?{b?=1 c?{}}");
    EXPECT_EQ(whatOf<ContractViolationException>([] { getGroupFromXmlElement(nullptr); }),
              contractText("element != 0"));
}

TEST_F(ValuesFileTest, WarningsAreRecordedAndFaultsThrown) {
    std::string const declarations = "<!DOCTYPE r [<!NOTATION n PUBLIC 'p'>\n<!NOTATION n PUBLIC 'p'>\n"
                                     "<!NOTATION n PUBLIC 'p'>]>";
    EXPECT_EQ(read(declarations + "<r/>"), "r?{}");
    auto const warning = "XML WARNING: notation 'n' has already been declared. File: \"" + file + "\". Line: ";
    auto const record = "loadFromXmlFile:\n" + warning + "2. Column: 24.\n" + warning + "3. Column: 24.\n";
    EXPECT_EQ(installation.mainLog("Configuration").back(), record);

    auto const records = installation.mainLog("Configuration").size();
    EXPECT_EQ(whatOf<ConfigurationParameterException>([&] { read(declarations + "\n<r>"); }),
              "XML ERROR: input ended before all started tags were ended; last tag started is 'r'. File: \"" + file +
                  "\". Line: 4. Column: 4.");
    EXPECT_EQ(installation.mainLog("Configuration").size(), records + 1);
    EXPECT_EQ(installation.mainLog("Configuration").back(), record);

    EXPECT_EQ(whatOf<ConfigurationParameterException>([&] { loadFromXmlFile(installation.at("none").c_str()); }),
              "XML ERROR: the file does not exist. File: \"" + installation.at("none") + "\".");
}

class ProviderTest : public ValuesFileTest {
protected:
    void setFile(std::string const& content) {
        file = installation.write("values.xml", content);
        provider.setArguments(file.c_str(), 0);
    }

    std::string cached() { return toText(provider.getDataCache()); }

    /// The values for a specification, or what is thrown.
    std::string ask(Specification const* specification) {
        ParameterValueGroup result(nullptr);
        auto const thrown = whatOf([&] { EXPECT_TRUE(provider.getValues(specification, result, 0)); });
        return thrown == "<nothing>" ? shown(result) : thrown;
    }

    XmlFileValueProvider provider{7};
};

TEST_F(ProviderTest, RepeatedElementsBecomeTheValuesOfAParameter) {
    auto const* const tool = createTool("tool{level:int? target* limits*{size:int item*}}");
    EXPECT_EQ(provider.getName(), Manager::XML_FILE_PROVIDER_NAME);
    EXPECT_EQ(provider.getPriority(), 7);
    provider.enableProvider(TEST_DATA_DIR "/values/repeated.xml", 0);
    EXPECT_TRUE(provider.getEnabled());
    EXPECT_EQ(ask(tool), "?{tool{level=3 target=first,second,third limits{size=5 item=x,y} limits{size=6}}}");
}

TEST_F(ProviderTest, TheElementsAreRewrittenOnceForTheFirstSpecification) {
    auto const* const tool = createTool("tool{u*}");
    auto const* const other = createTool("other{x}");
    constexpr char const* FILE = "<tool><u value='1'/><u value='2'/></tool>";
    constexpr char const* RAW = "tool?{u?{value?=1} u?{value?=2}}";
    constexpr char const* REWRITTEN = "tool?{u?=1,2}";

    setFile(FILE);
    EXPECT_EQ(cached(), RAW);
    EXPECT_EQ(ask(tool), "?{tool{u=1,2}}");
    EXPECT_EQ(cached(), REWRITTEN);
    // What comes later into the cache stays as it is.
    provider.setDataCache(*valueGroup("tool", valueGroup("u", value("value", "3"))));
    ask(tool);
    EXPECT_EQ(cached(), "tool?{u?{value?=3}}");

    setFile(FILE);
    ask(other);
    ask(tool);
    EXPECT_EQ(cached(), RAW); // the other specification has no "u"

    setFile(FILE); // another file, another turn
    EXPECT_EQ(ask(tool), "?{tool{u=1,2}}");
    provider.reset();
    EXPECT_FALSE(provider.getEnabled());
    EXPECT_EQ(cached(), "?{}");
    provider.setDataCache(*valueGroup("tool", valueGroup("u", value("value", "3"))));
    EXPECT_EQ(ask(tool), "?{tool{u=3}}");
}

TEST_F(ProviderTest, AnElementWithoutValueIsReportedEachTime) {
    auto const* const tool = createTool("tool{u*}");
    setFile("<tool u='0'><u value='1'/><u Value2='2'/></tool>");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(ask(tool), "\"u\" is not a valid parameter");
        EXPECT_EQ(cached(), "tool?{u?=0 u?{value?=1} u?{Value2?=2}}");
    }
    EXPECT_EQ(ask(nullptr), contractText("spec != 0"));
}

TEST_F(ProviderTest, ARefusedFileLeavesAllAsItWas) {
    auto const* const tool = createTool("tool{u*}");
    setFile("<tool><u value='1'/></tool>");
    ask(tool);
    EXPECT_THAT(whatOf<ConfigurationParameterException>([this] { setFile("<tool"); }),
                testing::StartsWith("XML ERROR: "));
    EXPECT_EQ(cached(), "tool?{u?=1}");
    // Not rewritten again: only a file that was read brings new elements.
    provider.setDataCache(*valueGroup("tool", valueGroup("u", value("value", "3"))));
    ask(tool);
    EXPECT_EQ(cached(), "tool?{u?{value?=3}}");
    EXPECT_EQ(whatOf<ConfigurationException>([this] { provider.setArguments(*treeOf("{tool{}}"), 0); }),
              "setArguments(const ParameterValueGroup&) is not supported");
}

/// Tells which file it was asked to read.
class RecordingProvider final : public XmlFileValueProvider {
public:
    using XmlFileValueProvider::setArguments;
    using XmlFileValueProvider::XmlFileValueProvider;
    void setArguments(char const* argument, int flags) override { asked += argument + std::to_string(flags); }

    std::string asked;
};

TEST_F(ProviderTest, OfAnArgumentVectorTheFirstIsTheFile) {
    RecordingProvider recording(0);
    char const* const arguments[] = {"first", "second"};
    recording.setArguments(2, arguments, 3);
    EXPECT_EQ(recording.asked, "first3");
    for (int const count : {0, -1}) {
        EXPECT_EQ(whatOf<ConfigurationException>([&] { recording.setArguments(count, nullptr, 0); }),
                  "Must provide at least one argument");
    }
}

} // namespace

} // namespace kivo::test
