#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include "schema/ContractChecks.h"
#include "schema/ItemKinds.h"
#include "schema/NameComparison.h"
#include "schema/StoredOrigin.h"

#include <string>

namespace kivo::configuration {

class Specification::Impl {
public:
    std::string mId;
    std::string mDescription;
    StoredOrigin mDeclaration; // unknown: the application's
};

Specification::Specification(char const* id, char const* description) {
    KIVO_REQUIRE(id != 0);
    KIVO_REQUIRE(description != 0);
    mImpl.reset(new Impl{id, description, {}});
}

Specification::~Specification() = default;

char const* Specification::getId() const { return mImpl->mId.c_str(); }

char const* Specification::getDescription() const { return mImpl->mDescription.c_str(); }

ParameterGroup const* Specification::getParameterGroup() const {
    auto const* item = Manager::getInstance()->getParameterItem(getId());
    if (!item) {
        throw ConfigurationException("Group \"%s\" was not found in the registry", getId());
    }
    auto const* group = asGroup(item);
    if (!group) {
        throw ConfigurationException("\"%s\" is not a parameter group", getId());
    }
    return group;
}

Origin Specification::getDeclarationOrigin() const { return declarationOrigin(mImpl->mDeclaration); }

void Specification::setDeclarationOrigin(StoredOrigin const& origin) { mImpl->mDeclaration = origin; }

bool Specification::operator==(Specification const& other) const {
    return equalIgnoringCase(mImpl->mId, other.mImpl->mId);
}

} // namespace kivo::configuration
