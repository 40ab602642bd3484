#pragma once

#include "Export.h"
#include "platform/BufferedXWriter.h"
#include "platform/ErrorHandler.h"

/// The operations of the library for native callers, under unmangled names.
///
/// Each function takes the caller's error handler, which may be null. Results are integers, non-zero for
/// success. Texts that a function returns are made with new[] and freed by the caller with delete[];
/// texts that are passed in stay the caller's and are NUL-terminated. An interface name has 13
/// characters at most (15 under the profile `modern`); null, an empty and a longer one name no interface. A null SSID names no network.
/// A function fails if the pointer to a result is null.
///
/// Any thread may call. A function takes the locks that it needs, and blocks as long as the client
/// commands that it runs. The first function that needs the settings loads them: 10 to 30 commands a
/// network. Nothing is thrown; if memory runs out, the process ends.
extern "C" {

/// Prepares the certificate store. Always succeeds: there is nothing to prepare.
/// @param errors  not used
/// @return 1, or 0 if there is no memory for the driver
PLATWIFI_API int hashCACertificates(ErrorHandler* errors) noexcept;

/// Whether the supplicant runs: see WifiUtil::isWifiEnabled().
/// @param errors  not used
/// @param iface   interface name, or null to look for the supplicant's pid file
/// @return non-zero if it runs
PLATWIFI_API int isWifiEnabled(ErrorHandler* errors, const char* iface) noexcept;

/// Scans and lists the access points in range. Blocks for 1 s at least, about 16 s at most.
/// @param errors    not used
/// @param iface     interface name
/// @param listOut   receives a new array of `capacity` pointers; the first `*count` are the lines
///                  of the client (BSSID, frequency in MHz, signal in dBm, flags and SSID, separated
///                  by tabs), the rest are null
/// @param capacity  of the array
/// @param count     receives the number of lines
/// @return 1 with a list: the caller frees each entry and then the array. 0 otherwise: if the scan
///         failed, `*listOut` and `*count` are unchanged; if the result of the scan could not be read,
///         `*listOut` is null and `*count` is 0
PLATWIFI_API int discoverNetworks(ErrorHandler* errors, const char* iface, char*** listOut,
                                  unsigned char capacity, unsigned char* count) noexcept;

/// The name of the first adapter that the supplicant serves.
/// @param nameOut  receives a copy of it, or null if there is none
/// @return 1 with a name, else 0
PLATWIFI_API int getWifiAdapter(ErrorHandler* errors, char** nameOut) noexcept;

/// The state of the supplicant. Updates the current network, too.
/// @param iface  null sends no command; any other text has the same effect
/// @return a WpaState; 0 (unknown) also if the supplicant does not answer
PLATWIFI_API int getDaemonStatus(ErrorHandler* errors, const char* iface) noexcept;

/// The SSID of the network that an adapter is connected to, or is connecting to.
/// @param iface    interface name
/// @param ssidOut  receives a copy of it, or null if there is none
/// @return 1 with an SSID, else 0
PLATWIFI_API int getCurrentNetwork(ErrorHandler* errors, const char* iface,
                                   char** ssidOut) noexcept;

/// Creates a network in the supplicant and in memory. Saves nothing.
/// @return non-zero if it was added; 0 if a network has this SSID already, or the supplicant refused
PLATWIFI_API int addWifiNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept;

/// Removes a network from the supplicant and from memory. Saves nothing.
/// @return non-zero if it was removed, or does not exist
PLATWIFI_API int removeWifiNetwork(ErrorHandler* errors, const char* iface,
                                   const char* ssid) noexcept;

/// Selects a network. Returns before the supplicant is connected.
/// @return non-zero if the client ran the command; 0 for an unknown SSID
PLATWIFI_API int connectToNetwork(ErrorHandler* errors, const char* iface,
                                  const char* ssid) noexcept;

/// Disconnects the interface, if the network exists.
/// @return non-zero if the client ran the command, or the network does not exist
PLATWIFI_API int disconnectFromNetwork(ErrorHandler* errors, const char* iface,
                                       const char* ssid) noexcept;

/// Disconnects, enables every network in the supplicant again, and makes the supplicant choose one.
/// @return non-zero if the supplicant accepted
PLATWIFI_API int roamNetworks(ErrorHandler* errors, const char* iface) noexcept;

/// Changes properties of one network in memory, in order and under one lock, so that no other thread
/// sees a part of the changes. saveWifiHostSettings() sends them to the supplicant.
/// @param errors  receives an error for each secret that does not decipher; its field does not change
/// @param iface   not used
/// @param ssid    of the network
/// @param names   `count` names of properties, compared byte for byte; a null or unknown name is
///                skipped. jni/NetworkProperties.h describes the values
/// @param values  `count` values, one for each name. Null clears a text or a secret, and is like ""
///                otherwise
/// @param count   number of pairs; there are none if `names` or `values` is null
/// @return 1, also if a property did not change; 0 if there is no such network
PLATWIFI_API int setNetworkParameters(ErrorHandler* errors, const char* iface, const char* ssid,
                                      const char* const* names, const char* const* values,
                                      unsigned int count) noexcept;

/// A placeholder for properties of the host as a whole, of which there are none: takes and releases the
/// lock of the settings. Does not read names and values.
/// @return 1
PLATWIFI_API int setHostParameters(ErrorHandler* errors, const char* iface,
                                   const char* const* names, const char* const* values,
                                   unsigned int count) noexcept;

/// Writes every changed field to the supplicant, makes it save its configuration and read it again,
/// and notifies other processes. Does nothing if nothing has changed.
/// @return 1, or 0 if the configuration could not be saved, or if a changed network was left out
///         because the supplicant does not have it any more; that network keeps its changes
PLATWIFI_API int saveWifiHostSettings(ErrorHandler* errors) noexcept;

/// Writes the state as an XML document: see WifiHostSettings::getWifiHostSettingsXML().
/// @param out     the document is appended to it; stays the caller's
/// @param errors  receives an error for each secret that cannot be enciphered
/// @param full    true for every network with its security; false for SSID, strength and status only
/// @return 1, also if the document could not be written; 0 for a null `out`
PLATWIFI_API int getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors,
                                        bool full) noexcept;

/// Chooses the profile of this process: "device", the default, or "modern". docs/behaviour.md lists the rules
/// in which they differ. PLATWIFI_PROFILE in the environment chooses the default. Call it before any other
/// function: the first that needs the settings makes the choice final.
/// @param errors  not used
/// @param name    stays the caller's
/// @return 1 when the process runs under this profile; 0 for any other name, and after the choice was made for
///         the other profile
PLATWIFI_API int setWifiProfile(ErrorHandler* errors, const char* name) noexcept;

/// Unloads the settings, if they are loaded. Changes that were not saved are lost. The next function
/// that needs the settings loads them again. Waits for the calls of other threads, which may go on
/// calling.
/// @param errors  not used
/// @return 1
PLATWIFI_API int stopWifiService(ErrorHandler* errors) noexcept;
}
