#pragma once

#include "dump/DumpedSection.h"

#include <map>
#include <set>

namespace kivoconfig {

/// What giving anything in a section would demand.
///
/// A section that nobody has to give may lack its required settings as long as nothing is given in it: a default that
/// was given there would bring a fault.
class Demands {
public:
    /// Of the specification itself.
    /// @param isOpen whether the command line may bring what is lacking
    Demands(DumpedSection const& specification, bool isOpen);
    /// Of a section inside the one that the others are of.
    Demands(DumpedSection const& section, Demands const& around);

    /// Whether giving a setting of the section would bring a fault, if it is not given yet.
    bool forbid(DumpedSetting const& setting) const { return mForbidden.contains(&setting.getParameter()); }

private:
    struct Surroundings {
        bool areRequired = false; ///< a group around has to be there, so its settings have to be, too
        bool lackSetting = false; ///< one around is not there, and must not be, since a setting would be missing
    };

    void look(kivo::configuration::ParameterGroup const& group, Surroundings surroundings);
    bool lacksSetting(kivo::configuration::ParameterGroup const& group) const;

    bool mIsOpen;
    std::set<kivo::configuration::ParameterItem const*> mPresent;
    std::set<kivo::configuration::ParameterItem const*> mForbidden;
    std::map<kivo::configuration::ParameterItem const*, Surroundings> mInside; // of the sections inside
};

} // namespace kivoconfig
