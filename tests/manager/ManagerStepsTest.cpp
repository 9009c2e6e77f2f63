// Cases that are steps: what an application asks of the manager, one after the other, and what it gets.

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/Flags.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ValueGroupIterator.h>

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <regex>
#include <sstream>

namespace kivo::test {

using namespace configuration;
namespace fs = std::filesystem;

namespace {

/// A provider not to be taken for that of the application. @return the Manager's
ValueProvider* addSource(int priority) {
    struct Source final : ApplicationValuesProvider {
        using ApplicationValuesProvider::ApplicationValuesProvider;
        char const* getName() const override { return "SOURCE"; }
    };
    auto* const provider = std::make_unique<Source>(priority).release();
    Manager::getInstance()->registerProvider(provider);
    return provider;
}

class ManagerSteps : public ManagerTest {
protected:
    ManagerSteps() {
        installation.write("config/a.xml", "<tool a=\"config\"/>");
        installation.write("config/b.xml", "<tool b=\"config\"/>");
        installation.write("config/machine.config", "<tool m=\"1\"/>");
        setenv("TOOL_A", "variable", 1);
        installation.write("here/a.xml", "<tool a=\"here\"/>");
        installation.write("here/bad.xml", "<tool");
        fs::current_path(installation.at("here"));
    }
    ~ManagerSteps() override {
        unsetenv("TOOL_A");
        fs::current_path(mBefore);
    }

    void check(std::string const& file) {
        checkCases("manager/" + file, [&](FileCase const& row) {
            manager().reset();
            fs::remove(installation.at("main.log"));
            mShown.clear();
            std::istringstream steps(row["steps"]);
            for (std::string step; std::getline(steps, step);) {
                auto const verb = step.substr(0, step.find(' '));
                try {
                    mSteps.at(verb)(step.substr(std::min(verb.size() + 1, step.size())));
                } catch (ConfigurationParameterException const& thrown) {
                    // Each XML parser has words of its own.
                    show("parameter: " + std::regex_replace(thrown.what(), std::regex("XML ERROR:[^]*"), "XML ERROR"));
                } catch (ConfigurationException const& thrown) {
                    show(thrown.what());
                }
            }
            return std::regex_replace(mShown, std::regex(installation.at("")), "/");
        });
    }

private:
    void show(std::string const& text) { mShown += text + '\n'; }

    /// Shows what becomes of a tree, and what is thrown.
    void request(std::string const& text, auto const& call) {
        auto const tree = treeOf(text);
        auto const thrown = whatOf<ConfigurationException>([&] { call(*tree); });
        show(toText(*tree));
        mShown += thrown == "<nothing>" ? "" : thrown + '\n';
    }

    void validate(std::string const& tree, int flags) {
        request(tree, [&](auto& values) { manager().validateValues(tool(), values, flags); });
    }

    void getSettings(std::string const& name, bool required, int flags) {
        auto const settings = manager().getValueGroup(name.c_str(), required, flags);
        show(settings.isNull() ? "nothing" : toText(*settings.getCurrentValueGroup()));
    }

    void iterate(std::string const& name) {
        for (auto groups = manager().getValueGroupIterator(name.c_str(), 0); groups.next();) {
            show(std::string("a=") + groups.getValue("a").asString());
        }
    }

    /// @param text the application's file or "<none>", and the arguments, none of which has blanks
    static void enable(bool allowMachineConfig, std::string const& text) {
        std::istringstream stream(unescaped(text));
        std::string file;
        std::getline(stream, file, ' ');
        std::vector<std::string> words;
        for (std::string word; std::getline(stream, word, ' ');) {
            words.push_back(word == "<empty>" ? "" : word);
        }
        std::vector<char const*> arguments;
        std::ranges::transform(words, std::back_inserter(arguments), [](auto& word) { return word.c_str(); });
        // Without arguments, their number does not count.
        auto const count = arguments.empty() ? 3u : static_cast<unsigned int>(arguments.size());
        manager().enableConfiguration(allowMachineConfig, file == "<none>" ? nullptr : file.c_str(), count,
                                      arguments.empty() ? nullptr : arguments.data());
    }

    /// Priority, name and values of each, "-" before those that are not enabled.
    void showProviders() {
        for (unsigned long i = 0; i < manager().getNumberOfProviders(); ++i) {
            auto& provider = *manager().getProvider(i);
            if (ParameterValueGroup result(nullptr); provider.getEnabled()) {
                provider.getValues(tool(), result, 0); // makes a command line parse itself
            }
            show((provider.getEnabled() ? "" : "-") + std::to_string(provider.getPriority()) + " " +
                 provider.getName() + " " + toText(provider.getDataCache()));
        }
    }

    /// Shows what is new in the main log.
    void showLog(std::string const& category) {
        for (auto const& record : installation.mainLog(category)) {
            show(record);
        }
        fs::remove(installation.at("main.log"));
    }

    /// @param text the name of a file, and its content
    void write(std::string const& text) {
        auto const blank = text.find(' ');
        installation.write(text.substr(0, blank), text.substr(blank + 1));
    }

    static void addEnumeration(std::string const& name) {
        manager().registerEnumDefinition(std::make_unique<ParameterEnumDefinition>(name.c_str()).release());
    }

    static Specification* tool() { return manager().getSpecification("tool"); }

    using Step = std::function<void(std::string const&)>;
    std::map<std::string, Step> const mSteps{
        {"schema", [](auto& text) { createTool(text); }},
        {"write", [&](auto& text) { write(text); }},
        {"remove", [&](auto& path) { fs::remove_all(installation.at(path)); }},
        {"shutdown", [](auto&) { Manager::shutdown(); }},
        {"load-registry", [](auto&) { manager().loadDefaultConfigurationRegistry(); }},
        {"validators", [&](auto&) { show(std::to_string(manager().getNumberofValidators())); }},
        {"add-enumeration", [](auto& name) { addEnumeration(name); }},
        {"enumeration", [&](auto& name) { show(manager().getEnumDefinition(name.c_str()) ? "found" : "nothing"); }},
        {"reset", [](auto&) { manager().reset(); }},
        {"provide", [](auto& values) { addSource(1)->enableProvider(*treeOf(values), 0); }},
        {"provide-first", [](auto& values) { addSource(-1)->enableProvider(*treeOf(values), 0); }},
        {"provide-disabled", [](auto& values) { addSource(0)->setArguments(*treeOf(values), 0); }},
        {"application", [](auto& values) { manager().setApplicationValues(*treeOf(values), 0); }},
        {"enable", [](auto& text) { enable(false, text); }},
        {"enable-with-machine", [](auto& text) { enable(true, text); }},
        {"enable-environment", [](auto& prefix) { manager().enableEnvironment(prefix.c_str()); }},
        {"load", [](auto& path) { manager().loadConfigurationFile(path.c_str()); }},
        {"settings", [&](auto& name) { getSettings(name, true, 0); }},
        {"optional-settings", [&](auto& name) { getSettings(name, false, 0); }},
        {"strict-settings", [&](auto& name) { getSettings(name, false, STRICT_RECOGNITION); }},
        {"iterate", [&](auto& name) { iterate(name); }},
        {"values", [&](auto& tree) { request(tree, [](auto& result) { manager().getValues("TOOL", result, 0); }); }},
        {"values-of-tool", [&](auto& tree) { request(tree, [](auto& r) { manager().getValues(tool(), r, 0); }); }},
        {"validate", [&](auto& tree) { validate(tree, 0); }},
        {"validate-strictly", [&](auto& tree) { validate(tree, STRICT_RECOGNITION); }},
        {"providers", [&](auto&) { showProviders(); }},
        {"log", [&](auto& category) { showLog(category); }},
    };

    std::string mShown;
    fs::path mBefore = fs::current_path();
};

TEST_F(ManagerSteps, LoadsRegistryFiles) {
    fs::create_symlink("user@host.1:2", installation.at("etc/.#b.crg")); // as an editor locks a file
    fs::create_directories(installation.at("plugins/x/y"));
    fs::create_directory_symlink("..", installation.at("plugins/x/up"));
    fs::create_directory_symlink("../..", installation.at("plugins/x/y/up"));
    check("start-up.txt");
}

TEST_F(ManagerSteps, FindsEnumerations) { check("enumerations.txt"); }

TEST_F(ManagerSteps, ChecksAndCompletesValues) { check("values.txt"); }

TEST_F(ManagerSteps, KeepsTheSettingsOfASpecificationUnlessTheyAreEmptyOrFailed) { check("settings.txt"); }

TEST_F(ManagerSteps, SetsProvidersUp) { check("enabling.txt"); }

} // namespace

} // namespace kivo::test
