#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>

#include "schema/ContractChecks.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterEnumDefinition::Impl {
public:
    std::string mName;
    std::map<std::string, int, std::less<>> mSymbols;
    std::vector<char const*> mInOrder; // the keys, which stay where they are
};

ParameterEnumDefinition::ParameterEnumDefinition(char const* name) {
    KIVO_REQUIRE(name != 0 && strlen(name) > 0);
    mImpl.reset(new Impl{name, {}, {}});
}

ParameterEnumDefinition::~ParameterEnumDefinition() = default;

char const* ParameterEnumDefinition::getName() const { return mImpl->mName.c_str(); }

void ParameterEnumDefinition::addEnumValue(char const* symbol, int value) {
    auto const [added, isNew] = mImpl->mSymbols.emplace(symbol ? symbol : "", value);
    if (isNew) {
        try {
            mImpl->mInOrder.push_back(added->first.c_str());
        } catch (...) {
            mImpl->mSymbols.erase(added);
            throw;
        }
    }
}

int ParameterEnumDefinition::getValue(char const* symbol) const {
    auto const found = symbol ? mImpl->mSymbols.find(std::string_view(symbol)) : mImpl->mSymbols.end();
    if (found == mImpl->mSymbols.end()) {
        throw ConfigurationException("symbol \"%s\" was not found", symbol ? symbol : "");
    }
    return found->second;
}

unsigned long ParameterEnumDefinition::getNumberOfSymbols() const { return mImpl->mInOrder.size(); }

char const* ParameterEnumDefinition::getSymbol(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfSymbols());
    return mImpl->mInOrder[index];
}

} // namespace kivo::configuration
