#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlModuleOpening.h"

#include <dlfcn.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <new>
#include <string>

namespace kivo::configuration {

namespace {

constexpr char const* MODULE_PATH = MODULE_FOLDER "/xerces.so"; // beside this library

/// Where this library lies, links followed; empty when that cannot be told. Found when the library is loaded, since
/// the path that led to it may be relative.
struct LibraryPath {
    LibraryPath() {
        Dl_info info;
        if (!dladdr(this, &info) || !realpath(info.dli_fname, text)) {
            text[0] = '\0';
        }
    }

    char text[PATH_MAX];
} const libraryPath;

void* moduleHandle = nullptr;

void* openModuleFile() {
    std::string const library = libraryPath.text;
    auto const path = library.substr(0, library.rfind('/') + 1) + MODULE_PATH;
    errno = 0;
    auto* const handle = library.empty() ? nullptr : dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle && errno == ENOMEM) {
        throw std::bad_alloc();
    }
    return handle;
}

} // namespace

XmlModule const* openXmlModule() {
    moduleHandle = openModuleFile();
    auto* const symbol = moduleHandle ? dlsym(moduleHandle, "kivoConfigurationXmlModule") : nullptr;
    auto const getModule = reinterpret_cast<decltype(&kivoConfigurationXmlModule)>(symbol);
    auto const* const module = getModule ? getModule(XML_MODULE_INTERFACE) : nullptr;
    if (!module && moduleHandle) {
        closeXmlModule();
    }
    return module;
}

void closeXmlModule() { dlclose(moduleHandle); }

} // namespace kivo::configuration
