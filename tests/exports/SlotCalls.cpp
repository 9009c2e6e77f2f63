#include "exports/SlotCalls.h"

#include <memory>
#include <sstream>

// No header of the library: what stands here is the order that programs were compiled against.

namespace kivo::test {

namespace {

struct AnyVisitor;
struct AnyItem;
struct AnyGroup;
struct AnySpecification;

struct ItemSlots {
    virtual ~ItemSlots() = default;
    virtual int getItemType() const = 0;
    virtual bool isOptional() const = 0;
    virtual bool isUnbounded() const = 0;
    virtual char const* getId() const = 0;
    virtual char const* getName() const = 0;
    virtual char const* getDescription() const = 0;
    virtual void setDescription(char const* description) = 0;
    virtual bool accept(AnyVisitor& visitor) const = 0;
    virtual bool isSpecialized() const = 0;
    virtual char const* getItemTypeName() const = 0;
};

struct ParameterSlots : ItemSlots {
    virtual char const* getValueName() const = 0;
    virtual int getValueType() const = 0;
    virtual void const* getDefaultValue() const = 0;
    virtual void setEnumDefinition(void const* definition) = 0;
    virtual void const* getEnumDefinition() const = 0;
    virtual void const* getValidator() const = 0;
};

struct ValueItemSlots {
    virtual ~ValueItemSlots() = default;
    virtual char const* getParameterItemId() const = 0;
    virtual int getItemType() const = 0;
    virtual bool accept(AnyVisitor& visitor) = 0;
    virtual ValueItemSlots* clone(int method) const = 0;
    virtual void assignParameterItem(AnyItem const* item) = 0;
};

struct ValueSlots : ValueItemSlots {
    virtual char const* getValue(unsigned long index, bool ignoreDefault) const = 0;
    virtual bool getBooleanValue(unsigned long index) const = 0;
    virtual int getIntValue(unsigned long index) const = 0;
    virtual unsigned int getUIntValue(unsigned long index) const = 0;
    virtual double getDoubleValue(unsigned long index) const = 0;
};

struct HandleSlots {
    virtual ~HandleSlots() = default;
    virtual bool asBoolean() const = 0;
    virtual char const* asString() const = 0;
    virtual int asInteger() const = 0;
    virtual unsigned int asUnsignedInteger() const = 0;
    virtual double asDouble() const = 0;
    virtual HandleSlots& setBoolean(bool value) = 0;
    virtual HandleSlots& setString(char const* value) = 0;
    virtual HandleSlots& setInteger(int value) = 0;
    virtual HandleSlots& setUnsignedInteger(unsigned int value) = 0;
    virtual HandleSlots& setDouble(double value) = 0;
    virtual unsigned long getCurrentValueIndex() const = 0;
    virtual void const* getParameterValue() const = 0;
};

struct ValidatorSlots {
    virtual ~ValidatorSlots() = default;
    virtual char* validateValue(void const* value) const = 0;
    virtual char* validateText(char const* value) const = 0;
};

struct ProviderSlots {
    virtual ~ProviderSlots() = default;
    virtual char const* getName() const = 0;
    virtual bool getValues(void const* specification, void* result, int flags) = 0;
    virtual char const* composeHelpMessage(void const* specification, unsigned long screenWidth,
                                           unsigned long maxParameterNameWidth) const = 0;
    virtual char const* composeUsageMessage(void const* specification) const = 0;
    virtual void reset() = 0;
    virtual void setArgumentGroup(void const* values, int flags) = 0;
    virtual void setArgument(char const* argument, int flags) = 0;
    virtual void setArgumentVector(int argc, char const* const* argv, int flags) = 0;
    virtual bool removeParameter(void const* specification, char const* parameterName) = 0;
};

struct ExceptionSlots {
    virtual ~ExceptionSlots() = default;
    virtual char const* what() const noexcept = 0;
    virtual operator char const*() const = 0;
    virtual int get_kind() const = 0;
    virtual void reportErrors(char const* context) = 0;
    virtual void* asKernelException() = 0;
};

template <class Slots>
Slots& as(void* object) {
    return *static_cast<Slots*>(object);
}

std::string describeItem(ItemSlots& item) {
    item.setDescription("changed");
    std::ostringstream text;
    text << item.getItemType() << ' ' << item.isOptional() << ' ' << item.isUnbounded() << ' ' << item.getId() << ' '
         << item.getName() << ' ' << item.getDescription() << ' ' << item.isSpecialized() << ' '
         << item.getItemTypeName();
    return text.str();
}

} // namespace

std::string callParameter(void* parameter) {
    auto& slots = as<ParameterSlots>(parameter);
    std::ostringstream text;
    text << describeItem(slots) << ' ' << slots.getValueName() << ' ' << slots.getValueType() << ' '
         << (slots.getDefaultValue() != nullptr) << ' ' << (slots.getEnumDefinition() != nullptr) << ' '
         << (slots.getValidator() != nullptr);
    return text.str();
}

std::string callGroup(void* group) { return describeItem(as<ItemSlots>(group)); }

std::string callValue(void* value) {
    auto& slots = as<ValueSlots>(value);
    std::unique_ptr<ValueItemSlots> const copy(slots.clone(0));
    std::ostringstream text;
    text << slots.getParameterItemId() << ' ' << slots.getItemType() << ' ' << slots.getValue(0, false) << ' '
         << slots.getBooleanValue(0) << ' ' << slots.getIntValue(0) << ' ' << slots.getUIntValue(0) << ' '
         << slots.getDoubleValue(0) << ' ' << copy->getParameterItemId();
    return text.str();
}

std::string callValueGroup(void* group) {
    auto& slots = as<ValueItemSlots>(group);
    return std::string(slots.getParameterItemId()) + ' ' + std::to_string(slots.getItemType());
}

std::string callHandle(void* handle) {
    auto& slots = as<HandleSlots>(handle);
    slots.setInteger(41).setInteger(42);
    return std::to_string(slots.asInteger()) + ' ' + std::to_string(slots.getCurrentValueIndex()) + ' ' +
           std::to_string(slots.getParameterValue() != nullptr);
}

std::string callValidator(void* validator, void const* value) {
    auto& slots = as<ValidatorSlots>(validator);
    std::unique_ptr<char[]> const all(slots.validateValue(value));
    std::unique_ptr<char[]> const one(slots.validateText("bad"));
    return std::string(all.get()) + one.get();
}

std::string callProvider(void* provider, void const* specification, void* result) {
    auto& slots = as<ProviderSlots>(provider);
    char const* const arguments[] = {"tool", "-a", "1", "-b", "2"};
    slots.setArgumentVector(5, arguments, 0);
    std::ostringstream text;
    text << slots.getName() << ' ' << slots.removeParameter(specification, "b") << ' '
         << slots.getValues(specification, result, 0) << ' ' << slots.composeUsageMessage(specification) << '\n'
         << slots.composeHelpMessage(specification, 20, 10);
    slots.reset();
    return text.str();
}

std::string callException(void* exception) {
    auto& slots = as<ExceptionSlots>(exception);
    slots.reportErrors("nobody asked for reports");
    std::ostringstream text;
    text << slots.what() << ' ' << static_cast<char const*>(slots) << ' ' << slots.get_kind() << ' '
         << slots.asKernelException();
    return text.str();
}

} // namespace kivo::test
