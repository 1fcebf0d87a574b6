steps warned
| WARNING: Disabling the complexity checking function may reduce the system security.
confirm|"Do you want to continue?[Y/N]:"

steps confirmed
do warned
keys "y\n"

steps enabling failed
log 1 User "Enable local user password complexity check fail, EvtCode:0x11100BD1"

steps disabling failed
log 1 User "Disable local user password complexity check fail, EvtCode:0x11100BD1"

# passwordcomplexity: enable asks nothing
$ cfgtool -d passwordcomplexity -v enable
> 30 93  D9 7E 00 22 01  < 00
done| Set password complexity check state successfully
log 1 User "enable local user password complexity check success, EvtCode:0x11100BD0"

# passwordcomplexity: disable asks, and goes on after y
$ cfgtool -d passwordcomplexity -v disable
do warned
keys "y\n"
> 30 93  D9 7E 00 22 00  < 00
done| Set password complexity check state successfully
log 1 User "disable local user password complexity check success, EvtCode:0x11100BD0"

# passwordcomplexity: disable goes on after Y
$ cfgtool -d passwordcomplexity -v disable
do warned
keys "Y\n"
> 30 93  D9 7E 00 22 00  < 00
done| Set password complexity check state successfully
log 1 User "disable local user password complexity check success, EvtCode:0x11100BD0"

# passwordcomplexity: n says nothing and leaves a record
$ cfgtool -d passwordcomplexity -v disable
do warned
keys "n\n"
refuse|""
do disabling failed

# passwordcomplexity: N says nothing and leaves a record
$ cfgtool -d passwordcomplexity -v disable
do warned
keys "N\n"
refuse|""
do disabling failed

# passwordcomplexity: another answer
$ cfgtool -d passwordcomplexity -v disable
do warned
keys "1\n"
refuse| Input character invalid.
do disabling failed

# passwordcomplexity: an empty line
$ cfgtool -d passwordcomplexity -v disable
do warned
keys "\n"
refuse| Input character invalid.
do disabling failed

# passwordcomplexity: the end of the input
$ cfgtool -d passwordcomplexity -v disable
do warned
refuse| Input character invalid.
do disabling failed

# passwordcomplexity: the word in small letters and whole, and nothing behind it
$ cfgtool -d passwordcomplexity
$ cfgtool -d passwordcomplexity -v
$ cfgtool -d passwordcomplexity enable
$ cfgtool -d passwordcomplexity -v enable disable
$ cfgtool -d passwordcomplexity -x enable
$ cfgtool -d passwordcomplexity disable -v
$ cfgtool -d passwordcomplexity -v Enable
$ cfgtool -d passwordcomplexity -v DISABLE
$ cfgtool -d passwordcomplexity -v enabled
$ cfgtool -d passwordcomplexity -v dis
$ cfgtool -d passwordcomplexity -v ''
$ cfgtool -d passwordcomplexity -v 1
usage| Usage: cfgtool -d passwordcomplexity -v <enable/disable>
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# passwordcomplexity: an operator may not, whatever is typed, and a record is left
uid 503
$ cfgtool -d passwordcomplexity -v disable
$ cfgtool -d passwordcomplexity -v enable
$ cfgtool -d passwordcomplexity
> 06 44  01 03  < 00 11 02 00 33
refuse| Insufficient privilege level
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# passwordcomplexity: nor may one whose privilege is not answered
uid 503
$ cfgtool -d passwordcomplexity -v enable
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# passwordcomplexity: nor one whose privilege is refused
uid 503
$ cfgtool -d passwordcomplexity -v enable
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# passwordcomplexity: an administrator may
uid 503
$ cfgtool -d passwordcomplexity -v enable
> 06 44  01 03  < 00 11 02 00 34
> 30 93  D9 7E 00 22 01  < 00
done| Set password complexity check state successfully
log 1 User "enable local user password complexity check success, EvtCode:0x11100BD0"

# passwordcomplexity: enable is not answered
$ cfgtool -d passwordcomplexity -v enable
> 30 93  D9 7E 00 22 01  < silent
|"Select OutTime \r\n"
fail| Set password complexity check state failed, error code: 0x40000001
do enabling failed

# passwordcomplexity: enable is not sent
$ cfgtool -d passwordcomplexity -v enable
> 30 93  D9 7E 00 22 01  < unsent
fail| Set password complexity check state failed, error code: 0x40000000
do enabling failed

# passwordcomplexity: enable is refused; the code holds the second byte of the OEM identifier
$ cfgtool -d passwordcomplexity -v enable
> 30 93  D9 7E 00 22 01  < C1
fail| Set password complexity check state failed, error code: 0x30937EC1
do enabling failed

# passwordcomplexity: disable is not answered
$ cfgtool -d passwordcomplexity -v disable
do confirmed
> 30 93  D9 7E 00 22 00  < silent
|"Select OutTime \r\n"
fail| Set password complexity check state failed, error code: 0x40000001
do disabling failed

# passwordcomplexity: disable is not sent
$ cfgtool -d passwordcomplexity -v disable
do confirmed
> 30 93  D9 7E 00 22 00  < unsent
fail| Set password complexity check state failed, error code: 0x40000000
do disabling failed

# passwordcomplexity: disable is refused
$ cfgtool -d passwordcomplexity -v disable
do confirmed
> 30 93  D9 7E 00 22 00  < D5
fail| Set password complexity check state failed, error code: 0x30937ED5
do disabling failed
