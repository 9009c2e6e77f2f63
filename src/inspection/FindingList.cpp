#include "kernel/kvProcessInit.h"

#include "inspection/FindingList.h"

#include "visitors/SettingNames.h"

namespace kivo::configuration {

void FindingList::add(Finding::Severity severity, Rule rule, std::string const& message, StoredOrigin const& origin,
                      std::string const& suggestion, std::string const& masked) {
    auto const place = origin.toOrigin();
    if (mKnown.insert(place.toString() + '\0' + message).second) {
        mFindings.emplace_back(severity, nameOf(rule), message.c_str(), place, suggestion.c_str());
        if (!masked.empty()) {
            mFindings.back() = Finding(mFindings.back(), masked);
        }
    }
}

bool FindingList::wantsSuggestion() const { return mFindings.size() < MAX_SUGGESTIONS; }

} // namespace kivo::configuration
