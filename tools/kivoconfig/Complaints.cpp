#include "Complaints.h"

#include "text/Characters.h"
#include "text/CodePage.h"

#include <iostream>

namespace kivoconfig {

void complain(std::string const& text) { std::cerr << "kivoconfig: " << toLocal(printable(toUtf8(text))) << '\n'; }

} // namespace kivoconfig
