#include "kernel/kvProcessInit.h"

#include "registry/ConfigurationRegistryLoader.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>

#include "kernel/kvFiles.h"
#include "registry/DeclarationPlaces.h"
#include "registry/DeclarationReader.h"
#include "registry/DeclarationRegistrar.h"
#include "registry/xml/XmlFile.h"
#include "schema/LocatedException.h"
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

/// The load of one file.
class RegistryFileLoad {
public:
    explicit RegistryFileLoad(char const* fileName) : mFile(fileName), mPlaces(mFile.getDocument(), fileName) {}

    void run();

private:
    void registerAll();
    void registerChildren(XmlElement const& parent, Content content);

    XmlFile const mFile;
    DeclarationPlaces const mPlaces;
    DeclarationRegistrar mRegistrar{mPlaces};
    XmlElement const* mElement = nullptr; // whose declaration is at fault when something is thrown
};

void RegistryFileLoad::run() {
    mFile.getErrors().throwIfErrors();
    try {
        registerAll();
    } catch (ConfigurationException& fault) {
        fault.setOrigin(mPlaces.of(*mElement).toOrigin());
        throw;
    } catch (ContractViolationException& fault) {
        fault.setOrigin(mPlaces.of(*mElement).toOrigin());
        throw;
    }
}

void RegistryFileLoad::registerAll() {
    mElement = &mFile.getDocument().getRoot();
    for (auto const& section : readSections(*mElement)) {
        registerChildren(section.element, section.children);
    }
}

/// Registers what the children of an element declare, and what is inside them.
void RegistryFileLoad::registerChildren(XmlElement const& parent, Content content) {
    if (content == Content::NOTHING) {
        return; // what stands there is ignored
    }
    for (auto const* child = parent.getFirstChild(); child; child = child->getNextSibling()) {
        mElement = child;
        auto const declaration = readDeclaration(*child, content);
        mRegistrar.open(declaration);
        registerChildren(*child, declaration.children);
        mElement = child;
        mRegistrar.close(declaration);
    }
}

void readFile(char const* fileName) {
    if (kvLocalExists(fileName) == KV_FILE_MISSING) {
        throw located(StoredOrigin(Origin::FILE_SOURCE, fileName),
                      ConfigurationException("File \"%s\" was not found", fileName));
    }
    RegistryFileLoad(fileName).run();
}

} // namespace

void ConfigurationRegistryLoader::loadFile(char const* fileName) {
    auto const* const name = fileName ? fileName : "";
    try {
        readFile(name);
    } catch (std::exception const& error) {
        writeLoadLogMessage(name, error.what() ? error.what() : "");
        throw;
    }
    writeLoadLogMessage(name, nullptr);
}

} // namespace kivo::configuration
