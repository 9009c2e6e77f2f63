#pragma once

#include "registry/xml/XmlDocument.h"

#include <array>
#include <optional>
#include <string>

namespace kivo::configuration {

/// The attributes of a registry file's elements.
enum class RegistryAttribute {
    ID,
    NAME,
    DESCRIPTION,
    TYPE,
    VALUE_NAME,
    DEFAULT,
    VALIDATOR,
    ENUM_TYPE,
    OPTIONAL,
    UNBOUNDED,
    HIDDEN,
    LABEL,
    VALUE
};

/// The attributes of one element, looked through once, whatever is asked for afterwards. To be used while the document
/// lives.
class ElementReader {
public:
    explicit ElementReader(XmlElement const& element);

    /// The text of an attribute that must be there; it may be empty.
    /// @throws ConfigurationException "Expected attribute \"<name>\" was not found"
    std::string getRequired(RegistryAttribute attribute) const;

    /// The text of an attribute, or nothing when it is absent.
    std::optional<std::string> getOptional(RegistryAttribute attribute) const;

    /// Whether an attribute says true: "true" in any letter case, or "1"; nothing when it is absent.
    std::optional<bool> getFlag(RegistryAttribute attribute) const;

private:
    static constexpr std::size_t ATTRIBUTE_COUNT = static_cast<std::size_t>(RegistryAttribute::VALUE) + 1;

    /// Null: absent.
    std::array<char const*, ATTRIBUTE_COUNT> mTexts{};
};

/// The text as arguments take it: null for nothing.
inline char const* textOrNull(std::optional<std::string> const& text) { return text ? text->c_str() : nullptr; }

/// Whether an element has a name, namespace prefixes left aside.
bool isNamed(XmlElement const& element, char const* name);

/// @throws ConfigurationException "Expected \"<name>\" tag was not found" for null,
///         "Expected \"<name>\" tag but found \"<found>\""
void validateTagName(XmlElement const* element, char const* name);

/// Calls `read` with each child element, in their order.
template <class Read>
void forEachChild(XmlElement const& element, Read read) {
    for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        read(*child);
    }
}

} // namespace kivo::configuration
