# fish completion of cfgtool; see share/cfgtool/complete

set -g __cfgtool_complete (path resolve (status dirname)/../../cfgtool/complete)

# How names begin, a star, and how those end that are no folders.
function __cfgtool_files --argument-names pattern
    set -l ends (string split '*' $pattern)
    set -l typed (commandline --current-token)
    test -n "$typed"; or set typed $ends[1]
    string match --quiet -- "$ends[1]*" "$typed"; or return
    __fish_complete_path "$typed" | string match --regex '^[^\t]*(?:/|'(string escape --style=regex -- $ends[2])')(?:\t.*)?$'
end

function __cfgtool_candidates
    set -l typed (commandline --tokenize --current-process --cut-at-cursor)
    for line in (sh $__cfgtool_complete $typed[2..] 2>/dev/null)
        if string match --quiet \t\* -- $line
            __cfgtool_files (string sub --start 2 $line)
        else
            echo $line
        end
    end
end

complete --command cfgtool --no-files --keep-order --arguments '(__cfgtool_candidates)'
