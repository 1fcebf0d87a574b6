# Sensor "CPU Temp": number 11h, full record, unsigned, M = 1, B = 0, both exponents 0.
let TOP = 20 00 11 03 01 7F 68 01 01 00 00 00 00 3F 3F             # owner, LUN, number, entity, flags, types, masks
let END = 00 00 00 00 FF 00 00 00 00 00 00 00 00 00 00 00 00       # ranges, thresholds, hysteresis
let NAME = C8 43 50 55 20 54 65 6D 70
let CPU_TEMP = TOP 00 01 00 00 01 00 00 00 00 00 END NAME          # between: format, units, M, B, exponents
let PSU = 20 00 21 0A 01 7F 40 08 6F 00 00 00 00 00 00 C0 00 00 01 00 00 00 00 00 00 00 C3 50 53 55

steps open the repository
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < 00 51 02 00 00 10
> 0A 22 < 00 34 12

steps find CPU Temp
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 01 33
> 0A 23  34 12 00 00 05 33 < 00 FF FF CPU_TEMP

steps find PSU
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 02 1E
> 0A 23  34 12 00 00 05 1E < 00 FF FF PSU

# positivehysteresis: the new count is set, the other one stays as it was just read
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 16
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 0x10
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 0X10
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 10 03 < 00
done| Set sensor positive hysteresis successfully.
log 2 Sensor "Set sensor(CPU Temp) positive hysteresis(16) success,EvtCode:0x20600260"

# positivehysteresis: the counts cannot be read
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < silent
|"Select OutTime \r\n"
fail| Set sensor positive hysteresis failed, error code: 0x40000001

# positivehysteresis: reading the counts is refused
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < CB
fail| Set sensor positive hysteresis failed, error code: 0x42500CB

# positivehysteresis: setting is refused
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 10 03 < CD
fail| Set sensor positive hysteresis failed, error code: 0x42400CD

# positivehysteresis: setting cannot be sent
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 10 03 < unsent
fail| Set sensor positive hysteresis failed, error code: 0x40000000

# positivehysteresis: a count above 255, negative or no number at all is out of range, before anything is asked
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 256
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 0x100
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" -1
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 12abc
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 1.5
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" much
refuse| Input parameter out of range.

# positivehysteresis: the compact record has no hysteresis to set
$ cfgtool -t sensor -d positivehysteresis -v PSU 16
do find PSU
fail| Set sensor positive hysteresis failed, error code: 0x40000008

# positivehysteresis: no such sensor
$ cfgtool -t sensor -d positivehysteresis -v Inlet 16
do find PSU
fail| Set sensor positive hysteresis failed, error code: 0x40000003

# positivehysteresis: exactly a sensor and a count behind -v
$ cfgtool -t sensor -d positivehysteresis
$ cfgtool -t sensor -d positivehysteresis -v
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp"
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 1 2
usage| Usage: cfgtool -t sensor -d positivehysteresis -v <sensorname>  <positivehysteresisval>

# negativehysteresis: the new count is set, the other one stays as it was just read
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 16
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 0x10
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 0X10
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 02 10 < 00
done| Set sensor negative hysteresis successfully.
log 2 Sensor "Set sensor(CPU Temp) negative hysteresis(16) success,EvtCode:0x20600250"

# negativehysteresis: the counts cannot be read
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < silent
|"Select OutTime \r\n"
fail| Set sensor negative hysteresis failed, error code: 0x40000001

# negativehysteresis: reading the counts is refused
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < CB
fail| Set sensor negative hysteresis failed, error code: 0x42500CB

# negativehysteresis: setting is refused
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 02 10 < CD
fail| Set sensor negative hysteresis failed, error code: 0x42400CD

# negativehysteresis: setting cannot be sent
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 02 10 < unsent
fail| Set sensor negative hysteresis failed, error code: 0x40000000

# negativehysteresis: a count above 255, negative or no number at all is out of range, before anything is asked
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 256
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 0x100
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" -1
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 12abc
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 1.5
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" much
refuse| Input parameter out of range.

# negativehysteresis: the compact record has no hysteresis to set
$ cfgtool -t sensor -d negativehysteresis -v PSU 16
do find PSU
fail| Set sensor negative hysteresis failed, error code: 0x40000008

# negativehysteresis: no such sensor
$ cfgtool -t sensor -d negativehysteresis -v Inlet 16
do find PSU
fail| Set sensor negative hysteresis failed, error code: 0x40000003

# negativehysteresis: exactly a sensor and a count behind -v
$ cfgtool -t sensor -d negativehysteresis
$ cfgtool -t sensor -d negativehysteresis -v
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp"
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 1 2
usage| Usage: cfgtool -t sensor -d negativehysteresis -v <sensorname>  <negativehysteresisval>

# The ends of the count: 0 and 255
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 255
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF FF 03 < 00
done| Set sensor positive hysteresis successfully.
log 2 Sensor "Set sensor(CPU Temp) positive hysteresis(255) success,EvtCode:0x20600260"

# 0 is a count too
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 0
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 02 00 < 00
done| Set sensor negative hysteresis successfully.
log 2 Sensor "Set sensor(CPU Temp) negative hysteresis(0) success,EvtCode:0x20600250"

# An answer that holds no counts reads as zeros
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 1
do find CPU Temp
> 04 25  11 FF < 00 cut 7
> 04 24  11 FF 01 00 < 00
done| Set sensor positive hysteresis successfully.
log 2 Sensor "Set sensor(CPU Temp) positive hysteresis(1) success,EvtCode:0x20600260"

# An empty count is 0
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" ""
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 00 03 < 00
done| Set sensor positive hysteresis successfully.
log 2 Sensor "Set sensor(CPU Temp) positive hysteresis(0) success,EvtCode:0x20600260"

# Setting is not answered
$ cfgtool -t sensor -d negativehysteresis -v "CPU Temp" 16
do find CPU Temp
> 04 25  11 FF < 00 02 03
> 04 24  11 FF 02 10 < silent
|"Select OutTime \r\n"
fail| Set sensor negative hysteresis failed, error code: 0x40000001
