#pragma once

#include <xercesc/sax/InputSource.hpp>

#include <functional>

namespace kivo::configuration {

/// A file as the XML library reads it: bytes that somebody else gets, under a path that is never opened, nor taken as
/// an address of the network.
class ByteSource final : public xercesc::InputSource {
public:
    /// Fills a buffer, up to the end of the file. @return the number of bytes, or -1 when the file cannot be read
    using Copy = std::function<long(char* buffer, std::size_t size)>;

    ByteSource(char const* path, Copy copy);

    /// The file's bytes from where the last reader stopped. Used while this object lives.
    xercesc::BinInputStream* makeStream() const override;

private:
    Copy mCopy;
};

} // namespace kivo::configuration
