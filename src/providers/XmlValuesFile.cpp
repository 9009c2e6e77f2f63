#include "kernel/kvProcessInit.h"

#include "providers/XmlValuesFile.h"

#include <configuration/ParameterValueGroup.h>

#include "registry/xml/XmlFile.h"
#include "schema/MainLog.h"
#include "schema/StoredOrigin.h"

namespace kivo::configuration {

namespace {

void logWarnings(std::vector<std::string> const& warnings) {
    if (warnings.empty()) {
        return;
    }
    std::string text = "loadFromXmlFile:\n";
    for (auto const& warning : warnings) {
        text.append(warning).append("\n");
    }
    addToMainLog(text);
}

StoredOrigin placeIn(StoredOrigin const& file, XmlPosition position) { return file.at(position.line, position.column); }

std::unique_ptr<ParameterValueGroup> makeGroup(XmlDocument const& document, XmlElement const& element,
                                               StoredOrigin const& file) {
    auto group = std::make_unique<ParameterValueGroup>(element.getName());
    group->setStoredOrigin(placeIn(file, document.getPosition(element)));
    auto const positions = document.getAttributePositions(element);
    for (auto const& attribute : element.getAttributes()) {
        group->addValueAt(attribute.name.data(), attribute.value, placeIn(file, positions[attribute.number]));
    }
    for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        group->addItem(makeGroup(document, *child, file).release());
    }
    return group;
}

} // namespace

ParameterValueGroup* loadFromXmlFile(char const* fileName) {
    XmlFile const file(fileName);
    logWarnings(file.getWarnings());
    file.getErrors().throwIfErrors();
    return getGroupFromXmlDocument(file.getDocument(), StoredOrigin(Origin::FILE_SOURCE, fileName));
}

ParameterValueGroup* getGroupFromXmlDocument(XmlDocument const& document, StoredOrigin const& file) {
    return makeGroup(document, document.getRoot(), file).release();
}

} // namespace kivo::configuration
