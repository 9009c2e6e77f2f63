#pragma once

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <span>

namespace kivo::configuration {

/// An attribute of an element, its name as written, prefix included. Both texts are in the local code page.
struct XmlAttribute {
    char const* name;
    char const* value;
};

/// An element of an XmlDocument, which owns it and all that it points to.
class XmlElement {
public:
    /// As written, prefix included, in the local code page.
    char const* getName() const { return mName; }

    /// The name without its prefix.
    char const* getLocalName() const { return mName + mPrefixLength; }

    /// Sorted by their names, as UTF-16 code units compare.
    std::span<XmlAttribute const> getAttributes() const { return {mAttributes, mAttributeCount}; }

    /// The first element inside this one, or null.
    XmlElement const* getFirstChild() const { return mFirstChild; }

    /// The next element inside the same one, or null.
    XmlElement const* getNextSibling() const { return mNextSibling; }

private:
    friend class XmlDocumentBuilder;

    char const* mName = nullptr;
    std::uint32_t mPrefixLength = 0;
    std::uint32_t mAttributeCount = 0;
    XmlAttribute* mAttributes = nullptr;
    XmlElement* mFirstChild = nullptr;
    XmlElement* mNextSibling = nullptr;
};

/// The elements and attributes of an XML file, whoever read it. Texts, comments and processing instructions are not
/// kept: no file of the library gives them a meaning.
class XmlDocument {
public:
    XmlElement const& getRoot() const { return *mRoot; }

private:
    friend class XmlDocumentBuilder;

    std::unique_ptr<std::pmr::monotonic_buffer_resource> mArena;
    XmlElement const* mRoot = nullptr;
};

} // namespace kivo::configuration
