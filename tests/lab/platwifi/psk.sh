# A network with a key: added in one save, connected, refused with a wrong key, corrected, removed.
# shellcheck shell=bash

watched=/tmp/watched

# Puts a script in the place of the client. It logs the word of each command and the arguments of its parent
# process, then runs the client.
watch_client() {
    mkdir "$watched"
    cat >"$watched/wpa_cli" <<'CLIENT'
#!/bin/sh
echo "$2" >>/tmp/watched/commands
tr '\0' ' ' </proc/$PPID/cmdline >>/tmp/watched/callers
exec wpa_cli "$@"
CLIENT
    chmod +x "$watched/wpa_cli"
    export PLATFORM_BOOT_DIR=$watched
}

refuses_a_key_on_the_command_line() {
    run "a key on the command line" 2 add lab-psk psk=12345678
    complains 'psk is a secret, .*'
    result "does not repeat it" lacks "$ERR" 12345678
}

adds_in_one_save() {
    watch_client
    run "add with the key from standard input" 0 add lab-psk psk=- <<<"$LAB_PASSPHRASE"
    unset PLATFORM_BOOT_DIR
    shows 'lab-psk is added\.'
    result "saves once" [ "$(grep -cx save_config "$watched/commands")" = 1 ]
    result "its arguments are those given" grep -qF ' add lab-psk psk=-' "$watched/callers"
    result "the key is not among them" lacks "$watched/callers" "$LAB_PASSPHRASE"
    file_holds '"lab-psk" '
    file_has "psk=\"$LAB_PASSPHRASE\""
}

test_psk() {
    refuses_a_key_on_the_command_line
    adds_in_one_save
    run "disconnect" 0 disconnect lab-psk
    shows 'Disconnected from lab-psk\.'
    result "the supplicant is on no network" wait_state 'INACTIVE|DISCONNECTED'
    connects lab-psk
    run "status" 0 status --json
    json_has /adapter wlan0 /state COMPLETED /network lab-psk /networks 1

    echo 'not the passphrase' >/tmp/wrong
    run "set a wrong key from a file" 0 set lab-psk psk=@/tmp/wrong
    gives_up lab-psk 10 'the access point refuses the key; '
    run "set two properties" 0 set lab-psk priority=5 psk=- --json <<<"$LAB_PASSPHRASE"
    json_has /ssid lab-psk /done saved
    file_has priority=5
    run "roam" 0 roam --json
    json_has /done roaming
    result "the supplicant chooses lab-psk" wait_for connected_to lab-psk

    run "networks" 0 networks --json
    json_has /0/ssid lab-psk /0/status connected /0/key_mgmt WPA-PSK /0/priority 5
    run "remove" 0 remove lab-psk --json
    json_has /ssid lab-psk /done removed
    file_holds ''
}
