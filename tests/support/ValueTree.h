#pragma once

// Value trees, made and shown in one line:
//
//     auto const tree = valueGroup("root", value("a", "1", "2"), valueGroup("inner", value("b", nullptr)));
//     EXPECT_EQ(toText(*tree), "root?{a?=1,2 inner?{b?=<none>}}");
//
// A schema item in place of an id makes a bound node; nullptr makes the unnamed group. Shown are ids, texts as they
// read without defaults, "<none>" for an entry without a text, "?" behind what is not bound, "*" behind a default.

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include <memory>
#include <string>

namespace kivo::test {

/// A value with one or more entries; null makes an absent one.
template <class Key, class... Texts>
std::unique_ptr<configuration::ParameterValue> value(Key key, char const* text, Texts... furtherTexts) {
    auto made = std::make_unique<configuration::ParameterValue>(key, text);
    (made->addValue(furtherTexts), ...);
    return made;
}

template <class Key, class... Children>
std::unique_ptr<configuration::ParameterValueGroup> valueGroup(Key key, Children... children) {
    auto made = std::make_unique<configuration::ParameterValueGroup>(key);
    (made->addItem(children.release()), ...);
    return made;
}

/// The id of a node, empty when it has none.
inline std::string idOf(configuration::ParameterValueItem const& item) {
    char const* id = item.getParameterItemId();
    return id ? id : "";
}

/// The texts of a value, joined by commas.
inline std::string textsOf(configuration::ParameterValue const& value) {
    configuration::ParameterValue const copy(value); // reading turns an absent flag into "1"
    std::string texts;
    for (unsigned long i = 0; i < copy.getNumberOfValues(); ++i) {
        char const* text = copy.getValue(i, true);
        texts += (i > 0 ? "," : "") + std::string(text ? text : "<none>");
    }
    return texts;
}

/// A node and all below it.
inline std::string toText(configuration::ParameterValueItem const& item) {
    auto text = idOf(item) + (item.getItemState() == configuration::ParameterValueItem::ASSIGNED ? "" : "?");
    if (auto const* value = dynamic_cast<configuration::ParameterValue const*>(&item)) {
        return text + (value->isUsingDefaultValue() ? "*=" : "=") + textsOf(*value);
    }
    auto const& group = static_cast<configuration::ParameterValueGroup const&>(item);
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        text += (i > 0 ? " " : "{") + toText(*group.getItem(i));
    }
    return text + (group.getNumberOfItems() > 0 ? "}" : "{}");
}

} // namespace kivo::test
