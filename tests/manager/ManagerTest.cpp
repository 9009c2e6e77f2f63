#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/ParameterValidator.h>
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

TEST_F(ManagerTest, RegistersTheValidatorsOfPlugins) {
    std::filesystem::copy_file(PLUGIN_NONE, installation.at("plugins/a.so"));
    std::filesystem::copy_file(PLUGIN_GOOD, installation.at("plugins/b.so"));
    for (int round = 0; round < 2; ++round, manager().reset()) {
        EXPECT_EQ(manager().getNumberofValidators(), 2u);
        std::unique_ptr<char[]> const message(manager().getValidator("FROMPLUGIN")->validate("100%"));
        EXPECT_STREQ(message.get(), "100% is never right");
        // The plug-in asked for the manager while that was being made, and got it.
        EXPECT_NE(manager().getEnumDefinition("fromPlugin"), nullptr);
    }
    manager().registerDefaultValidators();
    for (std::string const name : {"storageLocation", "fromPlugin"}) {
        EXPECT_EQ(whatOf<ConfigurationException>([&] { manager().getValidator(name.c_str()); }),
                  "Duplicate validator \"" + name + "\"");
    }
}

TEST_F(ManagerTest, KeepsTheApplicationsProvider) {
    manager().setApplicationValues(*treeOf("{}"), 0);
    auto const* provider = manager().getProvider(0);
    EXPECT_EQ(provider->getName(), Manager::APPLICATION_PROVIDER_NAME);
    auto const values = treeOf("{tool{u=z}}");
    manager().setApplicationValues(*values, 0);
    values->addValue("later", "1");
    EXPECT_EQ(manager().getProvider(0), provider);
    EXPECT_EQ(toText(provider->getDataCache()), "?{tool?{u?=z}}");
}

} // namespace

} // namespace kivo::test
