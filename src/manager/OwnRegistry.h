#pragma once

#include <configuration/Manager.h>

#include <memory>

namespace kivo::configuration {

/// A registry of its own: while this object lives, Manager::getInstance() gives a manager beside that of the process,
/// at first an empty one. So factories can be tried out, and leave nothing behind. No other thread may use the manager
/// meanwhile.
class OwnRegistry {
public:
    OwnRegistry();
    /// Destroys all that was registered.
    ~OwnRegistry();
    OwnRegistry(OwnRegistry const&) = delete;
    OwnRegistry& operator=(OwnRegistry const&) = delete;

    Manager& getManager() { return *mManager; }

private:
    std::unique_ptr<Manager> mManager;
    Manager* mOfProcess; // null: there is none yet
};

} // namespace kivo::configuration
