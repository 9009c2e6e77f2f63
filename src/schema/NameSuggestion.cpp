#include "kernel/kvProcessInit.h"

#include "schema/NameSuggestion.h"

#include "schema/NameComparison.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace kivo::configuration {

namespace {

constexpr int MOST_CHANGES = 2;
constexpr int TOO_MANY = MOST_CHANGES + 1;

/// A row of the table of distances between all beginnings of two texts. Beginnings whose lengths differ by more than
/// the limit are too far apart, so a row keeps only the cells near the diagonal, and one that is too far at each end.
class Row {
public:
    Row() { mCells.fill(TOO_MANY); }
    /// @param offset by how much the beginning of the second text is longer
    int& operator[](std::ptrdiff_t offset) { return mCells[static_cast<std::size_t>(offset + TOO_MANY)]; }
    bool isTooFar() const { return std::ranges::min(mCells) == TOO_MANY; }

private:
    std::array<int, 2 * TOO_MANY + 1> mCells;
};

/// The number of changes that lead from one text to another, or TOO_MANY.
int countChanges(std::string_view from, std::string_view to) {
    auto const difference = std::ssize(to) - std::ssize(from);
    if (std::abs(difference) > MOST_CHANGES) {
        return TOO_MANY;
    }
    auto const areSame = [&](std::ptrdiff_t i, std::ptrdiff_t j) {
        return foldCase(from[static_cast<std::size_t>(i)]) == foldCase(to[static_cast<std::size_t>(j)]);
    };
    Row beforeLast;
    Row last;
    for (std::ptrdiff_t i = 0; i <= std::ssize(from); ++i) {
        Row row;
        for (std::ptrdiff_t offset = -MOST_CHANGES; offset <= MOST_CHANGES; ++offset) {
            auto const j = i + offset;
            if (j < 0 || j > std::ssize(to)) {
                continue;
            }
            int best = i + j == 0 ? 0 : std::min(last[offset + 1], row[offset - 1]) + 1; // one too many, one missing
            if (i > 0 && j > 0) {
                best = std::min(best, last[offset] + (areSame(i - 1, j - 1) ? 0 : 1));
            }
            if (i > 1 && j > 1 && areSame(i - 1, j - 2) && areSame(i - 2, j - 1)) {
                best = std::min(best, beforeLast[offset] + 1);
            }
            row[offset] = std::min(best, TOO_MANY);
        }
        if (row.isTooFar() && last.isTooFar()) {
            return TOO_MANY; // all that follows builds on these two
        }
        beforeLast = std::exchange(last, row);
    }
    return last[difference];
}

} // namespace

ClosestName::ClosestName(std::string_view given)
    : mGiven(given), mBound(static_cast<int>(std::min<std::size_t>(MOST_CHANGES, given.size() / 3)) + 1) {}

void ClosestName::offer(char const* candidate) {
    if (auto const changes = countChanges(mGiven, candidate); changes < mBound) {
        mClosest = candidate;
        mBound = changes;
    }
}

std::string closestName(std::string_view given, std::vector<char const*> const& names) {
    ClosestName closest(given);
    std::ranges::for_each(names, [&](char const* name) { closest.offer(name); });
    return closest.get() ? closest.get() : "";
}

} // namespace kivo::configuration
