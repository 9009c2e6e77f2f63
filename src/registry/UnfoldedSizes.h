#pragma once

#include <unordered_map>

namespace kivo::configuration {

class ParameterGroup;

/// The size of a group when every group inside it is counted again at each place that refers to it.
struct UnfoldedSize {
    static constexpr unsigned long MAX_ITEMS = 1000000;
    static constexpr unsigned long MAX_LEVELS = 1000;

    unsigned long items = 0;  ///< parameters and groups below; MAX_ITEMS + 1 stands for any larger number
    unsigned long levels = 0; ///< groups below each other, at most
};

/// The sizes of finished groups. Each group is measured once: a few lines of references can unfold to millions of
/// items, and must not cost more than other lines.
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
