#include "Installation.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace kivo::benchmarks {

namespace {

class TemporaryHome {
public:
    TemporaryHome() {
        std::string pattern = std::filesystem::temp_directory_path() / "kivo-benchmark-XXXXXX";
        mPath = ::mkdtemp(pattern.data());
        for (char const* part : {"etc", "plugins", "config"}) {
            std::filesystem::create_directory(mPath / part);
        }
        std::ofstream(mPath / "etc" / "kivobase.crg") << "<?xml version=\"1.0\"?>\n<ConfigurationRegistry/>\n";
        ::setenv("KIVO_HOME", mPath.c_str(), 1);
    }
    ~TemporaryHome() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }

private:
    std::filesystem::path mPath;
};

} // namespace

void useEmptyInstallation() { static TemporaryHome const home; }

} // namespace kivo::benchmarks
