# bash completion of cfgtool; see share/cfgtool/complete

_cfgtool_complete=$(cd "${BASH_SOURCE[0]%/*}/../../cfgtool" && pwd)/complete

_cfgtool()
{
    local candidate
    while IFS= read -r candidate; do
        candidate=${candidate%%$'\t'*}
        if [[ -z $candidate ]]; then
            compopt -o filenames
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$2")
        elif [[ $candidate == "$2"* ]]; then
            COMPREPLY+=("$candidate")
        fi
    done < <(sh "$_cfgtool_complete" "${COMP_WORDS[@]:1:COMP_CWORD-1}" 2>/dev/null)
}

complete -o nosort -F _cfgtool cfgtool
