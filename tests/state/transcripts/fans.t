# fans: mode, time-out and level, as a table
$ cfgtool-state fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 2C 01 00 00  00     # manual, 300 s, not forever
> 2C 16  00 00          < 00 00 3C                            # 60 %
| fans
|   mode     manual
|   timeout  300 s
|   level    60 %

# fans: the same as a document
$ cfgtool-state --json fans
$ cfgtool-state fans --json
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 2C 01 00 00  00
> 2C 16  00 00          < 00 00 3C
| {"format":1,"fans":{"mode":"manual","timeout_s":300,"level_percent":60},"unreadable":[]}

# fans under automatic regulation have neither time-out nor level
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00 1E 00 00 00  00
> 2C 16  00 00          < 00 00 FF                            # local control
| {"format":1,"fans":{"mode":"auto","timeout_s":null,"level_percent":null},"unreadable":[]}

# a manual mode without expiry has no time-out, the emergency shut-down no level
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 00 00 00 00  01
> 2C 16  00 00          < 00 00 FE
| {"format":1,"fans":{"mode":"manual","timeout_s":null,"level_percent":null},"unreadable":[]}

# the longest time-out
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 FF FF FF FF  00
> 2C 16  00 00          < 00 00 64
| {"format":1,"fans":{"mode":"manual","timeout_s":4294967295,"level_percent":100},"unreadable":[]}

# fans: a mode that has no meaning is left out
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  02 00 00 00 00  00
> 2C 16  00 00          < 00 00 00
2| cfgtool-state: fans.mode: 2 has no meaning
| {"format":1,"fans":{"timeout_s":null,"level_percent":0},"unreadable":[]}
exits 1

# fans: a refused request, and the rest
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < C1
> 2C 16  00 00          < 00 00 3C
2| cfgtool-state: fans.mode: refused: Invalid command (0xC1)
| {"format":1,"fans":{"level_percent":60},"unreadable":[]}
exits 1

# fans: an answer that is too short, and the rest
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 2C 01 00 00 cut 15
> 2C 16  00 00          < 00 00 3C cut 8
2| cfgtool-state: fans.mode: the answer is too short
2| cfgtool-state: fans.level_percent: the answer is too short
| {"format":1,"unreadable":[]}
exits 1

# fans: a request without an answer, and the rest
$ cfgtool-state --json fans
> 30 91  D9 7E 00 02    < silent
> 2C 16  00 00          < 00 00 3C
2| cfgtool-state: fans.mode: no answer (0x40000001)
| {"format":1,"fans":{"level_percent":60},"unreadable":[]}
exits 1
