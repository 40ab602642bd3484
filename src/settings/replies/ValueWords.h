#pragma once

namespace platwifi {

// The numbers that the values of a network's fields stand for. Words are looked for anywhere in the value.

/// The first KeyManagement, in a fixed order, whose word the value holds; 0 for none.
unsigned int keyManagementIn(const char* value);

/// The first EapMode, in a fixed order, whose word the value holds; 0 for none.
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
