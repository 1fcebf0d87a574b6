steps asked
confirm|"This operation will reboot IPMC system. Continue? [Y/N]:"

steps confirmed
do asked
keys "y\n"

# reset: the controller starts anew, after a question without a warning line
$ cfgtool -d reset
do confirmed
> 06 02  < 00
done| Resetting...
log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"

# reset: a capital Y is a yes
$ cfgtool -d reset
do asked
keys "Y\n"
> 06 02  < 00
done| Resetting...
log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"

# reset: n says nothing and leaves no record
$ cfgtool -d reset
do asked
keys "n\n"
refuse|""

# reset: a capital N says nothing and leaves no record
$ cfgtool -d reset
do asked
keys "N\n"
refuse|""

# reset: another answer is told
$ cfgtool -d reset
do asked
keys "x\n"
refuse| Input character invalid.

# reset: an empty line is another answer
$ cfgtool -d reset
do asked
keys "\n"
refuse| Input character invalid.

# reset: the end of the input is another answer
$ cfgtool -d reset
do asked
refuse| Input character invalid.

# reset: any word is one too many, and no question is asked
$ cfgtool -d reset -v
$ cfgtool -d reset -v 1
$ cfgtool -d reset 1
$ cfgtool -d reset ''
$ cfgtool -d reset {x *255}
$ cfgtool -d reset {x *257}
usage| Usage: cfgtool -d reset

# reset: words are counted in eight bits: 256 are none
$ cfgtool -d reset {x *256}
do asked
keys "n\n"
refuse|""

# reset: an operator may not
uid 503
$ cfgtool -d reset
$ cfgtool -d reset -v 1
> 06 44  01 03  < 00 11 05 01 03
refuse| Insufficient privilege level

# reset: not answered
$ cfgtool -d reset
do confirmed
> 06 02  < silent
|"Select OutTime \r\n"
fail| Reset failed, error code: 0x40000001

# reset: not sent
$ cfgtool -d reset
do confirmed
> 06 02  < unsent
fail| Reset failed, error code: 0x40000000

# reset: refused
$ cfgtool -d reset
do confirmed
> 06 02  < D5
fail| Reset failed, error code: 0x60200D5
