#pragma once

#include <configuration/CommandLineStyle.h>
#include <configuration/ParameterVisitor.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kivo::configuration {

/// Writes what users need to know about the settings of a specification, whose root group accepts it: its own settings
/// first, then those of each section. Hidden settings are left out, and so is what has no others in it. Serves one
/// text. Reads only.
class DetailedHelp final : public ParameterVisitor {
public:
    /// The environment variable of a setting, empty when it has none. The ids are those of the sections that lead to
    /// it, without the root, and its own.
    using FindVariable = std::function<std::string(std::vector<char const*> const& ids)>;

    /// @param style in which the tool reads its command line
    DetailedHelp(CommandLineStyle style, FindVariable findVariable)
        : mStyle(style), mFindVariable(std::move(findVariable)) {}

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupMiddle(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    /// The text, in lines of a limited number of columns. Only a name may be wider: it can be copied as it is.
    std::string compose(std::size_t width) const;

private:
    /// A setting, or the heading of settings that belong together.
    struct Entry {
        std::size_t depth; ///< of the constraints around it that have a heading
        std::string name;  ///< empty: a heading
        std::string text;
        std::vector<std::string> facts; ///< in brackets
    };
    struct Section {
        std::string heading;
        std::vector<std::string> facts;
        std::vector<Entry> entries;
    };
    /// A constraint that was entered, in the innermost open section.
    struct Constraint {
        ParameterGroup const* group;
        unsigned long position;                       ///< of the item that is visited
        std::optional<unsigned long> defaultPosition; ///< of the first item that has a default
        bool hasHeading;
        bool isHeadingWritten;
    };
    struct OpenSection {
        std::size_t position; ///< in the list of all
        bool isReachable;     ///< neither it nor a section around it repeats or stands in a constraint
        std::vector<Constraint> constraints;
    };

    static std::size_t indentOf(Entry const& entry);
    static void appendEntry(std::string& text, Entry const& entry, std::size_t textStart, std::size_t width);
    std::size_t findNameEnd() const;
    void writeHeadings();
    std::string nameOf(Parameter const& parameter) const;
    std::vector<std::string> factsOf(Parameter const& parameter);
    bool takesDefault(Parameter const& parameter);

    CommandLineStyle mStyle;
    FindVariable mFindVariable;
    std::vector<Section> mSections; // the root first, in the order of the walk
    std::vector<OpenSection> mOpen;
    std::vector<char const*> mIds; // of the open sections, without the root
};

} // namespace kivo::configuration
