#pragma once

#include "schema/ItemIndex.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <string_view>

namespace kivo::configuration {

/// The index that stands beside a group's list of items. A short list is scanned; for a longer one the index is built
/// by the first look-up and updated by the code that changes the list.
///
/// Several threads may look up at once in a list that nobody changes: each may build the index, one of them is kept.
///
/// @tparam Item  type of the items
/// @tparam KeyOf function from an item to its key; a key without characters is not found
template <class Item, std::string_view (*KeyOf)(Item const&)>
class LazyItemIndex {
public:
    LazyItemIndex() = default;
    ~LazyItemIndex() { drop(); }
    LazyItemIndex(LazyItemIndex const&) = delete;
    LazyItemIndex& operator=(LazyItemIndex const&) = delete;

    /// The first item of a key in a list of pointers, or null.
    template <class List>
    Item* first(List const& items, std::string_view key) const {
        if (items.size() <= SCAN_LIMIT) {
            return scan(items, key, [](Item const&) { return true; });
        }
        return indexOf(items).first(key);
    }

    /// The first item of a key that satisfies a condition, or null.
    template <class List, class Condition>
    Item* first(List const& items, std::string_view key, Condition condition) const {
        if (items.size() <= SCAN_LIMIT) {
            return scan(items, key, condition);
        }
        Item* found = nullptr;
        indexOf(items).forEach(key, [&](Item* item) {
            found = condition(*item) ? item : nullptr;
            return !found;
        });
        return found;
    }

    /// An item was appended to the list.
    void added(Item& item) noexcept {
        if (auto* index = mIndex.load(std::memory_order_relaxed)) {
            try {
                add(*index, item);
            } catch (...) {
                drop(); // memory ran out: a later look-up may be luckier
            }
        }
    }

    /// An item is about to leave the list.
    void removing(Item& item) {
        if (auto* index = mIndex.load(std::memory_order_relaxed)) {
            if (!index->remove(KeyOf(item), &item)) {
                drop();
            }
        }
    }

    /// The list was changed in another way, or the key of an item was.
    void drop() noexcept { delete mIndex.exchange(nullptr, std::memory_order_relaxed); }

private:
    static constexpr std::size_t SCAN_LIMIT = 8;

    static void add(ItemIndex<Item>& index, Item& item) {
        if (auto const key = KeyOf(item); !key.empty()) {
            index.add(key, &item);
        }
    }

    template <class List, class Condition>
    static Item* scan(List const& items, std::string_view key, Condition condition) {
        for (auto const& item : items) {
            auto const candidate = KeyOf(*item);
            if (!candidate.empty() && equalIgnoringCase(candidate, key) && condition(*item)) {
                return std::to_address(item);
            }
        }
        return nullptr;
    }

    template <class List>
    ItemIndex<Item> const& indexOf(List const& items) const {
        auto const* index = mIndex.load(std::memory_order_acquire);
        return index ? *index : build(items);
    }

    template <class List>
    ItemIndex<Item> const& build(List const& items) const {
        auto built = std::make_unique<ItemIndex<Item>>();
        built->reserve(items.capacity()); // a list that is still being filled
        for (auto const& item : items) {
            add(*built, *item);
        }
        ItemIndex<Item>* expected = nullptr;
        if (mIndex.compare_exchange_strong(expected, built.get(), std::memory_order_acq_rel,
                                           std::memory_order_acquire)) {
            return *built.release();
        }
        return *expected;
    }

    mutable std::atomic<ItemIndex<Item>*> mIndex{nullptr};
};

} // namespace kivo::configuration
