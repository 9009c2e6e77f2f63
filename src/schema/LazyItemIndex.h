#pragma once

#include "schema/ItemIndex.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <string_view>

namespace kivo::configuration {

/// The index that stands beside a group's list of items. A short list is scanned; for a longer one the index is built by
/// the first look-up and kept right by whoever changes the list.
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
            for (auto const& item : items) {
                if (auto const candidate = KeyOf(*item); !candidate.empty() && equalIgnoringCase(candidate, key)) {
                    return std::to_address(item);
                }
            }
            return nullptr;
        }
        auto const* index = mIndex.load(std::memory_order_acquire);
        return (index ? index : build(items))->first(key);
    }

    /// An item was appended to the list.
    void added(Item& item) {
        if (auto* index = mIndex.load(std::memory_order_relaxed)) {
            add(*index, item);
        }
    }

    /// An item is about to leave the list.
    void removing(Item& item) {
        if (auto* index = mIndex.load(std::memory_order_relaxed)) {
            index->remove(KeyOf(item), &item);
            if (index->isWorn()) {
                drop();
            }
        }
    }

    /// The list was changed in another way, or the key of an item was.
    void drop() { delete mIndex.exchange(nullptr, std::memory_order_relaxed); }

private:
    static constexpr std::size_t SCAN_LIMIT = 8;

    static void add(ItemIndex<Item>& index, Item& item) {
        if (auto const key = KeyOf(item); !key.empty()) {
            index.add(key, &item);
        }
    }

    template <class List>
    ItemIndex<Item> const* build(List const& items) const {
        auto built = std::make_unique<ItemIndex<Item>>();
        built->reserve(items.size());
        for (auto const& item : items) {
            add(*built, *item);
        }
        ItemIndex<Item>* expected = nullptr;
        if (mIndex.compare_exchange_strong(expected, built.get(), std::memory_order_acq_rel,
                                           std::memory_order_acquire)) {
            return built.release();
        }
        return expected;
    }

    mutable std::atomic<ItemIndex<Item>*> mIndex{nullptr};
};

} // namespace kivo::configuration
