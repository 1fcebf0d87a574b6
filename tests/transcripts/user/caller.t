# The account commands first read who the controller's users are, and then have the caller prove to be one of them.

let NOBODY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00
let BOB = 62 6F 62 00 00 00 00 00 00 00 00 00 00 00 00 00
let SIXTEEN = 73 69 78 74 65 65 6E 2D 6C 65 74 74 65 72 73 21   # "sixteen-letters!"
let SESAME = 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00
let CHECK = D9 7E 00 11 00                                       # OEM identifier, check password

steps nobody
> 06 46  {N*1:02X}     < 00 NOBODY
> 06 44  01 {N*1:02X}  < 00 11 02 00 0F

steps users
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < 00 11 02 00 34
> 06 46  03     < 00 BOB
> 06 44  01 03  < 00 11 02 00 33
do nobody for 4..17

steps asked
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"

steps recorded
log 1 User "Delete user fail,EvtCode:0x111005A1"

steps wrong
secret "Sesame-1"
refuse 30910082| Incorrect password.
do recorded

# caller: root is user 2
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < 82
do wrong

# caller: account 503 is user 3
uid 503
$ cfgtool -d deluser -v bob
> 06 44  01 03  < 00 11 02 00 34
do users
do asked
> 30 91  CHECK BOB SESAME  < 82
do wrong

# caller: account 501 is user 1, whose name is not asked for and empty
uid 501
$ cfgtool -d deluser -v bob
> 06 44  01 01  < 00 11 02 00 34
do users
do asked
> 30 91  CHECK NOBODY SESAME  < 82
do wrong

# caller: account 517 is user 17, the last one; sixteen characters of a name are sent
uid 517
$ cfgtool -d deluser -v bob
> 06 44  01 11  < 00 11 02 00 34
do nobody for 2..16
> 06 46  11     < 00 SIXTEEN
> 06 44  01 11  < 00 11 02 00 34
do asked
> 30 91  CHECK SIXTEEN SESAME  < 82
do wrong

# caller: the login counts and not the right that it runs with
uid 0
real 503
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK BOB SESAME  < 82
do wrong

# caller: account 1 is no user: refused behind the reading of the users, without a question and a word
real 1
$ cfgtool -d deluser -v bob
do users
refuse|""
do recorded

# caller: account 499 is no user
real 499
$ cfgtool -d deluser -v bob
do users
refuse|""
do recorded

# caller: account 500 is no user
real 500
$ cfgtool -d deluser -v bob
do users
refuse|""
do recorded

# caller: account 518 is none of the users there are
uid 518
$ cfgtool -d deluser -v bob
> 06 44  01 12  < 00 11 02 00 34
do users
refuse|""
do recorded

# caller: account 755 is none of the users there are
uid 755
$ cfgtool -d deluser -v bob
> 06 44  01 FF  < 00 11 02 00 34
do users
refuse|""
do recorded

# caller: account 4294967295 is no user
real 4294967295
$ cfgtool -d deluser -v bob
do users
refuse|""
do recorded

# caller: an input that is no terminal has no password
$ cfgtool -d deluser -v bob
do users
hidden|"Input your password:"
refuse| Input your password error.
do recorded

# caller: a terminal that fails at the first key has no password, and nothing is sent
$ cfgtool -d deluser -v bob
result tcsetattr 0 -1
do users
hidden|"Input your password:"
keys ""
refuse| Input your password error.
do recorded

# caller: the check is not answered
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < silent
secret "Sesame-1"
|"Select OutTime \r\n"
refuse| send 'check user password' failed, error code: 0x40000001
do recorded

# caller: the check is not sent
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < unsent
secret "Sesame-1"
refuse| send 'check user password' failed, error code: 0x40000000
do recorded

# caller: five answers to others
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < sequence
secret "Sesame-1"
refuse| send 'check user password' failed, error code: 0x40000002
do recorded

# caller: an answer of a wrong length
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < length 0
secret "Sesame-1"
|"rsp->data_len err(0x0) \r\n"
refuse| send 'check user password' failed, error code: 0x40000001
do recorded

# caller: the check is refused for another reason than the password
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < C1
secret "Sesame-1"
refuse| Check user password failed, error code: 0x309100C1
do recorded

# caller: 0x84 and 0x85 mean nothing here
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < 85
secret "Sesame-1"
refuse| Check user password failed, error code: 0x30910085
do recorded

# caller: the check waits for its answer once each time it is sent
$ cfgtool -d deluser -v bob
do users
do asked
> 30 91  CHECK ADMIN SESAME  < silent, silent, 82
do wrong

# users: a name that is not answered ends the command
$ cfgtool -d deluser -v bob
> 06 46  02  < silent
|"Select OutTime \r\n"
refuse 40000001|""
do recorded

# users: a name that cannot be asked for ends the command without a word
$ cfgtool -d deluser -v bob
> 06 46  02  < unsent
refuse 40000000|""
do recorded

# users: a name that is refused ends the command without a word
$ cfgtool -d deluser -v bob
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < 00 11 02 00 34
> 06 46  03     < CC
refuse 064600CC|""
do recorded

# users: an access that is not answered ends the command
$ cfgtool -d deluser -v bob
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < silent
|"Select OutTime \r\n"
refuse 40000001|""
do recorded

# users: an access that cannot be asked for ends the command
$ cfgtool -d deluser -v bob
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < unsent
refuse 40000000|""
do recorded

# users: an access that is refused ends the command
$ cfgtool -d deluser -v bob
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < C9
refuse 064400C9|""
do recorded

# users: the last access is needed like the first
$ cfgtool -d deluser -v bob
do nobody for 2..16
> 06 46  11     < 00 NOBODY
> 06 44  01 11  < C9
refuse 064400C9|""
do recorded

# users: a short answer is a short name, and no access
$ cfgtool -d deluser -v bob
> 06 46  02     < 00 61 64 6D cut 10   # "adm"
> 06 44  01 02  < 00 cut 7
do nobody for 3..17
do asked
> 30 91  CHECK 61 64 6D 00 00 00 00 00 00 00 00 00 00 00 00 00 SESAME  < 82
do wrong

# users: of an answer that goes on behind sixteen characters the rest is no part of the name
$ cfgtool -d deluser -v bob
> 06 46  02     < 00 SIXTEEN 21 21
> 06 44  01 02  < 00 11 02 00 34
do nobody for 3..17
do asked
> 30 91  CHECK SIXTEEN SESAME  < 82
do wrong
