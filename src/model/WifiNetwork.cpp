#include "model/WifiNetwork.h"

#include "model/NetworkFields.h"

using namespace platwifi;

namespace {

// Ends the process where memory has run out: the constructor must not throw.
std::unique_ptr<NetworkFields> newFields() noexcept {
    return std::make_unique<NetworkFields>();
}

} // namespace

WifiNetwork::WifiNetwork() : m_fields(newFields()) {}

WifiNetwork::~WifiNetwork() = default;

NetworkFields& NetworkFields::of(WifiNetwork& network) noexcept {
    return *network.m_fields;
}

const NetworkFields& NetworkFields::of(const WifiNetwork& network) noexcept {
    return *network.m_fields;
}

// One function a line. What is special about a field is decided in NetworkFields.
// clang-format off

bool WifiNetwork::setSsid(const char* text) { return m_fields->setText(Field::SSID, text); }
bool WifiNetwork::setBssid(const char* text) { return m_fields->setText(Field::BSSID, text); }
bool WifiNetwork::setPsk(const char* text) { return m_fields->setText(Field::PSK, text); }
bool WifiNetwork::setEAPIdentity(const char* text) { return m_fields->setText(Field::EAP_IDENTITY, text); }
bool WifiNetwork::setEAPAnonymousIdentity(const char* text) { return m_fields->setText(Field::EAP_ANONYMOUS_IDENTITY, text); }
bool WifiNetwork::setEAPPassword(const char* text) { return m_fields->setText(Field::EAP_PASSWORD, text); }
bool WifiNetwork::setCACertificate(const char* text) { return m_fields->setText(Field::CA_CERTIFICATE, text); }
bool WifiNetwork::setCACertificateDir(const char* text) { return m_fields->setText(Field::CA_CERTIFICATE_DIR, text); }
bool WifiNetwork::setClientCertificate(const char* text) { return m_fields->setText(Field::CLIENT_CERTIFICATE, text); }
bool WifiNetwork::setPrivateKeyFile(const char* text) { return m_fields->setText(Field::PRIVATE_KEY_FILE, text); }
bool WifiNetwork::setPrivateKeyPassword(const char* text) { return m_fields->setText(Field::PRIVATE_KEY_PASSWORD, text); }
bool WifiNetwork::setPhase1Step(const char* text) { return m_fields->setText(Field::PHASE1_STEP, text); }
bool WifiNetwork::setPhase2Step(const char* text) { return m_fields->setText(Field::PHASE2_STEP, text); }
bool WifiNetwork::setCACertificate2(const char* text) { return m_fields->setText(Field::CA_CERTIFICATE2, text); }
bool WifiNetwork::setCACertificateDir2(const char* text) { return m_fields->setText(Field::CA_CERTIFICATE_DIR2, text); }
bool WifiNetwork::setClientCertificate2(const char* text) { return m_fields->setText(Field::CLIENT_CERTIFICATE2, text); }
bool WifiNetwork::setPrivateKeyFile2(const char* text) { return m_fields->setText(Field::PRIVATE_KEY_FILE2, text); }
bool WifiNetwork::setPrivateKeyPassword2(const char* text) { return m_fields->setText(Field::PRIVATE_KEY_PASSWORD2, text); }

const char* WifiNetwork::getSsid() const { return m_fields->text(Field::SSID); }
const char* WifiNetwork::getBssid() const { return m_fields->text(Field::BSSID); }
const char* WifiNetwork::getPsk() const { return m_fields->text(Field::PSK); }
const char* WifiNetwork::getEAPIdentity() const { return m_fields->text(Field::EAP_IDENTITY); }
const char* WifiNetwork::getEAPAnonymousIdentity() const { return m_fields->text(Field::EAP_ANONYMOUS_IDENTITY); }
const char* WifiNetwork::getEAPPassword() const { return m_fields->text(Field::EAP_PASSWORD); }
const char* WifiNetwork::getCACertificate() const { return m_fields->text(Field::CA_CERTIFICATE); }
const char* WifiNetwork::getCACertificateDir() const { return m_fields->text(Field::CA_CERTIFICATE_DIR); }
const char* WifiNetwork::getClientCertificate() const { return m_fields->text(Field::CLIENT_CERTIFICATE); }
const char* WifiNetwork::getPrivateKeyFile() const { return m_fields->text(Field::PRIVATE_KEY_FILE); }
const char* WifiNetwork::getPrivateKeyPassword() const { return m_fields->text(Field::PRIVATE_KEY_PASSWORD); }
const char* WifiNetwork::getPhase1Step() const { return m_fields->text(Field::PHASE1_STEP); }
const char* WifiNetwork::getPhase2Step() const { return m_fields->text(Field::PHASE2_STEP); }
const char* WifiNetwork::getCACertificate2() const { return m_fields->text(Field::CA_CERTIFICATE2); }
const char* WifiNetwork::getCACertificateDir2() const { return m_fields->text(Field::CA_CERTIFICATE_DIR2); }
const char* WifiNetwork::getClientCertificate2() const { return m_fields->text(Field::CLIENT_CERTIFICATE2); }
const char* WifiNetwork::getPrivateKeyFile2() const { return m_fields->text(Field::PRIVATE_KEY_FILE2); }
const char* WifiNetwork::getPrivateKeyPassword2() const { return m_fields->text(Field::PRIVATE_KEY_PASSWORD2); }

bool WifiNetwork::setNetworkMode(unsigned char value) { return m_fields->setNumber(Field::NETWORK_MODE, value); }
bool WifiNetwork::setChannel(unsigned int value) { return m_fields->setNumber(Field::CHANNEL, value); }
bool WifiNetwork::setPriority(unsigned int value) { return m_fields->setNumber(Field::PRIORITY, value); }
bool WifiNetwork::setProtocol(unsigned int value) { return m_fields->setNumber(Field::PROTOCOL, value); }
bool WifiNetwork::setKeyManagement(unsigned int value) { return m_fields->setNumber(Field::KEY_MANAGEMENT, value); }
bool WifiNetwork::setPmf(unsigned int value) { return m_fields->setNumber(Field::PMF, value); }
bool WifiNetwork::setAuthAlg(unsigned int value) { return m_fields->setNumber(Field::AUTH_ALG, value); }
bool WifiNetwork::setGroupCiphers(unsigned int value) { return m_fields->setNumber(Field::GROUP_CIPHERS, value); }
bool WifiNetwork::setPairwiseCiphers(unsigned int value) { return m_fields->setNumber(Field::PAIRWISE_CIPHERS, value); }
bool WifiNetwork::setEapModes(unsigned int value) { return m_fields->setNumber(Field::EAP_MODES, value); }
bool WifiNetwork::setWepIndex(unsigned int index) { return m_fields->setNumber(Field::WEP_INDEX, index); }
bool WifiNetwork::setSsidBroadcasted(bool value) { return m_fields->setNumber(Field::SSID_BROADCASTED, value ? 1 : 0); }

unsigned char WifiNetwork::getNetworkMode() const { return static_cast<unsigned char>(m_fields->number(Field::NETWORK_MODE)); }
unsigned int WifiNetwork::getChannel() const { return m_fields->number(Field::CHANNEL); }
unsigned int WifiNetwork::getPriority() const { return m_fields->number(Field::PRIORITY); }
unsigned int WifiNetwork::getProtocol() const { return m_fields->number(Field::PROTOCOL); }
unsigned int WifiNetwork::getKeyManagement() const { return m_fields->number(Field::KEY_MANAGEMENT); }
unsigned int WifiNetwork::getPmf() const { return m_fields->number(Field::PMF); }
unsigned int WifiNetwork::getAuthAlg() const { return m_fields->number(Field::AUTH_ALG); }
unsigned int WifiNetwork::getGroupCiphers() const { return m_fields->number(Field::GROUP_CIPHERS); }
unsigned int WifiNetwork::getPairwiseCiphers() const { return m_fields->number(Field::PAIRWISE_CIPHERS); }
unsigned int WifiNetwork::getEapModes() const { return m_fields->number(Field::EAP_MODES); }
unsigned int WifiNetwork::getWepIndex() const { return m_fields->number(Field::WEP_INDEX); }
unsigned int WifiNetwork::getSsidBroadcasted() const { return m_fields->number(Field::SSID_BROADCASTED); }

bool WifiNetwork::setNetworkId(unsigned char value) { return m_fields->setNumber(Field::NETWORK_ID, value); }
bool WifiNetwork::setNetworkStatus(unsigned int value) { return m_fields->setNumber(Field::NETWORK_STATUS, value); }
bool WifiNetwork::setStrength(unsigned int value) { return m_fields->setNumber(Field::STRENGTH, value); }
bool WifiNetwork::setIpAddress(const char* text) { return m_fields->setText(Field::IP_ADDRESS, text); }

unsigned char WifiNetwork::getNetworkId() const { return static_cast<unsigned char>(m_fields->number(Field::NETWORK_ID)); }
unsigned int WifiNetwork::getNetworkStatus() const { return m_fields->number(Field::NETWORK_STATUS); }
unsigned int WifiNetwork::getStrength() const { return m_fields->number(Field::STRENGTH); }
const char* WifiNetwork::getIpAddress() const { return m_fields->text(Field::IP_ADDRESS); }

bool WifiNetwork::setSsidDirty(bool on) { return m_fields->setDirty(Field::SSID, on); }
bool WifiNetwork::setBssidDirty(bool on) { return m_fields->setDirty(Field::BSSID, on); }
bool WifiNetwork::setSsidBroadcastedDirty(bool on) { return m_fields->setDirty(Field::SSID_BROADCASTED, on); }
bool WifiNetwork::setNetworkModeDirty(bool on) { return m_fields->setDirty(Field::NETWORK_MODE, on); }
bool WifiNetwork::setChannelDirty(bool on) { return m_fields->setDirty(Field::CHANNEL, on); }
bool WifiNetwork::setPriorityDirty(bool on) { return m_fields->setDirty(Field::PRIORITY, on); }
bool WifiNetwork::setProtocolDirty(bool on) { return m_fields->setDirty(Field::PROTOCOL, on); }
bool WifiNetwork::setKeyManagementDirty(bool on) { return m_fields->setDirty(Field::KEY_MANAGEMENT, on); }
bool WifiNetwork::setPmfDirty(bool on) { return m_fields->setDirty(Field::PMF, on); }
bool WifiNetwork::setAuthAlgDirty(bool on) { return m_fields->setDirty(Field::AUTH_ALG, on); }
bool WifiNetwork::setGroupCiphersDirty(bool on) { return m_fields->setDirty(Field::GROUP_CIPHERS, on); }
bool WifiNetwork::setPairwiseCiphersDirty(bool on) { return m_fields->setDirty(Field::PAIRWISE_CIPHERS, on); }
bool WifiNetwork::setWepIndexDirty(bool on) { return m_fields->setDirty(Field::WEP_INDEX, on); }
bool WifiNetwork::setPskDirty(bool on) { return m_fields->setDirty(Field::PSK, on); }
bool WifiNetwork::setEapModesDirty(bool on) { return m_fields->setDirty(Field::EAP_MODES, on); }
bool WifiNetwork::setEAPIdentityDirty(bool on) { return m_fields->setDirty(Field::EAP_IDENTITY, on); }
bool WifiNetwork::setEAPAnonymousIdentityDirty(bool on) { return m_fields->setDirty(Field::EAP_ANONYMOUS_IDENTITY, on); }
bool WifiNetwork::setEAPPasswordDirty(bool on) { return m_fields->setDirty(Field::EAP_PASSWORD, on); }
bool WifiNetwork::setCACertificateDirty(bool on) { return m_fields->setDirty(Field::CA_CERTIFICATE, on); }
bool WifiNetwork::setCACertificateDirDirty(bool on) { return m_fields->setDirty(Field::CA_CERTIFICATE_DIR, on); }
bool WifiNetwork::setClientCertificateDirty(bool on) { return m_fields->setDirty(Field::CLIENT_CERTIFICATE, on); }
bool WifiNetwork::setPrivateKeyFileDirty(bool on) { return m_fields->setDirty(Field::PRIVATE_KEY_FILE, on); }
bool WifiNetwork::setPrivateKeyPasswordDirty(bool on) { return m_fields->setDirty(Field::PRIVATE_KEY_PASSWORD, on); }
bool WifiNetwork::setPhase1StepDirty(bool on) { return m_fields->setDirty(Field::PHASE1_STEP, on); }
bool WifiNetwork::setPhase2StepDirty(bool on) { return m_fields->setDirty(Field::PHASE2_STEP, on); }
bool WifiNetwork::setCACertificate2Dirty(bool on) { return m_fields->setDirty(Field::CA_CERTIFICATE2, on); }
bool WifiNetwork::setCACertificateDir2Dirty(bool on) { return m_fields->setDirty(Field::CA_CERTIFICATE_DIR2, on); }
bool WifiNetwork::setClientCertificate2Dirty(bool on) { return m_fields->setDirty(Field::CLIENT_CERTIFICATE2, on); }
bool WifiNetwork::setPrivateKeyFile2Dirty(bool on) { return m_fields->setDirty(Field::PRIVATE_KEY_FILE2, on); }
bool WifiNetwork::setPrivateKeyPassword2Dirty(bool on) { return m_fields->setDirty(Field::PRIVATE_KEY_PASSWORD2, on); }

bool WifiNetwork::getSsidDirty() const { return m_fields->isDirty(Field::SSID); }
bool WifiNetwork::getBssidDirty() const { return m_fields->isDirty(Field::BSSID); }
bool WifiNetwork::getSsidBroadcastedDirty() const { return m_fields->isDirty(Field::SSID_BROADCASTED); }
bool WifiNetwork::getNetworkModeDirty() const { return m_fields->isDirty(Field::NETWORK_MODE); }
bool WifiNetwork::getChannelDirty() const { return m_fields->isDirty(Field::CHANNEL); }
bool WifiNetwork::getPriorityDirty() const { return m_fields->isDirty(Field::PRIORITY); }
bool WifiNetwork::getProtocolDirty() const { return m_fields->isDirty(Field::PROTOCOL); }
bool WifiNetwork::getKeyManagementDirty() const { return m_fields->isDirty(Field::KEY_MANAGEMENT); }
bool WifiNetwork::getPmfDirty() const { return m_fields->isDirty(Field::PMF); }
bool WifiNetwork::getAuthAlgDirty() const { return m_fields->isDirty(Field::AUTH_ALG); }
bool WifiNetwork::getGroupCiphersDirty() const { return m_fields->isDirty(Field::GROUP_CIPHERS); }
bool WifiNetwork::getPairwiseCiphersDirty() const { return m_fields->isDirty(Field::PAIRWISE_CIPHERS); }
bool WifiNetwork::getWepIndexDirty() const { return m_fields->isDirty(Field::WEP_INDEX); }
bool WifiNetwork::getPskDirty() const { return m_fields->isDirty(Field::PSK); }
bool WifiNetwork::getEapModesDirty() const { return m_fields->isDirty(Field::EAP_MODES); }
bool WifiNetwork::getEAPIdentityDirty() const { return m_fields->isDirty(Field::EAP_IDENTITY); }
bool WifiNetwork::getEAPAnonymousIdentityDirty() const { return m_fields->isDirty(Field::EAP_ANONYMOUS_IDENTITY); }
bool WifiNetwork::getEAPPasswordDirty() const { return m_fields->isDirty(Field::EAP_PASSWORD); }
bool WifiNetwork::getCACertificateDirty() const { return m_fields->isDirty(Field::CA_CERTIFICATE); }
bool WifiNetwork::getCACertificateDirDirty() const { return m_fields->isDirty(Field::CA_CERTIFICATE_DIR); }
bool WifiNetwork::getClientCertificateDirty() const { return m_fields->isDirty(Field::CLIENT_CERTIFICATE); }
bool WifiNetwork::getPrivateKeyFileDirty() const { return m_fields->isDirty(Field::PRIVATE_KEY_FILE); }
bool WifiNetwork::getPrivateKeyPasswordDirty() const { return m_fields->isDirty(Field::PRIVATE_KEY_PASSWORD); }
bool WifiNetwork::getPhase1StepDirty() const { return m_fields->isDirty(Field::PHASE1_STEP); }
bool WifiNetwork::getPhase2StepDirty() const { return m_fields->isDirty(Field::PHASE2_STEP); }
bool WifiNetwork::getCACertificate2Dirty() const { return m_fields->isDirty(Field::CA_CERTIFICATE2); }
bool WifiNetwork::getCACertificateDir2Dirty() const { return m_fields->isDirty(Field::CA_CERTIFICATE_DIR2); }
bool WifiNetwork::getClientCertificate2Dirty() const { return m_fields->isDirty(Field::CLIENT_CERTIFICATE2); }
bool WifiNetwork::getPrivateKeyFile2Dirty() const { return m_fields->isDirty(Field::PRIVATE_KEY_FILE2); }
bool WifiNetwork::getPrivateKeyPassword2Dirty() const { return m_fields->isDirty(Field::PRIVATE_KEY_PASSWORD2); }

bool WifiNetwork::getNetworkDirty() const { return m_fields->needsSave(); }
void WifiNetwork::cleanDirtyFields() { m_fields->clearDirty(); }

// clang-format on

// The result says whether there is such a slot, not whether the key changed.
bool WifiNetwork::setWepKey(unsigned int index, const char* key) {
    if (index >= WEP_KEY_COUNT)
        return false;
    m_fields->setText(wepKeyField(index), key);
    return true;
}

const char* WifiNetwork::getWepKey(unsigned int index) const {
    return index < WEP_KEY_COUNT ? m_fields->text(wepKeyField(index)) : nullptr;
}

bool WifiNetwork::setWepKeyDirty(bool on, unsigned char index) {
    return index < WEP_KEY_COUNT && m_fields->setDirty(wepKeyField(index), on);
}

bool WifiNetwork::getWepKeyDirty(unsigned char index) const {
    return index < WEP_KEY_COUNT && m_fields->isDirty(wepKeyField(index));
}

bool WifiNetwork::setNext(WifiNetwork* network) {
    m_next = network;
    return true;
}

WifiNetwork* WifiNetwork::getNext() const {
    return m_next;
}
