#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kivoconfig {

/// Writes an XML document, an element a line, indented. Texts are UTF-8, and escaped here.
class XmlWriter {
public:
    using Attributes = std::vector<std::pair<char const*, std::string>>;

    /// Writes the XML declaration.
    explicit XmlWriter(std::ostream& out);

    /// Comments are wrapped at the width of a page.
    void comment(std::string_view printableText);
    void open(char const* name, Attributes const& attributes = {});
    void close();
    /// An element without content.
    void empty(char const* name, Attributes const& attributes);
    /// An element that holds a text, its paragraphs wrapped at the width of a page.
    void text(char const* name, std::vector<std::string> const& printableParagraphs);
    /// Markup that is XML already, as a line.
    void markup(std::string_view line);

private:
    void writeTag(char const* name, Attributes const& attributes, char const* end);
    std::string indent() const;

    std::ostream& mOut;
    std::vector<char const*> mOpen;
};

} // namespace kivoconfig
