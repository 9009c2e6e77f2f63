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
    /// @param place an index of the text that finish() is given, or a number of a line when it is given none
    void startElement(std::string_view name, std::size_t place, std::size_t attributeCount);

    /// Gives the element that was opened last its next attribute.
    /// @param number the attribute's in the order of the text, if it is known
    void addAttribute(std::string_view name, std::string_view value, std::uint32_t number = 0);

    /// Closes the element that is open.
    void endElement();

    /// The number of different names seen, of elements and attributes together.
    std::size_t getNumberOfNames() const { return mNames.size(); }

    /// The number of elements that are open.
    std::size_t getDepth() const { return mOpen.size(); }

    /// The document, once its last element is closed. Nothing can be added then.
    /// @param text what the document was read from, where that is UTF-8 and at hand
    XmlDocument finish(std::unique_ptr<char[]> text = nullptr, std::size_t textSize = 0);

private:
    struct OpenElement {
        XmlElement* element;
        XmlElement* lastChild;
    };

    void append(XmlElement& element);
    std::string_view keepName(std::string_view name);
    char const* copy(std::string_view text);
    template <class T>
    T* allocate(std::size_t count);

    XmlDocument mDocument;
    std::vector<OpenElement> mOpen;
    /// Each name is kept once.
    std::unordered_set<std::string_view> mNames;
};

} // namespace kivo::configuration
