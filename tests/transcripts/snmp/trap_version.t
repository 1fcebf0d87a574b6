# trap version: closed, then told, then recorded
$ cfgtool -t trap -d version -v V1
> 0C 01  01 00 01            < 00      # set in progress
> 0C 01  01 C3 D9 7E 00  01  < 00
> 0C 01  01 00 00            < silent  # set complete
|"Select OutTime \r\n"
done| Set trap V1 success.
log 2 Alert "Set SNMP trap version(V1) success,EvtCode:0x21300790"

# trap version: V2C
$ cfgtool -t trap -d version -v V2C
> 0C 01  01 00 01            < 00
> 0C 01  01 C3 D9 7E 00  02  < 00
> 0C 01  01 00 00            < C1      # makes no difference
done| Set trap V2C success.
log 2 Alert "Set SNMP trap version(V2C) success,EvtCode:0x21300790"

# trap version: in small letters: told in capitals, recorded as typed
$ cfgtool -t trap -d version -v v3
> 0C 01  01 00 01            < 00
> 0C 01  01 C3 D9 7E 00  03  < 00
> 0C 01  01 00 00            < 00
done| Set trap V3 success.
log 2 Alert "Set SNMP trap version(v3) success,EvtCode:0x21300790"

# trap version: in letters of both kinds
$ cfgtool -t trap -d version -v v2C
> 0C 01  01 00 01            < 00
> 0C 01  01 C3 D9 7E 00  02  < 00
> 0C 01  01 00 00            < 00
done| Set trap V2C success.
log 2 Alert "Set SNMP trap version(v2C) success,EvtCode:0x21300790"

# trap version: no such version
$ cfgtool -t trap -d version -v V2
$ cfgtool -t trap -d version -v V
$ cfgtool -t trap -d version -v V4
$ cfgtool -t trap -d version -v V0
$ cfgtool -t trap -d version -v 1
$ cfgtool -t trap -d version -v V1x
$ cfgtool -t trap -d version -v V2CC
$ cfgtool -t trap -d version -v ' V1'
$ cfgtool -t trap -d version -v 'V3 '
$ cfgtool -t trap -d version -v ''
usage| Usage: cfgtool -t trap -d version -v <V1|V2C|V3>

# trap version: too few words, too many, another first one
$ cfgtool -t trap -d version
$ cfgtool -t trap -d version -v
$ cfgtool -t trap -d version V1
$ cfgtool -t trap -d version V1 -v
$ cfgtool -t trap -d version -x V1
$ cfgtool -t trap -d version -V V1
$ cfgtool -t trap -d version -v V1 V3
usage| Usage: cfgtool -t trap -d version -v <V1|V2C|V3>

# trap version: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d version -v V3
$ cfgtool -t trap -d version
> 06 44  01 03               < 00 11 05 01 03
refuse| Insufficient privilege level

# trap version: opening is refused: told, and not closed
$ cfgtool -t trap -d version -v V3
> 0C 01  01 00 01            < 81
fail| Set trap version, error code: 0xC010181

# trap version: opening is not answered: told, and not closed
$ cfgtool -t trap -d version -v V3
> 0C 01  01 00 01            < silent
|"Select OutTime \r\n"
fail| Set trap version, error code: 0x40000001

# trap version: opening is not sent: told, and not closed
$ cfgtool -t trap -d version -v V3
> 0C 01  01 00 01            < unsent
fail| Set trap version, error code: 0x40000000

# trap version: refused: told in capitals, then closed
$ cfgtool -t trap -d version -v v2c
> 0C 01  01 00 01            < 00
> 0C 01  01 C3 D9 7E 00  02  < 84
fail| Set trap V2C failed, error code: 0xC01C384
> 0C 01  01 00 00            < silent
|"Select OutTime \r\n"

# trap version: not answered: told in capitals and without a blank, then closed
$ cfgtool -t trap -d version -v v1
> 0C 01  01 00 01            < 00
> 0C 01  01 C3 D9 7E 00  01  < silent
|"Select OutTime \r\n"
fail| Set trap V1 failed,error code: 0x40000001
> 0C 01  01 00 00            < C1

# trap version: not sent: told in capitals and without a blank, then closed
$ cfgtool -t trap -d version -v v3
> 0C 01  01 00 01            < 00
> 0C 01  01 C3 D9 7E 00  03  < unsent
fail| Set trap V3 failed,error code: 0x40000000
> 0C 01  01 00 00            < 00
