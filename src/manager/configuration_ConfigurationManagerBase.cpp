#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationManagerBase.h>

namespace kivo::configuration {

ConfigurationManagerBase::ConfigurationManagerBase() = default;

ConfigurationManagerBase::~ConfigurationManagerBase() = default;

} // namespace kivo::configuration
