# trap mode: event codes, however the 0 is written; there is no bracket
$ cfgtool -t trap -d mode -v 0
$ cfgtool -t trap -d mode -v 0x0
$ cfgtool -t trap -d mode -v 00
$ cfgtool -t trap -d mode -v -0
$ cfgtool -t trap -d mode -v ''
> 30 93  D9 7E 00  15 01 11 00 00 01  00  < 00
done| Set trap mode Event Code success.
log 2 Alert "Set SNMP trap mode(Event Code) success,EvtCode:0x21300CF0"

# trap mode: object identifiers, however the 1 is written
$ cfgtool -t trap -d mode -v 1
$ cfgtool -t trap -d mode -v 0x1
$ cfgtool -t trap -d mode -v 0X01
$ cfgtool -t trap -d mode -v 01
$ cfgtool -t trap -d mode -v +1
$ cfgtool -t trap -d mode -v ' 1'
> 30 93  D9 7E 00  15 01 11 00 00 01  01  < 00
done| Set trap mode OID success.
log 2 Alert "Set SNMP trap mode(OID) success,EvtCode:0x21300CF0"

# trap mode: no such mode, no number, too few words, too many, another first one
$ cfgtool -t trap -d mode -v 2
$ cfgtool -t trap -d mode -v -1
$ cfgtool -t trap -d mode -v 1x
$ cfgtool -t trap -d mode -v '1 '
$ cfgtool -t trap -d mode -v 1.0
$ cfgtool -t trap -d mode -v 0x
$ cfgtool -t trap -d mode -v 0x2
$ cfgtool -t trap -d mode -v OID
$ cfgtool -t trap -d mode -v 256
$ cfgtool -t trap -d mode -v 4294967297
$ cfgtool -t trap -d mode
$ cfgtool -t trap -d mode -v
$ cfgtool -t trap -d mode 1
$ cfgtool -t trap -d mode 1 -v
$ cfgtool -t trap -d mode -x 1
$ cfgtool -t trap -d mode -v 1 1
usage| Usage: cfgtool -t trap -d  mode -v <option>
usage| Options are:
usage|"    0     Event Code  \r\n"
usage|"    1     OID  \r\n"

# trap mode: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d mode -v 1
$ cfgtool -t trap -d mode
> 06 44  01 03                            < 00 11 05 01 03
refuse| Insufficient privilege level

# trap mode: refused: told by number; the second byte of the maker's number stands in the code
$ cfgtool -t trap -d mode -v 0
> 30 93  D9 7E 00  15 01 11 00 00 01  00  < CC
fail| Set trap mode 0 failed, error code: 0x30937ECC

# trap mode: not answered: told by number and without a blank
$ cfgtool -t trap -d mode -v 1
> 30 93  D9 7E 00  15 01 11 00 00 01  01  < silent
|"Select OutTime \r\n"
fail| Set trap mode 1 failed,error code: 0x40000001

# trap mode: not sent: told by number and without a blank
$ cfgtool -t trap -d mode -v 1
> 30 93  D9 7E 00  15 01 11 00 00 01  01  < unsent
fail| Set trap mode 1 failed,error code: 0x40000000
