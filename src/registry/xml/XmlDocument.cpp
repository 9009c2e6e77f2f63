#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlDocument.h"

#include <algorithm>
#include <functional>

namespace kivo::configuration {

namespace {

bool isWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// The first character at or after a place that is as required. The text is known to have one.
template <class Predicate>
char const* find(char const* place, Predicate isSought) {
    while (!isSought(*place)) {
        ++place;
    }
    return place;
}

} // namespace

XmlPosition XmlDocument::getPosition(XmlElement const& element) const {
    return mText ? getPlaces().getPosition(element.mPlace) : XmlPosition{element.mPlace, 0};
}

XmlPosition XmlDocument::getPosition(XmlElement const& element, XmlAttribute const& attribute) const {
    if (!mText) {
        return getPosition(element);
    }
    if (mAttributePositionsOf != &element) {
        findAttributes(element);
    }
    return mAttributePositions[static_cast<std::size_t>(&attribute - element.mAttributes)];
}

XmlPlaces& XmlDocument::getPlaces() const {
    if (!mPlaces) {
        mPlaces.emplace(std::string_view(mText.get(), mTextSize));
    }
    return *mPlaces;
}

/// In the order of the text, which is well-formed, not in that of the attributes.
void XmlDocument::findAttributes(XmlElement const& element) const {
    auto const attributes = element.getAttributes();
    auto const nameOf = [](XmlAttribute const& attribute) { return std::string_view(attribute.name); };
    auto& places = getPlaces();
    mAttributePositionsOf = nullptr;
    mAttributePositions.resize(attributes.size());
    auto const* place = find(mText.get() + element.mPlace, isWhiteSpace); // after the element's name
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        place = find(place, std::not_fn(isWhiteSpace));
        auto const* const end = find(place, [](char c) { return isWhiteSpace(c) || c == '='; });
        auto const found = std::ranges::lower_bound(attributes, std::string_view(place, end), std::less<>(), nameOf);
        mAttributePositions[static_cast<std::size_t>(found - attributes.begin())] =
            places.getPosition(static_cast<std::size_t>(place - mText.get()));
        auto const* const quote = find(end, [](char c) { return c == '"' || c == '\''; });
        place = find(quote + 1, [quote](char c) { return c == *quote; }) + 1;
    }
    mAttributePositionsOf = &element;
}

} // namespace kivo::configuration
