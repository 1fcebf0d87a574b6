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
> 06 44  01 11  < 00 11 03 00 0F

steps password proven
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"

steps proven
do password proven
do users

steps usage
usage| cfgtool -d privilege -v <username> <privilege>
usage| Privileges are:
usage|     15       No Access
usage|     2        User
usage|     3        Operator
usage|     4        Administrator

# privilege: the user is enabled, then given user
$ cfgtool -d privilege -v bob 2
$ cfgtool -d privilege -v bob 0x2
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 02      < 00
done| Set user privilege successfully.
log 1 User "Modify user(bob|user3) privilege(user) success,EvtCode:0x11100590"

# privilege: operator
$ cfgtool -d privilege -v bob 3
$ cfgtool -d privilege -v bob 03
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 03      < 00
done| Set user privilege successfully.
log 1 User "Modify user(bob|user3) privilege(operator) success,EvtCode:0x11100590"

# privilege: administrator, in every form of the number
$ cfgtool -d privilege -v bob 4
$ cfgtool -d privilege -v bob 0x4
$ cfgtool -d privilege -v bob 0X4
$ cfgtool -d privilege -v bob ' +4'
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 04      < 00
done| Set user privilege successfully.
log 1 User "Modify user(bob|user3) privilege(administrator) success,EvtCode:0x11100590"

# privilege: no access, which enables the user all the same
$ cfgtool -d privilege -v bob 15
$ cfgtool -d privilege -v bob 0xf
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 0F      < 00
done| Set user privilege successfully.
log 1 User "Modify user(bob|user3) privilege(no access) success,EvtCode:0x11100590"

# privilege: the last user, with a name of sixteen characters
$ cfgtool -d privilege -v sixteen-letters! 3
do proven
> 06 47  11 01 NOBODY  < 00
> 06 43  01 11 03      < 00
done| Set user privilege successfully.
log 1 User "Modify user(sixteen-letters!|user17) privilege(operator) success,EvtCode:0x11100590"

# privilege: user 3 with the right to it
uid 503
env LOGNAME=bob
$ cfgtool -d privilege -v admin 4
> 06 44  01 03  < 00 11 03 00 34
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK BOB SESAME  < 00
secret "Sesame-1"
do users
> 06 47  02 01 NOBODY  < 00
> 06 43  01 02 04      < 00
done| Set user privilege successfully.
log 1 User "Modify user(admin|user2) privilege(administrator) success,EvtCode:0x11100590"

# privilege: a name and a number, no more and no less; nobody is asked for a privilege first
uid 503
$ cfgtool -d privilege
$ cfgtool -d privilege -v
$ cfgtool -d privilege -v bob
$ cfgtool -d privilege -v bob 4 4
$ cfgtool -d privilege -x bob 4
$ cfgtool -d privilege bob 4 -v
do usage
log 1 User "Modify user privilege fail,EvtCode:0x11100591"

# privilege: an operator may not, and the record says what he wanted
uid 503
$ cfgtool -d privilege -v bob 4
> 06 44  01 03  < 00 11 03 00 33
refuse| Insufficient privilege level
log 1 User "Modify user privilege(administrator) fail,EvtCode:0x11100591"

# privilege: nor may one whose privilege is not answered
uid 503
$ cfgtool -d privilege -v bob 4
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
log 1 User "Modify user privilege(administrator) fail,EvtCode:0x11100591"

# privilege: nor one whose privilege is refused
uid 503
$ cfgtool -d privilege -v bob 4
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
log 1 User "Modify user privilege(administrator) fail,EvtCode:0x11100591"

# privilege: an operator may not, and his number is not judged
uid 503
$ cfgtool -d privilege -v bob many
$ cfgtool -d privilege -v bob 5
> 06 44  01 03  < 00 11 03 00 33
refuse| Insufficient privilege level
log 1 User "Modify user privilege(unknown) fail,EvtCode:0x11100591"

# privilege: a wrong password
$ cfgtool -d privilege -v bob 15
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 82
secret "Sesame-1"
refuse 30910082| Incorrect password.
log 1 User "Modify user privilege(no access) fail,EvtCode:0x11100591"

# privilege: no password typed
$ cfgtool -d privilege -v bob 3
do users
hidden|"Input your password:"
refuse| Input your password error.
log 1 User "Modify user privilege(operator) fail,EvtCode:0x11100591"

# privilege: the users cannot be read: no question and no word
$ cfgtool -d privilege -v bob 1
> 06 46  02  < CC
refuse 064600CC|""
log 1 User "Modify user privilege(callback) fail,EvtCode:0x11100591"

# privilege: account 500 behind root's rights is no user
real 500
$ cfgtool -d privilege -v bob 2
do users
refuse|""
log 1 User "Modify user privilege(user) fail,EvtCode:0x11100591"

# privilege: the users cannot be read again: not answered; the record has the privilege where the name would be
$ cfgtool -d privilege -v bob 4
do password proven
> 06 46  02  < silent
|"Select OutTime \r\n"
fail| Set user privilege failed, error code: 0x40000001
log 1 User "Modify user(administrator) privilege fail,EvtCode:0x11100591"

# privilege: the users cannot be read again: a name is refused
$ cfgtool -d privilege -v bob 15
do password proven
> 06 46  02  < CC
fail| Set user privilege failed, error code: 0x64600CC
log 1 User "Modify user(no access) privilege fail,EvtCode:0x11100591"

# privilege: the users cannot be read again: an access is refused
$ cfgtool -d privilege -v bob 4
do password proven
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < C9
fail| Set user privilege failed, error code: 0x64400C9
log 1 User "Modify user(administrator) privilege fail,EvtCode:0x11100591"

# privilege: names are compared whole and to the letter; an empty one is nobody's
$ cfgtool -d privilege -v carol 4
$ cfgtool -d privilege -v bo 4
$ cfgtool -d privilege -v bobby 4
$ cfgtool -d privilege -v BOB 4
$ cfgtool -d privilege -v '' 4
do proven
fail| Set user privilege failed.
log 1 User "Modify user(user18) privilege(administrator) fail,EvtCode:0x11100591"

# privilege: the name is looked for before the number is judged
$ cfgtool -d privilege -v carol 1
do proven
fail| Set user privilege failed.
log 1 User "Modify user(user18) privilege(callback) fail,EvtCode:0x11100591"

# privilege: callback has a name and cannot be given
$ cfgtool -d privilege -v bob 1
$ cfgtool -d privilege -v bob 0x1
do proven
do usage
log 1 User "Modify user(bob|user3) privilege(callback) fail,EvtCode:0x11100591"

# privilege: no other number can be given, and what is none is treated like one
$ cfgtool -d privilege -v bob 0
$ cfgtool -d privilege -v bob ''
$ cfgtool -d privilege -v bob 5
$ cfgtool -d privilege -v bob 14
$ cfgtool -d privilege -v bob 16
$ cfgtool -d privilege -v bob 0x102
$ cfgtool -d privilege -v bob 258
$ cfgtool -d privilege -v bob 4294967298
$ cfgtool -d privilege -v bob -1
$ cfgtool -d privilege -v bob -4
$ cfgtool -d privilege -v bob 4x
$ cfgtool -d privilege -v bob f
$ cfgtool -d privilege -v bob 0x
$ cfgtool -d privilege -v bob administrator
do proven
do usage
log 1 User "Modify user(bob|user3) privilege(unknown) fail,EvtCode:0x11100591"

# privilege: enabling is not answered
$ cfgtool -d privilege -v bob 4
do proven
> 06 47  03 01 NOBODY  < silent
|"Select OutTime \r\n"
fail| Set user privilege failed, error code: 0x40000001
log 1 User "Modify user(bob|user3) privilege(administrator) fail,EvtCode:0x11100591"

# privilege: enabling is not sent
$ cfgtool -d privilege -v bob 4
do proven
> 06 47  03 01 NOBODY  < unsent
fail| Set user privilege failed, error code: 0x40000000
log 1 User "Modify user(bob|user3) privilege(administrator) fail,EvtCode:0x11100591"

# privilege: enabling is refused
$ cfgtool -d privilege -v bob 4
do proven
> 06 47  03 01 NOBODY  < CC
fail| Set user privilege failed, error code: 0x64700CC
log 1 User "Modify user(bob|user3) privilege(administrator) fail,EvtCode:0x11100591"

# privilege: enabling is refused for the password: no rules are told here
$ cfgtool -d privilege -v bob 4
do proven
> 06 47  03 01 NOBODY  < 84
fail| Set user privilege failed, error code: 0x6470084
log 1 User "Modify user(bob|user3) privilege(administrator) fail,EvtCode:0x11100591"

# privilege: the access is not answered
$ cfgtool -d privilege -v bob 2
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 02      < silent
|"Select OutTime \r\n"
fail| Set user privilege failed, error code: 0x40000001
log 1 User "Modify user(bob|user3) privilege(user) fail,EvtCode:0x11100591"

# privilege: the access is not sent
$ cfgtool -d privilege -v bob 2
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 02      < unsent
fail| Set user privilege failed, error code: 0x40000000
log 1 User "Modify user(bob|user3) privilege(user) fail,EvtCode:0x11100591"

# privilege: the access is refused
$ cfgtool -d privilege -v bob 2
do proven
> 06 47  03 01 NOBODY  < 00
> 06 43  01 03 02      < D5
fail| Set user privilege failed, error code: 0x64300D5
log 1 User "Modify user(bob|user3) privilege(user) fail,EvtCode:0x11100591"
