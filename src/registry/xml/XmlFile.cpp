#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlFile.h"

#include "registry/xml/PlainXml.h"
#include "registry/xml/XmlInput.h"
#include "registry/xml/XmlMessage.h"
#include "registry/xml/XmlModuleReader.h"
#include "registry/xml/XmlScope.h"

#include <new>

namespace kivo::configuration {

XmlFile::XmlFile(char const* path) {
    XmlInput input(path);
    if (!input.getProblem().empty()) {
        addError(path, input.getProblem(), {});
        return;
    }
    auto plain = readPlainXml(input);
    if (plain.document) {
        mDocument = std::move(*plain.document);
    } else if (input.getKept().empty() && !input.getProblem().empty()) {
        addError(path, input.getProblem(), {}); // Xerces-C says no more when it cannot begin, and loses memory then
    } else {
        readWithModule(path, input, plain);
    }
}

void XmlFile::readWithModule(char const* path, XmlInput& input, PlainXml const& plain) {
    mObstacle = plain.fault.empty() ? plain.obstacle : plain.fault;
    mObstaclePosition = plain.fault.empty() ? plain.obstaclePosition : plain.faultPosition;
    XmlScope const scope;
    auto const* const module = scope.getModule();
    if (!module) {
        auto const* const text = "this document needs the Xerces-C module, which cannot be opened";
        addError(path, plain.fault.empty() ? text : plain.fault, plain.faultPosition);
        return;
    }
    XmlModuleReader reader;
    reader.input = &input;
    reader.path = path;
    auto const client = reader.makeClient();
    auto const outcome = module->read(path, &client);
    if (outcome == XML_MODULE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    mWarnings = std::move(reader.warnings);
    mErrors = reader.errors;
    if (outcome == XML_MODULE_FAILED) {
        addError(path, "the Xerces-C module has failed", {});
    } else if (mErrors.getNumberOfErrors() == 0) {
        mDocument = reader.builder.finish();
    }
}

void XmlFile::addError(char const* path, std::string const& text, XmlPosition position) {
    mErrors.addErrorAt(Origin(Origin::FILE_SOURCE, path, position.line, position.column), "%s",
                       composeXmlMessage("ERROR", text, path, position).c_str());
}

} // namespace kivo::configuration
