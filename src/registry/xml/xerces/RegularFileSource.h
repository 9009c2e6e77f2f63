#pragma once

#include <xercesc/sax/InputSource.hpp>

#include <string>

namespace kivo::configuration {

/// A file as the XML library reads it: the bytes of a path, taken as they are, never as an address of the network. Only
/// a regular file, links followed, is opened: a pipe would block, and a device may never end.
class RegularFileSource final : public xercesc::InputSource {
public:
    /// @param path must outlive this object
    explicit RegularFileSource(char const* path);
    ~RegularFileSource() override;

    /// Why the file cannot be read; empty when it can.
    std::u16string const& getProblem() const;

    /// The file's bytes from where the last reader stopped. Used while this object lives.
    xercesc::BinInputStream* makeStream() const override;

private:
    int mFile = -1;
    std::u16string mProblem;
};

} // namespace kivo::configuration
