#include "kernel/kvProcessInit.h"

#include "text/WordWrap.h"

#include <algorithm>
#include <string>

namespace kivo::configuration {

namespace {

constexpr std::string_view LINE_ENDS = "\r\n";
constexpr std::string_view WHITE_SPACE = " \t\n\r\v\f";
constexpr auto NONE = std::string_view::npos;

/// Cuts the line at the beginning of what is left of a text that is longer than the line.
class LineCutter {
public:
    LineCutter(std::string_view text, std::string_view breakCharacters)
        : mText(text), mBreakCharacters(breakCharacters), mFirstBreak(text.find_first_of(breakCharacters)) {}

    /// The length of the line, at least 1.
    std::size_t lineLength(std::size_t position, std::size_t lineWidth) const {
        auto const end = breakPosition(position, lineWidth);
        return end > position ? end - position : lineWidth;
    }

private:
    /// Where the line ends; only a place after `position` can end it. Looks no farther than the line reaches, so that
    /// a long text is not searched again for every line.
    std::size_t breakPosition(std::size_t position, std::size_t lineWidth) const {
        auto const reach = mText.substr(position, lineWidth + 1);
        if (auto const lineEnd = reach.find_first_of(LINE_ENDS); lineEnd != NONE) {
            return position + lineEnd;
        }
        if (auto const lastBreak = reach.find_last_of(mBreakCharacters); lastBreak != NONE) {
            return position + lastBreak;
        }
        // A break before this line counts as the last one. Without any, the width is counted from the text's beginning.
        return mFirstBreak < position ? mFirstBreak : lineWidth;
    }

    std::string_view mText;
    std::string_view mBreakCharacters;
    std::size_t mFirstBreak;
};

} // namespace

void wordWrap(std::ostream& output, std::string_view text, unsigned long start, unsigned long width,
              unsigned long indent, std::string_view breakCharacters) {
    auto lineWidth = std::max(1UL, roomBeside(start, width));
    auto const continuationWidth = std::max(1UL, roomBeside(indent, lineWidth));
    std::string const prefix(indent + start, ' ');
    LineCutter const cutter(text, breakCharacters);

    std::size_t position = 0;
    while (text.size() - position > lineWidth) {
        auto const length = cutter.lineLength(position, lineWidth);
        output << text.substr(position, length) << '\n' << prefix;
        position += length;
        if (WHITE_SPACE.find(text[position]) != NONE) {
            ++position;
        }
        lineWidth = continuationWidth;
    }
    output << text.substr(position) << '\n';
}

} // namespace kivo::configuration
