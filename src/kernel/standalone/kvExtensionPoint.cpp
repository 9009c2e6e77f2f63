#include "kernel/kvExtensionPoint.h"

#include "kernel/kvDirectories.h"
#include "kernel/kvKivo.h"
#include "kernel/standalone/PluginFiles.h"

#include <array>
#include <climits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <dlfcn.h>
#include <link.h>

namespace {

using NameFunction = char const* (*)();

struct EntryPoints {
    NameFunction mName;
    kvPlugin::CreateFunction mCreate;
};

void logPassedOver(std::string const& file, std::string const& reason) {
    kvKivo::addToMainLog("Kernel", ("Plug-in file \"" + file + "\" passed over: " + reason).c_str());
}

/// The function that the shared object itself exports under a name, or null. A plain lookup also finds those of the
/// libraries that the object is linked with, which may be plug-ins of another point.
template <class Function>
Function findOwnFunction(void* object, char const* name) {
    auto* symbol = dlsym(object, name);
    Dl_info info{};
    link_map* definedBy = nullptr;
    link_map* own = nullptr;
    bool const known = symbol && dladdr1(symbol, &info, reinterpret_cast<void**>(&definedBy), RTLD_DL_LINKMAP) != 0 &&
                       dlinfo(object, RTLD_DI_LINKMAP, &own) == 0;
    return known && definedBy == own ? reinterpret_cast<Function>(symbol) : nullptr;
}

/// Nothing that was loaded is unloaded again, not even what turns out to be no plug-in: its initialisers may have left
/// threads, handlers or objects that run its code.
std::optional<EntryPoints> load(std::string const& file) {
    auto* object = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!object) {
        auto const* reason = dlerror();
        logPassedOver(file, reason ? reason : "cannot be loaded");
        return std::nullopt;
    }
    EntryPoints const found{findOwnFunction<NameFunction>(object, "extensionPointName"),
                            findOwnFunction<kvPlugin::CreateFunction>(object, "createPlugin")};
    if (!found.mName || !found.mCreate) {
        logPassedOver(file,
                      std::string("no entry point \"") + (found.mName ? "createPlugin" : "extensionPointName") + "\"");
        return std::nullopt;
    }
    return found;
}

} // namespace

kvPlugin::kvPlugin(CreateFunction create) : mCreate(create) {}

void* kvPlugin::createImplementation() { return mCreate(); }

class kvExtensionPoint::Impl {
public:
    Impl(char const* name, bool allowSeveral, bool optional)
        : mName(name ? name : ""), mAllowSeveral(allowSeveral), mOptional(optional) {}

    std::vector<kvPlugin>& plugins() {
        if (!mSearched) {
            mSearched = true;
            search();
        }
        return mPlugins;
    }

private:
    void search();
    void examine(std::string const& file);

    std::string const mName;
    bool const mAllowSeveral;
    bool const mOptional;
    bool mSearched = false;
    std::vector<kvPlugin> mPlugins;
};

void kvExtensionPoint::Impl::search() {
    std::array<char, PATH_MAX> directory{};
    if (kvGetPluginsDir(directory.data(), static_cast<unsigned int>(directory.size()))) {
        for (auto const& file : kivo::kernel::findPluginFiles(directory.data())) {
            examine(file);
        }
    }
    if (mPlugins.empty() && !mOptional) {
        kvKivo::addToMainLog("Kernel", ("No plug-in for the extension point \"" + mName + "\"").c_str());
    }
}

void kvExtensionPoint::Impl::examine(std::string const& file) {
    auto const found = load(file);
    if (!found) {
        return;
    }
    auto const* name = found->mName();
    if (std::string_view(name ? name : "") != mName) {
        return;
    }
    if (!mAllowSeveral && !mPlugins.empty()) {
        logPassedOver(file, "the extension point \"" + mName + "\" takes one plug-in");
        return;
    }
    mPlugins.emplace_back(found->mCreate);
}

kvExtensionPoint::kvExtensionPoint(char const* name, bool allowSeveral, bool optional)
    : mImpl(std::make_unique<Impl>(name, allowSeveral, optional)) {}

kvExtensionPoint::~kvExtensionPoint() = default;

unsigned long kvExtensionPoint::getNumberOfPlugins() { return mImpl->plugins().size(); }

kvPlugin* kvExtensionPoint::getPlugin(unsigned long index) {
    auto& plugins = mImpl->plugins();
    return index < plugins.size() ? &plugins[index] : nullptr;
}
