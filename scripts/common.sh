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

# missing_packages [ARCHITECTURE]: those that the list has for this architecture, or else for this machine.
missing_packages() {
    local installed native package
    native=$(dpkg --print-architecture 2>/dev/null) || true
    installed=$(dpkg-query -W -f='${db:Status-Abbrev}${Package}:${Architecture}\n' 2>/dev/null |
        sed -n 's/^ii //p') || true
    for package in $(wanted_packages); do
        case $package in
        *:*) [ "${package#*:}" = "${1:-}" ] || continue ;;
        *) [ -z "${1:-}" ] || continue ;;
        esac
        grep -qxF -e "$package" -e "$package:$native" -e "$package:all" <<<"$installed" ||
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
    update_lists
    # shellcheck disable=SC2086 # one word a package
    run_logged apt-install apt_install $missing
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=300 install -y --no-install-recommends "$@"
}

# One list that cannot be fetched does not matter where the others are enough: the installation finds out.
update_lists() {
    local log=$LOG_DIR/apt-update.log
    mkdir -p "$LOG_DIR"
    as_root apt-get -o DPkg::Lock::Timeout=300 update >"$log" 2>&1 </dev/null ||
        step "apt-get update failed for some lists, see $log; continuing with those there are"
}

# install_foreign_packages ARCHITECTURE: what the list has for this architecture, which dpkg gets to know for it. It
# removes no package. Without them, only the tests for this architecture do not run: so a failure leaves dpkg as it
# was, and ends no program.
install_foreign_packages() {
    local architecture=$1 missing log=$LOG_DIR/apt-install-$1.log added=
    missing=$(missing_packages "$architecture")
    [ -n "$missing" ] || return 0
    if ! command -v apt-get >/dev/null || { [ "$(id -u)" != 0 ] && ! sudo -n true 2>/dev/null; }; then
        return 1
    fi
    mkdir -p "$LOG_DIR"
    if ! { dpkg --print-architecture && dpkg --print-foreign-architectures; } | grep -qx "$architecture"; then
        step "adding the architecture $architecture to dpkg (once; dpkg --remove-architecture undoes it)"
        as_root dpkg --add-architecture "$architecture"
        added=yes
    fi
    step "installing $(wc -w <<<"$missing") Debian packages for $architecture (once)"
    update_lists
    # shellcheck disable=SC2086 # one word a package
    apt_install --no-remove $missing >"$log" 2>&1 </dev/null && return
    step "the packages for $architecture cannot be installed, see $log"
    if [ -n "$added" ]; then as_root dpkg --remove-architecture "$architecture" || true; fi
    return 1
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
