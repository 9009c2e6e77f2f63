#pragma once

#include <configuration/ConfigurationException.h>

#include <string>

namespace kivo::configuration {

/// A fault about a name that nothing has. Whoever reports it can look for the name that was meant.
class UnknownName final : public ConfigurationException {
public:
    /// What should have the name.
    enum class Kind { ELEMENT, VALUE_TYPE, ENUMERATION, PARAMETER, GROUP };

    UnknownName(Kind kind, char const* name, ConfigurationException const& message)
        : ConfigurationException(message), mKind(kind), mName(name) {}

    Kind getKind() const { return mKind; }
    std::string const& getName() const { return mName; }

    /// Whether the name refers to something that another declaration would make.
    bool isReference() const { return mKind != Kind::ELEMENT && mKind != Kind::VALUE_TYPE; }

private:
    Kind mKind;
    std::string mName;
};

} // namespace kivo::configuration
