#include "support/ValueTree.h"

namespace kivo::test {

using namespace configuration;

std::string idOf(ParameterValueItem const& item) {
    char const* id = item.getParameterItemId();
    return id ? id : "";
}

std::string textsOf(ParameterValue const& value) {
    ParameterValue const copy(value); // reading can change what is read
    std::string texts;
    for (unsigned long i = 0; i < copy.getNumberOfValues(); ++i) {
        char const* text = copy.getValue(i, true);
        texts += (i > 0 ? "," : "") + std::string(text ? text : "<none>");
    }
    return texts;
}

std::string toText(ParameterValueItem const& item) {
    auto text = idOf(item) + (item.getItemState() == ParameterValueItem::ASSIGNED ? "" : "?");
    if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE) {
        auto const& value = static_cast<ParameterValue const&>(item);
        return text + (value.isUsingDefaultValue() ? "*=" : "=") + textsOf(value);
    }
    auto const& group = static_cast<ParameterValueGroup const&>(item);
    std::string children;
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        children += (i > 0 ? " " : "") + toText(*group.getItem(i));
    }
    return text + "{" + children + "}";
}

} // namespace kivo::test
