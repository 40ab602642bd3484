# Commands that change nothing, on a host without configured networks.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for calls functions by name

declare -A words=([wpa2-psk]=WPA2-PSK [open]=open [wpa2-eap]=WPA2-Enterprise [wpa1-tkip]=WPA-PSK
    [wep]=WEP [hidden]=WPA2-PSK)

# expected_rows: SSID, BSSID, channel and security of each access point, sorted.
expected_rows() {
    local ssid bssid frequency kind
    while IFS=$'\t' read -r ssid bssid frequency kind _; do
        if [ "$kind" = hidden ]; then ssid="(hidden)"; fi
        echo "$ssid $bssid $(((frequency - 2407) / 5)) ${words[$kind]}"
    done <"$LAB_AP_TABLE" | LC_ALL=C sort
}

shown_rows() { awk 'NR > 1 { print $1, $2, $3, $NF }' "$OUT" | LC_ALL=C sort; }

# A single scan can miss a beacon; the supplicant also lists what it received before.
scan_shows_all() {
    "$PLATWIFI" scan >"$OUT" 2>"$ERR" && [ "$(shown_rows)" = "$(expected_rows)" ]
}

# place_of BSSID: its index in the array, which is sorted by signal.
place_of() { grep -F '"bssid"' "$OUT" | grep -nF "$1" | awk -F : '{ print $1 - 1 }'; }

scan_as_json() {
    local ssid bssid frequency kind flags place wanted=()
    run "scan" 0 scan --json
    while IFS=$'\t' read -r ssid bssid frequency kind flags _; do
        [ "$kind" != hidden ] || ssid=
        place=$(place_of "$bssid")
        wanted+=("/$place/ssid" "$ssid" "/$place/channel" $(((frequency - 2407) / 5))
            "/$place/frequency" "$frequency" "/$place/security" "${words[$kind]}"
            "/$place/flags" "$flags")
    done <"$LAB_AP_TABLE"
    json_has "${wanted[@]}"
}

test_look() {
    run "adapters" 0 adapters
    shows wlan0
    run "adapters" 0 adapters --json
    json_has "" '["wlan0"]'
    result "scan shows each access point" wait_for scan_shows_all
    note scan
    scan_as_json
    run "networks" 0 networks
    shows 'No network is configured; .*'
    run "status" 0 status --json
    json_has /adapter wlan0 /network null /networks 0
    run "an unknown interface" 1 status -i wlan9
    complains 'the supplicant does not serve wlan9; .*'
    run "an unknown network" 1 show elsewhere
    complains 'there is no network elsewhere; .*'
}
