#pragma once

#include <pthread.h>
#include <string>
#include <vector>

namespace cli {

/// The files with replies of the client that the library has in use for a thread, or has kept.
std::vector<std::string> resultsOf(pthread_t thread);

/// Takes no memory.
void remove(const std::vector<std::string>& files) noexcept;

} // namespace cli
