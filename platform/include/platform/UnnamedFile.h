#pragma once

#include "platform/Export.h"
#include "platform/FileDescriptor.h"

namespace platform {

/// An empty file, in memory where the system has such files, that has no name and ends with its last descriptor. Open
/// for reading and writing, closed in programs that this process starts.
/// @return a descriptor that is not open, with errno set, where the system has none to give
PLATFORM_API FileDescriptor newUnnamedFile() noexcept;

} // namespace platform
