# clock: the time is that of UTC, whatever the offset
$ cfgtool-state --json clock
> 0A 48    < 00 80 51 01 66           # 1711362432
> 0A 5C    < 00 F2 FE                 # -270
| {"format":1,"clock":{"time":"2024-03-25T10:27:12","utc_offset_minutes":-270},"unreadable":[]}

# clock: the table
$ cfgtool-state clock
> 0A 48    < 00 00 00 00 00
> 0A 5C    < 00 E0 01
| clock
|   time        1970-01-01T00:00:00
|   utc offset  480 min

# clock: neither time nor offset are specified
$ cfgtool-state --json clock
> 0A 48    < 00 FF FF FF FF
> 0A 5C    < 00 FF 07
| {"format":1,"clock":{"time":null,"utc_offset_minutes":null},"unreadable":[]}

# clock: the last second
$ cfgtool-state --json clock
> 0A 48    < 00 FE FF FF FF           # 4294967294
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2106-02-07T06:28:14","utc_offset_minutes":0},"unreadable":[]}

# clock: the day before a leap day of a century
$ cfgtool-state --json clock
> 0A 48    < 00 FF 0B BB 38           # 951782399
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2000-02-28T23:59:59","utc_offset_minutes":0},"unreadable":[]}

# clock: that leap day
$ cfgtool-state --json clock
> 0A 48    < 00 00 0C BB 38           # 951782400
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2000-02-29T00:00:00","utc_offset_minutes":0},"unreadable":[]}

# clock: the day after
$ cfgtool-state --json clock
> 0A 48    < 00 80 5D BC 38           # 951868800
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2000-03-01T00:00:00","utc_offset_minutes":0},"unreadable":[]}

# clock: the last second of a leap day
$ cfgtool-state --json clock
> 0A 48    < 00 7F 1A E1 65           # 1709251199
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2024-02-29T23:59:59","utc_offset_minutes":0},"unreadable":[]}

# clock: the last second of a leap year
$ cfgtool-state --json clock
> 0A 48    < 00 7F 85 74 67           # 1735689599
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2024-12-31T23:59:59","utc_offset_minutes":0},"unreadable":[]}

# clock: 28 February of a century without a leap day
$ cfgtool-state --json clock
> 0A 48    < 00 7F 1F D4 F4           # 4107542399
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2100-02-28T23:59:59","utc_offset_minutes":0},"unreadable":[]}

# clock: the day after
$ cfgtool-state --json clock
> 0A 48    < 00 80 1F D4 F4           # 4107542400
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2100-03-01T00:00:00","utc_offset_minutes":0},"unreadable":[]}

# clock: where a signed number of 32 bits ends
$ cfgtool-state --json clock
> 0A 48    < 00 00 00 00 80           # 2147483648
> 0A 5C    < 00 00 00
| {"format":1,"clock":{"time":"2038-01-19T03:14:08","utc_offset_minutes":0},"unreadable":[]}

# clock: each request refused
$ cfgtool-state --json clock
> 0A 48    < C1
> 0A 5C    < D5
2| cfgtool-state: clock.time: refused: Invalid command (0xC1)
2| cfgtool-state: clock.utc_offset_minutes: refused: Command not supported in present state (0xD5)
| {"format":1,"unreadable":[]}
exits 1

# clock: each answer too short
$ cfgtool-state --json clock
> 0A 48    < 00 80 51 01 cut 10
> 0A 5C    < 00 F2 cut 8
2| cfgtool-state: clock.time: the answer is too short
2| cfgtool-state: clock.utc_offset_minutes: the answer is too short
| {"format":1,"unreadable":[]}
exits 1

# clock: a request without an answer, and the rest
$ cfgtool-state --json clock
> 0A 48    < silent
> 0A 5C    < 00 00 00
2| cfgtool-state: clock.time: no answer (0x40000001)
| {"format":1,"clock":{"utc_offset_minutes":0},"unreadable":[]}
exits 1
