steps asked
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"

steps confirmed
do asked
keys "y\n"

# frucontrol: 0 resets the host, at top level and under fru0
$ cfgtool -d frucontrol -v 0
$ cfgtool -t fru0 -d frucontrol -v 0
do confirmed
> 2C 04  00 00 00  < 00 00                            # PICMG identifier, FRU 0, option
done| FRU control fru0 (cold reset) successfully.
log 2 Host "Host cold reset success,EvtCode:0x20100030"

# frucontrol: 2 reboots the host, at top level and under fru0
$ cfgtool -d frucontrol -v 2
$ cfgtool -t fru0 -d frucontrol -v 2
do confirmed
> 2C 04  00 00 02  < 00 00
done| FRU control fru0 (graceful reboot) successfully.
log 2 Host "Host graceful reboot success,EvtCode:0x20100040"

# frucontrol: what the answer holds besides its completion code does not matter
$ cfgtool -d frucontrol -v 2
do confirmed
> 2C 04  00 00 02  < 00 cut 7
done| FRU control fru0 (graceful reboot) successfully.
log 2 Host "Host graceful reboot success,EvtCode:0x20100040"

# frucontrol: hexadecimal, leading zeros, blanks and signs are numbers
$ cfgtool -d frucontrol -v 0x2
$ cfgtool -d frucontrol -v 0X2
$ cfgtool -d frucontrol -v 002
$ cfgtool -d frucontrol -v ' +2'
do confirmed
> 2C 04  00 00 02  < 00 00
done| FRU control fru0 (graceful reboot) successfully.
log 2 Host "Host graceful reboot success,EvtCode:0x20100040"

# frucontrol: a capital Y is a yes
$ cfgtool -d frucontrol -v 0
do asked
keys "Y\n"
> 2C 04  00 00 00  < 00 00
done| FRU control fru0 (cold reset) successfully.
log 2 Host "Host cold reset success,EvtCode:0x20100030"

# frucontrol 0: n says nothing and leaves the option's record
$ cfgtool -d frucontrol -v 0
$ cfgtool -t fru0 -d frucontrol -v 0
do asked
keys "n\n"
refuse|""
log 2 Host "Host cold reset fail,EvtCode:0x20100031"

# frucontrol 2: a capital N says nothing and leaves the option's record
$ cfgtool -d frucontrol -v 2
$ cfgtool -t fru0 -d frucontrol -v 2
do asked
keys "No\n"
refuse|""
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"

# frucontrol 0: another answer is told and leaves the option's record
$ cfgtool -d frucontrol -v 0
do asked
keys "0\n"
refuse| Input character invalid.
log 2 Host "Host cold reset fail,EvtCode:0x20100031"

# frucontrol 2: an empty line is another answer
$ cfgtool -d frucontrol -v 2
do asked
keys "\n"
refuse| Input character invalid.
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"

# frucontrol: the end of the input is another answer
$ cfgtool -d frucontrol -v 2
do asked
refuse| Input character invalid.
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"

# frucontrol: exactly "-v" and 0 or 2, else usage and a record, and no question
$ cfgtool -d frucontrol
$ cfgtool -d frucontrol -v
$ cfgtool -d frucontrol 2
$ cfgtool -d frucontrol -v 2 2
$ cfgtool -d frucontrol -x 2
$ cfgtool -d frucontrol -v2
$ cfgtool -d frucontrol -v 1
$ cfgtool -d frucontrol -v 3
$ cfgtool -d frucontrol -v abc
$ cfgtool -d frucontrol -v 0x
$ cfgtool -d frucontrol -v -2
$ cfgtool -d frucontrol -v 2.0
$ cfgtool -d frucontrol -v 256
$ cfgtool -d frucontrol -v 4294967298
$ cfgtool -t fru0 -d frucontrol
$ cfgtool -t fru0 -d frucontrol -v 1
usage| Usage: cfgtool -d frucontrol -v <option>
usage| Options are:
usage|     0    Cold Reset
usage|     2    Graceful Reboot
log 2 Host "Host power control fail,EvtCode:0x20100011"

# frucontrol: an operator may not, whatever is typed, and it is recorded as of no option
uid 503
$ cfgtool -d frucontrol -v 0
$ cfgtool -t fru0 -d frucontrol -v 2
$ cfgtool -d frucontrol
> 06 44  01 03  < 00 11 05 01 03
refuse| Insufficient privilege level
log 2 Host "Host power control fail,EvtCode:0x20100011"

# frucontrol: nobody can tell who is calling: no question, and it is recorded
uid 503
$ cfgtool -d frucontrol -v 0
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!
log 2 Host "Host power control fail,EvtCode:0x20100011"

# frucontrol 0: not answered
$ cfgtool -d frucontrol -v 0
$ cfgtool -t fru0 -d frucontrol -v 0
do confirmed
> 2C 04  00 00 00  < silent
|"Select OutTime \r\n"
fail| FRU control fru0 (cold reset) failed, error code: 0x40000001
log 2 Host "Host cold reset fail,EvtCode:0x20100031"

# frucontrol 2: not answered
$ cfgtool -d frucontrol -v 2
do confirmed
> 2C 04  00 00 02  < silent
|"Select OutTime \r\n"
fail| FRU control fru0 (graceful reboot) failed, error code: 0x40000001
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"

# frucontrol: not sent
$ cfgtool -d frucontrol -v 2
do confirmed
> 2C 04  00 00 02  < unsent
fail| FRU control fru0 (graceful reboot) failed, error code: 0x40000000
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"

# frucontrol 0: not in the present state is explained, on a line that ends in a bare line feed
$ cfgtool -d frucontrol -v 0
do confirmed
> 2C 04  00 00 00  < D5
fail 2C0400D5|"Set fru0 Power Control(cold reset)failed: Command not supported in present state\n"
log 2 Host "Host cold reset fail,EvtCode:0x20100031"

# frucontrol 2: not in the present state
$ cfgtool -t fru0 -d frucontrol -v 2
do confirmed
> 2C 04  00 00 02  < D5
fail 2C0400D5|"Set fru0 Power Control(graceful reboot)failed: Command not supported in present state\n"
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"

# frucontrol 0: any other refusal is only recorded
$ cfgtool -d frucontrol -v 0
do confirmed
> 2C 04  00 00 00  < C1
fail 2C0400C1|""
log 2 Host "Host cold reset fail,EvtCode:0x20100031"

# frucontrol 2: any other refusal is only recorded
$ cfgtool -d frucontrol -v 2
do confirmed
> 2C 04  00 00 02  < CC
fail 2C0400CC|""
log 2 Host "Host graceful reboot fail,EvtCode:0x20100041"
