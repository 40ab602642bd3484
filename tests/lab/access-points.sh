# Starts an access point on a simulated radio for each row of the file access-points.
# shellcheck shell=bash

lines() { printf '%s\n' "$@"; }

# security_of KIND: the access point's settings that differ by kind.
security_of() {
    case $1 in
    open) ;;
    wep) lines auth_algs=3 wep_default_key=0 "wep_key0=$LAB_WEP_KEY" ;;
    wpa1-tkip)
        lines wpa=1 wpa_key_mgmt=WPA-PSK wpa_pairwise=TKIP "wpa_passphrase=$LAB_PASSPHRASE"
        ;;
    wpa2-psk)
        lines wpa=2 wpa_key_mgmt=WPA-PSK rsn_pairwise=CCMP "wpa_passphrase=$LAB_PASSPHRASE"
        ;;
    wpa3)
        lines wpa=2 wpa_key_mgmt=SAE rsn_pairwise=CCMP ieee80211w=2 "sae_password=$LAB_SAE_PASSWORD"
        ;;
    wpa2-wpa3)
        lines wpa=2 'wpa_key_mgmt=WPA-PSK SAE' rsn_pairwise=CCMP ieee80211w=1 sae_require_mfp=1 \
            "wpa_passphrase=$LAB_PASSPHRASE"
        ;;
    wpa2-sha256)
        lines wpa=2 wpa_key_mgmt=WPA-PSK-SHA256 rsn_pairwise=CCMP ieee80211w=2 \
            "wpa_passphrase=$LAB_PASSPHRASE"
        ;;
    owe) lines wpa=2 wpa_key_mgmt=OWE rsn_pairwise=CCMP ieee80211w=2 ;;
    hidden)
        security_of wpa2-psk
        lines ignore_broadcast_ssid=1
        ;;
    wpa2-eap)
        lines wpa=2 wpa_key_mgmt=WPA-EAP rsn_pairwise=CCMP ieee8021x=1 eap_server=1 \
            eap_user_file=/run/lab/eap-users "ca_cert=$LAB_CERTIFICATES/ca.pem" \
            "server_cert=$LAB_CERTIFICATES/server.pem" "private_key=$LAB_CERTIFICATES/server.key"
        ;;
    *) return 1 ;;
    esac
}

# The built-in authentication server offers these methods, and these inside the tunnel.
write_eap_users() {
    lines '* PEAP,TTLS,TLS' \
        "\"$LAB_IDENTITY\" MSCHAPV2,TTLS-MSCHAPV2,TTLS-PAP \"$LAB_PASSWORD\" [2]" \
        >/run/lab/eap-users
}

# LAB_ACCESS_POINTS is the table that the job selects.
access_point_rows() { grep -v '^#' "$LAB_ACCESS_POINTS"; }

# Channels up to 14 are at 2.4 GHz, others at 5 GHz.
frequency_of() { echo $(($1 > 14 ? 5000 + 5 * $1 : 2407 + 5 * $1)); }
mode_of() { if [ "$1" -gt 14 ]; then echo a; else echo g; fi; }

# write_access_point INTERFACE SSID CHANNEL KIND
write_access_point() {
    lines "interface=$1" driver=nl80211 ctrl_interface=/run/hostapd "hw_mode=$(mode_of "$3")" \
        "ssid2=P\"$2\"" "channel=$3" >"/run/lab/$1.conf"
    security_of "$4" >>"/run/lab/$1.conf"
}

# add_to_table INTERFACE SSID CHANNEL KIND FLAGS: one line of LAB_AP_TABLE, separated by tabs. Its SSID is
# what the client prints.
add_to_table() {
    printf '%s\t%s\t%s\t%s\t%s\t%s\n' "${2//\\x20/ }" "$(cat "/sys/class/net/$1/address")" \
        "$(frequency_of "$3")" "$4" "$5" "$1" >>"$LAB_AP_TABLE"
}

access_points_ready() {
    local wanted
    wanted=$(wc -l <"$LAB_AP_TABLE")
    [ "$(grep -c ': AP-ENABLED' "$LAB_OUT/hostapd.log")" = "$wanted" ]
}

start_access_points() {
    local ssid channel kind flags radio=0 conf=()
    write_eap_users
    while read -r ssid channel kind flags; do
        radio=$((radio + 1))
        write_access_point "wlan$radio" "$ssid" "$channel" "$kind" || return
        add_to_table "wlan$radio" "$ssid" "$channel" "$kind" "$flags" || return
        conf+=("/run/lab/wlan$radio.conf")
    done < <(access_point_rows)
    hostapd -B -t -P /run/lab/hostapd.pid -f "$LAB_OUT/hostapd.log" "${conf[@]}" >/dev/null &&
        wait_for access_points_ready
}
