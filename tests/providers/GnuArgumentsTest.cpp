// Command lines in GNU style, from the arguments to what a request gives.

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/Flags.h>

#include <algorithm>
#include <map>
#include <random>
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

/// A tool of a random shape, with values for some of its settings.
class RandomValues {
public:
    explicit RandomValues(unsigned long seed) : mRandom(seed), schema("tool{" + makeItems("", 0) + "}") {}

    /// A command line that gives the values, in any of the forms that there are.
    std::vector<std::string> makeArguments() {
        std::vector<Given const*> order;
        for (auto const& given : mGiven) {
            order.insert(order.end(), given.texts.size(), &given);
        }
        std::ranges::shuffle(order, mRandom);
        std::map<Given const*, std::size_t> next;
        std::vector<std::string> arguments;
        for (auto const* given : order) {
            addFlag(*given, given->texts[next[given]++], arguments);
        }
        return arguments;
    }

    std::map<std::string, std::vector<std::string>> getValues() const {
        std::map<std::string, std::vector<std::string>> values;
        for (auto const& given : mGiven) {
            values[given.flag] = given.texts;
        }
        return values;
    }

private:
    struct Given {
        std::string flag;
        std::string type;
        std::vector<std::string> texts;
    };

    unsigned long below(unsigned long n) { return mRandom() % n; }
    std::string pick(std::vector<std::string> const& texts) { return texts[below(texts.size())]; }

    std::string makeItems(std::string const& prefix, int depth) {
        std::string items;
        for (auto n = 1 + below(5); n > 0; --n) {
            auto const id = pick({"a", "ab", "no-a", "x.y", "-", "h", "%s", "\xC3\xA4"}) + std::to_string(++mCount);
            if (depth < 3 && below(4) == 0) {
                items += id + "?{" + makeItems(prefix + id + '.', depth + 1) + "} ";
                continue;
            }
            auto const type = pick({"string", "int", "uint", "long", "double", "size", "duration", "bool"});
            bool const isUnbounded = below(3) == 0;
            items += id + ':' + type + (type == "bool" ? "?" : "") + (isUnbounded ? "* " : " ");
            if (below(2) == 0) {
                auto& given = mGiven.emplace_back(Given{prefix + id, type, {}});
                for (auto count = isUnbounded ? 1 + below(3) : 1; count > 0; --count) {
                    given.texts.push_back(makeText(type));
                }
            }
        }
        return items;
    }

    std::string makeText(std::string const& type) {
        if (type == "bool") {
            return pick({"true", "false", "1", "0"});
        }
        if (type == "string") {
            return pick({"", " ", "a b", "-", "--", "-x", "--a1=2", "=", "a=b", "\t\n", "-5", "%s%n", "h", "\x01\xFF"});
        }
        auto const sign = type == "int" || type == "long" || type == "double" ? pick({"-", ""}) : "";
        auto const unit = type == "size" ? pick({"k", " GiB", ""}) : type == "duration" ? "ms" : "";
        return sign + std::to_string(below(1000)) + (type == "double" ? pick({"", ".5", "e-3"}) : "") + unit;
    }

    void addFlag(Given const& given, std::string const& text, std::vector<std::string>& arguments) {
        auto name = given.flag;
        for (auto& c : name) {
            c = below(4) == 0 && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
        auto const dashes = name.front() == '-' ? "--" : pick({"-", "--"});
        bool const isNumber = given.type != "string" && given.type != "bool";
        bool const canStandAlone = isNumber || text == "-" || !text.starts_with('-');
        if (given.type == "bool" && text == "false" && below(2) == 0) {
            arguments.push_back(dashes + "no-" + name);
        } else if (given.type == "bool" && text == "1" && below(2) == 0) {
            arguments.push_back(dashes + name);
        } else if (given.type == "bool" || !canStandAlone || below(2) == 0) {
            arguments.push_back(dashes + name + '=' + text);
        } else {
            arguments.push_back(dashes + name);
            arguments.push_back(text);
        }
    }

    std::mt19937_64 mRandom;
    unsigned long mCount = 0;
    std::vector<Given> mGiven;

public:
    std::string const schema;
};

void addTexts(ParameterValueGroup const& group, std::string const& prefix,
              std::map<std::string, std::vector<std::string>>& values) {
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        auto const name = prefix + item.getParameterItemId();
        if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
            addTexts(static_cast<ParameterValueGroup const&>(item), name + '.', values);
            continue;
        }
        auto const& value = static_cast<ParameterValue const&>(item);
        for (unsigned long j = 0; j < value.getNumberOfValues(); ++j) {
            values[name].emplace_back(value.getValue(j, true));
        }
    }
}

TEST_F(GnuArgumentsTest, AnyValuesAreReadBackFromACommandLine) {
    for (unsigned long seed = 1; seed <= 500 && !HasFailure(); ++seed) {
        RandomValues given(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + ": " + given.schema);
        manager().reset();
        auto const* const tool = createTool(given.schema);
        start(given.makeArguments());
        ParameterValueGroup result(nullptr);
        auto& provider = *manager().getProvider(0);
        EXPECT_EQ(faultsOf([&] { provider.getValues(tool, result, seed % 2 == 0 ? 3 : STRICT_RECOGNITION); }), "");
        std::map<std::string, std::vector<std::string>> values;
        addTexts(result, "", values);
        std::map<std::string, std::vector<std::string>> expected;
        for (auto const& [name, texts] : given.getValues()) {
            expected["tool." + name] = texts;
        }
        EXPECT_EQ(values, expected);
    }
}

} // namespace

} // namespace kivo::test
