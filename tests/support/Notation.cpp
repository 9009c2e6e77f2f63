#include "support/Notation.h"

#include "support/Schema.h"
#include "support/ValueTree.h"

#include <configuration/Manager.h>

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace kivo::test {

using namespace configuration;

namespace {

/// A word, and what stands in brackets behind it.
struct Node {
    std::string word;
    char bracket = '\0';
    std::vector<Node> items = {};
};

/// Takes a node off the beginning of a text. Throws when the text ends too early.
Node takeNode(std::string_view& rest) {
    Node node{.word = std::string(rest.substr(0, rest.find_first_of(" {}()[]")))};
    rest.remove_prefix(node.word.size());
    if (rest.find_first_of("{([") == 0) {
        node.bracket = rest.front();
        rest.remove_prefix(1);
        while (std::string_view("})]").find(rest.at(0)) == std::string_view::npos) {
            rest.front() == ' ' ? rest.remove_prefix(1) : void(node.items.push_back(takeNode(rest)));
        }
        rest.remove_prefix(1);
    }
    return node;
}

Node nodeOf(std::string_view text) { return takeNode(text); }

ParameterItem* createFrom(Node const& node) {
    static std::map<std::string, Parameter::ValueType> const types{{"", Parameter::STRING_PARAMETER},
                                                                   {"bool", Parameter::BOOLEAN_PARAMETER},
                                                                   {"int", Parameter::INT_PARAMETER},
                                                                   {"uint", Parameter::UINT_PARAMETER},
                                                                   {"double", Parameter::DOUBLE_PARAMETER}};
    static std::regex const form(
        "([^/:<?*~=]*)(?:/([^:<?*~=]*))?(?::([a-z]*))?(?:<([^>]*)>)?(\\?)?(\\*)?(~)?(?:=(.*))?");
    std::smatch parts;
    if (!std::regex_match(node.word, parts, form)) {
        throw std::invalid_argument(node.word);
    }
    auto const textOrNull = [](std::string const& text) { return text.empty() ? nullptr : text.c_str(); };
    std::string const id = parts[1], valueName = parts[4], defaultValue = parts[8];
    std::string const name = parts[2].matched ? parts[2] : parts[1];
    bool const optional = parts[5].matched, unbounded = parts[6].matched, hidden = parts[7].matched;
    if (node.bracket == '\0') {
        return createParameter({id.c_str(), name.c_str(), "Description", optional, unbounded, types.at(parts[3]),
                                textOrNull(defaultValue), textOrNull(valueName), nullptr, hidden});
    }
    ItemList items;
    std::ranges::transform(node.items, std::back_inserter(items), createFrom);
    auto const create = node.bracket == '{'   ? createContainer
                        : node.bracket == '(' ? createGroup
                                              : createMutuallyExclusive;
    return create({id.c_str(), name.c_str(), "Description", optional, unbounded}, items);
}

std::string paddingId(int number) { return "#" + std::to_string(number); }

std::unique_ptr<ParameterValue> valueFrom(std::string const& word) {
    auto const sign = word.find('=');
    std::istringstream texts(word.substr(sign + 1) + ",");
    std::unique_ptr<ParameterValue> made;
    for (std::string text; std::getline(texts, text, ',');) {
        char const* given = text == "<none>" ? nullptr : text.c_str();
        made ? made->addValue(given) : void(made = value(word.substr(0, sign).c_str(), given));
    }
    return made;
}

std::unique_ptr<ParameterValueGroup> treeFrom(Node const& node, Padding const& padding) {
    auto group = valueGroup(node.word.empty() ? nullptr : node.word.c_str());
    for (int i = 1; node.word == "tool" && !node.items.empty() && i <= padding.values; ++i) {
        group->addValue(paddingId(i).c_str(), "x");
    }
    for (auto const& item : node.items) {
        item.bracket != '\0' ? group->addItem(treeFrom(item, padding).release())
                             : group->addItem(valueFrom(item.word).release());
    }
    return group;
}

} // namespace

ParameterItem* createItem(std::string_view text) { return createFrom(nodeOf(text)); }

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
    return treeFrom(nodeOf(text), padding);
}

std::string shown(ParameterValueItem const& tree) {
    static std::regex const padding("#[^ }]* ?");
    return std::regex_replace(toText(tree), padding, "");
}

} // namespace kivo::test
