#pragma once

#include <configuration/Export.h>

#include <memory>

namespace kivo::configuration {

/// The labels that an enumeration parameter accepts, each standing for a number.
///
/// Register it with Manager::registerEnumDefinition(), which takes ownership. Filled on one thread, then read by any.
class KIVO_CONFIGURATION_API ParameterEnumDefinition {
public:
    /// A definition without labels.
    /// @throws kivo::ContractViolationException "name != 0 && strlen(name) > 0"
    explicit ParameterEnumDefinition(char const* name);
    ~ParameterEnumDefinition();

    /// The key of the definition; letter case is ignored. Lives as long as the definition.
    char const* getName() const;
    /// Adds a label. A label that is there already keeps its first number. Several labels may share a number.
    /// @param symbol the label, told apart from others by letter case; null counts as the empty label
    /// @param value  its number
    void addEnumValue(char const* symbol, int value);
    /// The number of a label, which must match exactly, letter case included. Null is no label.
    /// @throws ConfigurationException "symbol \"<symbol>\" was not found"
    int getValue(char const* symbol) const;
    /// The number of different labels.
    unsigned long getNumberOfSymbols() const;
    /// The label at a position, counted from 0 in the order of addition. Lives as long as the definition.
    /// @throws kivo::ContractViolationException "index < getNumberOfSymbols()"
    char const* getSymbol(unsigned long index) const;

    ParameterEnumDefinition(ParameterEnumDefinition const&) = delete;
    ParameterEnumDefinition& operator=(ParameterEnumDefinition const&) = delete;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
