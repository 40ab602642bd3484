#pragma once

#include "BareCommand.h"

#include <functional>

namespace bench {

using Commands = std::vector<Arguments>;

/// The client's commands that the library runs during `work`. Each is passed on to the host's client. No argument
/// of them may contain a blank.
Commands commandsOf(const std::function<void()>& work);

/// Runs the commands without the library.
void replay(const char* client, const Commands& commands);

} // namespace bench
