#include "kernel/kvProcessInit.h"

#include "registry/ConfigurationRegistryLoader.h"

#include <configuration/ConfigurationException.h>

#include "kernel/kvFiles.h"
#include "registry/DeclarationReader.h"
#include "registry/DeclarationRegistrar.h"
#include "registry/xml/XmlFile.h"
#include "schema/MainLog.h"

#include <string>

namespace kivo::configuration {

namespace {

/// @param error null: the load succeeded
void writeLoadLogMessage(char const* fileName, char const* error) {
    std::string text = "loadConfigurationRegistryFile: [";
    text.append(error ? "failed" : "succeeded").append("]\n [file = \"").append(fileName).append("\"]");
    if (error) {
        text.append("\n [error = \"").append(error).append("\"]");
    }
    addToMainLog(text);
}

} // namespace

class ConfigurationRegistryLoader::Impl {
public:
    void readFile(char const* fileName);

private:
    void registerChildren(XmlElement const& parent, Content content);

    DeclarationRegistrar mRegistrar;
};

ConfigurationRegistryLoader::ConfigurationRegistryLoader() : mImpl(std::make_unique<Impl>()) {}

ConfigurationRegistryLoader::~ConfigurationRegistryLoader() = default;

void ConfigurationRegistryLoader::loadFile(char const* fileName) {
    auto const* const name = fileName ? fileName : "";
    try {
        mImpl->readFile(name);
    } catch (std::exception const& error) {
        writeLoadLogMessage(name, error.what() ? error.what() : "");
        throw;
    }
    writeLoadLogMessage(name, nullptr);
}

void ConfigurationRegistryLoader::Impl::readFile(char const* fileName) {
    if (kvLocalExists(fileName) == KV_FILE_MISSING) {
        throw ConfigurationException("File \"%s\" was not found", fileName);
    }
    XmlFile const file(fileName);
    file.getErrors().throwIfErrors();
    mRegistrar = {}; // a faulty file may have left groups open, and groups can have changed since they were measured
    for (auto const& section : readSections(file.getDocument().getRoot())) {
        registerChildren(section.element, section.children);
    }
}

/// Registers what the children of an element declare, and what is inside them.
void ConfigurationRegistryLoader::Impl::registerChildren(XmlElement const& parent, Content content) {
    if (content == Content::NOTHING) {
        return; // what stands there is ignored
    }
    for (auto const* child = parent.getFirstChild(); child; child = child->getNextSibling()) {
        auto const declaration = readDeclaration(*child, content);
        mRegistrar.open(declaration);
        registerChildren(*child, declaration.children);
        mRegistrar.close(declaration);
    }
}

} // namespace kivo::configuration
