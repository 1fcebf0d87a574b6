# ipaddr: address and mask are set one after the other, each with its record
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00         # set in progress
> 0C 01  01 03 C0 A8 01 01  < 00         # IP address, high octet first
log 2 Network "Set Mgmt Eth IPv4 address(192.168.1.1) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < 00         # subnet mask
log 2 Network "Set Mgmt Eth IPv4 submask(255.255.255.0) success,EvtCode:0x21200660"
done| Set IP address 192.168.1.1 successfully.
done| Set MASK address 255.255.255.0 successfully.
> 0C 01  01 00 00           < 00         # set complete

# ipaddr: a group with a leading 0 is octal on the wire, and recorded as typed
$ cfgtool -t eth0 -d ipaddr -v 192.168.010.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 08 01  < 00
log 2 Network "Set Mgmt Eth IPv4 address(192.168.010.1) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(255.255.255.0) success,EvtCode:0x21200660"
done| Set IP address 192.168.010.1 successfully.
done| Set MASK address 255.255.255.0 successfully.
> 0C 01  01 00 00           < 00

# ipaddr: the mask may have any form that inet_aton takes: one number
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 0xFF000000
> 0C 01  01 00 01           < 00
> 0C 01  01 03 0A 00 00 05  < 00
log 2 Network "Set Mgmt Eth IPv4 address(10.0.0.5) success,EvtCode:0x21200650"
> 0C 01  01 06 FF 00 00 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(0xFF000000) success,EvtCode:0x21200660"
done| Set IP address 10.0.0.5 successfully.
done| Set MASK address 0xFF000000 successfully.
> 0C 01  01 00 00           < 00

# ipaddr: the mask may have any form that inet_aton takes: something behind a blank
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 '255.0377.0.0 and more'
> 0C 01  01 00 01           < 00
> 0C 01  01 03 0A 00 00 05  < 00
log 2 Network "Set Mgmt Eth IPv4 address(10.0.0.5) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF 00 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(255.0377.0.0 and more) success,EvtCode:0x21200660"
done| Set IP address 10.0.0.5 successfully.
done| Set MASK address 255.0377.0.0 and more successfully.
> 0C 01  01 00 00           < 00

# ipaddr: a record is cut to 511 characters, the screen is not
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 0x{0*600}FF000000
> 0C 01  01 00 01           < 00
> 0C 01  01 03 0A 00 00 05  < 00
log 2 Network "Set Mgmt Eth IPv4 address(10.0.0.5) success,EvtCode:0x21200650"
> 0C 01  01 06 FF 00 00 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(0x{0*483}"
done| Set IP address 10.0.0.5 successfully.
done|"Set MASK address 0x{0*600}FF000000 successfully.\r\n"
> 0C 01  01 00 00           < 00

# ipaddr: whether the bracket closes makes no difference after a success
$ cfgtool -t eth0 -d ipaddr -v 172.16.31.200 255.240.0.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 AC 10 1F C8  < 00
log 2 Network "Set Mgmt Eth IPv4 address(172.16.31.200) success,EvtCode:0x21200650"
> 0C 01  01 06 FF F0 00 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(255.240.0.0) success,EvtCode:0x21200660"
done| Set IP address 172.16.31.200 successfully.
done| Set MASK address 255.240.0.0 successfully.
> 0C 01  01 00 00           < C1

# ipaddr dhcp: the source is set and recorded before the bracket closes
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 0C 01  01 00 01           < 00
> 0C 01  01 04 02           < 00         # IP address source
done| Set DHCP mode successfully.
log 2 Network "Set Mgmt Eth IPv4 address source(dhcp) success,EvtCode:0x21200640"
> 0C 01  01 00 00           < 00

# ipaddr static: its text is in capitals
$ cfgtool -t eth0 -d ipaddr -v static
> 0C 01  01 00 01           < 00
> 0C 01  01 04 01           < 00
done| Set STATIC mode successfully.
log 2 Network "Set Mgmt Eth IPv4 address source(static) success,EvtCode:0x21200640"
> 0C 01  01 00 00           < 00

# ipaddr: words are counted in eight bits, so that 256 more are none
$ cfgtool -t eth0 -d ipaddr -v dhcp{ x*256}
> 0C 01  01 00 01           < 00
> 0C 01  01 04 02           < 00
done| Set DHCP mode successfully.
log 2 Network "Set Mgmt Eth IPv4 address source(dhcp) success,EvtCode:0x21200640"
> 0C 01  01 00 00           < 00

# ipaddr: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
$ cfgtool -t eth0 -d ipaddr -v dhcp
$ cfgtool -t eth0 -d ipaddr
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# ipaddr: an administrator may
uid 503
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 06 44  01 03              < 00 11 05 01 04
> 0C 01  01 00 01           < 00
> 0C 01  01 04 02           < 00
done| Set DHCP mode successfully.
log 2 Network "Set Mgmt Eth IPv4 address source(dhcp) success,EvtCode:0x21200640"
> 0C 01  01 00 00           < 00

# ipaddr: too few words, too many, another first one: usage, and nothing is sent
$ cfgtool -t eth0 -d ipaddr
$ cfgtool -t eth0 -d ipaddr -v
$ cfgtool -t eth0 -d ipaddr dhcp
$ cfgtool -t eth0 -d ipaddr -x dhcp
$ cfgtool -t eth0 -d ipaddr dhcp -v
$ cfgtool -t eth0 -d ipaddr -V 10.0.0.5 255.0.0.0
$ cfgtool -t eth0 -d ipaddr 10.0.0.5 255.0.0.0 -v
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 255.0.0.0 10.0.0.1
usage| Usage: cfgtool -t eth0 -d ipaddr -v <ipaddr> <mask>
usage|        cfgtool -t eth0 -d ipaddr -v <dhcp|static>

# ipaddr: a source that is neither word to the letter: usage, inside the bracket
$ cfgtool -t eth0 -d ipaddr -v DHCP
$ cfgtool -t eth0 -d ipaddr -v Static
$ cfgtool -t eth0 -d ipaddr -v dhc
$ cfgtool -t eth0 -d ipaddr -v dhcp6
$ cfgtool -t eth0 -d ipaddr -v ''
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5
> 0C 01  01 00 01           < 00
usage| Usage: cfgtool -t eth0 -d ipaddr -v <ipaddr> <mask>
usage|        cfgtool -t eth0 -d ipaddr -v <dhcp|static>
> 0C 01  01 00 00           < 00

# ipaddr: a text that is no address
$ cfgtool -t eth0 -d ipaddr -v 1.2.3.4444 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 1.2.3.256 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 1..2.3 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 1.2.3.4. 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 1.2.3.4/8 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 1.2.3.08 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v dhcp 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v '' 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v {9*5000} 255.0.0.0
> 0C 01  01 00 01           < 00
refuse| Input parameter format error,format should such as 192.168.1.1
> 0C 01  01 00 00           < 00

# ipaddr: a text that is no mask
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 255.0.0.256
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 255.0.0.0/8
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 x
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 ''
> 0C 01  01 00 01           < 00
refuse| Input parameter format error,format should such as 192.168.1.1
> 0C 01  01 00 00           < 00

# ipaddr: 255.255.255.255 is no address and no mask, however it is written
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 255.255.255.255
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.1 255.255.255.255
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.5 4294967295
$ cfgtool -t eth0 -d ipaddr -v 255.255.255.255 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 0xFFFFFFFF 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 127.0.0.5 255.255.255.255
> 0C 01  01 00 01           < 00
refuse| Input parameter format error,format should such as 192.168.1.1
> 0C 01  01 00 00           < 00

# ipaddr: an address that inet_aton takes but that is no dotted quad
$ cfgtool -t eth0 -d ipaddr -v 1.2.3 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 10.5 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 167772165 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 0x0A.0.0.5 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v '10.0.0.5 ' 255.0.0.0
> 0C 01  01 00 01           < 00
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: 16 characters are too many for an address
$ cfgtool -t eth0 -d ipaddr -v 192.168.100.0100 255.255.255.0
> 0C 01  01 00 01           < 00
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: 15 are not, and no one counts the last group's digits
$ cfgtool -t eth0 -d ipaddr -v 192.168.10.0100 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 0A 40  < 00
log 2 Network "Set Mgmt Eth IPv4 address(192.168.10.0100) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(255.255.255.0) success,EvtCode:0x21200660"
done| Set IP address 192.168.10.0100 successfully.
done| Set MASK address 255.255.255.0 successfully.
> 0C 01  01 00 00           < 00

# ipaddr: a group of four digits is told with its place
$ cfgtool -t eth0 -d ipaddr -v 0001.2.3.4 255.0.0.0
> 0C 01  01 00 01           < 00
refuse| IPCheck:ucDigitNum=4,i =4
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: so is one of five further behind
$ cfgtool -t eth0 -d ipaddr -v 1.20.00003.4 255.0.0.0
> 0C 01  01 00 01           < 00
refuse| IPCheck:ucDigitNum=5,i =10
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: a mask with a gap, or of zeros, is refused
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.0.255.0
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 0.255.255.0
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 0.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 1
> 0C 01  01 00 01           < 00
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: a host part of zeros or of ones is refused
$ cfgtool -t eth0 -d ipaddr -v 10.0.0.0 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 10.255.255.255 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.4 255.255.255.252
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.7 255.255.255.252
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.4 255.255.255.254
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.5 255.255.255.254
> 0C 01  01 00 01           < 00
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: a network part of zeros is refused
$ cfgtool -t eth0 -d ipaddr -v 1.2.3.4 128.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 15.0.0.1 240.0.0.0
> 0C 01  01 00 01           < 00
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: networks 0, 127 and from 224 on are not for interfaces
$ cfgtool -t eth0 -d ipaddr -v 0.1.2.3 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 0.1.2.3 255.255.0.0
$ cfgtool -t eth0 -d ipaddr -v 127.0.0.5 255.0.0.0
$ cfgtool -t eth0 -d ipaddr -v 224.0.0.5 255.255.255.0
$ cfgtool -t eth0 -d ipaddr -v 254.1.2.3 255.255.255.0
> 0C 01  01 00 01           < 00
refuse| Input parameter format error.
> 0C 01  01 00 00           < 00

# ipaddr: 223 is the last network that is
$ cfgtool -t eth0 -d ipaddr -v 223.255.255.254 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 DF FF FF FE  < 00
log 2 Network "Set Mgmt Eth IPv4 address(223.255.255.254) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < 00
log 2 Network "Set Mgmt Eth IPv4 submask(255.255.255.0) success,EvtCode:0x21200660"
done| Set IP address 223.255.255.254 successfully.
done| Set MASK address 255.255.255.0 successfully.
> 0C 01  01 00 00           < 00

# ipaddr: opening is refused: closed all the same, then told
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 81
> 0C 01  01 00 00           < 00
fail| Set IP address failed, error code: 0xC010181

# ipaddr: opening is not answered
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set IP address failed, error code: 0x40000001

# ipaddr: neither opening nor closing can be sent
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < unsent
> 0C 01  01 00 00           < unsent
fail| Set IP address failed, error code: 0x40000000

# ipaddr: what is told is the code after closing
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < D5
fail| Set IP address failed, error code: 0xC0100D5

# ipaddr: texts are not looked at before the bracket is open
$ cfgtool -t eth0 -d ipaddr -v nonsense nonsense
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < 00
fail| Set IP address failed, error code: 0xC0101C0

# ipaddr dhcp: opening is refused
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < 00
fail| Set DHCP mode failed, error code: 0xC0101C0

# ipaddr static: opening is refused. Any word but dhcp is called static here
$ cfgtool -t eth0 -d ipaddr -v static
$ cfgtool -t eth0 -d ipaddr -v DHCP
> 0C 01  01 00 01           < C0
> 0C 01  01 00 00           < 00
fail| Set static mode failed, error code: 0xC0101C0

# ipaddr dhcp: the code told is the one after closing
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < C1
fail| Set DHCP mode failed, error code: 0xC0100C1

# ipaddr dhcp: not answered: closed, then told
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 0C 01  01 00 01           < 00
> 0C 01  01 04 02           < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set IP mode failed,error code:0x40000001

# ipaddr static: not sent, and closing is refused: closing's code is told
$ cfgtool -t eth0 -d ipaddr -v static
> 0C 01  01 00 01           < 00
> 0C 01  01 04 01           < unsent
> 0C 01  01 00 00           < C1
fail| Set IP mode failed,error code:0xC0100C1

# ipaddr dhcp: refused: told, then closed
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 0C 01  01 00 01           < 00
> 0C 01  01 04 02           < 80
fail| Set IP mode failed,error code:0xC010480
> 0C 01  01 00 00           < C1

# ipaddr: the address is not answered: closed, then told
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 01 01  < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set IP address failed, error code: 0x40000001

# ipaddr: the address is answered with what belongs to others, and closing fails too: closing's code is told
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 01 01  < sequence
> 0C 01  01 00 00           < unsent
fail| Set IP address failed, error code: 0x40000000

# ipaddr: the address is refused: told, then closed
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 01 01  < CC
fail| Set IP address failed, error code: 0xC0103CC
> 0C 01  01 00 00           < C1

# ipaddr: the mask is not answered: closed, then told with two blanks; the address stays
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 01 01  < 00
log 2 Network "Set Mgmt Eth IPv4 address(192.168.1.1) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < silent
|"Select OutTime \r\n"
> 0C 01  01 00 00           < 00
fail| Set MASK address  failed, error code: 0x40000001

# ipaddr: the mask is not sent, and closing is refused: closing's code is told
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 01 01  < 00
log 2 Network "Set Mgmt Eth IPv4 address(192.168.1.1) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < unsent
> 0C 01  01 00 00           < FF
fail| Set MASK address  failed, error code: 0xC0100FF

# ipaddr: the mask is refused: told, then closed
$ cfgtool -t eth0 -d ipaddr -v 192.168.1.1 255.255.255.0
> 0C 01  01 00 01           < 00
> 0C 01  01 03 C0 A8 01 01  < 00
log 2 Network "Set Mgmt Eth IPv4 address(192.168.1.1) success,EvtCode:0x21200650"
> 0C 01  01 06 FF FF FF 00  < C9
fail| Set MASK address  failed, error code: 0xC0106C9
> 0C 01  01 00 00           < silent
|"Select OutTime \r\n"

# ipaddr: opening is not sent, two words
$ cfgtool -t eth0 -d ipaddr -v dhcp
> 0C 01  01 00 01           < unsent
> 0C 01  01 00 00           < 00
fail| Set DHCP mode failed, error code: 0x40000000
