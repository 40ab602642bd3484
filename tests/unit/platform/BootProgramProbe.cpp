#include "platform/BootProgram.h"

// Functions under names that dlsym() can be asked for.

/// platform::locateProgram()
extern "C" __attribute__((visibility("default"))) void locate(const char* path,
                                                              std::string* result) {
    *result = platform::locateProgram(path);
}

/// platform::programPlaces(), a blank behind each.
extern "C" __attribute__((visibility("default"))) void places(const char* path,
                                                              std::string* result) {
    for (const std::string& place : platform::programPlaces(path))
        *result += place + " ";
}
