let NOBODY = 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00
let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00
let BOB = 62 6F 62 00 00 00 00 00 00 00 00 00 00 00 00 00
let SESAME = 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00     # "Sesame-1"
let FOXGLOVE = 46 6F 78 67 6C 6F 76 65 20 32 00 00 00 00 00 00 00 00 00 00   # "Foxglove 2"
let CHECK = D9 7E 00 11 00                                                    # OEM identifier, check password

steps nobody
> 06 46  {N*1:02X}     < 00 NOBODY
> 06 44  01 {N*1:02X}  < 00 11 02 00 0F

steps users
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < 00 11 02 00 34
> 06 46  03     < 00 BOB
> 06 44  01 03  < 00 11 02 00 33
do nobody for 4..17

steps proven by admin
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"
do users

steps proven by bob
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK BOB SESAME  < 00
secret "Sesame-1"
do users

steps proven by an empty password
do users
hidden|"Input your password:"
hidden "\r"
|"\n"
> 30 91  CHECK ADMIN 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
do users

steps typed twice
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Foxglove 2\r"
|"\n"

steps repetition typed twice
hidden|"New password:"
hidden "ropes-ropes-\r"
|"\n"
hidden|"Confirm password:"
hidden "ropes-ropes-\r"
|"\n"

steps warned
| WARNING: Using a password consisting of only repeated string may have many adverse effects,such as aa, ababab, and abcdabcd.
confirm|"Do you want to continue?[Y/N]:"

steps repetition set
> 06 47  82 02  72 6F 70 65 73 2D 72 6F 70 65 73 2D 00 00 00 00 00 00 00 00  < 00
secret "ropes-ropes-"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"

steps repetition abandoned
secret "ropes-ropes-"
do admin failed

steps admin failed
log 1 User "Modify user(admin|user2) password fail,EvtCode:0x11100581"

steps rules
| Invalid Password:
| 1) Contains 8-20 characters.
| 2) Contains at least one space or one of the following special characters:`~!@#$%^&*()-_=+\|[{}];:'",<.>/?
| 3) Contains at least two types of the following characters:
|    - Letters:a to z;
|    - Letters:A to Z;
|    - Digits:0 to 9;
| 4) Password can not be the reverse of the account or accounts.

# password: root's own name is user 2's
$ cfgtool -d password -v admin
do proven by admin
do typed twice
> 06 47  82 02 FOXGLOVE  < 00
secret "Foxglove 2"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"

# password: root sets another's without being asked for a privilege
$ cfgtool -d password -v bob
do proven by admin
do typed twice
> 06 47  83 02 FOXGLOVE  < 00
secret "Foxglove 2"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(bob|user3) password success,EvtCode:0x11100580"

# password: one's own needs no privilege, and none is asked for
uid 503
$ cfgtool -d password -v bob
do proven by bob
do typed twice
> 06 47  83 02 FOXGLOVE  < 00
secret "Foxglove 2"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(bob|user3) password success,EvtCode:0x11100580"

# password: another's needs the privilege, asked for behind the own password
uid 503
$ cfgtool -d password -v admin
do proven by bob
> 06 44  01 03  < 00 11 02 00 34
do typed twice
> 06 47  82 02 FOXGLOVE  < 00
secret "Foxglove 2"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"

# password: an operator may not set another's
uid 503
$ cfgtool -d password -v admin
do proven by bob
> 06 44  01 03  < 00 11 02 00 33
refuse| Insufficient privilege level
do admin failed

# password: nor may one whose privilege is not answered
uid 503
$ cfgtool -d password -v admin
do proven by bob
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
do admin failed

# password: nor one whose privilege is refused
uid 503
$ cfgtool -d password -v admin
do proven by bob
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
do admin failed

# password: user 1 has no name of his own, so every user is another
uid 501
$ cfgtool -d password -v bob
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK NOBODY SESAME  < 00
secret "Sesame-1"
do users
> 06 44  01 01  < 00 11 02 00 0F
refuse| Insufficient privilege level
log 1 User "Modify user(bob|user3) password fail,EvtCode:0x11100581"

# password: a name that nobody has is refused in the words of the privilege; names are compared whole and to the letter
$ cfgtool -d password -v carol
$ cfgtool -d password -v adm
$ cfgtool -d password -v administrator
$ cfgtool -d password -v Admin
$ cfgtool -d password -v 'admin '
$ cfgtool -d password -v ''
do proven by admin
refuse| Insufficient privilege level
log 1 User "Modify user(user18) password fail,EvtCode:0x11100581"

# password: a name, no more and no less; nobody is asked for a privilege first
uid 503
$ cfgtool -d password
$ cfgtool -d password -v
$ cfgtool -d password bob
$ cfgtool -d password -v bob carol
$ cfgtool -d password -x bob
$ cfgtool -d password bob -v
usage| cfgtool -d password -v <username>
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: a wrong own password
$ cfgtool -d password -v admin
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 82
secret "Sesame-1"
refuse 30910082| Incorrect password.
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: no own password typed
$ cfgtool -d password -v admin
do users
hidden|"Input your password:"
refuse| Input your password error.
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: the users cannot be read: no question and no word
$ cfgtool -d password -v admin
> 06 46  02  < CC
refuse 064600CC|""
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: account 500 is no user
uid 500
$ cfgtool -d password -v admin
do users
refuse|""
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: the users cannot be read again: not answered
$ cfgtool -d password -v admin
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"
> 06 46  02  < silent
|"Select OutTime \r\n"
fail| Set user password failed, error code: 0x40000001
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: the users cannot be read again: a name is refused
$ cfgtool -d password -v admin
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"
> 06 46  02  < CC
fail| Set user password failed, error code: 0x64600CC
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: the users cannot be read again: an access is refused
$ cfgtool -d password -v admin
do users
hidden|"Input your password:"
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK ADMIN SESAME  < 00
secret "Sesame-1"
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < D4
fail| Set user password failed, error code: 0x64400D4
log 1 User "Modify user password fail,EvtCode:0x11100581"

# password: the terminal fails at the new one
$ cfgtool -d password -v admin
result tcgetattr 0 0 -1 -1
do proven by an empty password
hidden|"New password:"
refuse| Input new password error.
do admin failed

# password: the terminal fails at its confirmation, and the new one is forgotten
$ cfgtool -d password -v admin
result tcgetattr 0 0 0 0 0 0 0 0 0 0 0 0 0 0 -1 -1
do proven by an empty password
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
secret "Foxglove 2"
refuse| Confirm password error.
do admin failed

# password: the confirmation is another word, and both are forgotten
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Bluebell 3\r"
|"\n"
secret "Foxglove 2"
secret "Bluebell 3"
refuse| Confirm password error.
do admin failed

# password: the confirmation goes on behind the new one
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Foxglove 2!\r"
|"\n"
secret "Foxglove 2"
refuse| Confirm password error.
do admin failed

# password: the confirmation differs in the case of a letter
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "FoxGlove 2\r"
|"\n"
secret "Foxglove 2"
refuse| Confirm password error.
do admin failed

# password: an empty one is no failed input, and no repetition
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "\r"
|"\n"
hidden|"Confirm password:"
hidden "\r"
|"\n"
> 06 47  82 02  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"

# password: twenty characters fill the field
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "Foxglove 2 in a vase\r"
|"\n"
hidden|"Confirm password:"
hidden "Foxglove 2 in a vase\r"
|"\n"
> 06 47  82 02  46 6F 78 67 6C 6F 76 65 20 32 20 69 6E 20 61 20 76 61 73 65  < 00
secret "Foxglove 2 in a vase"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"

# password: a repeated string is warned of, and set after y
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "y\n"
do repetition set

# password: a repeated string is set after Y
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "Y\n"
do repetition set

# password: a repeated string is abandoned by n without a word, and forgotten
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "n\n"
refuse|""
do repetition abandoned

# password: a repeated string is abandoned by N without a word
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "N\n"
refuse|""
do repetition abandoned

# password: a repeated string is abandoned by another answer
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "1\n"
refuse| Input character invalid.
do repetition abandoned

# password: a repeated string is abandoned by an empty line
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "\n"
refuse| Input character invalid.
do repetition abandoned

# password: a repeated string is abandoned by the end of the input
$ cfgtool -d password -v admin
do proven by admin
do repetition typed twice
do warned
keys "\x04"
refuse| Input character invalid.
do repetition abandoned

# password: zzzzzzzz is a repeated string
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "zzzzzzzz\r"
|"\n"
hidden|"Confirm password:"
hidden "zzzzzzzz\r"
|"\n"
do warned
keys "n\n"
refuse|""
do admin failed

# password: abab is a repeated string
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "abab\r"
|"\n"
hidden|"Confirm password:"
hidden "abab\r"
|"\n"
do warned
keys "n\n"
refuse|""
do admin failed

# password: abcab is none
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "abcab\r"
|"\n"
hidden|"Confirm password:"
hidden "abcab\r"
|"\n"
> 06 47  82 02  61 62 63 61 62 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"

# password: a confirmation that differs is told before a repetition is looked for
$ cfgtool -d password -v admin
do proven by admin
hidden|"New password:"
hidden "abab\r"
|"\n"
hidden|"Confirm password:"
hidden "abba\r"
|"\n"
refuse| Confirm password error.
do admin failed

# password: not answered; the answer is waited for once each time it is sent
$ cfgtool -d password -v admin
do proven by admin
do typed twice
> 06 47  82 02 FOXGLOVE  < silent
secret "Foxglove 2"
|"Select OutTime \r\n"
fail| Set user password failed, error code: 0x40000001
do admin failed

# password: not sent
$ cfgtool -d password -v admin
do proven by admin
do typed twice
> 06 47  82 02 FOXGLOVE  < unsent
secret "Foxglove 2"
fail| Set user password failed, error code: 0x40000000
do admin failed

# password: against the controller's rules, which are told
$ cfgtool -d password -v admin
do proven by admin
do typed twice
> 06 47  82 02 FOXGLOVE  < 84
secret "Foxglove 2"
fail| Set user password failed, error code: 0x6470084
do rules
do admin failed

# password: refused for another reason
$ cfgtool -d password -v admin
do proven by admin
do typed twice
> 06 47  82 02 FOXGLOVE  < 80
secret "Foxglove 2"
fail| Set user password failed, error code: 0x6470080
do admin failed
