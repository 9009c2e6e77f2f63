#include "kernel/kvProcessInit.h"

#include <configuration/Manager.h>

#include "manager/ManagerImpl.h"
#include "manager/OwnRegistry.h"

#include <cstdlib>
#include <memory>
#include <mutex>

#include <pthread.h>

namespace kivo::configuration {

std::atomic<Manager*> Manager::smInstance{nullptr};

namespace {

/// The lock of getInstance() and shutdown(). It is made before shutdown() is registered with atexit, so it is destroyed
/// after shutdown() has run.
class SingletonMutex {
public:
    SingletonMutex() { pthread_mutex_init(&mMutex, nullptr); }
    ~SingletonMutex() { pthread_mutex_destroy(&mMutex); }
    SingletonMutex(SingletonMutex const&) = delete;
    SingletonMutex& operator=(SingletonMutex const&) = delete;

    void lock() { pthread_mutex_lock(&mMutex); }
    bool try_lock() { return pthread_mutex_trylock(&mMutex) == 0; }
    void unlock() { pthread_mutex_unlock(&mMutex); }

private:
    pthread_mutex_t mMutex;
};

SingletonMutex& managerSingletonMutex() {
    static SingletonMutex mutex;
    return mutex;
}

/// Makes the lock when the library is loaded, whether or not a manager is ever asked for.
[[maybe_unused]] SingletonMutex& madeAtLoadTime = managerSingletonMutex();

/// Ends a manager whose start failed, for which atexit does not know shutdown(), when the library is unloaded. A
/// manager that is just starting is left: the process ends in the middle of its start.
struct LastShutdown {
    ~LastShutdown() {
        if (managerSingletonMutex().try_lock()) {
            managerSingletonMutex().unlock();
            Manager::shutdown();
        }
    }
} const lastShutdown;

} // namespace

Manager* Manager::getInstance() {
    if (auto* instance = smInstance.load(std::memory_order_acquire)) {
        return instance;
    }
    std::scoped_lock const lock(managerSingletonMutex());
    if (auto* instance = smInstance.load(std::memory_order_acquire)) {
        return instance;
    }
    auto* instance = std::make_unique<Manager>().release();
    // Published before anything is loaded: loading calls getInstance() on this thread, which must not lock again.
    smInstance.store(instance, std::memory_order_release);
    instance->mImpl->registerDefaultValidators();
    instance->mImpl->loadDefaultConfigurationRegistry();
    std::atexit(&Manager::shutdown);
    return instance;
}

void Manager::shutdown() {
    std::scoped_lock const lock(managerSingletonMutex());
    // Cleared last: what the manager destroys may call getInstance(), which must not lock again.
    std::unique_ptr<Manager>(smInstance.load(std::memory_order_acquire)).reset();
    smInstance.store(nullptr, std::memory_order_release);
}

OwnRegistry::OwnRegistry() : mManager(std::make_unique<Manager>()) {
    mOfProcess = Manager::smInstance.exchange(mManager.get(), std::memory_order_acq_rel);
}

OwnRegistry::~OwnRegistry() {
    mManager.reset(); // while it is still the one that getInstance() gives, as in shutdown()
    Manager::smInstance.store(mOfProcess, std::memory_order_release);
}

} // namespace kivo::configuration
