#pragma once

namespace cli {

/// Opens /dev/null for standard streams that are closed, so that no file that is opened later gets
/// their descriptors. Reading from standard input and writing to the other two fails.
void fillClosedStreams();

/// Flushes standard output.
/// @throws Failure if it cannot be written; with an empty message if it is a pipe whose reader has
///         closed it, which is no reason for a message
void flushOutput();

/// Whether standard output is a pipe whose reader has closed it.
bool hasReaderClosed();

} // namespace cli
