#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace test {

namespace fs = std::filesystem;

/// A prefix whose libraries are in lib/multi/.
class BootProgram : public testing::Test {
protected:
    void SetUp() override {
        if (access("/proc/boot", F_OK) == 0)
            GTEST_SKIP() << "this system has a boot image of its own";
        unsetenv("PLATFORM_BOOT_DIR");
        fs::remove_all("/tmp/world");
        fs::create_directories("/tmp/world/prefix/lib/multi");
        fs::copy_file(PROBE, LIBRARY);
    }

    static void put(const std::string& program) {
        fs::create_directories(fs::path(program).parent_path());
        std::ofstream(program) << "here\n";
    }

    // The answer of a loaded library, which is closed afterwards.
    static std::string answer(const char* function, const std::string& path, void* library) {
        const auto ask =
            reinterpret_cast<void (*)(const char*, std::string*)>(dlsym(library, function));
        std::string result;
        ask(path.c_str(), &result);
        dlclose(library);
        return result;
    }

    static std::string located(const std::string& path, void* library) {
        return answer("locate", path, library);
    }

    static std::string placesOf(const std::string& path) {
        void* const handle = dlopen(LIBRARY, RTLD_NOW | RTLD_LOCAL);
        return handle ? answer("places", path, handle) : dlerror();
    }

    static std::string located(const std::string& path, const std::string& library = LIBRARY) {
        void* const handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
        return handle ? located(path, handle) : dlerror();
    }

    static constexpr const char* LIBRARY = "/tmp/world/prefix/lib/multi/libprobe.so";
    static constexpr const char* INSTALLED = "/tmp/world/prefix/libexec/platwifi/boot/pidin";
    static constexpr const char* BUILT = "/tmp/world/prefix/lib/boot/pidin";
};

} // namespace test
