#pragma once

#include <functional>
#include <memory>

namespace kivo::configuration {

class Parameter;

/// How parameters get into the Manager, which lets this class look at ids.
class ParameterRegistration {
public:
    /// Makes a parameter and registers it with the Manager, which owns it from then on. Nothing is registered when an
    /// exception is thrown.
    /// @param make called when the id is known to be free; sets what Parameter::Create() has no argument for
    /// @throws what Parameter::Create() throws for an id, and what `make` throws
    static Parameter* add(char const* id, std::function<std::unique_ptr<Parameter>()> const& make);
};

} // namespace kivo::configuration
