#pragma once

#include <configuration/ParameterEnumDefinition.h>

#include "registry/Declaration.h"
#include "registry/UnfoldedSizes.h"
#include "schema/StoredOrigin.h"

#include <deque>
#include <memory>

namespace kivo::configuration {

class DeclarationPlaces;
struct DeclarationRecord;
class ParameterItem;

/// Registers what the declarations of one file say, with the factories that code uses. References may name whatever is
/// registered by then.
///
/// Declarations are opened and closed in the order of their elements' tags. What is opened in between belongs to the
/// innermost open one. A declaration that open() throws for is not open, and is not to be closed.
class DeclarationRegistrar {
public:
    /// @param places must outlive this object
    /// @param record receives what is declared; null, or it must outlive this object
    explicit DeclarationRegistrar(DeclarationPlaces const& places, DeclarationRecord* record = nullptr);

    /// Registers what an element declares, except for enumerations and specifications: close() does that.
    /// @throws ConfigurationException what the declaration refers to does not exist or may not be used here, or an
    ///         enumeration exists already
    /// @throws what the factories of the declared objects throw
    void open(Declaration const& declaration);

    /// @throws what Manager's registerEnumDefinition() and registerSpecification() throw
    void close(Declaration const& declaration);

private:
    void add(EnumerationDeclaration const& enumeration);
    void add(EnumerationValueDeclaration const& value);
    void add(ParameterDeclaration const& parameter);
    void add(GroupDeclaration const& group);
    void add(ContainerDeclaration const& container);
    void add(SpecificationDeclaration const& specification);
    void add(ExclusiveChoiceDeclaration const& choice);
    void add(ParameterReference const& reference);
    void add(GroupReference const& reference);

    void registerEnumeration();
    void registerSpecification(ParameterGroup const& root, StoredOrigin const& place);

    void openGroup(ParameterGroup& group);
    void addToOpenGroup(ParameterItem* item);
    UnfoldedSize const& checkReference(ParameterGroup const& group);

    DeclarationPlaces const& mPlaces;
    DeclarationRecord* mRecord;
    XmlElement const* mElement = nullptr; // of the declaration that is opened
    StoredOrigin mPlace;

    /// The enumeration that is open, not registered yet, and the number of its next value without one.
    std::unique_ptr<ParameterEnumDefinition> mEnumeration;
    long mNextEnumerationValue = 0;

    /// From the outermost to the innermost.
    std::deque<ParameterGroup*> mOpenGroups;
    /// The number of items that the outermost open group holds so far, unfolded.
    unsigned long mUnfoldedItems = 0;
    UnfoldedSizes mUnfoldedSizes;
};

} // namespace kivo::configuration
