#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <memory>

namespace kivo::configuration {

class ParameterVisitor;
class StoredOrigin;

/// What a Parameter and a ParameterGroup have in common: id, name, description, and how often it may occur.
///
/// Ids and names are different keys. The id registers the item and binds given values to it; the name is what usage and
/// help texts show, what abbreviated flags are compared with, and what the validation of merged values looks up. A tool
/// that has no reason to do otherwise gives both the same text.
///
/// Callers may derive from an item class. A look-up below a group then finds what the item shows a visitor; see
/// ParameterGroup::getItem().
///
/// Not synchronized: items are built and changed on one thread and may then be read by any number of threads.
///
/// Parameter and ParameterGroup override some operations only to call these: the list of virtual operations that each
/// class defines is part of the binary interface. The same is true of the classes derived from ParameterValueItem.
class KIVO_CONFIGURATION_API ParameterItem {
public:
    /// The kind of an item; the numbers appear in the manager's message for a lookup of the wrong kind.
    enum ItemType {
        PARAMETER = 0,      ///< a Parameter
        PARAMETER_GROUP = 1 ///< a ParameterGroup
    };

    virtual ~ParameterItem();

    /// Which of the two kinds this is.
    virtual ItemType getItemType() const = 0;
    /// Whether a user may leave the item out.
    virtual bool isOptional() const;
    /// Whether the item may occur any number of times: a parameter with several values, a container that repeats.
    virtual bool isUnbounded() const;
    /// The key of the item, compared ignoring letter case. The text must stay where it is, unchanged, as long as the
    /// item lives: look-ups keep a pointer to it.
    virtual char const* getId() const;
    /// The name shown to users. Lives as long as the item.
    virtual char const* getName() const;
    /// The help text. Lives until setDescription() or the item's end.
    virtual char const* getDescription() const;
    /// Replaces the help text by a copy of the given one.
    /// @throws kivo::ContractViolationException "description && strlen(description) > 0"
    virtual void setDescription(char const* description);
    /// Lets a visitor see this item; ParameterVisitor describes the order of calls.
    virtual bool accept(ParameterVisitor& visitor) const = 0;
    /// Whether this item refines another one that is registered under the same id.
    virtual bool isSpecialized() const;

    /// Where the item was declared: FILE_SOURCE with the place of the declaring element in a registry file, or
    /// APPLICATION_SOURCE.
    Origin getDeclarationOrigin() const;
    /// Says where the item was declared.
    KIVO_CONFIGURATION_LOCAL void setDeclarationOrigin(StoredOrigin const& origin);

    ParameterItem(ParameterItem const&) = delete;
    ParameterItem& operator=(ParameterItem const&) = delete;

protected:
    /// Copies the texts.
    /// @throws kivo::ContractViolationException "id && strlen(id) > 0", "name && strlen(name) > 0",
    ///         "description && strlen(description) > 0", checked in this order
    ParameterItem(char const* id, char const* name, char const* description, bool optional, bool unbounded);

    class KIVO_CONFIGURATION_LOCAL Impl;
    /// As above. `impl` is the state of the whole item: a derived class puts its own fields there, too.
    KIVO_CONFIGURATION_LOCAL ParameterItem(std::unique_ptr<Impl> impl, char const* id, char const* name,
                                           char const* description, bool optional, bool unbounded);
    /// The state given at construction.
    KIVO_CONFIGURATION_LOCAL Impl* getImpl() const noexcept;

private:
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
