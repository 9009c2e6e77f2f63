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

XmlPlaces::XmlPlaces(std::string_view text) : mText(text) {
    Mark current{text.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0, {1, 1}};
    mMarks.push_back(current);
    for (; current.place < text.size(); ++current.place) {
        auto const c = text[current.place];
        if (beginsCharacter(c) && current.place >= mMarks.back().place + MARK_DISTANCE) {
            mMarks.push_back(current);
        }
        current.position.column += beginsCharacter(c);
        if (c == '\n' || (c == '\r' && !text.substr(current.place + 1).starts_with('\n'))) {
            current.position = {current.position.line + 1, 1};
            mMarks.push_back({current.place + 1, current.position});
        }
    }
}

XmlPosition XmlPlaces::getPosition(std::size_t place) const {
    auto const mark = std::ranges::upper_bound(mMarks, place, std::less<>(), &Mark::place) - 1;
    auto const between = mText.substr(mark->place, place - mark->place);
    auto const characters = std::ranges::count_if(between, beginsCharacter);
    return {mark->position.line, mark->position.column + static_cast<unsigned long>(characters)};
}

} // namespace kivo::configuration
