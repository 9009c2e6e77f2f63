#pragma once

#include <configuration/ConfigurationException.h>
#include <configuration/Memory.h>

#include "schema/ContractChecks.h"
#include "schema/ItemIndex.h"

#include <memory>
#include <vector>

namespace kivo::configuration {

/// Releases what the manager owns the way callers do.
struct Destroyer {
    template <class Object>
    void operator()(Object const* object) const {
        destroy(object);
    }
};

/// Owns objects and finds them by key, ignoring letter case. Duplicate keys are taken in, and reported by look-ups.
template <class Object>
class KeyedRegistry {
public:
    /// @param word what the message about a duplicate calls an object; lives as long as the process
    explicit KeyedRegistry(char const* word) : mWord(word) {}

    /// Takes ownership, unless it throws.
    /// @param objectKey key of the object, owned by it
    /// @throws kivo::ContractViolationException "objectKey != 0 && *objectKey != '\0'"
    void add(char const* objectKey, Object* object) {
        KIVO_REQUIRE(objectKey != 0 && *objectKey != '\0');
        mObjects.emplace_back();
        try {
            mByKey.add(objectKey, object);
        } catch (...) {
            mObjects.pop_back();
            throw;
        }
        mObjects.back().reset(object);
    }

    /// The object of a key, or null.
    /// @throws kivo::ContractViolationException "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Duplicate %s \"%s\""
    Object* find(char const* objectKey) const {
        KIVO_REQUIRE(objectKey != 0 && *objectKey != '\0');
        Object* found = nullptr;
        mByKey.forEach(objectKey, [&](Object* object) {
            if (found) {
                throw ConfigurationException("Duplicate %s \"%s\"", mWord, objectKey);
            }
            found = object;
            return true;
        });
        return found;
    }

    /// Whether an object of a key satisfies a condition.
    /// @throws kivo::ContractViolationException "objectKey != 0 && *objectKey != '\0'"
    template <class Condition>
    bool contains(char const* objectKey, Condition condition) const {
        KIVO_REQUIRE(objectKey != 0 && *objectKey != '\0');
        bool found = false;
        mByKey.forEach(objectKey, [&](Object* object) {
            found = condition(*object);
            return !found;
        });
        return found;
    }

    /// The number of objects, duplicates counted.
    unsigned long size() const { return mObjects.size(); }

    /// The object at a position, in the order of registration.
    Object* operator[](std::size_t index) const { return mObjects[index].get(); }

    /// Destroys all objects.
    void clear() {
        mByKey = {};
        mObjects.clear();
    }

private:
    char const* mWord;
    ItemIndex<Object> mByKey;
    std::vector<std::unique_ptr<Object, Destroyer>> mObjects;
};

} // namespace kivo::configuration
