#include "visitors/Notation.h"

#include <configuration/Manager.h>

#include "support/Schema.h"
#include "support/ValueTree.h"

#include <cstring>
#include <map>
#include <optional>
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

/// Cuts a text into words and the brackets and blanks between them. Throws when it ends too early.
class Reader {
public:
    explicit Reader(std::string_view text) : mRest(text) {}

    std::string word() {
        std::string const word(mRest.substr(0, mRest.find_first_of(" {}()[]")));
        mRest.remove_prefix(word.size());
        return word;
    }

    char peek() const { return mRest.at(0); }

    /// Calls a function for each item between brackets.
    template <class ReadItem>
    void items(ReadItem readItem) {
        mRest.remove_prefix(1);
        while (!std::strchr("})]", peek())) {
            peek() == ' ' ? mRest.remove_prefix(1) : readItem();
        }
        mRest.remove_prefix(1);
    }

private:
    std::string_view mRest;
};

Parameter::ValueType typeOf(std::string const& word) {
    static std::map<std::string, Parameter::ValueType> const types{{"", Parameter::STRING_PARAMETER},
                                                                   {"bool", Parameter::BOOLEAN_PARAMETER},
                                                                   {"int", Parameter::INT_PARAMETER},
                                                                   {"uint", Parameter::UINT_PARAMETER},
                                                                   {"double", Parameter::DOUBLE_PARAMETER}};
    return types.at(word);
}

/// Takes what stands behind a mark off the end of a word.
std::optional<std::string> takeBehind(std::string& word, char mark) {
    auto const position = word.find(mark);
    if (position == std::string::npos) {
        return std::nullopt;
    }
    auto const behind = word.substr(position + 1);
    word.erase(position);
    return behind;
}

bool takeEnd(std::string& word, char mark) {
    bool const taken = word.ends_with(mark);
    word.erase(word.size() - (taken ? 1 : 0));
    return taken;
}

ParameterItem* readSchema(Reader& reader) {
    auto word = reader.word();
    auto const defaultValue = takeBehind(word, '=');
    bool const hidden = takeEnd(word, '~');
    bool const unbounded = takeEnd(word, '*');
    bool const optional = takeEnd(word, '?');
    auto const type = takeBehind(word, ':').value_or("");
    auto const name = takeBehind(word, '/');
    auto const& id = word;
    char const* const shownName = name ? name->c_str() : id.c_str();
    GroupFields const group{.id = id.c_str(), .name = shownName, .optional = optional, .unbounded = unbounded};
    auto const bracket = reader.peek();
    if (!std::strchr("{([", bracket)) {
        return createParameter({.id = id.c_str(),
                                .name = shownName,
                                .optional = optional,
                                .unbounded = unbounded,
                                .type = typeOf(type),
                                .defaultValue = defaultValue ? defaultValue->c_str() : nullptr,
                                .hidden = hidden});
    }
    ItemList items;
    reader.items([&] { items.push_back(readSchema(reader)); });
    auto const create = bracket == '{' ? createContainer : bracket == '(' ? createGroup : createMutuallyExclusive;
    return create(group, items);
}

std::unique_ptr<ParameterValue> readValue(std::string id) {
    std::istringstream texts(takeBehind(id, '=').value() + ",");
    std::unique_ptr<ParameterValue> value;
    for (std::string text; std::getline(texts, text, ',');) {
        char const* given = text == "<none>" ? nullptr : text.c_str();
        value ? value->addValue(given) : void(value = std::make_unique<ParameterValue>(id.c_str(), given));
    }
    return value;
}

std::unique_ptr<ParameterValueGroup> readTree(Reader& reader, std::string const& id, Padding const& padding) {
    auto group = std::make_unique<ParameterValueGroup>(id.empty() ? nullptr : id.c_str());
    bool isPadded = id != "tool";
    reader.items([&] {
        for (int i = 1; !isPadded && i <= padding.values; ++i) {
            group->addValue(("#" + std::to_string(i)).c_str(), "x");
        }
        isPadded = true;
        auto const word = reader.word();
        group->addItem(reader.peek() == '{'
                           ? static_cast<ParameterValueItem*>(readTree(reader, word, padding).release())
                           : readValue(word).release());
    });
    return group;
}

} // namespace

Specification* createTool(std::string_view text, Padding const& padding) {
    Reader reader(text);
    auto* root = static_cast<ParameterGroup*>(readSchema(reader));
    for (int i = 1; i <= padding.schema; ++i) {
        auto const id = "#" + std::to_string(i);
        root->addItem(createParameter({.id = id.c_str(), .optional = true, .unbounded = true}));
    }
    auto specification = std::make_unique<Specification>(root->getId(), root->getDescription());
    Manager::getInstance()->registerSpecification(specification.get());
    return specification.release();
}

std::unique_ptr<ParameterValueGroup> treeOf(std::string_view text, Padding const& padding) {
    Reader reader(text);
    return readTree(reader, reader.word(), padding);
}

std::string shown(ParameterValueItem const& tree) {
    auto text = toText(tree);
    for (auto begin = text.find('#'); begin != std::string::npos; begin = text.find('#', begin)) {
        auto const end = text.find_first_of(" }", begin);
        text.erase(begin, end - begin + (text[end] == ' ' ? 1 : 0));
    }
    return text;
}

} // namespace kivo::test
