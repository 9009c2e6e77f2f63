// An inspection says what a request does, for any schema and any sources.

#include "support/ManagerTest.h"
#include "support/Seeds.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/Flags.h>
#include <configuration/Inspection.h>
#include <configuration/InspectionReport.h>
#include <configuration/Memory.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueProvider.h>

#include <algorithm>
#include <cctype>
#include <iostream>
#include <list>
#include <map>
#include <random>
#include <set>

namespace kivo::test {

using namespace configuration;

namespace {

class NoSevens final : public ParameterValidator {
public:
    NoSevens() : ParameterValidator("noSevens") {}
    using ParameterValidator::validate;
    char* validate(char const* text) const override {
        return std::string(text).find('7') == std::string::npos ? nullptr : cloneString("there is a 7");
    }
};

/// A provider of the caller's own, which counts how often it is asked.
class OwnProvider final : public ValueProvider {
public:
    explicit OwnProvider(int priority) : ValueProvider(priority) {}
    char const* getName() const override { return "OWN"; }
    using ValueProvider::setArguments;
    void setArguments(ParameterValueGroup const& values, int) override { setDataCache(values); }
    bool getValues(Specification const* specification, ParameterValueGroup& result, int flags) override {
        ++requests;
        return ValueProvider::getValues(specification, result, flags);
    }
    int requests = 0;
};

/// Texts by the full name of their setting.
using Values = std::map<std::string, std::vector<std::string>>;

std::string shown(char const* text) { return text ? std::string("\"") + text + '"' : "<none>"; }

std::string placed(InspectedText const& text) { return shown(text.revealText()) + " @ " + text.getOrigin().toString(); }

void addValues(ParameterValueGroup const& group, std::string const& prefix, Values& values) {
    std::map<ParameterItem const*, int> occurrences;
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        auto const name = prefix + item.getParameterItemId();
        if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
            auto const number = std::to_string(++occurrences[item.getParameterItem()]);
            addValues(static_cast<ParameterValueGroup const&>(item),
                      name + (item.getParameterItem()->isUnbounded() ? "[" + number + "]." : "."), values);
            continue;
        }
        auto const& value = static_cast<ParameterValue const&>(item);
        for (unsigned long j = 0; j < value.getNumberOfValues(); ++j) {
            values[name].push_back(shown(value.getValue(j, false)) + " @ " + value.getOrigin(j).toString());
        }
    }
}

class RandomCase {
public:
    RandomCase(unsigned long seed, TemporaryInstallation& installation) : mRandom(seed), mInstallation(installation) {
        auto& manager = *Manager::getInstance();
        manager.reset();
        manager.addValidator(std::make_unique<NoSevens>().release());
        mLabels = std::make_unique<ParameterEnumDefinition>("labels").release();
        mLabels->addEnumValue("low", 1);
        mLabels->addEnumValue("high", 2);
        manager.registerEnumDefinition(mLabels);
        mRoot = ParameterGroup::CreateContainer("tool", "tool", "d", oneIn(2), oneIn(12));
        fill(*mRoot, 0);
        specification = std::make_unique<Specification>("tool", "d").release();
        manager.registerSpecification(specification);
    }

    void check();

private:
    bool oneIn(unsigned n) { return mRandom() % n == 0; }
    unsigned long below(unsigned long n) { return mRandom() % n; }
    std::string pick(std::initializer_list<char const*> texts) { return *(texts.begin() + below(texts.size())); }

    std::string text(Parameter const* parameter) {
        if (!parameter || oneIn(5)) {
            return pick({"", "x", "7", "1-2-3-4", " 5", "-3", "4294967296", "true", "%s", "High", "1e3", "1--2-3-4"});
        }
        switch (parameter->getValueType()) {
        case Parameter::BOOLEAN_PARAMETER: return pick({"true", "FALSE", "0", "1"});
        case Parameter::STRING_PARAMETER: return pick({"a", "b", "c d"});
        case Parameter::OID_PARAMETER: return pick({"1-2-3-4", "#0-0-0-1"});
        case Parameter::ENUM_PARAMETER: return pick({"low", "high"});
        case Parameter::SIZE_PARAMETER: return pick({"1GB", "2kB"});
        case Parameter::DURATION_PARAMETER: return pick({"1d", "2h"});
        default: return pick({"1", "2", "16"});
        }
    }

    ParameterItem* makeItem(int depth) {
        auto const id = pick({"a", "ab", "b", "value", "c"}) + std::to_string(++mCount);
        auto const name = oneIn(15) ? "n" + id : id;
        auto const kind = depth > 2 ? 9 : below(10);
        if (kind < 4) {
            auto* group = kind == 0 ? ParameterGroup::CreateGroup(id.c_str(), name.c_str(), "d")
                          : kind == 1
                              ? ParameterGroup::CreateMutuallyExclusive(id.c_str(), name.c_str(), "d", oneIn(2))
                              : ParameterGroup::CreateContainer(id.c_str(), name.c_str(), "d", oneIn(2), oneIn(2));
            fill(*group, depth + 1);
            return group;
        }
        auto const type = static_cast<Parameter::ValueType>(below(Parameter::DURATION_PARAMETER + 1));
        bool const isOptional = !oneIn(4);
        bool const isUnbounded = oneIn(4);
        char const* const defaults[] = {"1", "d", "1",   "1", "1.5", "1-1-1-1", oneIn(6) ? "none" : "low",
                                        "1", "1", "1GB", "1d"};
        bool const hasDefault = (isOptional && !isUnbounded) || oneIn(2);
        auto* parameter = Parameter::Create(id.c_str(), name.c_str(), "d", isOptional, isUnbounded, type,
                                            hasDefault ? defaults[type] : nullptr, nullptr,
                                            oneIn(6) ? "noSevens" : nullptr, oneIn(10));
        if (type == Parameter::ENUM_PARAMETER && !oneIn(8)) {
            parameter->setEnumDefinition(mLabels);
        }
        mark(*parameter);
        mParameters.push_back(parameter);
        return parameter;
    }
    void mark(Parameter& parameter) {
        parameter.setSensitive(oneIn(3));
        if (oneIn(8)) {
            parameter.setDeprecation("use another one");
        }
        if (oneIn(3)) {
            parameter.setFormerName(("old" + std::string(parameter.getId())).c_str());
        }
    }
    void fill(ParameterGroup& group, int depth) {
        for (auto i = 1 + below(4); i > 0; --i) {
            group.addItem(oneIn(12) && !mParameters.empty() ? mParameters[below(mParameters.size())] : makeItem(depth));
        }
    }

    Parameter const* anyParameter() { return mParameters.empty() ? nullptr : mParameters[below(mParameters.size())]; }
    std::string idOf(Parameter const& parameter) {
        char const* const former = oneIn(6) ? parameter.getFormerName() : nullptr;
        return former ? former : parameter.getId();
    }
    std::string anyId() {
        auto const* parameter = anyParameter();
        auto const id = parameter && !oneIn(10) ? idOf(*parameter) : "u" + std::to_string(below(3));
        return oneIn(20) ? "c" + std::to_string(1 + below(mCount)) : id;
    }

    /// Fills a tree for the settings of a group; constraints are no level of it. @param faults one in how many
    void give(ParameterValueGroup& values, ParameterGroup const& group, unsigned faults, bool isFile) {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            auto* const item = group.getItem(i);
            if (auto const* parameter = dynamic_cast<Parameter const*>(item)) {
                if (oneIn(3)) {
                    giveText(values, *parameter, isFile && group.getGroupType() == ParameterGroup::CONTAINER);
                }
                continue;
            }
            auto const& inner = static_cast<ParameterGroup const&>(*item);
            if (inner.getGroupType() == ParameterGroup::CONSTRAINT && !oneIn(faults)) {
                give(values, inner, faults, isFile);
                continue;
            }
            for (auto n = below(inner.isUnbounded() ? 4 : 2) + (oneIn(9) ? 1 : 0); n > 0; --n) {
                give(child(values, inner.getId()), inner, faults, isFile);
            }
        }
        if (oneIn(faults)) {
            auto& target = oneIn(2) ? child(values, anyId()) : values;
            if (auto const id = anyId(); !target.getItem(id.c_str())) {
                target.addValue(id.c_str(), text(nullptr).c_str());
            }
        }
        if (oneIn(faults)) {
            child(values, anyId());
        }
    }
    void giveText(ParameterValueGroup& values, Parameter const& parameter, bool mayBeElement) {
        if (mayBeElement && oneIn(2)) {
            for (auto n = 1 + below(parameter.isUnbounded() ? 3 : 1); n > 0; --n) {
                child(values, idOf(parameter)).addValue(oneIn(30) ? "valu" : "value", text(&parameter).c_str());
            }
        } else if (auto const id = idOf(parameter); !values.getItem(id.c_str())) {
            values.addValue(id.c_str(), text(&parameter).c_str());
        }
    }
    static ParameterValueGroup& child(ParameterValueGroup& values, std::string const& id) {
        auto* const group = std::make_unique<ParameterValueGroup>(id.c_str()).release();
        values.addItem(group);
        return *group;
    }

    static std::string toXml(ParameterValueGroup const& group) {
        std::string attributes;
        std::string elements;
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            auto const& item = *group.getItem(i);
            if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
                elements += toXml(static_cast<ParameterValueGroup const&>(item));
            } else {
                auto const* const value = static_cast<ParameterValue const&>(item).getValue(0, false);
                attributes += std::string(" ") + item.getParameterItemId() + "=\"" + value + '"';
            }
        }
        auto const id = std::string(group.getParameterItemId());
        return '<' + id + attributes + ">\n" + elements + "</" + id + ">\n";
    }
    std::string makeFile(std::string const& name) {
        ParameterValueGroup values(oneIn(25) ? "toll" : "tool");
        give(values, *mRoot, mFaults, true);
        return mInstallation.write(name, oneIn(400) ? "<tool" : toXml(values));
    }
    /// Sets a part of the variables of a group's settings.
    void makeEnvironment(ParameterGroup const& group, std::string const& beginning) {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            auto* const item = group.getItem(i);
            auto const* inner = dynamic_cast<ParameterGroup const*>(item);
            if (auto const* parameter = dynamic_cast<Parameter const*>(item); parameter && oneIn(4)) {
                mEnvironment.emplace_front(beginning + upperCase(idOf(*parameter)), text(parameter));
            } else if (inner && inner->getGroupType() == ParameterGroup::CONSTRAINT) {
                makeEnvironment(*inner, beginning);
            } else if (inner && (!inner->isUnbounded() || oneIn(mFaults))) {
                makeEnvironment(*inner, beginning + upperCase(inner->getId()) + "__");
            }
        }
    }
    static std::string upperCase(std::string text) {
        std::ranges::transform(text, text.begin(), [](char each) { return static_cast<char>(std::toupper(each)); });
        return text;
    }
    void makeTree(ParameterValueGroup& top) { give(child(top, "tool"), *mRoot, mFaults, false); }

    std::vector<std::string> makeArguments(CommandLineStyle style) {
        std::vector<std::string> arguments{"program"};
        for (auto n = below(6); n > 0; --n) {
            auto const* const parameter = anyParameter();
            bool const isNamed = parameter && !oneIn(mFaults);
            auto flag = !isNamed ? anyId() : oneIn(6) ? idOf(*parameter) : std::string(parameter->getName());
            flag.resize(oneIn(4) ? 1 + below(flag.size()) : flag.size());
            if (style == GNU_COMMAND_LINE) {
                flag = pick({"", "-", "-", "-no-"}) + flag + (oneIn(2) ? "=" + text(parameter) : "");
            }
            arguments.push_back(oneIn(4 * mFaults) ? flag : "-" + flag);
            if (!oneIn(4)) {
                arguments.push_back(text(parameter));
            }
        }
        for (auto n = below(3); n > 0; --n) {
            auto const file = oneIn(40) ? "nowhere.xml" : makeFile("named" + std::to_string(n) + ".xml");
            auto const place = arguments.begin() + static_cast<std::ptrdiff_t>(1 + below(arguments.size()));
            arguments.insert(place, {"-loadConfiguration", file});
        }
        return arguments;
    }

    bool isHidden(std::string const& name) const {
        return std::ranges::any_of(mParameters, [&](auto const* each) {
            return each->isHidden() && each->getId() == name.substr(name.rfind('.') + 1);
        });
    }
    void compare(Inspection const& inspection, bool required, int flags);
    void expectOrigins(ParameterValueGroup const& group) const;
    bool isAt(Origin const& origin, ParameterValue const& value, char const* text) const;
    static void expectMessages(Inspection const& inspection, std::exception const& thrown);

    std::mt19937_64 mRandom;
    TemporaryInstallation& mInstallation;
    Specification* specification;
    ParameterEnumDefinition* mLabels;
    ParameterGroup* mRoot;
    std::vector<Parameter*> mParameters;
    unsigned long mCount = 0;
    unsigned mFaults = 4;
    std::vector<std::string> mArguments;
    std::list<ScopedEnvironment> mEnvironment; ///< the last one first, which is how they are undone
};

/// What a request throws must be among the findings.
void RandomCase::expectMessages(Inspection const& inspection, std::exception const& thrown) {
    std::set<std::string> found;
    for (auto const& finding : inspection.getFindings()) {
        found.insert(finding.revealMessage());
    }
    std::vector<std::string> messages{thrown.what()};
    if (auto const* several = dynamic_cast<ConfigurationParameterException const*>(&thrown)) {
        messages.clear();
        for (unsigned long i = 0; i < several->getErrors().getNumberOfErrors(); ++i) {
            messages.emplace_back(several->getErrors().getError(i));
        }
    }
    for (auto const& message : messages) {
        EXPECT_TRUE(found.contains(message)) << message;
    }
}

/// A text must stand where its origin says.
void RandomCase::expectOrigins(ParameterValueGroup const& group) const {
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
            expectOrigins(static_cast<ParameterValueGroup const&>(item));
            continue;
        }
        auto const& value = static_cast<ParameterValue const&>(item);
        for (unsigned long j = 0; j < value.getNumberOfValues(); ++j) {
            auto const origin = value.getOrigin(j);
            char const* const text = value.getValue(j, true);
            EXPECT_TRUE(isAt(origin, value, text))
                << item.getParameterItemId() << " = " << shown(text) << " @ " << origin.toString();
        }
    }
}

bool RandomCase::isAt(Origin const& origin, ParameterValue const& value, char const* text) const {
    std::vector<std::string> names{value.getParameterItemId()};
    if (auto const* const parameter = value.getParameter()) {
        names.emplace_back(parameter->getName());
        names.emplace_back(parameter->getFormerName() ? parameter->getFormerName() : parameter->getId());
    }
    auto const isGiven = [&](auto condition) { return std::ranges::any_of(names, condition); };
    auto const given = std::string(text ? text : "");
    switch (origin.getSource()) {
    case Origin::FILE_SOURCE: {
        std::ifstream file(origin.getName());
        std::string line;
        for (auto number = origin.getLine(); number > 0; --number) {
            std::getline(file, line);
        }
        auto const there = line.substr(std::min<std::size_t>(line.size(), origin.getColumn() - 1));
        return isGiven([&](auto const& name) {
            return there.starts_with(name + "=\"" + given + '"') ||
                   there.starts_with('<' + name + " value=\"" + given + '"');
        });
    }
    case Origin::COMMAND_LINE_SOURCE: {
        auto const flag = mArguments.at(origin.getArgument());
        auto place = origin.getArgument() + 1;
        while (place < mArguments.size() && mArguments[place] == "-loadConfiguration") {
            place += 2; // a file is taken out before flags get their values
        }
        auto const next = place < mArguments.size() ? mArguments[place] : "-";
        auto const word = flag.substr(flag.find_first_not_of('-'), flag.find('=') - flag.find_first_not_of('-'));
        bool const isNegated = given == "false" && word.starts_with("no-");
        bool const isSwitch = !text || given == "1"; // as which a flag without a value is read
        bool const isThere = isSwitch && flag.find('=') == std::string::npos;
        return (isNegated || isThere || flag.ends_with('=' + given) ||
                next.substr(next.find_first_not_of(' ')) == given) &&
               isGiven([&](auto const& name) { return name.starts_with(isNegated ? word.substr(3) : word); });
    }
    case Origin::ENVIRONMENT_SOURCE:
        return std::getenv(origin.getName()) == given && isGiven([&](auto const& name) {
                   return std::string(origin.getName()).ends_with('_' + upperCase(name));
               });
    case Origin::DEFAULT_SOURCE: {
        auto const* const standard = value.getParameter()->getDefaultValue();
        return standard ? standard->getValue(0, true) == given : given == "0";
    }
    default: return origin.isKnown();
    }
}

void RandomCase::compare(Inspection const& inspection, bool required, int flags) {
    struct Explanation {
        Inspection const& inspection;
        ~Explanation() {
            if (testing::Test::HasFailure()) {
                std::cerr << composeExplanation(inspection, false);
            }
        }
    } const explanation{inspection};
    Values requested;
    try {
        auto const group = Manager::getInstance()->getValueGroup("tool", required, flags);
        if (!group.isNull()) {
            auto const& top = *group.getCurrentValueGroup()->getParentGroup();
            addValues(top, "", requested);
            expectOrigins(top);
        }
    } catch (std::exception const& thrown) {
        expectMessages(inspection, thrown);
        return;
    }
    Values inspected;
    std::multiset<std::string> misplaced;
    auto const prefix = mRoot->isUnbounded() ? "" : "tool.";
    for (auto const& setting : inspection.getSettings()) {
        EXPECT_FALSE(inspected.contains(prefix + std::string(setting.getName()))) << setting.getName();
        for (unsigned long i = 0; i < setting.getNumberOfValues(); ++i) {
            inspected[prefix + std::string(setting.getName())].push_back(placed(setting.getValue(i)));
        }
        for (unsigned long i = 0; i < setting.getNumberOfAlternatives(); ++i) {
            if (setting.getAlternative(i).getVerdict() == InspectedText::MISPLACED) {
                misplaced.insert(placed(setting.getAlternative(i)));
            }
        }
    }
    for (auto entry = requested.begin(); entry != requested.end();) {
        bool const isListed = inspected.contains(entry->first);
        for (auto const& each : isListed ? std::vector<std::string>() : entry->second) {
            EXPECT_TRUE(misplaced.contains(each) || isHidden(entry->first)) << entry->first << " = " << each;
        }
        entry = isListed ? std::next(entry) : requested.erase(entry);
    }
    EXPECT_EQ(inspected, requested);
    for (auto const& finding : inspection.getFindings()) {
        EXPECT_TRUE(finding.getSeverity() == Finding::WARNING_SEVERITY ||
                    finding.getRule() == std::string("unknown-label"))
            << finding.getMessage();
    }
}

void RandomCase::check() {
    mFaults = oneIn(2) ? 4 : 1000;
    auto& manager = *Manager::getInstance();
    auto const style = oneIn(3) ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE;
    mArguments = makeArguments(style);
    std::vector<char const*> argv;
    for (auto const& argument : mArguments) {
        argv.push_back(argument.c_str());
    }
    auto const argc = static_cast<unsigned int>(oneIn(5) ? 0 : argv.size());
    auto const file = oneIn(2) ? makeFile("application.xml") : std::string();
    bool const hasMachineConfig = oneIn(2);
    makeFile("config/machine.config");
    char const* const prefix = oneIn(2) ? "KIVOTEST" : nullptr;
    makeEnvironment(*mRoot, "KIVOTEST_");
    auto const flags = static_cast<int>(below(4));
    bool const required = oneIn(2);

    auto const inspection = Inspection(*specification, InspectionInputs()
                                                           .setCommandLineStyle(style)
                                                           .setArguments(argc, argv.data())
                                                           .setApplicationFile(file.c_str())
                                                           .setMachineConfig(hasMachineConfig)
                                                           .setEnvironment(prefix)
                                                           .setFlags(flags)
                                                           .setRequired(required));
    manager.setCommandLineStyle(style);
    try {
        manager.enableConfiguration(hasMachineConfig, file.c_str(), argc, argv.data());
        if (prefix) {
            manager.enableEnvironment(prefix);
        }
    } catch (std::exception const& thrown) {
        expectMessages(inspection, thrown);
        return;
    }
    if (oneIn(2)) {
        compare(inspection, required, flags);
        return;
    }
    auto* const own = std::make_unique<OwnProvider>(static_cast<int>(below(4))).release();
    manager.registerProvider(own);
    ParameterValueGroup values(nullptr);
    makeTree(values);
    own->enableProvider(values, 0);
    if (oneIn(2)) {
        ParameterValueGroup applicationValues(nullptr);
        makeTree(applicationValues);
        manager.setApplicationValues(applicationValues, 0);
    }
    Inspection const other(*specification, required, flags);
    EXPECT_EQ(own->requests, 1);
    compare(other, required, flags);
}

using RandomInspectionTest = ManagerTest;

TEST_F(RandomInspectionTest, SaysWhatARequestDoes) {
    forEachSeed(800, [&](unsigned long seed) { RandomCase(seed, installation).check(); });
}

} // namespace

} // namespace kivo::test
