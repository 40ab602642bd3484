# Downloads Debian packages of the guest's architecture; nothing is installed on the host.
# shellcheck shell=bash
# shellcheck disable=SC2154 # machine.sh sets debian_name

# The host's own lists, until use_own_package_list.
apt_option=()

# The host's lists serve a guest of its own architecture only.
host_lists_serve() { [ "$(dpkg --print-architecture)" = "$debian_name" ]; }

# use_own_package_list FOLDER: from the host's sources, for the guest's architecture, where no package counts as
# installed. It also helps where the host's list is old or empty, and needs no root.
use_own_package_list() {
    local state=$1/apt
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial"
    : >"$state/status"
    apt_option=(-o "Dir::State=$state" -o "Dir::State::lists=$state/lists"
        -o "Dir::State::status=$state/status" -o "Dir::Cache=$state/cache"
        -o "APT::Architecture=$debian_name" -o "APT::Architectures=$debian_name")
    apt-get "${apt_option[@]}" update >"$1/apt.log" 2>&1
}

# download FOLDER PACKAGE...: these packages alone.
download() {
    local folder=$1
    shift
    [ $# != 0 ] && (cd "$folder" && apt-get "${apt_option[@]}" download "$@") >"$folder/download.log" 2>&1
}

# download_with_dependencies FOLDER PACKAGE...: after use_own_package_list.
download_with_dependencies() {
    local folder=$1
    shift
    apt-get "${apt_option[@]}" install --download-only --no-install-recommends -y "$@" \
        >"$folder/download.log" 2>&1 && mv "$folder"/apt/cache/archives/*.deb "$folder"
}

# download_error FOLDER: why the last download into it failed.
download_error() {
    local line
    line=$(cat "$1"/*.log 2>/dev/null | grep -E '^[EW]:' | tail -n 1) || true
    printf '%s' "${line:-no package list names one}"
}
