# A hidden network, also in the XML document and the dump; a WEP network.
# shellcheck shell=bash
# shellcheck disable=SC2317 # result calls functions by name

# reads_xml [OPTION...]
reads_xml() { xmllint --nonet --noout "$@" "$OUT"; }

writes_documents() {
    run "xml" 0 xml
    result "the document is XML" reads_xml
    result "it has the network" grep -qF "ssid=\"$1\"" "$OUT"
    run "xml --full" 0 xml --full
    result "the full document follows the schema" reads_xml --schema "$SOURCE_DIR/docs/wifiHostSettings.xsd"
    result "it has the network" grep -qF "ssid=\"$1\"" "$OUT"
    run "dump" 0 dump
    result "it has the network" grep -qF "$1" "$OUT"
}

test_kinds() {
    run "add a hidden network" 0 add lab-hidden ssidBroadcasted=false psk=- <<<"$LAB_PASSPHRASE"
    file_has scan_ssid=1
    run "connect" 0 connect lab-hidden --json
    json_has /ssid lab-hidden /state COMPLETED
    result "the supplicant is on lab-hidden" connected_to lab-hidden
    writes_documents lab-hidden
    forget_networks
    run "add a WEP network" 0 add lab-wep key_mgmt=NONE key1=- index=0 --json <<<"$LAB_WEP_KEY"
    json_has /ssid lab-wep /done added
    connects lab-wep
    forget_networks
}
