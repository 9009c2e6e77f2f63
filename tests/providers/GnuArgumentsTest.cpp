// Command lines in GNU style, from the arguments to what a request gives.

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/Flags.h>

#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

class GnuArgumentsTest : public ManagerTest {
protected:
    GnuArgumentsTest() {
        manager();
        installation.write("config/a.xml", "<tool from='file'/>");
        std::filesystem::current_path(installation.at(""));
    }
    ~GnuArgumentsTest() override { std::filesystem::current_path(mBefore); }

    /// Starts a tool with arguments.
    static void start(std::vector<std::string> const& arguments) {
        std::vector<char const*> argv{"tool"};
        for (auto const& argument : arguments) {
            argv.push_back(argument.c_str());
        }
        manager().setCommandLineStyle(GNU_COMMAND_LINE);
        manager().enableConfiguration(false, nullptr, static_cast<unsigned>(argv.size()), argv.data());
    }

    /// The faults of a step, each with its place; nothing when there are none.
    template <class Step>
    static std::string faultsOf(Step step) {
        try {
            step();
            return "";
        } catch (ConfigurationParameterException const& exception) {
            std::string text;
            auto const& faults = exception.getErrors();
            for (unsigned long i = 0; i < faults.getNumberOfErrors(); ++i) {
                text += faults.getError(i) + placeOf(faults.getOrigin(i));
            }
            return text;
        } catch (ConfigurationException const& exception) {
            return "thrown: " + (exception.what() + placeOf(exception.getOrigin()));
        }
    }

    /// What the providers give, unchecked, followed by "." when one of them ended the request.
    static std::string collect(Specification const* tool, int flags) {
        ParameterValueGroup result(nullptr);
        bool goesOn = true;
        for (unsigned long i = 0; i < manager().getNumberOfProviders() && goesOn; ++i) {
            goesOn = manager().getProvider(i)->getValues(tool, result, flags);
        }
        return toText(result) + (goesOn ? "\n" : ".\n");
    }

    /// What a request gives.
    static std::string request(Specification const* tool, int flags) {
        ParameterValueGroup result(nullptr);
        manager().getValues(tool, result, flags);
        return toText(result) + '\n';
    }

    static std::string placeOf(Origin const& origin) {
        return origin.isKnown() ? " @ argument " + std::to_string(origin.getArgument()) + '\n' : "\n";
    }

private:
    std::filesystem::path mBefore = std::filesystem::current_path();
};

TEST_F(GnuArgumentsTest, GiveValuesOrAreRefusedWithTheirPlaces) {
    checkCases("providers/gnu-arguments.txt", [](FileCase const& row) {
        manager().reset();
        manager().setVersionText(row["version"].c_str());
        auto const* const tool = createTool(row["schema"]);
        std::vector<std::string> arguments;
        std::istringstream words(row["arguments"]);
        for (std::string word; words >> word;) {
            arguments.push_back(word == "''" ? "" : unescaped(word));
        }
        int const flags = (row["flags"].find("strict") == std::string::npos ? 0 : STRICT_RECOGNITION) |
                          (row["flags"].find("resolve") == std::string::npos ? 0 : RESOLVE_FLAG_NAMES);
        std::string given;
        auto const faults = faultsOf([&] {
            start(arguments);
            given = row["checked"].empty() ? collect(tool, flags) : request(tool, flags);
        });
        return faults.empty() ? given : faults;
    });
}

} // namespace

} // namespace kivo::test
