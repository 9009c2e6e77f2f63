// The least that a program has to do that reads its installation's files: it parses each of its arguments and ends.

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <iostream>

namespace {

bool parse(char const* path) {
    xercesc::XercesDOMParser parser;
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
    parser.setDoNamespaces(true);
    parser.parse(path);
    return parser.getErrorCount() == 0;
}

} // namespace

int main(int argc, char** argv) {
    xercesc::XMLPlatformUtils::Initialize();
    int status = 0;
    for (int i = 1; i < argc; ++i) {
        if (!parse(argv[i])) {
            std::cerr << "parse-only: " << argv[i] << " is not well-formed\n";
            status = 1;
        }
    }
    xercesc::XMLPlatformUtils::Terminate();
    return status;
}
