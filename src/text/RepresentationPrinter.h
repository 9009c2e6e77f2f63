#pragma once

#include <sstream>
#include <string>

namespace kivo::configuration {

/// Writes indented, brace-structured text: keys with values, and scopes that are indented by two more spaces. Alike in
/// every locale.
class RepresentationPrinter {
public:
    RepresentationPrinter();

    /// The text written so far.
    std::string getRepresentation() const;

    /// The indentation at a depth; none below depth 1.
    static std::string createIndentString(int depth);

    void indent();
    void printNewLine();
    /// Writes the line that begins a scope.
    void enterScope(char const* text);
    /// Writes the line that ends the scope, indented as the one that began it. Without a scope, only writes the line.
    void leaveScope(char const* text);

    /// Begins a line. @param key null is written as such
    void printKey(char const* key);
    /// Writes a text in quotes, or null without them.
    void printStringValue(char const* value);
    /// Writes a text as it is, or null.
    void printLiteralValue(char const* value);
    void printBoolValue(bool value);
    void printIntValue(int value);
    void printUIntValue(unsigned int value);
    void printDoubleValue(double value);
    void printPointerValue(void const* value);

    /// @name Whole lines: the key, the value as above, and the line's end.
    /// @{
    void printKeyStringValue(char const* key, char const* value);
    void printKeyLiteralValue(char const* key, char const* value);
    void printKeyBoolValue(char const* key, bool value);
    void printKeyIntValue(char const* key, int value);
    void printKeyUIntValue(char const* key, unsigned int value);
    void printKeyDoubleValue(char const* key, double value);
    void printKeyPointerValue(char const* key, void const* value);
    /// @}

private:
    std::ostringstream mText;
    std::string mIndent;
    unsigned int mDepth = 0;
};

} // namespace kivo::configuration
