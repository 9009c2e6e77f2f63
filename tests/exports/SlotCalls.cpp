#include "exports/SlotCalls.h"

#include <sstream>

// No header of the library: what stands here is the order that programs were compiled against. References are passed
// as pointers are.

namespace kivo::test {

namespace {

using Text = char const*;

struct ItemSlots {
    virtual ~ItemSlots() = default;
    virtual int getItemType() const = 0;
    virtual bool isOptional() const = 0;
    virtual bool isUnbounded() const = 0;
    virtual Text getId() const = 0;
    virtual Text getName() const = 0;
    virtual Text getDescription() const = 0;
    virtual void setDescription(Text description) = 0;
    virtual bool accept(void* visitor) const = 0;
    virtual bool isSpecialized() const = 0;
    virtual Text getItemTypeName() const = 0;
};

struct ParameterSlots : ItemSlots {
    virtual Text getValueName() const = 0;
    virtual int getValueType() const = 0;
    virtual void* getDefaultValue() const = 0;
    virtual void setEnumDefinition(void* definition) = 0;
    virtual void* getEnumDefinition() const = 0;
    virtual void* getValidator() const = 0;
};

struct ProviderSlots {
    virtual ~ProviderSlots() = default;
    virtual Text getName() const = 0;
    virtual bool getValues(void const* specification, void* result, int flags) = 0;
    virtual Text composeHelpMessage(void const* specification, unsigned long width, unsigned long nameWidth) const = 0;
    virtual Text composeUsageMessage(void const* specification) const = 0;
    virtual void reset() = 0;
    virtual void setArgumentGroup(void const* values, int flags) = 0;
    virtual void setArgument(Text argument, int flags) = 0;
    virtual void setArgumentVector(int argc, Text const* argv, int flags) = 0;
    virtual bool removeParameter(void const* specification, Text parameterName) = 0;
};

struct ExceptionSlots {
    virtual ~ExceptionSlots() = default;
    virtual Text what() const noexcept = 0;
    virtual operator Text() const = 0;
    virtual int get_kind() const = 0;
    virtual void reportErrors(Text context) = 0;
    virtual void* asKernelException() = 0;
};

template <class Slots>
Slots& as(void* object) {
    return *static_cast<Slots*>(object);
}

template <class... Results>
std::string report(Results const&... results) {
    std::ostringstream text;
    ((text << results << ' '), ...);
    return text.str();
}

} // namespace

std::string callParameter(void* parameter) {
    auto& slots = as<ParameterSlots>(parameter);
    slots.setDescription("changed");
    return report(slots.getItemType(), slots.isOptional(), slots.isUnbounded(), slots.getId(), slots.getName(),
                  slots.getDescription(), slots.isSpecialized(), slots.getItemTypeName(), slots.getValueName(),
                  slots.getValueType(), slots.getDefaultValue() != nullptr, slots.getEnumDefinition() != nullptr,
                  slots.getValidator() != nullptr);
}

std::string callProvider(void* provider, void const* specification, void* result) {
    auto& slots = as<ProviderSlots>(provider);
    Text const arguments[] = {"tool", "-a", "1", "-b", "2"};
    slots.setArgumentVector(5, arguments, 0);
    auto const text = report(slots.getName(), slots.removeParameter(specification, "b")) +
                      report(slots.getValues(specification, result, 0), slots.composeUsageMessage(specification)) +
                      report(slots.composeHelpMessage(specification, 20, 10));
    slots.reset();
    return text;
}

std::string callException(void* exception) {
    auto& slots = as<ExceptionSlots>(exception);
    slots.reportErrors("nobody asked for reports");
    return report(slots.what(), static_cast<Text>(slots), slots.get_kind(), slots.asKernelException());
}

} // namespace kivo::test
