#pragma once

#include "inspection/FindingList.h"
#include "registry/DeclarationRecord.h"
#include "registry/UnknownName.h"
#include "schema/NameComparison.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace kivo::configuration {

class XmlElement;

/// What is known of the registry files that were read so far.
class RegistryContents {
public:
    using Names = std::set<std::string, CaseInsensitiveLess>;
    /// How ids are written where they stand first.
    using Spellings = std::map<std::string, std::string, CaseInsensitiveLess>;

    FindingList findings;
    DeclarationRecord record;
    /// Parameters that stand for refused ones.
    std::unordered_set<Parameter const*> standIns;
    /// Ids of parameters and groups that were meant to be used.
    Names excused;
    Spellings itemSpellings;
    Spellings enumerationSpellings;
    /// Whether there is a file of which nobody knows what it declares.
    bool isIncomplete = false;

    /// Notes an id that can be referred to.
    void addId(UnknownName::Kind kind, char const* id);
    /// The id that was meant by one that is not known; empty when none is close.
    std::string suggestId(UnknownName const& unknown) const;
    /// Excuses what an element that is not read would have used.
    void excuse(XmlElement const& element);

private:
    std::map<UnknownName::Kind, std::vector<std::string>> mIds;
};

} // namespace kivo::configuration
