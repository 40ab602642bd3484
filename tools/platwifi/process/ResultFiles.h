#pragma once

#include <pthread.h>
#include <string>
#include <vector>

namespace cli {

/// The paths of a thread's result files: the files in /tmp that receive the client's replies to it.
std::vector<std::string> resultsOf(pthread_t thread);

/// Removes files. Allocates no memory.
void removeFiles(const std::vector<std::string>& files) noexcept;

} // namespace cli
