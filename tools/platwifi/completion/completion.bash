# Completion of platwifi for bash 4.4 and later; to be sourced. The program itself finds the candidates:
# `platwifi --complete WORD...` prints one a line, with a blank behind it if the word is whole.
# shellcheck shell=bash

# Splits a piece of a command line like the shell: appends to `words`, and leaves the unfinished word in
# `word`. `quote` is the quote that is open at its end.
_platwifi_read() {
    local text=$1 i char
    for ((i = 0; i < ${#text}; i++)); do
        char=${text:i:1}
        if [[ $char == "$quote" ]]; then
            quote=
        elif [[ $char == \\ && ($quote == '' ||
            $quote == '"' && ${text:i+1:1} == [\"\$\`\\]) ]]; then
            ((++i))
            word+=${text:i:1}
        elif [[ $quote == '' && $char == [\'\"] ]]; then
            quote=$char begun=yes
        elif [[ $quote == '' && $char == [[:blank:]] ]]; then
            [[ ! $word && ! $begun ]] || words+=("$word")
            word='' begun=
        else
            word+=$char
        fi
    done
}

# Sets `quoted` to the text as it must be written in the shell, behind the open quote if there is one. A "!"
# cannot be written in double quotes, which are closed for it.
_platwifi_quote() {
    local text=$1 special=$' \t!"#$&\'()*;<>?[\\]^`{|}~' i char
    quoted=
    for ((i = 0; i < ${#text}; i++)); do
        char=${text:i:1}
        case $quote$char in
        "''") char="'\\''" ;;
        \'?*) ;;
        '"!') char='"\!"' ;;
        \"[\"\$\`\\]) char=\\$char ;;
        \"?*) ;;
        ?) [[ $special != *"$char"* ]] || char=\\$char ;;
        esac
        quoted+=$char
    done
    # readline closes the quote, unless one seems to be closed here already.
    [[ ! $quote || $quoted != *"$quote" ]] || quoted+=$quote
}

# Reads COMP_LINE and not COMP_WORDS, which is split at the characters of COMP_WORDBREAKS. readline replaces
# $2, which begins behind the last of these characters, or behind the open quote.
_platwifi() {
    local words=() word='' begun='' quote='' quoted='' candidates=() candidate
    local line=${COMP_LINE:0:COMP_POINT} replaced=${2#[\'\"]}
    _platwifi_read "${line%"$replaced"}"
    local before=$word opened=$quote
    _platwifi_read "$replaced"
    quote=$opened

    local program
    program=$(type -P -- "${words[0]/#~\//"$HOME"/}") || program=platwifi
    mapfile -t candidates < <("$program" --complete "${words[@]:1}" "$word" 2>/dev/null </dev/null)
    COMPREPLY=()
    for candidate in "${candidates[@]}"; do
        [[ $candidate == *' ' ]] || compopt -o nospace 2>/dev/null
        candidate=${candidate% }
        _platwifi_quote "${candidate:${#before}}"
        COMPREPLY+=("$quoted")
    done
}

complete -F _platwifi platwifi
