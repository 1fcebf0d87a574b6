# "/tmp/image.hpm", in hexadecimal: 14 characters.
let IMAGE = 2F 74 6D 70 2F 69 6D 61 67 65 2E 68 70 6D

steps initiate
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 00 0E IMAGE < 00
log 2 Firmware "Initiate upgrade firmware(image.hpm) success,EvtCode:0x20B00400"

steps finished
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 80 03 05 00
|"\r100%\r\n"
done| Update successfully.

steps finish Zentro
> 30 91  D9 7E 00 06 55 < 00
log 2 Firmware "Finish upgrade firmware(Zentro) success,EvtCode:0x20B00B60"

# Without words: the standard image, followed to its end, and the controller reboots
$ cfgtool -d upgrade
$ cfgtool -d upgrade -v 1
$ cfgtool -d upgrade -v /tmp/image.hpm
$ cfgtool -d upgrade -v /tmp/image.hpm 1
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 05 02 01 00
| Updating...
|"\r 5%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 63 02 01 00
|"\r99%"
sleep 500000
do finished
do finish Zentro

# Option 0: nothing is finished, the controller does not reboot
$ cfgtool -d upgrade -v 0
$ cfgtool -d upgrade -v /tmp/image.hpm 0
do initiate
do finished

# The component that was last told before the end names the one that is finished; that of the last answer does not
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 01 02 01 00
| Updating...
|"\r 1%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 02 02 06 00
|"\r 2%"
sleep 500000
do finished
> 30 91  D9 7E 00 06 55 < 00
log 2 Firmware "Finish upgrade firmware(HDD backplane CPLD) success,EvtCode:0x20B00B60"

# Finished at the very first answer: it is the Zentro whose end is recorded
$ cfgtool -d upgrade
do initiate
do finished
do finish Zentro

# A BIOS takes two minutes before it begins
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 00 02 02 00
| Updating...
|"System needs two minutes of preparation time. \r\n"
|"\r 0%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 00 02 02 00
|"\r 0%"
sleep 500000
do finished
> 30 91  D9 7E 00 06 55 < 00
log 2 Firmware "Finish upgrade firmware(BIOS) success,EvtCode:0x20B00B60"

# Bit 7 of the progress shows 100 %, a percent above 99 without it nothing
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 80 02 05 00
| Updating...
|"\r100%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 64 02 05 00
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 7F 02 05 00
sleep 500000
do finished
> 30 91  D9 7E 00 06 55 < 00
log 2 Firmware "Finish upgrade firmware(CPLD) success,EvtCode:0x20B00B60"

# Any other state is waited out in silence, and its component remembered; 9 has no name
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 05 00 09 00
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 05 01 09 00
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 05 FF 09 00
sleep 500000
do finished
> 30 91  D9 7E 00 06 55 < 00
log 2 Firmware "Finish upgrade firmware(unknown) success,EvtCode:0x20B00B60"

# The end is refused: told with the composite code, and recorded; it counts as success all the same
$ cfgtool -d upgrade
do initiate
do finished
> 30 91  D9 7E 00 06 55 < D5
fail| Finish upgrade failed, error code: 0x309106D5
log 2 Firmware "Finish upgrade firmware(Zentro) fail,EvtCode:0x20B00B61"
fail 309106D5| finish upgrade failed!

# No answer to the end
$ cfgtool -d upgrade
do initiate
do finished
> 30 91  D9 7E 00 06 55 < unsent
log 2 Firmware "Finish upgrade firmware(Zentro) fail,EvtCode:0x20B00B61"
fail 40000000| finish upgrade failed!

# The path: 16 characters go in one piece
$ cfgtool -d upgrade -v /tmp/image16.hpm 0
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 00 10 2F 74 6D 70 2F 69 6D 61 67 65 31 36 2E 68 70 6D < 00
log 2 Firmware "Initiate upgrade firmware(image16.hpm) success,EvtCode:0x20B00400"
do finished

# The path: 17 characters go in two pieces
$ cfgtool -d upgrade -v /tmp/image017.hpm 0
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 80 10 2F 74 6D 70 2F 69 6D 61 67 65 30 31 37 2E 68 70 < 00
> 30 91  D9 7E 00 06 AA 00 00 10 01 6D < 00
log 2 Firmware "Initiate upgrade firmware(image017.hpm) success,EvtCode:0x20B00400"
do finished

# The path: 32 characters go in two full pieces
$ cfgtool -d upgrade -v /{a*31} 0
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 80 10 2F 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 91  D9 7E 00 06 AA 00 00 10 10 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
log 2 Firmware "Initiate upgrade firmware({a*31}) success,EvtCode:0x20B00400"
do finished

# The path: 80 characters go in five pieces, and one more is too many
$ cfgtool -d upgrade -v /{a*79}
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 80 10 2F 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 91  D9 7E 00 06 AA 00 00 90 10 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 91  D9 7E 00 06 AA 00 00 A0 10 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 91  D9 7E 00 06 AA 00 00 B0 10 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 91  D9 7E 00 06 AA 00 00 40 10 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
log 2 Firmware "Initiate upgrade firmware({a*79}) success,EvtCode:0x20B00400"
do finished
do finish Zentro

# A path of 81 characters is too long; with an option behind it whether it begins with "/" or not
$ cfgtool -d upgrade -v /{a*80}
$ cfgtool -d upgrade -v /{a*80} 1
$ cfgtool -d upgrade -v {a*81} 1
$ cfgtool -d upgrade -v /{a*80} 7
$ cfgtool -d upgrade -v /{a*10000}
refuse| Invalid length of the file path

# A first piece that is refused ends it: no second one
$ cfgtool -d upgrade -v /tmp/image017.hpm
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 80 10 2F 74 6D 70 2F 69 6D 61 67 65 30 31 37 2E 68 70 < C7
fail 309100C7| Upgrade failed, error code:0xc7
log 2 Firmware "Initiate upgrade firmware fail,EvtCode:0x20B00401"
fail| Update fail.

# Another upgrade is on its way
$ cfgtool -d upgrade
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 00 0E IMAGE < 80
fail 30910080| Upgrade in progress.
log 2 Firmware "Initiate upgrade firmware fail,EvtCode:0x20B00401"
fail| Update fail.

# No answer to the path
$ cfgtool -d upgrade
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 00 0E IMAGE < silent
|"Select OutTime \r\n"
fail 40000001| send upgrade cmd faild!
log 2 Firmware "Initiate upgrade firmware fail,EvtCode:0x20B00401"
fail| Update fail.

# No answer to a second piece
$ cfgtool -d upgrade -v /tmp/image017.hpm
| Please make sure the Zentro is working while upgrading!
> 30 91  D9 7E 00 06 AA 00 00 80 10 2F 74 6D 70 2F 69 6D 61 67 65 30 31 37 2E 68 70 < 00
> 30 91  D9 7E 00 06 AA 00 00 10 01 6D < unsent
fail 40000000| send upgrade cmd faild!
log 2 Firmware "Initiate upgrade firmware fail,EvtCode:0x20B00401"
fail| Update fail.

# The status cannot be had: the code in decimal, and no record
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < silent
|"Select OutTime \r\n"
fail 40000001|"recv ipmi msg  fail, g_error_code=1073741825 \r\n"
fail| Update fail.

# The status names the reason: no file; bit 7 of the code does not count
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 82
fail 30910082| The file does not exist!
fail| Update fail.

# The same reason without bit 7
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 02
fail 30910002| The file does not exist!
fail| Update fail.

# The status names the reason: no image
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 83
fail 30910083| Invalid upgraded file!
fail| Update fail.

# The status names the reason: memory
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 84
fail 30910084| Not enough memory!
fail| Update fail.

# The status names the reason: the host is on
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 88
fail 30910088| Power-on state does not support upgrade!
fail| Update fail.

# Any other reason is shown as the extended error and the component
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < D5 D9 7E 00 05 02 06 A7
fail 309100D5|"Error code: 0xa706 \r\n"
fail| Update fail.

# A reason without anything behind it shows zeros
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < C1 cut 7
fail 309100C1|"Error code: 0x0000 \r\n"
fail| Update fail.

# A reason is one whatever the length, and what the length does not reach reads as zeros
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < D5 D9 7E 00 05 02 06 A7 length 6
fail 309100D5|"Error code: 0x0000 \r\n"
fail| Update fail.

# It may fail in the middle
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 32 02 01 00
| Updating...
|"\r50%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 83
fail 30910083| Invalid upgraded file!
fail| Update fail.

# Words that are neither an image nor an option
$ cfgtool -d upgrade -v
$ cfgtool -d upgrade 1
$ cfgtool -d upgrade -x 1
$ cfgtool -d upgrade -v 2
$ cfgtool -d upgrade -v 01
$ cfgtool -d upgrade -v image.hpm
$ cfgtool -d upgrade -v ""
$ cfgtool -d upgrade -v {a*81}
$ cfgtool -d upgrade -v image.hpm 1
$ cfgtool -d upgrade -v /tmp/image.hpm 2
$ cfgtool -d upgrade -v /tmp/image.hpm ""
$ cfgtool -d upgrade -v 1 1
$ cfgtool -d upgrade -v /tmp/image.hpm 1 1
usage| Usage: cfgtool -d upgrade -v [filepath] [option]
usage| Filepath      e.g.: /tmp/image.hpm
usage| Option are:
usage|     1           reboot BMC after upgrade(default)
usage|     0           don't reboot BMC after upgrade

# A caller without the privilege
uid 502
$ cfgtool -d upgrade
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level

# Ctrl-C does not stop an upgrade on its way
$ cfgtool -d upgrade
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 32 02 01 00
signal INT
| Updating...
|"\r50%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 33 02 01 00
signal INT
|"\r51%"
sleep 500000
do finished
do finish Zentro

# The first state is another: the beginning is told when the update does begin; bit 7 goes before the percent
$ cfgtool -d upgrade -v 0
do initiate
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 00 01 02 00
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 0A 02 05 00
| Updating...
|"\r10%"
sleep 500000
> 30 91  D9 7E 00 06 00 < 00 D9 7E 00 A0 02 02 00
|"\r100%"
sleep 500000
do finished

# No answer to the end, told and recorded
$ cfgtool -d upgrade
do initiate
do finished
> 30 91  D9 7E 00 06 55 < silent
|"Select OutTime \r\n"
log 2 Firmware "Finish upgrade firmware(Zentro) fail,EvtCode:0x20B00B61"
fail 40000001| finish upgrade failed!
