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

# lowernoncritical: the value goes into its own slot, rounded half up, and the mask names it
$ cfgtool -t sensor -d lowernoncritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 01 56 00 00 00 00 00 < 00
done| Set sensor lower noncritical successfully.
log 2 Sensor "Set sensor(CPU Temp) lower non-critical threshold(85.500) success,EvtCode:0x20600270"

# lowernoncritical: a refusal is shown with request and completion code
$ cfgtool -t sensor -d lowernoncritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 01 56 00 00 00 00 00 < CD
fail| Set sensor lower noncritical failed, error code: 0x42600CD

# lowernoncritical: no answer
$ cfgtool -t sensor -d lowernoncritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 01 56 00 00 00 00 00 < silent
|"Select OutTime \r\n"
fail| Set sensor lower noncritical failed, error code: 0x40000001

# lowernoncritical: exactly a sensor and a value behind -v
$ cfgtool -t sensor -d lowernoncritical
$ cfgtool -t sensor -d lowernoncritical -v
$ cfgtool -t sensor -d lowernoncritical -v "CPU Temp"
$ cfgtool -t sensor -d lowernoncritical -v "CPU Temp" 85 86
usage| Usage: cfgtool -t sensor -d lowernoncritical -v <sensorname>  <lowernoncriticalval>

# lowercritical: the value goes into its own slot, rounded half up, and the mask names it
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 02 00 56 00 00 00 00 < 00
done| Set sensor lower critical successfully.
log 2 Sensor "Set sensor(CPU Temp) lower critical threshold(85.500) success,EvtCode:0x20600280"

# lowercritical: a refusal is shown with request and completion code
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 02 00 56 00 00 00 00 < CD
fail| Set sensor lower critical failed, error code: 0x42600CD

# lowercritical: no answer
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 02 00 56 00 00 00 00 < silent
|"Select OutTime \r\n"
fail| Set sensor lower critical failed, error code: 0x40000001

# lowercritical: exactly a sensor and a value behind -v
$ cfgtool -t sensor -d lowercritical
$ cfgtool -t sensor -d lowercritical -v
$ cfgtool -t sensor -d lowercritical -v "CPU Temp"
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 85 86
usage| Usage: cfgtool -t sensor -d lowercritical -v <sensorname>  <lowercriticalval>

# lowernonrecoverable: the value goes into its own slot, rounded half up, and the mask names it
$ cfgtool -t sensor -d lowernonrecoverable -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 04 00 00 56 00 00 00 < 00
done| Set sensor lower nonrecoverable successfully.
log 2 Sensor "Set sensor(CPU Temp) lower non-recoverable threshold(85.500) success,EvtCode:0x20600290"

# lowernonrecoverable: a refusal is shown with request and completion code
$ cfgtool -t sensor -d lowernonrecoverable -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 04 00 00 56 00 00 00 < CD
fail| Set sensor lower nonrecoverable failed, error code: 0x42600CD

# lowernonrecoverable: no answer
$ cfgtool -t sensor -d lowernonrecoverable -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 04 00 00 56 00 00 00 < silent
|"Select OutTime \r\n"
fail| Set sensor lower nonrecoverable failed, error code: 0x40000001

# lowernonrecoverable: exactly a sensor and a value behind -v
$ cfgtool -t sensor -d lowernonrecoverable
$ cfgtool -t sensor -d lowernonrecoverable -v
$ cfgtool -t sensor -d lowernonrecoverable -v "CPU Temp"
$ cfgtool -t sensor -d lowernonrecoverable -v "CPU Temp" 85 86
usage| Usage: cfgtool -t sensor -d lowernonrecoverable -v <sensorname>  <lowernonrecoverableval>

# uppernoncritical: the value goes into its own slot, rounded half up, and the mask names it
$ cfgtool -t sensor -d uppernoncritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 08 00 00 00 56 00 00 < 00
done| Set sensor upper noncritical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper non-critical threshold(85.500) success,EvtCode:0x206002A0"

# uppernoncritical: a refusal is shown with request and completion code
$ cfgtool -t sensor -d uppernoncritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 08 00 00 00 56 00 00 < CD
fail| Set sensor upper noncritical failed, error code: 0x42600CD

# uppernoncritical: no answer
$ cfgtool -t sensor -d uppernoncritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 08 00 00 00 56 00 00 < silent
|"Select OutTime \r\n"
fail| Set sensor upper noncritical failed, error code: 0x40000001

# uppernoncritical: exactly a sensor and a value behind -v
$ cfgtool -t sensor -d uppernoncritical
$ cfgtool -t sensor -d uppernoncritical -v
$ cfgtool -t sensor -d uppernoncritical -v "CPU Temp"
$ cfgtool -t sensor -d uppernoncritical -v "CPU Temp" 85 86
usage| Usage: cfgtool -t sensor -d uppernoncritical -v <sensorname>  <uppernoncriticalval>

# uppercritical: the value goes into its own slot, rounded half up, and the mask names it
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 10 00 00 00 00 56 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(85.500) success,EvtCode:0x206002B0"

# uppercritical: a refusal is shown with request and completion code
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 10 00 00 00 00 56 00 < CD
fail| Set sensor upper critical failed, error code: 0x42600CD

# uppercritical: no answer
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 10 00 00 00 00 56 00 < silent
|"Select OutTime \r\n"
fail| Set sensor upper critical failed, error code: 0x40000001

# uppercritical: exactly a sensor and a value behind -v
$ cfgtool -t sensor -d uppercritical
$ cfgtool -t sensor -d uppercritical -v
$ cfgtool -t sensor -d uppercritical -v "CPU Temp"
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85 86
usage| Usage: cfgtool -t sensor -d uppercritical -v <sensorname>  <uppercriticalval>

# uppernonrecoverable: the value goes into its own slot, rounded half up, and the mask names it
$ cfgtool -t sensor -d uppernonrecoverable -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 20 00 00 00 00 00 56 < 00
done| Set sensor upper nonrecoverable successfully.
log 2 Sensor "Set sensor(CPU Temp) upper non-recoverable threshold(85.500) success,EvtCode:0x206002C0"

# uppernonrecoverable: a refusal is shown with request and completion code
$ cfgtool -t sensor -d uppernonrecoverable -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 20 00 00 00 00 00 56 < CD
fail| Set sensor upper nonrecoverable failed, error code: 0x42600CD

# uppernonrecoverable: no answer
$ cfgtool -t sensor -d uppernonrecoverable -v "CPU Temp" 85.5
do find CPU Temp
> 04 26  11 20 00 00 00 00 00 56 < silent
|"Select OutTime \r\n"
fail| Set sensor upper nonrecoverable failed, error code: 0x40000001

# uppernonrecoverable: exactly a sensor and a value behind -v
$ cfgtool -t sensor -d uppernonrecoverable
$ cfgtool -t sensor -d uppernonrecoverable -v
$ cfgtool -t sensor -d uppernonrecoverable -v "CPU Temp"
$ cfgtool -t sensor -d uppernonrecoverable -v "CPU Temp" 85 86
usage| Usage: cfgtool -t sensor -d uppernonrecoverable -v <sensorname>  <uppernonrecoverableval>

# A threshold that cannot be sent
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
do find CPU Temp
> 04 26  11 10 00 00 00 00 55 00 < unsent
fail| Set sensor upper critical failed, error code: 0x40000000

# A sensor of another name: none is set
$ cfgtool -t sensor -d uppercritical -v "Inlet" 85
do find CPU Temp
fail| Set sensor upper critical failed, error code: 0x40000003

# A value that is no number counts as 0
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" warm
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" ""
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 0
do find CPU Temp
> 04 26  11 10 00 00 00 00 00 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(0.000) success,EvtCode:0x206002B0"

# What stands behind a number is not looked at
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 12abc
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 0xC
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 1.2e1x
do find CPU Temp
> 04 26  11 10 00 00 00 00 0C 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(12.000) success,EvtCode:0x206002B0"

# Too large for the raw byte: refused before it is rounded down
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 255.4
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 255.6
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 256
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 1e300
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" inf
do find CPU Temp
fail| Set sensor upper critical failed, error code: 0x4000000A

# 254.6 is rounded to the last that fits
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 254.6
do find CPU Temp
> 04 26  11 10 00 00 00 00 FF 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(254.600) success,EvtCode:0x206002B0"

# An unsigned format has no lower bound: the low 8 bits of what is left of a negative value are sent
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" -3.7
do find CPU Temp
> 04 26  11 10 00 00 00 00 FD 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(-3.700) success,EvtCode:0x206002B0"

# Far below: -300 is FED4h in 16 bits, D4h is sent
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" -300
do find CPU Temp
> 04 26  11 10 00 00 00 00 D4 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(-300.000) success,EvtCode:0x206002B0"

# What fits no integer at all is sent as 0
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" nan
do find CPU Temp
> 04 26  11 10 00 00 00 00 00 00 < 00
done| Set sensor upper critical successfully.
log 2 Sensor "Set sensor(CPU Temp) upper critical threshold(nan) success,EvtCode:0x206002B0"

# A signed format: a negative value is cut towards zero
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" -3.7
do find a signed CPU Temp
> 04 26  11 02 00 FD 00 00 00 00 < 00
done| Set sensor lower critical successfully.
log 2 Sensor "Set sensor(CPU Temp) lower critical threshold(-3.700) success,EvtCode:0x20600280"

# A signed format is refused above 127 and below -128
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 127.3
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 127.5
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" -128.1
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" -129
do find a signed CPU Temp
fail| Set sensor lower critical failed, error code: 0x4000000A

# The ends of a signed format fit: 126.5 is rounded to 127
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" 126.5
do find a signed CPU Temp
> 04 26  11 02 00 7F 00 00 00 00 < 00
done| Set sensor lower critical successfully.
log 2 Sensor "Set sensor(CPU Temp) lower critical threshold(126.500) success,EvtCode:0x20600280"

# The lowest of a signed format
$ cfgtool -t sensor -d lowercritical -v "CPU Temp" -128
do find a signed CPU Temp
> 04 26  11 02 00 80 00 00 00 00 < 00
done| Set sensor lower critical successfully.
log 2 Sensor "Set sensor(CPU Temp) lower critical threshold(-128.000) success,EvtCode:0x20600280"

# A compact record has no factors to convert with
$ cfgtool -t sensor -d uppercritical -v PSU 5
do find PSU
fail| Set sensor upper critical failed, error code: 0x40000008

# A caller without the privilege: nothing is looked up, and the words are not looked at either
uid 503
$ cfgtool -t sensor -d uppercritical -v "CPU Temp" 85
$ cfgtool -t sensor -d lowernoncritical
$ cfgtool -t sensor -d positivehysteresis -v "CPU Temp" 300
$ cfgtool -t sensor -d test -v "CPU Temp"
> 06 44  01 03 < 00 11 04 01 12
refuse| Insufficient privilege level
