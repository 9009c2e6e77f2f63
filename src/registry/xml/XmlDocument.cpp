#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlDocument.h"

#include <algorithm>
#include <functional>

namespace kivo::configuration {

namespace {

constexpr std::string_view WHITE_SPACE = " \t\r\n";

/// Where each attribute's name begins, in the order of the attributes. The text is known to be well-formed.
/// @param place where the element's "<" is
std::vector<std::size_t> findAttributes(std::string_view text, std::size_t place,
                                        std::span<XmlAttribute const> attributes) {
    std::vector<std::size_t> places(attributes.size());
    auto const nameOf = [](XmlAttribute const& attribute) { return std::string_view(attribute.name); };
    place = text.find_first_of(WHITE_SPACE, place); // after the element's name
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        place = text.find_first_not_of(WHITE_SPACE, place);
        auto const name = text.substr(place, text.find_first_of(" \t\r\n=", place) - place);
        auto const isInOrder = name == nameOf(attributes[i]); // as most are written
        auto const found = isInOrder ? attributes.begin() + static_cast<std::ptrdiff_t>(i)
                                     : std::ranges::lower_bound(attributes, name, std::less<>(), nameOf);
        places[static_cast<std::size_t>(found - attributes.begin())] = place;
        auto const quote = text.find_first_of("\"'", place);
        place = text.find(text[quote], quote + 1) + 1;
    }
    return places;
}

} // namespace

XmlPosition XmlDocument::getPosition(XmlElement const& element) const {
    return mText ? getPositionInText(element.mPlace) : XmlPosition{element.mPlace, 0};
}

XmlPosition XmlDocument::getPosition(XmlElement const& element, XmlAttribute const& attribute) const {
    if (!mText) {
        return getPosition(element);
    }
    if (mAttributePlacesOf != &element) {
        mAttributePlaces = findAttributes({mText.get(), mTextSize}, element.mPlace, element.getAttributes());
        mAttributePlacesOf = &element;
    }
    return getPositionInText(mAttributePlaces[static_cast<std::size_t>(&attribute - element.mAttributes)]);
}

XmlPosition XmlDocument::getPositionInText(std::size_t place) const {
    if (!mPlaces) {
        mPlaces.emplace(std::string_view(mText.get(), mTextSize));
    }
    return mPlaces->getPosition(place);
}

} // namespace kivo::configuration
