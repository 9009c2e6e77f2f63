#include "dump/DumpedSection.h"

#include "settings/SettingsWalk.h"

#include <configuration/Inspection.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include <unordered_map>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

/// The name of an occurrence, counted from 1: "retention", "mirror[2]".
std::string nameOf(ParameterGroup const& group, std::size_t occurrence) {
    return group.getId() + (group.isUnbounded() ? '[' + std::to_string(occurrence) + ']' : "");
}

/// Reads one occurrence of a section, and then those inside it.
class SectionReader final : private SettingsWalk {
public:
    static DumpedSection read(ParameterValueGroup const& values, std::string const& prefix) {
        DumpedSection section{values.getParameterGroup(), prefix, values.getOrigin().isKnown(), {}, {}};
        SectionReader(values, section).readAll();
        return section;
    }

private:
    SectionReader(ParameterValueGroup const& values, DumpedSection& section) : mValues(values), mSection(section) {
        for (unsigned long i = 0; i < values.getNumberOfItems(); ++i) {
            auto const& item = *values.getItem(i);
            bool const isValue = item.getItemType() == ParameterValueItem::PARAMETER_VALUE;
            ParameterItem const* const described =
                isValue ? static_cast<ParameterItem const*>(static_cast<ParameterValue const&>(item).getParameter())
                        : static_cast<ParameterValueGroup const&>(item).getParameterGroup();
            if (described) {
                mItems[described].push_back(&item);
            }
        }
    }

    /// What is left when the section's own items are taken was given for a section further inside.
    void readAll() {
        walkSection(*mSection.group);
        for (unsigned long i = 0; i < mValues.getNumberOfItems() && !mItems.empty(); ++i) {
            auto const& item = *mValues.getItem(i);
            if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE && !take(item.getParameterItem()).empty()) {
                mSection.settings.push_back({static_cast<ParameterValue const*>(&item), false, true});
            }
        }
    }

    bool onSectionStart(ParameterGroup const& group) override {
        if (getDepth() == 0) {
            return true;
        }
        auto const occurrences = take(&group);
        for (std::size_t i = 0; i < occurrences.size(); ++i) {
            mSection.sections.push_back(read(static_cast<ParameterValueGroup const&>(*occurrences[i]),
                                             mSection.prefix + nameOf(group, i + 1) + '.'));
        }
        return false;
    }

    void onSetting(Setting const& setting) override {
        if (auto const items = take(&setting.parameter); !items.empty()) {
            mSection.settings.push_back({static_cast<ParameterValue const*>(items.front()), setting.isDirect, false});
        }
    }

    std::vector<ParameterValueItem const*> take(ParameterItem const* described) {
        auto node = mItems.extract(described);
        return node ? std::move(node.mapped()) : std::vector<ParameterValueItem const*>();
    }

    ParameterValueGroup const& mValues;
    DumpedSection& mSection;
    std::unordered_map<ParameterItem const*, std::vector<ParameterValueItem const*>> mItems; // that are left
};

} // namespace

std::vector<DumpedSection> readSections(Specification const& specification, Inspection const& inspection) {
    auto const& root = *specification.getParameterGroup();
    std::vector<DumpedSection> sections;
    auto const prefix = [&] { return root.isUnbounded() ? nameOf(root, sections.size() + 1) + '.' : std::string(); };
    auto const& values = inspection.getValues();
    for (unsigned long i = 0; i < values.getNumberOfItems(); ++i) {
        auto const& item = *values.getItem(i);
        if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP && item.getParameterItem() == &root) {
            sections.push_back(SectionReader::read(static_cast<ParameterValueGroup const&>(item), prefix()));
        }
    }
    if (sections.empty()) {
        sections.push_back({&root, prefix(), false, {}, {}});
    }
    return sections;
}

} // namespace kivoconfig
