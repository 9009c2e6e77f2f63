#pragma once

#include "text/Json.h"

#include <configuration/Origin.h>

namespace kivoconfig {

/// An origin that is known, as a member of a JSON document. What does not apply is left out.
Json toJson(kivo::configuration::Origin const& origin);

} // namespace kivoconfig
