// A phone on which the application runs, for the tests that begin with one.
#pragma once

#include <gtest/gtest.h>

#include "support/phone.h"

namespace gexlo::test {

class LaunchedPhone : public ::testing::Test {
protected:
    LaunchedPhone() { phone.launch(); }
    GXDataManager& manager() { return phone.manager(); }

    Phone phone;
};

}  // namespace gexlo::test
