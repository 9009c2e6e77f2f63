#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/ByteSource.h"

#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <utility>

namespace kivo::configuration {

namespace {

class ByteStream final : public xercesc::BinInputStream {
public:
    explicit ByteStream(ByteSource::Copy const& copy) : mCopy(copy) {}

    XMLFilePos curPos() const override { return mPosition; }

    XMLSize_t readBytes(XMLByte* const buffer, XMLSize_t const size) override {
        auto const length = mCopy(reinterpret_cast<char*>(buffer), size);
        if (length < 0) {
            ThrowXML(xercesc::XMLPlatformUtilsException, xercesc::XMLExcepts::File_CouldNotReadFromFile);
        }
        mPosition += static_cast<XMLFilePos>(length);
        return static_cast<XMLSize_t>(length);
    }

    XMLCh const* getContentType() const override { return nullptr; }

private:
    ByteSource::Copy const& mCopy;
    XMLFilePos mPosition = 0;
};

} // namespace

ByteSource::ByteSource(char const* path, Copy copy) : xercesc::InputSource(path), mCopy(std::move(copy)) {}

xercesc::BinInputStream* ByteSource::makeStream() const { return new ByteStream(mCopy); }

} // namespace kivo::configuration
