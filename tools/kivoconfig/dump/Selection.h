#pragma once

#include "dump/Demands.h"
#include "dump/DumpedSection.h"

#include <cstddef>
#include <set>
#include <string>

namespace kivoconfig {

/// Decides what a dump makes of each setting and section, and says on standard error what it cannot show.
class Selection {
public:
    struct Choices {
        bool isForFile = true;      ///< a values file; otherwise a form that carries any text
        bool takesDefaults = false; ///< as values
        bool showsSecrets = false;
        bool isCommandLineOpen = false; ///< it may bring more settings than the inspection knows of
    };

    explicit Selection(Choices const& choices) : mChoices(choices) {}

    /// Decides on everything in the specification's group.
    void select(DumpedSection& specification);
    /// Says that something which was given is not shown.
    void leaveOut(std::string const& name, std::string const& reason);
    /// Whether something is not shown.
    bool hasLeftOut() const { return mHasLeftOut; }

private:
    /// @param isInside whether it is a section, not the specification itself
    void selectIn(DumpedSection& section, Demands const& demands, bool isInside);
    void selectInside(DumpedSection& section, Demands const& around);
    Use useOf(DumpedSetting const& setting, Demands const& demands, bool isInside) const;
    std::string findObstacle(DumpedSetting const& setting);
    bool takeName(std::string const& name);
    bool takeAttribute();

    Choices mChoices;
    bool mHasLeftOut = false;
    std::set<std::string> mNames{"value"}; // of the file's elements and attributes
    std::size_t mAttributes = 0;           // of the element that is looked at
    std::size_t mSquares = 0;              // of the numbers of attributes of those before that have many
};

} // namespace kivoconfig
