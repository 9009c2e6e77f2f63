#pragma once

#include "registry/xml/XmlDocument.h"

#include <string_view>
#include <unordered_set>
#include <vector>

namespace kivo::configuration {

/// Makes a document, from its first start tag to its last end tag. The texts that it is given are copied.
class XmlDocumentBuilder {
public:
    XmlDocumentBuilder();

    /// Opens an element, inside the one that is open. Its attributes follow, in their final order.
    void startElement(std::string_view name, std::size_t attributeCount);

    /// Gives the element that was opened last its next attribute.
    void addAttribute(std::string_view name, std::string_view value);

    /// Closes the element that is open.
    void endElement();

    /// The number of different names seen, of elements and attributes together.
    std::size_t getNumberOfNames() const { return mNames.size(); }

    /// The number of elements that are open.
    std::size_t getDepth() const { return mOpen.size(); }

    /// The document, once its last element is closed. Nothing can be added then.
    XmlDocument finish();

private:
    struct OpenElement {
        XmlElement* element;
        XmlElement* lastChild;
    };

    void append(XmlElement& element);
    char const* keepName(std::string_view name);
    char const* copy(std::string_view text);
    template <class T>
    T* allocate(std::size_t count);

    XmlDocument mDocument;
    std::vector<OpenElement> mOpen;
    /// Each name is kept once.
    std::unordered_set<std::string_view> mNames;
};

} // namespace kivo::configuration
