# The cache of the lab: each entry is a folder that gets its name when it is complete.
# shellcheck shell=bash

LAB_CACHE=${XDG_CACHE_HOME:-${HOME:-$SOURCE_DIR}/.cache}/platwifi
LAB_CACHE=$(realpath -m "${PLATWIFI_CACHE:-$LAB_CACHE}/lab")

# cache_folder NAME INPUT...: sets REPLY to the folder whose name changes with the inputs.
cache_folder() {
    local name=$1
    shift
    REPLY=$LAB_CACHE/$name-$(cat "$@" | sha256sum | cut -c 1-12)
}

# ensure_cached FOLDER BUILDER [ARG...]: BUILDER fills a temporary folder, which then gets the name.
ensure_cached() {
    local folder=$1 builder=$2 lock
    shift 2
    if [ -d "$folder" ]; then return; fi
    if ! mkdir -p "$LAB_CACHE" 2>/dev/null || [ ! -w "$LAB_CACHE" ]; then
        fail "cannot write the cache $LAB_CACHE; name another folder in PLATWIFI_CACHE"
    fi
    exec {lock}>"$LAB_CACHE/lock"
    flock "$lock"
    if [ ! -d "$folder" ]; then
        LAB_WORK=$(mktemp -d "$LAB_CACHE/work.XXXXXX")
        chmod 755 "$LAB_WORK"
        "$builder" "$LAB_WORK" "$@"
        mv -T "$LAB_WORK" "$folder"
    fi
    exec {lock}>&-
}

remove_unfinished() { rm -rf "${LAB_WORK:-}"; }
