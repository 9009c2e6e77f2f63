// Writes a values file to start from: every setting explained, none given.

#include "Commands.h"
#include "Installation.h"
#include "settings/CommentedValue.h"
#include "settings/SettingTexts.h"
#include "settings/TypeTable.h"
#include "settings/ValuesFileNames.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/WordWrap.h"
#include "text/Xml.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/Specification.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

constexpr std::size_t WIDTH = 100;

char const* const INSTRUCTION =
    "Nothing is given yet. To give a setting, take its element out of the comment; in a section, the section's tags as "
    "well. What is marked \"in the start tag\" can only be an attribute: copy it into the start tag around it.";

/// A number within the bounds: the default, even where it does not apply, or a bound.
char const* numberWithin(Parameter const& parameter) {
    char const* const minimum = parameter.getMinimum();
    char const* const bound = minimum ? minimum : parameter.getMaximum();
    auto const* const standard = bound && !parameter.isSensitive() ? parameter.getDefaultValue() : nullptr;
    char const* const text = standard ? standard->getValue(0, true) : nullptr;
    return text && *text != '\0' ? text : bound;
}

/// A text of the setting's type: its default, where that is one. A secret default is not shown.
std::string exampleOf(Setting const& setting) {
    auto const& parameter = setting.parameter;
    auto const labels = labelsOf(parameter);
    auto const text = parameter.isSensitive() ? std::nullopt : setting.defaultText;
    if (!labels.empty()) {
        return text && std::ranges::find(labels, *text) != labels.end() ? *text : labels.front();
    }
    if (text) {
        return *text;
    }
    if (char const* const number = numberWithin(parameter)) {
        return toUtf8(number);
    }
    auto const* const example = rowOf(parameter.getValueType()).example;
    auto const valueName = valueNameOf(parameter);
    return example ? example : (valueName.empty() ? "text" : valueName);
}

class TemplateWriter final : public SettingsWalk {
public:
    explicit TemplateWriter(std::ostream& out) : mOut(out) {}

private:
    bool onSectionStart(ParameterGroup const& section) override {
        auto const id = toUtf8(section.getId());
        if (getDepth() == 0) {
            writeComment(id + ": " + descriptionOf(section), INSTRUCTION);
            mOut << '<' << id << ">\n";
        } else if (isXmlName(id)) {
            mOut << '\n';
            writeComment(id + ": " + descriptionOf(section), factsOfSection(section));
            mOut << indent() << "<!-- <" << id << "> -->\n";
        } else {
            writeUnnameable(section);
            return false;
        }
        mIndent += 4;
        return true;
    }

    void onSectionEnd(ParameterGroup const& section) override {
        mIndent -= 4;
        auto const tag = "</" + toUtf8(section.getId()) + '>';
        if (getDepth() == 0) {
            mOut << '\n' << tag << '\n';
        } else {
            mOut << '\n' << indent() << "<!-- " << tag << " -->\n";
        }
    }

    void onSetting(Setting const& setting) override {
        auto const& parameter = setting.parameter;
        if (parameter.isHidden() || (getDepth() == 0 && isAboutHelp(parameter))) {
            return;
        }
        auto const id = toUtf8(parameter.getId());
        if (!isXmlName(id)) {
            writeUnnameable(parameter);
            return;
        }
        mOut << '\n';
        writeComment(id + ": " + descriptionOf(parameter), factsOf(setting));
        mOut << indent() << commentedValue(id, setting.isDirect, exampleOf(setting)) << '\n';
    }

    void writeUnnameable(ParameterItem const& item) {
        mOut << '\n';
        writeComment(printable(toUtf8(item.getId())) + ": " + descriptionOf(item),
                     "A values file cannot give it: its id is no XML name.");
    }

    /// A comment of two paragraphs.
    void writeComment(std::string const& first, std::string const& second) {
        auto const margin = indent() + "     ";
        auto lead = indent() + "<!-- ";
        for (auto const* paragraph : {&first, &second}) {
            for (auto const& line : wrapWords(xmlCommented(*paragraph), widthBeside(margin))) {
                mOut << (lead.empty() ? '\n' + margin : lead) << line;
                lead.clear();
            }
        }
        mOut << " -->\n";
    }

    /// What a margin and the end of a comment leave of a line. Deep inside, lines become longer rather than short.
    static std::size_t widthBeside(std::string const& margin) {
        return std::max<std::size_t>(WIDTH / 2,
                                     WIDTH - std::min(WIDTH, margin.size() + std::string_view(" -->").size()));
    }

    std::string indent() const { return std::string(mIndent, ' '); }

    std::ostream& mOut;
    std::size_t mIndent = 0;
};

} // namespace

Work prepareTemplate(CommandOptions& options, Call& call) {
    addSpecification(options, call);
    return [&call] {
        auto const& specification = findSpecification(call.specification);
        requireValuesFiles(specification);
        call.out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        TemplateWriter(call.out).walk(specification);
        return NO_ERROR_FOUND;
    };
}

} // namespace kivoconfig
