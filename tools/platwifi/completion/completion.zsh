#compdef platwifi
# Completion of platwifi for zsh 5, to be loaded by compinit from a folder in fpath. The program itself finds the
# candidates: `platwifi --complete WORD...` prints one a line, with a blank behind it if the word is whole.

# The word at the cursor without its quotes, of which one may still be open.
_platwifi_current() {
    case $compstate[quote] in
    \') REPLY=${PREFIX//\'\\\'\'/\'} ;;
    \") REPLY=${(Q)${:-\"$PREFIX\"}} ;;
    *) REPLY=${(Q)PREFIX} ;;
    esac
}

_platwifi() {
    local program REPLY
    local -a before candidates
    program=$(whence -p -- ${(Q)words[1]/#\~\//$HOME/}) || program=platwifi
    before=("${(@Q)words[2,CURRENT-1]}")
    _platwifi_current
    candidates=("${(@f)$("$program" --complete "${before[@]}" "$REPLY" 2>/dev/null </dev/null)}")
    compadd -- "${(@)${(@M)candidates:#* }% }"
    compadd -S '' -- "${(@)candidates:#(* |)}"
}

_platwifi "$@"
