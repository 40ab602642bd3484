# Completion of platwifi in bash 4.4 and later; sourced, never run. The program itself knows what
# fits: `platwifi --complete WORD...` prints a candidate a line, with a blank behind it where the
# word ends.
# shellcheck shell=bash

# Reads a piece of a command line into `words` and `word`, the unfinished one, as the shell would.
# `quote` is the quote that is open behind it.
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

# Sets `quoted` to the text as it is written behind the open quote, if one is open. In double quotes
# there is no way to write "!" but outside of them.
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

# COMP_WORDS is not looked at: where it is split depends on COMP_WORDBREAKS. What is replaced is $2,
# which begins behind the last of these characters, or behind the open quote.
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
