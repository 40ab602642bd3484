#include "support/PrivateWorld.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

bool onlyLists(char* arguments[]) {
    for (char** argument = arguments; *argument; ++argument) {
        if (std::strcmp(*argument, "--gtest_list_tests") == 0)
            return true;
    }
    return false;
}

} // namespace

int main(int count, char* arguments[]) {
    if (!onlyLists(arguments))
        test::enterPrivateWorld(arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
