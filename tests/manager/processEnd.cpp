// Uses the manager outside main(); built twice. The exit status says whether all went well.

#include <configuration/Manager.h>
#include <configuration/Specification.h>

#include <cstdlib>
#include <memory>

namespace {

using namespace kivo::configuration;

bool isManagerUsed() { return Manager::getInstance()->getSpecification("TOOL"); }

void require(bool condition, int status) {
    if (!condition) {
        std::_Exit(status);
    }
}

void useNewManager(int status) {
    require(Manager::getInstance()->getValidator("storageLocation") && !isManagerUsed(), status);
    Manager::getInstance()->registerSpecification(std::make_unique<Specification>("tool", "Description").release());
}

/// Makes the manager before main(), and is destroyed before it. Or is there before the manager, so destroyed after it:
/// the manager is made again, and has to go again.
struct User {
    User() { IS_BEFORE_MAIN ? useNewManager(1) : void(); }
    ~User() { IS_BEFORE_MAIN ? require(isManagerUsed(), 2) : useNewManager(3); }
} const user;

} // namespace

int main() {
    IS_BEFORE_MAIN ? void() : useNewManager(4);
    return isManagerUsed() ? 0 : 5;
}
