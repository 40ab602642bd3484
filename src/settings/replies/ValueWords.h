#pragma once

namespace platwifi {

// What the values of a network's fields stand for. Words are looked for anywhere in the value.

/// The first KeyManagement, in a fixed order, that the value names; 0 for none.
unsigned int keyManagementIn(const char* value);

/// The first EapMode, in a fixed order, that the value names; 0 for none.
unsigned int eapModeIn(const char* value);

/// The first AuthAlg, in a fixed order, that the value names; AUTH_ALG_AUTO for none.
unsigned int authAlgIn(const char* value);

/// All PairwiseCipher that the value names.
unsigned int pairwiseCiphersIn(const char* value);

/// All GroupCipher that the value names.
unsigned int groupCiphersIn(const char* value);

/// All Protocol that the value names.
unsigned int protocolsIn(const char* value);

} // namespace platwifi
