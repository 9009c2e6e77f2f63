#pragma once

#include "registry/xml/XmlPlaces.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// An attribute of an element, its name as written, prefix included. Both texts are in the local code page and end with
/// a NUL. The name knows its length, which most look-ups compare first: loading takes 3 % fewer instructions.
struct XmlAttribute {
    std::string_view name;
    char const* value;
    std::uint32_t number; ///< counted from 0 in the order of the text; 0 where the document does not have that
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
    friend class XmlDocument;
    friend class XmlDocumentBuilder;

    char const* mName = nullptr;
    std::uint32_t mPrefixLength = 0;
    std::uint32_t mAttributeCount = 0;
    XmlAttribute* mAttributes = nullptr;
    XmlElement* mFirstChild = nullptr;
    XmlElement* mNextSibling = nullptr;
    /// Where its "<" is in the file's text; where the document does not have that, the line in which its tag ends.
    std::size_t mPlace = 0;
};

/// The elements and attributes of an XML file, whichever parser read it. Texts, comments and processing instructions
/// are not kept: no file of the library gives them a meaning.
///
/// Used by one thread at a time, since positions are found when somebody asks for one.
class XmlDocument {
public:
    XmlElement const& getRoot() const { return *mRoot; }

    /// Where an element begins. Of a document that Xerces-C read: the line in which its start tag ends, and no column.
    XmlPosition getPosition(XmlElement const& element) const;

    /// Where the name of an attribute begins; that of its element, of a document that Xerces-C read. Looks for it from
    /// the element's beginning.
    /// @param attribute one of element.getAttributes()
    XmlPosition getPosition(XmlElement const& element, XmlAttribute const& attribute) const;

    /// The same of all attributes, by their numbers.
    std::vector<XmlPosition> getAttributePositions(XmlElement const& element) const;

private:
    friend class XmlDocumentBuilder;

    XmlPosition positionOf(char const* place) const;
    char const* firstAttribute(XmlElement const& element) const;
    char const* nextAttribute(char const* place) const;

    std::unique_ptr<std::pmr::monotonic_buffer_resource> mArena;
    XmlElement const* mRoot = nullptr;
    std::unique_ptr<char[]> mText;
    std::size_t mTextSize = 0;

    /// Made when the first position is asked for.
    mutable std::optional<XmlPlaces> mPlaces;
};

} // namespace kivo::configuration
