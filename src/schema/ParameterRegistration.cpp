#include "kernel/kvProcessInit.h"

#include "schema/ParameterRegistration.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/Parameter.h>

namespace kivo::configuration {

Parameter* ParameterRegistration::add(char const* id, std::function<std::unique_ptr<Parameter>()> const& make) {
    auto* manager = Manager::getInstance();
    if (manager->hasParameterItem(id, ParameterItem::PARAMETER)) {
        throw ConfigurationException("Parameter id \"%s\" is not unique", id);
    }
    auto parameter = make();
    manager->addParameterItem(parameter.get());
    return parameter.release();
}

} // namespace kivo::configuration
