# Completion of platwifi for fish 3.4 and later. The program itself finds the candidates:
# `platwifi --complete WORD...` prints one a line, with a blank behind it if the word is whole. fish decides by
# itself where a blank follows, and quotes what is special to it.

function __platwifi_candidates
    set -l words (commandline -opc)
    set -l word (commandline -ct | string unescape) # also where a quote is still open
    set -l program (command -s -- $words[1]; or echo platwifi)
    command $program --complete $words[2..] "$word" 2>/dev/null </dev/null | string replace -r ' $' ''
end

complete -c platwifi -f -k -a '(__platwifi_candidates)'
