let NOBODY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00
let BOB = 62 6F 62 00 00 00 00 00 00 00 00 00 00 00 00 00
let CAROL = 63 61 72 6F 6C 00 00 00 00 00 00 00 00 00 00 00
let SIXTEEN = 73 69 78 74 65 65 6E 2D 6C 65 74 74 65 72 73 21                 # "sixteen-letters!"
let SESAME = 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00     # "Sesame-1"
let FOXGLOVE = 46 6F 78 67 6C 6F 76 65 20 32 00 00 00 00 00 00 00 00 00 00   # "Foxglove 2"
let ROPES = 72 6F 70 65 73 2D 72 6F 70 65 73 2D 00 00 00 00 00 00 00 00      # "ropes-ropes-"
let CHECK = D9 7E 00 11 00                                                    # OEM identifier, check password

steps nobody
> 06 46  {N*1:02X}     < 00 NOBODY
> 06 44  01 {N*1:02X}  < 00 11 02 00 0F

steps somebody
> 06 46  {N*1:02X}     < 00 75 73 65 72 {N*1:02X} 00 00 00 00 00 00 00 00 00 00 00
> 06 44  01 {N*1:02X}  < 00 11 10 00 02

steps users
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < 00 11 02 00 34
> 06 46  03     < 00 BOB
> 06 44  01 03  < 00 11 02 00 33
do nobody for 4..17

steps proven
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"

steps locked
file /ipmc/usr/adduser_mutex ""
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10

steps released
call vos_system "/bin/rm" "/bin/rm" "-fr" "/ipmc/usr/adduser_mutex"
call unlock

steps chosen
call vos_check_username "carol"
do proven
do locked
do users

steps named
do chosen
>> 06 45  04 CAROL  < 00
do released

steps typed twice
hidden|"Password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Foxglove 2\r"
|"\n"

steps given a password
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < 00
secret "Foxglove 2"

steps enabled
>> 06 47  04 01 NOBODY  < 00
done|"\nAdd user successfully.\r\n"
done| New user is NO Access, you should modify user privileges as needed.
log 1 User "Add user(carol|user4) success,EvtCode:0x11100560"

steps rolled back
>> 06 45  04 NOBODY  < 00

steps failed
log 1 User "Add user(carol|user4) fail,EvtCode:0x11100561"

steps failed early
log 1 User "Add user fail,EvtCode:0x11100561"

steps failed at the lock
log 1 User "Add user(carol) fail,EvtCode:0x11100561"

steps usage
usage| cfgtool -d adduser -v <username>
usage|     contain digits, letters, and characters except colons (:,\), but cannot start with a number sign (#) or space.

steps rules
| Invalid Password:
| 1) Contains 8-20 characters.
| 2) Contains at least one space or one of the following special characters:`~!@#$%^&*()-_=+\|[{}];:'",<.>/?
| 3) Contains at least two types of the following characters:
|    - Letters:a to z;
|    - Letters:A to Z;
|    - Digits:0 to 9;
| 4) Password can not be the reverse of the account or accounts.

steps repetition typed twice
do named
hidden|"Password:"
hidden "ropes-ropes-\r"
|"\n"
hidden|"Confirm password:"
hidden "ropes-ropes-\r"
|"\n"
| WARNING: Using a password consisting of only repeated string may have many adverse effects,such as aa, ababab, and abcdabcd.
confirm|"Do you want to continue?[Y/N]:"

# adduser: a name in the first free place, a password, and the user may log in; no privilege is given
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < 00
secret "Foxglove 2"
do enabled

# adduser: user 3 with the right to it
uid 503
env LOGNAME=bob
$ cfgtool -d adduser -v carol
> 06 44  01 03  < 00 11 02 00 34
call vos_check_username "carol"
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK BOB SESAME  < 00
secret "Sesame-1"
do locked
do users
>> 06 45  04 CAROL  < 00
do released
do typed twice
>> 06 47  84 02 FOXGLOVE  < 00
secret "Foxglove 2"
do enabled

# adduser: the answers of its own requests may take five waits
$ cfgtool -d adduser -v carol
do chosen
>> 06 45  04 CAROL  < wait wait wait wait 00
do released
do typed twice
>> 06 47  84 02 FOXGLOVE  < silent, wait 00
secret "Foxglove 2"
>> 06 47  04 01 NOBODY  < silent, silent, silent, silent, wait wait wait wait 00
done|"\nAdd user successfully.\r\n"
done| New user is NO Access, you should modify user privileges as needed.
log 1 User "Add user(carol|user4) success,EvtCode:0x11100560"

# adduser: the lock's file is made when it is not there; removing it is the platform's work
file /ipmc/usr folder
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
do users
>> 06 45  04 CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
log 1 User "Add user(carol|user4) fail,EvtCode:0x11100561"
wrote /ipmc/usr/adduser_mutex ""

# adduser: the first free place may lie between others
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
do somebody for 2..9
do nobody for 10..10
do somebody for 11..11
do nobody for 12..17
>> 06 45  0A CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
log 1 User "Add user(carol|user10) fail,EvtCode:0x11100561"

# adduser: user 2 is the first that can be given
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
do nobody for 2..2
do somebody for 3..17
>> 06 45  02 CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
log 1 User "Add user(carol|user2) fail,EvtCode:0x11100561"

# adduser: user 17 is the last that can be given
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
do somebody for 2..16
do nobody for 17..17
>> 06 45  11 CAROL  < 00
do released
do typed twice
>> 06 47  91 02 FOXGLOVE  < 00
secret "Foxglove 2"
>> 06 47  11 01 NOBODY  < 00
done|"\nAdd user successfully.\r\n"
done| New user is NO Access, you should modify user privileges as needed.
log 1 User "Add user(carol|user17) success,EvtCode:0x11100560"

# adduser: all places taken
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
do somebody for 2..17
refuse| User full, can't add more user.
do released
log 1 User "Add user(carol|user18) fail,EvtCode:0x11100561"

# adduser: nobody else has the name
$ cfgtool -d adduser -v bob
call vos_check_username "bob"
do proven
do locked
do users
refuse| User bob exists.
do released
log 1 User "Add user(bob|user3) fail,EvtCode:0x11100561"

# adduser: a name that was given meanwhile is seen, also where there is no place
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
do somebody for 2..16
> 06 46  11     < 00 CAROL
> 06 44  01 11  < 00 11 10 00 02
refuse| User carol exists.
do released
log 1 User "Add user(carol|user17) fail,EvtCode:0x11100561"

# adduser: the same name in capitals is another
$ cfgtool -d adduser -v Bob
call vos_check_username "Bob"
do proven
do locked
do users
>> 06 45  04 42 6F 62 00 00 00 00 00 00 00 00 00 00 00 00 00  < CC
do released
fail| Add user failed, error code: 0x64500CC
log 1 User "Add user(Bob|user4) fail,EvtCode:0x11100561"

# adduser: how another name begins is another
$ cfgtool -d adduser -v bo
call vos_check_username "bo"
do proven
do locked
do users
>> 06 45  04 62 6F 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < CC
do released
fail| Add user failed, error code: 0x64500CC
log 1 User "Add user(bo|user4) fail,EvtCode:0x11100561"

# adduser: sixteen characters are a name
$ cfgtool -d adduser -v sixteen-letters!
call vos_check_username "sixteen-letters!"
do proven
do locked
do users
>> 06 45  04 SIXTEEN  < 00
do released
do typed twice
>> 06 47  84 02 FOXGLOVE  < 00
secret "Foxglove 2"
>> 06 47  04 01 NOBODY  < 00
done|"\nAdd user successfully.\r\n"
done| New user is NO Access, you should modify user privileges as needed.
log 1 User "Add user(sixteen-letters!|user4) success,EvtCode:0x11100560"

# adduser: seventeen are none
$ cfgtool -d adduser -v sixteen-letters!!
call vos_check_username "sixteen-letters!!"
do proven
refuse| The length of user name is too long.
refuse| User name should less than 17 bytes.
do failed early

# adduser: twenty blanks are a name too long and not a blank one
$ cfgtool -d adduser -v '{ *20}'
call vos_check_username "{ *20}"
do proven
refuse| The length of user name is too long.
refuse| User name should less than 17 bytes.
do failed early

# adduser: seventeen blanks are a blank name
$ cfgtool -d adduser -v '{ *17}'
call vos_check_username "{ *17}"
do proven
refuse| The user name can not be blank.
do failed early

# adduser: eighteen blanks are too long
$ cfgtool -d adduser -v '{ *18}'
call vos_check_username "{ *18}"
do proven
refuse| The length of user name is too long.
refuse| User name should less than 17 bytes.
do failed early

# adduser: one blank is a blank name
$ cfgtool -d adduser -v ' '
call vos_check_username " "
do proven
refuse| The user name can not be blank.
do failed early

# adduser: an empty name is a blank one
$ cfgtool -d adduser -v ''
call vos_check_username ""
do proven
refuse| The user name can not be blank.
do failed early

# adduser: a blank in a name is none at its end
$ cfgtool -d adduser -v 'bo b'
call vos_check_username "bo b"
do proven
do locked
do users
>> 06 45  04 62 6F 20 62 00 00 00 00 00 00 00 00 00 00 00 00  < CC
do released
fail| Add user failed, error code: 0x64500CC
log 1 User "Add user(bo b|user4) fail,EvtCode:0x11100561"

# adduser: an operator may not, whatever is typed, and a record is left
uid 503
$ cfgtool -d adduser -v carol
$ cfgtool -d adduser
> 06 44  01 03  < 00 11 02 00 33
refuse| Insufficient privilege level
do failed early

# adduser: nor may one whose privilege is not answered
uid 503
$ cfgtool -d adduser -v carol
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
do failed early

# adduser: nor one whose privilege is refused
uid 503
$ cfgtool -d adduser -v carol
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
do failed early

# adduser: one word behind -v
$ cfgtool -d adduser
$ cfgtool -d adduser -v
$ cfgtool -d adduser carol
$ cfgtool -d adduser -v carol bob
$ cfgtool -d adduser -x carol
$ cfgtool -d adduser carol -v
do usage
do failed early

# adduser: a name that the platform does not permit
$ cfgtool -d adduser -v car:ol
call vos_check_username "car:ol" -> 1
do usage
do failed early

# adduser: any answer of the platform but 0 is a refusal
$ cfgtool -d adduser -v carol
call vos_check_username "carol" -> -1
do usage
do failed early

# adduser: a wrong password; the lock is not asked for
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 82
secret "Sesame-1"
refuse 30910082| Incorrect password.
do failed early

# adduser: no password typed
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do users
hidden|"Input your password:"
refuse| Input your password error.
do failed early

# adduser: the users cannot be read: no question and no word
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
> 06 46  02  < CC
refuse 064600CC|""
do failed early

# adduser: account 500 behind root's rights is no user
real 500
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do users
refuse|""
do failed early

# adduser: there is no place for the lock's file
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
fail| Add user failed, error code: 0x50000002
do failed at the lock

# adduser: no link is followed to another file
file /tmp/elsewhere "kept"
file /ipmc/usr/adduser_mutex link ../../tmp/elsewhere
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
fail| Add user failed, error code: 0x50000002
do failed at the lock

# adduser: the lock is refused; its file goes
file /ipmc/usr/adduser_mutex ""
result lock -37
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
do released
fail| Add user failed, error code: 0x50000003
do failed at the lock

# adduser: a lock that was interrupted is asked for again
result lock -4
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
do locked
do users
>> 06 45  04 CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
do failed

# adduser: a lock on a file that its holder has removed is none: the one that is there now is locked
file /ipmc/usr/adduser_mutex "before"
result lock 1
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
call unlock
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
do users
>> 06 45  04 CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
do failed
wrote /ipmc/usr/adduser_mutex ""

# adduser: nor is one on a file in whose place another run has put its own
file /ipmc/usr/adduser_mutex "before"
result lock 2
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
call unlock
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
do users
>> 06 45  04 CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
do failed
wrote /ipmc/usr/adduser_mutex ""

# adduser: a file that a stranger has read-locked is made anew, and the new one is locked
umask 027
result lock_held 1
file /ipmc/usr/adduser_mutex "before"
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex.new" 600 write 40 10
do users
>> 06 45  04 CAROL  < CC
do released
fail| Add user failed, error code: 0x64500CC
do failed
wrote /ipmc/usr/adduser_mutex 640 ""

# adduser: a file that is read-locked and cannot be made anew is an error, and stays
result lock_held 1
file /ipmc/usr/adduser_mutex "before"
file /ipmc/usr/adduser_mutex.new folder
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
fail| Add user failed, error code: 0x50000002
do failed at the lock

# adduser: another run is waited for; what a stranger has locked under either name is an error
result lock_held 2 2 1 1
file /ipmc/usr/adduser_mutex "before"
file /ipmc/usr/adduser_mutex.new ""
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
sleep 100000
fail| Add user failed, error code: 0x50000002
do failed at the lock

# adduser: a signal that comes while the lock is held waits until its file is gone
$ cfgtool -d adduser -v carol
do chosen
signal TERM
>> 06 45  04 CAROL  < 00
do released
ends TERM

# adduser: one that comes while the lock is waited for ends the tool: the file is its holder's
file /ipmc/usr/adduser_mutex "held"
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
call lock "/ipmc/usr/adduser_mutex" 666 write 40 10
signal HUP
ends HUP

# adduser: the users cannot be read under the lock: not answered
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
> 06 46  02  < silent
|"Select OutTime \r\n"
fail| Add user failed, error code: 0x40000001
do released
do failed at the lock

# adduser: the users cannot be read under the lock: not sent
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < unsent
fail| Add user failed, error code: 0x40000000
do released
do failed at the lock

# adduser: the users cannot be read under the lock: a name is refused
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
> 06 46  02  < CC
fail| Add user failed, error code: 0x64600CC
do released
do failed at the lock

# adduser: the users cannot be read under the lock: an access is refused
$ cfgtool -d adduser -v carol
call vos_check_username "carol"
do proven
do locked
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < C9
fail| Add user failed, error code: 0x64400C9
do released
do failed at the lock

# adduser: the name is not answered, after five waits of each send; the lock goes first
$ cfgtool -d adduser -v carol
do chosen
>> 06 45  04 CAROL  < silent
|"Select OutTime \r\n"
do released
fail| Add user failed, error code: 0x40000001
do failed

# adduser: the name is not sent
$ cfgtool -d adduser -v carol
do chosen
>> 06 45  04 CAROL  < unsent
do released
fail| Add user failed, error code: 0x40000000
do failed

# adduser: the name is refused
$ cfgtool -d adduser -v carol
do chosen
>> 06 45  04 CAROL  < D7
do released
fail| Add user failed, error code: 0x64500D7
do failed

# adduser: the terminal fails at the password: the name goes
result tcgetattr 0 0 0 0 0 0 0 0 0 0 -1 -1
$ cfgtool -d adduser -v carol
do named
hidden|"Password:"
refuse| Input password error.
do rolled back
do failed

# adduser: the terminal fails at the confirmation: what was typed and the name go
result tcgetattr 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 -1 -1
$ cfgtool -d adduser -v carol
do named
hidden|"Password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
secret "Foxglove 2"
refuse| Confirm password error.
do rolled back
do failed

# adduser: the confirmation is another word: both and the name go
$ cfgtool -d adduser -v carol
do named
hidden|"Password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Bluebell 3\r"
|"\n"
secret "Foxglove 2"
secret "Bluebell 3"
refuse| Confirm password error.
do rolled back
do failed

# adduser: the confirmation is only how the password begins
$ cfgtool -d adduser -v carol
do named
hidden|"Password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Foxglove \r"
|"\n"
secret "Foxglove 2"
refuse| Confirm password error.
do rolled back
do failed

# adduser: a roll-back that fails is not told
$ cfgtool -d adduser -v carol
do named
hidden|"Password:"
hidden "ab\r"
|"\n"
hidden|"Confirm password:"
hidden "ba\r"
|"\n"
refuse| Confirm password error.
>> 06 45  04 NOBODY  < D7
do failed

# adduser: a repeated string is warned of, and set after y
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "y\n"
>> 06 47  84 02 ROPES  < 00
secret "ropes-ropes-"
do enabled

# adduser: a repeated string is set after Y
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "Y\n"
>> 06 47  84 02 ROPES  < 00
secret "ropes-ropes-"
do enabled

# adduser: a repeated string is abandoned by n without a word; it and the name go
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "n\n"
refuse|""
secret "ropes-ropes-"
do rolled back
do failed

# adduser: a repeated string is abandoned by N without a word
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "N\n"
refuse|""
secret "ropes-ropes-"
do rolled back
do failed

# adduser: a repeated string is abandoned by another answer
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "x\n"
refuse| Input character invalid.
secret "ropes-ropes-"
do rolled back
do failed

# adduser: a repeated string is abandoned by an empty line
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "\n"
refuse| Input character invalid.
secret "ropes-ropes-"
do rolled back
do failed

# adduser: a repeated string is abandoned by the end of the input
$ cfgtool -d adduser -v carol
do repetition typed twice
keys "\x04"
refuse| Input character invalid.
secret "ropes-ropes-"
do rolled back
do failed

# adduser: an empty password is left to the controller
$ cfgtool -d adduser -v carol
do named
hidden|"Password:"
hidden "\r"
|"\n"
hidden|"Confirm password:"
hidden "\r"
|"\n"
>> 06 47  84 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 84
fail| Set user password failed, error code: 0x6470084
do rolled back
do rules
do failed

# adduser: the password is not answered: the name goes before it is told
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < silent
secret "Foxglove 2"
|"Select OutTime \r\n"
do rolled back
fail| Add user failed, error code: 0x40000001
do failed

# adduser: the password is not sent
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < unsent
secret "Foxglove 2"
do rolled back
fail| Add user failed, error code: 0x40000000
do failed

# adduser: a roll-back that fails before the code is told gives its own
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < unsent
secret "Foxglove 2"
>> 06 45  04 NOBODY  < D7
fail| Add user failed, error code: 0x64500D7
do failed

# adduser: a password against the controller's rules: the code is told, the name goes, the rules are told
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < 84
secret "Foxglove 2"
fail| Set user password failed, error code: 0x6470084
do rolled back
do rules
do failed

# adduser: a password is refused even where the answer's length ends before the completion code
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < 84 length 6
secret "Foxglove 2"
fail| Set user password failed, error code: 0x6470084
do rolled back
do rules
do failed

# adduser: the password is refused for another reason: told before the name goes
$ cfgtool -d adduser -v carol
do named
do typed twice
>> 06 47  84 02 FOXGLOVE  < CC
secret "Foxglove 2"
fail| Add user failed, error code: 0x64700CC
>> 06 45  04 NOBODY  < unsent
do failed

# adduser: enabling is not answered
$ cfgtool -d adduser -v carol
do given a password
>> 06 47  04 01 NOBODY  < silent
|"Select OutTime \r\n"
do rolled back
fail| Add user failed, error code: 0x40000001
do failed

# adduser: enabling is not sent
$ cfgtool -d adduser -v carol
do given a password
>> 06 47  04 01 NOBODY  < unsent
do rolled back
fail| Add user failed, error code: 0x40000000
do failed

# adduser: enabling is refused for the password: another sentence, the name goes, the rules are told
$ cfgtool -d adduser -v carol
do given a password
>> 06 47  04 01 NOBODY  < 84
fail| Set user priv failed, error code: 0x6470084
do rolled back
do rules
do failed

# adduser: enabling is refused for another reason
$ cfgtool -d adduser -v carol
do given a password
>> 06 47  04 01 NOBODY  < C1
fail| Add user failed, error code: 0x64700C1
do rolled back
do failed

# adduser: a record that is not written changes nothing
result vos_zentro_log -1
$ cfgtool -d adduser -v carol
do given a password
do enabled
