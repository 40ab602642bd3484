#include "model/WifiNetwork.h"

#include <algorithm>

WifiNetwork::WifiNetwork() = default;

WifiNetwork::~WifiNetwork() = default;

// One function a line, in the order of the header; those that differ stand below.
// clang-format off

bool WifiNetwork::setSsid(const char* text) { return ssid.set(text); }
bool WifiNetwork::setBssid(const char* text) { return bssid.set(text); }
bool WifiNetwork::setPsk(const char* text) { return psk.set(text); }
bool WifiNetwork::setEAPIdentity(const char* text) { return EAPIdentity.set(text); }
bool WifiNetwork::setEAPAnonymousIdentity(const char* text) {
    return EAPAnonymousIdentity.set(text);
}
bool WifiNetwork::setEAPPassword(const char* text) { return EAPPassword.set(text); }
bool WifiNetwork::setCACertificate(const char* text) { return CACertificate.set(text); }
bool WifiNetwork::setCACertificateDir(const char* text) { return CACertificateDir.set(text); }
bool WifiNetwork::setClientCertificate(const char* text) { return ClientCertificate.set(text); }
bool WifiNetwork::setPrivateKeyFile(const char* text) { return PrivateKeyFile.set(text); }
bool WifiNetwork::setPrivateKeyPassword(const char* text) { return PrivateKeyPassword.set(text); }
bool WifiNetwork::setPhase1Step(const char* text) { return Phase1Step.set(text); }
bool WifiNetwork::setPhase2Step(const char* text) { return Phase2Step.set(text); }
bool WifiNetwork::setCACertificate2(const char* text) { return CACertificate2.set(text); }
bool WifiNetwork::setCACertificateDir2(const char* text) { return CACertificateDir2.set(text); }
bool WifiNetwork::setClientCertificate2(const char* text) { return ClientCertificate2.set(text); }
bool WifiNetwork::setPrivateKeyFile2(const char* text) { return PrivateKeyFile2.set(text); }
bool WifiNetwork::setPrivateKeyPassword2(const char* text) { return PrivateKeyPassword2.set(text); }

const char* WifiNetwork::getSsid() const { return ssid.get(); }
const char* WifiNetwork::getBssid() const { return bssid.get(); }
const char* WifiNetwork::getPsk() const { return psk.get(); }
const char* WifiNetwork::getEAPIdentity() const { return EAPIdentity.get(); }
const char* WifiNetwork::getEAPAnonymousIdentity() const { return EAPAnonymousIdentity.get(); }
const char* WifiNetwork::getEAPPassword() const { return EAPPassword.get(); }
const char* WifiNetwork::getCACertificate() const { return CACertificate.get(); }
const char* WifiNetwork::getCACertificateDir() const { return CACertificateDir.get(); }
const char* WifiNetwork::getClientCertificate() const { return ClientCertificate.get(); }
const char* WifiNetwork::getPrivateKeyFile() const { return PrivateKeyFile.get(); }
const char* WifiNetwork::getPrivateKeyPassword() const { return PrivateKeyPassword.get(); }
const char* WifiNetwork::getPhase1Step() const { return Phase1Step.get(); }
const char* WifiNetwork::getPhase2Step() const { return Phase2Step.get(); }
const char* WifiNetwork::getCACertificate2() const { return CACertificate2.get(); }
const char* WifiNetwork::getCACertificateDir2() const { return CACertificateDir2.get(); }
const char* WifiNetwork::getClientCertificate2() const { return ClientCertificate2.get(); }
const char* WifiNetwork::getPrivateKeyFile2() const { return PrivateKeyFile2.get(); }
const char* WifiNetwork::getPrivateKeyPassword2() const { return PrivateKeyPassword2.get(); }

bool WifiNetwork::setNetworkMode(unsigned char value) { return networkMode.set(value); }
bool WifiNetwork::setChannel(unsigned int value) { return channel.set(value); }
bool WifiNetwork::setPriority(unsigned int value) { return priority.set(value); }
bool WifiNetwork::setProtocol(unsigned int value) { return protocol.set(value); }
bool WifiNetwork::setKeyManagement(unsigned int value) { return keyManagement.set(value); }
bool WifiNetwork::setAuthAlg(unsigned int value) { return authAlg.set(value); }
bool WifiNetwork::setGroupCiphers(unsigned int value) { return groupCiphers.set(value); }
bool WifiNetwork::setPairwiseCiphers(unsigned int value) { return pairwiseCiphers.set(value); }
bool WifiNetwork::setEapModes(unsigned int value) { return eapModes.set(value); }

unsigned char WifiNetwork::getNetworkMode() const { return networkMode.get(); }
unsigned int WifiNetwork::getChannel() const { return channel.get(); }
unsigned int WifiNetwork::getPriority() const { return priority.get(); }
unsigned int WifiNetwork::getProtocol() const { return protocol.get(); }
unsigned int WifiNetwork::getKeyManagement() const { return keyManagement.get(); }
unsigned int WifiNetwork::getAuthAlg() const { return authAlg.get(); }
unsigned int WifiNetwork::getGroupCiphers() const { return groupCiphers.get(); }
unsigned int WifiNetwork::getPairwiseCiphers() const { return pairwiseCiphers.get(); }
unsigned int WifiNetwork::getEapModes() const { return eapModes.get(); }
unsigned int WifiNetwork::getWepIndex() const { return wepIndex.get(); }
unsigned int WifiNetwork::getSsidBroadcasted() const { return ssidBroadcasted.get(); }

unsigned char WifiNetwork::getNetworkId() const { return networkId; }
unsigned int WifiNetwork::getNetworkStatus() const { return networkStatus; }
unsigned int WifiNetwork::getStrength() const { return strength; }
const char* WifiNetwork::getIpAddress() const { return ipAddress.get(); }
WifiNetwork* WifiNetwork::getNext() const { return next; }

bool WifiNetwork::setSsidDirty(bool on) { return ssid.mark(on); }
bool WifiNetwork::setBssidDirty(bool on) { return bssid.mark(on); }
bool WifiNetwork::setSsidBroadcastedDirty(bool on) { return ssidBroadcasted.mark(on); }
bool WifiNetwork::setNetworkModeDirty(bool on) { return networkMode.mark(on); }
bool WifiNetwork::setChannelDirty(bool on) { return channel.mark(on); }
bool WifiNetwork::setPriorityDirty(bool on) { return priority.mark(on); }
bool WifiNetwork::setProtocolDirty(bool on) { return protocol.mark(on); }
bool WifiNetwork::setKeyManagementDirty(bool on) { return keyManagement.mark(on); }
bool WifiNetwork::setAuthAlgDirty(bool on) { return authAlg.mark(on); }
bool WifiNetwork::setGroupCiphersDirty(bool on) { return groupCiphers.mark(on); }
bool WifiNetwork::setPairwiseCiphersDirty(bool on) { return pairwiseCiphers.mark(on); }
bool WifiNetwork::setWepIndexDirty(bool on) { return wepIndex.mark(on); }
bool WifiNetwork::setPskDirty(bool on) { return psk.mark(on); }
bool WifiNetwork::setEapModesDirty(bool on) { return eapModes.mark(on); }
bool WifiNetwork::setEAPIdentityDirty(bool on) { return EAPIdentity.mark(on); }
bool WifiNetwork::setEAPAnonymousIdentityDirty(bool on) { return EAPAnonymousIdentity.mark(on); }
bool WifiNetwork::setEAPPasswordDirty(bool on) { return EAPPassword.mark(on); }
bool WifiNetwork::setCACertificateDirty(bool on) { return CACertificate.mark(on); }
bool WifiNetwork::setCACertificateDirDirty(bool on) { return CACertificateDir.mark(on); }
bool WifiNetwork::setClientCertificateDirty(bool on) { return ClientCertificate.mark(on); }
bool WifiNetwork::setPrivateKeyFileDirty(bool on) { return PrivateKeyFile.mark(on); }
bool WifiNetwork::setPrivateKeyPasswordDirty(bool on) { return PrivateKeyPassword.mark(on); }
bool WifiNetwork::setPhase1StepDirty(bool on) { return Phase1Step.mark(on); }
bool WifiNetwork::setPhase2StepDirty(bool on) { return Phase2Step.mark(on); }
bool WifiNetwork::setCACertificate2Dirty(bool on) { return CACertificate2.mark(on); }
bool WifiNetwork::setCACertificateDir2Dirty(bool on) { return CACertificateDir2.mark(on); }
bool WifiNetwork::setClientCertificate2Dirty(bool on) { return ClientCertificate2.mark(on); }
bool WifiNetwork::setPrivateKeyFile2Dirty(bool on) { return PrivateKeyFile2.mark(on); }
bool WifiNetwork::setPrivateKeyPassword2Dirty(bool on) { return PrivateKeyPassword2.mark(on); }

bool WifiNetwork::getSsidDirty() const { return ssid.isDirty(); }
bool WifiNetwork::getBssidDirty() const { return bssid.isDirty(); }
bool WifiNetwork::getSsidBroadcastedDirty() const { return ssidBroadcasted.isDirty(); }
bool WifiNetwork::getNetworkModeDirty() const { return networkMode.isDirty(); }
bool WifiNetwork::getChannelDirty() const { return channel.isDirty(); }
bool WifiNetwork::getPriorityDirty() const { return priority.isDirty(); }
bool WifiNetwork::getProtocolDirty() const { return protocol.isDirty(); }
bool WifiNetwork::getKeyManagementDirty() const { return keyManagement.isDirty(); }
bool WifiNetwork::getAuthAlgDirty() const { return authAlg.isDirty(); }
bool WifiNetwork::getGroupCiphersDirty() const { return groupCiphers.isDirty(); }
bool WifiNetwork::getPairwiseCiphersDirty() const { return pairwiseCiphers.isDirty(); }
bool WifiNetwork::getWepIndexDirty() const { return wepIndex.isDirty(); }
bool WifiNetwork::getPskDirty() const { return psk.isDirty(); }
bool WifiNetwork::getEapModesDirty() const { return eapModes.isDirty(); }
bool WifiNetwork::getEAPIdentityDirty() const { return EAPIdentity.isDirty(); }
bool WifiNetwork::getEAPAnonymousIdentityDirty() const { return EAPAnonymousIdentity.isDirty(); }
bool WifiNetwork::getEAPPasswordDirty() const { return EAPPassword.isDirty(); }
bool WifiNetwork::getCACertificateDirty() const { return CACertificate.isDirty(); }
bool WifiNetwork::getCACertificateDirDirty() const { return CACertificateDir.isDirty(); }
bool WifiNetwork::getClientCertificateDirty() const { return ClientCertificate.isDirty(); }
bool WifiNetwork::getPrivateKeyFileDirty() const { return PrivateKeyFile.isDirty(); }
bool WifiNetwork::getPrivateKeyPasswordDirty() const { return PrivateKeyPassword.isDirty(); }
bool WifiNetwork::getPhase1StepDirty() const { return Phase1Step.isDirty(); }
bool WifiNetwork::getPhase2StepDirty() const { return Phase2Step.isDirty(); }
bool WifiNetwork::getCACertificate2Dirty() const { return CACertificate2.isDirty(); }
bool WifiNetwork::getCACertificateDir2Dirty() const { return CACertificateDir2.isDirty(); }
bool WifiNetwork::getClientCertificate2Dirty() const { return ClientCertificate2.isDirty(); }
bool WifiNetwork::getPrivateKeyFile2Dirty() const { return PrivateKeyFile2.isDirty(); }
bool WifiNetwork::getPrivateKeyPassword2Dirty() const { return PrivateKeyPassword2.isDirty(); }

// clang-format on

// An empty key is none: the slot holds no empty text, and there is nothing to write back.
bool WifiNetwork::setWepKey(unsigned int index, const char* key) {
    if (index >= WEP_KEYS)
        return false;
    if (key && *key == '\0')
        wepKey[index].clear();
    else
        wepKey[index].set(key);
    return true; // changed or not: it tells that there is such a slot
}

const char* WifiNetwork::getWepKey(unsigned int index) const {
    return index < WEP_KEYS ? wepKey[index].get() : nullptr;
}

bool WifiNetwork::setWepIndex(unsigned int index) {
    return index < WEP_KEYS && wepIndex.set(index);
}

// Dirty each time: a new network starts with false here and with true in the supplicant.
bool WifiNetwork::setSsidBroadcasted(bool value) {
    ssidBroadcasted.set(value ? 1U : 0U);
    return ssidBroadcasted.mark(true);
}

bool WifiNetwork::setNetworkId(unsigned char value) {
    networkId = value;
    return true;
}

bool WifiNetwork::setNetworkStatus(unsigned int value) {
    networkStatus = value;
    return true;
}

bool WifiNetwork::setStrength(unsigned int value) {
    strength = value;
    return true;
}

bool WifiNetwork::setIpAddress(const char* text) {
    return ipAddress.assign(text);
}

bool WifiNetwork::setNext(WifiNetwork* network) {
    next = network;
    return true;
}

bool WifiNetwork::setWepKeyDirty(bool on, unsigned char index) {
    return index < WEP_KEYS && wepKey[index].mark(on);
}

bool WifiNetwork::getWepKeyDirty(unsigned char index) const {
    return index < WEP_KEYS && wepKey[index].isDirty();
}

bool WifiNetwork::getNetworkDirty() const {
    auto counted = dirtyFlags;
    counted[EAPAnonymousIdentityDirty] = false; // it alone is not worth a save
    return std::find(counted.begin(), counted.end(), true) != counted.end();
}

void WifiNetwork::cleanDirtyFields() {
    dirtyFlags.fill(false);
}
