// Writes a manual page about the settings of a specification.

#include "Commands.h"
#include "Faults.h"
#include "Inputs.h"
#include "Installation.h"
#include "settings/SettingTexts.h"
#include "settings/TypedWords.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/Mdoc.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <memory>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

constexpr std::time_t LATEST = 253402300799; // the last second of the year 9999

/// Now, or what a build that has to give the same page again says.
std::time_t timeOfPage() {
    char const* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch) {
        return std::time(nullptr);
    }
    std::string_view const text = epoch;
    std::time_t time = 0;
    auto const [end, fault] = std::from_chars(text.begin(), text.end(), time);
    if (fault != std::errc() || end != text.end() || time < 0 || time > LATEST) {
        throw CallFault("SOURCE_DATE_EPOCH: \"" + std::string(text) + "\" is no number of seconds since 1970");
    }
    return time;
}

std::string dateOfPage() {
    auto const time = timeOfPage();
    std::tm day{};
    char month[16] = "";
    if (gmtime_r(&time, &day)) {
        std::strftime(month, sizeof(month), "%B", &day);
    }
    return std::string(month) + ' ' + std::to_string(day.tm_mday) + ", " + std::to_string(day.tm_year + 1900);
}

std::string capitals(std::string text) {
    for (char& c : text) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
    }
    return text;
}

/// The name and the placeholder of a setting, as arguments of a macro. An optional bool needs no value.
std::string nameAndValue(Parameter const& parameter, std::string const& name) {
    auto const value = valueNameOf(parameter);
    bool const hasValue = !isSwitch(parameter);
    return mdocArgument(name) + (hasValue ? " Ar " + mdocArgument(value.empty() ? "value" : value) : "");
}

/// @param sections the ids of the sections that it stands in, with a point after each
std::string flagOf(Parameter const& parameter, bool isGnu, std::string const& sections = {}) {
    auto const name = sections + printable(toUtf8(parameter.getName()));
    return "Fl " + nameAndValue(parameter, (isGnu ? "-" : "") + name);
}

/// A line for each flag that a command line can give; the alternatives of a choice share one.
class SynopsisWriter final : public SettingsWalk {
public:
    SynopsisWriter(std::ostream& out, bool isGnu) : mOut(out), mIsGnu(isGnu) {}

    void write(Specification const& specification) {
        walk(specification);
        flush();
    }

private:
    bool onSectionStart(ParameterGroup const&) override { return getDepth() == 0; }

    void onSetting(Setting const& setting) override {
        if (setting.parameter.isHidden()) {
            return;
        }
        auto const alternative = setting.alternatives.empty() ? Alternative{} : setting.alternatives.front();
        if (!alternative.choice || alternative.choice != mLast.choice) {
            flush();
            mIsOptional = setting.parameter.isOptional();
        } else {
            mLine += alternative.position == mLast.position ? " " : " | ";
        }
        mLine += flagOf(setting.parameter, mIsGnu);
        mLast = alternative;
    }

    void flush() {
        if (!mLine.empty()) {
            mOut << '.' << (mIsOptional ? "Op " : "") << mLine << '\n';
        }
        mLine.clear();
    }

    std::ostream& mOut;
    bool mIsGnu;
    std::string mLine;
    bool mIsOptional = false;
    Alternative mLast{};
};

/// A list of what is in the specification itself, or of what is in its sections.
class ListWriter final : public SettingsWalk {
public:
    /// @param heading stands before the list, if there is anything in it
    ListWriter(std::ostream& out, bool isGnu, bool isOfSections, char const* heading)
        : mOut(out), mIsGnu(isGnu), mIsOfSections(isOfSections), mHeading(heading) {}

    void write(Specification const& specification) {
        walk(specification);
        mOut << (mIsOpen ? ".El\n" : "");
    }

private:
    /// A section that is open.
    struct Section {
        std::string names; ///< its own and those around it, with a point after each
        std::string ids;
        bool hasFlags; ///< whether flags can give its settings
    };

    bool onSectionStart(ParameterGroup const& section) override {
        if (getDepth() == 0) {
            mSections = {{"", "", true}};
        } else if (mIsOfSections) {
            auto const& around = mSections.back();
            auto const name = around.names + printable(toUtf8(section.getName()));
            writeItem("Va " + mdocArgument(name), descriptionOf(section), factsOfSection(section));
            mSections.push_back({name + '.', around.ids + printable(toUtf8(section.getId())) + '.',
                                 around.hasFlags && mIsGnu && !section.isUnbounded()});
        }
        return getDepth() == 0 || mIsOfSections;
    }

    void onSectionEnd(ParameterGroup const&) override { mSections.pop_back(); }

    void onSetting(Setting const& setting) override {
        auto const& parameter = setting.parameter;
        if (parameter.isHidden() || mIsOfSections != (getDepth() > 0)) {
            return;
        }
        auto const& section = mSections.back();
        auto const name = section.names + printable(toUtf8(parameter.getName()));
        writeItem(section.hasFlags ? flagOf(parameter, mIsGnu, section.ids) : "Va " + nameAndValue(parameter, name),
                  descriptionOf(parameter), factsOf(setting));
    }

    void writeItem(std::string const& head, std::string const& description, std::string const& facts) {
        if (!mIsOpen) {
            mOut << mHeading << ".Bl -tag -width Ds\n";
            mIsOpen = true;
        }
        mOut << ".It " << head << '\n';
        writeMdocText(mOut, description);
        mOut << ".br\n";
        writeMdocText(mOut, facts);
    }

    std::ostream& mOut;
    bool mIsGnu;
    bool mIsOfSections;
    char const* mHeading;
    bool mIsOpen = false;
    std::vector<Section> mSections;
};

void writeHead(std::ostream& out, Specification const& specification, int section) {
    auto const name = printable(toUtf8(specification.getId()));
    auto const description = printable(collapsed(toUtf8(specification.getDescription())));
    std::string_view rest = description;
    out << ".Dd " << dateOfPage() << "\n.Dt " << mdocArgument(capitals(name)) << ' ' << section
        << "\n.Os\n.Sh NAME\n.Nm " << mdocArgument(name) << "\n.Nd " << takeMdocArguments(rest) << '\n';
    writeMdocText(out, rest);
}

void writeFoot(std::ostream& out, std::string const& name) {
    out << ".Sh FILES\n"
           "Settings can also be given in values files in XML, if the tool reads any.\n"
           ".Bl -tag -width Ds\n"
           ".It Pa machine.config\n"
           "Settings of this machine, in the configuration directory of the installation.\n"
           ".El\n"
           ".Pp\n"
           "The command\n"
           ".Ql kivoconfig template "
        << mdocArgument(name)
        << "\n"
           "prints a values file to start from.\n"
           ".Sh EXIT STATUS\n"
           ".Ex -std "
        << mdocArgument(name) << '\n';
}

void writePage(std::ostream& out, Specification const& specification, int section, bool isGnu) {
    auto const name = printable(toUtf8(specification.getId()));
    writeHead(out, specification, section);
    out << ".Sh SYNOPSIS\n.Nm\n";
    SynopsisWriter(out, isGnu).write(specification);
    out << ".Sh DESCRIPTION\n";
    writeMdocText(out, descriptionOf(*specification.getParameterGroup()));
    ListWriter(out, isGnu, false, ".Sh OPTIONS\nFlags may be shortened where the tool allows it.\n")
        .write(specification);
    ListWriter(out, isGnu, true,
               isGnu ? ".Ss Settings of sections\n"
                       "Those without dashes can be given in values files only.\n"
                     : ".Ss Settings of sections\n"
                       "These can be given in values files only.\n")
        .write(specification);
    writeFoot(out, name);
}

} // namespace

Work prepareManual(CommandOptions& options, Call& call) {
    auto const section = std::make_shared<int>(1);
    auto const isGnu = std::make_shared<bool>(false);
    addSpecification(options, call);
    options.addNumber("--section", *section, 1, 9, "Section of the manual that the page is for; 1 if it is not given")
        .showAs("N");
    addGnu(options, *isGnu);
    return [&call, section, isGnu] {
        writePage(call.out, findSpecification(call.specification), *section, *isGnu);
        return NO_ERROR_FOUND;
    };
}

} // namespace kivoconfig
