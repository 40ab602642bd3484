# Completion of platwifi for fish 3.4 and later. The program itself finds the candidates:
# `platwifi --complete WORD...` prints one a line, with a blank behind it if the word is whole. fish decides by
# itself where a blank follows, and quotes what is special to it.

# The word at the cursor without its quotes, of which one may still be open.
function __platwifi_current
    set -l word (commandline -ct)
    string unescape -- $word; or string unescape -- $word\'; or string unescape -- $word\"
end

function __platwifi_candidates
    set -l words (commandline -opc)
    set -l word (__platwifi_current)
    set -l program (command -s -- $words[1]; or echo platwifi)
    command $program --complete $words[2..] "$word" 2>/dev/null </dev/null | string replace -r ' $' ''
end

complete -c platwifi -f -k -a '(__platwifi_candidates)'
