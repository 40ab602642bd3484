# Functions for the programs of this folder, which source it.
# shellcheck shell=bash

set -euo pipefail

SOURCE_DIR=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
# shellcheck disable=SC2034 # for the programs that source this
BUILD_DIR=$SOURCE_DIR/build/release
PACKAGE_LIST=$SOURCE_DIR/scripts/packages.txt
LOG_DIR=$SOURCE_DIR/build/logs

# If standard input is closed, the next file that is opened gets descriptor 0.
[ -e /proc/self/fd/0 ] || exec </dev/null

step() { printf '==> %s\n' "$*"; }

# The status is 1, or FAIL_STATUS in a program whose statuses tell failures apart.
fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit "${FAIL_STATUS:-1}"
}

# run_logged NAME COMMAND...: writes the output to a log; after a failure shows the end of the log and its path.
run_logged() {
    local name=$1
    shift
    mkdir -p "$LOG_DIR"
    local log=$LOG_DIR/$name.log
    if ! "$@" >"$log" 2>&1 </dev/null; then
        tail -n 40 "$log" >&2
        fail "$name failed; the whole log is in $log"
    fi
}

wanted_packages() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' -e 's/[[:space:]]//g' "$PACKAGE_LIST"; }

missing_packages() {
    local package
    for package in $(wanted_packages); do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            printf '%s\n' "$package"
    done
}

# as_root COMMAND...: runs the command as root, by sudo if this user is not root and sudo needs no password.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo -n "$@"
    fi
}

install_packages() {
    local missing
    missing=$(missing_packages)
    [ -n "$missing" ] || return 0
    command -v apt-get >/dev/null ||
        fail "these packages are missing and there is no apt-get to install them: ${missing//$'\n'/ }"
    if [ "$(id -u)" != 0 ] && ! sudo -n true 2>/dev/null; then
        fail "these packages are missing; install them as root: apt-get install ${missing//$'\n'/ }"
    fi
    step "installing $(wc -w <<<"$missing") Debian packages (once)"
    run_logged apt-update as_root apt-get update
    # shellcheck disable=SC2086 # one word a package
    run_logged apt-install as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends $missing
}

configure() { run_logged "configure-$1" cmake -S "$SOURCE_DIR" --preset "$1"; }

# build PRESET [TARGET...]: configures if needed, and builds.
build() {
    local preset=$1
    shift
    step "building $preset"
    configure "$preset"
    run_logged "build-$preset" cmake --build "$SOURCE_DIR/build/$preset" ${1:+--target "$@"}
}
