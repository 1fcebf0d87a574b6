# One user: 16 bytes of name.
let NOBODY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00

steps free slots 7 to 17
> 06 46  07    < 00 NOBODY
> 06 46  08    < 00 NOBODY
> 06 46  09    < 00 NOBODY
> 06 46  0A    < 00 NOBODY
> 06 46  0B    < 00 NOBODY
> 06 46  0C    < 00 NOBODY
> 06 46  0D    < 00 NOBODY
> 06 46  0E    < 00 NOBODY
> 06 46  0F    < 00 NOBODY
> 06 46  10    < 00 NOBODY
> 06 46  11    < 00 NOBODY

# users: those who have a name, with their privilege on the management channel
$ cfgtool-state --json users
> 06 46  02       < 00 ADMIN
> 06 44  01 02    < 00 11 44 01 34                            # enabled, administrator
> 06 46  03       < 00 6F 70 65 72 61 74 6F 72 2D 6F 66 2D 6E 69 67 68
> 06 44  01 03    < 00 11 84 01 13                            # disabled, operator
> 06 46  04       < 00 NOBODY
> 06 46  05       < 00 75 00 73 65 72 00 00 00 00 00 00 00 00 00 00
> 06 44  01 05    < 00 11 04 01 0F                            # enabled or not is not told, no access
> 06 46  06       < 00 63 00 00 00 00 00 00 00 00 00 00 00 00 00 00
> 06 44  01 06    < 00 11 44 01 75                            # OEM
do free slots 7 to 17
| {"format":1,"users":[{"id":2,"name":"admin","privilege":"administrator","enabled":true},{"id":3,"name":"operator-of-nigh","privilege":"operator","enabled":false},{"id":5,"name":"u","privilege":"no_access","enabled":null},{"id":6,"name":"c","privilege":"oem","enabled":true}],"unreadable":["users.locked","users.password_complexity"]}

# users: of a controller with fewer slots no more are asked for
$ cfgtool-state users
> 06 46  02       < 00 ADMIN
> 06 44  01 02    < 00 C4 41 00 02                            # 4 slots; the two upper bits are reserved
> 06 46  03       < 00 NOBODY
> 06 46  04       < 00 63 00 00 00 00 00 00 00 00 00 00 00 00 00 00
> 06 44  01 04    < 00 04 41 00 01
| users
|     id  name   privilege  enabled
|      2  admin  user       yes
|      4  c      callback   yes
|
| unreadable
|   users.locked
|   users.password_complexity

# users: a name with characters that a terminal would act on, and one that is not UTF-8
$ cfgtool-state --json users
> 06 46  02       < 00 1B 5B 32 4A 22 5C 00 00 00 00 00 00 00 00 00 00
> 06 44  01 02    < 00 03 42 01 04
> 06 46  03       < 00 6A FC 72 67 00 00 00 00 00 00 00 00 00 00 00 00
> 06 44  01 03    < 00 03 42 01 04
2| cfgtool-state: users[2].name: a name with characters that cannot be shown: \x1B[2J"\
2| cfgtool-state: users[3].name: a name with characters that cannot be shown: j\xFCrg
| {"format":1,"users":[{"id":2,"name":"\u001b[2J\"\\","privilege":"administrator","enabled":true},{"id":3,"name":"j\ufffdrg","privilege":"administrator","enabled":true}],"unreadable":["users.locked","users.password_complexity"]}

# users: the same in the table
$ cfgtool-state users
> 06 46  02       < 00 1B 5B 32 4A 22 5C 00 00 00 00 00 00 00 00 00 00
> 06 44  01 02    < 00 02 41 01 04
2| cfgtool-state: users[2].name: a name with characters that cannot be shown: \x1B[2J"\
| users
|     id  name       privilege      enabled
|      2  \x1B[2J"\  administrator  yes
|
| unreadable
|   users.locked
|   users.password_complexity

# users: names refused, too short and not answered, and access refused, too short, not answered and without a meaning
$ cfgtool-state --json users
> 06 46  02       < CC
> 06 46  03       < 00 61 62 63 cut 10
> 06 46  04       < silent
> 06 46  05       < 00 ADMIN
> 06 44  01 05    < C1
> 06 46  06       < 00 ADMIN
> 06 44  01 06    < 00 11 44 01 cut 10
> 06 46  07       < 00 ADMIN
> 06 44  01 07    < silent
> 06 46  08       < 00 ADMIN
> 06 44  01 08    < 00 08 44 01 00
2| cfgtool-state: users[2].name: refused: Invalid data field in request (0xCC)
2| cfgtool-state: users[3].name: the answer is too short
2| cfgtool-state: users[4].name: no answer (0x40000001)
2| cfgtool-state: users[5].privilege: refused: Invalid command (0xC1)
2| cfgtool-state: users[6].privilege: the answer is too short
2| cfgtool-state: users[7].privilege: no answer (0x40000001)
2| cfgtool-state: users[8].privilege: 0 has no meaning
| {"format":1,"users":[{"id":2},{"id":3},{"id":4},{"id":5,"name":"admin"},{"id":6,"name":"admin"},{"id":7,"name":"admin"},{"id":8,"name":"admin","enabled":true}],"unreadable":["users.locked","users.password_complexity"]}
exits 1

# users: what was not answered is a question mark in the table
$ cfgtool-state users
> 06 46  02       < CC
> 06 46  03       < 00 ADMIN
> 06 44  01 03    < 00 03 44 01 04
2| cfgtool-state: users[2].name: refused: Invalid data field in request (0xCC)
| users
|     id  name   privilege      enabled
|      2  ?      ?              ?
|      3  admin  administrator  yes
|
| unreadable
|   users.locked
|   users.password_complexity
exits 1
