#pragma once

namespace kivo::configuration {

class RegistryContents;

/// Says what users will stumble over in the specifications that were registered, and which parameters none of them
/// uses.
/// @param contents of all files
void remarkOnSpecifications(RegistryContents& contents);

} // namespace kivo::configuration
