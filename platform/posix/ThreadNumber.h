#pragma once

namespace platform {

constexpr unsigned int THREAD_NUMBER_BITS = 9;

/// A number of the calling thread below 2^THREAD_NUMBER_BITS, which no other thread of this process has until this
/// one has ended. Of more threads at a time, the later ones share the last number.
unsigned int threadNumber() noexcept;

} // namespace platform
