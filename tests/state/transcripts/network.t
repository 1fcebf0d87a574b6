let IPV6 = 02 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE
let GATEWAY6 = 01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE
let NONE6 = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00

# network: each parameter of the management port, and whether there is a network card
$ cfgtool-state --json network
> 0C 02  01 03 00 00    < 00 11 C0 00 02 0A
> 0C 02  01 06 00 00    < 00 11 FF FF FF 00
> 0C 02  01 0C 00 00    < 00 11 C0 00 02 01
> 0C 02  01 04 00 00    < 00 11 F1                            # the four upper bits are reserved
> 0C 02  01 CC 00 00    < 00 11 D9 7E 00 IPV6                 # the last byte comes first
> 0C 02  01 CD 00 00    < 00 11 D9 7E 00 40
> 0C 02  01 CE 00 00    < 00 11 D9 7E 00 GATEWAY6
> 0C 02  01 D0 00 00    < 00 11 D9 7E 00 02
> 0C 02  01 05 00 00    < 00 11 02 00 5E 00 AB CD
> 0C 02  01 14 00 00    < 00 11 FE 8F                         # 4094, enabled
> 0C 02  01 D7 00 00    < 00 11 D9 7E 00 03
> 30 16  D9 7E 00       < 00 D9 7E 00 02                      # a card of two ports
| {"format":1,"network":{"eth0":{"ipv4":{"address":"192.0.2.10","mask":"255.255.255.0","gateway":"192.0.2.1","source":"static"},"ipv6":[{"address":"fe80::2","prefix":64}],"gateway6":"fe80::1","source6":"dhcp","mac":"02:00:5e:00:ab:cd","vlan":4094,"mode":"adaptive"}},"unreadable":["network.eth0.sideband_port","network.services"]}

# network: no addresses, no VLAN, no card
$ cfgtool-state --json network
> 0C 02  01 03 00 00    < 00 11 00 00 00 00
> 0C 02  01 06 00 00    < 00 11 00 00 00 00
> 0C 02  01 0C 00 00    < 00 11 00 00 00 00
> 0C 02  01 04 00 00    < 00 11 02
> 0C 02  01 CC 00 00    < 00 11 D9 7E 00 NONE6
> 0C 02  01 CE 00 00    < 00 11 D9 7E 00 NONE6
> 0C 02  01 D0 00 00    < 00 11 D9 7E 00 01
> 0C 02  01 05 00 00    < 00 11 02 00 5E 00 AB CD
> 0C 02  01 14 00 00    < 00 11 64 00                         # 100, but not enabled
> 0C 02  01 D7 00 00    < 00 11 D9 7E 00 01
> 30 16  D9 7E 00       < 00 D9 7E 00 00
| {"format":1,"network":{"eth0":{"ipv4":{"address":null,"mask":null,"gateway":null,"source":"dhcp"},"ipv6":[],"gateway6":null,"source6":"static","mac":"02:00:5e:00:ab:cd","vlan":null,"mode":"dedicated","sideband_port":null}},"unreadable":["network.services"]}

# network: the table
$ cfgtool-state network
> 0C 02  01 03 00 00    < 00 11 C0 00 02 0A
> 0C 02  01 06 00 00    < 00 11 FF FF FF 00
> 0C 02  01 0C 00 00    < 00 11 00 00 00 00
> 0C 02  01 04 00 00    < 00 11 00
> 0C 02  01 CC 00 00    < 00 11 D9 7E 00 IPV6
> 0C 02  01 CD 00 00    < 00 11 D9 7E 00 40
> 0C 02  01 CE 00 00    < 00 11 D9 7E 00 NONE6
> 0C 02  01 D0 00 00    < 00 11 D9 7E 00 03
> 0C 02  01 05 00 00    < 00 11 02 00 5E 00 AB CD
> 0C 02  01 14 00 00    < 00 11 64 80
> 0C 02  01 D7 00 00    < 00 11 D9 7E 00 02
> 30 16  D9 7E 00       < 00 D9 7E 00 00
| network
|   eth0 ipv4 address   192.0.2.10
|   eth0 ipv4 mask      255.255.255.0
|   eth0 ipv4 gateway   -
|   eth0 ipv4 source    unspecified
|   eth0 ipv6 address   fe80::2
|   eth0 ipv6 prefix    64
|   eth0 gateway6       -
|   eth0 source6        bios
|   eth0 mac            02:00:5e:00:ab:cd
|   eth0 vlan           100
|   eth0 mode           shared
|   eth0 sideband port  -
|
| unreadable
|   network.services

# network: parameters that the controller has not are null
$ cfgtool-state --json network
> 0C 02  01 03 00 00    < 80
> 0C 02  01 06 00 00    < 80
> 0C 02  01 0C 00 00    < 80
> 0C 02  01 04 00 00    < 80
> 0C 02  01 CC 00 00    < 80
> 0C 02  01 CE 00 00    < 80
> 0C 02  01 D0 00 00    < 80
> 0C 02  01 05 00 00    < 80
> 0C 02  01 14 00 00    < 80
> 0C 02  01 D7 00 00    < 80
> 30 16  D9 7E 00       < 00 D9 7E 00 00
| {"format":1,"network":{"eth0":{"ipv4":{"address":null,"mask":null,"gateway":null,"source":null},"ipv6":[],"gateway6":null,"source6":null,"mac":null,"vlan":null,"mode":null,"sideband_port":null}},"unreadable":["network.services"]}

# network: each request refused
$ cfgtool-state --json network
> 0C 02  01 03 00 00    < C1
> 0C 02  01 06 00 00    < C7
> 0C 02  01 0C 00 00    < C9
> 0C 02  01 04 00 00    < CC
> 0C 02  01 CC 00 00    < C0
> 0C 02  01 CE 00 00    < C3
> 0C 02  01 D0 00 00    < D4
> 0C 02  01 05 00 00    < D5
> 0C 02  01 14 00 00    < FF
> 0C 02  01 D7 00 00    < D6
> 30 16  D9 7E 00       < 81
2| cfgtool-state: network.eth0.ipv4.address: refused: Invalid command (0xC1)
2| cfgtool-state: network.eth0.ipv4.mask: refused: Request data length invalid (0xC7)
2| cfgtool-state: network.eth0.ipv4.gateway: refused: Parameter out of range (0xC9)
2| cfgtool-state: network.eth0.ipv4.source: refused: Invalid data field in request (0xCC)
2| cfgtool-state: network.eth0.ipv6: refused: Node busy (0xC0)
2| cfgtool-state: network.eth0.gateway6: refused: Timeout (0xC3)
2| cfgtool-state: network.eth0.source6: refused: Insufficient privilege level (0xD4)
2| cfgtool-state: network.eth0.mac: refused: Command not supported in present state (0xD5)
2| cfgtool-state: network.eth0.vlan: refused: Unspecified error (0xFF)
2| cfgtool-state: network.eth0.mode: refused: Parameter is illegal because command b-functionhas been disabled or is unavailable (0xD6)
2| cfgtool-state: network.eth0.sideband_port: refused: Unknown (0x81) (0x81)
| {"format":1,"unreadable":["network.eth0.sideband_port","network.services"]}
exits 1

# network: each answer one byte too short, and words without a meaning
$ cfgtool-state --json network
> 0C 02  01 03 00 00    < 00 11 C0 00 02 cut 11
> 0C 02  01 06 00 00    < 00 11 FF FF FF cut 11
> 0C 02  01 0C 00 00    < 00 11 C0 00 02 cut 11
> 0C 02  01 04 00 00    < 00 11 cut 8
> 0C 02  01 CC 00 00    < 00 11 D9 7E 00 IPV6
> 0C 02  01 CD 00 00    < 00 11 D9 7E 00 cut 11
> 0C 02  01 CE 00 00    < 00 11 D9 7E 00 GATEWAY6[0:15] cut 26
> 0C 02  01 D0 00 00    < 00 11 D9 7E 00 05
> 0C 02  01 05 00 00    < 00 11 02 00 5E 00 AB cut 13
> 0C 02  01 14 00 00    < 00 11 FE cut 9
> 0C 02  01 D7 00 00    < 00 11 D9 7E 00 04
> 30 16  D9 7E 00       < 00 D9 7E 00 cut 10
2| cfgtool-state: network.eth0.ipv4.address: the answer is too short
2| cfgtool-state: network.eth0.ipv4.mask: the answer is too short
2| cfgtool-state: network.eth0.ipv4.gateway: the answer is too short
2| cfgtool-state: network.eth0.ipv4.source: the answer is too short
2| cfgtool-state: network.eth0.ipv6.prefix: the answer is too short
2| cfgtool-state: network.eth0.gateway6: the answer is too short
2| cfgtool-state: network.eth0.source6: 5 has no meaning
2| cfgtool-state: network.eth0.mac: the answer is too short
2| cfgtool-state: network.eth0.vlan: the answer is too short
2| cfgtool-state: network.eth0.mode: 4 has no meaning
2| cfgtool-state: network.eth0.sideband_port: the answer is too short
| {"format":1,"network":{"eth0":{"ipv4":{},"ipv6":[{"address":"fe80::2"}]}},"unreadable":["network.eth0.sideband_port","network.services"]}
exits 1

# network: every other request without an answer
$ cfgtool-state --json network
> 0C 02  01 03 00 00    < silent
> 0C 02  01 06 00 00    < 00 11 FF FF FF 00
> 0C 02  01 0C 00 00    < silent
> 0C 02  01 04 00 00    < 00 11 01
> 0C 02  01 CC 00 00    < silent
> 0C 02  01 CE 00 00    < 00 11 D9 7E 00 GATEWAY6
> 0C 02  01 D0 00 00    < silent
> 0C 02  01 05 00 00    < 00 11 02 00 5E 00 AB CD
> 0C 02  01 14 00 00    < silent
> 0C 02  01 D7 00 00    < 00 11 D9 7E 00 01
> 30 16  D9 7E 00       < silent
2| cfgtool-state: network.eth0.ipv4.address: no answer (0x40000001)
2| cfgtool-state: network.eth0.ipv4.gateway: no answer (0x40000001)
2| cfgtool-state: network.eth0.ipv6: no answer (0x40000001)
2| cfgtool-state: network.eth0.source6: no answer (0x40000001)
2| cfgtool-state: network.eth0.vlan: no answer (0x40000001)
2| cfgtool-state: network.eth0.sideband_port: no answer (0x40000001)
| {"format":1,"network":{"eth0":{"ipv4":{"mask":"255.255.255.0","source":"static"},"gateway6":"fe80::1","mac":"02:00:5e:00:ab:cd","mode":"dedicated"}},"unreadable":["network.eth0.sideband_port","network.services"]}
exits 1
