#pragma once

namespace platwifi {

// The numbers that the values of a network's fields stand for.
//
// Under the profile `device` words are looked for anywhere in the value, and only the first method of key
// management and EAP counts, in a fixed order. Under `modern` whole words are compared, and all count.

/// A set of KeyManagement; 0 for none.
unsigned int keyManagementIn(const char* value);

/// A set of EapMode; 0 for none.
unsigned int eapModeIn(const char* value);

/// The first AuthAlg, in a fixed order, whose word the value holds; AUTH_ALG_AUTO for none.
unsigned int authAlgIn(const char* value);

/// Every PairwiseCipher whose word the value holds, as a set.
unsigned int pairwiseCiphersIn(const char* value);

/// Every GroupCipher whose word the value holds, as a set.
unsigned int groupCiphersIn(const char* value);

/// Every Protocol whose word the value holds, as a set.
unsigned int protocolsIn(const char* value);

} // namespace platwifi
