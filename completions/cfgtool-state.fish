# fish completion of cfgtool-state; see share/cfgtool/state-words

set -g __cfgtool_state_words (path resolve (status dirname)/../../cfgtool/state-words)

complete --command cfgtool-state --no-files --keep-order --arguments "(cat $__cfgtool_state_words)"
