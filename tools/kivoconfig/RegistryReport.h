#pragma once

namespace kivoconfig {

struct Call;
class RegistryFault;

/// Reports why the installation's registry does not load: all errors of all files.
void reportRegistryFault(RegistryFault const& fault, Call& call);

} // namespace kivoconfig
