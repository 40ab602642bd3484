# A network for each access point from the command line: added, connected to, listed, removed.
# shellcheck shell=bash

row() {
    local IFS=$'\t'
    printf '%s\n' "$*"
}

# network_of KIND: the values of key_mgmt and pmf in the status (- for none), the secret (- for none), and the
# properties of the network.
network_of() {
    case $1 in
    open) row NONE - - key_mgmt=NONE ;;
    wpa2-psk) row WPA2-PSK - "$LAB_PASSPHRASE" psk=- ;;
    wpa2-sha256)
        row WPA2-PSK-SHA256 2 "$LAB_PASSPHRASE" key_mgmt=WPA-PSK-SHA256 pmf=required psk=-
        ;;
    wpa2-wpa3) row SAE 1 "$LAB_PASSPHRASE" key_mgmt=WPA-PSK+SAE pmf=optional psk=- ;;
    wpa3) row SAE 2 "$LAB_SAE_PASSWORD" key_mgmt=SAE pmf=required encryption=CCMP+GCMP-256 psk=- ;;
    owe) row OWE 2 - key_mgmt=OWE pmf=required ;;
    wpa2-eap)
        row 'WPA2/IEEE 802.1X/EAP' - "$LAB_PASSWORD" key_mgmt=WPA-EAP eap=PEAP \
            "eapIdentity=$LAB_IDENTITY" "CACertificateFile=$LAB_CERTIFICATES/ca.pem" eapPassword=-
        ;;
    esac
}

# is_first SSID BSSID: of the access points of one network.
is_first() {
    [ "$(SSID=$1 awk -F '\t' '$1 == ENVIRON["SSID"] { print $2; exit }' "$LAB_AP_TABLE")" = "$2" ]
}

# status_is STATUS: the values of key_mgmt and pmf, the BSSID, the state, and the SSID as the client prints it.
status_is() {
    local got
    got=$(client status | awk -F = '{ value[$1] = substr($0, length($1) + 2) }
        END { print value["key_mgmt"], (value["pmf"] ? value["pmf"] : "-"), value["bssid"],
            value["wpa_state"], value["ssid"] }')
    if [ "$got" != "$1" ]; then echo "        got $got"; fi
    [ "$got" = "$1" ]
}

# connects_by_name SSID BSSID KEY_MGMT PMF SECRET PROPERTY...: the SSID is as the client prints it.
connects_by_name() {
    local ssid=$1 bssid=$2 key_mgmt=$3 pmf=$4 secret=$5 name
    shift 5
    name=$(printf '%b' "${ssid//\\\"/\"}")
    is_first "$ssid" "$bssid" || set -- "$@" "bssid=$bssid"
    run "add" 0 add -- "$name" "$@" <<<"$secret"
    run "connect" 0 connect --timeout "$CONNECT_TIMEOUT" -- "$name"
    result "the supplicant is on $ssid" status_is "$key_mgmt $pmf $bssid COMPLETED $ssid"
    forget_networks
}

scans() {
    "$PLATWIFI" scan >"$OUT" 2>"$ERR" && [ "$(grep -c ' 02:00:00:00:' "$OUT")" = "$(wc -l <"$LAB_AP_TABLE")" ]
}

test_shell() {
    local ssid bssid kind network
    result "a scan shows every access point" wait_for scans
    note scan
    result "a name of emoji is whole" grep -q '😀😁😂😃😄😅😆😇' "$OUT"
    result "and so is one of bytes" grep -qF '\x8f\xf0\xf1\xf2\xf3\xf4\xf5\xf6\xf7\xf8\xf9\xfa\xfb\xfc\xfd\xfe\xff' "$OUT"
    while IFS=$'\t' read -r -u 3 ssid bssid _ kind _; do
        IFS=$'\t' read -r -a network < <(network_of "$kind")
        connects_by_name "$ssid" "$bssid" "${network[@]}"
    done 3<"$LAB_AP_TABLE"
}
