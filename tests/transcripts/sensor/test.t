# Sensor "CPU Temp": number 11h, full record, unsigned, M = 1, B = 0, both exponents 0.
let TOP = 20 00 11 03 01 7F 68 01 01 00 00 00 00 3F 3F             # owner, LUN, number, entity, flags, types, masks
let END = 00 00 00 00 FF 00 00 00 00 00 00 00 00 00 00 00 00       # ranges, thresholds, hysteresis
let NAME = C8 43 50 55 20 54 65 6D 70
let CPU_TEMP = TOP 00 01 00 00 01 00 00 00 00 00 END NAME          # between: format, units, M, B, exponents
let SIGNED = TOP 80 01 00 00 01 00 00 00 00 00 END NAME            # two's complement
let PSU = 20 00 21 0A 01 7F 40 08 6F 00 00 00 00 00 00 C0 00 00 01 00 00 00 00 00 00 00 C3 50 53 55

steps open the repository
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < 00 51 02 00 00 10
> 0A 22 < 00 34 12

steps find CPU Temp
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 01 33
> 0A 23  34 12 00 00 05 33 < 00 FF FF CPU_TEMP

steps find a signed CPU Temp
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 01 33
> 0A 23  34 12 00 00 05 33 < 00 FF FF SIGNED

steps find PSU
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 02 1E
> 0A 23  34 12 00 00 05 1E < 00 FF FF PSU

# A full record: the value is given in its units and sent as one raw byte
$ cfgtool -t sensor -d test -v "CPU Temp" 85.5
do find CPU Temp
> 30 91  D9 7E 00 0C 11 01 56 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(CPU Temp) test value(85.5) success,EvtCode:0x206002E0"

# The record of the log holds the value as it was typed
$ cfgtool -t sensor -d test -v "CPU Temp" 0x10
do find CPU Temp
> 30 91  D9 7E 00 0C 11 01 10 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(CPU Temp) test value(0x10) success,EvtCode:0x206002E0"

# stop: flag 0 and value 0
$ cfgtool -t sensor -d test -v "CPU Temp" stop
do find CPU Temp
> 30 91  D9 7E 00 0C 11 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(CPU Temp) test value(stop) success,EvtCode:0x206002E0"

# Only the very word stops the test; what leaves something behind the number is none
$ cfgtool -t sensor -d test -v "CPU Temp" Stop
$ cfgtool -t sensor -d test -v "CPU Temp" "stop "
$ cfgtool -t sensor -d test -v "CPU Temp" 12abc
$ cfgtool -t sensor -d test -v "CPU Temp" "12 "
$ cfgtool -t sensor -d test -v "CPU Temp" warm
do find CPU Temp
fail| Sensor test failed, error code: 0x40000009

# An empty text leaves nothing behind its number, which is 0
$ cfgtool -t sensor -d test -v "CPU Temp" ""
do find CPU Temp
> 30 91  D9 7E 00 0C 11 01 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(CPU Temp) test value() success,EvtCode:0x206002E0"

# A value that does not fit the raw byte is refused
$ cfgtool -t sensor -d test -v "CPU Temp" 255.4
$ cfgtool -t sensor -d test -v "CPU Temp" 300
do find CPU Temp
fail| Sensor test failed, error code: 0x4000000A

# A signed format has other bounds
$ cfgtool -t sensor -d test -v "CPU Temp" 128
$ cfgtool -t sensor -d test -v "CPU Temp" -129
do find a signed CPU Temp
fail| Sensor test failed, error code: 0x4000000A

# -3.7 in a signed format is -3, not -4
$ cfgtool -t sensor -d test -v "CPU Temp" -3.7
do find a signed CPU Temp
> 30 91  D9 7E 00 0C 11 01 FD < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(CPU Temp) test value(-3.7) success,EvtCode:0x206002E0"

# Any other record takes a raw count of 16 bits, low byte first, cut to an integer
$ cfgtool -t sensor -d test -v PSU 4660.9
do find PSU
> 30 91  D9 7E 00 0C 21 01 34 12 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(PSU) test value(4660.9) success,EvtCode:0x206002E0"

# The highest count
$ cfgtool -t sensor -d test -v PSU 65535
do find PSU
> 30 91  D9 7E 00 0C 21 01 FF FF < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(PSU) test value(65535) success,EvtCode:0x206002E0"

# A count above 65535 is refused, be it only by a fraction
$ cfgtool -t sensor -d test -v PSU 65535.1
$ cfgtool -t sensor -d test -v PSU 65536
$ cfgtool -t sensor -d test -v PSU 1e40
do find PSU
fail| Sensor test failed, error code: 0x4000000A

# A negative count has no unsigned integer: 0 is sent
$ cfgtool -t sensor -d test -v PSU -5
do find PSU
> 30 91  D9 7E 00 0C 21 01 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(PSU) test value(-5) success,EvtCode:0x206002E0"

# stop has no high byte, for any record
$ cfgtool -t sensor -d test -v PSU stop
do find PSU
> 30 91  D9 7E 00 0C 21 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(PSU) test value(stop) success,EvtCode:0x206002E0"

# The controller refuses
$ cfgtool -t sensor -d test -v PSU stop
do find PSU
> 30 91  D9 7E 00 0C 21 00 00 < CB
fail| Sensor test failed, error code: 0x309100CB

# It refuses the value of a full record
$ cfgtool -t sensor -d test -v "CPU Temp" 85.5
do find CPU Temp
> 30 91  D9 7E 00 0C 11 01 56 < C9
fail| Sensor test failed, error code: 0x309100C9

# No answer
$ cfgtool -t sensor -d test -v PSU 5
do find PSU
> 30 91  D9 7E 00 0C 21 01 05 00 < silent
|"Select OutTime \r\n"
fail| Sensor test failed, error code: 0x40000001

# The value is judged only when there is a sensor: an unknown sensor is the error
$ cfgtool -t sensor -d test -v Inlet 12abc
do find PSU
fail| Sensor test failed, error code: 0x40000003

# Exactly a sensor and a value behind -v
$ cfgtool -t sensor -d test
$ cfgtool -t sensor -d test -v
$ cfgtool -t sensor -d test -v PSU
$ cfgtool -t sensor -d test -v PSU 1 2
usage|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
usage| value:  value      start test and set the current value
usage|         stop       stop test

# What is no number for a full record is none for any other
$ cfgtool -t sensor -d test -v PSU 12abc
do find PSU
fail| Sensor test failed, error code: 0x40000009

# Not a number at all fits no integer: 0 is sent
$ cfgtool -t sensor -d test -v PSU nan
do find PSU
> 30 91  D9 7E 00 0C 21 01 00 00 < 00
done| Sensor test successfully.
log 2 Sensor "Set sensor(PSU) test value(nan) success,EvtCode:0x206002E0"

# The test cannot be sent
$ cfgtool -t sensor -d test -v PSU stop
do find PSU
> 30 91  D9 7E 00 0C 21 00 00 < unsent
fail| Sensor test failed, error code: 0x40000000
