# Sensor "CPU Temp": number 11h, full record, unsigned, M = 1, B = 0, both exponents 0.
let FULL_TOP = 20 00 11 03 01 7F 68 01 01 00 00 00 00 3F 3F   # owner, LUN, number, entity, flags, types, masks: bytes 0 to 14
let FULL_MID = 00 01 00 00 01 00 00 00 00 00                  # format and units, linearization, M, B, exponents: 15 to 24
let FULL_END = 00 00 00 00 FF 00 00 00 00 00 00 00 00 00 00 00 00   # ranges, thresholds, hysteresis: 25 to 41
let CPU_TEMP = FULL_TOP FULL_MID FULL_END C8 43 50 55 20 54 65 6D 70
let CPU_HEADER = 00 00 51 01 33
# Compact record "PSU": number 21h. Event-only record "Button": number 31h. Locators: "Board", "FRU0", "MC1".
let PSU = 20 00 21 0A 01 7F 40 08 6F 00 00 00 00 00 00 C0 00 00 01 00 00 00 00 00 00 00 C3 50 53 55
let BUTTON = 20 00 31 07 01 14 6F 01 00 00 00 C6 42 75 74 74 6F 6E
let BOARD = 20 00 00 00 00 00 07 01 00 00 C5 42 6F 61 72 64
# An association holds no name, whatever its bytes look like; a record of type C0h is nobody's.
let ASSOCIATION = 17 01 00 17 01 17 02 00 00 00 C5 42 6F 61 72 64
let OEM_RECORD = 57 01 00 41 42

steps open the repository
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00    # no Device SDRs provided
> 0A 20 < 00 51 02 00 00 10                      # version 51h, 2 records, 4096 bytes free
> 0A 22 < 00 34 12

# The first record is found with five requests, and the sixth sets the threshold
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 CPU_HEADER
> 0A 23  34 12 00 00 05 33 < 00 01 00 CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A record of every kind is read in the controller's order; the last one is examined
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 10 00 00 00 51 02 1E
> 0A 23  34 12 00 00 05 1E < 00 10 00 PSU
> 0A 23  34 12 10 00 00 05 < 00 20 01 10 00 51 03 12
> 0A 23  34 12 10 00 05 12 < 00 20 01 BUTTON
> 0A 23  34 12 20 01 00 05 < 00 30 01 20 01 51 C0 05
> 0A 23  34 12 20 01 05 05 < 00 30 01 OEM_RECORD
> 0A 23  34 12 30 01 00 05 < 00 40 01 30 01 51 08 10
> 0A 23  34 12 30 01 05 10 < 00 40 01 ASSOCIATION
> 0A 23  34 12 40 01 00 05 < 00 FE FF 40 01 51 10 10
> 0A 23  34 12 40 01 05 10 < 00 FE FF BOARD
> 0A 23  34 12 FE FF 00 05 < 00 FF FF FE FF 51 01 33
> 0A 23  34 12 FE FF 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 02 00 05 00 00 00 00 < 00
done| Set sensor lower critical successfully.
log 2 Sensor "Set sensor(CPU Temp) lower critical threshold(5.000) success,EvtCode:0x20600280"

# A sensor that no record names is not found after the last record
$ cfgtool -t sensor -d lowercritical -v "CPU Temp 2" 5
$ cfgtool -t sensor -d lowercritical -v "CPU" 5
$ cfgtool -t sensor -d lowercritical -v "CPU Tem" 5
$ cfgtool -t sensor -d lowercritical -v "cpu temp" 5
$ cfgtool -t sensor -d lowercritical -v "GPU Temp" 5
$ cfgtool -t sensor -d lowercritical -v "" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  34 12 00 00 05 33 < 00 FF FF CPU_TEMP
fail| Set sensor lower critical failed, error code: 0x40000003

# An association has no name, though it begins as one would
$ cfgtool -t sensor -d lowercritical -v Board 5
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 08 06
> 0A 23  34 12 00 00 05 06 < 00 FF FF 05 42 6F 61 72 64
fail| Set sensor lower critical failed, error code: 0x40000003

# A name of 31 characters is compared whole; the reader sees no more than the length says
$ cfgtool -t sensor -d test -v ABCDEFGHIJKLMNOPQRSTUVWXYZ12345 stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 2B
> 0A 23  34 12 00 00 05 2B < 00 FF FF 20 00 31 07 01 14 6F 01 00 00 00 DF 41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50 51 52 53 54 55 56 57 58 59 5A 31 32 33 34 35
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(ABCDEFGHIJKLMNOPQRSTUVWXYZ12345) test value(stop) success,EvtCode:0x206002E0"

# The length of an ID string is in the low 5 bits only; a zero length is an empty name
$ cfgtool -t sensor -d test -v "" stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 0C
> 0A 23  34 12 00 00 05 0C < 00 FF FF 20 00 31 07 01 14 6F 01 00 00 00 E0
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor() test value(stop) success,EvtCode:0x206002E0"

# A name whose length runs past the record's end is what there is of it
$ cfgtool -t sensor -d test -v "Bu" stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 0E
> 0A 23  34 12 00 00 05 0E < 00 FF FF 20 00 31 07 01 14 6F 01 00 00 00 C6 42 75
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(Bu) test value(stop) success,EvtCode:0x206002E0"

# Locators of all three types are matched by name, but are no full sensor records
$ cfgtool -t sensor -d lowercritical -v "Board" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 00 00 51 08 10
> 0A 23  34 12 00 00 05 10 < 00 01 00 ASSOCIATION
> 0A 23  34 12 01 00 00 05 < 00 FF FF 01 00 51 12 10
> 0A 23  34 12 01 00 05 10 < 00 FF FF BOARD
fail| Set sensor lower critical failed, error code: 0x40000008

# An FRU locator
$ cfgtool -t sensor -d lowercritical -v "Board" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 11 10
> 0A 23  34 12 00 00 05 10 < 00 FF FF BOARD
fail| Set sensor lower critical failed, error code: 0x40000008

# A store without records: the first header is refused five times
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < CB
> 0A 23  34 12 00 00 00 05 < CB
> 0A 23  34 12 00 00 00 05 < CB
> 0A 23  34 12 00 00 00 05 < CB
> 0A 23  34 12 00 00 00 05 < CB
fail| Set sensor lower critical failed, error code: 0xA2300CB

# The fifth attempt at a header is good enough
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < C0
> 0A 23  34 12 00 00 00 05 < C0
> 0A 23  34 12 00 00 00 05 < D5
> 0A 23  34 12 00 00 00 05 < C3
> 0A 23  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  34 12 00 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A header that no answer brings ends the search at once
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < silent
|"Select OutTime \r\n"
fail| Set sensor lower critical failed, error code: 0x40000001

# A header that cannot be asked for ends it as well
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < unsent
fail| Set sensor lower critical failed, error code: 0x40000000

# A header that fails behind a record that was read counts as a sensor not found
$ cfgtool -t sensor -d lowercritical -v "Fan" 5
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 CPU_HEADER
> 0A 23  34 12 00 00 05 33 < 00 01 00 CPU_TEMP
> 0A 23  34 12 01 00 00 05 < silent
|"Select OutTime \r\n"
fail| Set sensor lower critical failed, error code: 0x40000003

# A cancelled reservation is renewed after a pause of 0 to 3 seconds, and the header asked for anew
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < C5
call vos_rand -> 6
sleep 2000000
> 0A 22 < 00 35 12
> 0A 23  35 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  35 12 00 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A header cancelled five times is given up, after the fifth pause and reservation
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < 00 35 12
> 0A 23  35 12 00 00 00 05 < C5
call vos_rand -> 1
sleep 1000000
> 0A 22 < 00 36 12
> 0A 23  36 12 00 00 00 05 < C5
call vos_rand -> 2
sleep 2000000
> 0A 22 < 00 37 12
> 0A 23  37 12 00 00 00 05 < C5
call vos_rand -> 3
sleep 3000000
> 0A 22 < 00 38 12
> 0A 23  38 12 00 00 00 05 < C5
call vos_rand -> 4
sleep 0
> 0A 22 < 00 39 12
fail| Set sensor upper critical failed, error code: 0xA2300C5

# A reservation that cannot be renewed ends the header
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < D5
fail| Set sensor upper critical failed, error code: 0xA2200D5

# A header without a body ends the search with a composite of code 0
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 00 00 51 01 00
fail| Set sensor upper critical failed, error code: 0xA230000

# A header that gives another id than was asked for: the body is asked for by the id asked for
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 07 00 51 01 33
> 0A 23  34 12 00 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A store that leads back to a record that was read has come to its end
$ cfgtool -t sensor -d uppercritical -v "Fan" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 CPU_HEADER
> 0A 23  34 12 00 00 05 33 < 00 05 00 CPU_TEMP
> 0A 23  34 12 05 00 00 05 < 00 00 00 05 00 51 02 1E
> 0A 23  34 12 05 00 05 1E < 00 00 00 PSU
fail| Set sensor upper critical failed, error code: 0x40000003

# A body that is refused is passed over; the next record is read
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 02 1E
> 0A 23  34 12 00 00 05 1E < D5
> 0A 23  34 12 05 00 00 05 < 00 FF FF 05 00 51 01 33
> 0A 23  34 12 05 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# When no body at all could be read, the last refusal is shown
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  34 12 00 00 05 33 < D5
fail| Set sensor upper critical failed, error code: 0xA2300D5

# A body that no answer brings is passed over as well
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  34 12 00 00 05 33 < silent
|"Select OutTime \r\n"
fail| Set sensor upper critical failed, error code: 0x40000001

# A body read cancelled more than five times is asked for again, with each new reservation
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  34 12 00 00 05 33 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < 00 01 00
> 0A 23  01 00 00 00 05 33 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < 00 02 00
> 0A 23  02 00 00 00 05 33 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < 00 03 00
> 0A 23  03 00 00 00 05 33 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < 00 04 00
> 0A 23  04 00 00 00 05 33 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < 00 05 00
> 0A 23  05 00 00 00 05 33 < C5
call vos_rand -> 7
sleep 3000000
> 0A 22 < 00 06 00
> 0A 23  06 00 00 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A reservation that cannot be renewed ends the body, and the search goes on
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 CPU_HEADER
> 0A 23  34 12 00 00 05 33 < C5
call vos_rand -> 0
sleep 0
> 0A 22 < silent
|"Select OutTime \r\n"
> 0A 23  34 12 05 00 00 05 < 00 FF FF 05 00 51 01 33
> 0A 23  34 12 05 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A controller that cannot return so many bytes is asked for 126, 62 and 30 at most
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 0A 23  34 12 00 00 05 33 < CA
> 0A 23  34 12 00 00 05 33 < CA
> 0A 23  34 12 00 00 05 33 < CA
> 0A 23  34 12 00 00 05 1E < 00 FF FF CPU_TEMP[0:30]
> 0A 23  34 12 00 00 23 15 < 00 FF FF CPU_TEMP[30:]
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# A record of 255 bytes: 255 at once, then 126 at a time; the offset of a piece has 8 bits
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 00 00 51 C0 FF
> 0A 23  34 12 00 00 05 FF < CA
> 0A 23  34 12 00 00 05 7E < 00 01 00
> 0A 23  34 12 00 00 83 7E < 00 01 00
> 0A 23  34 12 00 00 01 03 < 00 01 00
> 0A 23  34 12 01 00 00 05 < 00 FF FF 01 00 51 01 33
> 0A 23  34 12 01 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# The size once shrunk stays so for the next record: 14 at a time
$ cfgtool -t sensor -d test -v PSU stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 0E < 00 05 00 BUTTON[0:14]
> 0A 23  34 12 00 00 13 04 < 00 05 00 BUTTON[14:]
> 0A 23  34 12 05 00 00 05 < 00 FF FF 05 00 51 02 1E
> 0A 23  34 12 05 00 05 0E < 00 FF FF PSU[0:14]
> 0A 23  34 12 05 00 13 0E < 00 FF FF PSU[14:28]
> 0A 23  34 12 05 00 21 02 < 00 FF FF PSU[28:]
> 30 91  D9 7E 00 0C 21 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(PSU) test value(stop) success,EvtCode:0x206002E0"

# A controller that returns no bytes at all is asked for 6 and 2 more; then no body can be read, neither this nor the next
$ cfgtool -t sensor -d test -v PSU stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 12 < CA
> 0A 23  34 12 00 00 05 0E < CA
> 0A 23  34 12 00 00 05 06 < CA
> 0A 23  34 12 00 00 05 02 < CA
> 0A 23  34 12 05 00 00 05 < 00 FF FF 05 00 51 02 1E
fail| Sensor test failed, error code: 0xA2300CA

# An answer with fewer bytes than asked for leaves zeros; nothing beyond it is read
$ cfgtool -t sensor -d test -v "But" stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < 00 FF FF BUTTON[0:15] cut 24
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(But) test value(stop) success,EvtCode:0x206002E0"

# An answer with more bytes than asked for: what is too much is left
$ cfgtool -t sensor -d test -v "Button!" stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < 00 FF FF BUTTON 21 21 21
fail| Sensor test failed, error code: 0x40000003

# A header cut short holds zeros: no body
$ cfgtool -t sensor -d test -v "Button" stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 00 00 51 cut 12
fail| Sensor test failed, error code: 0xA230000

# Which store: the device ID cannot be had
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < silent
|"Select OutTime \r\n"
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0x40000001

# Which store: the device ID is refused
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < C1
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0x60100C1

# The repository's info cannot be had
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < silent
|"Select OutTime \r\n"
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0x40000001

# The repository's info is refused
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < D5
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0xA2000D5

# The reservation cannot be had
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < 00 51 02 00 00 10
> 0A 22 < silent
|"Select OutTime \r\n"
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0x40000001

# The reservation is refused
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < 00 51 02 00 00 10
> 0A 22 < C1
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0xA2200C1

# A device that provides Device SDRs and is a repository as well: the repository, of a version nobody knows, in silence
$ cfgtool -t sensor -d test -v "Button" stop
> 06 01 < 00 20 81 01 00 02 03 57 01 00 00 00
> 0A 20 < 00 77 01 00 00 10
> 0A 22 < 00 34 12
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < 00 FF FF BUTTON
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(Button) test value(stop) success,EvtCode:0x206002E0"

# Device SDRs of a sensor device have requests of their own
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < 00 01 01
> 04 22 < 00 34 12
> 04 21  34 12 00 00 00 05 < 00 FF FF CPU_HEADER
> 04 21  34 12 00 00 05 33 < 00 FF FF CPU_TEMP
> 04 26  11 10 00 00 00 00 55 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.000) success,EvtCode:0x206002B0"

# Device SDRs: a cancelled header read, a header without a body, each by its own request
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < 00 01 01
> 04 22 < 00 34 12
> 04 21  34 12 00 00 00 05 < C5
call vos_rand -> 0
sleep 0
> 04 22 < 00 35 12
> 04 21  35 12 00 00 00 05 < 00 FF FF 00 00 51 01 00
fail| Set sensor upper critical failed, error code: 0x4210000

# Device SDRs: their info cannot be had
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < silent
|"Select OutTime \r\n"
fail| Unable to open SDR for reading
fail| Set sensor upper critical failed, error code: 0x40000001

# Device SDRs: their info is refused, or empty; the error code stays what it was
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < C1
fail 042000C1| Err in cmd get sensor sdr info
fail| Unable to open SDR for reading
fail| Set sensor upper critical failed, error code: 0x0

# Device SDRs: an empty info
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < 00 cut 7                            # a completion code and nothing else
fail| Err in cmd get sensor sdr info
fail| Unable to open SDR for reading
fail| Set sensor upper critical failed, error code: 0x0

# Neither a repository nor a sensor device
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
> 06 01 < 00 20 81 01 00 02 3C 57 01 00 00 00
fail| Unable to open SDR for reading
fail| Set sensor upper critical failed, error code: 0x0

# A generic device locator is matched by name, and takes a test value of two bytes
$ cfgtool -t sensor -d test -v Board 258
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 10 10
> 0A 23  34 12 00 00 05 10 < 00 FF FF BOARD
> 30 91  D9 7E 00 0C 00 01 02 01 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(Board) test value(258) success,EvtCode:0x206002E0"

# Of two records with one name the first is meant
$ cfgtool -t sensor -d test -v Button stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 01 00 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < 00 01 00 BUTTON
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(Button) test value(stop) success,EvtCode:0x206002E0"

# A name longer than the ID string is compared with what stands behind it in the record: zeros end it
$ cfgtool -t sensor -d test -v "Button" stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 12
> 0A 23  34 12 00 00 05 12 < 00 FF FF 20 00 31 07 01 14 6F 01 00 00 00 C3 42 75 74 74 6F 6E
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(Button) test value(stop) success,EvtCode:0x206002E0"

# A record that is not kept was read all the same: not found
$ cfgtool -t sensor -d test -v Button stop
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 C0 05
> 0A 23  34 12 00 00 05 05 < 00 FF FF OEM_RECORD
fail| Sensor test failed, error code: 0x40000003

steps open the device's own
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < 00 01 01
> 04 22 < 00 34 12

# Device SDRs: the reservation is refused
$ cfgtool -t sensor -d test -v Button stop
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20  01 < 00 01 01
> 04 22 < C1
fail| Unable to open SDR for reading
fail| Sensor test failed, error code: 0x42200C1

# Device SDRs: a header refused five times
$ cfgtool -t sensor -d test -v Button stop
do open the device's own
> 04 21  34 12 00 00 00 05 < C1
> 04 21  34 12 00 00 00 05 < C1
> 04 21  34 12 00 00 00 05 < C1
> 04 21  34 12 00 00 00 05 < C1
> 04 21  34 12 00 00 00 05 < CB
fail| Sensor test failed, error code: 0x42100CB

# Device SDRs: a body is refused
$ cfgtool -t sensor -d test -v Button stop
do open the device's own
> 04 21  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 12
> 04 21  34 12 00 00 05 12 < D5
fail| Sensor test failed, error code: 0x42100D5

# Device SDRs: a body is cancelled, then too long
$ cfgtool -t sensor -d test -v Button stop
do open the device's own
> 04 21  34 12 00 00 00 05 < 00 FF FF 00 00 51 03 12
> 04 21  34 12 00 00 05 12 < C5
call vos_rand
sleep 0
> 04 22 < 00 77 12
> 04 21  77 12 00 00 05 12 < CA
> 04 21  77 12 00 00 05 12 < CA
> 04 21  77 12 00 00 05 12 < CA
> 04 21  77 12 00 00 05 12 < CA
> 04 21  77 12 00 00 05 0E < 00 FF FF BUTTON[0:14]
> 04 21  77 12 00 00 13 04 < 00 FF FF BUTTON[14:]
> 30 91  D9 7E 00 0C 31 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(Button) test value(stop) success,EvtCode:0x206002E0"
