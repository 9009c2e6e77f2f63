#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// Finds the name that a user may have meant by one that is not known: offer it all that are known.
///
/// A name is close when at most two changes, and at most a third of the given name's length, lead to it: a letter too
/// many, a missing one, a wrong one, or two neighbours in the wrong order; no letter is changed twice. Letter case is
/// free, and bytes count as letters. A candidate costs time linear in its length, and nothing when its length alone
/// says that it is not close.
class ClosestName {
public:
    /// @param given the name that is not known; must outlive this object
    explicit ClosestName(std::string_view given);

    /// Remembers a candidate if it is closer than those before it. It must outlive this object.
    void offer(char const* candidate);
    /// The closest name, of several the first; null when none is close.
    char const* get() const { return mClosest; }

private:
    std::string_view mGiven;
    int mBound; ///< a candidate is of interest only below this number of changes
    char const* mClosest = nullptr;
};

/// The closest of some names; empty when none is close.
std::string closestName(std::string_view given, std::vector<char const*> const& names);

} // namespace kivo::configuration
