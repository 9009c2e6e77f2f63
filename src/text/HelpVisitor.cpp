#include "kernel/kvProcessInit.h"

#include "text/HelpVisitor.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "text/MaxParameterNameLengthVisitor.h"
#include "text/ValuePlaceholder.h"
#include "text/WordWrap.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

char const* const BREAK_CHARACTERS = " /\\";
constexpr unsigned long NAME_CONTINUATION_INDENT = 3;
/// As many columns as a terminal can have. Lines are not padded beyond them: a caller may use a huge width for
/// "unlimited".
constexpr unsigned long WIDEST_PADDING = 65535;

std::stringstream wrapToColumn(std::string const& text, unsigned long columnWidth, unsigned long indent) {
    std::stringstream column;
    wordWrap(column, text, 0, roomBeside(1, columnWidth), indent, BREAK_CHARACTERS);
    return column;
}

/// The next line of a column; empty when there is none left.
std::string nextLine(std::istream& column) {
    std::string line;
    std::getline(column, line);
    return line;
}

void writePadded(std::ostream& text, std::string const& line, unsigned long width) {
    text << line << std::string(roomBeside(line.size(), std::min(width, WIDEST_PADDING)), ' ');
}

} // namespace

HelpVisitor::HelpVisitor(unsigned long screenWidth, unsigned long maxParameterNameWidth)
    : mScreenWidth(screenWidth), mMaxParameterNameWidth(maxParameterNameWidth) {}

bool HelpVisitor::visitGroupStart(ParameterGroup const& group) {
    if (!mColumnsAreFixed) {
        MaxParameterNameLengthVisitor names;
        group.accept(names);
        mNameColumnWidth = std::min(names.getMaximum() + 2, mMaxParameterNameWidth);
        mDescriptionColumnWidth = roomBeside(mNameColumnWidth + 1, mScreenWidth);
        mColumnsAreFixed = true;
    }
    return true;
}

bool HelpVisitor::visitParameter(Parameter const& parameter) {
    if (parameter.isHidden()) {
        return true;
    }
    auto const name = std::string("-") + parameter.getName() + valuePlaceholder(parameter);
    auto names = wrapToColumn(name, mNameColumnWidth, NAME_CONTINUATION_INDENT);
    auto descriptions = wrapToColumn(parameter.getDescription(), mDescriptionColumnWidth, 0);
    // Each column ends with a line feed, so an empty line after it means that nothing is left of it. An empty line in
    // the description ends the entry, too, unless lines of the name are left.
    for (;;) {
        auto const nameLine = nextLine(names);
        auto const descriptionLine = nextLine(descriptions);
        if (nameLine.empty() && descriptionLine.empty()) {
            return true;
        }
        writePadded(mText, nameLine, mNameColumnWidth);
        writePadded(mText, descriptionLine, mDescriptionColumnWidth);
        mText << '\n';
    }
}

std::string HelpVisitor::getHelp() const { return mText.str(); }

} // namespace kivo::configuration
