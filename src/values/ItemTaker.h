#pragma once

#include <configuration/ParameterValueItem.h>

#include <cstddef>
#include <memory>
#include <unordered_set>

namespace kivo::configuration {

/// Takes children out of a group in the order of its list, while a visitor walks over them. Each child takes constant
/// time, where removing it would move all after it. For as long as the taker lives nobody may ask the group for its
/// children; the end of the taker leaves the group with those that were not taken.
class ItemTaker {
public:
    explicit ItemTaker(ParameterValueGroup& group) : mGroup(&group) {}
    ItemTaker(ItemTaker&& other) noexcept : mGroup(other.mGroup), mPosition(other.mPosition) { other.mGroup = nullptr; }
    ItemTaker& operator=(ItemTaker&&) = delete;
    ~ItemTaker();

    /// @return the item; null when it is not a child that stands after those taken before
    std::unique_ptr<ParameterValueItem> take(ParameterValueItem const& item);

    /// Makes a group equal to another, whose children move over. On an exception nothing has changed.
    static void moveAll(ParameterValueGroup& from, ParameterValueGroup& to);

    /// Destroys some of a group's children and keeps the order of the others. Takes time linear in the number of
    /// children, where removing them one by one would be quadratic.
    static void destroy(ParameterValueGroup& group, std::unordered_set<ParameterValueItem const*> const& items);

private:
    ParameterValueGroup* mGroup;
    std::size_t mPosition = 0; // in the list, after the last item taken
};

} // namespace kivo::configuration
