#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ValueGroupIterator.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/VirtualSlot.h"
#include "visitors/Notation.h"

#include <map>

namespace kivo::test {

using namespace configuration;

namespace {

constexpr char const* KEY = "objectKey != 0 && *objectKey != '\\0'";

struct ContractCase {
    char const* label;
    void (*call)(Manager& m);
    char const* condition;
};

class ManagerContract : public ManagerTest, public testing::WithParamInterface<ContractCase> {};

TEST_P(ManagerContract, ThrowsWithTheConditionAndChangesNothing) {
    Manager m;
    EXPECT_EQ(whatOf<ContractViolationException>([&] { GetParam().call(m); }), contractText(GetParam().condition));
    EXPECT_EQ(m.getNumberOfSpecifications() + m.getNumberofValidators() + m.getNumberOfProviders(), 0u);
}

ParameterValueGroup target(nullptr);

// clang-format off
INSTANTIATE_TEST_SUITE_P(Registration, ManagerContract, testing::Values(
    ContractCase{"Specification", [](Manager& m) { m.registerSpecification(nullptr); }, "specification != 0"},
    ContractCase{"SpecificationWithoutId", [](Manager& m) {
        auto const specification = std::make_unique<Specification>("", "Description");
        m.registerSpecification(specification.get()); }, KEY},
    ContractCase{"Item", [](Manager& m) { m.addParameterItem(nullptr); }, "item != 0"},
    ContractCase{"Specialization", [](Manager& m) { m.addParameterItemSpecialization(nullptr); }, "specialization != 0"},
    ContractCase{"EnumDefinition", [](Manager& m) { m.registerEnumDefinition(nullptr); }, "enumDefinition != 0"},
    ContractCase{"Validator", [](Manager& m) { m.addValidator(nullptr); }, "validator != 0"},
    ContractCase{"Provider", [](Manager& m) { m.registerProvider(nullptr); }, "valueProvider != 0"}),
    Label());

INSTANTIATE_TEST_SUITE_P(LookUp, ManagerContract, testing::Values(
    ContractCase{"SpecificationOfNull", [](Manager& m) { m.getSpecification(nullptr); }, KEY},
    ContractCase{"SpecificationOfNothing", [](Manager& m) { m.getSpecification(""); }, KEY},
    ContractCase{"ItemOfNull", [](Manager& m) { m.getParameterItem(nullptr); }, "id != 0"},
    ContractCase{"ItemOfNothing", [](Manager& m) { m.getParameterItem(""); }, KEY},
    ContractCase{"TypedItemOfNull", [](Manager& m) { m.getParameterItem(nullptr, ParameterItem::PARAMETER); }, "id != 0"},
    ContractCase{"TypedItemOfNothing", [](Manager& m) { m.getParameterItem("", ParameterItem::PARAMETER); }, KEY},
    ContractCase{"EnumDefinitionOfNull", [](Manager& m) { m.getEnumDefinition(nullptr); }, KEY},
    ContractCase{"EnumDefinitionOfNothing", [](Manager& m) { m.getEnumDefinition(""); }, KEY},
    ContractCase{"ValidatorOfNull", [](Manager& m) { m.getValidator(nullptr); }, "name != 0"},
    ContractCase{"ValidatorOfNothing", [](Manager& m) { m.getValidator(""); }, KEY},
    ContractCase{"ProviderAtTheEnd", [](Manager& m) { m.getProvider(0); }, "index < getNumberOfProviders()"},
    ContractCase{"ValuesOfNoSpecification", [](Manager& m) {
        m.getValues(static_cast<Specification const*>(nullptr), target, 0); }, "specification != 0"},
    ContractCase{"ValuesOfNoName", [](Manager& m) { m.getValues("", target, 0); }, KEY},
    ContractCase{"ValueGroupOfNull", [](Manager& m) { m.getValueGroup(nullptr, true, 0); }, KEY},
    ContractCase{"IteratorOfNothing", [](Manager& m) { m.getValueGroupIterator("", 0); }, KEY}),
    Label());
// clang-format on

class ManagerRegistries : public ManagerTest {};

struct Registry {
    std::string word;
    void (*add)(Manager& m, char const* key);
    void const* (*find)(Manager& m, char const* key);
};

template <class Object, class... Arguments>
Object* make(Arguments... arguments) {
    return std::make_unique<Object>(arguments...).release();
}

TEST_F(ManagerRegistries, FindIgnoringCaseAndReportDuplicatesWhenLookedUp) {
    // clang-format off
    Registry const registries[] = {
        {"specification", [](Manager& m, char const* key) { m.registerSpecification(make<Specification>(key, "Text")); },
            [](Manager& m, char const* key) -> void const* { return m.getSpecification(key); }},
        {"item", [](Manager& m, char const* key) {
                m.addParameterItem(make<ParameterGroup>(key, "name", "Text", false, ParameterGroup::ITEMS_NOT_EXCLUSIVE,
                                                        false, ParameterGroup::CONTAINER)); },
            [](Manager& m, char const* key) -> void const* { return m.getParameterItem(key); }},
        {"enumeration", [](Manager& m, char const* key) { m.registerEnumDefinition(make<ParameterEnumDefinition>(key)); },
            [](Manager& m, char const* key) -> void const* { return m.getEnumDefinition(key); }},
        {"validator", [](Manager& m, char const* key) { m.addValidator(make<RejectingValidator>(key)); },
            [](Manager& m, char const* key) -> void const* { return m.getValidator(key); }}};
    // clang-format on
    auto& m = manager();
    for (auto const& registry : registries) {
        SCOPED_TRACE(registry.word);
        EXPECT_EQ(registry.find(m, "Key%s"), nullptr);
        registry.add(m, "Key%s");
        EXPECT_NE(registry.find(m, "kEY%S"), nullptr);
        EXPECT_EQ(registry.find(m, "Key"), nullptr);
        registry.add(m, "KEY%S");
        EXPECT_EQ(whatOf<ConfigurationException>([&] { registry.find(m, "key%s"); }),
                  "Duplicate " + registry.word + " \"key%s\"");
    }
    EXPECT_EQ(m.getNumberOfSpecifications(), 2u);
    EXPECT_EQ(m.getNumberofValidators(), 3u); // with the built-in one
    m.reset();
    EXPECT_EQ(m.getNumberOfSpecifications(), 0u);
    EXPECT_EQ(m.getNumberofValidators(), 1u);
    for (auto const& registry : registries) {
        EXPECT_EQ(registry.find(m, "Key%s"), nullptr) << registry.word;
    }
}

TEST_F(ManagerRegistries, KeepParametersAndGroupsApart) {
    auto& m = manager();
    auto const* parameter = createParameter({.id = "a"});
    EXPECT_EQ(m.getParameterItem("A", ParameterItem::PARAMETER), parameter);
    EXPECT_EQ(m.getParameterItem("b", ParameterItem::PARAMETER_GROUP), nullptr);
    EXPECT_EQ(whatOf<ConfigurationException>([&] { m.getParameterItem("A", ParameterItem::PARAMETER_GROUP); }),
              "Invalid item type. Expected: 1, found: 0");
    createContainer({.id = "g"});
    EXPECT_EQ(whatOf<ConfigurationException>([&] { m.getParameterItem("g", ParameterItem::PARAMETER); }),
              "Invalid item type. Expected: 0, found: 1");
    createGroup({.id = "a"}); // an id of both kinds is taken, and reported when it is looked up
    EXPECT_EQ(whatOf<ConfigurationException>([&] { m.getParameterItem("a", ParameterItem::PARAMETER); }),
              "Duplicate item \"a\"");
}

TEST_F(ManagerRegistries, SortProvidersByPriorityAndThoseOfOneByRegistration) {
    Manager m;
    std::map<int, std::vector<ValueProvider*>> expected;
    for (int i = 0; i < 100; ++i) {
        int const priority = i % 7 - 3;
        m.registerProvider(expected[priority].emplace_back(make<ApplicationValuesProvider>(priority)));
    }
    unsigned long index = 0;
    for (auto const& [priority, providers] : expected) {
        for (auto* provider : providers) {
            EXPECT_EQ(m.getProvider(index++), provider) << priority;
        }
    }
    EXPECT_EQ(index, m.getNumberOfProviders());
    EXPECT_EQ(whatOf<ContractViolationException>([&] { m.getProvider(index); }),
              contractText("index < getNumberOfProviders()"));
}

TEST_F(ManagerRegistries, AreReachedThroughThePluginsEntryPoints) {
    EXPECT_STREQ(extensionPointName(), "Configuration Manager");
    EXPECT_EQ(createPlugin(), &manager());
    EXPECT_NE(manager().getValidator("STORAGELOCATION"), nullptr);
    EXPECT_EQ(slotOf(&Manager::enableConfiguration), 2u);
}

} // namespace

} // namespace kivo::test
