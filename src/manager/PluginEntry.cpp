#include "kernel/kvProcessInit.h"

#include <configuration/Manager.h>

char const* extensionPointName() { return "Configuration Manager"; }

void* createPlugin() { return kivo::configuration::Manager::getInstance(); }
