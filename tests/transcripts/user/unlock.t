let NOBODY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00
let BOB = 62 6F 62 00 00 00 00 00 00 00 00 00 00 00 00 00
let SIXTEEN = 73 69 78 74 65 65 6E 2D 6C 65 74 74 65 72 73 21   # "sixteen-letters!"
let SESAME = 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00
let CHECK = D9 7E 00 11 00                                       # OEM identifier, check password
let UNLOCK = D9 7E 00 11 80                                      # OEM identifier, unlock
let TWENTY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00

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

steps failed early
log 1 User "Set user unlock status fail,EvtCode:0x11100CC1"

steps failed
log 1 User "Set user(bob|user3) unlock status fail,EvtCode:0x11100CC1"

# unlock: the user is released by name
$ cfgtool -t user -d unlock -v bob
do proven
> 30 91  UNLOCK BOB TWENTY  < 00
done| Set user:bob unlock status successfully.
log 1 User "Set user(bob|user3) unlock status success,EvtCode:0x11100CC0"

# unlock: sixteen characters, and the last user there can be
$ cfgtool -t user -d unlock -v sixteen-letters!
do proven
> 30 91  UNLOCK SIXTEEN TWENTY  < 00
done| Set user:sixteen-letters! unlock status successfully.
log 1 User "Set user(sixteen-letters!|user17) unlock status success,EvtCode:0x11100CC0"

# unlock: user 3 with the right to it
uid 503
$ cfgtool -t user -d unlock -v admin
> 06 44  01 03  < 00 11 03 00 34
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK BOB SESAME  < 00
secret "Sesame-1"
do users
> 30 91  UNLOCK ADMIN TWENTY  < 00
done| Set user:admin unlock status successfully.
log 1 User "Set user(admin|user2) unlock status success,EvtCode:0x11100CC0"

# unlock: an operator may not, whatever is typed, and a record is left
uid 503
$ cfgtool -t user -d unlock -v bob
$ cfgtool -t user -d unlock
> 06 44  01 03  < 00 11 03 00 33
refuse| Insufficient privilege level
do failed early

# unlock: nor may one whose privilege is not answered
uid 503
$ cfgtool -t user -d unlock -v bob
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
do failed early

# unlock: nor one whose privilege is refused
uid 503
$ cfgtool -t user -d unlock -v bob
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
do failed early

# unlock: a name, no more and no less
$ cfgtool -t user -d unlock
$ cfgtool -t user -d unlock -v
$ cfgtool -t user -d unlock bob
$ cfgtool -t user -d unlock -v bob carol
$ cfgtool -t user -d unlock -x bob
$ cfgtool -t user -d unlock bob -v
usage| Usage: cfgtool -t user -d unlock -v <username>
do failed early

# unlock: a wrong password
$ cfgtool -t user -d unlock -v bob
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 82
secret "Sesame-1"
refuse 30910082| Incorrect password.
do failed early

# unlock: no password typed
$ cfgtool -t user -d unlock -v bob
do users
hidden|"Input your password:"
refuse| Input your password error.
do failed early

# unlock: the users cannot be read: no question and no word
$ cfgtool -t user -d unlock -v bob
> 06 46  02  < CC
refuse 064600CC|""
do failed early

# unlock: account 500 behind root's rights is no user
real 500
$ cfgtool -t user -d unlock -v bob
do users
refuse|""
do failed early

# unlock: the users cannot be read again: not answered
$ cfgtool -t user -d unlock -v bob
do password proven
> 06 46  02  < silent
|"Select OutTime \r\n"
refuse 40000001|""
do failed early

# unlock: the users cannot be read again: refused
$ cfgtool -t user -d unlock -v bob
do password proven
> 06 46  02  < CC
refuse 064600CC|""
do failed early

# unlock: names are compared whole and to the letter; an empty one is nobody's
$ cfgtool -t user -d unlock -v carol
$ cfgtool -t user -d unlock -v bo
$ cfgtool -t user -d unlock -v bobby
$ cfgtool -t user -d unlock -v Bob
$ cfgtool -t user -d unlock -v ''
do proven
fail| Set user unlock failed.
log 1 User "Set user(user18) unlock status fail,EvtCode:0x11100CC1"

# unlock: not answered
$ cfgtool -t user -d unlock -v bob
do proven
> 30 91  UNLOCK BOB TWENTY  < silent
|"Select OutTime \r\n"
fail| Send 'unlock user' failed, error code: 0x40000001
do failed

# unlock: not sent
$ cfgtool -t user -d unlock -v bob
do proven
> 30 91  UNLOCK BOB TWENTY  < unsent
fail| Send 'unlock user' failed, error code: 0x40000000
do failed

# unlock: the controller could not
$ cfgtool -t user -d unlock -v bob
do proven
> 30 91  UNLOCK BOB TWENTY  < 85
fail 30918085| Unlock user failed!
do failed

# unlock: refused for another reason, with the function's byte in the code
$ cfgtool -t user -d unlock -v bob
do proven
> 30 91  UNLOCK BOB TWENTY  < 82
fail| Unlock user failed, error code: 0x30918082
do failed
