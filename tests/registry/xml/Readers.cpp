#include "registry/xml/Readers.h"

#include "registry/xml/PlainXml.h"
#include "registry/xml/XmlFile.h"
#include "registry/xml/XmlInput.h"
#include "registry/xml/XmlModuleReader.h"
#include "registry/xml/XmlScope.h"

namespace kivo::test {

using namespace configuration;

std::string toText(XmlElement const& element) {
    auto text = std::string(element.getName()) + "[";
    for (auto const& attribute : element.getAttributes()) {
        text.append(attribute.name).append("=").append(attribute.value).append(" ");
    }
    text += "](";
    for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        text += toText(*child);
    }
    return text + ")";
}

std::optional<std::string> readPlain(std::string const& path) {
    XmlInput input(path.c_str());
    auto const plain = readPlainXml(input);
    return plain.document ? std::optional(toText(plain.document->getRoot())) : std::nullopt;
}

std::string readWithXerces(std::string const& path) {
    XmlInput input(path.c_str());
    XmlModuleReader reader;
    reader.input = &input;
    auto const client = reader.makeClient();
    XmlScope().getModule()->read(path.c_str(), &client);
    return reader.errors.getNumberOfErrors() == 0 ? toText(reader.builder.finish().getRoot())
                                                  : composeMessage(reader.errors);
}

std::string readFile(std::string const& path) {
    XmlFile const file(path.c_str());
    return file.getErrors().getNumberOfErrors() == 0 ? toText(file.getDocument().getRoot())
                                                     : composeMessage(file.getErrors());
}

} // namespace kivo::test
