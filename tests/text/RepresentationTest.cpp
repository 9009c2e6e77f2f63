#include "support/Schema.h"
#include "support/ValueTree.h"

#include "text/ParameterItemRepresentationVisitor.h"
#include "text/ParameterValueItemRepresentationVisitor.h"

#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdio>
#include <locale>

namespace {

using namespace kivo::configuration;
using namespace kivo::test;

/// The C++ locale of a program that groups thousands and writes a decimal comma, for as long as the object lives.
struct GroupingLocale {
    struct Punctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };

    ~GroupingLocale() { std::locale::global(mBefore); }

    std::locale const mBefore = std::locale::global(std::locale(std::locale::classic(), new Punctuation));
};

/// A pointer as the texts show it: hexadecimal digits behind "0x", or "0" for null.
std::string addressOf(void const* pointer) {
    char text[32];
    std::snprintf(text, sizeof text, "%#jx", static_cast<uintmax_t>(reinterpret_cast<uintptr_t>(pointer)));
    return text;
}

/// Expected texts show the end of a line that ends with a space as a bar.
std::string withoutBars(std::string text) {
    std::erase(text, '|');
    return text;
}

TEST(RepresentationPrinter, WritesKeysValuesAndScopesAlikeInEveryLocale) {
    GroupingLocale const locale;
    int const object = 0;
    RepresentationPrinter printer;
    printer.printKeyStringValue("string", "a \"b\" %s");
    printer.printKeyStringValue(nullptr, nullptr);
    printer.enterScope("{");
    printer.printKeyLiteralValue("literal", "a b");
    printer.printKeyLiteralValue("none", nullptr);
    printer.enterScope("[");
    printer.printKeyBoolValue("bool", false);
    printer.printKeyPointerValue("pointer", &object);
    printer.printKeyIntValue("int", INT_MIN);
    printer.printKeyPointerValue("none", nullptr);
    printer.printKeyUIntValue("uint", UINT_MAX);
    printer.leaveScope("]");
    printer.printKeyDoubleValue("double", 1234567.25);
    printer.printKeyDoubleValue("tiny", -1e-9);
    printer.leaveScope("}");
    printer.printKeyBoolValue("end", true);
    // clang-format off
    EXPECT_EQ(printer.getRepresentation(), R"(string: "a "b" %s"
<<null>>: null
{
  literal: a b
  none: null
  [
    bool: false
    pointer: )" + addressOf(&object) + R"(
    int: -2147483648
    none: 0
    uint: 4294967295
  ]
  double: 1234567.250000
  tiny: -0.000000
}
end: true
)");
    // clang-format on
}

TEST(ParameterItemRepresentation, ShowsAllPropertiesOfASchema) {
    Items items;
    auto const* port =
        items.parameter({.id = "port", .name = "Port", .type = Parameter::INT_PARAMETER, .valueName = "number"});
    ParameterSpecialization special(port, "The \"port\"", true, false, "80", true);
    ParameterEnumDefinition levels("Levels");
    auto* level = items.parameter({.id = "level", .unbounded = true, .type = Parameter::ENUM_PARAMETER});
    level->setEnumDefinition(&levels);
    ParameterGroupSpecialization choice("choice", "Choice", true, ParameterGroup::ITEMS_MUTUALLY_EXCLUSIVE, false,
                                        ParameterGroup::CONSTRAINT);
    choice.addItem(&special);
    auto const* root = items.group({.id = "app", .description = "Application", .unbounded = true},
                                   {&choice, items.group({.id = "group", .type = ParameterGroup::CONSTRAINT}), level});

    EXPECT_EQ(ParameterItemRepresentationVisitor::getRepresentation(*root), withoutBars(R"(Container app: |
{
  description: "Application"
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
        Parameter port(Specialized): |
        {
          description: "The "port""
          isOptional: true
          isUnbounded: false
          valueType: int
          default: "80"
          valueName: "number"
          validator: null
        }
      }
    }
    Constraint group: |
    {
      description: "Description"
      isOptional: false
      itemsAreExclusive: false
      items: |
      {
      }
    }
    Parameter level: |
    {
      description: "Description"
      isOptional: false
      isUnbounded: true
      valueType: enum
      default: null
      valueName: null
      validator: null
      enumType: "Levels"
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

TEST(ParameterValueItemRepresentation, ShowsValuesByTypeWithTheirSchemaItems) {
    Items items;
    auto const* flag = items.parameter({.id = "bool", .optional = true, .type = Parameter::BOOLEAN_PARAMETER});
    auto const* integer = items.parameter({.id = "int", .type = Parameter::INT_PARAMETER});
    auto const* number = items.parameter({.id = "uint", .type = Parameter::UINT_PARAMETER});
    auto const* real = items.parameter({.id = "double", .type = Parameter::DOUBLE_PARAMETER});
    auto const* text = items.parameter({.id = "string", .optional = true, .defaultValue = "the default"});
    auto const* oid = items.parameter({.id = "oid", .type = Parameter::OID_PARAMETER});
    auto const* level = items.parameter({.id = "level", .type = Parameter::ENUM_PARAMETER});
    auto const* schema = items.group({.id = "App"});
    auto const at = [](ParameterItem const* item) { return " (0x" + addressOf(item) + ")\n"; };

    auto const tree = valueGroup(nullptr,
                                 valueGroup(schema, value(flag, nullptr), value(integer, "2000000", "-5x", "none"),
                                            value(number, "4294967295"), value(real, "1234.5"), value(text, nullptr),
                                            value(oid, "1-2-3-4"), value(level, "nowhere"), valueGroup("inner")),
                                 value("given", nullptr), value("", "100%s", "b"));
    // clang-format off
    EXPECT_EQ(ParameterValueItemRepresentationVisitor::getRepresentation(*tree), withoutBars(R"(<<null>>:  (0x0)
{
  App: )" + at(schema) + R"(  {
    bool: true)" + at(flag) + R"(    int: |
    [
      value: 2000000)" + at(integer) + R"(      value: -5)" + at(integer) + R"(      value: 0)" + at(integer) + R"(    ]
    uint: 4294967295)" + at(number) + R"(    double: 1234.500000)" + at(real) + R"(    string: "the default")" + at(text) +
R"(    oid: "1-2-3-4")" + at(oid) + R"(    level: "nowhere")" + at(level) + R"(    inner:  (0x0)
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
    // clang-format on
}

} // namespace
