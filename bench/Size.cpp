// The libraries as files.

#include "BareCommand.h"
#include "Measurements.h"

#include <filesystem>

namespace bench {
namespace {

namespace fs = std::filesystem;

struct Library {
    const char* name;
    const char* path;
    const char* meaning;
};

constexpr Library LIBRARIES[] = {
    {"libplatwifi.so", PLATWIFI_LIBRARY,
     "What the library adds to an image, compared with the client."},
    {"libplatform.so", PLATFORM_LIBRARY,
     "The platform library for Linux, without the cipher's library."},
    {"libzam.so", ZAM_LIBRARY, "The clock."},
};

double sizeOf(const fs::path& file) {
    return static_cast<double>(fs::file_size(file));
}

double strippedSizeOf(const fs::path& file) {
    const fs::path copy = "/tmp/bench-stripped";
    runBare(STRIP_PROGRAM, {"-o", copy, file});
    const double size = sizeOf(copy);
    fs::remove(copy);
    return size;
}

} // namespace

Rows measureSize() {
    const double client = strippedSizeOf(HOST_CLIENT);
    Rows rows;
    for (const Library& library : LIBRARIES) {
        const double size = strippedSizeOf(library.path);
        rows.push_back({std::string(library.name) + ", stripped",
                        "the client `wpa_cli`, stripped",
                        {size / client},
                        medians({size}, {client}, inKibibytes),
                        library.meaning,
                        library.name,
                        size / 1024});
    }
    return rows;
}

} // namespace bench
