#include "kernel/kvProcessInit.h"

#include "inspection/SeparateOrigins.h"

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueVisitor.h>

#include "providers/ProviderOrigins.h"

namespace kivo::configuration {

namespace {

class OriginSeparator final : public ParameterValueVisitor {
public:
    OriginSeparator() : ParameterValueVisitor(false) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        group.setStoredOrigin(group.getStoredOrigin().unshared());
        return true;
    }
    bool visitParameterValue(ParameterValue& value) override {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            value.setStoredOrigin(i, value.getStoredOrigin(i).unshared());
        }
        return true;
    }
};

} // namespace

ParameterValueGroup separateOrigins(ParameterValueGroup const& tree, StoredOrigin const& origin) {
    ParameterValueGroup separated(tree);
    fillOrigins(separated, origin);
    OriginSeparator separator;
    separated.accept(separator);
    return separated;
}

} // namespace kivo::configuration
