#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/XmlFileValueProvider.h>

#include "providers/XmlValuesFile.h"
#include "schema/ContractChecks.h"
#include "values/ItemTaker.h"
#include "visitors/UnboundedParameterValueFixer.h"

#include <memory>

namespace kivo::configuration {

class XmlFileValueProvider::Impl {
public:
    /// Whether the repeated elements of the cached tree have become values.
    bool fixed = false;
};

XmlFileValueProvider::XmlFileValueProvider(int priority) : ValueProvider(priority), mImpl(std::make_unique<Impl>()) {}

XmlFileValueProvider::~XmlFileValueProvider() = default;

char const* XmlFileValueProvider::getName() const { return Manager::XML_FILE_PROVIDER_NAME; }

bool XmlFileValueProvider::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    if (!mImpl->fixed) {
        UnboundedParameterValueFixer counter(specification, UnboundedParameterValueFixer::COUNT_CHANGES);
        getDataCache().accept(counter);
        if (counter.getChangeCount() > 0) {
            UnboundedParameterValueFixer fixer(specification);
            getDataCache().accept(fixer);
            setDataCache(*fixer.getResult());
        }
        mImpl->fixed = true;
    }
    return ValueProvider::getValues(specification, result, flags);
}

bool XmlFileValueProvider::isFixed() const { return mImpl->fixed; }

void XmlFileValueProvider::reset() {
    mImpl->fixed = false;
    ValueProvider::reset();
}

void XmlFileValueProvider::setArguments(char const* argument, int) {
    KIVO_REQUIRE(argument != 0);
    std::unique_ptr<ParameterValueGroup> const values(loadFromXmlFile(argument));
    ItemTaker::moveAll(*values, getDataCache());
    mImpl->fixed = false;
}

void XmlFileValueProvider::setArguments(int argc, char const* const* argv, int flags) {
    if (argc <= 0) {
        throw ConfigurationException("Must provide at least one argument");
    }
    KIVO_REQUIRE(argv != 0);
    setArguments(argv[0], flags);
}

} // namespace kivo::configuration
