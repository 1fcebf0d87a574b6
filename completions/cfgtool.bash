# bash completion of cfgtool; see share/cfgtool/complete

_cfgtool_complete=$(cd "${BASH_SOURCE[0]%/*}/../../cfgtool" && pwd)/complete

# _cfgtool_offer_files PATTERN WORD
_cfgtool_offer_files()
{
    local word=${2:-${1%%\**}}
    compopt -o filenames
    [[ $word == "${1%%\**}"* ]] &&
        mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -d -- "$word"; compgen -f -X "!$1" -- "$word")
}

_cfgtool()
{
    local candidate
    while IFS= read -r candidate; do
        if [[ $candidate == $'\t'* ]]; then
            _cfgtool_offer_files "${candidate#$'\t'}" "$2"
        elif [[ $candidate == "$2"* ]]; then
            COMPREPLY+=("${candidate%%$'\t'*}")
        fi
    done < <(sh "$_cfgtool_complete" "${COMP_WORDS[@]:1:COMP_CWORD-1}" 2>/dev/null)
}

complete -o nosort -F _cfgtool cfgtool
