# event log: entries and free space
$ cfgtool-state --json event-log
> 0A 40    < 00 51 05 01 B0 3F 00 00 00 00 00 00 00 00 02     # 261 entries, 16304 bytes
| {"format":1,"event_log":{"entries":261,"free_bytes":16304},"unreadable":[]}

# event log: the table
$ cfgtool-state event-log
> 0A 40    < 00 51 00 00 FF FF
| event log
|   entries  0
|   free     65535 bytes

# event log: while it is erased its state is not told
$ cfgtool-state --json event-log
> 0A 40    < 81
2| cfgtool-state: event_log: refused: cannot execute command, SEL erase in progress (0x81)
| {"format":1,"unreadable":[]}
exits 1

# event log: an answer that is too short
$ cfgtool-state --json event-log
> 0A 40    < 00 51 05 01 B0 cut 11
2| cfgtool-state: event_log: the answer is too short
| {"format":1,"unreadable":[]}
exits 1

# event log: no answer
$ cfgtool-state --json event-log
> 0A 40    < silent
2| cfgtool-state: event_log: no answer (0x40000001)
| {"format":1,"unreadable":[]}
exits 1
