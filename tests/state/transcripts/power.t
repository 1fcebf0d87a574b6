# power: on, and the identify LED for a while
$ cfgtool-state --json power
> 00 01    < 00 21 00 50              # power is on; identify is known, temporary
| {"format":1,"power":{"on":true,"identify":"timed"},"unreadable":[]}

# power: off, and the identify LED off
$ cfgtool-state power
> 00 01    < 00 20 00 40
| power
|   on        no
|   identify  off

# power: the identify LED until it is switched off
$ cfgtool-state --json power
> 00 01    < 00 01 00 60
| {"format":1,"power":{"on":true,"identify":"on"},"unreadable":[]}

# power: a controller that does not say anything of an identify LED has none
$ cfgtool-state --json power
> 00 01    < 00 01 00 20
| {"format":1,"power":{"on":true,"identify":null},"unreadable":[]}

# power: a reserved state of the identify LED
$ cfgtool-state --json power
> 00 01    < 00 01 00 70
2| cfgtool-state: power.identify: 3 has no meaning
| {"format":1,"power":{"on":true},"unreadable":[]}
exits 1

# power: refused
$ cfgtool-state --json power
> 00 01    < D4
2| cfgtool-state: power: refused: Insufficient privilege level (0xD4)
| {"format":1,"unreadable":[]}
exits 1

# power: no answer
$ cfgtool-state --json power
> 00 01    < silent
2| cfgtool-state: power: no answer (0x40000001)
| {"format":1,"unreadable":[]}
exits 1

# power: two bytes of three
$ cfgtool-state --json power
> 00 01    < 00 01 00 cut 9
2| cfgtool-state: power: the answer is too short
| {"format":1,"unreadable":[]}
exits 1
