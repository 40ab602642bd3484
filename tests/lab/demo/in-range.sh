# What the Java demo shows without a supplicant, and without configured networks: the access points in range.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for calls functions by name

declare -A words=([wpa2-psk]=WPA2-PSK [open]=open [wpa2-eap]=WPA2-Enterprise [wpa1-tkip]=WPA-PSK
    [wep]=WEP)

# row_of BSSID: the columns of its row, a blank between two.
row_of() { awk -v bssid="$1" '$2 == bssid { print $1, $2, $3, $4, $5, $6 }' "$shown"; }

# expected_rows: the rows for the table of the access points, which send with 20 dBm; hidden ones have no name.
expected_rows() {
    local ssid bssid frequency kind
    while IFS=$'\t' read -r ssid bssid frequency kind _; do
        if [ "$kind" != hidden ]; then
            echo "$ssid $bssid $(((frequency - 2407) / 5)) $frequency -30 ${words[$kind]}"
        fi
    done <"$LAB_AP_TABLE"
}

# A single scan can miss a beacon; the supplicant also lists what it received before.
shows_all() {
    "$SOURCE_DIR/tests/lab/jobs/demo" wlan0 >"$shown" 2>&1 &&
        [ "$(expected_rows | while read -r _ bssid _; do row_of "$bssid"; done)" = \
            "$(expected_rows)" ]
}

shows_line() { result "line $1: $2" [ "$(sed -n "$1p" "$shown")" = "$2" ]; }

shows_what_is_in_range() {
    local ssid bssid rest
    wait_for shows_all || true
    cat "$shown"
    shows_line 1 'wpa_supplicant is running.'
    shows_line 2 'Adapters: wlan0'
    shows_line 4 'Configured networks: none'
    while read -r ssid bssid rest; do
        result "$ssid $bssid $rest" [ "$(row_of "$bssid")" = "$ssid $bssid $rest" ]
    done < <(expected_rows)
}

test_in_range() {
    demo "no supplicant" 1
    result "one line says so" [ "$(grep -c 'wpa_supplicant is not running' "$shown")" = 1 ]
    start_supplicant
    shows_what_is_in_range
    stop_supplicant
}
