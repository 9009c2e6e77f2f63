#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlPlaces.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>

namespace kivo::configuration {

namespace {

constexpr std::size_t MARK_DISTANCE = 1024;
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

bool beginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

std::size_t countOneByOne(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, beginsCharacter));
}

/// The number of characters that begin in a text. Eight bytes at a time where they are ASCII, as nearly all are.
std::size_t countCharacters(std::string_view text) {
    std::uint64_t block;
    std::size_t count = 0;
    for (; text.size() >= sizeof block; text.remove_prefix(sizeof block)) {
        std::memcpy(&block, text.data(), sizeof block);
        bool const isAscii = (block & 0x8080808080808080u) == 0;
        count += isAscii ? sizeof block : countOneByOne(text.substr(0, sizeof block));
    }
    return count + countOneByOne(text);
}

} // namespace

XmlPlaces::XmlPlaces(std::string_view text)
    : mText(text),
      mHasReturns(text.find('\r') != std::string_view::npos),
      mFront{text.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0, {1, 1}},
      mMarks{mFront} {}

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
    auto begin = mark.place;
    for (auto end = findLineEnd(begin, place); end < place; end = findLineEnd(begin, place)) {
        begin = end + 1;
        ++line;
        column = 1;
    }
    mark = {place, {line, column + countCharacters(mText.substr(begin, place - begin))}};
}

/// The first byte between two places that ends a line, or the second place.
std::size_t XmlPlaces::findLineEnd(std::size_t from, std::size_t to) const {
    auto const text = mText.substr(0, to);
    auto end = mHasReturns ? text.find_first_of("\r\n", from) : text.find('\n', from);
    while (end < to && mText[end] == '\r' && mText.substr(end + 1).starts_with('\n')) {
        end = text.find_first_of("\r\n", end + 1);
    }
    return std::min(end, to);
}

} // namespace kivo::configuration
