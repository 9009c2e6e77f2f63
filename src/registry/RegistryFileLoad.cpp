#include "kernel/kvProcessInit.h"

#include "registry/RegistryFileLoad.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>

#include "kernel/kvFiles.h"
#include "registry/DeclarationReader.h"
#include "schema/LocatedException.h"

namespace kivo::configuration {

void requireRegistryFile(char const* path) {
    if (kvLocalExists(path) == KV_FILE_MISSING) {
        throw located(StoredOrigin(Origin::FILE_SOURCE, path),
                      ConfigurationException("File \"%s\" was not found", path));
    }
}

RegistryFileLoad::RegistryFileLoad(char const* path, DeclarationRecord* record)
    : mFile(path), mPlaces(mFile.getDocument(), path), mRegistrar(mPlaces, record) {}

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
    auto const& root = mFile.getDocument().getRoot();
    begin(root);
    for (auto const& section : readSections(root)) {
        registerChildren(section.element, section.children);
    }
}

void RegistryFileLoad::begin(XmlElement const& root) {
    mElement = &root;
    validateRoot(root);
}

/// Registers what the children of an element declare, and what is inside them.
void RegistryFileLoad::registerChildren(XmlElement const& parent, Content content) {
    if (content == Content::NOTHING) {
        return; // what stands there is ignored
    }
    for (auto const* child = parent.getFirstChild(); child; child = child->getNextSibling()) {
        if (auto const declaration = open(*child, content)) {
            registerChildren(*child, declaration->children);
            close(*declaration);
        }
    }
}

std::optional<Declaration> RegistryFileLoad::open(XmlElement const& element, Content place) {
    mElement = &element;
    auto const declaration = readDeclaration(element, place);
    mRegistrar.open(declaration);
    return declaration;
}

void RegistryFileLoad::close(Declaration const& declaration) {
    mElement = &declaration.element;
    mRegistrar.close(declaration);
}

} // namespace kivo::configuration
