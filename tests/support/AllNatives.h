#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace test {

class FakeJni;

/// What a native is called with; each takes the part that it has. Texts are modified UTF-8, and null
/// without a value.
struct NativeArguments {
    std::optional<std::string> iface;
    std::optional<std::string> ssid;
    std::optional<std::string> text;
    int number = 0;
    bool flag = false;
};

/// A native method of the Java class.
struct Native {
    const char* name;
    void (*call)(FakeJni& java, const NativeArguments& arguments);
};

/// All of them, in the order of the Java class.
extern const Native NATIVES[];
extern const std::size_t NATIVE_COUNT;

} // namespace test
