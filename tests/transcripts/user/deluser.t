let NOBODY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00
let BOB = 62 6F 62 00 00 00 00 00 00 00 00 00 00 00 00 00
let SIXTEEN = 73 69 78 74 65 65 6E 2D 6C 65 74 74 65 72 73 21   # "sixteen-letters!"
let SESAME = 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00
let CHECK = D9 7E 00 11 00                                       # OEM identifier, check password

steps nobody
> 06 46  {N*1:02X}     < 00 NOBODY
> 06 44  01 {N*1:02X}  < 00 11 03 00 0F

steps users
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < 00 11 03 00 34
> 06 46  03     < 00 BOB
> 06 44  01 03  < 00 11 03 00 33
do nobody for 4..16
> 06 46  11     < 00 SIXTEEN
> 06 44  01 11  < 00 11 03 00 32

steps proven
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"

# deluser: the name is cleared
$ cfgtool -d deluser -v bob
do proven
do users
> 06 45  03 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(bob|user3) success,EvtCode:0x111005A0"

# deluser: nobody is kept from deleting himself
$ cfgtool -d deluser -v admin
do proven
do users
> 06 45  02 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(admin|user2) success,EvtCode:0x111005A0"

# deluser: a name of 16 characters, and the last user there can be
$ cfgtool -d deluser -v sixteen-letters!
do proven
do users
> 06 45  11 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(sixteen-letters!|user17) success,EvtCode:0x111005A0"

# deluser: who has the name is read again behind the password
$ cfgtool -d deluser -v bob
do proven
do nobody for 2..16
> 06 46  11     < 00 BOB
> 06 44  01 11  < 00 11 03 00 32
> 06 45  11 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(bob|user17) success,EvtCode:0x111005A0"

# deluser: of two users of one name, the first goes
$ cfgtool -d deluser -v bob
do proven
do nobody for 2..3
> 06 46  04     < 00 BOB
> 06 44  01 04  < 00 11 03 00 32
> 06 46  05     < 00 BOB
> 06 44  01 05  < 00 11 03 00 32
do nobody for 6..17
> 06 45  04 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(bob|user4) success,EvtCode:0x111005A0"

# deluser: user 3 with the right to it
uid 503
env LOGNAME=bob
env SSH_CONNECTION=192.0.2.7 40000 192.0.2.1 22
$ cfgtool -d deluser -v admin
> 06 44  01 03  < 00 11 03 00 04
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK BOB SESAME  < 00
secret "Sesame-1"
do users
> 06 45  02 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(admin|user2) success,EvtCode:0x111005A0" by "bob" from "192.0.2.7"

# deluser: a record that is not written changes nothing
$ cfgtool -d deluser -v bob
result vos_zentro_log -1
do proven
do users
> 06 45  03 NOBODY  < 00
done| Delete user successfully.
log 1 User "Delete user(bob|user3) success,EvtCode:0x111005A0"

# deluser: an operator may not, whatever is typed, and a record is left
uid 503
$ cfgtool -d deluser -v bob
$ cfgtool -d deluser
> 06 44  01 03  < 00 11 03 00 03
refuse| Insufficient privilege level
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: nor may one whose privilege is not answered
uid 503
$ cfgtool -d deluser -v bob
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: nor one whose privilege is refused
uid 503
$ cfgtool -d deluser -v bob
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: a name, no more and no less
$ cfgtool -d deluser
$ cfgtool -d deluser -v
$ cfgtool -d deluser bob
$ cfgtool -d deluser -v bob carol
$ cfgtool -d deluser -x bob
$ cfgtool -d deluser bob -v
$ cfgtool -d deluser -vv bob
usage| cfgtool -d deluser -v <username>
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: a wrong password
$ cfgtool -d deluser -v bob
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 82
secret "Sesame-1"
refuse 30910082| Incorrect password.
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: a wrong password in an answer whose length ends before the completion code deletes nobody
$ cfgtool -d deluser -v bob
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 82 length 6
secret "Sesame-1"
refuse 30910082| Incorrect password.
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: the users cannot be read again: not answered
$ cfgtool -d deluser -v bob
do proven
> 06 46  02  < silent
|"Select OutTime \r\n"
refuse 40000001|""
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: the users cannot be read again: refused
$ cfgtool -d deluser -v bob
do proven
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < CC
refuse 064400CC|""
log 1 User "Delete user fail,EvtCode:0x111005A1"

# deluser: names are compared whole and to the letter; an empty one is nobody's
$ cfgtool -d deluser -v carol
$ cfgtool -d deluser -v bo
$ cfgtool -d deluser -v bobb
$ cfgtool -d deluser -v Bob
$ cfgtool -d deluser -v ' bob'
$ cfgtool -d deluser -v sixteen-letters
$ cfgtool -d deluser -v sixteen-letters!!
$ cfgtool -d deluser -v ''
do proven
do users
fail| Delete user failed.
log 1 User "Delete user(user18) fail,EvtCode:0x111005A1"

# deluser: not answered; the answer is waited for once each time it is sent
$ cfgtool -d deluser -v bob
do proven
do users
> 06 45  03 NOBODY  < silent
|"Select OutTime \r\n"
fail| Set user name failed, error code: 0x40000001
log 1 User "Delete user(bob|user3) fail,EvtCode:0x111005A1"

# deluser: not sent
$ cfgtool -d deluser -v bob
do proven
do users
> 06 45  03 NOBODY  < unsent
fail| Set user name failed, error code: 0x40000000
log 1 User "Delete user(bob|user3) fail,EvtCode:0x111005A1"

# deluser: the user of an SNMP trap version 3 stays
$ cfgtool -d deluser -v bob
do proven
do users
> 06 45  03 NOBODY  < D7
fail 064500D7| bob is trap V3 user ,cannot delete
log 1 User "Delete user(bob|user3) fail,EvtCode:0x111005A1"

# deluser: refused for another reason
$ cfgtool -d deluser -v bob
do proven
do users
> 06 45  03 NOBODY  < CC
fail| Delete user failed, error code: 0x64500CC
log 1 User "Delete user(bob|user3) fail,EvtCode:0x111005A1"
