#pragma once

#include <string>

namespace platwifi {

// The words of the dump for the numbers of a network and of the state: each with a blank in front of it.
// Flags without a word are left out.

std::string protocolWords(unsigned int set);      ///< a set of Protocol
std::string keyManagementWords(unsigned int set); ///< a set of KeyManagement
std::string pairwiseWords(unsigned int set);      ///< a set of PairwiseCipher
std::string groupWords(unsigned int set);         ///< a set of GroupCipher
std::string eapModeWords(unsigned int set);       ///< a set of EapMode
std::string pmfWord(unsigned int value);          ///< a Pmf; nothing for any other number
std::string networkModeWord(unsigned int value);  ///< a NetworkMode
std::string authAlgWord(unsigned int value);      ///< an AuthAlg; nothing for any other number
std::string wpaStateWord(unsigned int value);     ///< a WpaState; nothing for any other number

} // namespace platwifi
