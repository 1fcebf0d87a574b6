# trap address: closed, then told, then recorded
$ cfgtool -t trap -d address -v 1 192.168.1.254
> 0C 01  01 00 01                          < 00     # set in progress
> 0C 01  01 D1 D9 7E 00  01 00 C0 A8 01 FE  < 00     # destination, IPv4, first typed octet first
> 0C 01  01 00 00                          < silent  # set complete
|"Select OutTime \r\n"
done| Set trap dest1 address success.
log 2 Alert "Set trap destination1 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: an IPv6 address in network order
$ cfgtool -t trap -d address -v 2 fe80::1
$ cfgtool -t trap -d address -v 2 FE80::0001
$ cfgtool -t trap -d address -v 2 fe80:0:0:0:0:0:0:1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  02 01 FE 80 00 00 00 00 00 00 00 00 00 00 00 00 00 01  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest2 address success.
log 2 Alert "Set trap destination2 IPv6 compatiable address success,EvtCode:0x213007D0"

# trap address: sixteen different bytes, to the last destination
$ cfgtool -t trap -d address -v 4 0102:304:506:708:90A:B0C:D0E:F10
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  04 01 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest4 address success.
log 2 Alert "Set trap destination4 IPv6 compatiable address success,EvtCode:0x213007D0"

# trap address: no address at all is one for IPv6
$ cfgtool -t trap -d address -v 4 ::
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  04 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest4 address success.
log 2 Alert "Set trap destination4 IPv6 compatiable address success,EvtCode:0x213007D0"

# trap address: the limited broadcast may be a destination
$ cfgtool -t trap -d address -v 3 255.255.255.255
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  03 00 FF FF FF FF  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest3 address success.
log 2 Alert "Set trap destination3 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: other spellings of the limited broadcast may not
$ cfgtool -t trap -d address -v 3 255.255.65535
$ cfgtool -t trap -d address -v 3 255.16777215
$ cfgtool -t trap -d address -v 3 0377.255.255.255
$ cfgtool -t trap -d address -v 3 0xFF.255.255.255
$ cfgtool -t trap -d address -v 3 0xff.0xff.0xff.0xff
$ cfgtool -t trap -d address -v 3 '255.255.255.255 '
$ cfgtool -t trap -d address -v 3 '255.255.255.255 x'
refuse| Input parameter format invalid.

# trap address: nor is a plain number an address: the limited broadcast as one
$ cfgtool -t trap -d address -v 3 4294967295
refuse| Input parameter format invalid.

# trap address: no rule for interfaces holds
$ cfgtool -t trap -d address -v 1 0.0.0.0
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 00 00 00 00  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest1 address success.
log 2 Alert "Set trap destination1 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: a group that begins with 0 is octal
$ cfgtool -t trap -d address -v 1 192.168.010.1
$ cfgtool -t trap -d address -v 1 192.168.8.01
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 C0 A8 08 01  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest1 address success.
log 2 Alert "Set trap destination1 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: the last group may have more than three digits
$ cfgtool -t trap -d address -v 1 10.0.0.0012
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 0A 00 00 0A  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest1 address success.
log 2 Alert "Set trap destination1 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: with a dot in it, what is no IPv4 address in any form
$ cfgtool -t trap -d address -v 2 ::ffff:10.0.0.1
$ cfgtool -t trap -d address -v 2 fe80::1.2
$ cfgtool -t trap -d address -v 2 10.0.0.1:162
$ cfgtool -t trap -d address -v 2 10.0.0.256
$ cfgtool -t trap -d address -v 2 10.0.0.4444
$ cfgtool -t trap -d address -v 2 10.0.0.1.1
$ cfgtool -t trap -d address -v 2 10.0.0.1.
$ cfgtool -t trap -d address -v 2 10.0.0.
$ cfgtool -t trap -d address -v 2 10..0.1
$ cfgtool -t trap -d address -v 2 .10.0.1
$ cfgtool -t trap -d address -v 2 ' .10.0.1'
$ cfgtool -t trap -d address -v 2 10.0.0.1/24
$ cfgtool -t trap -d address -v 2 10.0.0.-1
$ cfgtool -t trap -d address -v 2 10.0.0.08
$ cfgtool -t trap -d address -v 2 traps.example
$ cfgtool -t trap -d address -v 2 .
refuse| Input parameter format invalid.

# trap address: without one, what is no IPv6 address
$ cfgtool -t trap -d address -v 2 16909060
$ cfgtool -t trap -d address -v 2 ''
$ cfgtool -t trap -d address -v 2 fe80
$ cfgtool -t trap -d address -v 2 traps
$ cfgtool -t trap -d address -v 2 :
$ cfgtool -t trap -d address -v 2 fe80::1::2
$ cfgtool -t trap -d address -v 2 fe80::12345
$ cfgtool -t trap -d address -v 2 fe80::g
$ cfgtool -t trap -d address -v 2 fe80::1/64
$ cfgtool -t trap -d address -v 2 fe80::1%eth0
$ cfgtool -t trap -d address -v 2 [fe80::1]
$ cfgtool -t trap -d address -v 2 ' fe80::1'
$ cfgtool -t trap -d address -v 2 1:2:3:4:5:6:7
$ cfgtool -t trap -d address -v 2 1:2:3:4:5:6:7:8:9
refuse| Input parameter format invalid.

# trap address: an IPv4 address, but no plain dotted quad: too few groups, no decimal digits, a tail, more than 15 characters
$ cfgtool -t trap -d address -v 2 1.2.3
$ cfgtool -t trap -d address -v 2 1.2
$ cfgtool -t trap -d address -v 2 0x0A.0.0.1
$ cfgtool -t trap -d address -v 2 10.0.0.0x1
$ cfgtool -t trap -d address -v 2 '10.0.0.1 x'
$ cfgtool -t trap -d address -v 2 '10.0.0.1 '
$ cfgtool -t trap -d address -v 2 192.168.100.0100
refuse| Input parameter format error.

# trap address: the group that is too long is told
$ cfgtool -t trap -d address -v 2 0001.2.3.4
refuse| IPCheck:ucDigitNum=4,i =4
refuse| Input parameter format error.

# trap address: the destination is the number its word begins with
$ cfgtool -t trap -d address -v 3 10.0.0.1
$ cfgtool -t trap -d address -v 3x 10.0.0.1
$ cfgtool -t trap -d address -v 3.9 10.0.0.1
$ cfgtool -t trap -d address -v ' 3' 10.0.0.1
$ cfgtool -t trap -d address -v +3 10.0.0.1
$ cfgtool -t trap -d address -v 003 10.0.0.1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  03 00 0A 00 00 01  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest3 address success.
log 2 Alert "Set trap destination3 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: four destinations, from 1 on; told before the address is looked at
$ cfgtool -t trap -d address -v 0 10.0.0.1
$ cfgtool -t trap -d address -v 5 10.0.0.1
$ cfgtool -t trap -d address -v -1 10.0.0.1
$ cfgtool -t trap -d address -v 0x1 10.0.0.1
$ cfgtool -t trap -d address -v x3 10.0.0.1
$ cfgtool -t trap -d address -v dest1 10.0.0.1
$ cfgtool -t trap -d address -v '' 10.0.0.1
$ cfgtool -t trap -d address -v 257 10.0.0.1
$ cfgtool -t trap -d address -v 4294967297 10.0.0.1
$ cfgtool -t trap -d address -v 99999999999999999999 10.0.0.1
$ cfgtool -t trap -d address -v 10.0.0.1 1
$ cfgtool -t trap -d address -v 5 nonsense
usage| Usage: cfgtool -t trap -d address -v <destN(1~4)> <ipaddr>

# trap address: too few words, too many, another first one
$ cfgtool -t trap -d address
$ cfgtool -t trap -d address -v
$ cfgtool -t trap -d address -v 1
$ cfgtool -t trap -d address -v 10.0.0.1
$ cfgtool -t trap -d address 1 10.0.0.1
$ cfgtool -t trap -d address 1 10.0.0.1 -v
$ cfgtool -t trap -d address -x 1 10.0.0.1
$ cfgtool -t trap -d address -V 1 10.0.0.1
$ cfgtool -t trap -d address -vv 1 10.0.0.1
$ cfgtool -t trap -d address -v 1 10.0.0.1 10.0.0.2
usage| Usage: cfgtool -t trap -d address -v <destN(1~4)> <ipaddr>

# trap address: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d address -v 1 10.0.0.1
$ cfgtool -t trap -d address
> 06 44  01 03                             < 00 11 05 01 03
refuse| Insufficient privilege level

# trap address: an administrator may; the first request is the one for the privilege
uid 504
$ cfgtool -t trap -d address -v 1 10.0.0.1
> 06 44  01 04                             < 00 11 05 01 04
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01  < 00
> 0C 01  01 00 00                          < 00
done| Set trap dest1 address success.
log 2 Alert "Set trap destination1 IPv4 compatiable address success,EvtCode:0x213007D0"

# trap address: opening is refused: told, and not closed
$ cfgtool -t trap -d address -v 2 10.0.0.1
> 0C 01  01 00 01                          < 81
fail| Set trap dest2 address failed, error code: 0xC010181

# trap address: opening is not answered: told, and not closed
$ cfgtool -t trap -d address -v 2 fe80::1
> 0C 01  01 00 01                          < silent
|"Select OutTime \r\n"
fail| Set trap dest2 address failed, error code: 0x40000001

# trap address: opening is not sent: told, and not closed
$ cfgtool -t trap -d address -v 2 10.0.0.1
> 0C 01  01 00 01                          < unsent
fail| Set trap dest2 address failed, error code: 0x40000000

# trap address: refused: told, then closed
$ cfgtool -t trap -d address -v 4 10.0.0.1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  04 00 0A 00 00 01  < C9
fail| Set trap dest4 address failed, error code: 0xC01D1C9
> 0C 01  01 00 00                          < silent
|"Select OutTime \r\n"

# trap address: an IPv6 address is refused: told, then closed
$ cfgtool -t trap -d address -v 4 ::1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  04 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01  < 84
fail| Set trap dest4 address failed, error code: 0xC01D184
> 0C 01  01 00 00                          < 00

# trap address: not answered: told, then closed
$ cfgtool -t trap -d address -v 1 10.0.0.1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01  < silent
|"Select OutTime \r\n"
fail| Set trap dest1 address failed, error code: 0x40000001
> 0C 01  01 00 00                          < unsent

# trap address: not sent: told, then closed
$ cfgtool -t trap -d address -v 1 10.0.0.1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01  < unsent
fail| Set trap dest1 address failed, error code: 0x40000000
> 0C 01  01 00 00                          < C1

# trap address: answers of others: told, then closed
$ cfgtool -t trap -d address -v 1 10.0.0.1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01  < sequence
fail| Set trap dest1 address failed, error code: 0x40000002
> 0C 01  01 00 00                          < 00

# trap address: whether the bracket closes makes no difference after a success: refused
$ cfgtool -t trap -d address -v 1 10.0.0.1
> 0C 01  01 00 01                          < 00
> 0C 01  01 D1 D9 7E 00  01 00 0A 00 00 01  < 00
> 0C 01  01 00 00                          < C1
done| Set trap dest1 address success.
log 2 Alert "Set trap destination1 IPv4 compatiable address success,EvtCode:0x213007D0"
