#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlDocument.h"

#include <cstring>
#include <functional>

namespace kivo::configuration {

namespace {

/// No other control character stands in a document.
bool isWhiteSpace(char c) { return static_cast<unsigned char>(c) <= ' '; }

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
    return mText ? positionOf(mText.get() + element.mPlace) : XmlPosition{element.mPlace, 0};
}

XmlPosition XmlDocument::getPosition(XmlElement const& element, XmlAttribute const& attribute) const {
    if (!mText) {
        return getPosition(element);
    }
    auto const* place = firstAttribute(element);
    for (std::uint32_t i = 0; i < attribute.number; ++i) {
        place = nextAttribute(place);
    }
    return positionOf(place);
}

std::vector<XmlPosition> XmlDocument::getAttributePositions(XmlElement const& element) const {
    std::vector<XmlPosition> positions(element.mAttributeCount, getPosition(element));
    if (mText && !positions.empty()) {
        auto const* place = firstAttribute(element);
        for (auto& position : positions) {
            position = positionOf(place);
            place = &position == &positions.back() ? place : nextAttribute(place);
        }
    }
    return positions;
}

XmlPosition XmlDocument::positionOf(char const* place) const {
    if (!mPlaces) {
        mPlaces.emplace(std::string_view(mText.get(), mTextSize));
    }
    return mPlaces->getPosition(static_cast<std::size_t>(place - mText.get()));
}

/// The text is well-formed, here and below.
char const* XmlDocument::firstAttribute(XmlElement const& element) const {
    auto const* const nameEnd = find(mText.get() + element.mPlace, isWhiteSpace);
    return find(nameEnd, std::not_fn(isWhiteSpace));
}

char const* XmlDocument::nextAttribute(char const* place) const {
    auto const after = [this](char c, char const* from) {
        auto const rest = static_cast<std::size_t>(mText.get() + mTextSize - from);
        return static_cast<char const*>(std::memchr(from, c, rest)) + 1;
    };
    auto const* const quote = find(after('=', place), std::not_fn(isWhiteSpace));
    return find(after(*quote, quote + 1), std::not_fn(isWhiteSpace));
}

} // namespace kivo::configuration
