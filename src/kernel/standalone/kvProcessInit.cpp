#include "kernel/kvProcessInit.h"

// Nothing to prepare: the services here start from constant-initialised state and read the environment at each call.
bool kvProcessInit() { return true; }
