# Each shell completes by what is installed, once it knows the prefix; sourced by run.
# shellcheck shell=bash

in_bash() {
    XDG_DATA_DIRS=$prefix/share bash --norc -c '
        . /usr/share/bash-completion/bash_completion
        _completion_loader platwifi
        complete -p platwifi'
}

in_zsh() {
    SHARE=$prefix/share zsh -f -c '
        fpath=($SHARE/zsh/site-functions $fpath)
        autoload -Uz compinit
        compinit -u -D
        print -r -- $_comps[platwifi]'
}

in_fish() {
    HOME=$work PATH=$prefix/bin:$PATH XDG_DATA_DIRS=$prefix/share \
        fish -c 'complete -C "platwifi --json sh"'
}

# expect_completion SHELL OUTPUT
expect_completion() {
    if command -v "$1" >/dev/null; then
        expect 0 "$2" "in_$1"
    else
        echo "skipped: no $1 (install the package $1)"
    fi
}
