#pragma once

#include <configuration/InspectedSetting.h>

#include "inspection/GivenItems.h"

#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

class InspectionPipeline;
class ParameterValue;
class ParameterValueGroup;

/// Lists the settings of a specification in the order of a walk, with all that was given for each, and notes which
/// texts win and which are misplaced.
class SettingLister {
public:
    /// @param pipeline completed
    explicit SettingLister(InspectionPipeline& pipeline) : mPipeline(pipeline) {}

    /// All settings but hidden ones that were not given. Call it once.
    std::vector<InspectedSetting> list();
    /// The others, when list() was called.
    std::vector<InspectedSetting> takeHidden() { return std::move(mHidden); }

private:
    /// A section that is listed: what was given in it, and what the result holds for it.
    struct Place {
        Section const* section;            ///< null: nothing was given
        ParameterValueGroup const* values; ///< null: the result does not have it
        std::vector<std::string> path;
        bool isFilled;   ///< whether defaults are filled in
        bool isInChoice; ///< whether it lies below an exclusive choice
    };
    class Walk;

    void assignTexts();
    void listSection(ParameterGroup const& group, Place const& place);
    void listSetting(Parameter const& parameter, Place const& place, bool isInChoice);
    std::vector<InspectedText> listValues(Parameter const& parameter, ParameterValue const& value);
    std::vector<InspectedText> listAlternatives(Parameter const& parameter, Section const* section);
    InspectedText::Verdict verdictOn(GivenItem const& item, std::vector<std::size_t> const& texts) const;

    InspectionPipeline& mPipeline;
    std::vector<InspectedSetting> mSettings;
    std::vector<InspectedSetting> mHidden;
};

} // namespace kivo::configuration
