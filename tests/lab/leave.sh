# Ends the guest.
# shellcheck shell=bash

# leave HOW: orderly, or failed where the guest did not come up. The host takes a result for complete only with
# this word: the emulator's exit status is the same for a panic, a restart and a power-off.
leave() {
    printf '%s\n' "$1" >"$LAB_OUT/end"
    echo o >/proc/sysrq-trigger # power-off
    while :; do :; done # no program can be read from the shared folders any more
}
