#pragma once

#include "registry/Declaration.h"
#include "registry/DeclarationPlaces.h"
#include "registry/DeclarationRegistrar.h"
#include "registry/xml/XmlFile.h"

#include <optional>

namespace kivo::configuration {

struct DeclarationRecord;

/// @throws ConfigurationException "File \"<path>\" was not found"
void requireRegistryFile(char const* path);

/// The load of one registry file: reads its declarations and registers them, one after the other. A fault ends it,
/// unless a derived class goes on.
class RegistryFileLoad {
public:
    /// Reads the XML of a file.
    /// @param record receives what the file declares; may be null
    explicit RegistryFileLoad(char const* path, DeclarationRecord* record = nullptr);
    virtual ~RegistryFileLoad() = default;
    RegistryFileLoad(RegistryFileLoad const&) = delete;
    RegistryFileLoad& operator=(RegistryFileLoad const&) = delete;

    XmlFile const& getFile() const { return mFile; }
    DeclarationPlaces const& getPlaces() const { return mPlaces; }

    /// Registers what the file declares.
    /// @throws ConfigurationParameterException the errors in the XML, one a line
    /// @throws what the reading and the factories of the declared objects throw, with the place of the element
    void run();

protected:
    /// Registers what the file declares, which has no errors in its XML.
    void registerAll();

    /// Checks that the document is one of registry files.
    virtual void begin(XmlElement const& root);
    /// Reads and registers what an element says, without its children.
    /// @param place what may stand inside the element's parent
    /// @return nothing: what is inside the element is passed over
    virtual std::optional<Declaration> open(XmlElement const& element, Content place);
    /// Ends what open() has opened, when its children have been registered.
    virtual void close(Declaration const& declaration);

    DeclarationRegistrar& getRegistrar() { return mRegistrar; }

private:
    void registerChildren(XmlElement const& parent, Content content);

    XmlFile const mFile;
    DeclarationPlaces const mPlaces;
    DeclarationRegistrar mRegistrar;
    XmlElement const* mElement = nullptr; // whose declaration is at fault when something is thrown
};

} // namespace kivo::configuration
