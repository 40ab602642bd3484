#include "platform/BootProgram.h"

// Functions with C names, for dlsym().

/// platform::locateProgram()
extern "C" __attribute__((visibility("default"))) void locate(const char* path,
                                                              std::string* result) {
    *result = platform::locateProgram(path);
}

/// platform::programPlaces(), each followed by a blank.
extern "C" __attribute__((visibility("default"))) void places(const char* path,
                                                              std::string* result) {
    for (const std::string& place : platform::programPlaces(path))
        *result += place + " ";
}
