#pragma once

namespace cli {

/// Puts something in the place of standard streams that are closed, so that no file that is opened
/// later gets their numbers. Reading from it, and writing to it, fails.
void fillClosedStreams();

/// Writes out what has been printed. Where whoever reads it has gone, that needs no words.
/// @throws Failure where it cannot be written, without a message for a reader that has gone
void flushOutput();

} // namespace cli
