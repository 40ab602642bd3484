# A hidden network, as the reports have it; a WEP network.
# shellcheck shell=bash

# Secrets in plain are this listing's purpose: it has no place among what was printed.
dumps() {
    local status=0 text
    "$PLATWIFI" dump >"$out" 2>"$err" || status=$?
    result "dump: status 0" [ "$status" = 0 ]
    for text in "$@"; do result "the listing has '$text'" grep -qF "$text" "$out"; done
}

writes_documents() {
    run "xml" 0 xml
    result "the document follows the schema" "$XML" <"$out"
    run "xml --full" 0 xml --full
    result "the full document follows the schema" "$XML" <"$out"
    result "it has the network" grep -qF "$1" "$out"
}

test_kinds() {
    run "add a hidden network" 0 add lab-hidden ssidBroadcasted=false psk=- <<<"$LAB_PASSPHRASE"
    file_has scan_ssid=1
    run "connect" 0 connect lab-hidden --json
    json_has /ssid lab-hidden /state COMPLETED
    writes_documents lab-hidden
    dumps lab-hidden "$LAB_PASSPHRASE"
    forget_networks
    run "add a WEP network" 0 add lab-wep key_mgmt=NONE key1=- index=0 --json <<<"$LAB_WEP_KEY"
    json_has /ssid lab-wep /done added
    connects lab-wep
    forget_networks
}
