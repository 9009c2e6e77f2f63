// Where the texts, groups, declarations and faults of a request say that they come from.

#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Flags.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterEnumValue.h>
#include <configuration/ParameterValueVisitor.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueProvider.h>

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <regex>
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

/// Writes a line for each text and each group with an origin.
struct OriginPrinter final : ParameterValueVisitor {
    OriginPrinter() : ParameterValueVisitor(false) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        indent += idOf(group).empty() ? "" : idOf(group) + ".";
        print("", group.getOrigin());
        return true;
    }
    void visitGroupEnd(ParameterValueGroup& group) override {
        indent.resize(indent.size() - (idOf(group).empty() ? 0 : idOf(group).size() + 1));
    }
    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            char const* text = value.getValue(i, true);
            print(idOf(value) + "=" + (text ? text : "<none>"), value.getOrigin(i));
        }
        return true;
    }
    void print(std::string const& item, Origin const& origin) {
        lines += origin.isKnown() || !item.empty() ? indent + item + " @ " + origin.toString() + '\n' : "";
    }

    std::string indent;
    std::string lines;
};

/// Gives each group and each text a line of a file.
struct OriginSetter final : ParameterValueVisitor {
    OriginSetter() : ParameterValueVisitor(false) {}

    Origin next() { return Origin(Origin::FILE_SOURCE, "set", ++line); }
    bool visitGroupStart(ParameterValueGroup& group) override {
        group.setOrigin(next());
        return true;
    }
    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            value.setOrigin(i, next());
        }
        return true;
    }

    unsigned long line = 0;
};

/// A caller's own provider: it adds values to those of others, and then those of its cache.
struct OwnProvider final : ValueProvider {
    OwnProvider(int priority, std::unique_ptr<ParameterValueGroup> added)
        : ValueProvider(priority), values(std::move(added)) {}

    char const* getName() const override { return "own"; }
    using ValueProvider::setArguments;
    void setArguments(ParameterValueGroup const& cache, int) override { setDataCache(cache); }
    bool getValues(Specification const* specification, ParameterValueGroup& result, int flags) override {
        for (unsigned long i = 0; i < values->getNumberOfItems(); ++i) {
            result.addItem(values->getItem(i)->clone(ParameterValueItem::DEEP_COPY));
        }
        return ValueProvider::getValues(specification, result, flags);
    }

    std::unique_ptr<ParameterValueGroup> values;
};

/// Each XML parser has words of its own.
std::string show(std::string const& message, Origin const& origin) {
    return std::regex_replace(message, std::regex("^XML ERROR:.*"), "XML ERROR") + " @ " + origin.toString() + '\n';
}

/// What a call throws, each fault with its origin.
std::string faultsOf(std::function<void()> const& call) {
    try {
        call();
    } catch (ConfigurationParameterException const& thrown) {
        std::string text;
        auto const& errors = thrown.getErrors();
        for (unsigned long i = 0; i < errors.getNumberOfErrors(); ++i) {
            text += show(errors.getError(i), errors.getOrigin(i));
        }
        return text + (thrown.what() == composeMessage(errors) ? "" : show(thrown.what(), thrown.getOrigin()));
    } catch (ConfigurationException const& thrown) {
        return show(thrown.what(), thrown.getOrigin());
    } catch (ContractViolationException const& thrown) {
        return show(thrown.what(), thrown.getOrigin());
    }
    return "";
}

std::string declarationsOf(ParameterGroup const& group) {
    auto lines = show(group.getId(), group.getDeclarationOrigin());
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const* inner = dynamic_cast<ParameterGroup const*>(group.getItem(i));
        lines +=
            inner ? declarationsOf(*inner) : show(group.getItem(i)->getId(), group.getItem(i)->getDeclarationOrigin());
    }
    return lines;
}

} // namespace

class Origins : public ManagerTest {
protected:
    std::string run(FileCase const& row) {
        for (char const* file : {"etc/kivobase.crg", "config/machine.config", "config/a.xml", "config/b.xml"}) {
            auto const name = std::string(file).substr(std::string(file).rfind('/') + 1);
            auto const content = row[name];
            std::filesystem::remove(installation.at(file));
            if (!content.empty() || name == "kivobase.crg") {
                installation.write(file, content.empty() ? "<ConfigurationRegistry/>" : unescaped(content));
            }
        }
        Manager::shutdown();
        auto shown = faultsOf([&] { manager(); });
        if (shown.empty()) {
            shown = faultsOf([&] { request(row); });
            shown.insert(0, std::exchange(mShown, {}));
        }
        return withoutFolders(shown);
    }

    std::string withoutFolders(std::string const& text) const {
        return std::regex_replace(text, std::regex(installation.at("") + "(etc|config)/"), "");
    }

private:
    void request(FileCase const& row) {
        auto const* tool = row["schema"].empty() ? manager().getSpecification("tool") : createTool(row["schema"]);
        if (row["show"] == "declarations") {
            mShown = show("specification", tool->getDeclarationOrigin()) + declarationsOf(*tool->getParameterGroup());
            return;
        }
        if (!row["validate"].empty()) {
            auto const values = treeOf(row["validate"]);
            OriginSetter setter;
            values->accept(setter);
            mShown = faultsOf([&] { manager().validateValues(tool, *values, 0); });
            OriginPrinter printer;
            values->accept(printer);
            mShown += printer.lines;
            return;
        }
        std::istringstream stream(row["arguments"]);
        std::vector<std::string> words{"tool"};
        for (std::string word; stream >> word;) {
            words.push_back(word);
        }
        std::vector<char const*> arguments;
        std::ranges::transform(words, std::back_inserter(arguments), [](auto& word) { return word.c_str(); });
        manager().setCommandLineStyle(row["style"] == "gnu" ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE);
        manager().enableConfiguration(!row["machine.config"].empty(),
                                      row["file"].empty() ? nullptr : row["file"].c_str(),
                                      static_cast<unsigned int>(arguments.size()), arguments.data());
        if (!row["application"].empty()) {
            manager().setApplicationValues(*treeOf(row["application"]), 0);
        }
        if (!row["own"].empty()) {
            auto* const provider =
                std::make_unique<OwnProvider>(99, treeOf(row["own adds"], *tool->getParameterGroup())).release();
            manager().registerProvider(provider);
            provider->enableProvider(*treeOf(row["own"]), 0);
        }
        auto const flags = (row["flags"].find("names") == std::string::npos ? 0 : RESOLVE_FLAG_NAMES) |
                           (row["flags"].find("strict") == std::string::npos ? 0 : STRICT_RECOGNITION);
        OriginPrinter printer;
        auto const settings = manager().getValueGroup("tool", true, flags);
        ParameterValueGroup(*settings.getCurrentValueGroup()).accept(printer); // of a copy
        mShown = printer.lines;
    }

    std::string mShown;
};

TEST_F(Origins, AreThoseOfEveryTextFaultAndDeclaration) {
    checkCases("manager/origins.txt", [&](FileCase const& row) { return run(row); });
}

TEST_F(Origins, AreInTheRecordsOfMarksThatAreMet) {
    checkCases("manager/marks.txt", [&](FileCase const& row) {
        std::filesystem::remove(installation.at("main.log"));
        auto shown = run(row);
        for (auto const& record : installation.mainLog("Kernel")) {
            shown += withoutFolders(record) + '\n';
        }
        return shown;
    });
}

TEST_F(Origins, AreThoseOfALabelThatCannotBeRead) {
    ParameterEnumDefinition labels("labels");
    auto& mode = *static_cast<Parameter*>(createTool("tool{mode:enum}")->getParameterGroup()->getItem(0UL));
    mode.setEnumDefinition(&labels);
    ParameterValue given(&mode, "a");
    given.addValue("b");
    given.setOrigin(1, Origin(Origin::FILE_SOURCE, "a.xml", 2, 3));
    ParameterEnumValue own("mode", "c");
    own.setEnumDefinition(labels);
    own.setOrigin(0, Origin::ofArgument(1));
    auto const expected = show("symbol \"b\" was not found", Origin(Origin::FILE_SOURCE, "a.xml", 2, 3));
    EXPECT_EQ(faultsOf([&] { given.getIntValue(1); }), expected);
    EXPECT_EQ(faultsOf([&] { given.getULongValue(1); }), expected);
    EXPECT_EQ(faultsOf([&] { own.getDoubleValue(0); }), "symbol \"c\" was not found @ command line, argument 1\n");
}

} // namespace kivo::test
