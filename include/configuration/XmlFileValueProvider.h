#pragma once

#include <configuration/Export.h>
#include <configuration/ValueProvider.h>

#include <memory>

namespace kivo::configuration {

/// The values of one XML file.
///
/// The document element stands for a specification's root group and is named by its id; a nested element stands for a
/// container; an attribute gives a parameter its value. A parameter that takes several values is written as repeated
/// elements named by its id, each with an attribute `value`; these are rewritten once, for the specification that is
/// asked for first.
class KIVO_CONFIGURATION_API XmlFileValueProvider : public ValueProvider {
public:
    /// See ValueProvider.
    explicit XmlFileValueProvider(int priority);
    ~XmlFileValueProvider() override;

    /// Manager::XML_FILE_PROVIDER_NAME.
    char const* getName() const override;
    /// As ValueProvider.
    /// @throws ConfigurationException "\"<element>\" is not a valid parameter": an element that names a parameter has
    ///         no attribute `value`
    bool getValues(Specification const* specification, ParameterValueGroup& result, int flags) override;
    void reset() override;
    using ValueProvider::setArguments;
    /// Reads a file. Warnings go to the kernel's main log. When the file is refused, the values read before stay.
    /// @param argument path of the file
    /// @param flags    not used
    /// @throws kivo::ContractViolationException "argument != 0"
    /// @throws ConfigurationParameterException "XML ERROR: …", one line for each fault of the file
    void setArguments(char const* argument, int flags) override;
    /// Reads the file named by the first argument; the others are ignored.
    /// @throws ConfigurationException "Must provide at least one argument"
    /// @throws kivo::ContractViolationException "argv != 0", "argument != 0"
    void setArguments(int argc, char const* const* argv, int flags) override;

    /// Whether the repeated elements of the file have become values.
    KIVO_CONFIGURATION_LOCAL bool isFixed() const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
