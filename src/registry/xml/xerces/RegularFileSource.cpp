#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/RegularFileSource.h"

#include "registry/xml/xerces/XmlText.h"

#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace kivo::configuration {

namespace {

/// Reads a file that somebody else opened and closes.
class FileStream final : public xercesc::BinInputStream {
public:
    explicit FileStream(int file) : mFile(file) {}

    XMLFilePos curPos() const override { return mPosition; }

    XMLSize_t readBytes(XMLByte* const buffer, XMLSize_t const size) override {
        auto length = ::read(mFile, buffer, size);
        while (length < 0 && errno == EINTR) {
            length = ::read(mFile, buffer, size);
        }
        if (length < 0) {
            ThrowXML(xercesc::XMLPlatformUtilsException, xercesc::XMLExcepts::File_CouldNotReadFromFile);
        }
        mPosition += static_cast<XMLFilePos>(length);
        return static_cast<XMLSize_t>(length);
    }

    XMLCh const* getContentType() const override { return nullptr; }

private:
    int mFile;
    XMLFilePos mPosition = 0;
};

std::u16string describeError(int error) {
    switch (error) {
    case ENOENT: return u"the file does not exist";
    case EACCES: return u"the file may not be read";
    default: return toXmlText("the file cannot be read (system error " + std::to_string(error) + ")");
    }
}

} // namespace

RegularFileSource::RegularFileSource(char const* path) : xercesc::InputSource(path) {
    struct stat status;
    bool isFound = stat(path, &status) == 0;
    // Looked at before it is opened, since opening can have effects, and after, since the path may lead elsewhere by
    // then.
    if (isFound && S_ISREG(status.st_mode)) {
        mFile = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        isFound = mFile >= 0 && fstat(mFile, &status) == 0;
    }
    if (!isFound) {
        mProblem = describeError(errno);
    } else if (!S_ISREG(status.st_mode)) {
        mProblem = u"this is not a regular file";
    }
}

RegularFileSource::~RegularFileSource() {
    if (mFile >= 0) {
        close(mFile);
    }
}

std::u16string const& RegularFileSource::getProblem() const { return mProblem; }

xercesc::BinInputStream* RegularFileSource::makeStream() const { return new FileStream(mFile); }

} // namespace kivo::configuration
