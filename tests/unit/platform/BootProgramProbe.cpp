#include "platform/BootProgram.h"

/// platform::locateProgram(), under a name that dlsym() can be asked for.
extern "C" __attribute__((visibility("default"))) void locate(const char* path,
                                                              std::string* result) {
    *result = platform::locateProgram(path);
}
