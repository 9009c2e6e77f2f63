#pragma once

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>

#include <string>
#include <vector>

namespace kivo::configuration {
class Inspection;
class Specification;
} // namespace kivo::configuration

namespace kivoconfig {

/// What a dump makes of a setting.
enum class Use {
    LEFT_OUT,
    COMMENT, ///< a default that nobody has to give
    VALUE
};

/// A setting that has a value, in the section in which it stands.
struct DumpedSetting {
    kivo::configuration::ParameterValue const* value;
    bool isDirect;    ///< stands in its section itself, not in a constraint
    bool isMisplaced; ///< belongs in a section further inside
    Use use = Use::LEFT_OUT;

    kivo::configuration::Parameter const& getParameter() const { return *value->getParameter(); }
};

/// An occurrence of a section, or of the specification itself, with what it holds, in the order of the specification.
/// It refers to the inspection that it was made from.
struct DumpedSection {
    kivo::configuration::ParameterGroup const* group;
    std::string prefix; ///< of the names of its settings: "", "mirror[2]."
    bool isGiven;       ///< some source gave it, even if nothing is in it
    std::vector<DumpedSetting> settings;
    std::vector<DumpedSection> sections;
    Use use = Use::LEFT_OUT;
};

/// What an inspection of a specification found: an entry for each occurrence of the specification's group, at least
/// one.
std::vector<DumpedSection> readSections(kivo::configuration::Specification const& specification,
                                        kivo::configuration::Inspection const& inspection);

} // namespace kivoconfig
