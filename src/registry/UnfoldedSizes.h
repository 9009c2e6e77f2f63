#pragma once

#include <unordered_map>

namespace kivo::configuration {

class ParameterGroup;

/// What a group amounts to when the groups inside it are written out at every place where they stand.
struct UnfoldedSize {
    static constexpr unsigned long MAX_ITEMS = 1000000;
    static constexpr unsigned long MAX_LEVELS = 1000;

    unsigned long items = 0;  ///< parameters and groups below; MAX_ITEMS + 1 stands for any larger number
    unsigned long levels = 0; ///< groups on the longest way down
};

/// Sizes of finished groups. Each group is counted once, however often it is asked for, so that a few lines of
/// references that unfold to millions of items cost no more than other lines.
class UnfoldedSizes {
public:
    /// The size of what is below a group.
    /// @throws ConfigurationException "Group \"<id>\" unfolds to too many levels"
    UnfoldedSize const& of(ParameterGroup const& group);

private:
    UnfoldedSize const& measure(ParameterGroup const& group, ParameterGroup const& outermost, unsigned long level);

    std::unordered_map<ParameterGroup const*, UnfoldedSize> mSizes;
};

} // namespace kivo::configuration
