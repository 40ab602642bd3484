#pragma once

#include "NativeCaller.h"
#include "jni/ServiceFunctions.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

/// How a program calls an operation: a Java program by a native, a native program by a flat function.
enum class Interface { NATIVE, FUNCTION };

inline std::string nameOf(Interface interface) {
    return interface == Interface::NATIVE ? "Native" : "Function";
}

/// A test that runs once with each interface.
class EitherInterface : public NativeCaller, public testing::TestWithParam<Interface> {
protected:
    static bool isNative() { return GetParam() == Interface::NATIVE; }
};

/// Instantiates a suite of such tests.
#define BY_EITHER_INTERFACE(suite)                                                                 \
    INSTANTIATE_TEST_SUITE_P(By, suite,                                                            \
                             testing::Values(test::Interface::NATIVE, test::Interface::FUNCTION),  \
                             [](const auto& test) { return test::nameOf(test.param); })

} // namespace test
