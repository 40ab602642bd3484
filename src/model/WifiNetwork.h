#pragma once

#include "Export.h"
#include "model/Field.h"
#include "model/WifiTypes.h"

#include <array>

/// One network of the supplicant's configuration as it is held in memory: what it is called, how it
/// is secured, how it was last seen, and which of its fields were changed since the supplicant was
/// told (a dirty flag for each field that can be written back).
///
/// It has no lock: every call, getters too, needs the lock of the list that holds the network
/// (WifiNetworkList::lock()), once there is one. A network belongs to who made it, then to its
/// list; `next` is not owned.
///
/// Texts are NUL-terminated bytes. A setter copies what it is given; a getter returns the network's
/// own copy, which stays valid until the field changes, or null when the field is not set. Secrets
/// are held in plain. Numbers are stored as given, without a range check, except the WEP index; the
/// names of sets and values are in model/WifiTypes.h.
///
/// Setters return true when the field changed, except where noted. Nothing is thrown; where memory
/// for a copy has run out, the process ends.
class PLATWIFI_API WifiNetwork {
public:
    /// Everything is unset, unknown, 0 or false, and clean.
    WifiNetwork();

    /// Frees the texts, and leaves the next network alone.
    ~WifiNetwork();

    WifiNetwork(const WifiNetwork&) = delete;
    WifiNetwork& operator=(const WifiNetwork&) = delete;

    // Texts that are written back. A change marks the field dirty: any other text, or null over a
    // text. An empty text over a text is stored; over null it is no change.

    bool setSsid(const char* text); ///< name of the network
    const char* getSsid() const;
    bool setBssid(const char* text); ///< MAC address of the access point
    const char* getBssid() const;
    bool setPsk(const char* text); ///< pre-shared key (a secret)
    const char* getPsk() const;
    bool setEAPIdentity(const char* text);
    const char* getEAPIdentity() const;
    bool setEAPAnonymousIdentity(const char* text); ///< identity shown outside of the tunnel
    const char* getEAPAnonymousIdentity() const;
    bool setEAPPassword(const char* text); ///< a secret
    const char* getEAPPassword() const;
    bool setCACertificate(const char* text); ///< file; from here on for the outer phase
    const char* getCACertificate() const;
    bool setCACertificateDir(const char* text);
    const char* getCACertificateDir() const;
    bool setClientCertificate(const char* text); ///< file
    const char* getClientCertificate() const;
    bool setPrivateKeyFile(const char* text);
    const char* getPrivateKeyFile() const;
    bool setPrivateKeyPassword(const char* text); ///< a secret
    const char* getPrivateKeyPassword() const;
    bool setPhase1Step(const char* text); ///< parameters of the outer authentication
    const char* getPhase1Step() const;
    bool setPhase2Step(const char* text); ///< parameters of the inner authentication
    const char* getPhase2Step() const;
    bool setCACertificate2(const char* text); ///< file; from here on for the inner phase
    const char* getCACertificate2() const;
    bool setCACertificateDir2(const char* text);
    const char* getCACertificateDir2() const;
    bool setClientCertificate2(const char* text); ///< file
    const char* getClientCertificate2() const;
    bool setPrivateKeyFile2(const char* text);
    const char* getPrivateKeyFile2() const;
    bool setPrivateKeyPassword2(const char* text); ///< a secret
    const char* getPrivateKeyPassword2() const;

    /// Copies a WEP key (a secret) into slot `index`, 0 to 3, or clears the slot. A new key, and
    /// null over a key, mark the slot dirty; an empty key clears the slot without marking it.
    /// @return true for every slot there is, changed or not
    bool setWepKey(unsigned int index, const char* key);

    /// The key in slot `index`; null when there is none, and for an index above 3.
    const char* getWepKey(unsigned int index) const;

    // Numbers that are written back. Another value marks the field dirty; the same is no change.

    bool setNetworkMode(unsigned char value); ///< a NetworkMode
    unsigned char getNetworkMode() const;
    bool setChannel(unsigned int value); ///< radio channel
    unsigned int getChannel() const;
    bool setPriority(unsigned int value); ///< the supplicant prefers higher ones
    unsigned int getPriority() const;
    bool setProtocol(unsigned int value); ///< a set of Protocol
    unsigned int getProtocol() const;
    bool setKeyManagement(unsigned int value); ///< a set of KeyManagement
    unsigned int getKeyManagement() const;
    bool setAuthAlg(unsigned int value); ///< an AuthAlg
    unsigned int getAuthAlg() const;
    bool setGroupCiphers(unsigned int value); ///< a set of GroupCipher
    unsigned int getGroupCiphers() const;
    bool setPairwiseCiphers(unsigned int value); ///< a set of PairwiseCipher
    unsigned int getPairwiseCiphers() const;
    bool setEapModes(unsigned int value); ///< a set of EapMode
    unsigned int getEapModes() const;

    /// Slot of the WEP key to send with. An index above 3 is refused: false, and nothing changes.
    bool setWepIndex(unsigned int index);
    unsigned int getWepIndex() const;

    /// Whether the network tells its name to everybody. Marks the field dirty and returns true,
    /// also when it was so already.
    bool setSsidBroadcasted(bool value);
    unsigned int getSsidBroadcasted() const; ///< 1 or 0

    // Facts that come from the supplicant and are never written back: no dirty flag. The setters of
    // the numbers always return true.

    bool setNetworkId(unsigned char value); ///< the supplicant's number of the network
    unsigned char getNetworkId() const;
    bool setNetworkStatus(unsigned int value); ///< a NetworkStatus
    unsigned int getNetworkStatus() const;
    bool setStrength(unsigned int value); ///< signal at the last scan, 0 to 100
    unsigned int getStrength() const;
    bool setIpAddress(const char* text); ///< address obtained on this network
    const char* getIpAddress() const;

    /// The next network of the list. The list keeps this link; always returns true.
    bool setNext(WifiNetwork* network);
    WifiNetwork* getNext() const;

    // Dirty flags, one by one. The setters store the flag and return true.

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

    /// The flag of one WEP key; false for an index above 3, which stores nothing.
    bool setWepKeyDirty(bool on, unsigned char index);
    bool getWepKeyDirty(unsigned char index) const;

    /// Whether the network has a change to write back. A change of the anonymous identity alone
    /// does not count: it goes along with the next other change.
    bool getNetworkDirty() const;

    /// Clears every dirty flag, the one of the anonymous identity too.
    void cleanDirtyFields();

private:
    using Text = platwifi::TextField;
    using Number = platwifi::NumberField<unsigned int>;
    using Byte = platwifi::NumberField<unsigned char>;

    static constexpr unsigned int WEP_KEYS = 4;

    enum DirtyFlag : unsigned int {
        ssidDirty,
        bssidDirty,
        ssidBroadcastedDirty,
        networkModeDirty,
        channelDirty,
        priorityDirty,
        protocolDirty,
        keyManagementDirty,
        authAlgDirty,
        groupCiphersDirty,
        pairwiseCiphersDirty,
        wepIndexDirty,
        wepKeyDirty, ///< of slot 0; the other slots follow
        pskDirty = wepKeyDirty + WEP_KEYS,
        eapModesDirty,
        EAPIdentityDirty,
        EAPAnonymousIdentityDirty,
        EAPPasswordDirty,
        CACertificateDirty,
        CACertificateDirDirty,
        ClientCertificateDirty,
        PrivateKeyFileDirty,
        PrivateKeyPasswordDirty,
        Phase1StepDirty,
        Phase2StepDirty,
        CACertificate2Dirty,
        CACertificateDir2Dirty,
        ClientCertificate2Dirty,
        PrivateKeyFile2Dirty,
        PrivateKeyPassword2Dirty,
        DIRTY_FLAGS,
    };

    std::array<bool, DIRTY_FLAGS> dirtyFlags{};

    // Each field with its dirty flag; those without one are never written back.

    Text ssid{dirtyFlags[ssidDirty]};
    Text bssid{dirtyFlags[bssidDirty]};
    unsigned char networkId = 0;
    Number ssidBroadcasted{dirtyFlags[ssidBroadcastedDirty]};
    unsigned int networkStatus = NETWORK_STATUS_UNKNOWN;
    Number priority{dirtyFlags[priorityDirty]};
    unsigned int strength = 0;
    Number channel{dirtyFlags[channelDirty]};
    Byte networkMode{dirtyFlags[networkModeDirty], NETWORK_MODE_UNKNOWN};
    Number protocol{dirtyFlags[protocolDirty]};
    Number keyManagement{dirtyFlags[keyManagementDirty]};
    Number authAlg{dirtyFlags[authAlgDirty]};
    Number groupCiphers{dirtyFlags[groupCiphersDirty]};
    Number pairwiseCiphers{dirtyFlags[pairwiseCiphersDirty]};
    Text psk{dirtyFlags[pskDirty]};
    Text wepKey[WEP_KEYS] = {Text{dirtyFlags[wepKeyDirty]}, Text{dirtyFlags[wepKeyDirty + 1]},
                             Text{dirtyFlags[wepKeyDirty + 2]}, Text{dirtyFlags[wepKeyDirty + 3]}};
    Number wepIndex{dirtyFlags[wepIndexDirty]};
    Number eapModes{dirtyFlags[eapModesDirty]};
    Text EAPIdentity{dirtyFlags[EAPIdentityDirty]};
    Text EAPAnonymousIdentity{dirtyFlags[EAPAnonymousIdentityDirty]};
    Text EAPPassword{dirtyFlags[EAPPasswordDirty]};
    Text CACertificate{dirtyFlags[CACertificateDirty]};
    Text CACertificateDir{dirtyFlags[CACertificateDirDirty]};
    Text ClientCertificate{dirtyFlags[ClientCertificateDirty]};
    Text PrivateKeyFile{dirtyFlags[PrivateKeyFileDirty]};
    Text PrivateKeyPassword{dirtyFlags[PrivateKeyPasswordDirty]};
    Text Phase1Step{dirtyFlags[Phase1StepDirty]};
    Text Phase2Step{dirtyFlags[Phase2StepDirty]};
    Text CACertificate2{dirtyFlags[CACertificate2Dirty]};
    Text CACertificateDir2{dirtyFlags[CACertificateDir2Dirty]};
    Text ClientCertificate2{dirtyFlags[ClientCertificate2Dirty]};
    Text PrivateKeyFile2{dirtyFlags[PrivateKeyFile2Dirty]};
    Text PrivateKeyPassword2{dirtyFlags[PrivateKeyPassword2Dirty]};
    platwifi::OwnedText ipAddress;
    WifiNetwork* next = nullptr; ///< not owned
};
