#pragma once

#include <configuration/Parameter.h>

#include <array>

namespace kivoconfig {

/// The least and the greatest number.
struct WholeNumbers {
    char const* least;
    char const* most;
};

/// What kivoconfig says about a type of values. A new type needs a row in TypeTable.cpp.
struct TypeRow {
    kivo::configuration::Parameter::ValueType type;
    char const* word;    ///< as registry files and manual pages call it
    char const* forms;   ///< how its texts are written, where users could not guess it; otherwise null
    char const* example; ///< a text of the type; null: there is no typical one
    bool takesEmpty;     ///< whether an empty text is a value
    WholeNumbers range;  ///< of whole numbers; null for all other types
    char const* base;    ///< type of XML Schema that a schema restricts, or null: any text
    std::array<char const*, 3>
        facets; ///< the rest of the restriction, such as a pattern: elements of XML Schema, or null
};

/// The row of a type. A type without one is any text.
TypeRow const& rowOf(kivo::configuration::Parameter::ValueType type);

} // namespace kivoconfig
