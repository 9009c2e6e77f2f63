#include "kernel/kvProcessInit.h"

#include "registry/ConfigurationRegistryLoader.h"

#include "registry/RegistryFileLoad.h"
#include "schema/MainLog.h"

#include <exception>
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

void ConfigurationRegistryLoader::loadFile(char const* fileName) {
    auto const* const name = fileName ? fileName : "";
    try {
        requireRegistryFile(name);
        RegistryFileLoad(name).run();
    } catch (std::exception const& error) {
        writeLoadLogMessage(name, error.what() ? error.what() : "");
        throw;
    }
    writeLoadLogMessage(name, nullptr);
}

} // namespace kivo::configuration
