#pragma once

#include "events/Event.h"
#include "process/Console.h"
#include "values/Values.h"

#include <ctime>
#include <string>

namespace cli {

/// The word for the kind of an event in JSON, such as "scanFinished".
const char* nameOf(Event::Kind kind);

/// An event for a terminal: the time of day, the kind and its details, in one line that ends with a line
/// feed; where the console is narrower, with the rest in indented lines below it.
std::string reportOf(const Event& event, std::time_t time, const Console& console);

/// An event for programs, with the time in UTC and those members that it has a value for.
Record recordOf(const Event& event, std::time_t time);

} // namespace cli
