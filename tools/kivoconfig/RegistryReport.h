#pragma once

namespace kivoconfig {

struct Call;
class RegistryFault;

/// Reports why the installation's registry does not load, a finding for each fault.
void reportRegistryFault(RegistryFault const& fault, Call& call);

} // namespace kivoconfig
