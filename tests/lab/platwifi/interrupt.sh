# The attempt to connect to a network out of range: it fails by itself, and is ended by a signal.
# shellcheck shell=bash
# shellcheck disable=SC2317 # wait_for calls functions by name

is_trying() { grep -q 'SCANNING' "$OUT"; }

no_client_left() { ! pgrep -x wpa_cli >/dev/null; }

ends_by_the_signal() {
    local program status=0
    env --default-signal=INT "$PLATWIFI" connect nowhere >"$OUT" 2>"$ERR" &
    program=$!
    result "tries" wait_for is_trying
    kill -INT "$program"
    wait "$program" || status=$?
    note 'connect nowhere, and Ctrl-C'
    result "ends by the signal" [ "$status" = $((128 + 2)) ]
    complains 'interrupted; .*'
    result "leaves no client" no_client_left
    result "leaves no shared block" [ ! -e /dev/shm/wifi_shmem ]
}

test_interrupt() {
    run "add a network that is not there" 0 add nowhere key_mgmt=NONE
    run "connect" 15 connect --timeout $CONNECT_TIMEOUT nowhere
    complains 'nowhere is not connected: no access point of this name is in range; .*'
    ends_by_the_signal
    forget_networks
}
