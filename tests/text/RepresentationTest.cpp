#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "text/ParameterItemRepresentationVisitor.h"
#include "text/ParameterValueItemRepresentationVisitor.h"

#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>

#include <climits>
#include <cstdint>
#include <cstdio>
#include <locale>
#include <regex>

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

/// A text that shows a pointer (hexadecimal digits behind "0x") by a name.
std::string withName(std::string const& text, void const* pointer, char const* name) {
    char address[32];
    std::snprintf(address, sizeof address, "%#jx", static_cast<uintmax_t>(reinterpret_cast<uintptr_t>(pointer)));
    return std::regex_replace(text, std::regex(address), name);
}

/// Expected texts show the end of a line that ends with a space as a bar.
std::string withoutBars(std::string const& text) { return std::regex_replace(text, std::regex("[|]"), ""); }

TEST(Representation, PrintsKeysWithValues) {
    RepresentationPrinter printer;
    printer.printKeyLiteralValue(nullptr, nullptr);
    printer.printKeyPointerValue("pointer", &printer);
    printer.printKeyIntValue("int", INT_MIN);
    printer.printKeyUIntValue("uint", UINT_MAX);
    printer.printKeyDoubleValue("tiny", -1e-9);
    EXPECT_EQ(withName(printer.getRepresentation(), &printer, "printer"),
              "<<null>>: null\npointer: printer\nint: -2147483648\nuint: 4294967295\ntiny: -0.000000\n");
}

TEST(Representation, LeavesNoMoreScopesThanItEntered) {
    RepresentationPrinter printer;
    printer.leaveScope("}");
    printer.enterScope("{");
    printer.printKey("key");
    EXPECT_EQ(printer.getRepresentation(), "}\n{\n  key: ");
}

TEST(Representation, ShowsAllPropertiesOfASchema) {
    Items items;
    ParameterEnumDefinition levels("Levels");
    auto const* level = items.parameter({.id = "level", .type = Parameter::ENUM_PARAMETER, .valueName = "100%s"});
    ParameterSpecialization special(level, "The \"level\"", true, false, "80", true);
    special.setEnumDefinition(&levels);
    ParameterGroupSpecialization choice("choice", "Choice", true, ParameterGroup::ITEMS_MUTUALLY_EXCLUSIVE, false,
                                        ParameterGroup::CONSTRAINT);
    choice.addItem(&special);
    auto const* root = items.group({.id = "app", .unbounded = true}, {&choice});
    EXPECT_EQ(ParameterItemRepresentationVisitor::getRepresentation(*root), withoutBars(R"(Container app: |
{
  description: "Description"
  isOptional: false
  isUnbounded: true
  items: |
  {
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
          validator: null
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

TEST(Representation, ShowsValuesByTypeWithTheirSchemaItemsAlikeInEveryLocale) {
    GroupingLocale const locale;
    Items items;
    auto* flag = items.parameter({.id = "bool", .optional = true, .type = Parameter::BOOLEAN_PARAMETER});
    auto* integer = items.parameter({.id = "int", .type = Parameter::INT_PARAMETER});
    auto* number = items.parameter({.id = "uint", .type = Parameter::UINT_PARAMETER});
    auto* real = items.parameter({.id = "double", .type = Parameter::DOUBLE_PARAMETER});
    auto* text = items.parameter({.id = "string", .optional = true, .defaultValue = "the default"});
    auto* schema = items.group({.id = "App"});
    auto const tree = valueGroup(nullptr,
                                 valueGroup(schema, value(flag, nullptr), value(integer, "2000000", "-5x", "none"),
                                            value(number, "4294967295"), value(real, "1234.5"), value(text, nullptr),
                                            valueGroup("inner")),
                                 value("given", nullptr), value("", "100%s", "b"));
    auto shown = ParameterValueItemRepresentationVisitor::getRepresentation(*tree);
    for (auto const* item : ItemList{flag, integer, number, real, text, schema}) {
        shown = withName(shown, item, item->getId());
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
    double: 1234.500000 (0xdouble)
    string: "the default" (0xstring)
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

using RepresentationBuffers = ManagerTest;

TEST_F(RepresentationBuffers, AreOneForEachKindOfItem) {
    auto const* item = createParameter({.id = "where", .validator = "STORAGELOCATION"});
    auto const tree = valueGroup("a");
    char const* shown = manager().getRepresentation(*item);
    EXPECT_STREQ(manager().getRepresentation(*tree), "a:  (0x0)\n{\n}\n");
    EXPECT_NE(std::string(shown).find("Parameter where: \n"), std::string::npos);
    EXPECT_NE(std::string(shown).find("\n  validator: \"storageLocation\"\n"), std::string::npos);
}

} // namespace

} // namespace kivo::test
