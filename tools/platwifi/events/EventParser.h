#pragma once

#include "events/Event.h"

#include <string>

namespace cli {

/// Reads a message that the supplicant sends to its listeners, with or without its level ("<3>").
/// A message that is unknown, or that says less than it should, is an event of the kind OTHER. Of messages
/// that may contain keys or PINs, `text` has the name only. Never fails.
Event parseEvent(const std::string& message);

} // namespace cli
