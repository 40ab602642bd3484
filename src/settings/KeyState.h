#pragma once

namespace platwifi {

/// Whether the supplicant keeps a network when it writes its configuration file.
///
/// wpa_supplicant 2.10 leaves out, without an error, a network whose key management is
/// - WPA-PSK in any of its variants, the default included, without a pre-shared key,
/// - SAE without a passphrase,
/// - WPS.
/// The networks behind it get lower ids when the file is read again. The key management and the key in
/// memory cannot answer the question: memory holds one of several methods, it holds values that the
/// supplicant refused, and it may hold a key "*", which is never sent.
class KeyState {
public:
    /// The state of a network that the supplicant has just created: by default, WPA-PSK is one of its
    /// methods.
    KeyState() = default;

    /// The state of a network before its values are loaded. It counts as one that is kept until read() gets
    /// a value.
    static KeyState beforeLoad();

    /// Notes a field's value as the supplicant has it; null for none.
    void read(const char* key, const char* value);

    /// Notes that a field was sent to the supplicant, and whether the supplicant took it.
    void written(const char* key, const char* value, bool accepted);

    bool mayBeLeftOut() const;

private:
    /// What a network must have to be kept.
    enum class Need {
        UNKNOWN, ///< nothing was loaded yet
        NOTHING,
        KEY,    ///< a pre-shared key
        SECRET, ///< one that cannot be read: an SAE password, a WPS PIN
    };

    static Need needOf(const char* methods);

    Need m_need = Need::KEY;
    bool m_hasKey = false;
};

} // namespace platwifi
