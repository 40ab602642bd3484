# What is done with the packages in the fresh system; sourced by install.
# shellcheck shell=bash disable=SC2154,SC2016 # variables of install; a format of dpkg

NAMES=(libplatwifi1 libplatwifi-dev platwifi libplatwifi-java)
OLD=0.9
KEY=/var/lib/platform/crypt.key

# repack PACKAGE FOLDER: the same package with a lower version.
repack() {
    local content=$work/content
    rm -rf "$content"
    dpkg-deb -R "$1" "$content"
    sed -i -e "s/^Version: .*/Version: $OLD/" -e "/^Depends:/s/\\(platwifi[^ ]* ([>=]*\\) [^)]*)/\\1 $OLD)/g" \
        "$content/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$content" "$2" >/dev/null
}

# The package files of the four, without those of debugging symbols.
offer_packages() {
    local name file
    mkdir "$root/srv/before" "$root/srv/now"
    for name in "${NAMES[@]}"; do
        for file in "$packages/${name}"_*.deb; do
            cp "$file" "$root/srv/now"
            repack "$file" "$root/srv/before"
        done
    done
    version_now=$(dpkg-deb -f "$root"/srv/now/libplatwifi1_*.deb Version)
}

install_version() {
    local files
    mapfile -t files < <(inside find "/srv/$1" -name '*.deb')
    apt_inside install "${files[@]}"
    inside dpkg -L "${NAMES[@]}" | sort -u >"$work/contents-$1"
}

expect_version_now() {
    local name version
    for name in "${NAMES[@]}"; do
        version=$(inside dpkg-query -W -f '${Version}' "$name")
        [ "$version" = "$version_now" ] || fail "$name has the version $version after the upgrade"
    done
}

install_compilers() {
    apt_inside install --no-install-recommends g++ cmake make pkg-config default-jdk-headless systemd
}

build_programs() { quietly inside /srv/inside/build_programs || fail "programs cannot be built (see above)"; }

check_units() { quietly inside /srv/inside/check_units || fail "the example units have faults (see above)"; }

secret() { inside java -cp /usr/share/java/platwifi.jar:/srv/built Secret "$@"; }

encipher() {
    secret encrypt 'a key' >"$work/secret"
    cp "$root$KEY" "$work/key"
}

decipher() {
    local text
    cmp "$root$KEY" "$work/key" || fail "the key file has changed"
    text=$(secret decrypt "$(cat "$work/secret")")
    [ "$text" = 'a key' ] || fail "the secret was 'a key', and is '$text' after the upgrade"
}

remove_packages() { apt_inside remove "${NAMES[@]}"; }
purge_packages() { quietly inside dpkg --purge "${NAMES[@]}" || fail "dpkg --purge failed (see above)"; }

# What is there with a name of ours, but for the lists of apt and dpkg, and what this test has put there.
leftovers() {
    inside find / -xdev \( -path /srv -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/cache/apt \
        -o -path /var/log \) -prune -o \( -iname '*platwifi*' -o -path '/var/lib/platform*' \) -print
    local path
    while IFS= read -r path; do
        if [ ! -d "$root$path" ] && [ -e "$root$path" ]; then printf '%s\n' "$path"; fi
    done <"$work/contents-now"
    inside find /var/lib/dpkg -name '*platwifi*'
}

expect_the_key_only() {
    local left
    left=$(leftovers | grep -v '^/var/lib/dpkg/info/libplatwifi1') # what dpkg keeps for the purge
    [ "$left" = "${KEY%/*}"$'\n'"$KEY" ] || fail "after apt-get remove there is: $left"
}

expect_nothing_left() {
    local left
    left=$(leftovers)
    [ -z "$left" ] || fail "after apt-get purge there is: $left"
}
