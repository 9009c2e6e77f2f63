#include "support/Notation.h"

#include <configuration/Manager.h>

#include <algorithm>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace kivo::test {

using namespace configuration;

namespace {

/// A word, and what stands in brackets after it.
struct Node {
    std::string word;
    char bracket = '\0';
    std::vector<Node> items = {};
};

/// Takes a node off the beginning of a text. Throws when the text ends too early.
Node takeNode(std::string_view& rest) {
    Node node{.word = std::string(rest.substr(0, rest.find_first_of(" {}()[]")))};
    rest.remove_prefix(node.word.size());
    if (rest.find_first_of("{([") != 0) {
        return node;
    }
    node.bracket = rest.front();
    do { // after the bracket, and after each space
        rest.remove_prefix(1);
        if (std::string_view(" })]").find(rest.at(0)) == std::string_view::npos) {
            node.items.push_back(takeNode(rest));
        }
    } while (rest.at(0) == ' ');
    rest.remove_prefix(1);
    return node;
}

Parameter::ValueType typeOf(std::string const& word) {
    static std::vector<std::string> const words{"bool", "string", "int",   "uint", "double",  "oid",
                                                "enum", "long",   "ulong", "size", "duration"};
    auto const found = std::ranges::find(words, word.empty() ? "string" : word);
    return static_cast<Parameter::ValueType>(found - words.begin()); // the types have the order of their words
}

ParameterItem* makeItem(Node const& node, std::vector<std::unique_ptr<ParameterItem>>& items) {
    static std::regex const form("([^/:<?*~$^@!=]*)(?:/([^:<?*~$^@!=]*))?(?::([a-z]*))?(?:<([^>]*)>)?"
                                 "(\\?)?(\\*)?(~)?([$])?(?:\\^([^@!=]*))?(?:@([^!=]*))?(?:!([^=]*))?(?:=(.*))?");
    std::smatch parts;
    if (!std::regex_match(node.word, parts, form)) {
        throw std::invalid_argument(node.word);
    }
    std::vector<std::string> const texts(parts.begin(), parts.end());
    auto const textOrNull = [&](std::size_t part) { return parts[part].matched ? texts[part].c_str() : nullptr; };
    char const* const id = texts[1].c_str();
    char const* const name = parts[2].matched ? texts[2].c_str() : id;
    bool const optional = parts[5].matched, unbounded = parts[6].matched, hidden = parts[7].matched;
    using G = ParameterGroup;
    if (node.bracket == '\0') {
        items.push_back(std::make_unique<Parameter>(id, name, "Description", optional, unbounded, typeOf(texts[3]),
                                                    textOrNull(12), textOrNull(4), textOrNull(11), hidden));
        auto& parameter = static_cast<Parameter&>(*items.back());
        parameter.setSensitive(parts[8].matched);
        if (parts[9].matched) {
            parameter.setFormerName(texts[9].c_str());
        }
        if (parts[10].matched) {
            parameter.setDeprecation(texts[10].c_str());
        }
        return &parameter;
    }
    items.push_back(std::make_unique<G>(id, name, "Description", optional || node.bracket == '(',
                                        node.bracket == '[' ? G::ITEMS_MUTUALLY_EXCLUSIVE : G::ITEMS_NOT_EXCLUSIVE,
                                        unbounded, node.bracket == '{' ? G::CONTAINER : G::CONSTRAINT));
    auto& group = static_cast<G&>(*items.back());
    for (auto const& item : node.items) {
        group.addItem(makeItem(item, items));
    }
    return &group;
}

std::string paddingId(int number) { return "#" + std::to_string(number); }

/// A node, bound when the schema group has an item of its id.
template <class Value, class Item, class... Text>
std::unique_ptr<Value> makeNode(std::string const& id, ParameterGroup const* schema, Text... text) {
    auto const* item = dynamic_cast<Item const*>(schema ? schema->getItem(id.c_str(), true) : nullptr);
    return item ? std::make_unique<Value>(item, text...)
                : std::make_unique<Value>(id.empty() ? nullptr : id.c_str(), text...);
}

std::unique_ptr<ParameterValue> valueFrom(std::string const& word, ParameterGroup const* schema) {
    auto const sign = word.find('=');
    std::istringstream texts(word.substr(sign + 1) + ",");
    std::unique_ptr<ParameterValue> made;
    for (std::string text; std::getline(texts, text, ',');) {
        char const* given = text == "<none>" ? nullptr : text.c_str();
        if (made) {
            made->addValue(given);
        } else {
            made = makeNode<ParameterValue, Parameter>(word.substr(0, sign), schema, given);
        }
    }
    return made;
}

std::unique_ptr<ParameterValueGroup> treeFrom(Node const& node, ParameterGroup const* schema, int padding = 0) {
    auto group = makeNode<ParameterValueGroup, ParameterGroup>(node.word, schema);
    for (int i = 1; node.word == "tool" && !node.items.empty() && i <= padding; ++i) {
        group->addValue(paddingId(i).c_str(), "x");
    }
    for (auto const& item : node.items) {
        item.bracket != '\0' ? group->addItem(treeFrom(item, schema, padding).release())
                             : group->addItem(valueFrom(item.word, schema).release());
    }
    return group;
}

} // namespace

ParameterItem* Items::item(std::string_view text) { return makeItem(takeNode(text), mItems); }

Parameter* Items::parameter(std::string_view text) { return static_cast<Parameter*>(item(text)); }

ParameterGroup* Items::group(std::string_view text) { return static_cast<ParameterGroup*>(item(text)); }

ParameterItem* createItem(std::string_view text) {
    std::vector<std::unique_ptr<ParameterItem>> items;
    auto* made = makeItem(takeNode(text), items);
    for (auto& item : items) {
        Manager::getInstance()->addParameterItem(item.release());
    }
    return made;
}

Specification* createTool(std::string_view text, Padding const& padding) {
    auto* root = static_cast<ParameterGroup*>(createItem(text));
    for (int i = 1; i <= padding.schema; ++i) {
        root->addItem(createItem(paddingId(i) + "?*"));
    }
    auto specification = std::make_unique<Specification>(root->getId(), root->getDescription());
    Manager::getInstance()->registerSpecification(specification.get());
    return specification.release();
}

std::unique_ptr<ParameterValueGroup> treeOf(std::string_view text, Padding const& padding) {
    return treeFrom(takeNode(text), nullptr, padding.values);
}

std::unique_ptr<ParameterValueGroup> treeOf(std::string_view text, ParameterGroup const& schema) {
    return treeFrom(takeNode(text), &schema);
}

std::string idOf(ParameterValueItem const& item) {
    char const* id = item.getParameterItemId();
    return id ? id : "";
}

std::string textsOf(ParameterValue const& value) {
    ParameterValue const copy(value); // reading turns an absent flag into "1"
    std::string texts;
    for (unsigned long i = 0; i < copy.getNumberOfValues(); ++i) {
        char const* text = copy.getValue(i, true);
        texts += (i > 0 ? "," : "") + std::string(text ? text : "<none>");
    }
    return texts;
}

std::string toText(ParameterValueItem const& item) {
    auto text = idOf(item) + (item.getItemState() == ParameterValueItem::ASSIGNED ? "" : "?");
    if (auto const* value = dynamic_cast<ParameterValue const*>(&item)) {
        return text + (value->isUsingDefaultValue() ? "*=" : "=") + textsOf(*value);
    }
    auto const& group = static_cast<ParameterValueGroup const&>(item);
    text += '{';
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        if (auto const& child = *group.getItem(i); !idOf(child).starts_with('#')) {
            text += (text.back() == '{' ? "" : " ") + toText(child);
        }
    }
    return text + "}";
}

} // namespace kivo::test
