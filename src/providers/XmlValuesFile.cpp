#include "kernel/kvProcessInit.h"

#include "providers/XmlValuesFile.h"

#include <configuration/ParameterValueGroup.h>

#include "registry/xml/XmlFile.h"
#include "schema/MainLog.h"

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

std::unique_ptr<ParameterValueGroup> makeGroup(XmlElement const& element) {
    auto group = std::make_unique<ParameterValueGroup>(element.getName());
    for (auto const& attribute : element.getAttributes()) {
        group->addValue(attribute.name, attribute.value);
    }
    for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        group->addItem(makeGroup(*child).release());
    }
    return group;
}

} // namespace

ParameterValueGroup* loadFromXmlFile(char const* fileName) {
    XmlFile const file(fileName);
    logWarnings(file.getWarnings());
    file.getErrors().throwIfErrors();
    return getGroupFromXmlElement(file.getDocument().getRoot());
}

ParameterValueGroup* getGroupFromXmlElement(XmlElement const& element) { return makeGroup(element).release(); }

} // namespace kivo::configuration
