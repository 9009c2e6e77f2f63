#include "dump/DumpedFile.h"

#include "settings/CommentedValue.h"
#include "text/CodePage.h"
#include "text/Xml.h"

#include <configuration/Parameter.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

constexpr std::size_t WIDTH = 100;
constexpr std::size_t STEP = 4; // of the indentation

std::string textOf(DumpedSetting const& setting, unsigned long index) {
    return toUtf8(setting.value->getValue(index, false));
}

class FileWriter {
public:
    explicit FileWriter(std::ostream& out) : mOut(out) {}

    void writeSection(DumpedSection const& section, std::string const& indent) {
        auto const id = toUtf8(section.group->getId());
        bool const isComment = section.use == Use::COMMENT;
        char const* const before = isComment ? "<!-- <" : "<";
        char const* const after = isComment ? "> -->\n" : ">\n";
        bool const isEmpty = std::ranges::none_of(section.settings, isContent) &&
                             std::ranges::all_of(section.sections, isLeftOut, &DumpedSection::use);
        mOut << indent << before << id << attributesOf(section, indent + std::string(id.size() + 2, ' '))
             << (isEmpty ? "/" : "") << after;
        if (isEmpty) {
            return;
        }
        auto const inside = indent + std::string(STEP, ' ');
        for (auto const& setting : section.settings) {
            writeSetting(setting, inside);
        }
        for (auto const& inner : section.sections) {
            if (!isLeftOut(inner.use)) {
                writeSection(inner, inside);
            }
        }
        mOut << indent << before << '/' << id << after;
    }

private:
    static bool isLeftOut(Use use) { return use == Use::LEFT_OUT; }
    static bool isAttribute(DumpedSetting const& setting) { return setting.use == Use::VALUE && !setting.isDirect; }
    static bool isContent(DumpedSetting const& setting) { return !isLeftOut(setting.use) && !isAttribute(setting); }

    /// On the line of the element's name, if they fit.
    static std::string attributesOf(DumpedSection const& section, std::string const& margin) {
        std::vector<std::string> attributes;
        std::size_t width = margin.size();
        for (auto const& setting : section.settings) {
            if (isAttribute(setting)) {
                auto const id = toUtf8(setting.getParameter().getId());
                attributes.push_back(id + "=\"" + xmlEscaped(textOf(setting, 0)) + '"');
                width += attributes.back().size() + 1;
            }
        }
        std::string text;
        for (auto const& attribute : attributes) {
            bool const isOnNewLine = width > WIDTH && !text.empty();
            text.append(isOnNewLine ? '\n' + margin : " ").append(attribute);
        }
        return text;
    }

    void writeSetting(DumpedSetting const& setting, std::string const& indent) {
        auto const id = toUtf8(setting.getParameter().getId());
        if (setting.use == Use::COMMENT) {
            mOut << indent << commentedValue(id, setting.isDirect, textOf(setting, 0)) << '\n';
        } else if (setting.use == Use::VALUE && setting.isDirect) {
            for (unsigned long i = 0; i < setting.value->getNumberOfValues(); ++i) {
                mOut << indent << '<' << id << " value=\"" << xmlEscaped(textOf(setting, i)) << "\"/>\n";
            }
        }
    }

    std::ostream& mOut;
};

} // namespace

void writeFile(std::ostream& out, DumpedSection const& specification) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!-- Defaults stand in comments; one \"in the start tag\" is an attribute of the tag around it. -->\n";
    FileWriter(out).writeSection(specification, "");
}

} // namespace kivoconfig
