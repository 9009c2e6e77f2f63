// The least that a kernel must offer the library: directories below the current one, no plug-ins, records of the main
// log on standard error.

#include "kernel/kvProcessInit.h"
#include "kernel/kvContext.h"
#include "kernel/kvDirectories.h"
#include "kernel/kvExtensionPoint.h"
#include "kernel/kvFiles.h"
#include "kernel/kvKivo.h"
#include "kernel/kvMemory.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace fs = std::filesystem;

bool kvProcessInit() { return true; }

// Directories and files

static bool deliver(std::string const& directory, char* buffer, unsigned int size) {
    return fs::is_directory(directory) && directory.copy(buffer, size - 1) == directory.size() &&
           (buffer[directory.size()] = '\0', true);
}

bool kvGetEtcDir(char* buffer, unsigned int size) { return deliver("host/etc", buffer, size); }
bool kvGetPluginsDir(char*, unsigned int) { return false; }
bool kvGetConfigDir(char* buffer, unsigned int size) { return deliver("host/config", buffer, size); }
char kvGetDirSeparatorChar(char const*) { return '/'; }

int kvLocalExists(char const* path) {
    std::error_code ignored;
    fs::file_status const status = fs::status(path, ignored);
    return !fs::exists(status) ? KV_FILE_MISSING : fs::is_directory(status) ? KV_FILE_DIRECTORY : 0;
}

namespace {

class Listing final : public kvDirListing {
public:
    explicit Listing(char const* path) : mEntry(path) {}
    char const* next() override {
        if (mEntry == fs::directory_iterator()) {
            return nullptr;
        }
        mName = mEntry->path().filename();
        ++mEntry;
        return mName.c_str();
    }
    void close() override { delete this; }

private:
    fs::directory_iterator mEntry;
    std::string mName;
};

} // namespace

kvDirListing* kvLocalOpenDir(char const* path) { return fs::is_directory(path) ? new Listing(path) : nullptr; }

// Contexts, sessions, exceptions

class kvSession {};
static kvSession session;
static thread_local kvContext* currentContext = nullptr;

kvSession* kvSessionCurrentGetFunction() { return &session; }

kvContext::kvContext(unsigned int first, unsigned int second) : mFirstNumber(first), mSecondNumber(second) {}
kvContext::~kvContext() = default;
kvContext* kvContext::current(kvSession*) { return currentContext; }
void kvContext::setCurrentShared(kvContext* context) { currentContext = context; }

kvException::~kvException() = default;
char const* kvException::what() const noexcept { return "Kernel exception"; }
kvException::operator char const*() const { return what(); }
int kvException::get_kind() const { return -1; }
void kvException::reportErrors(char const*) {}
kvException* kvException::asKernelException() { return nullptr; }
bool kvException::setEnabled(kvSession*, bool) { return false; }

// Plug-ins, memory, main log

class kvExtensionPoint::Impl {};
kvExtensionPoint::kvExtensionPoint(char const*, bool, bool) {}
kvExtensionPoint::~kvExtensionPoint() = default;
unsigned long kvExtensionPoint::getNumberOfPlugins() { return 0; }
kvPlugin* kvExtensionPoint::getPlugin(unsigned long) { return nullptr; }
void* kvPlugin::createImplementation() { return mCreate(); }

void* kvsMalloc(std::size_t size) { return std::malloc(size); }
void kvsFree(void* memory) { std::free(memory); }

void kvKivo::addToMainLog(char const* category, char const* text) {
    std::fprintf(stderr, "host log, %s: %s\n", category, text);
}
