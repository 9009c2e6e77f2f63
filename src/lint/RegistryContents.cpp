#include "kernel/kvProcessInit.h"

#include "lint/RegistryContents.h"

#include "registry/xml/XmlDocument.h"
#include "schema/NameSuggestion.h"

#include <algorithm>

namespace kivo::configuration {

void RegistryContents::addId(UnknownName::Kind kind, char const* id) { mIds[kind].emplace_back(id); }

std::string RegistryContents::suggestId(UnknownName const& unknown) const {
    auto const ids = mIds.find(unknown.getKind());
    if (ids == mIds.end()) {
        return {};
    }
    ClosestName closest(unknown.getName());
    for (auto const& id : ids->second) {
        closest.offer(id.c_str());
    }
    return closest.get() ? closest.get() : "";
}

void RegistryContents::excuse(XmlElement const& element) {
    for (auto const& attribute : element.getAttributes()) {
        if (std::string_view(attribute.name) == "id") {
            excused.emplace(attribute.value);
        }
    }
    for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
        excuse(*child);
    }
}

} // namespace kivo::configuration
