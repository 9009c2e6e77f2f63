#include "kernel/standalone/FileErrors.h"

#include "kernel/kvKivo.h"

#include <system_error>

namespace kivo::kernel {

void logFileError(char const* kind, std::string const& path, char const* fault, int error) {
    auto const text = std::string(kind) + " \"" + path + "\" " + fault + ": " + std::generic_category().message(error);
    kvKivo::addToMainLog("Kernel", text.c_str());
}

} // namespace kivo::kernel
