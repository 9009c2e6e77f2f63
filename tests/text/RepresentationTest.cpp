#include "support/CaseFile.h"
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
    checkCases("text/schema-representation.txt",
               [&](FileCase const&) { return ParameterItemRepresentationVisitor::getRepresentation(*root); });
    std::string words;
    for (int type = 0; type <= 11; ++type) {
        words += ParameterItemRepresentationVisitor::getValueTypeString(static_cast<Parameter::ValueType>(type)) + ", ";
    }
    EXPECT_EQ(words,
              "bool, string, int, unsigned int, double, OID, enum, long, unsigned long, size, duration, unknown, ");
}

TEST_F(Representation, ShowsValuesByTypeWithTheirSchemaItemsAlikeInEveryLocale) {
    GroupingLocale const locale;
    checkCases("text/value-representation.txt", [](FileCase const& row) {
        Items items;
        auto const* schema = items.group(row["schema"]);
        auto shown = ParameterValueItemRepresentationVisitor::getRepresentation(*treeOf(row["tree"], *schema));
        for (unsigned long i = 0; i <= schema->getNumberOfItems(); ++i) {
            ParameterItem const* item = i > 0 ? schema->getItem(i - 1) : schema;
            std::ostringstream address;
            address.imbue(std::locale::classic());
            address << static_cast<void const*>(item);
            shown = std::regex_replace(shown, std::regex(address.str()), item->getId());
        }
        return shown;
    });
}

TEST_F(Representation, HasABufferForSchemasAndOneForValues) {
    auto const tree = treeOf("a{}");
    char const* shown = manager().getRepresentation(*createItem("where"));
    EXPECT_STREQ(manager().getRepresentation(*tree), "a:  (0x0)\n{\n}\n");
    EXPECT_EQ(std::string(shown).substr(0, 18), "Parameter where: \n");
}

} // namespace

} // namespace kivo::test
