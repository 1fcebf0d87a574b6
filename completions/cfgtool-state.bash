# bash completion of cfgtool-state; see share/cfgtool/state-words

_cfgtool_state_words=$(cd "${BASH_SOURCE[0]%/*}/../../cfgtool" && pwd)/state-words

_cfgtool_state()
{
    mapfile -t COMPREPLY < <(compgen -W "$(cut -f 1 "$_cfgtool_state_words")" -- "$2")
}

complete -o nosort -F _cfgtool_state cfgtool-state
