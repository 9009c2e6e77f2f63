#pragma once

#include <xercesc/framework/XMLErrorReporter.hpp>
#include <xercesc/sax/Locator.hpp>

#include <string>

namespace kivo::configuration {

/// Ends the reading of a file from within a callback of the parser, with an error at the place that the parser has
/// reached.
class InputRefuser {
public:
    /// What refuse() throws, for the caller of the parser to catch.
    struct Refused {};

    /// Both arguments must outlive this object.
    InputRefuser(xercesc::XMLErrorReporter& reporter, xercesc::Locator const& locator);

    /// @param reason why, without a period
    [[noreturn]] void refuse(std::u16string const& reason) const;

    /// A text of the file for a reason, in quotes. A long one is cut, as by the parser in errors of its own: a message
    /// is limited, and must still tell the place.
    static std::u16string quote(XMLCh const* text);

private:
    xercesc::XMLErrorReporter& mReporter;
    xercesc::Locator const& mLocator;
};

} // namespace kivo::configuration
