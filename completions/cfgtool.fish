# fish completion of cfgtool; see share/cfgtool/complete

set -g __cfgtool_complete (path resolve (status dirname)/../../cfgtool/complete)

function __cfgtool_candidates
    set -l typed (commandline --tokenize --current-process --cut-at-cursor)
    for line in (sh $__cfgtool_complete $typed[2..] 2>/dev/null)
        if string match --quiet \t\* -- $line
            __fish_complete_path (commandline --current-token)
        else
            echo $line
        end
    end
end

complete --command cfgtool --no-files --keep-order --arguments '(__cfgtool_candidates)'
