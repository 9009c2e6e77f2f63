#include "kernel/kvProcessInit.h"

#include "text/RepresentationPrinter.h"

#include <algorithm>
#include <locale>

namespace kivo::configuration {

RepresentationPrinter::RepresentationPrinter() { mText.imbue(std::locale::classic()); }

std::string RepresentationPrinter::getRepresentation() const { return mText.str(); }

std::string RepresentationPrinter::createIndentString(int depth) {
    return std::string(2 * static_cast<std::size_t>(std::max(depth, 0)), ' ');
}

void RepresentationPrinter::indent() { mText << mIndent; }

void RepresentationPrinter::printNewLine() { mText << '\n'; }

void RepresentationPrinter::enterScope(char const* text) {
    indent();
    mText << text;
    printNewLine();
    mIndent = createIndentString(static_cast<int>(++mDepth));
}

void RepresentationPrinter::leaveScope(char const* text) {
    mDepth -= mDepth > 0 ? 1 : 0;
    mIndent = createIndentString(static_cast<int>(mDepth));
    indent();
    mText << text;
    printNewLine();
}

void RepresentationPrinter::printKey(char const* key) {
    indent();
    mText << (key ? key : "<<null>>") << ": ";
}

void RepresentationPrinter::printStringValue(char const* value) {
    if (value) {
        mText << '"' << value << '"';
    } else {
        printLiteralValue(nullptr);
    }
}

void RepresentationPrinter::printLiteralValue(char const* value) { mText << (value ? value : "null"); }

void RepresentationPrinter::printBoolValue(bool value) { printLiteralValue(value ? "true" : "false"); }

// The stream may be left in hexadecimal by a pointer.
void RepresentationPrinter::printIntValue(int value) { mText << std::dec << value; }

void RepresentationPrinter::printUIntValue(unsigned int value) { mText << std::dec << value; }

void RepresentationPrinter::printDoubleValue(double value) { mText << std::fixed << value; }

void RepresentationPrinter::printPointerValue(void const* value) { mText << std::hex << value; }

void RepresentationPrinter::printKeyStringValue(char const* key, char const* value) {
    printKey(key);
    printStringValue(value);
    printNewLine();
}

void RepresentationPrinter::printKeyLiteralValue(char const* key, char const* value) {
    printKey(key);
    printLiteralValue(value);
    printNewLine();
}

void RepresentationPrinter::printKeyBoolValue(char const* key, bool value) {
    printKey(key);
    printBoolValue(value);
    printNewLine();
}

void RepresentationPrinter::printKeyIntValue(char const* key, int value) {
    printKey(key);
    printIntValue(value);
    printNewLine();
}

void RepresentationPrinter::printKeyUIntValue(char const* key, unsigned int value) {
    printKey(key);
    printUIntValue(value);
    printNewLine();
}

void RepresentationPrinter::printKeyDoubleValue(char const* key, double value) {
    printKey(key);
    printDoubleValue(value);
    printNewLine();
}

void RepresentationPrinter::printKeyPointerValue(char const* key, void const* value) {
    printKey(key);
    printPointerValue(value);
    printNewLine();
}

} // namespace kivo::configuration
