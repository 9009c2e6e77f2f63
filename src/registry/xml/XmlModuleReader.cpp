#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlModuleReader.h"

#include "registry/xml/XmlInput.h"

#include <new>

namespace kivo::configuration {

namespace {

/// Runs a step of a reader. No exception may reach the module; std::bad_alloc is the only one that a step throws.
template <class Step>
XmlModuleOutcome run(void* reader, Step step) noexcept {
    try {
        step(*static_cast<XmlModuleReader*>(reader));
        return XML_MODULE_DONE;
    } catch (std::bad_alloc const&) {
        return XML_MODULE_OUT_OF_MEMORY;
    }
}

long copyBytes(void* context, char* buffer, unsigned long size) {
    auto const count = static_cast<XmlModuleReader*>(context)->input->copy(buffer, size);
    return count ? static_cast<long>(*count) : -1;
}

XmlModuleOutcome startElement(void* context, char const* name, unsigned long line, unsigned long attributeCount) {
    return run(context, [=](auto& reader) { reader.builder.startElement(name, line, attributeCount); });
}

XmlModuleOutcome addAttribute(void* context, char const* name, char const* value) {
    return run(context, [=](auto& reader) { reader.builder.addAttribute(name, value); });
}

XmlModuleOutcome endElement(void* context) {
    return run(context, [](auto& reader) { reader.builder.endElement(); });
}

XmlModuleOutcome addWarning(void* context, char const* line) {
    return run(context, [=](auto& reader) { reader.warnings.emplace_back(line); });
}

XmlModuleOutcome addError(void* context, char const* line, unsigned long lineNumber, unsigned long column) {
    return run(context, [=](auto& reader) {
        reader.errors.addErrorAt(Origin(Origin::FILE_SOURCE, reader.path, lineNumber, column), "%s", line);
    });
}

} // namespace

XmlModuleClient XmlModuleReader::makeClient() {
    return {this, copyBytes, startElement, addAttribute, endElement, addWarning, addError};
}

} // namespace kivo::configuration
