#pragma once

#include "lint/DeclarationRemarks.h"
#include "registry/RegistryFileLoad.h"

#include <deque>
#include <exception>
#include <string>

namespace kivo::configuration {

/// A load that goes on after each fault, and says what a load passes over in silence.
class RegistryFileInspection final : private RegistryFileLoad {
public:
    /// Reads the XML of a file. @param contents what is known of the files before; must outlive this object
    RegistryFileInspection(char const* path, RegistryContents& contents);

    /// Registers what the file declares.
    void run();

private:
    void begin(XmlElement const& root) override;
    std::optional<Declaration> open(XmlElement const& element, Content place) override;
    void close(Declaration const& declaration) override;

    std::optional<Declaration> openStandIn(XmlElement const& element, Content place);
    bool tryToOpen(Declaration const& declaration);
    void note(Declaration const& declaration);
    void report(std::exception const& fault, XmlElement const& element, std::vector<char const*> const& elementNames,
                std::string const& masked = {});
    std::string suggest(UnknownName const& unknown, std::vector<char const*> const& elementNames);

    StoredOrigin mFileOrigin;
    RegistryContents& mContents;
    DeclarationRemarks mRemarks;
    std::deque<std::string> mMadeUpIds; // of stand-ins
};

} // namespace kivo::configuration
