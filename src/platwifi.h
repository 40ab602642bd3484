#pragma once

#include "Export.h"

/// @file
/// The operations of the library as plain functions, for C99, C++ and every language that calls C.
///
/// Each operation takes the caller's `errors`, which may be null; platwifiNewErrors() makes them. What an operation
/// reports there is stated with it. Results are integers, non-zero for success, unless stated otherwise.
///
/// Texts are NUL-terminated. A text that is passed in stays the caller's. A text that a function returns is the
/// caller's: platwifiFree() frees it, and delete[] in C++. An interface name has 13 characters at most (15 under
/// the profile `modern`); null, an empty and a longer one name no interface. A null SSID names no network. A
/// function fails if the pointer to a result is null.
///
/// Any thread may call. A function takes the locks that it needs, and blocks as long as the client
/// commands that it runs. The first function that needs the settings loads them: 10 to 30 commands a
/// network. Nothing is thrown; if memory runs out, the process ends.

#ifdef __cplusplus
class ErrorHandler;
#define PLATWIFI_NOEXCEPT noexcept
extern "C" {
#else
typedef struct ErrorHandler ErrorHandler;
#define PLATWIFI_NOEXCEPT
#endif

/// The version of the library, such as "1.0.0": the number of the interface, that of the features, that of the
/// corrections. Takes no lock.
/// @return a static text, which the caller does not free
PLATWIFI_API const char* platwifiVersion(void) PLATWIFI_NOEXCEPT;

/// Prepares the certificate store. Always succeeds: there is nothing to prepare.
/// @param errors  not used
/// @return 1, or 0 if there is no memory for the driver
PLATWIFI_API int hashCACertificates(ErrorHandler* errors) PLATWIFI_NOEXCEPT;

/// Whether the supplicant runs: see WifiUtil::isWifiEnabled().
/// @param errors  not used
/// @param iface   interface name, or null to look for the supplicant's pid file
/// @return non-zero if it runs
PLATWIFI_API int isWifiEnabled(ErrorHandler* errors, const char* iface) PLATWIFI_NOEXCEPT;

/// Scans and lists the access points in range. Blocks for 1 s at least, about 16 s at most.
/// @param errors    not used
/// @param iface     interface name
/// @param listOut   receives a new array of `capacity` pointers; the first `*count` are the lines
///                  of the client (BSSID, frequency in MHz, signal in dBm, flags and SSID, separated
///                  by tabs), the rest are null
/// @param capacity  of the array
/// @param count     receives the number of lines
/// @return 1 with a list: the caller frees it by platwifiFreeList(), or each entry and then the array. 0
///         otherwise: if the scan failed, `*listOut` and `*count` are unchanged; if the result of the scan could
///         not be read, `*listOut` is null and `*count` is 0
PLATWIFI_API int discoverNetworks(ErrorHandler* errors, const char* iface, char*** listOut,
                                  unsigned char capacity, unsigned char* count) PLATWIFI_NOEXCEPT;

/// The name of the first adapter that the supplicant serves.
/// @param errors   not used
/// @param nameOut  receives a copy of it, or null if there is none
/// @return 1 with a name, else 0
PLATWIFI_API int getWifiAdapter(ErrorHandler* errors, char** nameOut) PLATWIFI_NOEXCEPT;

/// The state of the supplicant. Updates the current network, too.
/// @param errors  not used
/// @param iface   null sends no command; any other text has the same effect
/// @return a WpaState (model/WifiTypes.h), 8 when connected; 0 (unknown) also if the supplicant does not answer
PLATWIFI_API int getDaemonStatus(ErrorHandler* errors, const char* iface) PLATWIFI_NOEXCEPT;

/// The SSID of the network that an adapter is connected to, or is connecting to.
/// @param errors   not used
/// @param iface    interface name
/// @param ssidOut  receives a copy of it, or null if there is none
/// @return 1 with an SSID, else 0
PLATWIFI_API int getCurrentNetwork(ErrorHandler* errors, const char* iface,
                                   char** ssidOut) PLATWIFI_NOEXCEPT;

/// Creates a network in the supplicant and in memory. Saves nothing.
/// @param errors  not used
/// @return non-zero if it was added; 0 if a network has this SSID already, or the supplicant refused
PLATWIFI_API int addWifiNetwork(ErrorHandler* errors, const char* iface,
                                const char* ssid) PLATWIFI_NOEXCEPT;

/// Removes a network from the supplicant and from memory. Saves nothing.
/// @param errors  not used
/// @return non-zero if it was removed, or does not exist
PLATWIFI_API int removeWifiNetwork(ErrorHandler* errors, const char* iface,
                                   const char* ssid) PLATWIFI_NOEXCEPT;

/// Selects a network. Returns before the supplicant is connected.
/// @param errors  not used
/// @return non-zero if the client ran the command; 0 for an unknown SSID
PLATWIFI_API int connectToNetwork(ErrorHandler* errors, const char* iface,
                                  const char* ssid) PLATWIFI_NOEXCEPT;

/// Disconnects the interface, if the network exists.
/// @param errors  not used
/// @return non-zero if the client ran the command, or the network does not exist
PLATWIFI_API int disconnectFromNetwork(ErrorHandler* errors, const char* iface,
                                       const char* ssid) PLATWIFI_NOEXCEPT;

/// Disconnects, enables every network in the supplicant again, and makes the supplicant choose one.
/// @param errors  not used
/// @return non-zero if the supplicant accepted
PLATWIFI_API int roamNetworks(ErrorHandler* errors, const char* iface) PLATWIFI_NOEXCEPT;

/// Changes properties of one network in memory, in order and under one lock, so that no other thread
/// sees a part of the changes. saveWifiHostSettings() sends them to the supplicant.
/// @param errors  receives an error for each secret that does not decipher; its field does not change
/// @param iface   not used
/// @param ssid    of the network
/// @param names   `count` names of properties, compared byte for byte; a null or unknown name is
///                skipped. docs/native-api.md lists them
/// @param values  `count` values, one for each name. Null clears a text or a secret, and is like ""
///                otherwise. platwifiEncrypt() makes the value of a secret
/// @param count   number of pairs; there are none if `names` or `values` is null
/// @return 1, also if a property did not change; 0 if there is no such network
PLATWIFI_API int setNetworkParameters(ErrorHandler* errors, const char* iface, const char* ssid,
                                      const char* const* names, const char* const* values,
                                      unsigned int count) PLATWIFI_NOEXCEPT;

/// A placeholder for properties of the host as a whole, of which there are none: takes and releases the
/// lock of the settings. Does not read names and values.
/// @param errors  not used
/// @return 1
PLATWIFI_API int setHostParameters(ErrorHandler* errors, const char* iface,
                                   const char* const* names, const char* const* values,
                                   unsigned int count) PLATWIFI_NOEXCEPT;

/// Writes every changed field to the supplicant, makes it save its configuration and read it again,
/// and notifies other processes. Does nothing if nothing has changed.
/// @param errors  receives, under the profile `modern`, an error that names the first field that the supplicant
///                refused
/// @return 1, or 0 if the configuration could not be saved, or if a changed network was left out
///         because the supplicant does not have it any more; that network keeps its changes
PLATWIFI_API int saveWifiHostSettings(ErrorHandler* errors) PLATWIFI_NOEXCEPT;

/// Chooses the profile of this process: "device", the default, or "modern". docs/behaviour.md lists the rules
/// in which they differ. PLATWIFI_PROFILE in the environment chooses the default. Call it before any other
/// function: the first that needs the settings makes the choice final.
/// @param errors  not used
/// @param name    stays the caller's
/// @return 1 when the process runs under this profile; 0 for any other name, and after the choice was made for
///         the other profile
PLATWIFI_API int setWifiProfile(ErrorHandler* errors, const char* name) PLATWIFI_NOEXCEPT;

/// Unloads the settings, if they are loaded. Changes that were not saved are lost. The next function
/// that needs the settings loads them again. Waits for the calls of other threads, which may go on
/// calling.
/// @param errors  not used
/// @return 1
PLATWIFI_API int stopWifiService(ErrorHandler* errors) PLATWIFI_NOEXCEPT;

/// The state as an XML document: the adapter, the state of the supplicant and all networks. The file
/// wifiHostSettings.xsd, which is installed with the library, describes it.
/// @param errors   receives an error for each secret that cannot be enciphered
/// @param full     non-zero for every network with its security, secrets enciphered (see platwifiDecrypt());
///                 0 for SSID, strength and status only
/// @param textOut  receives the document, in UTF-8, or null if it could not be written
/// @return 1 with a document, else 0
PLATWIFI_API int platwifiXml(ErrorHandler* errors, int full, char** textOut) PLATWIFI_NOEXCEPT;

/// Enciphers a secret as a value of setNetworkParameters(). This process alone can decipher it; no key file is
/// read or made. Takes no lock of the settings.
/// @param errors     receives the cause of a failure: see platform/Crypt.h
/// @param plain      1 MiB at most
/// @param secretOut  receives the enciphered text, or null
/// @return 1 with a text, else 0
PLATWIFI_API int platwifiEncrypt(ErrorHandler* errors, const char* plain,
                                 char** secretOut) PLATWIFI_NOEXCEPT;

/// Deciphers a secret of a document or of platwifiEncrypt(). Those of a document need the key file of this user.
/// Takes no lock of the settings.
/// @param errors    receives the cause of a failure: see platform/Crypt.h
/// @param secret    the enciphered text
/// @param plainOut  receives the secret, or null; the caller overwrites it before freeing it
/// @return 1 with a text, else 0
PLATWIFI_API int platwifiDecrypt(ErrorHandler* errors, const char* secret,
                                 char** plainOut) PLATWIFI_NOEXCEPT;

/// Frees a text that a function of this file returned. Takes no lock.
/// @param text  null frees nothing
PLATWIFI_API void platwifiFree(char* text) PLATWIFI_NOEXCEPT;

/// Frees a list of discoverNetworks() with its texts. Takes no lock.
/// @param list   null frees nothing
/// @param count  number of the texts to free, as the function gave it
PLATWIFI_API void platwifiFreeList(char** list, unsigned int count) PLATWIFI_NOEXCEPT;

/// Called for each error, in the thread and during the call of the function that reports it, which may hold the
/// lock of the settings: it calls no function of this file, and does not leave by an exception or a jump.
/// @param context  of platwifiNewErrors()
/// @param id       such as "crypt.damaged", or ""; valid until the function returns
/// @param text     for people, in UTF-8, without any secret; valid until the function returns
typedef void (*PlatwifiErrorFunction)(void* context, const char* id, const char* text);

/// Makes what other functions take as `errors`. It belongs to one thread at a time and takes no lock. The caller
/// frees it by platwifiFreeErrors().
/// @param report   called for each error; null ignores them
/// @param context  passed on to `report`; stays the caller's
/// @return never null
PLATWIFI_API ErrorHandler* platwifiNewErrors(PlatwifiErrorFunction report,
                                             void* context) PLATWIFI_NOEXCEPT;

/// Frees what platwifiNewErrors() returned. Takes no lock.
/// @param errors  null frees nothing
PLATWIFI_API void platwifiFreeErrors(ErrorHandler* errors) PLATWIFI_NOEXCEPT;

#ifdef __cplusplus
}
#endif
