# The events of a scan, a connection and refusals, in text and in JSON, until the supplicant ends.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for and result call functions by name

EVENTS=/tmp/events
EVENT_OBJECTS=/tmp/event-objects
LAB_WATCHED+=("$EVENTS" "$EVENT_OBJECTS")

# saw TEXT [FILE]
saw() { grep -qF -- "$1" "${2:-$EVENTS}"; }

# A scan before the program is attached has no events for it, so there may have to be a second one.
sees_a_scan() {
    client scan >/dev/null
    saw '  scan finished' && saw '"event":"scanFinished"' "$EVENT_OBJECTS"
}

sees() { result "shows: $1" wait_for saw "$1"; }

# select_network SSID FIELD=VALUE...: through the client.
select_network() {
    local field id
    id=$(client add_network)
    client_ok set_network "$id" ssid "\"$1\""
    shift
    for field in "$@"; do client_ok set_network "$id" "${field%%=*}" "${field#*=}"; done
    client_ok select_network "$id"
}

forget() {
    client_ok disconnect
    wait_state 'INACTIVE|DISCONNECTED'
    client_ok remove_network all
    client_ok bssid_ignore clear
    : >"$EVENTS"
}

# select_enterprise PASSWORD AUTHORITY
select_enterprise() {
    select_network lab-eap key_mgmt=WPA-EAP eap=PEAP "identity=\"$LAB_IDENTITY\"" \
        "password=\"$1\"" 'phase2="auth=MSCHAPV2"' "ca_cert=\"$LAB_CERTIFICATES/$2.pem\""
}

sees_connections_and_refusals() {
    local bssid
    bssid=$(awk -F '\t' '$1 == "lab-psk" { print $2 }' "$LAB_AP_TABLE")
    select_network lab-psk "psk=\"$LAB_PASSPHRASE\""
    sees "connected               lab-psk, $bssid"
    client_ok disconnect
    sees "disconnected            lab-psk, $bssid, by this host, reason 3: "
    forget
    select_network lab-psk 'psk="not the passphrase"'
    sees 'wrong key               lab-psk, the key is wrong, 1 failure, not tried for '
    forget
    select_enterprise "$LAB_PASSWORD" other-ca
    sees 'certificate rejected    lab-eap, /O=Lab/CN=Lab authority, error 1: '
    forget
    select_enterprise 'not the password' ca
    sees 'login refused           lab-eap, error 691: the identity or the password is wrong'
    forget
}

test_monitor() {
    local text objects status=0
    "$PLATWIFI" monitor --json >"$EVENT_OBJECTS" 2>"$ERR" &
    objects=$!
    "$PLATWIFI" monitor >>"$EVENTS" 2>"$ERR.text" &
    text=$!
    result "shows a scan in text and in JSON" wait_for sees_a_scan
    sees_connections_and_refusals
    stop_supplicant
    sees '  supplicant ends'
    wait "$text" || status=$?
    result "ends with status 1 when the supplicant ends" [ "$status" = 1 ]
    wait "$objects" || true
    complains 'the supplicant no longer serves wlan0; .*'
    cat "$EVENTS" "$EVENT_OBJECTS" >>"$TRANSCRIPT"
    start_supplicant
}
