#pragma once

#include "Export.h"
#include "model/WifiTypes.h"

#include <memory>

namespace platwifi {
class NetworkFields;
} // namespace platwifi

/// One network of the supplicant's configuration in memory: its SSID, its security, what the last scan
/// showed of it, and its status. Each field that can be written back to the supplicant has a dirty flag,
/// which says that the field was changed and not written back yet.
///
/// A network has no lock of its own. As long as it is in a list, every call, getters included, needs the
/// lock of that list (WifiNetworkList::lock()). The program that creates a network owns it until a list
/// takes it over; `next` is not owned.
///
/// Texts are NUL-terminated bytes. A setter copies its argument. A getter returns the network's own copy,
/// which stays valid until the field changes, or null when the field is not set. Secrets are held in
/// plain text. Numbers are stored without a range check, except the WEP index; model/WifiTypes.h has the
/// names of sets and values.
///
/// Under the profile `modern` a network that was loaded has fields that were not read, because its security
/// does not use them; they look unset. A setter reads them when they are needed, which runs commands of the
/// client; its caller holds WifiHostSettings::lockSettings().
///
/// Setters return true when the field changed, except where noted. Nothing is thrown; where memory has
/// run out, the process ends.
class PLATWIFI_API WifiNetwork {
public:
    /// Every field is unset, unknown, 0 or false, and no field is dirty.
    WifiNetwork();

    /// Frees the fields; the next network is not touched.
    ~WifiNetwork();

    WifiNetwork(const WifiNetwork&) = delete;
    WifiNetwork& operator=(const WifiNetwork&) = delete;

    // Texts that are written back. A change marks the field dirty. Null clears a text. An empty text
    // counts as unset in a comparison: "" over null and null over "" are no change; "" over another
    // text is stored.

    bool setSsid(const char* text);
    const char* getSsid() const;
    bool setBssid(const char* text); ///< MAC address of the access point
    const char* getBssid() const;
    bool setPsk(const char* text); ///< pre-shared key (a secret)
    const char* getPsk() const;
    bool setEAPIdentity(const char* text);
    const char* getEAPIdentity() const;
    bool setEAPAnonymousIdentity(const char* text); ///< identity that is sent outside of the tunnel
    const char* getEAPAnonymousIdentity() const;
    bool setEAPPassword(const char* text); ///< a secret
    const char* getEAPPassword() const;

    // Of phase 1, the outer authentication.

    bool setCACertificate(const char* text); ///< file
    const char* getCACertificate() const;
    bool setCACertificateDir(const char* text);
    const char* getCACertificateDir() const;
    bool setClientCertificate(const char* text); ///< file
    const char* getClientCertificate() const;
    bool setPrivateKeyFile(const char* text);
    const char* getPrivateKeyFile() const;
    bool setPrivateKeyPassword(const char* text); ///< a secret
    const char* getPrivateKeyPassword() const;
    bool setPhase1Step(const char* text); ///< parameters of phase 1
    const char* getPhase1Step() const;

    // Of phase 2, the inner authentication.

    bool setPhase2Step(const char* text); ///< parameters of phase 2
    const char* getPhase2Step() const;
    bool setCACertificate2(const char* text); ///< file
    const char* getCACertificate2() const;
    bool setCACertificateDir2(const char* text);
    const char* getCACertificateDir2() const;
    bool setClientCertificate2(const char* text); ///< file
    const char* getClientCertificate2() const;
    bool setPrivateKeyFile2(const char* text);
    const char* getPrivateKeyFile2() const;
    bool setPrivateKeyPassword2(const char* text); ///< a secret
    const char* getPrivateKeyPassword2() const;

    /// Copies a WEP key (a secret) into slot `index`, 0 to 3; null clears the slot. A change marks the
    /// slot dirty. An empty key clears the slot without marking it, since no empty WEP key can be written.
    /// @return true for index 0 to 3, whether or not the key changed; false for any other index
    bool setWepKey(unsigned int index, const char* key);

    /// The key in slot `index`; null when the slot is empty, and for an index above 3.
    const char* getWepKey(unsigned int index) const;

    // Numbers that are written back. A change marks the field dirty; the same value is no change.

    bool setNetworkMode(unsigned char value); ///< a NetworkMode
    unsigned char getNetworkMode() const;
    bool setChannel(unsigned int value); ///< channel number
    unsigned int getChannel() const;
    bool setPriority(unsigned int value); ///< the supplicant prefers networks with a higher one
    unsigned int getPriority() const;
    bool setProtocol(unsigned int value); ///< a set of Protocol
    unsigned int getProtocol() const;
    bool setKeyManagement(unsigned int value); ///< a set of KeyManagement
    unsigned int getKeyManagement() const;
    bool setPmf(unsigned int value); ///< a Pmf; a new network has PMF_DEFAULT
    unsigned int getPmf() const;
    bool setAuthAlg(unsigned int value); ///< an AuthAlg
    unsigned int getAuthAlg() const;
    bool setGroupCiphers(unsigned int value); ///< a set of GroupCipher
    unsigned int getGroupCiphers() const;
    bool setPairwiseCiphers(unsigned int value); ///< a set of PairwiseCipher
    unsigned int getPairwiseCiphers() const;
    bool setEapModes(unsigned int value); ///< a set of EapMode
    unsigned int getEapModes() const;

    /// The slot of the WEP key to transmit with, 0 to 3.
    /// @return false for an index above 3, which changes nothing, and where the index is the same
    bool setWepIndex(unsigned int index);
    unsigned int getWepIndex() const;

    /// Whether the network broadcasts its SSID. Each call marks the field dirty, also with the value that
    /// the field has: a new network starts with false here and with true in the supplicant.
    /// @return true
    bool setSsidBroadcasted(bool value);
    unsigned int getSsidBroadcasted() const; ///< 1 or 0

    // What the supplicant reports. It is never written back and has no dirty flag. The setters of the
    // numbers always return true.

    bool setNetworkId(unsigned char value); ///< by which the supplicant's commands name the network
    unsigned char getNetworkId() const;
    bool setNetworkStatus(unsigned int value); ///< a NetworkStatus
    unsigned int getNetworkStatus() const;
    bool setStrength(unsigned int value); ///< of the signal at the last scan, 0 to 100
    unsigned int getStrength() const;
    bool setIpAddress(const char* text); ///< address of the adapter on this network
    const char* getIpAddress() const;

    /// The next network of the list, which alone sets it.
    /// @return true
    bool setNext(WifiNetwork* network);
    WifiNetwork* getNext() const;

    // The dirty flag of each field. The setters return true.

    bool setSsidDirty(bool on);
    bool getSsidDirty() const;
    bool setBssidDirty(bool on);
    bool getBssidDirty() const;
    bool setSsidBroadcastedDirty(bool on);
    bool getSsidBroadcastedDirty() const;
    bool setNetworkModeDirty(bool on);
    bool getNetworkModeDirty() const;
    bool setChannelDirty(bool on);
    bool getChannelDirty() const;
    bool setPriorityDirty(bool on);
    bool getPriorityDirty() const;
    bool setProtocolDirty(bool on);
    bool getProtocolDirty() const;
    bool setKeyManagementDirty(bool on);
    bool getKeyManagementDirty() const;
    bool setPmfDirty(bool on);
    bool getPmfDirty() const;
    bool setAuthAlgDirty(bool on);
    bool getAuthAlgDirty() const;
    bool setGroupCiphersDirty(bool on);
    bool getGroupCiphersDirty() const;
    bool setPairwiseCiphersDirty(bool on);
    bool getPairwiseCiphersDirty() const;
    bool setWepIndexDirty(bool on);
    bool getWepIndexDirty() const;
    bool setPskDirty(bool on);
    bool getPskDirty() const;
    bool setEapModesDirty(bool on);
    bool getEapModesDirty() const;
    bool setEAPIdentityDirty(bool on);
    bool getEAPIdentityDirty() const;
    bool setEAPAnonymousIdentityDirty(bool on);
    bool getEAPAnonymousIdentityDirty() const;
    bool setEAPPasswordDirty(bool on);
    bool getEAPPasswordDirty() const;
    bool setCACertificateDirty(bool on);
    bool getCACertificateDirty() const;
    bool setCACertificateDirDirty(bool on);
    bool getCACertificateDirDirty() const;
    bool setClientCertificateDirty(bool on);
    bool getClientCertificateDirty() const;
    bool setPrivateKeyFileDirty(bool on);
    bool getPrivateKeyFileDirty() const;
    bool setPrivateKeyPasswordDirty(bool on);
    bool getPrivateKeyPasswordDirty() const;
    bool setPhase1StepDirty(bool on);
    bool getPhase1StepDirty() const;
    bool setPhase2StepDirty(bool on);
    bool getPhase2StepDirty() const;
    bool setCACertificate2Dirty(bool on);
    bool getCACertificate2Dirty() const;
    bool setCACertificateDir2Dirty(bool on);
    bool getCACertificateDir2Dirty() const;
    bool setClientCertificate2Dirty(bool on);
    bool getClientCertificate2Dirty() const;
    bool setPrivateKeyFile2Dirty(bool on);
    bool getPrivateKeyFile2Dirty() const;
    bool setPrivateKeyPassword2Dirty(bool on);
    bool getPrivateKeyPassword2Dirty() const;

    /// The dirty flag of one WEP key. Both return false for an index above 3, and the setter stores
    /// nothing then.
    bool setWepKeyDirty(bool on, unsigned char index);
    bool getWepKeyDirty(unsigned char index) const;

    /// Whether a save has to write the network back. A change of the anonymous identity alone does not
    /// count: it is written with the next other change.
    bool getNetworkDirty() const;

    /// Clears every dirty flag, that of the anonymous identity included.
    void cleanDirtyFields();

private:
    friend class platwifi::NetworkFields;

    const std::unique_ptr<platwifi::NetworkFields> m_fields; ///< never null
    WifiNetwork* m_next = nullptr;                           ///< not owned
};
