#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

/// The bytes of one run, read piece by piece. At their end every piece is empty or 0. A text ends at the next
/// NUL, so that a corpus file can be written by hand.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) noexcept : m_next(data), m_end(data + size) {}

    bool isEmpty() const noexcept { return m_next == m_end; }

    std::uint8_t byte() noexcept { return isEmpty() ? std::uint8_t{0} : *m_next++; }

    /// A number from 0 to `limit` - 1; `limit` is 1 to 256.
    unsigned int below(unsigned int limit) noexcept { return byte() % limit; }

    bool flag() noexcept { return (byte() & 1U) != 0; }

    std::uint32_t number() noexcept {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8U | byte();
        return value;
    }

    /// The bytes up to the next NUL or the end, `most` at the longest.
    std::string text(std::size_t most = SIZE_MAX) {
        const std::uint8_t* const begin = m_next;
        while (!isEmpty() && *m_next != 0 && static_cast<std::size_t>(m_next - begin) < most)
            ++m_next;
        const std::string taken(reinterpret_cast<const char*>(begin),
                                static_cast<std::size_t>(m_next - begin));
        if (!isEmpty() && *m_next == 0)
            ++m_next;
        return taken;
    }

    /// The rest, NULs included.
    std::string rest() {
        const std::string taken(reinterpret_cast<const char*>(m_next),
                                static_cast<std::size_t>(m_end - m_next));
        m_next = m_end;
        return taken;
    }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

} // namespace fuzz

/// Called by the fuzzer, or by the replay of a corpus, with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
