// The window managers that live tests run under, for INSTANTIATE_TEST_SUITE_P.
#pragma once

#include <gtest/gtest.h>
#include <string>

namespace vantrel::live {

inline auto testedWindowManagers() {
    return testing::Values("openbox", "xfwm4");
}

inline std::string windowManagerName(const testing::TestParamInfo<const char*>& info) {
    return info.param;
}

} // namespace vantrel::live
