#include <configuration/Manager.h>
#include <configuration/ParameterValidator.h>

#include "support/ManagerTest.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <optional>

namespace kivo::test {

using namespace configuration;

namespace {

bool isXercesMapped() {
    std::ifstream stream("/proc/self/maps");
    return std::string(std::istreambuf_iterator<char>(stream), {}).find("xerces") != std::string::npos;
}

/// Asked for the default of a parameter, it looks at what is mapped while the file is being loaded.
class MappingsValidator final : public ParameterValidator {
public:
    explicit MappingsValidator(std::optional<bool>& isMapped) : ParameterValidator("mappings"), mIsMapped(isMapped) {}
    using ParameterValidator::validate;
    char* validate(char const*) const override {
        mIsMapped = isXercesMapped();
        return nullptr;
    }

private:
    std::optional<bool>& mIsMapped;
};

class XmlModuleTest : public ManagerTest {
protected:
    /// Loads a file, and then another one, which is plain. @return whether the module is open then
    bool isOpenAfter(std::string const& firstFile) {
        auto& manager = *Manager::getInstance();
        manager.reset();
        std::optional<bool> isMapped;
        manager.addValidator(std::make_unique<MappingsValidator>(isMapped).release());
        TemporaryInstallation const loaded;
        loaded.write("etc/kivobase.crg", firstFile);
        loaded.write("etc/second.crg",
                     "<ConfigurationRegistry><Parameters><Parameter id='p' name='p' description='d' "
                     "type='string' default='x' validator='mappings'/></Parameters></ConfigurationRegistry>");
        manager.loadDefaultConfigurationRegistry();
        EXPECT_TRUE(manager.getParameterItem("p"));
        return isMapped.value();
    }
};

TEST_F(XmlModuleTest, IsOpenFromTheFirstFileThatNeedsItToTheEndOfTheLoad) {
    EXPECT_FALSE(isOpenAfter("<ConfigurationRegistry/>"));
    EXPECT_TRUE(isOpenAfter("<x:ConfigurationRegistry xmlns:x='u'/>"));
    EXPECT_FALSE(isXercesMapped());
}

} // namespace

} // namespace kivo::test
