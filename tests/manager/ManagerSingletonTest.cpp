#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroupIterator.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/ValueTree.h"
#include "visitors/Notation.h"

#include <barrier>
#include <thread>

namespace kivo::test {

using namespace configuration;

namespace {

class ManagerSingleton : public ManagerTest {
protected:
    static constexpr int THREADS = 8;

    /// Runs a function in several threads at once.
    template <class Function>
    static void inThreads(Function function) {
        std::barrier start(THREADS);
        std::vector<std::jthread> threads;
        for (int i = 0; i < THREADS; ++i) {
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                function(i);
            });
        }
    }
};

TEST_F(ManagerSingleton, StaysWhenLoadingThrows) {
    constexpr char const* MISSING = "Unable to find the kivobase.crg file.";
    auto const file = installation.at("etc/kivobase.crg");
    std::filesystem::remove(file);
    EXPECT_EQ(whatOf<ConfigurationException>([] { Manager::getInstance(); }), MISSING);
    auto* const instance = Manager::getInstance();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(instance->getNumberofValidators(), 1u); // what was loaded before the failure
    EXPECT_EQ(whatOf<ConfigurationException>([&] { instance->reset(); }), MISSING);
    installation.write("etc/kivobase.crg", "<ConfigurationRegistry/>");
    instance->loadDefaultConfigurationRegistry();
    EXPECT_EQ(Manager::getInstance(), instance);
}

TEST_F(ManagerSingleton, IsMadeAnewAfterShutdown) {
    createTool("tool{}");
    EXPECT_EQ(installation.mainLog("Configuration").size(), 1u);
    Manager::shutdown();
    Manager::shutdown();
    EXPECT_EQ(manager().getNumberOfSpecifications(), 0u);
    EXPECT_EQ(manager().getNumberofValidators(), 1u);
    EXPECT_EQ(installation.mainLog("Configuration").size(), 2u);
}

TEST_F(ManagerSingleton, IsStillThereForWhatItDestroys) {
    struct Farewell final : ApplicationValuesProvider {
        explicit Farewell(Manager*& seen) : ApplicationValuesProvider(0), mSeen(seen) {}
        ~Farewell() override { mSeen = Manager::getInstance(); }
        Manager*& mSeen;
    };
    Manager* seen = nullptr;
    auto* const instance = &manager();
    instance->registerProvider(std::make_unique<Farewell>(seen).release());
    Manager::shutdown();
    EXPECT_EQ(seen, instance);
}

TEST_F(ManagerSingleton, IsOneForConcurrentFirstCalls) {
    for (int round = 0; round < 5; ++round) {
        std::vector<Manager*> seen(THREADS);
        inThreads([&](int i) { seen[static_cast<std::size_t>(i)] = Manager::getInstance(); });
        EXPECT_EQ(seen, std::vector<Manager*>(THREADS, Manager::getInstance()));
        EXPECT_EQ(manager().getNumberofValidators(), 1u);
        Manager::shutdown();
    }
}

/// Nothing of the tree was read before, so that every thread may come to build an index or to read an absent flag
/// first.
TEST_F(ManagerSingleton, LetsThreadsReadAFinishedTree) {
    auto const* tool =
        createTool("tool{a flag:bool? u* n:int?=7 many*{m:int} deep{inner:bool?}}", {.schema = 40, .values = 12});
    manager().setApplicationValues(
        *treeOf("{tool{a=x flag=<none> u=1,2,3 many{m=1} many{m=2} inner=<none> deep{inner=<none>}}}", {.values = 12}),
        0);
    auto const* container = manager().getValueGroup("tool", true, 0).getCurrentValueGroup();
    ParameterValueGroup const unread(*container);
    auto const* root = tool->getParameterGroup();
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
        EXPECT_NE(root->getItem("inner", true), nullptr);
        EXPECT_EQ(root->getItem("inner", false), nullptr);
        EXPECT_EQ(manager().getValueGroup("TOOL", true, 0).getCurrentValueGroup(), container);
    });
}

} // namespace

} // namespace kivo::test
