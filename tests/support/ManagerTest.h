#pragma once

// The fixture of every test that touches the Manager: each test gets a new one, in an installation of its own, and
// leaves none behind. A test with rows derives from testing::WithParamInterface<Row>, too.

#include "support/TemporaryInstallation.h"

#include <configuration/Manager.h>

#include <gtest/gtest.h>

namespace kivo::test {

class ManagerTest : public testing::Test {
protected:
    ManagerTest() { configuration::Manager::shutdown(); }
    ~ManagerTest() override { configuration::Manager::shutdown(); }

    static configuration::Manager& manager() { return *configuration::Manager::getInstance(); }

    TemporaryInstallation installation;
};

} // namespace kivo::test
