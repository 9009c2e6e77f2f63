// Uses the manager outside main(); built twice. The exit status says whether all went well.

#include <configuration/Manager.h>
#include <configuration/ParameterValidator.h>
#include <configuration/Specification.h>

#include <cstdlib>
#include <memory>

namespace {

using namespace kivo::configuration;

void require(bool condition, int status) {
    if (!condition) {
        std::_Exit(status);
    }
}

void useNewManager(int status) {
    auto& manager = *Manager::getInstance();
    require(manager.getValidator("storageLocation") && manager.getNumberOfSpecifications() == 0, status);
    manager.registerSpecification(std::make_unique<Specification>("tool", "Description").release());
}

bool isManagerUsed() { return Manager::getInstance()->getSpecification("TOOL"); }

#ifdef BEFORE_MAIN
/// Makes the manager before main(), and is destroyed before it.
struct User {
    User() { useNewManager(1); }
    ~User() { require(isManagerUsed(), 2); }
} const user;
#else
/// There before the manager, so destroyed after it: the manager is made again, and has to go again.
struct User {
    ~User() { useNewManager(3); }
} const user;
#endif

} // namespace

int main() {
#ifndef BEFORE_MAIN
    useNewManager(4);
#endif
    return isManagerUsed() ? 0 : 5;
}
