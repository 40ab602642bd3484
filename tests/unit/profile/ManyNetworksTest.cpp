// How many networks each profile loads. In a program whose loads ask for no values.

#include "ProfiledHost.h"

#include <gtest/gtest.h>

#include <string>

using platwifi::Profile;
using test::ProfiledHost;

namespace {

// PROFILE-4
TEST(ManyNetworks, AreLoaded) {
    for (const auto& [profile, expected] :
         {std::pair{Profile::DEVICE, 32U}, std::pair{Profile::MODERN, 200U}}) {
        ProfiledHost host(profile);
        for (int i = 0; i < 200; ++i)
            host.has("net" + std::to_string(i));
        EXPECT_EQ(test::ssidsIn(host.load()).size(), expected);
    }
}

} // namespace
