#!/usr/bin/env python3
"""Shows the adapter, its state, the access points in range and the configured networks.

usage: networks.py [SSID PASSPHRASE]

With an SSID and a passphrase, gives the configured network of that SSID this passphrase first, and saves it.
"""

import ctypes
import sys
import xml.etree.ElementTree
from ctypes import POINTER, byref, c_char_p, c_int, c_ubyte, c_uint, c_void_p

STATES = ["unknown", "disconnected", "idle", "scanning", "associating", "associated", "4-way handshake",
          "group handshake", "connected"]
MOST_ACCESS_POINTS = 255

platwifi = ctypes.CDLL("libplatwifi.so.1")
ErrorFunction = ctypes.CFUNCTYPE(None, c_void_p, c_char_p, c_char_p)
TEXTS = POINTER(c_char_p)


def declare(name, result, *parameters):
    """As in platwifi.h: without it, ctypes takes a pointer for an int."""
    function = getattr(platwifi, name)
    function.restype, function.argtypes = result, parameters


ERRORS = c_void_p
declare("platwifiVersion", c_char_p)
declare("platwifiNewErrors", ERRORS, ErrorFunction, c_void_p)
declare("platwifiFreeErrors", None, ERRORS)
declare("platwifiFree", None, c_char_p)
declare("platwifiFreeList", None, TEXTS, c_uint)
declare("platwifiEncrypt", c_int, ERRORS, c_char_p, TEXTS)
declare("platwifiXml", c_int, ERRORS, c_int, TEXTS)
declare("setWifiProfile", c_int, ERRORS, c_char_p)
declare("getWifiAdapter", c_int, ERRORS, TEXTS)
declare("getDaemonStatus", c_int, ERRORS, c_char_p)
declare("discoverNetworks", c_int, ERRORS, c_char_p, POINTER(TEXTS), c_ubyte, POINTER(c_ubyte))
declare("setNetworkParameters", c_int, ERRORS, c_char_p, c_char_p, TEXTS, TEXTS, c_uint)
declare("saveWifiHostSettings", c_int, ERRORS)
declare("stopWifiService", c_int, ERRORS)


@ErrorFunction
def report(_context, name, text):
    print(f"error {name.decode()}: {text.decode()}", file=sys.stderr)


def text_of(function, *arguments):
    """The text that a function stores behind its last parameter, as bytes; None if it fails."""
    text = c_char_p()
    stored = function(*arguments, byref(text))
    result = text.value if stored else None
    platwifi.platwifiFree(text)
    return result


def access_points(errors, adapter):
    found, count = TEXTS(), c_ubyte()
    if not platwifi.discoverNetworks(errors, adapter, byref(found), MOST_ACCESS_POINTS, byref(count)):
        return []
    lines = found[:count.value]
    platwifi.platwifiFreeList(found, count.value)
    return [line.decode(errors="replace").split("\t", 4) for line in lines]


def networks(errors):
    document = text_of(platwifi.platwifiXml, errors, 0)
    if document is None:
        return []
    return xml.etree.ElementTree.fromstring(document).iter("wifiNetwork")


def set_passphrase(errors, adapter, ssid, passphrase):
    """A secret is handed over enciphered, so that it is in no other place of the memory as it is."""
    secret = text_of(platwifi.platwifiEncrypt, errors, passphrase)
    if secret is None:
        return False
    name, value = (c_char_p * 1)(b"psk"), (c_char_p * 1)(secret)
    return (platwifi.setNetworkParameters(errors, adapter, ssid, name, value, 1) != 0
            and platwifi.saveWifiHostSettings(errors) != 0)


def show(errors, adapter):
    state = platwifi.getDaemonStatus(errors, adapter)
    print(f"adapter {adapter.decode()}: {STATES[state]}")
    for bssid, frequency, signal, _flags, ssid in access_points(errors, adapter):
        print(f"in range: {ssid}, {bssid}, {frequency} MHz, {signal} dBm")
    for network in networks(errors):
        print(f"configured: {network.get('ssid')}, strength {network.get('strength')} %")


def main():
    print("libplatwifi", platwifi.platwifiVersion().decode())
    errors = platwifi.platwifiNewErrors(report, None)
    try:
        platwifi.setWifiProfile(errors, b"modern")
        adapter = text_of(platwifi.getWifiAdapter, errors)
        if adapter is None:
            return "there is no adapter: the supplicant does not run, or its socket is closed to this user"
        if len(sys.argv) == 3 and not set_passphrase(errors, adapter, sys.argv[1].encode(), sys.argv[2].encode()):
            return "the passphrase was not saved"
        show(errors, adapter)
        return None
    finally:
        platwifi.stopWifiService(errors)
        platwifi.platwifiFreeErrors(errors)


if __name__ == "__main__":
    if len(sys.argv) not in (1, 3):
        sys.exit(__doc__)
    sys.exit(main())
