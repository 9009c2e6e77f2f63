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

/// A group with its children.
template <class Key, class... Children>
std::unique_ptr<configuration::ParameterValueGroup> valueGroup(Key key, Children... children) {
    auto made = std::make_unique<configuration::ParameterValueGroup>(key);
    (made->addItem(children.release()), ...);
    return made;
}

/// The id of a node, empty when it has none.
std::string idOf(configuration::ParameterValueItem const& item);

/// The texts of a value, joined by commas. The value stays as it is: an absent flag is not turned into "1".
std::string textsOf(configuration::ParameterValue const& value);

/// A node and all below it.
std::string toText(configuration::ParameterValueItem const& item);

} // namespace kivo::test
