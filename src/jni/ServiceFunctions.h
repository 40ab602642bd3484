#pragma once

#include "Export.h"
#include "platform/BufferedXWriter.h"
#include "platform/ErrorHandler.h"

/// The operations of the library for native callers, under their plain names.
///
/// Each takes the caller's error sink (may be null). Results are integers, non-zero for
/// success. Texts handed back are made with new[] and freed by the caller with delete[]; texts that
/// are handed in stay the caller's and are NUL-terminated. An interface name has 13 characters at
/// most; null, an empty and a longer one name none. A null SSID names no network. A null pointer
/// where a result is to go makes a function fail.
///
/// Any thread may call. A function takes the locks it needs, and blocks as long as the client
/// commands that it runs. The first one that needs the settings loads them: some 28 commands a
/// network. Nothing is thrown; where memory has run out the process ends.
extern "C" {

/// Prepares the certificate store. Always succeeds: there is nothing to prepare.
/// @return 1, or 0 where the driver cannot be had; `errors` is not used
PLATWIFI_API int hashCACertificates(ErrorHandler* errors) noexcept;

/// Whether the supplicant runs: see WifiUtil::isWifiEnabled().
/// @param iface  interface name, or null to look for the supplicant's pid file
/// @return non-zero when it runs; `errors` is not used
PLATWIFI_API int isWifiEnabled(ErrorHandler* errors, const char* iface) noexcept;

/// Scans and hands back the access points found: blocks for a second at least, about 16 s at most.
/// @param iface     interface name
/// @param listOut   receives a new array of `capacity` pointers; the first `*count` are the lines
///                  of the client (BSSID, frequency in MHz, signal in dBm, flags and SSID, separated
///                  by tabs), the rest null
/// @param capacity  most lines wanted
/// @param count     receives how many there are
/// @return 1 with a list, which the caller frees entry by entry and then whole; 0 otherwise. When
///         the scan failed nothing was touched; when reading its result failed, `*listOut` is null and
///         `*count` 0. `errors` is not used
PLATWIFI_API int discoverNetworks(ErrorHandler* errors, const char* iface, char*** listOut,
                                  unsigned char capacity, unsigned char* count) noexcept;

/// The name of the first adapter that the supplicant serves.
/// @param nameOut  receives a copy of it; null where there is none
/// @return 1 with a name, else 0
PLATWIFI_API int getWifiAdapter(ErrorHandler* errors, char** nameOut) noexcept;

/// What the supplicant is doing, and brings the current network up to date.
/// @param iface  null for no question at all; which interface it is plays no part
/// @return a WpaState; 0 (unknown) also where the supplicant does not answer
PLATWIFI_API int getDaemonStatus(ErrorHandler* errors, const char* iface) noexcept;

/// The SSID of the network that an adapter is on.
/// @param iface   interface name
/// @param ssidOut  receives a copy of it; null where there is none
/// @return 1 with an SSID, else 0
PLATWIFI_API int getCurrentNetwork(ErrorHandler* errors, const char* iface,
                                   char** ssidOut) noexcept;

/// Creates a network in the supplicant and in memory. Nothing is saved.
/// @return non-zero when it was added; 0 when there is one with this SSID, or the supplicant refused
PLATWIFI_API int addWifiNetwork(ErrorHandler* errors, const char* iface, const char* ssid) noexcept;

/// Removes a network from the supplicant and from memory. Nothing is saved.
/// @return non-zero when it is not there any more, or never was
PLATWIFI_API int removeWifiNetwork(ErrorHandler* errors, const char* iface,
                                   const char* ssid) noexcept;

/// Selects a network. Returns before the supplicant is connected.
/// @return non-zero when the supplicant was told to; 0 for an unknown SSID
PLATWIFI_API int connectToNetwork(ErrorHandler* errors, const char* iface,
                                  const char* ssid) noexcept;

/// Disconnects the interface, when the network is known.
/// @return non-zero when the supplicant was told to, or there is no such network
PLATWIFI_API int disconnectFromNetwork(ErrorHandler* errors, const char* iface,
                                       const char* ssid) noexcept;

/// Disconnects, enables every network in the supplicant again and lets it choose.
/// @return whether the supplicant was told to
PLATWIFI_API int roamNetworks(ErrorHandler* errors, const char* iface) noexcept;

/// Changes properties of one network in memory, in order and under one lock: nobody sees a part of
/// them. Nothing is sent to the supplicant before saveWifiHostSettings().
/// @param errors  told of each secret that does not decipher; its field stays as it was
/// @param iface   plays no part
/// @param ssid    of the network
/// @param names   `count` names of properties, compared byte for byte; a null or unknown one is
///                skipped. jni/NetworkProperties.h says what there is
/// @param values  `count` values, one for each name. A null clears a text or a secret and stands for
///                "" otherwise
/// @param count   how many pairs there are; without either of the lists there are none
/// @return 1, whatever single properties did; 0 without the network
PLATWIFI_API int setNetworkParameters(ErrorHandler* errors, const char* iface, const char* ssid,
                                      const char* const* names, const char* const* values,
                                      unsigned int count) noexcept;

/// Keeps a place for properties of the host as a whole, of which there are none: takes the lock of
/// the settings and gives it back. None of the names and values is looked at.
/// @return 1, or 0 without settings
PLATWIFI_API int setHostParameters(ErrorHandler* errors, const char* iface,
                                   const char* const* names, const char* const* values,
                                   unsigned int count) noexcept;

/// Writes every changed field to the supplicant, makes it save its configuration and read it again,
/// and lets other processes know. Nothing is done when nothing has changed.
/// @return 1, or 0 when the configuration could not be saved, or a changed network was left out
///         because the supplicant has it no more; that one keeps its changes
PLATWIFI_API int saveWifiHostSettings(ErrorHandler* errors) noexcept;

/// Writes the state as an XML document: see WifiHostSettings::getWifiHostSettingsXML().
/// @param out     what the document is added to; stays the caller's
/// @param errors  told of each secret that does not encipher
/// @param full    every network with its security; else SSID, strength and status alone
/// @return 1, however much could be told; 0 without settings
PLATWIFI_API int getWifiHostSettingsXML(BufferedXWriter* out, ErrorHandler* errors,
                                        bool full) noexcept;

/// Ends the settings, if there are any; what was not saved is lost. The next function that needs
/// them loads them again. Other threads may go on calling; it waits for what they are in.
/// @return 1; `errors` is not used
PLATWIFI_API int stopWifiService(ErrorHandler* errors) noexcept;
}
