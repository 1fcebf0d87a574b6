# sideband: the first port, on a card with one; there is no bracket
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 01  # number of the card's ports
> 30 93  D9 7E 00  05 0D 00 00 01  00   < 00
done| Set sideband enable port success!
log 2 Network "Set shared Eth destination port(port1) success,EvtCode:0x212006E0"

# sideband: the second port
$ cfgtool -t eth0 -d sideband -v port2
> 30 16  D9 7E 00                       < 00 D9 7E 00 02
> 30 93  D9 7E 00  05 0D 00 00 01  01   < 00
done| Set sideband enable port success!
log 2 Network "Set shared Eth destination port(port2) success,EvtCode:0x212006E0"

# sideband: the third port, on a board with four MAC addresses
result get_mac_num 4
$ cfgtool -t eth0 -d sideband -v port3
> 30 16  D9 7E 00                       < 00 D9 7E 00 03
> 30 93  D9 7E 00  05 0D 00 00 01  02   < 00
done| Set sideband enable port success!
log 2 Network "Set shared Eth destination port(port3) success,EvtCode:0x212006E0"

# sideband: the fourth port, on such a board
result get_mac_num 4
$ cfgtool -t eth0 -d sideband -v port4
> 30 16  D9 7E 00                       < 00 D9 7E 00 04
> 30 93  D9 7E 00  05 0D 00 00 01  03   < 00
done| Set sideband enable port success!
log 2 Network "Set shared Eth destination port(port4) success,EvtCode:0x212006E0"

# sideband: four in the board's file are as good
board "[MAC_PROPERTITY]\nMAC_Num=4\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband -v port3
> 30 16  D9 7E 00                       < 00 D9 7E 00 FF
> 30 93  D9 7E 00  05 0D 00 00 01  02   < 00
done| Set sideband enable port success!
log 2 Network "Set shared Eth destination port(port3) success,EvtCode:0x212006E0"

# sideband: the first two are there whatever the board has
board "[FRU_PROPERTITY]\nFru_Num=1\n"
$ cfgtool -t eth0 -d sideband -v port2
> 30 16  D9 7E 00                       < 00 D9 7E 00 04
> 30 93  D9 7E 00  05 0D 00 00 01  01   < 00
done| Set sideband enable port success!
log 2 Network "Set shared Eth destination port(port2) success,EvtCode:0x212006E0"

# sideband: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d sideband -v port1
$ cfgtool -t eth0 -d sideband
> 06 44  01 03                          < 00 11 05 01 03
refuse| Insufficient privilege level

# sideband: too few words, too many, another first one, or no port of a board with two MAC addresses
$ cfgtool -t eth0 -d sideband
$ cfgtool -t eth0 -d sideband -v
$ cfgtool -t eth0 -d sideband -x port1
$ cfgtool -t eth0 -d sideband port1 -v
$ cfgtool -t eth0 -d sideband -v port1 port2
$ cfgtool -t eth0 -d sideband -v port3
$ cfgtool -t eth0 -d sideband -v port4
$ cfgtool -t eth0 -d sideband -v port0
$ cfgtool -t eth0 -d sideband -v PORT1
$ cfgtool -t eth0 -d sideband -v port
$ cfgtool -t eth0 -d sideband -v port11
$ cfgtool -t eth0 -d sideband -v 1
$ cfgtool -t eth0 -d sideband -v ''
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port2> \r\n"

# sideband: no fifth port on a board with four
result get_mac_num 4
$ cfgtool -t eth0 -d sideband -v port5
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port4> \r\n"

# sideband: the third and fourth port need exactly four MAC addresses: three are too few
result get_mac_num 3
$ cfgtool -t eth0 -d sideband -v port3
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port3> \r\n"

# sideband: eight are too many for the third and fourth port
result get_mac_num 8
$ cfgtool -t eth0 -d sideband -v port3
$ cfgtool -t eth0 -d sideband -v port4
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port8> \r\n"

# sideband: the card has fewer ports
$ cfgtool -t eth0 -d sideband -v port2
> 30 16  D9 7E 00                       < 00 D9 7E 00 01
refuse| The NIC is not installed in the host!

# sideband: the card has fewer ports, the fourth of three
result get_mac_num 4
$ cfgtool -t eth0 -d sideband -v port4
> 30 16  D9 7E 00                       < 00 D9 7E 00 03
refuse| The NIC is not installed in the host!

# sideband: there is no card
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 00
refuse| The NIC is not installed in the host!

# sideband: a card of which is not told how many ports it has counts as none
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 cut 10
refuse| The NIC is not installed in the host!

# sideband: so does one that cannot be asked about
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < C1 D9 7E 00 02
refuse 30167EC1| The NIC is not installed in the host!

# sideband: so does one about which there is no answer
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < silent
|"Select OutTime \r\n"
refuse 40000001| The NIC is not installed in the host!

# sideband: refused: the code has no selector
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 01
> 30 93  D9 7E 00  05 0D 00 00 01  00   < C9
fail| Set sideband enable port failed, error code: 0x309300C9

# sideband: not answered: the code shows a completion code of 0, not the reason
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 01
> 30 93  D9 7E 00  05 0D 00 00 01  00   < silent
|"Select OutTime \r\n"
fail 40000001| Set sideband enable port failed, error code: 0x30930000

# sideband: not sent: the code shows a completion code of 0 as well
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 01
> 30 93  D9 7E 00  05 0D 00 00 01  00   < unsent
fail 40000000| Set sideband enable port failed, error code: 0x30930000

# sideband: a bad length, or answers that are all another's, show a completion code of 0 as well
$ cfgtool -t eth0 -d sideband -v port1
> 30 16  D9 7E 00                       < 00 D9 7E 00 01
> 30 93  D9 7E 00  05 0D 00 00 01  00   < sequence
fail 40000002| Set sideband enable port failed, error code: 0x30930000
