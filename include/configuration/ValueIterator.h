#pragma once

#include <configuration/Export.h>
#include <configuration/Value.h>

#include <memory>

namespace kivo::configuration {

/// A handle that steps through the texts of an unbounded setting: `while (it.next()) use(it.asString());`
class KIVO_CONFIGURATION_API ValueIterator : public Value {
public:
    /// Stands before the first text. @param value the value to read, or null for a null handle; not owned
    explicit ValueIterator(ParameterValue const* value);
    /// A handle on the same value that stands before the first text: the position is not copied.
    ValueIterator(ValueIterator const& other);
    /// Makes this a handle on the same value, before the first text.
    ValueIterator& operator=(ValueIterator const& other);
    ~ValueIterator() override;

    /// The position of the text that the accessors read and write.
    /// @throws ConfigurationException "Must call next() before dereferencing an iterator",
    ///         "Dereferencing iterator after next() returns false"
    unsigned long getCurrentValueIndex() const override;

    /// Steps to the next text. @return whether there is one; false for a null handle
    bool next();
    /// Goes back before the first text.
    void reset();

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
