#pragma once

namespace platwifi {

/// The option "-i<interface>" in its fixed buffer. An interface name that is null or does not fit
/// (14 characters and more) gives an invalid option: nothing is cut short, the command fails.
class InterfaceOption {
public:
    explicit InterfaceOption(const char* iface) noexcept;

    bool isValid() const noexcept { return m_text[0] != '\0'; }

    /// Whether it names an interface at all. The client would take the word after a bare "-i" for
    /// the name, and be left without a command.
    bool namesInterface() const noexcept { return isValid() && m_text[2] != '\0'; }

    const char* text() const noexcept { return m_text; }

private:
    char m_text[16] = "";
};

/// A network's number as text.
class NetworkIdArgument {
public:
    explicit NetworkIdArgument(unsigned char id) noexcept;

    const char* text() const noexcept { return m_text; }

private:
    char m_text[4] = "";
};

/// Whether the client would take this text for one of its options, wherever it stands: one of them
/// starts programs, and some texts come from access points. Neither a negative number nor a lone "-" is
/// one.
bool isClientOption(const char* text) noexcept;

} // namespace platwifi
