#include "WatchedClient.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace test {
namespace {

const fs::path FOLDER = "/tmp/watched-client";
const fs::path PROGRAM = FOLDER / "wpa_cli";
const fs::path COMMANDS = FOLDER / "commands";

} // namespace

WatchedClient::WatchedClient(const std::string& before) {
    fs::create_directory(FOLDER);
    std::ofstream(PROGRAM) << "#!/bin/sh\necho \"$*\" >>" << COMMANDS << '\n'
                           << before << "\nexec wpa_cli \"$@\"\n";
    fs::permissions(PROGRAM, fs::perms::owner_all);
    setenv("PLATFORM_BOOT_DIR", FOLDER.c_str(), 1);
}

WatchedClient::~WatchedClient() {
    unsetenv("PLATFORM_BOOT_DIR");
    fs::remove_all(FOLDER);
}

Lines WatchedClient::commands() const {
    return linesOfFile(COMMANDS);
}

} // namespace test
