#pragma once

#include <configuration/ParameterVisitor.h>

#include <sstream>
#include <string>

namespace kivo::configuration {

/// Writes the help text of a specification, whose root group accepts it: a name column and a description column with an
/// entry for each parameter, in the order of the schema. Hidden parameters are left out. Serves one text. Reads only.
class HelpVisitor final : public ParameterVisitor {
public:
    /// @param screenWidth           characters of the whole; lines are one character shorter, and not padded beyond
    ///                              the 65,535 columns that a terminal can have
    /// @param maxParameterNameWidth upper limit of the name column
    HelpVisitor(unsigned long screenWidth, unsigned long maxParameterNameWidth);

    bool visitGroupStart(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    /// The text written so far.
    std::string getHelp() const;

private:
    std::ostringstream mText;
    unsigned long mScreenWidth;
    unsigned long mMaxParameterNameWidth;
    unsigned long mNameColumnWidth = 0;
    unsigned long mDescriptionColumnWidth = 0;
    bool mColumnsAreFixed = false;
};

} // namespace kivo::configuration
