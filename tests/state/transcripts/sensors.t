# Bodies of records. A full one: sensor 11h, upper thresholds 88, 95 and 105 that can be read and set, as can its hysteresis;
# unsigned, degrees C, M = 1.
let DEVICE = 20 01 01 00 02 87 D9 7E 00 01 00
let TEMP = 20 00 11 03 01  7F 68 01 01  80 0A 80 7A 38 38  00 01 00  00 01 00 00 00 00 00  00 00 00 00 FF 00  69 5F 58 00 00 00  02 02  00 00 00  C4 54 65 6D 70
# Sensor 12h: M = 6 and a result exponent of -2, volts; no thresholds that can be read, and no hysteresis.
let VOLT = 20 00 12 07 01  7F 40 02 01  00 00 00 00 00 00  00 04 00  00 06 00 00 00 00 E0  00 00 00 00 FF 00  00 00 00 00 00 00  00 00  00 00 00  C3 31 32 56
# Sensor 21h: discrete, with states 0 to 7 and 10.
let DISC = 20 00 21 03 01  67 40 07 6F  FF 04 FF 04 FF 04  C0 00 00  01 00 00 00 00 00 00 00  C3 43 50 55
# Sensor 31h: events only.
let BUTTON = 20 00 31 0C 01 14 6F 01 00 00 00 C3 4B 65 79

# sensors: of each kind, with one request for each record and each value
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP
> 04 2D  11                    < 00 35 C0 C0                  # 53, nothing crossed
> 04 27  11                    < 00 38 00 00 00 58 5F 69
> 04 25  11 FF                 < 00 02 03
> 0A 23  00 00 02 00 00 FF     < 00 03 00 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0                  # 201 * 6 / 100
> 0A 23  00 00 03 00 00 FF     < 00 04 00 03 00 51 02 1E DISC
> 04 2D  21                    < 00 00 C0 80 84               # states 7 and 10; bit 15 is reserved
> 0A 23  00 00 04 00 00 FF     < 00 05 00 04 00 51 03 0F BUTTON
> 0A 23  00 00 05 00 00 FF     < 00 FF FF 05 00 51 12 01 20   # a locator, no sensor
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C","reading":53,"thresholds":{"lower_noncritical":null,"lower_critical":null,"lower_nonrecoverable":null,"upper_noncritical":88,"upper_critical":95,"upper_nonrecoverable":105},"hysteresis":{"positive":2,"negative":3},"state":"ok"},{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"CPU","number":33,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":"0x0480"},{"name":"Key","number":49,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":null}],"unreadable":["sensors.test"]}

# sensors: the table, with a mark where a threshold is crossed
$ cfgtool-state sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP
> 04 2D  11                    < 00 60 C0 D8                  # 96: the upper non-critical and the upper critical one
> 04 27  11                    < 00 38 00 00 00 58 5F 69
> 04 25  11 FF                 < 00 02 03
> 0A 23  00 00 02 00 00 FF     < 00 03 00 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
> 0A 23  00 00 03 00 00 FF     < 00 FF FF 03 00 51 02 1E DISC
> 04 2D  21                    < 00 00 C0 80 80
| sensors
|     name  no.  reading  unit       low NR  low CR  low NC  up NC  up CR  up NR  +hys  -hys  state
| !   Temp   17       96  degrees C       -       -       -     88     95    105     2     3  upper_critical
|     12V    18    12.06  volts           -       -       -      -      -      -     -     -  ok
|     CPU    33        -  -               -       -       -      -      -      -     -     -  0x0080
|
| unreadable
|   sensors.test

# sensors: the gravest of several crossed thresholds is told
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP
> 04 2D  11                    < 00 00 C0 C7                  # all three lower ones
> 04 27  11                    < 00 07 0A 05 01 00 00 00
> 04 25  11 FF                 < 00 00 FF
> 0A 23  00 00 02 00 00 FF     < 00 FF FF 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C1                  # the lower non-critical one
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C","reading":0,"thresholds":{"lower_noncritical":10,"lower_critical":5,"lower_nonrecoverable":1,"upper_noncritical":null,"upper_critical":null,"upper_nonrecoverable":null},"hysteresis":{"positive":0,"negative":255},"state":"lower_nonrecoverable"},{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"lower_noncritical"}],"unreadable":["sensors.test"]}

# sensors: no reading now, and one that is switched off
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2E VOLT
> 04 2D  12                    < 00 00 E0 C0
> 0A 23  00 00 02 00 00 FF     < 00 03 00 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 80 C0
> 0A 23  00 00 03 00 00 FF     < 00 FF FF 03 00 51 02 1E DISC
> 04 2D  21                    < 00 00 E0 80 80
| {"format":1,"sensors":[{"name":"12V","number":18,"unit":"volts","reading":null,"thresholds":null,"hysteresis":null,"state":"unavailable"},{"name":"12V","number":18,"unit":"volts","reading":null,"thresholds":null,"hysteresis":null,"state":"disabled"},{"name":"CPU","number":33,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":"unavailable"}],"unreadable":["sensors.test"]}

# sensors: the state of a discrete sensor without states above 7 is one byte
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 FF FF 01 00 51 02 1E DISC[0:14] 00 DISC[15:]
> 04 2D  21                    < 00 00 C0 81                  # a checksum may follow, and be no part of it
| {"format":1,"sensors":[{"name":"CPU","number":33,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":"0x0081"}],"unreadable":["sensors.test"]}

# sensors: fixed thresholds and hysteresis are there and cannot be read
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 FF FF 01 00 51 01 2F TEMP[0:6] 3C TEMP[7:]
> 04 2D  11                    < 00 35 C0 C0
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C","reading":53,"state":"ok"}],"unreadable":["sensors.test","sensors[Temp].thresholds","sensors[Temp].hysteresis"]}

# sensors: what can be read and not set is read
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 FF FF 01 00 51 01 2F TEMP[0:6] 14 TEMP[7:]
> 04 2D  11                    < 00 35 C0 C0
> 04 27  11                    < 00 38 00 00 00 58 5F 69
> 04 25  11 FF                 < 00 02 03
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C","reading":53,"thresholds":{"lower_noncritical":null,"lower_critical":null,"lower_nonrecoverable":null,"upper_noncritical":88,"upper_critical":95,"upper_nonrecoverable":105},"hysteresis":{"positive":2,"negative":3},"state":"ok"}],"unreadable":["sensors.test"]}

# sensors: readings with a sign, and units of several words
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2E VOLT[0:15] 80 VOLT[16:]             # two's complement
> 04 2D  12                    < 00 FE C0 C0
> 0A 23  00 00 02 00 00 FF     < 00 03 00 02 00 51 01 2E VOLT[0:15] 40 VOLT[16:]             # one's complement
> 04 2D  12                    < 00 FE C0 C0
> 0A 23  00 00 03 00 00 FF     < 00 04 00 03 00 51 01 2E VOLT[0:15] 01 00 00 VOLT[18:]       # a percentage
> 04 2D  12                    < 00 32 C0 C0
> 0A 23  00 00 04 00 00 FF     < 00 05 00 04 00 51 01 2E VOLT[0:15] 18 44 00 VOLT[18:]       # 68 each second
> 04 2D  12                    < 00 32 C0 C0
> 0A 23  00 00 05 00 00 FF     < 00 06 00 05 00 51 01 2E VOLT[0:15] 02 06 22 VOLT[18:]       # 6 divided by 34
> 04 2D  12                    < 00 32 C0 C0
> 0A 23  00 00 06 00 00 FF     < 00 07 00 06 00 51 01 2E VOLT[0:15] 04 06 18 VOLT[18:]       # 6 multiplied by 24
> 04 2D  12                    < 00 32 C0 C0
> 0A 23  00 00 07 00 00 FF     < 00 FF FF 07 00 51 01 2E VOLT[0:15] 00 5D 00 VOLT[18:]       # 93 is not known
> 04 2D  12                    < 00 32 C0 C0
| {"format":1,"sensors":[{"name":"12V","number":18,"unit":"volts","reading":-0.12,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"12V","number":18,"unit":"volts","reading":-0.06,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"12V","number":18,"unit":"percent","reading":3,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"12V","number":18,"unit":"megabit per second","reading":3,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"12V","number":18,"unit":"watts/m","reading":3,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"12V","number":18,"unit":"watts*hour","reading":3,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"12V","number":18,"unit":"unit 93","reading":3,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}

# sensors: factors that make no number, and a full record that is not analog
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP[0:19] 00 TEMP[20:]             # M = 0
> 04 2D  11                    < 00 35 C0 C8
> 04 25  11 FF                 < 00 02 03
> 0A 23  00 00 02 00 00 FF     < 00 FF FF 02 00 51 01 2E VOLT[0:15] C0 VOLT[16:]             # no analog reading
> 04 2D  12                    < 00 00 C0 C0
2| cfgtool-state: sensors[Temp]: the factors of its record make no number
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C","hysteresis":{"positive":2,"negative":3},"state":"upper_noncritical"},{"name":"12V","number":18,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}
exits 1

# sensors: of the device itself
$ cfgtool-state --json sensors
> 06 01                        < 00 20 81 01 00 02 85 D9 7E 00 01 00
> 04 21  00 00 00 00 00 FF     < 00 FF FF 01 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
| {"format":1,"sensors":[{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}

# sensors: Get Device ID is asked once
$ cfgtool-state --json device sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 FF FF 01 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
| {"format":1,"device":{"id":32,"revision":1,"firmware":"1.00","ipmi":"2.0","manufacturer":32473,"product":1},"sensors":[{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["device.remote_manage_id","device.serial_direction","device.web_host","sensors.test"]}

# sensors: records that are refused in one piece come in several, under a reservation
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < CA
> 0A 22                        < 00 34 12
> 0A 23  34 12 00 00 00 05     < 00 02 00 01 00 51 01 2E
> 0A 23  34 12 00 00 05 2E     < CA
> 0A 23  34 12 00 00 05 2E     < CA
> 0A 23  34 12 00 00 05 2E     < CA
> 0A 23  34 12 00 00 05 1E     < 00 02 00 VOLT[0:30]
> 0A 23  34 12 00 00 23 10     < 00 02 00 VOLT[30:]
> 04 2D  12                    < 00 C9 C0 C0
> 0A 23  34 12 02 00 00 05     < 00 03 00 02 00 51 12 20      # a locator: its body is not asked for
> 0A 23  34 12 03 00 00 05     < 00 FF FF 03 00 51 03 0F
> 0A 23  34 12 03 00 05 0F     < 00 FF FF BUTTON
| {"format":1,"sensors":[{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"},{"name":"Key","number":49,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":null}],"unreadable":["sensors.test"]}

# sensors: a reservation that a command took meanwhile is taken again
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < CA
> 0A 22                        < 00 01 00
> 0A 23  01 00 00 00 00 05     < 00 FF FF 01 00 51 03 0F
> 0A 23  01 00 00 00 05 0F     < C5
call vos_rand -> 2
sleep 2000000
> 0A 22                        < 00 02 00
> 0A 23  02 00 00 00 05 0F     < 00 FF FF BUTTON
| {"format":1,"sensors":[{"name":"Key","number":49,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":null}],"unreadable":["sensors.test"]}

# sensors: each request of a sensor refused, and the next sensor
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP
> 04 2D  11                    < CB
> 04 27  11                    < CD
> 04 25  11 FF                 < C1
> 0A 23  00 00 02 00 00 FF     < 00 FF FF 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
2| cfgtool-state: sensors[Temp].reading: refused: Requested sensor, data, or record not found (0xCB)
2| cfgtool-state: sensors[Temp].thresholds: refused: Command illegal for specified sensor or record type (0xCD)
2| cfgtool-state: sensors[Temp].hysteresis: refused: Invalid command (0xC1)
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C"},{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}
exits 1

# sensors: each answer about a sensor too short, and the table of what is known
$ cfgtool-state sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP
> 04 2D  11                    < 00 35 C0 cut 9
> 04 27  11                    < 00 38 00 00 00 58 5F cut 13
> 04 25  11 FF                 < 00 02 cut 8
> 0A 23  00 00 02 00 00 FF     < 00 FF FF 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
2| cfgtool-state: sensors[Temp].reading: the answer is too short
2| cfgtool-state: sensors[Temp].thresholds: the answer is too short
2| cfgtool-state: sensors[Temp].hysteresis: the answer is too short
| sensors
|     name  no.  reading  unit       low NR  low CR  low NC  up NC  up CR  up NR  +hys  -hys  state
|     Temp   17        ?  degrees C       ?       ?       ?      ?      ?      ?     ?     ?  ?
|     12V    18    12.06  volts           -       -       -      -      -      -     -     -  ok
|
| unreadable
|   sensors.test
exits 1

# sensors: two requests of a sensor without an answer, and the rest
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP
> 04 2D  11                    < silent
> 04 27  11                    < silent
> 04 25  11 FF                 < 00 02 03
> 0A 23  00 00 02 00 00 FF     < 00 FF FF 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
2| cfgtool-state: sensors[Temp].reading: no answer (0x40000001)
2| cfgtool-state: sensors[Temp].thresholds: no answer (0x40000001)
| {"format":1,"sensors":[{"name":"Temp","number":17,"unit":"degrees C","hysteresis":{"positive":2,"negative":3}},{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}
exits 1

# sensors: a record too short is lost, and the next one is shown
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2F TEMP cut 60
> 0A 23  00 00 02 00 00 FF     < 00 FF FF 02 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
2| cfgtool-state: sensors: record 0x0000 cannot be read (0x40000001)
| {"format":1,"sensors":[{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}
exits 1

# sensors: a record without an answer ends the list
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 01 2E VOLT
> 04 2D  12                    < 00 C9 C0 C0
> 0A 23  00 00 02 00 00 FF     < silent
2| cfgtool-state: sensors: record 0x0002 cannot be read (0x40000001)
| {"format":1,"sensors":[{"name":"12V","number":18,"unit":"volts","reading":12.06,"thresholds":null,"hysteresis":null,"state":"ok"}],"unreadable":["sensors.test"]}
exits 1

# sensors: records that are refused whole and in pieces
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < C1
> 0A 22                        < C1
2| cfgtool-state: sensors: record 0x0000 cannot be read (0xA2200C1)
| {"format":1,"unreadable":["sensors.test"]}
exits 1

# sensors: where the records are is not known
$ cfgtool-state --json sensors
> 06 01                        < C1
2| cfgtool-state: device: refused: Invalid command (0xC1)
| {"format":1,"unreadable":["sensors.test"]}
exits 1

# sensors: a controller without records
$ cfgtool-state --json sensors
> 06 01                        < 00 20 81 01 00 02 84 D9 7E 00 01 00
2| cfgtool-state: sensors: the controller offers no sensor data records
| {"format":1,"unreadable":["sensors.test"]}
exits 1

# sensors: names with control characters, without any, and cut short by the record's end
$ cfgtool-state --json sensors
> 06 01                        < 00 DEVICE
> 0A 23  00 00 00 00 00 FF     < 00 02 00 01 00 51 03 0F BUTTON[0:12] 1B 0A 07
> 0A 23  00 00 02 00 00 FF     < 00 03 00 02 00 51 03 0C BUTTON[0:11] C0
> 0A 23  00 00 03 00 00 FF     < 00 FF FF 03 00 51 03 0D BUTTON[0:11] DF 4B
2| cfgtool-state: sensors[49].name: a name with characters that cannot be shown: \x1B\x0A\x07
| {"format":1,"sensors":[{"name":"\u001b\u000a\u0007","number":49,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":null},{"name":"","number":49,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":null},{"name":"K","number":49,"unit":null,"reading":null,"thresholds":null,"hysteresis":null,"state":null}],"unreadable":["sensors.test"]}
