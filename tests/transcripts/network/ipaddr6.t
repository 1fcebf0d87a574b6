# ipaddr6: address and prefix length are set one after the other, each with its record; the address goes last byte first
$ cfgtool -t eth0 -d ipaddr6 -v 2001:db8:1:2:3:4:5:6/64
> 0C 01  01 00 01           < 00         # set in progress
> 0C 01  01 CC D9 7E 00  06 00 05 00 04 00 03 00 02 00 01 00 B8 0D 01 20  < 00
log 2 Network "Set Mgmt Eth IPv6 address(2001:db8:1:2:3:4:5:6) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < 00         # prefix length
log 2 Network "Set Mgmt Eth IPv6 prefix length(64) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00         # set complete

# ipaddr6: 128 is no limit of a prefix length
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/200
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  C8 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(200) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: the low eight bits of the prefix length are sent, all of it is recorded
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/321
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  41 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(321) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: the largest prefix length is 2^31-1
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/{9*300}
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  FF < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(2147483647) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: a prefix length may be hexadecimal
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/0x40
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/0X40
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(64) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: no prefix length behind the slash is 0
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  00 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(0) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: a text that is no address sends the all-zero one
$ cfgtool -t eth0 -d ipaddr6 -v nonsense/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
log 2 Network "Set Mgmt Eth IPv6 address(nonsense) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(64) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: so does an IPv4 address
$ cfgtool -t eth0 -d ipaddr6 -v 192.168.1.1/24
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
log 2 Network "Set Mgmt Eth IPv6 address(192.168.1.1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  18 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(24) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: so does nothing in front of the slash
$ cfgtool -t eth0 -d ipaddr6 -v /64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
log 2 Network "Set Mgmt Eth IPv6 address() success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(64) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: an address is cut to 45 characters, what is behind them is not seen
$ cfgtool -t eth0 -d ipaddr6 -v 0000:0000:0000:0000:0000:ffff:255.255.255.254/96
$ cfgtool -t eth0 -d ipaddr6 -v 0000:0000:0000:0000:0000:ffff:255.255.255.2549/96
$ cfgtool -t eth0 -d ipaddr6 -v 0000:0000:0000:0000:0000:ffff:255.255.255.254{x*5000}/96
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  FE FF FF FF FF FF 00 00 00 00 00 00 00 00 00 00  < 00
log 2 Network "Set Mgmt Eth IPv6 address(0000:0000:0000:0000:0000:ffff:255.255.255.254) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  60 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(96) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: a third word is ignored, behind an address
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64 extra
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < 00
log 2 Network "Set Mgmt Eth IPv6 prefix length(64) success,EvtCode:0x212006A0"
done| Set IPv6 address successfully.
> 0C 01  01 00 00           < 00

# ipaddr6: a third word is ignored, behind a source
$ cfgtool -t eth0 -d ipaddr6 -v dhcp extra
$ cfgtool -t eth0 -d ipaddr6 -v dhcp fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 D0 D9 7E 00  02 < 00         # address source
done| Set DHCP mode successfully.
log 2 Network "Set Mgmt Eth IPv6 address source(dhcp) success,EvtCode:0x21200680"
> 0C 01  01 00 00           < 00

# ipaddr6 dhcp: recorded before the bracket closes; whether it does makes no difference
$ cfgtool -t eth0 -d ipaddr6 -v dhcp
> 0C 01  01 00 01           < 00
> 0C 01  01 D0 D9 7E 00  02 < 00
done| Set DHCP mode successfully.
log 2 Network "Set Mgmt Eth IPv6 address source(dhcp) success,EvtCode:0x21200680"
> 0C 01  01 00 00           < C1

# ipaddr6 static
$ cfgtool -t eth0 -d ipaddr6 -v static
> 0C 01  01 00 01           < 00
> 0C 01  01 D0 D9 7E 00  01 < 00
done| Set STATIC mode successfully.
log 2 Network "Set Mgmt Eth IPv6 address source(static) success,EvtCode:0x21200680"
> 0C 01  01 00 00           < 00

# ipaddr6: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
$ cfgtool -t eth0 -d ipaddr6 -v dhcp
$ cfgtool -t eth0 -d ipaddr6
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# ipaddr6: too few words, too many, another first one: usage, and nothing is sent
$ cfgtool -t eth0 -d ipaddr6
$ cfgtool -t eth0 -d ipaddr6 -v
$ cfgtool -t eth0 -d ipaddr6 -x dhcp
$ cfgtool -t eth0 -d ipaddr6 fe80::1/64 -v
$ cfgtool -t eth0 -d ipaddr6 -V dhcp extra
$ cfgtool -t eth0 -d ipaddr6 -v dhcp extra words
usage| Usage: cfgtool -t eth0 -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>
usage|        cfgtool -t eth0 -d ipaddr6 -v <dhcp|static>

# ipaddr6: without a slash it must be a source, to the letter: usage, inside the bracket
$ cfgtool -t eth0 -d ipaddr6 -v DHCP
$ cfgtool -t eth0 -d ipaddr6 -v Static
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1 64
$ cfgtool -t eth0 -d ipaddr6 -v nonsense dhcp
$ cfgtool -t eth0 -d ipaddr6 -v ''
> 0C 01  01 00 01           < 00
usage| Usage: cfgtool -t eth0 -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>
usage|        cfgtool -t eth0 -d ipaddr6 -v <dhcp|static>
> 0C 01  01 00 00           < 00

# ipaddr6: a prefix length that is no number: the usage's first line, inside the bracket
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/x
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64x
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/-1
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/0x
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64/64
$ cfgtool -t eth0 -d ipaddr6 -v dhcp/x
> 0C 01  01 00 01           < 00
usage| Usage: cfgtool -t eth0 -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>
> 0C 01  01 00 00           < 00

# ipaddr6: opening is refused, two words: closed all the same, then told as a mode, static whatever it is
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
$ cfgtool -t eth0 -d ipaddr6 -v static
$ cfgtool -t eth0 -d ipaddr6 -v nonsense
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < 00
fail| Set static mode failed, error code: 0xC0101C0

# ipaddr6 dhcp: opening is not answered
$ cfgtool -t eth0 -d ipaddr6 -v dhcp
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set DHCP mode failed, error code: 0x40000001

# ipaddr6: opening is refused, three words: told as an address
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64 extra
$ cfgtool -t eth0 -d ipaddr6 -v dhcp extra
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < 00
fail| Set IPv6 address failed, error code: 0xC0101C0

# ipaddr6: what is told is the code after closing
$ cfgtool -t eth0 -d ipaddr6 -v dhcp extra
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < unsent
fail| Set IPv6 address failed, error code: 0x40000000

# ipaddr6 dhcp: what is told is the code after closing
$ cfgtool -t eth0 -d ipaddr6 -v dhcp
> 0C 01  01 00 01           < unsent
> 0C 01  01 00 00           < D5
fail| Set DHCP mode failed, error code: 0xC0100D5

# ipaddr6 dhcp: not answered: closed, then told
$ cfgtool -t eth0 -d ipaddr6 -v dhcp
> 0C 01  01 00 01           < 00
> 0C 01  01 D0 D9 7E 00  02 < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set IP mode failed,error code:0x40000001

# ipaddr6 static: not sent, and closing is refused: closing's code is told
$ cfgtool -t eth0 -d ipaddr6 -v static
> 0C 01  01 00 01           < 00
> 0C 01  01 D0 D9 7E 00  01 < unsent
> 0C 01  01 00 00           < C1
fail| Set IP mode failed,error code:0xC0100C1

# ipaddr6 static: refused: told, then closed
$ cfgtool -t eth0 -d ipaddr6 -v static
> 0C 01  01 00 01           < 00
> 0C 01  01 D0 D9 7E 00  01 < 80
fail| Set IP mode failed,error code:0xC01D080
> 0C 01  01 00 00           < C1

# ipaddr6: the address is not answered: closed, then told
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set IP address failed, error code: 0x40000001

# ipaddr6: the address is not sent, and closing is refused: closing's code is told
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < unsent
> 0C 01  01 00 00           < C1
fail| Set IP address failed, error code: 0xC0100C1

# ipaddr6: the address is refused: told, then closed
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < C9
fail| Set IP address failed, error code: 0xC01CCC9
> 0C 01  01 00 00           < C1

# ipaddr6: the prefix length is refused: told, then closed; the address stays
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < CC
fail| Set IP address, error code: 0xC01CDCC
> 0C 01  01 00 00           < C1

# ipaddr6: the prefix length is not answered: closed, then told with the completion code of the address, not with the reason
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail 40000001| Set IP address, error code: 0xC01CD00

# ipaddr6: the prefix length is not sent, and closing is refused: of that nothing is told either
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 00
log 2 Network "Set Mgmt Eth IPv6 address(fe80::1) success,EvtCode:0x21200690"
> 0C 01  01 CD D9 7E 00  40 < unsent
> 0C 01  01 00 00           < C1
fail 40000000| Set IP address, error code: 0xC01CD00

# ipaddr6: opening is not answered, three words
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64 extra
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set IPv6 address failed, error code: 0x40000001

# ipaddr6: opening is not sent, three words
$ cfgtool -t eth0 -d ipaddr6 -v fe80::1/64 extra
> 0C 01  01 00 01           < unsent
> 0C 01  01 00 00           < 00
fail| Set IPv6 address failed, error code: 0x40000000
