// The least that a program has to do that reads its installation's files: it reads each of its arguments and ends.
//
//     parse-only <reader> <file>...
//
// The reader is "xerces", which makes a document, with namespaces and without validation; "expat", which makes nothing;
// or "bytes", which only reads.

#include <expat.h>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

namespace {

bool parseWithXerces(char const* path) {
    xercesc::XercesDOMParser parser;
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
    parser.setDoNamespaces(true);
    parser.parse(path);
    return parser.getErrorCount() == 0;
}

std::string readBytes(char const* path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

bool parseWithExpat(char const* path) {
    auto const bytes = readBytes(path);
    auto* const parser = XML_ParserCreate(nullptr);
    auto const status = XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK;
}

} // namespace

int main(int argc, char** argv) {
    std::string_view const reader = argc > 1 ? argv[1] : "";
    auto const read = [reader](char const* path) {
        return reader == "xerces"  ? parseWithXerces(path)
               : reader == "expat" ? parseWithExpat(path)
                                   : !readBytes(path).empty();
    };
    if (reader == "xerces") {
        xercesc::XMLPlatformUtils::Initialize();
    }
    int status = 0;
    for (int i = 2; i < argc; ++i) {
        if (!read(argv[i])) {
            std::cerr << "parse-only: " << argv[i] << " cannot be read\n";
            status = 1;
        }
    }
    if (reader == "xerces") {
        xercesc::XMLPlatformUtils::Terminate();
    }
    return status;
}
