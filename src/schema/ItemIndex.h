#pragma once

#include "schema/NameComparison.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// Finds items by key in about constant time: the first one added under a key, as a scan of the list would, or all of
/// them in order. At most 2^32 - 2 items. Keys are compared ignoring letter case. Neither items nor key texts are
/// owned: a key text must stay where it is for as long as its item is in the index.
template <class Item>
class ItemIndex {
public:
    /// Makes room for a number of items, so that adding them does not rehash.
    void reserve(std::size_t count) {
        mNodes.reserve(count);
        if (isCrowded(count)) {
            rehash(count);
        }
    }

    /// Adds an item after those of the same key.
    void add(std::string_view key, Item* item) {
        if (isCrowded(mUsedSlots + 1)) {
            rehash(mUsedSlots * 2 + 1);
        }
        auto const hash = hashOf(key);
        auto const node = static_cast<Position>(mNodes.size());
        mNodes.push_back({key.data(), item, static_cast<std::uint32_t>(key.size()), NONE, node});
        auto& slot = mSlots[findSlot(key, hash)];
        if (slot.head == NONE) {
            slot = {hash, node};
            ++mUsedSlots;
        } else {
            auto& head = mNodes[slot.head];
            mNodes[head.last].next = node;
            head.last = node;
        }
    }

    /// Takes an item out if it is one of the first of its key. Its slot stays in use, so that searches go on past it.
    /// @return false when the item was not found, or so much was removed that it is cheaper to build the index anew
    bool remove(std::string_view key, Item const* item) {
        if (mSlots.empty()) {
            return false;
        }
        auto& slot = mSlots[findSlot(key, hashOf(key))];
        auto previous = NONE;
        auto node = slot.head;
        for (int i = 0; i < REMOVE_LIMIT && node != NONE; ++i, previous = node, node = mNodes[node].next) {
            if (mNodes[node].item == item) {
                unlink(slot, previous, node);
                ++mRemoved;
                return mRemoved <= 32 || mRemoved * 2 <= mNodes.size();
            }
        }
        return false;
    }

    /// The first item of a key, or null.
    Item* first(std::string_view key) const {
        auto const node = findHead(key);
        return node == NONE ? nullptr : mNodes[node].item;
    }

    /// Hands every item of a key to a function, in the order of addition, until it returns false.
    template <class Function>
    void forEach(std::string_view key, Function&& function) const {
        for (auto node = findHead(key); node != NONE && function(mNodes[node].item);) {
            node = mNodes[node].next;
        }
    }

private:
    using Position = std::uint32_t;
    static constexpr int REMOVE_LIMIT = 8; // of the items of one key, how many are looked at for the one to remove
    static constexpr Position NONE = ~Position{0};
    static constexpr Position DELETED = NONE - 1; // a slot whose last item was removed: searches go on past it

    /// A place in the table. The hash tells most keys apart without a look at the node.
    struct Slot {
        std::uint32_t hash;
        Position head; // the first node of the key
    };

    /// An item with its key, and its place in the list of the items of that key.
    struct Node {
        std::string_view key() const { return {text, size}; }

        char const* text;
        Item* item;
        std::uint32_t size;
        Position next; // the next node of the same key
        Position last; // in the head of a list: its end
    };

    static std::uint32_t hashOf(std::string_view key) { return static_cast<std::uint32_t>(hashIgnoringCase(key)); }

    Position findHead(std::string_view key) const {
        return mSlots.empty() ? NONE : mSlots[findSlot(key, hashOf(key))].head;
    }

    /// The slot of a key, or the free slot where it belongs. A quarter of the slots is free, so the search ends.
    std::size_t findSlot(std::string_view key, std::uint32_t hash) const {
        auto const mask = mSlots.size() - 1;
        for (auto position = hash & mask;; position = (position + 1) & mask) {
            auto const& slot = mSlots[position];
            if (slot.head == NONE ||
                (slot.hash == hash && slot.head != DELETED && equalIgnoringCase(mNodes[slot.head].key(), key))) {
                return position;
            }
        }
    }

    void unlink(Slot& slot, Position previous, Position node) {
        if (previous != NONE) {
            mNodes[previous].next = mNodes[node].next;
            if (mNodes[slot.head].last == node) {
                mNodes[slot.head].last = previous;
            }
        } else if (auto const next = mNodes[node].next; next != NONE) {
            mNodes[next].last = mNodes[node].last;
            slot.head = next;
        } else {
            slot.head = DELETED;
        }
    }

    bool isCrowded(std::size_t used) const { return used * 4 > mSlots.size() * 3; }

    void rehash(std::size_t used) {
        std::size_t size = 16;
        while (used * 4 > size * 3) {
            size *= 2;
        }
        std::vector<Slot> old(size, Slot{0, NONE});
        old.swap(mSlots);
        mUsedSlots = 0;
        for (auto const& slot : old) {
            if (slot.head != NONE && slot.head != DELETED) {
                mSlots[findSlot(mNodes[slot.head].key(), slot.hash)] = slot;
                ++mUsedSlots;
            }
        }
    }

    std::vector<Node> mNodes;
    std::vector<Slot> mSlots;
    std::size_t mUsedSlots = 0;
    std::size_t mRemoved = 0;
};

} // namespace kivo::configuration
