#include "kernel/kvProcessInit.h"

#include "registry/DeclarationRegistrar.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/Specification.h>

#include "registry/DeclarationPlaces.h"
#include "registry/DeclarationRecord.h"
#include "registry/UnknownName.h"
#include "schema/ItemKinds.h"
#include "schema/NumberText.h"
#include "schema/ParameterRegistration.h"

#include <limits>
#include <string>

namespace kivo::configuration {

namespace {

int enumerationNumber(char const* text) {
    using Limits = std::numeric_limits<int>;
    auto const number = parseInteger(text);
    if (!number.isWhole || number.value < Limits::min() || number.value > Limits::max()) {
        throw ConfigurationException("\"%s\" is not a valid enumeration value", text);
    }
    return static_cast<int>(number.value);
}

ParameterEnumDefinition const& findEnumeration(char const* id) {
    auto const* const enumeration = Manager::getInstance()->getEnumDefinition(id);
    if (!enumeration) {
        throw UnknownName(UnknownName::Kind::ENUMERATION, id,
                          ConfigurationException("The \"%s\" enumeration was not found", id));
    }
    return *enumeration;
}

Parameter& findParameter(char const* id) {
    auto* const parameter = asParameter(Manager::getInstance()->getParameterItem(id, ParameterItem::PARAMETER));
    if (!parameter) {
        throw UnknownName(UnknownName::Kind::PARAMETER, id,
                          ConfigurationException("Parameter \"%s\" was not found", id));
    }
    return *parameter;
}

/// A group constraint; containers and exclusive choices cannot be referred to.
ParameterGroup& findGroup(char const* id) {
    auto* const group = asGroup(Manager::getInstance()->getParameterItem(id, ParameterItem::PARAMETER_GROUP));
    if (!group) {
        throw UnknownName(UnknownName::Kind::GROUP, id, ConfigurationException("Group\"%s\" was not found", id));
    }
    if (group->getGroupType() != ParameterGroup::CONSTRAINT || group->itemsAreExclusive()) {
        throw ConfigurationException("\"%s\" is not a group", id);
    }
    return *group;
}

/// Does something with the text of an attribute. Its faults get the place of the attribute, unless they have one.
/// @param placeOfAttribute gives the place; unknown: there is no attribute
template <class Place, class Act>
auto atAttribute(Place placeOfAttribute, Act act) {
    try {
        return act();
    } catch (ConfigurationParameterException const& thrown) {
        auto errors = thrown.getErrors();
        StoredOrigin const place = placeOfAttribute();
        for (unsigned long i = 0; place.isKnown() && i < errors.getNumberOfErrors(); ++i) {
            if (errors.getStoredOrigin(i).line() == 0) {
                errors.setStoredOrigin(i, place);
            }
        }
        throw ConfigurationParameterException(errors, "%s", thrown.what());
    }
}

} // namespace

DeclarationRegistrar::DeclarationRegistrar(DeclarationPlaces const& places, DeclarationRecord* record)
    : mPlaces(places), mRecord(record) {}

/// Places are found before anything is made: that can fail, and must not leave a declaration that is half done.
void DeclarationRegistrar::open(Declaration const& declaration) {
    mElement = &declaration.element;
    mPlace = mPlaces.of(*mElement);
    std::visit([this](auto const& details) { add(details); }, declaration.details);
}

void DeclarationRegistrar::close(Declaration const& declaration) {
    if (declaration.children == Content::ENUMERATION_VALUES) {
        registerEnumeration();
    }
    if (declaration.children == Content::ITEMS) {
        auto const& group = *mOpenGroups.back();
        mOpenGroups.pop_back();
        if (std::holds_alternative<SpecificationDeclaration>(declaration.details)) {
            if (mRecord) {
                mRecord->specifications.push_back(&group);
            }
            registerSpecification(group, mPlaces.of(declaration.element));
        }
    }
}

void DeclarationRegistrar::add(EnumerationDeclaration const& enumeration) {
    if (Manager::getInstance()->getEnumDefinition(enumeration.id)) {
        throw ConfigurationException("The \"%s\" enumeration has already been defined", enumeration.id);
    }
    mEnumeration = std::make_unique<ParameterEnumDefinition>(enumeration.id);
    mNextEnumerationValue = 0;
}

void DeclarationRegistrar::add(EnumerationValueDeclaration const& value) {
    auto const number = enumerationNumber(value.value ? value.value : std::to_string(mNextEnumerationValue).c_str());
    mEnumeration->addEnumValue(value.label, number);
    mNextEnumerationValue = number + 1L;
}

void DeclarationRegistrar::registerEnumeration() {
    Manager::getInstance()->registerEnumDefinition(mEnumeration.get());
    static_cast<void>(mEnumeration.release()); // the manager's now
}

void DeclarationRegistrar::add(ParameterDeclaration const& parameter) {
    auto const* const enumeration = parameter.enumType ? &findEnumeration(parameter.enumType) : nullptr;
    auto const defaultPlace = mPlaces.ofDefault(*mElement, parameter.defaultValue);
    constexpr bool isOptional = false;
    constexpr bool isUnbounded = false;
    constexpr bool isHidden = false;
    auto const* const added = ParameterRegistration::add(parameter.id, [&] {
        auto made = atAttribute([&] { return defaultPlace; },
                                [&] {
                                    return std::make_unique<Parameter>(
                                        parameter.id, parameter.name, parameter.description, isOptional, isUnbounded,
                                        parameter.type, parameter.defaultValue, parameter.valueName,
                                        parameter.validator, isHidden);
                                });
        made->setDeclarationOrigin(mPlace);
        if (parameter.defaultValue) {
            made->setDefaultOrigin(defaultPlace);
        }
        if (enumeration) {
            made->setEnumDefinition(enumeration);
        }
        auto const setBound = [&](char const* bound, void (Parameter::*set)(char const*)) {
            if (bound) {
                atAttribute([&] { return mPlaces.of(*mElement, bound); }, [&] { ((*made).*set)(bound); });
            }
        };
        setBound(parameter.minimum, &Parameter::setMinimum);
        setBound(parameter.maximum, &Parameter::setMaximum);
        made->setSensitive(parameter.isSensitive);
        if (parameter.deprecation) {
            made->setDeprecation(parameter.deprecation);
        }
        if (parameter.formerName) {
            made->setFormerName(parameter.formerName);
        }
        return made;
    });
    if (mRecord) {
        mRecord->parameters.push_back(added);
    }
}

void DeclarationRegistrar::add(GroupDeclaration const& group) {
    openGroup(*ParameterGroup::CreateGroup(group.id, group.name, group.description));
}

void DeclarationRegistrar::add(ContainerDeclaration const& container) {
    auto* const created = ParameterGroup::CreateContainer(container.id, container.name, container.description,
                                                          container.isOptional, container.isUnbounded);
    addToOpenGroup(created);
    openGroup(*created);
}

void DeclarationRegistrar::add(SpecificationDeclaration const& specification) { add(specification.root); }

void DeclarationRegistrar::registerSpecification(ParameterGroup const& root, StoredOrigin const& place) {
    auto specification = std::make_unique<Specification>(root.getId(), root.getDescription());
    specification->setDeclarationOrigin(place);
    Manager::getInstance()->registerSpecification(specification.get());
    static_cast<void>(specification.release()); // the manager's now
}

void DeclarationRegistrar::add(ExclusiveChoiceDeclaration const& choice) {
    auto* const created =
        ParameterGroup::CreateMutuallyExclusive(choice.id, choice.name, choice.description, choice.isOptional);
    addToOpenGroup(created);
    openGroup(*created);
}

/// The parameter itself stands where the reference does, unless the reference changes something.
void DeclarationRegistrar::add(ParameterReference const& reference) {
    auto& parameter = findParameter(reference.id);
    bool const isOptional = reference.isOptional.value_or(parameter.isOptional());
    bool const isUnbounded = reference.isUnbounded.value_or(parameter.isUnbounded());
    bool const isHidden = reference.isHidden.value_or(parameter.isHidden());
    bool const isRefined = reference.description || reference.defaultValue || isOptional != parameter.isOptional() ||
                           isUnbounded != parameter.isUnbounded() || isHidden != parameter.isHidden();
    if (!isRefined) {
        addToOpenGroup(&parameter);
        return;
    }
    auto const defaultPlace = mPlaces.ofDefault(*mElement, reference.defaultValue);
    auto* const created =
        atAttribute([&] { return defaultPlace; },
                    [&] {
                        return ParameterSpecialization::Create(reference.id, reference.description, isOptional,
                                                               isUnbounded, reference.defaultValue, isHidden);
                    });
    created->setDeclarationOrigin(mPlace);
    if (reference.defaultValue) {
        created->setDefaultOrigin(defaultPlace);
    }
    addToOpenGroup(created);
}

void DeclarationRegistrar::add(GroupReference const& reference) {
    auto& group = findGroup(reference.id);
    mUnfoldedItems += checkReference(group).items;
    addToOpenGroup(&group);
}

/// Of the open groups only the outermost can be one that a GroupRef names: a Group element never stands inside another.
UnfoldedSize const& DeclarationRegistrar::checkReference(ParameterGroup const& group) {
    if (&group == mOpenGroups.front()) {
        throw ConfigurationException("Group \"%s\" cannot contain itself", group.getId());
    }
    auto const& size = mUnfoldedSizes.of(group);
    if (mUnfoldedItems + 1 + size.items > UnfoldedSize::MAX_ITEMS) {
        throw ConfigurationException("Group \"%s\" unfolds to too many items", group.getId());
    }
    if (mOpenGroups.size() + 1 + size.levels > UnfoldedSize::MAX_LEVELS) {
        throw ConfigurationException("Group \"%s\" unfolds to too many levels", group.getId());
    }
    return size;
}

void DeclarationRegistrar::addToOpenGroup(ParameterItem* item) {
    if (!mOpenGroups.empty()) {
        mOpenGroups.back()->addItem(item);
        ++mUnfoldedItems;
        if (mRecord) {
            mRecord->itemPlaces[mOpenGroups.back()].push_back(mPlace);
        }
    }
}

void DeclarationRegistrar::openGroup(ParameterGroup& group) {
    group.setDeclarationOrigin(mPlace);
    if (mOpenGroups.empty()) {
        mUnfoldedItems = 0;
    }
    mOpenGroups.push_back(&group);
}

} // namespace kivo::configuration
