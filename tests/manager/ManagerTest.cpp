#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Flags.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ValueGroupIterator.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <algorithm>
#include <barrier>
#include <thread>

namespace kivo::test {

using namespace configuration;

namespace {

/// Adds an enabled provider, not to be taken for that of the application.
void provide(char const* values, int priority = 1) {
    struct Source final : ApplicationValuesProvider {
        using ApplicationValuesProvider::ApplicationValuesProvider;
        char const* getName() const override { return "SOURCE"; }
    };
    auto provider = std::make_unique<Source>(priority);
    provider->enableProvider(*treeOf(values), 0);
    Manager::getInstance()->registerProvider(provider.release());
}

/// Runs a function in several threads at once.
template <class Function>
void inThreads(Function function) {
    constexpr int THREADS = 8;
    std::barrier start(THREADS);
    std::vector<std::jthread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            function(i);
        });
    }
}

TEST_F(ManagerTest, IsThereUntilShutdownHasDestroyedIt) {
    static Manager* seen = nullptr;
    struct Farewell final : ApplicationValuesProvider {
        using ApplicationValuesProvider::ApplicationValuesProvider;
        ~Farewell() override { seen = Manager::getInstance(); }
    };
    auto* const instance = &manager();
    createTool("tool{}");
    instance->registerProvider(std::make_unique<Farewell>(0).release());
    Manager::shutdown();
    Manager::shutdown();
    EXPECT_EQ(seen, instance);
    EXPECT_EQ(manager().getNumberOfSpecifications() + manager().getNumberOfProviders(), 0u);
}

TEST_F(ManagerTest, IsMadeOnceForConcurrentFirstCalls) {
    for (int round = 0; round < 5; ++round) {
        Manager::shutdown();
        std::atomic<Manager*> seen = nullptr;
        inThreads([&](int) {
            auto* const before = seen.exchange(Manager::getInstance());
            EXPECT_TRUE(!before || before == Manager::getInstance());
        });
        EXPECT_EQ(manager().getNumberofValidators(), 1u);
    }
}

/// Nothing of the tree was read before, so that every thread may come to build an index or to read an absent flag
/// first.
TEST_F(ManagerTest, LetsThreadsReadAFinishedTree) {
    auto const* tool =
        createTool("tool{a flag:bool? u* n:int?=7 many*{m:int} deep{inner:bool?}}", {.schema = 40, .values = 12});
    manager().setApplicationValues(
        *treeOf("{tool{a=x flag=<none> u=1,2,3 many{m=1} many{m=2} inner=<none> deep{inner=<none>}}}", {.values = 12}),
        0);
    auto const* container = manager().getValueGroup("tool", true, 0).getCurrentValueGroup();
    ParameterValueGroup const unread(*container);
    inThreads([&](int i) {
        ValueGroup const values(i % 2 ? &unread : container);
        EXPECT_TRUE(values.getValue("Flag").asBoolean());
        EXPECT_TRUE(values.getValueGroup("deep").getValue("inner").asBoolean());
        EXPECT_EQ(values.getValue("n").asInteger(), 7);
        EXPECT_STREQ(values.getValue("#12").asString(), "x");
        EXPECT_TRUE(values.getValue("#13").isNull());
        auto texts = values.getValueIterator("u");
        auto groups = values.getValueGroupIterator("many");
        for (int number = 1; number <= 3; ++number) {
            EXPECT_TRUE(texts.next());
            EXPECT_STREQ(texts.asString(), std::to_string(number).c_str());
            EXPECT_EQ(groups.next(), number < 3);
        }
        EXPECT_NE(tool->getParameterGroup()->getItem("inner", true), nullptr);
        EXPECT_EQ(manager().getValueGroup("TOOL", true, 0).getCurrentValueGroup(), container);
    });
}

TEST_F(ManagerTest, ChecksWhatItIsGivenAndChangesNothing) {
    using Row = std::pair<char const*, void (*)(Manager&)>;
    for (auto const& [condition, call] : {
             Row{"specification != 0", [](Manager& m) { m.registerSpecification(nullptr); }},
             {"item != 0", [](Manager& m) { m.addParameterItem(nullptr); }},
             {"specialization != 0", [](Manager& m) { m.addParameterItemSpecialization(nullptr); }},
             {"enumDefinition != 0", [](Manager& m) { m.registerEnumDefinition(nullptr); }},
             {"validator != 0", [](Manager& m) { m.addValidator(nullptr); }},
             {"valueProvider != 0", [](Manager& m) { m.registerProvider(nullptr); }},
             {"id != 0", [](Manager& m) { m.getParameterItem(nullptr, ParameterItem::PARAMETER); }},
             {"name != 0", [](Manager& m) { m.getValidator(nullptr); }},
             {"objectKey != 0 && *objectKey != '\\0'", [](Manager& m) { m.getValueGroup(nullptr, true, 0); }},
             {"index < getNumberOfProviders()", [](Manager& m) { m.getProvider(0); }},
             {"path != 0", [](Manager& m) { m.loadConfigurationFile(nullptr); }},
         }) {
        Manager m;
        EXPECT_EQ(whatOf<ContractViolationException>([&, c = call] { c(m); }), contractText(condition));
        EXPECT_EQ(m.getNumberOfSpecifications() + m.getNumberofValidators() + m.getNumberOfProviders(), 0u);
    }
}

TEST_F(ManagerTest, FindsIgnoringCaseAndReportsDuplicatesWhenLookedUp) {
    auto& m = manager();
    m.registerEnumDefinition(std::make_unique<ParameterEnumDefinition>("Key%s").release());
    EXPECT_NE(m.getEnumDefinition("kEY%S"), nullptr);
    EXPECT_EQ(m.getEnumDefinition("Key"), nullptr);
    m.registerEnumDefinition(std::make_unique<ParameterEnumDefinition>("KEY%S").release());
    EXPECT_EQ(whatOf<ConfigurationException>([&] { m.getEnumDefinition("key%s"); }), "Duplicate enumeration \"key%s\"");
    m.reset();
    EXPECT_EQ(m.getEnumDefinition("Key%s"), nullptr);
}

TEST_F(ManagerTest, SortsProvidersByPriorityAndThoseOfOneByRegistration) {
    Manager m;
    std::vector<ValueProvider*> providers;
    for (int i = 0; i < 100; ++i) {
        m.registerProvider(providers.emplace_back(std::make_unique<ApplicationValuesProvider>(i % 7 - 3).release()));
    }
    std::ranges::stable_sort(providers, {}, &ValueProvider::getPriority);
    for (unsigned long i = 0; i < providers.size(); ++i) {
        EXPECT_EQ(m.getProvider(i), providers[i]) << i;
    }
}

TEST_F(ManagerTest, IsReachedThroughThePluginsEntryPoints) {
    EXPECT_STREQ(extensionPointName(), "Configuration Manager");
    EXPECT_EQ(createPlugin(), &manager());
}

struct Row {
    char const* label;
    char const* schema;
    std::vector<char const*> trees; ///< of the providers, or of the caller
    std::string outcome;            ///< the result, or what is thrown
    int flags = 0;
};
constexpr int OF_CALLER = 1 << 20; ///< beside the flags of a request: the tree is the caller's

constexpr char const* HELPFUL = "tool{must n:int help:bool? quiet:bool? u*}";
#define REQUIRED_FLAGS "A required flag was not specified. You must provide one of the following flags: "

// clang-format off
TEST_F(ManagerTest, ChecksAndCompletesValues) {
    for (auto const& row : {
        // What the providers have: it is merged first.
        Row{"the first wins, unbounded ones collect", "tool{a b u* many*{m u2*} in{c d}}",
            {"{tool{a=1 u=x in{c=1} many{m=1 u2=x}}}", "{}", "{tool{b=2 a=2 u=y,z in{d=2 c=2} many{m=2}}}"},
            "?{tool{a=1 u=x,y,z in{c=1 d=2} many{m=1 u2=x} b=2 many{m=2}}}"},
        Row{"constraints dissolve, defaults come last", "tool{a?=7 b con(c ex[x?=1 y?=2])}", {"{tool{c=3 y=4}}", "{tool{b=5 c=6}}"},
            "?{tool{c=3 y=4 b=5 a*=7}}"},
        Row{"nothing for a required root", "tool{a b?=1}", {"{}", "{tool{zzz=1}}"}, "?{}"},
        Row{"nothing for an optional root", "tool?{a b?=1 in{c?=2 d} ex[x?=3]}", {}, "?{tool{b*=1 in{c*=2} x*=3}}"},
        Row{"faults of the merged values together", "tool{a n:int in{b}}", {"{tool{n=x%s}}"},
            "n: \"x%s\" is not a valid signed integer\nRequired group \"in\" was not found\n" REQUIRED_FLAGS "a, b"},
        Row{"faults of one provider hide the others", "tool{a n:int}", {"{tool{n=x}}", "{tool{a=1,2 n=1,2}}", "{a=1}"},
            "\"a\" cannot be provided more than once\n\"n\" cannot be provided more than once"},
        Row{"help ends the loop", HELPFUL, {"{tool{help=<none> quiet=1 u=x}}", "{a=1}"}, "?{tool{help=1 quiet=1}}"},
        Row{"help comes after earlier values", HELPFUL, {"{tool{n=x u=y}}", "{tool{u=z help=1}}", "{a=1}"},
            "?{tool{tool{n=x u=y} help=1}}"},
        Row{"help declined is a value", HELPFUL, {"{tool{help=0 must=1}}", "{tool{help=1 u=x}}", "{a=1}"},
            "?{tool{tool{help=0 must=1} help=1}}"},
        // What a caller has: the providers are not asked, and nothing merges before the first phase.
        Row{"completes", "tool{a b?=1 con(c d?=2)}", {"{tool{c=3 A=4}}"}, "?{tool{a=4 c=3 d*=2 b*=1}}", OF_CALLER},
        Row{"unknown and repeated items", "tool{a in{b}}", {"{tool{in{} zzz=1 in{b=1,2}}}"},
            "\"in\" cannot be provided more than once\n\"zzz\" is not a recognized parameter\n"
            "\"in\" cannot be provided more than once\n\"b\" cannot be provided more than once", OF_CALLER},
        Row{"unknown ones, strictly", "tool{a}", {"{tool{zzz=1,2 a=1,2}}"},
            "\"zzz\" is not a recognized parameter", OF_CALLER | STRICT_RECOGNITION},
        Row{"help", "tool{a help:bool?}", {"tool{help=<none> zzz=1,2}"}, "tool{help=1 zzz?=1,2}", OF_CALLER},
        Row{"help below the group that is given", "tool{a help:bool?}", {"{tool{help=1}}"}, REQUIRED_FLAGS "a", OF_CALLER}}) {
        SCOPED_TRACE(row.label);
        manager().reset();
        auto const* tool = createTool(row.schema);
        bool const isOfCaller = row.flags & OF_CALLER;
        for (auto const* values : isOfCaller ? std::vector{"{tool{a=provided}}"} : row.trees) {
            provide(values);
        }
        auto const result = treeOf(isOfCaller ? row.trees[0] : "{}");
        auto const thrown = whatOf([&] {
            isOfCaller ? manager().validateValues(tool, *result, row.flags & ~OF_CALLER)
                       : manager().getValues("TOOL", *result, row.flags);
        });
        EXPECT_EQ(thrown == "<nothing>" ? toText(*result) : thrown, row.outcome);
        EXPECT_TRUE(thrown == "<nothing>" || isOfCaller || result->getNumberOfItems() == 0);
    }
}
// clang-format on

std::string settings(char const* name) {
    return toText(*Manager::getInstance()->getValueGroup(name, true, 0).getCurrentValueGroup());
}

TEST_F(ManagerTest, AddsToAResultAndPassesDisabledProvidersOver) {
    auto const* tool = createTool("tool{a}");
    manager().registerProvider(std::make_unique<ApplicationValuesProvider>(0).release());
    manager().getProvider(0)->setArguments(*treeOf("{tool{a=disabled}}"), 0);
    provide("{tool{a=2}}");
    auto const result = treeOf("{other{}}");
    manager().getValues(tool, *result, 0);
    EXPECT_EQ(toText(*result), "?{other?{} tool{a=2}}");
}

TEST_F(ManagerTest, KeepsTheSettingsOfASpecificationUnlessTheyAreEmptyOrFailed) {
    createTool("tool{a u?* b?=1}");
    auto const required = [] { return whatOf<ConfigurationException>([] { settings("Tool"); }); };
    EXPECT_EQ(required(), "The \"Tool\" group was not found");
    EXPECT_TRUE(manager().getValueGroup("tool", false, 0).isNull());
    EXPECT_FALSE(manager().getValueGroupIterator("tool", 0).next());
    provide("{tool{zzz=1}}");
    EXPECT_EQ(whatOf([] { manager().getValueGroup("tool", false, STRICT_RECOGNITION); }),
              "\"zzz\" is not a recognized parameter");
    provide("{tool{a=7 u=x,y}}");
    EXPECT_EQ(settings("tool"), "tool{a=7 u=x,y b*=1}");

    provide("{tool{a=1}}", -1);
    manager().loadConfigurationFile(installation.write("other.xml", "<tool a=\"2\"/>").c_str());
    manager().enableConfiguration(false, nullptr, 3, nullptr); // without arguments, whatever their number
    EXPECT_EQ(settings("TOOL"), "tool{a=7 u=x,y b*=1}");
    EXPECT_EQ(manager().getNumberOfProviders(), 0u);
    manager().registerSpecification(std::make_unique<Specification>("TOOL", "").release());
    EXPECT_EQ(required(), "Duplicate specification \"Tool\""); // though it is kept
    manager().reset();
    EXPECT_EQ(required(), "Specification \"Tool\" was not found");
    createTool("tool?{d?=1}");
    EXPECT_EQ(settings("tool"), "tool{d*=1}");
}

TEST_F(ManagerTest, IteratesOverARepeatedRootGroup) {
    createTool("tool*{a}");
    provide("{tool{a=1} tool{a=2}}");
    auto iterator = manager().getValueGroupIterator("TOOL", 0);
    EXPECT_TRUE(iterator.next() && iterator.next());
    EXPECT_STREQ(iterator.getValue("a").asString(), "2");
}

TEST_F(ManagerTest, TheApplicationsValuesWin) {
    createTool("tool{a u?*}");
    provide("{tool{a=1 u=x}}");
    auto const values = treeOf("{tool{a=2 u=y}}");
    manager().setApplicationValues(*values, 0);
    values->addValue("later", "1");
    EXPECT_EQ(settings("tool"), "tool{a=2 u=y,x}");
    auto const* provider = manager().getProvider(0);
    EXPECT_EQ(provider->getName(), Manager::APPLICATION_PROVIDER_NAME);
    EXPECT_EQ(provider->getPriority(), 0);
    manager().setApplicationValues(*treeOf("{tool{u=z}}"), 0);
    EXPECT_EQ(manager().getProvider(0), provider);
    EXPECT_EQ(manager().getNumberOfProviders(), 2u);
    EXPECT_EQ(settings("tool"), "tool{u=z,x a=1}");
    manager().setApplicationValues(*treeOf("{}"), 0);
    EXPECT_EQ(settings("tool"), "tool{a=1 u=x}");
}

} // namespace

} // namespace kivo::test
