#pragma once

#include <configuration/ParameterValueVisitor.h>

#include "schema/FormerNames.h"
#include "visitors/SchemaIndex.h"

#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;
class Specification;

/// Binds every item of a raw value tree to the schema item that its id names, and reports what does not fit:
/// "An unnamed value group was found", "An unnamed value was found",
/// "Unexpected unnamed group as parent of the \"%s\" group. (Expected: %s)", "\"%s\" is not a parameter group",
/// "\"%s\" is a constraint. It cannot be declared explicitly", "Unnamed group cannot contain Parameter \"%s\"",
/// "\"%s\" is not a recognized parameter", "\"%s\" is not a parameter". Changes bindings, not the structure; but a
/// value that is given by a former name gets the current one, and shares it, at the end of the walk, with a value that
/// had it already. Remarks on former names and on deprecated parameters.
class ParameterMatchingVisitor final : public ParameterValueVisitor {
public:
    /// @param reportUnrecognized whether a value whose id the schema does not know is an error
    /// @param collected          takes what binding throws for a value where a group belongs, or the other way round,
    ///                           and leaves suggestions to the caller; null: it throws
    ParameterMatchingVisitor(Specification const& specification, ParameterErrors& errors, bool reportUnrecognized,
                             ParameterErrors* collected = nullptr);

    bool visitGroupStart(ParameterValueGroup& group) override;
    void visitGroupEnd(ParameterValueGroup& group) override;
    bool visitParameterValue(ParameterValue& value) override;

    /// Binds an item that is not bound yet. @return whether it did
    /// @throws ConfigurationException the two are not of one kind
    bool setItem(ParameterValueItem& item, ParameterItem const* parameterItem);

private:
    /// What a search for a group's schema item came to.
    struct GroupMatch {
        bool isEntered; ///< false: the group was reported, and is passed over with all below it
        ParameterItem const* item;
    };

    GroupMatch matchGroup(ParameterValueGroup const& group, char const* id);
    bool bindGroup(ParameterValueGroup& group, ParameterItem const& item, char const* id);

    /// A container, and what stands before the names of its settings.
    struct Section {
        ParameterGroup const* group;
        std::string prefix;
    };
    /// A fault about a value whose id the schema does not know.
    struct Unrecognized {
        unsigned long fault; ///< its position in the list
        ParameterValue const* value;
    };

    ParameterItem const* findItem(ParameterGroup const& group, ParameterValue& value);
    ParameterItem const* rename(ParameterGroup const& group, ParameterValue& value);
    void remarkOnUse(ParameterValue const& value);
    void mergeRenamed();

    void addUnrecognized(ParameterValue const& value, char const* id);
    void suggestNames();
    Section findSection(ParameterValueGroup const* group);

    ParameterErrors& mErrors;
    ParameterGroup const* mRootGroup;
    /// The schema group of each open value group; null for the unnamed top group and for a group that matched nothing.
    std::vector<ParameterGroup const*> mGroupStack;
    SchemaIndex mSchemaIndex;
    FormerNames mFormerNames;
    std::vector<ParameterValue const*> mRenamed;
    std::vector<Unrecognized> mUnrecognized; // the first ones
    bool mReportUnrecognized;
    ParameterErrors* mCollected;
};

} // namespace kivo::configuration
