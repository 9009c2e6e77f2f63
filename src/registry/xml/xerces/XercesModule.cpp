#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlModule.h"
#include "registry/xml/xerces/ByteSource.h"
#include "registry/xml/xerces/DocumentTeller.h"
#include "registry/xml/xerces/NeverDestroyed.h"
#include "registry/xml/xerces/XercesDocument.h"
#include "registry/xml/xerces/XercesLibraryInit.h"

#include <xercesc/util/OutOfMemoryException.hpp>

#include <exception>
#include <new>
#include <optional>

namespace kivo::configuration {

namespace {

/// Runs a step, and turns whatever it throws into an outcome.
template <class Step>
XmlModuleOutcome guard(Step step) noexcept {
    try {
        return step();
    } catch (std::bad_alloc const&) {
        return XML_MODULE_OUT_OF_MEMORY;
    } catch (xercesc::OutOfMemoryException const&) {
        return XML_MODULE_OUT_OF_MEMORY;
    } catch (...) {
        return XML_MODULE_FAILED;
    }
}

std::optional<XercesLibraryInit>& library() {
    static NeverDestroyed<std::optional<XercesLibraryInit>> scope;
    return scope.object;
}

XmlModuleOutcome start() {
    // Until a start has gone well: the library cannot be used after one that has not, unless this module is opened
    // anew.
    static bool isBroken = false;
    if (isBroken) {
        return XML_MODULE_FAILED;
    }
    isBroken = true;
    return guard([] {
        library().emplace();
        isBroken = false;
        return XML_MODULE_DONE;
    });
}

void stop() { library().reset(); }

XmlModuleOutcome tellMessages(XercesDocument const& document, XmlModuleClient const& client) {
    auto outcome = XML_MODULE_DONE;
    for (auto const& warning : document.getWarnings()) {
        outcome = outcome == XML_MODULE_DONE ? client.addWarning(client.context, warning.c_str()) : outcome;
    }
    auto const& errors = document.getErrors();
    for (unsigned long i = 0; i < errors.getNumberOfErrors() && outcome == XML_MODULE_DONE; ++i) {
        auto const origin = errors.getOrigin(i);
        outcome = client.addError(client.context, errors.getError(i), origin.getLine(), origin.getColumn());
    }
    return outcome;
}

XmlModuleOutcome readFile(char const* path, XmlModuleClient const& client) {
    auto const copy = [&client](char* buffer, std::size_t size) {
        return client.copyBytes(client.context, buffer, size);
    };
    XercesDocument const document(path, ByteSource(path, copy));
    auto const outcome = tellMessages(document, client);
    return outcome == XML_MODULE_DONE && document.getErrors().getNumberOfErrors() == 0
               ? tellDocument(*document.getDocument()->getDocumentElement(), document.getLines(), client)
               : outcome;
}

XmlModuleOutcome read(char const* path, XmlModuleClient const* client) {
    return guard([=] { return readFile(path, *client); });
}

} // namespace

} // namespace kivo::configuration

extern "C" kivo::configuration::XmlModule const* kivoConfigurationXmlModule(unsigned int interfaceNumber) {
    using namespace kivo::configuration;
    static constexpr XmlModule MODULE{start, stop, read};
    return interfaceNumber == XML_MODULE_INTERFACE ? &MODULE : nullptr;
}
