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

# _cfgtool_offer WORD: as it is to be typed, unless a quote is open.
_cfgtool_offer()
{
    local word=$1
    [[ ${COMP_WORDS[COMP_CWORD]} == [\"\']* ]] || printf -v word %q "$1"
    COMPREPLY+=("$word")
}

_cfgtool()
{
    local candidate typed=${2//\\/}
    typed=${typed#[\"\']}
    while IFS= read -r candidate; do
        if [[ $candidate == $'\t'* ]]; then
            _cfgtool_offer_files "${candidate#$'\t'}" "$2"
        elif [[ $candidate == "$typed"* ]]; then
            _cfgtool_offer "${candidate%%$'\t'*}"
        fi
    done < <(sh "$_cfgtool_complete" "${COMP_WORDS[@]:1:COMP_CWORD-1}" 2>/dev/null)
}

complete -o nosort -F _cfgtool cfgtool
