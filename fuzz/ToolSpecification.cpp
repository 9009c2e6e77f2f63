#include "ToolSpecification.h"

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueVisitor.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

#include "Harness.h"

namespace kivo::fuzz {

using namespace configuration;

namespace {

constexpr char const* REGISTRY = R"(<?xml version="1.0"?>
<ConfigurationRegistry>
    <Enumerations>
        <Enumeration id="levels"><Value label="low"/><Value label="high" value="-9"/></Enumeration>
    </Enumerations>
    <Parameters>
        <Parameter id="flag" name="flag" description="d" type="bool"/>
        <Parameter id="text" name="text" description="d" type="string" default="" formerly="words"/>
        <Parameter id="int" name="integer" description="d" type="int"/>
        <Parameter id="uint" name="unsigned" description="d" type="uint" default="7" formerly="natural"/>
        <Parameter id="long" name="long" description="d" type="long" default="7"/>
        <Parameter id="ulong" name="ulong" description="d" type="ulong" default="7"/>
        <Parameter id="size" name="size" description="d" type="size" default="1.5k" min="1" max="1T"/>
        <Parameter id="duration" name="duration" description="d" type="duration" default="1d12h"/>
        <Parameter id="double" name="double" description="d" type="double" min="-1e9" max="1e9"/>
        <Parameter id="real" name="real" description="d" type="double"/>
        <Parameter id="oid" name="oid" description="d" type="oid" default="#1-2-3-4"/>
        <Parameter id="level" name="level" description="d" type="enum" enumType="levels" default="low"/>
        <Parameter id="place" name="place" description="d" type="string" default="/" validator="storageLocation"/>
        <Parameter id="left" name="left" description="d" type="int" deprecated="go right"/>
        <Parameter id="right" name="right" description="d" type="int"/>
        <Parameter id="secret" name="secret" description="d" type="string" default="s"
                   sensitive="true" formerly="hidden"/>
        <Parameter id="help" name="help" description="d" type="bool"/>
        <Parameter id="quiet" name="quiet" description="d" type="bool"/>
        <Parameter id="notitle" name="notitle" description="d" type="bool"/>
    </Parameters>
    <Groups>
        <Group id="pair" name="pair" description="d">
            <ParameterRef id="left" optional="true"/>
            <ParameterRef id="right" optional="true"/>
        </Group>
        <Group id="common" name="common" description="d">
            <ParameterRef id="help" optional="true"/>
            <ParameterRef id="quiet" optional="true"/>
            <ParameterRef id="notitle" optional="true" hidden="true"/>
        </Group>
    </Groups>
    <Specifications>
        <Specification id="tool" name="tool" description="d">
            <ParameterRef id="int" optional="true" default="-1"/>
            <ParameterRef id="uint" optional="true" unbounded="true"/>
            <ParameterRef id="long" optional="true"/>
            <ParameterRef id="ulong" optional="true"/>
            <ParameterRef id="size" optional="true"/>
            <ParameterRef id="duration" optional="true" unbounded="true"/>
            <ParameterRef id="oid" optional="true"/>
            <ParameterRef id="level" optional="true" unbounded="true"/>
            <ParameterRef id="place" optional="true"/>
            <ParameterRef id="secret" optional="true" hidden="true"/>
            <MutuallyExclusive id="choice" name="choice">
                <ParameterRef id="flag" optional="true" default="true"/>
                <ParameterRef id="text" optional="true" unbounded="true"/>
                <GroupRef id="pair"/>
            </MutuallyExclusive>
            <Container id="section" name="section" description="d" optional="true">
                <ParameterRef id="text" optional="true"/>
                <MutuallyExclusive id="either" name="either" optional="true">
                    <ParameterRef id="flag" optional="true"/>
                    <ParameterRef id="double" optional="true" default="0.5"/>
                    <Container id="inner" name="inner" description="d" optional="true">
                        <ParameterRef id="real" optional="true"/>
                    </Container>
                </MutuallyExclusive>
                <GroupRef id="pair"/>
            </Container>
            <Container id="many" name="many" description="d" optional="true" unbounded="true">
                <ParameterRef id="text" optional="true"/>
                <ParameterRef id="uint" optional="true" unbounded="true"/>
                <Container id="deep" name="deep" description="d" optional="true">
                    <ParameterRef id="level" optional="true"/>
                </Container>
            </Container>
            <GroupRef id="common"/>
        </Specification>
        <Specification id="part" name="part" description="d" optional="true" unbounded="true">
            <ParameterRef id="int"/>
            <ParameterRef id="uint" optional="true" unbounded="true"/>
            <MutuallyExclusive id="scope" name="scope" optional="true">
                <ParameterRef id="oid" optional="true"/>
                <ParameterRef id="level" optional="true"/>
            </MutuallyExclusive>
            <GroupRef id="common"/>
        </Specification>
    </Specifications>
</ConfigurationRegistry>
)";

/// Reads each text as each type, whatever it is.
class ReadingVisitor final : public ParameterValueVisitor {
public:
    ReadingVisitor() : ParameterValueVisitor(false) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            attempt([&] { readHandles(ValueGroup(&group), group.getItem(i)->getParameterItemId()); });
        }
        return true;
    }

    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            attempt([&] { value.getValue(i, true); });
            attempt([&] { value.getBooleanValue(i); });
            attempt([&] { value.getIntValue(i); });
            attempt([&] { value.getUIntValue(i); });
            attempt([&] { value.getDoubleValue(i); });
            attempt([&] { value.getLongValue(i); });
            attempt([&] { value.getULongValue(i); });
        }
        return true;
    }

private:
    static void readHandles(ValueGroup const& group, char const* id) {
        for (auto texts = group.getValueIterator(id); texts.next();) {
            attempt([&] { texts.asString(); });
        }
        attempt([&] { group.getValue(id).asInteger(); });
    }
};

Manager& startManager(Environment const& environment) {
    environment.write("etc/kivobase.crg", REGISTRY);
    return *Manager::getInstance();
}

} // namespace

ToolSpecification::ToolSpecification(Environment const& environment)
    : manager(startManager(environment)),
      tool(*manager.getSpecification("tool")),
      part(*manager.getSpecification("part")) {}

void collectAndRead(Manager& manager, Specification const& specification, int flags) {
    ParameterValueGroup values(nullptr);
    attempt([&] { manager.getValues(&specification, values, flags); });
    ReadingVisitor visitor;
    values.accept(visitor);
    manager.getRepresentation(values);
}

} // namespace kivo::fuzz
