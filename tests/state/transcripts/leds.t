# leds: local control, override, blinking, lamp test, by the names that commands take
$ cfgtool-state --json leds
> 2C 05  00 00       < 00 00 0B 02                            # LEDs 0, 1 and 3, and two of the application
> 2C 08  00 00 00    < 00 00 01 00 00 01                      # local: off, blue
> 2C 08  00 00 01    < 00 00 03 FF 00 02 0A 14 04             # local: on, red; override: 100 ms off, 200 ms on, amber
> 2C 08  00 00 03    < 00 00 02 00 00 03 FF 00 05             # override: on, orange
> 2C 08  00 00 04    < 00 00 07 00 00 03 00 00 02 32          # lamp test of 5 s
> 2C 08  00 00 05    < 00 00 01 FA 01 06                      # local: 2.5 s off, 10 ms on, white
| {"format":1,"leds":{"blueled":{"control":"local","state":"off","colour":"blue"},"led1":{"control":"override","state":"blink","colour":"amber"},"led3":{"control":"override","state":"on","colour":"orange"},"oem1":{"control":"lamp_test","state":"on","colour":null},"oem2":{"control":"local","state":"blink","colour":"white"}},"unreadable":[]}

# leds: the table
$ cfgtool-state leds
> 2C 05  00 00       < 00 00 02 01
> 2C 08  00 00 01    < 00 00 03 FF 00 02 0A 14 03
> 2C 08  00 00 04    < 00 00 07 00 00 03 00 00 02 32
| leds
|     name  control    state  colour
|     led1  override   blink  green
|     oem1  lamp_test  on     -

# leds: a controller without any
$ cfgtool-state --json leds
> 2C 05  00 00       < 00 00 00 00
| {"format":1,"leds":{},"unreadable":[]}

# leds: functions and colours without a meaning
$ cfgtool-state --json leds
> 2C 05  00 00       < 00 00 07 00
> 2C 08  00 00 00    < 00 00 01 FD 00 01
> 2C 08  00 00 01    < 00 00 01 FF 00 07
> 2C 08  00 00 02    < 00 00 01 FF 00 00
2| cfgtool-state: leds.blueled: 3 has no meaning
| {"format":1,"leds":{"blueled":{"control":"local","colour":"blue"},"led1":{"control":"local","state":"on","colour":null},"led2":{"control":"local","state":"on","colour":null}},"unreadable":[]}
exits 1

# leds: how many there are is refused, too short, or not answered
$ cfgtool-state --json leds
> 2C 05  00 00       < C1
2| cfgtool-state: leds: refused: Invalid command (0xC1)
| {"format":1,"unreadable":[]}
exits 1

# leds: how many there are comes too short
$ cfgtool-state --json leds
> 2C 05  00 00       < 00 00 0B cut 9
2| cfgtool-state: leds: the answer is too short
| {"format":1,"unreadable":[]}
exits 1

# leds: how many there are is not answered
$ cfgtool-state --json leds
> 2C 05  00 00       < silent
2| cfgtool-state: leds: no answer (0x40000001)
| {"format":1,"unreadable":[]}
exits 1

# leds: one refused, one without an answer, one too short, one too short for its override, and the rest
$ cfgtool-state --json leds
> 2C 05  00 00       < 00 00 0F 01
> 2C 08  00 00 00    < CB
> 2C 08  00 00 01    < silent
> 2C 08  00 00 02    < 00 00 01 FF 00 cut 11
> 2C 08  00 00 03    < 00 00 03 FF 00 02 0A 14 cut 14
> 2C 08  00 00 04    < 00 00 01 FF 00 03
2| cfgtool-state: leds.blueled: refused: Requested sensor, data, or record not found (0xCB)
2| cfgtool-state: leds.led1: no answer (0x40000001)
2| cfgtool-state: leds.led2: the answer is too short
2| cfgtool-state: leds.led3: the answer is too short
| {"format":1,"leds":{"oem1":{"control":"local","state":"on","colour":"green"}},"unreadable":[]}
exits 1
