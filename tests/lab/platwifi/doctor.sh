# The command doctor on hosts with one fault each.
# shellcheck shell=bash

count_of() { grep -cF "\"health\": \"$1\"" "$OUT" || true; }

# finds SUBJECT FOUND TO_DO COMMAND...: expects that the command finds one fault, with these texts, which
# are patterns.
finds() {
    local subject=$1 found=$2 to_do=$3 place got status=0
    shift 3
    "$@" doctor --json >"$OUT" 2>"$ERR" || status=$?
    cat "$OUT" "$ERR" >>"$TRANSCRIPT"
    result "doctor: status 1" [ "$status" = 1 ]
    result "one thing is bad" [ "$(count_of bad)" = 1 ]
    place=$(grep -F '"subject": ' "$OUT" | grep -nF "\"$subject\"" | cut -d : -f 1)
    mapfile -t got < <("$JSON" "/$((place - 1))"/{health,found,toDo} <"$OUT" 2>&1)
    echo "        $subject: ${got[*]}"
    result "$subject: $found" grep -qxE "bad: $found" <<<"${got[0]}: ${got[1]}"
    result "what to do: $to_do" grep -qxE "$to_do" <<<"${got[2]}"
}

# restart_supplicant SCRIPT: changes the configuration by a script for sed before the start.
restart_supplicant() {
    stop_supplicant
    write_supplicant_conf "$LAB_SUPPLICANT_CONF"
    sed -i "$1" "$LAB_SUPPLICANT_CONF"
    start_supplicant
}

# The command line works without the file.
notes_the_key_file() {
    mkdir -p "${PLATFORM_KEY_FILE%/*}"
    head -c 32 /dev/urandom >"$PLATFORM_KEY_FILE"
    chmod 644 "$PLATFORM_KEY_FILE"
    run "doctor" 0 doctor
    shows "note  key file .*$PLATFORM_KEY_FILE is open to group or others.*"
    rm "$PLATFORM_KEY_FILE"
}

finds_files() {
    notes_the_key_file
    echo foreign >/dev/shm/wifi_shmem
    finds "shared memory" '/dev/shm/wifi_shmem was made by another build: .*' \
        'remove it as root: .*' "$PLATWIFI"
    rm /dev/shm/wifi_shmem
}

finds_a_radio_that_is_off() {
    local switch=/sys/class/rfkill/rfkill0
    echo 1 >$switch/soft
    finds radio 'the radio of wlan0 is switched off by software .*' '.*rfkill unblock wifi' \
        "$PLATWIFI"
    echo 0 >$switch/soft
}

# No DHCP server is in the lab, so the address is set by hand.
finds_a_missing_address() {
    local id
    id=$(client add_network)
    client_ok set_network "$id" ssid '"lab-psk"' # another part renames lab-open
    client_ok set_network "$id" psk "\"$LAB_PASSPHRASE\""
    client_ok enable_network "$id"
    wait_state COMPLETED
    finds address 'wlan0 is connected, but has no address' 'no DHCP client is running: .*' \
        "$PLATWIFI"
    ip address add 192.0.2.7/24 dev wlan0
    run "doctor" 0 doctor
    shows 'ok    address         192\.0\.2\.7'
    ip address flush dev wlan0
    client_ok remove_network "$id"
    wait_state 'INACTIVE|DISCONNECTED'
}

finds_a_wrong_profile() {
    finds profile 'PLATWIFI_PROFILE is today, which is no profile: .*' 'unset PLATWIFI_PROFILE.*' \
        env PLATWIFI_PROFILE=today "$PLATWIFI"
}

finds_what_is_missing() {
    mkdir /tmp/empty
    finds client 'there is no program /tmp/empty/wpa_cli' 'install .*' \
        env PLATFORM_BOOT_DIR=/tmp/empty "$PLATWIFI"
    stop_supplicant
    finds supplicant 'wpa_supplicant is not running' 'start it as root: .*' "$PLATWIFI"
    run "status" 1 status
    complains 'wpa_supplicant is not running; start it as root: .*'
    start_supplicant
}

# Root may use every socket, so the program runs as another user, from a copy: that user may have no access
# to the folder of the checkout.
finds_a_closed_socket() {
    local copy=/tmp/copy
    mkdir -p $copy/{bin,lib,boot}
    cp "$PLATWIFI" $copy/bin
    cp "$BUILD_DIR"/lib/lib*.so $copy/lib
    cp -P "$BUILD_DIR"/boot/* $copy/boot
    finds "control socket" '/run/wpa_supplicant.* is closed to all but root.*' \
        '.*run platwifi as root.*' env PLATFORM_KEY_FILE=/tmp/missing/crypt.key \
        setpriv --reuid=65534 --regid=65534 --clear-groups $copy/bin/platwifi
    rm -r $copy
}

finds_configurations() {
    restart_supplicant 's/^update_config=1$/update_config=0/'
    finds update_config 'is off: nothing can be saved' 'put update_config=1 into .*' "$PLATWIFI"
    run "add" 1 add unsaved key_mgmt=NONE
    complains 'the supplicant did not save its configuration, and nothing was changed; .*'
    result "the network is gone again" [ -z "$(client list_networks | sed 1d)" ]
    restart_supplicant '/^p2p_disabled=1$/d'
    finds interface 'the supplicant lists p2p-dev-wlan0 first, .*' 'put p2p_disabled=1 into .*' \
        env PLATWIFI_PROFILE=device "$PLATWIFI"
    run "doctor" 0 doctor # the profile modern skips it
    restart_supplicant ''
}

test_doctor() {
    run "doctor, after saves" 0 doctor
    shows 'note  configuration .* can be read by every user, and holds keys in plain'
    shows 'Nothing is wrong\.'
    chmod 600 "$LAB_SUPPLICANT_CONF"
    run "doctor" 0 doctor
    shows 'note  country         is not set: .*' # the lab has no rules of countries
    shows 'Nothing is wrong\.'
    finds_files
    finds_a_radio_that_is_off
    finds_a_missing_address
    finds_a_wrong_profile
    finds_what_is_missing
    finds_a_closed_socket
    finds_configurations
}
