#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "text/ParameterItemRepresentationVisitor.h"
#include "text/ParameterValueItemRepresentationVisitor.h"

#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>

#include <locale>
#include <regex>
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

/// The C++ locale of a program that groups thousands and writes a decimal comma, for as long as the object lives.
struct GroupingLocale {
    struct Punctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    ~GroupingLocale() { std::locale::global(mBefore); }

    std::locale const mBefore = std::locale::global(std::locale(std::locale::classic(), new Punctuation));
};

/// Expected texts show the end of a line that ends with a space as a bar.
std::string withoutBars(std::string const& text) { return std::regex_replace(text, std::regex("[|]"), ""); }

class Representation : public ManagerTest {};

TEST_F(Representation, LeavesNoMoreScopesThanItEntered) {
    RepresentationPrinter printer;
    printer.leaveScope("}");
    printer.enterScope("{");
    printer.printKey("key");
    EXPECT_EQ(printer.getRepresentation(), "}\n{\n  key: ");
}

TEST_F(Representation, ShowsAllPropertiesOfASchema) {
    Items items;
    ParameterEnumDefinition levels("Levels");
    auto const* level = items.parameter("level:enum<100%s>!STORAGELOCATION");
    ParameterSpecialization special(level, "The \"level\"", true, false, "80", true);
    special.setEnumDefinition(&levels);
    ParameterGroupSpecialization choice("choice", "Choice", true, ParameterGroup::ITEMS_MUTUALLY_EXCLUSIVE, false,
                                        ParameterGroup::CONSTRAINT);
    choice.addItem(&special);
    auto* root = items.group("app*{plain}");
    root->addItem(&choice);
    EXPECT_EQ(ParameterItemRepresentationVisitor::getRepresentation(*root), withoutBars(R"(Container app: |
{
  description: "Description"
  isOptional: false
  isUnbounded: true
  items: |
  {
    Parameter plain: |
    {
      description: "Description"
      isOptional: false
      isUnbounded: false
      valueType: string
      default: null
      valueName: null
      validator: null
    }
    Constraint choice(Specialized): |
    {
      description: "Choice"
      isOptional: true
      itemsAreExclusive: true
      items: |
      {
        Parameter level(Specialized): |
        {
          description: "The "level""
          isOptional: true
          isUnbounded: false
          valueType: enum
          default: "80"
          valueName: "100%s"
          validator: "storageLocation"
          enumType: "Levels"
        }
      }
    }
  }
}
)"));
    std::string words;
    for (int type = 0; type <= 7; ++type) {
        words += ParameterItemRepresentationVisitor::getValueTypeString(static_cast<Parameter::ValueType>(type)) + ", ";
    }
    EXPECT_EQ(words, "bool, string, int, unsigned int, double, OID, enum, unknown, ");
}

TEST_F(Representation, ShowsValuesByTypeWithTheirSchemaItemsAlikeInEveryLocale) {
    GroupingLocale const locale;
    Items items;
    auto const* schema = items.group("App{bool:bool? int:int uint:uint tiny:double double:double string?=default}");
    auto const tree = treeOf("{App{bool=<none> int=2000000,-5x,none uint=4294967295 tiny=-1e-9 double=1234.5 "
                             "string=<none> inner{}} given=<none> =100%s,b}",
                             *schema);
    auto shown = ParameterValueItemRepresentationVisitor::getRepresentation(*tree);
    for (unsigned long i = 0; i <= schema->getNumberOfItems(); ++i) {
        ParameterItem const* item = i > 0 ? schema->getItem(i - 1) : schema;
        std::ostringstream address;
        address.imbue(std::locale::classic());
        address << static_cast<void const*>(item);
        shown = std::regex_replace(shown, std::regex(address.str()), item->getId());
    }
    EXPECT_EQ(shown, withoutBars(R"(<<null>>:  (0x0)
{
  App:  (0xApp)
  {
    bool: true (0xbool)
    int: |
    [
      value: 2000000 (0xint)
      value: -5 (0xint)
      value: 0 (0xint)
    ]
    uint: 4294967295 (0xuint)
    tiny: -0.000000 (0xtiny)
    double: 1234.500000 (0xdouble)
    string: "default" (0xstring)
    inner:  (0x0)
    {
    }
  }
  given: null (0x0)
  <<null>>: |
  [
    value: "100%s" (0x0)
    value: "b" (0x0)
  ]
}
)"));
}

TEST_F(Representation, HasABufferForSchemasAndOneForValues) {
    auto const tree = treeOf("a{}");
    char const* shown = manager().getRepresentation(*createItem("where"));
    EXPECT_STREQ(manager().getRepresentation(*tree), "a:  (0x0)\n{\n}\n");
    EXPECT_EQ(std::string(shown).substr(0, 18), "Parameter where: \n");
}

} // namespace

} // namespace kivo::test
