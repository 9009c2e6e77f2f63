#include "kernel/kvProcessInit.h"

#include "providers/ProviderOrigins.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/CommandLineValueProvider.h>
#include <configuration/EnvironmentValueProvider.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueVisitor.h>
#include <configuration/XmlFileValueProvider.h>

#include "schema/StoredOrigin.h"

#include <typeinfo>

namespace kivo::configuration {

namespace {

class OriginFiller final : public ParameterValueVisitor {
public:
    explicit OriginFiller(StoredOrigin const& origin) : ParameterValueVisitor(false), mOrigin(origin) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        if (!group.getStoredOrigin().isKnown()) {
            group.setStoredOrigin(mOrigin);
        }
        return true;
    }

    bool visitParameterValue(ParameterValue& value) override {
        value.fillOrigins(mOrigin);
        return true;
    }

private:
    StoredOrigin const& mOrigin;
};

/// Classes derived from these are the caller's own.
bool isOfLibrary(ValueProvider const& provider) {
    auto const& type = typeid(provider);
    return type == typeid(CommandLineValueProvider) || type == typeid(XmlFileValueProvider) ||
           type == typeid(ApplicationValuesProvider) || type == typeid(EnvironmentValueProvider);
}

} // namespace

void fillOrigins(ParameterValueGroup& values, StoredOrigin const& origin) {
    OriginFiller filler(origin);
    values.accept(filler);
}

void fillOrigins(ParameterValueGroup& values, ValueProvider const& provider) {
    if (!isOfLibrary(provider)) {
        char const* const name = provider.getName();
        fillOrigins(values, StoredOrigin(Origin::PROVIDER_SOURCE, name ? name : ""));
    }
}

} // namespace kivo::configuration
