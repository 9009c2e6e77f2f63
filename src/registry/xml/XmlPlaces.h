#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// A place in a file as people count: lines and columns from 1. A line ends at LF, CR or CR LF; a column is a code
/// point, a tab one too, a byte order mark none. Column 0: not known.
struct XmlPosition {
    unsigned long line;
    unsigned long column;
};

/// Turns places in a UTF-8 text into positions. Places that are asked for in the order of the text are counted on from
/// the one before; all of them together take one look at the text.
class XmlPlaces {
public:
    /// @param text must outlive this object
    explicit XmlPlaces(std::string_view text);

    /// @param place an index of the text, of a byte that begins a character
    XmlPosition getPosition(std::size_t place);

private:
    struct Mark {
        std::size_t place;
        XmlPosition position;
    };

    void advance(Mark& mark, std::size_t place) const;

    std::string_view mText;
    /// The farthest place so far.
    Mark mFront;
    /// Places before it at a distance, so that never much has to be counted to go back.
    std::vector<Mark> mMarks;
};

} // namespace kivo::configuration
