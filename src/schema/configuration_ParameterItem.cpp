#include "kernel/kvProcessInit.h"

#include <configuration/Memory.h>
#include <configuration/ParameterItem.h>

#include "schema/ContractChecks.h"
#include "schema/ParameterItemImpl.h"

namespace kivo::configuration {

ParameterItem::ParameterItem(char const* id, char const* name, char const* description, bool optional, bool unbounded)
    : ParameterItem(std::make_unique<Impl>(), id, name, description, optional, unbounded) {}

ParameterItem::ParameterItem(std::unique_ptr<Impl> impl, char const* id, char const* name, char const* description,
                             bool optional, bool unbounded)
    : mImpl(std::move(impl)) {
    KIVO_REQUIRE(id && strlen(id) > 0);
    KIVO_REQUIRE(name && strlen(name) > 0);
    KIVO_REQUIRE(description && strlen(description) > 0);
    mImpl->mId = id;
    if (mImpl->mId != name) {
        mImpl->mName.reset(cloneString(name));
    }
    mImpl->mDescription.reset(cloneString(description));
    mImpl->mOptional = optional;
    mImpl->mUnbounded = unbounded;
}

ParameterItem::~ParameterItem() = default;

ParameterItem::Impl* ParameterItem::getImpl() const noexcept { return mImpl.get(); }

bool ParameterItem::isOptional() const { return mImpl->mOptional; }

bool ParameterItem::isUnbounded() const { return mImpl->mUnbounded; }

char const* ParameterItem::getId() const { return mImpl->mId.c_str(); }

char const* ParameterItem::getName() const { return mImpl->getName(); }

char const* ParameterItem::getDescription() const { return mImpl->mDescription.get(); }

void ParameterItem::setDescription(char const* description) {
    KIVO_REQUIRE(description && strlen(description) > 0);
    mImpl->mDescription.reset(cloneString(description));
}

bool ParameterItem::isSpecialized() const { return false; }

Origin ParameterItem::getDeclarationOrigin() const { return declarationOrigin(mImpl->mDeclaration); }

void ParameterItem::setDeclarationOrigin(StoredOrigin const& origin) { mImpl->mDeclaration = origin; }

} // namespace kivo::configuration
