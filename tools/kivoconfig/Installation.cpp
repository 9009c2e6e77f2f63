#include "Installation.h"

#include "Faults.h"
#include "text/Characters.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Manager.h>
#include <configuration/NameSuggestion.h>
#include <configuration/Specification.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

Manager const& loadedManager() {
    try {
        return *Manager::getInstance();
    } catch (ConfigurationException const& fault) {
        throw RegistryFault(fault.what(), fault.getOrigin());
    } catch (kivo::ContractViolationException const& fault) {
        throw RegistryFault(fault.what(), fault.getOrigin());
    }
}

[[noreturn]] void throwUnknownSpecification(std::string const& id) {
    std::vector<char const*> ids;
    for (auto const* specification : allSpecifications()) {
        ids.push_back(specification->getId());
    }
    auto const* const meant = suggestName(id.c_str(), ids.data(), ids.size());
    throw CallFault("there is no specification \"" + id + "\"" +
                    (meant ? std::string("; did you mean \"") + meant + "\"?" : "; kivoconfig list shows all"));
}

} // namespace

std::vector<Specification const*> allSpecifications() {
    auto const& manager = loadedManager();
    std::vector<Specification const*> specifications;
    for (unsigned long i = 0; i < manager.getNumberOfSpecifications(); ++i) {
        specifications.push_back(manager.getSpecificationAt(i));
    }
    std::ranges::sort(specifications, {}, [](auto const* specification) { return folded(specification->getId()); });
    return specifications;
}

Specification const& findSpecification(std::string const& id) {
    auto const& manager = loadedManager();
    auto const* const specification = id.empty() ? nullptr : manager.getSpecification(id.c_str());
    if (!specification) {
        throwUnknownSpecification(id);
    }
    return *specification;
}

} // namespace kivoconfig
