#include "kernel/kvProcessInit.h"

#include "inspection/FindingList.h"

#include "visitors/SettingNames.h"

namespace kivo::configuration {

void FindingList::add(Finding::Severity severity, Rule rule, std::string const& message, StoredOrigin const& origin,
                      std::string const& suggestion, std::string const& masked) {
    auto const place = origin.toOrigin();
    auto const [known, isNew] = mKnown.try_emplace(place.toString() + '\0' + message, mFindings.size());
    if (!isNew && severity >= mFindings[known->second].getSeverity()) {
        return;
    }
    Finding const plain(severity, nameOf(rule), message.c_str(), place, suggestion.c_str());
    auto const finding = masked.empty() ? plain : Finding(plain, masked);
    if (isNew) {
        mFindings.push_back(finding);
    } else {
        mFindings[known->second] = finding; // an error counts more than a warning of the same words
    }
}

bool FindingList::wantsSuggestion() const { return mFindings.size() < MAX_SUGGESTIONS; }

} // namespace kivo::configuration
