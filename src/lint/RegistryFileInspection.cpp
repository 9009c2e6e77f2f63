#include "kernel/kvProcessInit.h"

#include "lint/RegistryFileInspection.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>

#include "registry/DeclarationReader.h"
#include "schema/FormerNames.h"
#include "schema/ItemKinds.h"
#include "schema/NameSuggestion.h"
#include "schema/SecretMask.h"
#include "schema/ValueTypes.h"

#include <new>

namespace kivo::configuration {

namespace {

std::vector<char const*> namesOf(Content place) {
    std::vector<char const*> names;
    for (auto const& format : getElementFormats(place)) {
        names.push_back(format.name);
    }
    return names;
}

Parameter const* findParameter(char const* id) {
    return asParameter(Manager::getInstance()->getParameterItem(id, ParameterItem::PARAMETER));
}

/// The default that an element gives to a secret setting, or null. @param element is refused for an attribute
char const* secretDefaultOf(XmlElement const& element, Content place) {
    auto const declaration = readDeclaration(element, place);
    if (auto const* const parameter = std::get_if<ParameterDeclaration>(&declaration.details)) {
        return parameter->isSensitive ? parameter->defaultValue : nullptr;
    }
    auto const* const reference = std::get_if<ParameterReference>(&declaration.details);
    auto const* const parameter = reference ? findParameter(reference->id) : nullptr;
    return parameter && parameter->isSensitive() ? reference->defaultValue : nullptr;
}

/// What loading says of a default that is secret, as reports show it; empty: as it is. The default comes first in it.
std::string maskDefault(std::exception const& fault, XmlElement const& element, Content place) {
    auto const* const refused = dynamic_cast<ConfigurationParameterException const*>(&fault);
    char const* const secret = refused ? secretDefaultOf(element, place) : nullptr;
    std::string const shown = secret ? '"' + std::string(secret) + "\" is not a valid default value" : "";
    std::string_view const message = fault.what() ? fault.what() : "";
    bool const isShown = secret && message.starts_with(shown);
    return isShown ? '"' + std::string(SECRET_MASK).append(message.substr(1 + std::string_view(secret).size())) : "";
}

/// The same declaration with another id. @param id must outlive it
Declaration::Details renamed(Declaration::Details details, char const* id) {
    std::visit(
        [id](auto& each) {
            if constexpr (requires { each.root; }) {
                each.root.id = id;
            } else if constexpr (requires { each.id; }) {
                each.id = id;
            }
        },
        details);
    return details;
}

} // namespace

RegistryFileInspection::RegistryFileInspection(char const* path, RegistryContents& contents)
    : RegistryFileLoad(path, &contents.record),
      mFileOrigin(Origin::FILE_SOURCE, path),
      mContents(contents),
      mRemarks(contents, getPlaces()) {}

void RegistryFileInspection::run() {
    auto& findings = mContents.findings;
    for (auto const& warning : getFile().getWarnings()) {
        findings.add(Finding::WARNING_SEVERITY, Rule::SUSPICIOUS_XML, warning, mFileOrigin);
    }
    auto const& errors = getFile().getErrors();
    for (unsigned long i = 0; i < errors.getNumberOfErrors(); ++i) {
        findings.add(Finding::ERROR_SEVERITY, Rule::INVALID_XML, errors.getError(i), errors.getStoredOrigin(i));
    }
    if (errors.getNumberOfErrors() > 0) {
        mContents.isIncomplete = true;
        return;
    }
    if (auto const& obstacle = getFile().getObstacle(); !obstacle.empty()) {
        auto const [line, column] = getFile().getObstaclePosition();
        findings.add(Finding::WARNING_SEVERITY, Rule::SLOW_FILE,
                     "every tool has to load the large XML parser for this file: " + obstacle,
                     mFileOrigin.at(line, column));
    }
    registerAll();
}

void RegistryFileInspection::begin(XmlElement const& root) {
    try {
        RegistryFileLoad::begin(root);
    } catch (std::exception const& fault) {
        report(fault, root, {ROOT_NAME});
    }
    mRemarks.remarkOnSections(root);
}

std::optional<Declaration> RegistryFileInspection::open(XmlElement const& element, Content place) {
    mRemarks.remarkOn(element, place);
    try {
        auto const declaration = RegistryFileLoad::open(element, place);
        note(*declaration);
        return declaration;
    } catch (std::exception const& fault) {
        report(fault, element, namesOf(place), maskDefault(fault, element, place));
        return openStandIn(element, place);
    }
}

/// A specification can be refused for several former names: loading tells of the first one.
void RegistryFileInspection::close(Declaration const& declaration) {
    try {
        RegistryFileLoad::close(declaration);
    } catch (std::exception const& fault) {
        report(fault, declaration.element, {});
        ParameterErrors formerNames;
        checkFormerNames(*mContents.record.specifications.back(), &formerNames);
        for (unsigned long i = 0; i < formerNames.getNumberOfErrors(); ++i) {
            mContents.findings.add(Finding::ERROR_SEVERITY, Rule::INVALID_REGISTRY, formerNames.getError(i),
                                   getPlaces().of(declaration.element));
        }
    }
}

/// Registers something that stands for a refused declaration. When its id is taken, another one is made up, which
/// nobody can refer to, so that there is a place for its children.
std::optional<Declaration> RegistryFileInspection::openStandIn(XmlElement const& element, Content place) {
    auto standIn = readStandIn(element, place);
    if (!standIn) {
        mContents.excuse(element);
        return std::nullopt;
    }
    if (tryToOpen(*standIn)) {
        return standIn;
    }
    if (standIn->children == Content::NOTHING) {
        return std::nullopt;
    }
    auto const& id = mMadeUpIds.emplace_back('\1' + std::to_string(mMadeUpIds.size()) + '\1' + mFileOrigin.name());
    Declaration const withOwnId{element, standIn->children, renamed(standIn->details, id.c_str())};
    return tryToOpen(withOwnId) ? std::optional(withOwnId) : std::nullopt;
}

/// @return whether the declaration is open
bool RegistryFileInspection::tryToOpen(Declaration const& declaration) {
    auto const& parameters = mContents.record.parameters;
    auto const count = parameters.size();
    try {
        getRegistrar().open(declaration);
    } catch (std::bad_alloc const&) {
        throw;
    } catch (std::exception const&) {
        return false; // reported for the element itself
    }
    if (parameters.size() > count) {
        mContents.standIns.insert(parameters.back());
    }
    note(declaration);
    return true;
}

/// Notes what can be referred to, and looks at defaults.
void RegistryFileInspection::note(Declaration const& declaration) {
    using Kind = UnknownName::Kind;
    if (auto const* const enumeration = std::get_if<EnumerationDeclaration>(&declaration.details)) {
        mContents.addId(Kind::ENUMERATION, enumeration->id);
    } else if (auto const* const group = std::get_if<GroupDeclaration>(&declaration.details)) {
        mContents.addId(Kind::GROUP, group->id);
    } else if (auto const* const parameter = std::get_if<ParameterDeclaration>(&declaration.details)) {
        mContents.addId(Kind::PARAMETER, parameter->id);
        mRemarks.remarkOnDefault(declaration.element, *mContents.record.parameters.back(), parameter->defaultValue);
    } else if (auto const* const reference = std::get_if<ParameterReference>(&declaration.details)) {
        mRemarks.remarkOnDefault(declaration.element, *findParameter(reference->id), reference->defaultValue);
    }
}

/// @param elementNames what an element may be called in this place
/// @param masked       how reports show the fault; empty: as it is
void RegistryFileInspection::report(std::exception const& fault, XmlElement const& element,
                                    std::vector<char const*> const& elementNames, std::string const& masked) {
    if (dynamic_cast<std::bad_alloc const*>(&fault)) {
        throw;
    }
    std::string suggestion;
    if (auto const* const unknown = dynamic_cast<UnknownName const*>(&fault)) {
        if (unknown->isReference() && mContents.isIncomplete) {
            return; // it may stand in the file that cannot be read
        }
        suggestion = mContents.findings.wantsSuggestion() ? suggest(*unknown, elementNames) : "";
    }
    mContents.findings.add(Finding::ERROR_SEVERITY, Rule::INVALID_REGISTRY, fault.what() ? fault.what() : "",
                           getPlaces().of(element), suggestion, masked);
}

std::string RegistryFileInspection::suggest(UnknownName const& unknown, std::vector<char const*> const& elementNames) {
    switch (unknown.getKind()) {
    case UnknownName::Kind::ELEMENT: return closestName(unknown.getName(), elementNames);
    case UnknownName::Kind::VALUE_TYPE: return closestName(unknown.getName(), getValueTypeWords());
    default: break;
    }
    auto const meant = mContents.suggestId(unknown);
    mContents.excused.insert(meant);
    return meant;
}

} // namespace kivo::configuration
