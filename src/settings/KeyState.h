#pragma once

namespace platwifi {

/// Whether the supplicant keeps a network when it writes its configuration file.
///
/// wpa_supplicant 2.10 leaves a network out whose key management has WPA-PSK in any of its variants, the
/// default included, without a pre-shared key, or SAE without a passphrase, or WPS. It does so without
/// an error, and gives the networks behind it lower ids when it reads the file again. The key
/// management and the key that are held in memory do not tell this: of several methods one is kept, a
/// value that the supplicant refused is held all the same, and a key "*" is never sent.
class KeyState {
public:
    /// That of a network which the supplicant has just made: by default, WPA-PSK is one of its methods.
    KeyState() = default;

    /// That of a network which is being loaded. Until the supplicant has given any value, nothing is
    /// known of it, and it counts as one that stays.
    static KeyState beforeLoad();

    /// A field's value as the supplicant has it; null when it has none.
    void read(const char* key, const char* value);

    /// A field was sent to the supplicant.
    void written(const char* key, const char* value, bool accepted);

    bool mayBeLeftOut() const;

private:
    enum class Need { NOT_TOLD, NONE, KEY, ANOTHER };

    static Need needOf(const char* methods);

    Need m_need = Need::KEY;
    bool m_hasKey = false;
};

} // namespace platwifi
