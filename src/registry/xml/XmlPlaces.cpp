#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlPlaces.h"

#include <algorithm>
#include <functional>

namespace kivo::configuration {

namespace {

constexpr std::size_t MARK_DISTANCE = 1024;
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

bool beginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

} // namespace

XmlPlaces::XmlPlaces(std::string_view text)
    : mText(text), mFront{text.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0, {1, 1}}, mMarks{mFront} {}

XmlPosition XmlPlaces::getPosition(std::size_t place) {
    if (place < mFront.place) {
        auto mark = *(std::ranges::upper_bound(mMarks, place, std::less<>(), &Mark::place) - 1);
        advance(mark, place);
        return mark.position;
    }
    while (place - mMarks.back().place >= MARK_DISTANCE) {
        advance(mFront, mMarks.back().place + MARK_DISTANCE);
        mMarks.push_back(mFront);
    }
    advance(mFront, place);
    return mFront.position;
}

void XmlPlaces::advance(Mark& mark, std::size_t place) const {
    auto [line, column] = mark.position;
    for (auto i = mark.place; i < place; ++i) {
        auto const c = mText[i];
        column += beginsCharacter(c);
        if (c == '\n' || (c == '\r' && !mText.substr(i + 1).starts_with('\n'))) {
            ++line;
            column = 1;
        }
    }
    mark = {place, {line, column}};
}

} // namespace kivo::configuration
