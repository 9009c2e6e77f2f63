#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace kivo::configuration {

/// Starts to load the items of a list that a walk will reach soon. A large list does not fit the cache, and its items
/// lie scattered: a walk would wait for them longer than it works on them.
/// @param items    pointers to items; those that were taken out are null
/// @param position where the walk is
/// @param stateOf  function from an item to its block of state
template <class List, class StateOf>
void loadAhead(List const& items, std::size_t position, StateOf stateOf) {
    constexpr std::size_t AHEAD = 4; // loading takes about as long as working on so many
    constexpr std::size_t CACHE_LINE = 64;
    if (position + 2 * AHEAD < items.size()) {
        __builtin_prefetch(std::to_address(items[position + 2 * AHEAD]));
        if (auto const& item = items[position + AHEAD]) {
            auto const state = reinterpret_cast<std::uintptr_t>(stateOf(*item)); // a number: it may go past the block
            __builtin_prefetch(reinterpret_cast<void const*>(state));
            __builtin_prefetch(reinterpret_cast<void const*>(state + CACHE_LINE));
        }
    }
}

} // namespace kivo::configuration
