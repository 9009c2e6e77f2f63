#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlDocumentBuilder.h"

#include <algorithm>

namespace kivo::configuration {

XmlDocumentBuilder::XmlDocumentBuilder() { mDocument.mArena = std::make_unique<std::pmr::monotonic_buffer_resource>(); }

void XmlDocumentBuilder::startElement(std::string_view name, std::size_t place, std::size_t attributeCount) {
    auto* const element = new (allocate<XmlElement>(1)) XmlElement;
    element->mName = keepName(name).data();
    element->mPrefixLength = static_cast<std::uint32_t>(name.find(':') + 1); // 0 where there is none
    element->mAttributes = allocate<XmlAttribute>(attributeCount);
    element->mPlace = place;
    append(*element);
    mOpen.push_back({element, nullptr});
}

void XmlDocumentBuilder::addAttribute(std::string_view name, std::string_view value, std::uint32_t number) {
    auto& element = *mOpen.back().element;
    new (element.mAttributes + element.mAttributeCount) XmlAttribute{keepName(name), copy(value), number};
    ++element.mAttributeCount;
}

void XmlDocumentBuilder::endElement() { mOpen.pop_back(); }

XmlDocument XmlDocumentBuilder::finish(std::unique_ptr<char[]> text, std::size_t textSize) {
    mDocument.mText = std::move(text);
    mDocument.mTextSize = textSize;
    return std::move(mDocument);
}

void XmlDocumentBuilder::append(XmlElement& element) {
    if (mOpen.empty()) {
        mDocument.mRoot = &element;
        return;
    }
    auto& [parent, lastChild] = mOpen.back();
    (lastChild ? lastChild->mNextSibling : parent->mFirstChild) = &element;
    lastChild = &element;
}

/// @return followed by a NUL
std::string_view XmlDocumentBuilder::keepName(std::string_view name) {
    auto const found = mNames.find(name);
    return found != mNames.end() ? *found : *mNames.emplace(copy(name), name.size()).first;
}

char const* XmlDocumentBuilder::copy(std::string_view text) {
    auto* const kept = allocate<char>(text.size() + 1);
    *std::ranges::copy(text, kept).out = '\0';
    return kept;
}

template <class T>
T* XmlDocumentBuilder::allocate(std::size_t count) {
    return static_cast<T*>(mDocument.mArena->allocate(count * sizeof(T), alignof(T)));
}

} // namespace kivo::configuration
