#include "text/XmlWriter.h"

#include "text/WordWrap.h"
#include "text/Xml.h"

namespace kivoconfig {

namespace {

constexpr std::size_t WIDTH = 100;

} // namespace

XmlWriter::XmlWriter(std::ostream& out) : mOut(out) { mOut << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"; }

void XmlWriter::comment(std::string_view printableText) {
    auto lead = indent() + "<!-- ";
    for (auto const& line : wrapWords(xmlCommented(printableText), WIDTH)) {
        mOut << lead << line;
        lead = '\n' + indent() + "     ";
    }
    mOut << " -->\n";
}

void XmlWriter::open(char const* name, Attributes const& attributes) {
    writeTag(name, attributes, ">");
    mOpen.push_back(name);
}

void XmlWriter::close() {
    auto const* const name = mOpen.back();
    mOpen.pop_back();
    mOut << indent() << "</" << name << ">\n";
}

void XmlWriter::empty(char const* name, Attributes const& attributes) { writeTag(name, attributes, "/>"); }

void XmlWriter::text(char const* name, std::vector<std::string> const& printableParagraphs) {
    open(name);
    for (auto const& paragraph : printableParagraphs) {
        for (auto const& line : wrapWords(paragraph, WIDTH)) {
            mOut << indent() << xmlEscaped(line) << '\n';
        }
    }
    close();
}

void XmlWriter::markup(std::string_view line) { mOut << indent() << line << '\n'; }

void XmlWriter::writeTag(char const* name, Attributes const& attributes, char const* end) {
    mOut << indent() << '<' << name;
    for (auto const& [attribute, value] : attributes) {
        mOut << ' ' << attribute << "=\"" << xmlEscaped(value) << '"';
    }
    mOut << end << '\n';
}

std::string XmlWriter::indent() const { return std::string(2 * mOpen.size(), ' '); }

} // namespace kivoconfig
