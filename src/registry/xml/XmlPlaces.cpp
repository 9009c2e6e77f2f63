#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlPlaces.h"

#include <algorithm>
#include <functional>

namespace kivo::configuration {

namespace {

constexpr std::size_t MARK_DISTANCE = 64; // values files ask for the position of each attribute
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

bool beginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

} // namespace

XmlPlaces::XmlPlaces(std::string_view text) : mText(text) {
    Mark current{text.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0, {1, 1}};
    mMarks.push_back(current);
    while (current.place < text.size()) {
        advance(current);
        if (current.place >= mMarks.back().place + MARK_DISTANCE) {
            mMarks.push_back(current);
        }
    }
}

XmlPosition XmlPlaces::getPosition(std::size_t place) const {
    auto mark = *(std::ranges::upper_bound(mMarks, place, std::less<>(), &Mark::place) - 1);
    while (mark.place < place) {
        advance(mark);
    }
    return mark.position;
}

/// Goes on by one byte.
void XmlPlaces::advance(Mark& mark) const {
    auto const c = mText[mark.place++];
    if (beginsCharacter(c)) {
        ++mark.position.column;
    }
    if (c == '\n' || (c == '\r' && !mText.substr(mark.place).starts_with('\n'))) {
        mark.position = {mark.position.line + 1, 1};
    }
}

} // namespace kivo::configuration
