#pragma once

#include <xercesc/dom/DOMElement.hpp>

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

/// The attributes of one element, looked through once, whatever is asked for afterwards: each step through a document
/// costs more than converting the text that it finds. To be used while the document lives.
class ElementReader {
public:
    explicit ElementReader(xercesc::DOMElement const& element);

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
    std::array<XMLCh const*, ATTRIBUTE_COUNT> mTexts{};
};

/// The text as arguments take it: null for nothing.
inline char const* textOrNull(std::optional<std::string> const& text) { return text ? text->c_str() : nullptr; }

/// Whether an element has a name, namespace prefixes left aside.
bool isNamed(xercesc::DOMElement const& element, char const* name);

/// The name of an element, without its namespace prefix.
std::string getName(xercesc::DOMElement const& element);

/// @throws ConfigurationException "Expected \"<name>\" tag was not found" for null,
///         "Expected \"<name>\" tag but found \"<found>\""
void validateTagName(xercesc::DOMElement const* element, char const* name);

/// Calls `read` with each child element, in their order.
template <class Read>
void forEachChild(xercesc::DOMElement const& element, Read read) {
    for (auto const* child = element.getFirstElementChild(); child; child = child->getNextElementSibling()) {
        read(*child);
    }
}

} // namespace kivo::configuration
