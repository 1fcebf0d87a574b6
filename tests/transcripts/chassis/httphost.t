# Up to 18 characters go in one piece: recorded, then told
$ cfgtool -d httphost -v bmc.example
> 30 93  D9 7E 00 05 18 00 00 0B 62 6D 63 2E 65 78 61 6D 70 6C 65 < 00
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# 18 characters are one piece still
$ cfgtool -d httphost -v {a*18}
> 30 93  D9 7E 00 05 18 00 00 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# 19 are two
$ cfgtool -d httphost -v {a*19}
> 30 93  D9 7E 00 05 18 01 00 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 93  D9 7E 00 05 18 00 12 01 61 < 00
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# 36 are two full ones
$ cfgtool -d httphost -v {a*36}
> 30 93  D9 7E 00 05 18 01 00 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 93  D9 7E 00 05 18 00 12 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# 37 are three
$ cfgtool -d httphost -v {a*36}b
> 30 93  D9 7E 00 05 18 01 00 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 93  D9 7E 00 05 18 01 12 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 93  D9 7E 00 05 18 00 24 01 62 < 00
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# 18 times "a".
let A18 = 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61

steps piece
> 30 93  D9 7E 00 05 18 01 {N*18:02X} 12 A18 < 00

# 255 characters are the most
$ cfgtool -d httphost -v {a*255}
do piece for 0..13
> 30 93  D9 7E 00 05 18 00 FC 03 61 61 61 < 00
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# 256 are too many
$ cfgtool -d httphost -v {a*256}
$ cfgtool -d httphost -v {a*100000}
refuse| invalid httphost length, it must be less than 256 characters

# An empty value sends nothing and counts as success
$ cfgtool -d httphost -v ""
log 1 WebUI "Set httphost success,EvtCode:0x10301570"
done| Set httphost success.

# A refused piece ends it; the code shows the second byte of the enterprise number
$ cfgtool -d httphost -v {a*19}
> 30 93  D9 7E 00 05 18 01 00 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < D5
fail|"Set httphost {a*19} failed, error code: 0x30937ED5\r\n"

# No answer to the second piece
$ cfgtool -d httphost -v {a*19}
> 30 93  D9 7E 00 05 18 01 00 12 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 < 00
> 30 93  D9 7E 00 05 18 00 12 01 61 < silent
|"Select OutTime \r\n"
fail|"Set httphost {a*19} failed, error code: 0x40000001\r\n"

# "-v" and one word
$ cfgtool -d httphost
$ cfgtool -d httphost -v
$ cfgtool -d httphost bmc.example
$ cfgtool -d httphost -v bmc example
usage| Usage: cfgtool -d httphost -v <value>

# A caller without the privilege
uid 502
$ cfgtool -d httphost -v bmc.example
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level
