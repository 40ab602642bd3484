#pragma once

#include <cstddef>
#include <initializer_list>

namespace platwifi {

/// The arguments of one child, the program's path first, with the closing null that the system
/// expects. The texts stay the caller's and must outlive the list.
class ArgumentList {
public:
    static constexpr std::size_t CAPACITY = 6;

    /// Null entries are left out.
    ArgumentList(std::initializer_list<const char*> entries) noexcept;

    /// Appends one entry, or all entries of another list. A null entry is left out.
    ArgumentList& add(const char* entry) noexcept;
    ArgumentList& add(const ArgumentList& more) noexcept;

    /// False when more than CAPACITY entries were added. The list lacks some then and must not be
    /// used.
    bool isComplete() const noexcept { return m_count <= CAPACITY; }

    /// The first entry, or null in an empty list.
    const char* program() const noexcept { return m_entries[0]; }

    /// The entries and the closing null.
    const char* const* get() const noexcept { return m_entries; }

private:
    const char* m_entries[CAPACITY + 1] = {};
    std::size_t m_count = 0; ///< entries that were added, more than CAPACITY in an incomplete list
};

/// The list for the parameters of WifiUtil::launchProcess(), each of which may be null. A null
/// `command` drops itself and all arguments, a null `arg1` drops all three arguments. Any other
/// null drops only itself. quirk: CMD-7
ArgumentList argumentsOf(const char* path, const char* interfaceArg, const char* command,
                         const char* arg1, const char* arg2, const char* arg3) noexcept;

/// The option "-i<interface>". An interface name that is null or too long gives an invalid option:
/// nothing is cut short, the command fails. The profile says how many characters a name may have.
class InterfaceOption {
public:
    explicit InterfaceOption(const char* iface) noexcept;

    bool isValid() const noexcept { return m_text[0] != '\0'; }

    /// Whether it names an interface at all. After a bare "-i" the client takes the next word, the
    /// command, for the name.
    bool namesInterface() const noexcept { return isValid() && m_text[2] != '\0'; }

    const char* text() const noexcept { return m_text; }

private:
    static constexpr std::size_t MOST_CHARACTERS = 15; // under any profile
    char m_text[sizeof("-i") + MOST_CHARACTERS] = "";
};

/// A network id as text.
class NetworkIdArgument {
public:
    explicit NetworkIdArgument(unsigned char id) noexcept;

    const char* text() const noexcept { return m_text; }

private:
    char m_text[4] = "";
};

/// Whether the client takes this text for one of its options. It looks for options in every
/// argument, one option starts programs, and access points choose some of the texts. A negative
/// number and a lone "-" are no options.
bool isClientOption(const char* text) noexcept;

} // namespace platwifi
