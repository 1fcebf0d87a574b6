# Every destination as it leaves the factory.
steps no destinations
> 0C 02  01 C1 00 00    < 00 11 D9 7E 00 0F 00 00 00
> 0C 02  01 D1 01 00    < 00 11 D9 7E 00 01 00 00 00 00 00
> 0C 02  01 C0 01 00    < 00 11 D9 7E 00 01 A2 00
> 0C 02  01 D1 02 00    < 00 11 D9 7E 00 02 00 00 00 00 00
> 0C 02  01 C0 02 00    < 00 11 D9 7E 00 02 A2 00
> 0C 02  01 D1 03 00    < 00 11 D9 7E 00 03 00 00 00 00 00
> 0C 02  01 C0 03 00    < 00 11 D9 7E 00 03 A2 00
> 0C 02  01 D1 04 00    < 00 11 D9 7E 00 04 00 00 00 00 00
> 0C 02  01 C0 04 00    < 00 11 D9 7E 00 04 A2 00

# traps: destinations of all kinds, the switch, version and severity
$ cfgtool-state --json traps
> 0C 02  01 C1 00 00    < 00 11 D9 7E 00 0F 00 05 00          # the first and the third are enabled
> 0C 02  01 D1 01 00    < 00 11 D9 7E 00 01 00 C0 00 02 09
> 0C 02  01 C0 01 00    < 00 11 D9 7E 00 01 A2 00
> 0C 02  01 D1 02 00    < 00 11 D9 7E 00 02 01 FE 80 00 00 00 00 00 00 00 00 00 00 00 00 00 02
> 0C 02  01 C0 02 00    < 00 11 D9 7E 00 02 FF FF
> 0C 02  01 D1 03 00    < 00 11 D9 7E 00 03 00 FF FF FF FF
> 0C 02  01 C0 03 00    < 00 11 D9 7E 00 03 01 00
> 0C 02  01 D1 04 00    < 00 11 D9 7E 00 04 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
> 0C 02  01 C0 04 00    < 00 11 D9 7E 00 04 A2 00
> 0C 02  01 C2 00 00    < 00 11 D9 7E 00 01
> 0C 02  01 C3 00 00    < 00 11 D9 7E 00 02
> 0C 02  01 C4 00 00    < 00 11 D9 7E 00 00 03
| {"format":1,"traps":{"destinations":[{"id":1,"address":"192.0.2.9","port":162,"enabled":true},{"id":2,"address":"fe80::2","port":65535,"enabled":false},{"id":3,"address":"255.255.255.255","port":1,"enabled":true},{"id":4,"address":null,"port":162,"enabled":false}],"enabled":true,"version":"V2C","severity":"critical"},"unreadable":["traps.auth_priv_protocol","traps.community","traps.mode","traps.user"]}

# traps: the table
$ cfgtool-state traps
do no destinations
> 0C 02  01 C2 00 00    < 00 11 D9 7E 00 00
> 0C 02  01 C3 00 00    < 00 11 D9 7E 00 01
> 0C 02  01 C4 00 00    < 00 11 D9 7E 00 00 00
| traps
|   enabled   no
|   version   V1
|   severity  all
|     id  address  port  enabled
|      1  -         162  no
|      2  -         162  no
|      3  -         162  no
|      4  -         162  no
|
| unreadable
|   traps.auth_priv_protocol
|   traps.community
|   traps.mode
|   traps.user

# traps: parameters that the controller has not are null
$ cfgtool-state --json traps
> 0C 02  01 C1 00 00    < 80
> 0C 02  01 D1 01 00    < 80
> 0C 02  01 C0 01 00    < 80
> 0C 02  01 D1 02 00    < 80
> 0C 02  01 C0 02 00    < 80
> 0C 02  01 D1 03 00    < 80
> 0C 02  01 C0 03 00    < 80
> 0C 02  01 D1 04 00    < 80
> 0C 02  01 C0 04 00    < 80
> 0C 02  01 C2 00 00    < 80
> 0C 02  01 C3 00 00    < 80
> 0C 02  01 C4 00 00    < 80
| {"format":1,"traps":{"destinations":[{"id":1,"address":null,"port":null,"enabled":null},{"id":2,"address":null,"port":null,"enabled":null},{"id":3,"address":null,"port":null,"enabled":null},{"id":4,"address":null,"port":null,"enabled":null}],"enabled":null,"version":null,"severity":null},"unreadable":["traps.auth_priv_protocol","traps.community","traps.mode","traps.user"]}

# traps: each request refused
$ cfgtool-state --json traps
> 0C 02  01 C1 00 00    < C1
> 0C 02  01 D1 01 00    < C9
> 0C 02  01 C0 01 00    < C9
> 0C 02  01 D1 02 00    < C9
> 0C 02  01 C0 02 00    < C9
> 0C 02  01 D1 03 00    < C9
> 0C 02  01 C0 03 00    < C9
> 0C 02  01 D1 04 00    < C9
> 0C 02  01 C0 04 00    < C9
> 0C 02  01 C2 00 00    < C1
> 0C 02  01 C3 00 00    < C1
> 0C 02  01 C4 00 00    < C1
2| cfgtool-state: traps.destinations.enabled: refused: Invalid command (0xC1)
2| cfgtool-state: traps.destinations[1].address: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[1].port: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[2].address: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[2].port: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[3].address: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[3].port: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[4].address: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.destinations[4].port: refused: Parameter out of range (0xC9)
2| cfgtool-state: traps.enabled: refused: Invalid command (0xC1)
2| cfgtool-state: traps.version: refused: Invalid command (0xC1)
2| cfgtool-state: traps.severity: refused: Invalid command (0xC1)
| {"format":1,"traps":{"destinations":[{"id":1},{"id":2},{"id":3},{"id":4}]},"unreadable":["traps.auth_priv_protocol","traps.community","traps.mode","traps.user"]}
exits 1

# traps: answers too short, without a meaning, and not there
$ cfgtool-state --json traps
> 0C 02  01 C1 00 00    < 00 11 D9 7E 00 0F 00 00 cut 14
> 0C 02  01 D1 01 00    < 00 11 D9 7E 00 01 00 C0 00 02 cut 16
> 0C 02  01 C0 01 00    < 00 11 D9 7E 00 01 A2 cut 13
> 0C 02  01 D1 02 00    < 00 11 D9 7E 00 02 01 FE 80 00 00 00 00 00 00 00 00 00 00 00 00 00 cut 28
> 0C 02  01 C0 02 00    < silent
> 0C 02  01 D1 03 00    < 00 11 D9 7E 00 03 02 C0 00 02 09
> 0C 02  01 C0 03 00    < 00 11 D9 7E 00 03 A2 00
> 0C 02  01 D1 04 00    < silent
> 0C 02  01 C0 04 00    < 00 11 D9 7E 00 04 A2 00
> 0C 02  01 C2 00 00    < 00 11 D9 7E 00 cut 11
> 0C 02  01 C3 00 00    < 00 11 D9 7E 00 04
> 0C 02  01 C4 00 00    < 00 11 D9 7E 00 00 04
2| cfgtool-state: traps.destinations.enabled: the answer is too short
2| cfgtool-state: traps.destinations[1].address: the answer is too short
2| cfgtool-state: traps.destinations[1].port: the answer is too short
2| cfgtool-state: traps.destinations[2].address: the answer is too short
2| cfgtool-state: traps.destinations[2].port: no answer (0x40000001)
2| cfgtool-state: traps.destinations[3].address: an address of type 2 has no meaning
2| cfgtool-state: traps.destinations[4].address: no answer (0x40000001)
2| cfgtool-state: traps.enabled: the answer is too short
2| cfgtool-state: traps.version: 4 has no meaning
2| cfgtool-state: traps.severity: 4 has no meaning
| {"format":1,"traps":{"destinations":[{"id":1},{"id":2},{"id":3,"port":162},{"id":4,"port":162}]},"unreadable":["traps.auth_priv_protocol","traps.community","traps.mode","traps.user"]}
exits 1

# traps: the switches without an answer, and the rest
$ cfgtool-state --json traps
> 0C 02  01 C1 00 00    < silent
> 0C 02  01 D1 01 00    < 00 11 D9 7E 00 01 00 C0 00 02 09
> 0C 02  01 C0 01 00    < 00 11 D9 7E 00 01 A2 00
> 0C 02  01 D1 02 00    < 80
> 0C 02  01 C0 02 00    < 80
> 0C 02  01 D1 03 00    < 80
> 0C 02  01 C0 03 00    < 80
> 0C 02  01 D1 04 00    < 80
> 0C 02  01 C0 04 00    < 80
> 0C 02  01 C2 00 00    < silent
> 0C 02  01 C3 00 00    < silent
> 0C 02  01 C4 00 00    < 00 11 D9 7E 00 00 01
2| cfgtool-state: traps.destinations.enabled: no answer (0x40000001)
2| cfgtool-state: traps.enabled: no answer (0x40000001)
2| cfgtool-state: traps.version: no answer (0x40000001)
| {"format":1,"traps":{"destinations":[{"id":1,"address":"192.0.2.9","port":162},{"id":2,"address":null,"port":null},{"id":3,"address":null,"port":null},{"id":4,"address":null,"port":null}],"severity":"minor"},"unreadable":["traps.auth_priv_protocol","traps.community","traps.mode","traps.user"]}
exits 1
