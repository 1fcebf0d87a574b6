# trap port: recorded, then closed, then told
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00   # set in progress
> 0C 01  01 C0 D9 7E 00  01 A2 00  < 00   # destination, port, low byte first
log 2 Alert "Set trap destination1 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < 00   # set complete
done| Set trap port success.

# trap port: the highest
$ cfgtool -t trap -d port -v 4 65535
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  04 FF FF  < 00
log 2 Alert "Set trap destination4 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < 00
done| Set trap port success.

# trap port: the lowest
$ cfgtool -t trap -d port -v 2 1
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  02 01 00  < 00
log 2 Alert "Set trap destination2 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < 00
done| Set trap port success.

# trap port: both words are the number they begin with
$ cfgtool -t trap -d port -v 3 258
$ cfgtool -t trap -d port -v 3x 258
$ cfgtool -t trap -d port -v 3 258x
$ cfgtool -t trap -d port -v ' 3' ' 258'
$ cfgtool -t trap -d port -v +3 +258
$ cfgtool -t trap -d port -v 03 0258
$ cfgtool -t trap -d port -v '3 4' '258 1'
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  03 02 01  < 00
log 2 Alert "Set trap destination3 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < 00
done| Set trap port success.

# trap port: a close that is refused leaves a port that is written, recorded and not told
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  01 A2 00  < 00
log 2 Alert "Set trap destination1 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < C1
fail 0C0100C1|""

# trap port: a close that is not answered does too
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  01 A2 00  < 00
log 2 Alert "Set trap destination1 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < silent
|"Select OutTime \r\n"
fail 40000001|""

# trap port: and one that is not sent
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  01 A2 00  < 00
log 2 Alert "Set trap destination1 port success,EvtCode:0x213007E0"
> 0C 01  01 00 00                 < unsent
fail 40000000|""

# trap port: a dot in either word
$ cfgtool -t trap -d port -v 1.0 162
$ cfgtool -t trap -d port -v 1 162.5
$ cfgtool -t trap -d port -v 1 162.
$ cfgtool -t trap -d port -v . 162
usage| Usage: cfgtool -t trap -d port -v <destN(1~4)> <portvalue(1~65535)>

# trap port: no such destination
$ cfgtool -t trap -d port -v 0 162
$ cfgtool -t trap -d port -v 5 162
$ cfgtool -t trap -d port -v -1 162
$ cfgtool -t trap -d port -v 0x1 162
$ cfgtool -t trap -d port -v x1 162
$ cfgtool -t trap -d port -v '' 162
$ cfgtool -t trap -d port -v 257 162
$ cfgtool -t trap -d port -v 4294967297 162
usage| Usage: cfgtool -t trap -d port -v <destN(1~4)> <portvalue(1~65535)>

# trap port: no such port
$ cfgtool -t trap -d port -v 1 0
$ cfgtool -t trap -d port -v 1 65536
$ cfgtool -t trap -d port -v 1 65698
$ cfgtool -t trap -d port -v 1 -1
$ cfgtool -t trap -d port -v 1 -162
$ cfgtool -t trap -d port -v 1 0xA2
$ cfgtool -t trap -d port -v 1 x162
$ cfgtool -t trap -d port -v 1 ''
$ cfgtool -t trap -d port -v 1 4294967458
$ cfgtool -t trap -d port -v 1 -4294967134
$ cfgtool -t trap -d port -v 1 99999999999999999999
usage| Usage: cfgtool -t trap -d port -v <destN(1~4)> <portvalue(1~65535)>

# trap port: too few words, too many, another first one
$ cfgtool -t trap -d port
$ cfgtool -t trap -d port -v
$ cfgtool -t trap -d port -v 1
$ cfgtool -t trap -d port 1 162
$ cfgtool -t trap -d port 1 162 -v
$ cfgtool -t trap -d port -x 1 162
$ cfgtool -t trap -d port -V 1 162
$ cfgtool -t trap -d port -v 1 162 163
usage| Usage: cfgtool -t trap -d port -v <destN(1~4)> <portvalue(1~65535)>

# trap port: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d port -v 1 162
$ cfgtool -t trap -d port
> 06 44  01 03                    < 00 11 05 01 03
refuse| Insufficient privilege level

# trap port: opening is refused: told, and not closed
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 81
fail| Set SNMP trap port failed, error code: 0xC010181

# trap port: opening is not answered: told, and not closed
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < silent
|"Select OutTime \r\n"
fail| Set SNMP trap port failed, error code: 0x40000001

# trap port: opening is not sent: told, and not closed
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < unsent
fail| Set SNMP trap port failed, error code: 0x40000000

# trap port: refused: told, then closed
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  01 A2 00  < 80
fail| Set trap port failed, error code: 0xC01C080
> 0C 01  01 00 00                 < silent
|"Select OutTime \r\n"

# trap port: not answered: told without a blank, then closed
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  01 A2 00  < silent
|"Select OutTime \r\n"
fail| Set trap port failed,error code: 0x40000001
> 0C 01  01 00 00                 < C1

# trap port: not sent: told without a blank, then closed
$ cfgtool -t trap -d port -v 1 162
> 0C 01  01 00 01                 < 00
> 0C 01  01 C0 D9 7E 00  01 A2 00  < unsent
fail| Set trap port failed,error code: 0x40000000
> 0C 01  01 00 00                 < 00
