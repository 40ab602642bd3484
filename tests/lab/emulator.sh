# Runs the guest for scripts/lab, which sets: name, job, access_points, arguments, timeout, out, out_lock,
# kernel, initramfs, certificates, root, and the settings of machine.sh.
# shellcheck shell=bash
# shellcheck disable=SC2154

quoted() { printf "'%s'" "${1//\'/\'\\\'\'}"; }

# variables NAME=VALUE...: as a shell reads them.
variables() {
    local assignment
    for assignment in "$@"; do
        printf '%s=%s\n' "${assignment%%=*}" "$(quoted "${assignment#*=}")"
    done
}

# The options of mac80211_hwsim: a radio for the supplicant, and one for each access point. Without a
# database of regulatory domains no access point may start at 5 GHz; regtest=5 makes radios with rules
# of their own, which allow it.
radio_options() {
    awk '!/^#/ { ++count; if ($2 > 14) rules = " regtest=5" }
        END { print "radios=" count + 1 rules }' "$access_points"
}

# The environment of a job, and its arguments.
write_boot_env() {
    local argument
    variables "SOURCE_DIR=$SOURCE_DIR" "BUILD_DIR=$BUILD_DIR" "JAR_BUILD_DIR=$JAR_BUILD_DIR" \
        "LAB_ARCH=$architecture" "LAB_OUT=$out" "LAB_JOB=$job" "LAB_CERTIFICATES=$certificates" \
        LAB_AP_TABLE=/run/lab/access-points \
        "LAB_ACCESS_POINTS=$access_points" "LAB_RADIO_OPTIONS=$(radio_options)" \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        HOME=/tmp/home "JAVA_HOME=$java_home" LC_ALL=C.UTF-8
    printf 'set --'
    for argument in "${arguments[@]}"; do printf ' %s' "$(quoted "$argument")"; done
    printf '\n'
}

# share NAME FOLDER OPTION: a comma separates options, so the emulator wants two in a path.
share() {
    printf '%s\n' -fsdev "local,id=$1,path=${2//,/,,},security_model=none,$3" \
        -device "virtio-9p-pci,fsdev=$1,mount_tag=$1"
}

# Sets the options of the guest's clock. By default it is the host's, and a busy host makes a slow guest. With
# "# lab: instruction-clock" in the job, a nanosecond passes for each instruction, and the guest does not miss a
# limit because the processors of the host are busy. A station's kernel repeats a request for association after
# 0.1 s; a hostapd that is slower answers twice, starts a second 4-way handshake, and the keys of both sides differ.
choose_clock() {
    thread=multi clock=()
    if grep -q '^# lab: instruction-clock$' "$job"; then thread=single clock=(-icount shift=0); fi
}

# Hardware virtualisation stays off: where it is half there, a stock kernel hangs in it. A second processor makes
# the guest slower, and takes twice the time of the host's. Programs and their
# libraries are always at the same addresses, without which the emulator would translate them anew for each
# process; and the kernel has no protection from its own programs, which only takes time here.
run_emulator() {
    local shares thread clock
    choose_clock
    mapfile -t shares < <(share host / readonly=on,multidevs=remap &&
        share root "$root" readonly=on,multidevs=remap && share out "$out" multidevs=remap)
    exec "$emulator" \
        -accel "tcg,thread=$thread,tb-size=512" "${clock[@]}" "${machine[@]}" -smp 1 -m 2048 \
        -nodefaults -no-user-config -display none -monitor none -no-reboot \
        -serial "file:$out/console.log" -kernel "$kernel/vmlinux" -initrd "$initramfs/initramfs" \
        -append "console=$console quiet panic=-1 oops=panic norandmaps mitigations=off init_on_alloc=0 $kernel_options" \
        "${shares[@]}" </dev/null >"$out/emulator.log" 2>&1
}

# How much was printed. A guest that has not come up so far prints nothing, and gets more time.
LONGEST_START=300
printed() { stat -c %s "$out/output"; }

# stop_when_silent PROCESS: of the emulator; however slow this machine is, a job that prints goes on.
stop_when_silent() {
    local seen=0 now since=$SECONDS limit
    limit=$((timeout > LONGEST_START ? timeout : LONGEST_START))
    while sleep 1 && kill -0 "$1" 2>/dev/null; do
        now=$(printed)
        if [ "$now" != "$seen" ]; then
            seen=$now since=$SECONDS limit=$timeout
        elif [ $((SECONDS - since)) -ge $((limit + 5)) ]; then
            kill -KILL "$1"
        elif [ $((SECONDS - since)) -ge "$limit" ]; then
            : >"$out/silent"
            kill "$1"
        fi
    done 2>/dev/null
}

# Sets REPLY to the emulator's exit status, 124 where it was stopped for its silence; the job's output is
# shown as it comes.
boot() {
    local process
    step "$name: starting a virtual machine with simulated radios" >&2
    run_emulator &
    process=$!
    # shellcheck disable=SC2064 # the number is known now
    trap "kill $process 2>/dev/null; wait $process || true" EXIT
    stop_when_silent "$process" {out_lock}>&- &
    tail --pid="$process" -s 0.1 -n +1 -f "$out/output" {out_lock}>&-
    REPLY=0
    wait "$process" || REPLY=$?
    if [ -e "$out/silent" ]; then REPLY=124; fi
    trap - EXIT
}
