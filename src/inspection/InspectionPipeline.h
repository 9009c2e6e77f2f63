#pragma once

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValueGroup.h>

#include "inspection/FindingList.h"
#include "inspection/GivenItems.h"
#include "inspection/MarkRemarks.h"
#include "inspection/SecretArguments.h"
#include "providers/ValuePipeline.h"
#include "visitors/SettingNames.h"

#include <optional>
#include <string>
#include <unordered_set>

namespace kivo::configuration {

struct ArgumentTexts;
struct GnuArguments;
class Specification;
class ValueProvider;
struct EnvironmentVariables;

/// Sends the values of all sources through the phases of a request, whatever the phases find, and notes what was given
/// and what became of it.
///
/// Each text and each element gets an origin of its own, by which it is known wherever it goes: in the result, and in
/// what a phase finds.
class InspectionPipeline final : private ValuePipeline {
public:
    /// @param flags     those of the request
    /// @param isOpen    whether more may be given than the sources do: then nothing is missing
    InspectionPipeline(Specification const& specification, int flags, bool isOpen);

    /// Takes over what a step outside of the phases found.
    void takeFaults(ParameterErrors const& faults);
    /// Adds a command line. @param arguments as parseArguments() makes them of the texts
    void addArguments(ParameterValueGroup const& arguments, ArgumentTexts const& texts);
    /// Adds a command line in GNU style. Requests for help and for the version are passed over.
    void addArguments(GnuArguments const& arguments);
    /// Adds environment variables, and says which of them belong to no setting.
    void addEnvironment(EnvironmentVariables const& environment);
    /// Adds the tree of a values file. @param isFixed whether its repeated elements are values
    void addFile(ParameterValueGroup const& tree, bool isFixed);
    /// Adds the application's own values.
    void addApplicationValues(ParameterValueGroup const& values);
    /// Asks a provider of the caller's own. @return whether the sources after it count
    bool addProvider(ValueProvider& provider, int flags);
    /// Checks and completes what the sources gave. @param isRequired whether it is an error when that is nothing
    void complete(bool isRequired);

    ParameterGroup const& getRoot() const { return *mRoot; }
    /// The completed values; without items when nothing was given and no default applies.
    ParameterValueGroup& getResult() { return mResult; }
    GivenItems& getItems() { return mItems; }
    FindingList& getFindings() { return mFindings; }
    /// Whether a finding is about an item that has an origin of its own.
    bool isFaulty(StoredOrigin const& origin) const { return mFaulty.contains(origin.identity()); }
    /// Takes over what is not wrong enough for a request.
    void takeWarnings(ParameterErrors const& faults) { take(faults, Finding::WARNING_SEVERITY); }

private:
    void endPhase(ParameterErrors& errors) override;
    void onMatched(ParameterValueGroup& values) override;
    void onAggregated(ParameterValueGroup const& values) override;
    bool isHelpRequest(ParameterValueGroup const& group) override;
    void onValidated(ParameterValueGroup& values) override;

    void lookForSecrets(ArgumentTexts const& arguments);
    void send(ParameterValueGroup const& values, bool isFile);
    void take(ParameterErrors const& faults, Finding::Severity severity);
    void noteMisgiven(GivenItem const& item);
    std::string suggest(Rule rule, GivenItem const& item);
    std::string suggestElement(GivenItem& element);
    void noteUnknownElement(GivenItem& element);
    void reportForeignFile(ParameterValueGroup const& tree);
    SettingNames const& names();

    Specification const& mSpecification;
    ParameterGroup const* mRoot;
    int mFlags;
    bool mIsOpen;
    FormerNameRemarks mFormerNames; // listens as long as this lives
    FindingList mFindings;
    std::optional<SettingNames> mNames; // made for the first suggestion
    GivenItems mItems;
    SecretArguments mSecretArguments;
    std::unordered_set<void const*> mFaulty;   // identities of origins of what a phase before found fault with
    bool mHasMisgiven = false;                 // whether a section was given as a setting, or the other way round
    std::unordered_set<std::string> mMisgiven; // what would be said if such sections were missing
    bool mIsFile = false;                      // whether the source is a file
    ParameterValueGroup mCollected{nullptr};
    ParameterValueGroup mResult{nullptr};
};

} // namespace kivo::configuration
