let TEN = 75 75 75 75 75 75 75 75 75 75   # "uuuuuuuuuu"
let SIXTY = TEN TEN TEN TEN TEN TEN

# trap user: the name with its length; there is no bracket, and the record does not hold it
$ cfgtool -t trap -d user -v alice
> 30 93  D9 7E 00  2B 0A 00  05 61 6C 69 63 65  < 00
done| Set trap username alice success.
log 2 Alert "Set SNMP trap username success,EvtCode:0x21300790"

# trap user: any characters
$ cfgtool -t trap -d user -v '%s "é'
> 30 93  D9 7E 00  2B 0A 00  06 25 73 20 22 C3 A9  < 00
done|"Set trap username %s \"\xC3\xA9 success.\r\n"
log 2 Alert "Set SNMP trap username success,EvtCode:0x21300790"

# trap user: an empty name
$ cfgtool -t trap -d user -v ''
> 30 93  D9 7E 00  2B 0A 00  00                 < 00
done| Set trap username  success.
log 2 Alert "Set SNMP trap username success,EvtCode:0x21300790"

# trap user: a name like the option in front of it
$ cfgtool -t trap -d user -v -v
> 30 93  D9 7E 00  2B 0A 00  02 2D 76           < 00
done| Set trap username -v success.
log 2 Alert "Set SNMP trap username success,EvtCode:0x21300790"

# trap user: 240 characters, the longest that a request has room for
$ cfgtool -t trap -d user -v {u*240}
> 30 93  D9 7E 00  2B 0A 00  F0 SIXTY SIXTY SIXTY SIXTY  < 00
done|"Set trap username {u*240} success.\r\n"
log 2 Alert "Set SNMP trap username success,EvtCode:0x21300790"

# trap user: longer names are refused whole, whatever their length is in eight bits
$ cfgtool -t trap -d user -v {u*241}
$ cfgtool -t trap -d user -v {u*256}
$ cfgtool -t trap -d user -v {u*261}
usage| Usage: cfgtool -t trap -d user -v <username>

# trap user: too few words, too many, another first one
$ cfgtool -t trap -d user
$ cfgtool -t trap -d user -v
$ cfgtool -t trap -d user alice
$ cfgtool -t trap -d user alice -v
$ cfgtool -t trap -d user -x alice
$ cfgtool -t trap -d user -V alice
$ cfgtool -t trap -d user -v alice bob
usage| Usage: cfgtool -t trap -d user -v <username>

# trap user: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d user -v alice
$ cfgtool -t trap -d user
> 06 44  01 03                                  < 00 11 05 01 03
refuse| Insufficient privilege level

# trap user: refused; the second byte of the maker's number stands in the code
$ cfgtool -t trap -d user -v alice
> 30 93  D9 7E 00  2B 0A 00  05 61 6C 69 63 65  < CC
fail| Set trap username alice failed, error code: 0x30937ECC

# trap user: not answered: told without a blank
$ cfgtool -t trap -d user -v alice
> 30 93  D9 7E 00  2B 0A 00  05 61 6C 69 63 65  < silent
|"Select OutTime \r\n"
fail| Set trap username alice failed,error code: 0x40000001

# trap user: not sent: told without a blank
$ cfgtool -t trap -d user -v alice
> 30 93  D9 7E 00  2B 0A 00  05 61 6C 69 63 65  < unsent
fail| Set trap username alice failed,error code: 0x40000000
