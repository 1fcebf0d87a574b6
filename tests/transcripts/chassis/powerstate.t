steps asked
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"

steps confirmed
do asked
keys "y\n"

# powerstate: 0 asks the host to shut down, at top level and under fru0
$ cfgtool -d powerstate -v 0
$ cfgtool -t fru0 -d powerstate -v 0
do confirmed
> 00 02  05  < 00
done| Control power off graceful successfully.
log 2 Host "Set chassis control(power off graceful),EvtCode:0x201000B0"

# powerstate: 1 powers up, at top level and under fru0
$ cfgtool -d powerstate -v 1
$ cfgtool -t fru0 -d powerstate -v 1
do confirmed
> 00 02  01  < 00
done| Control power on successfully.
log 2 Host "Host power on success,EvtCode:0x20100010"

# powerstate: 2 powers down at once, at top level and under fru0
$ cfgtool -d powerstate -v 2
$ cfgtool -t fru0 -d powerstate -v 2
do confirmed
> 00 02  00  < 00
done| Control power off force successfully.
log 2 Host "Host power off force success,EvtCode:0x20100020"

# powerstate: hexadecimal, leading zeros, blanks and signs are numbers
$ cfgtool -d powerstate -v 0x2
$ cfgtool -d powerstate -v 0X02
$ cfgtool -d powerstate -v 02
$ cfgtool -d powerstate -v +2
$ cfgtool -d powerstate -v ' 2'
do confirmed
> 00 02  00  < 00
done| Control power off force successfully.
log 2 Host "Host power off force success,EvtCode:0x20100020"

# powerstate: an empty text and a negative zero are 0
$ cfgtool -d powerstate -v ''
$ cfgtool -d powerstate -v -0
do confirmed
> 00 02  05  < 00
done| Control power off graceful successfully.
log 2 Host "Set chassis control(power off graceful),EvtCode:0x201000B0"

# powerstate: a capital Y is a yes
$ cfgtool -d powerstate -v 1
do asked
keys "Y\n"
> 00 02  01  < 00
done| Control power on successfully.
log 2 Host "Host power on success,EvtCode:0x20100010"

# powerstate: only the first character of the answer counts
$ cfgtool -d powerstate -v 1
do asked
keys "yes, no\n"
> 00 02  01  < 00
done| Control power on successfully.
log 2 Host "Host power on success,EvtCode:0x20100010"

# powerstate: n says nothing, and leaves the same record whatever the option
$ cfgtool -d powerstate -v 0
$ cfgtool -d powerstate -v 1
$ cfgtool -d powerstate -v 2
$ cfgtool -t fru0 -d powerstate -v 2
do asked
keys "n\n"
refuse|""
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: a capital N and whatever follows it is a no
$ cfgtool -d powerstate -v 0
do asked
keys "Ny\n"
refuse|""
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: another answer is told, and leaves the same record whatever the option
$ cfgtool -d powerstate -v 0
$ cfgtool -d powerstate -v 1
$ cfgtool -d powerstate -v 2
do asked
keys "1\n"
refuse| Input character invalid.
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: a blank before the y is another answer
$ cfgtool -d powerstate -v 2
do asked
keys " y\n"
refuse| Input character invalid.
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: an empty line is another answer
$ cfgtool -d powerstate -v 2
do asked
keys "\n"
refuse| Input character invalid.
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: the end of the input is another answer
$ cfgtool -d powerstate -v 2
do asked
refuse| Input character invalid.
log 2 Host "Host power control fail,EvtCode:0x20100011"

steps usage
usage| Usage: cfgtool -d powerstate -v <option>
usage| Options are:
usage|     0    Graceful Power Off, deactivate FRU
usage|     1    Power on, activate FRU
usage|     2    Forcibly Power Off, deactivate FRU

# powerstate: exactly "-v" and 0, 1 or 2, else usage and a record, and no question
$ cfgtool -d powerstate
$ cfgtool -d powerstate -v
$ cfgtool -d powerstate 1
$ cfgtool -d powerstate -v 1 1
$ cfgtool -d powerstate -x 1
$ cfgtool -d powerstate -V 1
$ cfgtool -d powerstate 1 -v
$ cfgtool -d powerstate -v 3
$ cfgtool -d powerstate -v 0x3
$ cfgtool -d powerstate -v abc
$ cfgtool -d powerstate -v 1a
$ cfgtool -d powerstate -v '1 '
$ cfgtool -d powerstate -v 0x
$ cfgtool -d powerstate -v -1
$ cfgtool -d powerstate -v 256
$ cfgtool -d powerstate -v 257
$ cfgtool -d powerstate -v 4294967297
$ cfgtool -t fru0 -d powerstate
$ cfgtool -t fru0 -d powerstate -v 3
do usage
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: an operator may not, whatever is typed, and it is recorded
uid 503
$ cfgtool -d powerstate -v 1
$ cfgtool -t fru0 -d powerstate -v 3
$ cfgtool -d powerstate
> 06 44  01 03  < 00 11 05 01 03
refuse| Insufficient privilege level
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: nobody can tell who is calling: no question, and it is recorded
uid 503
$ cfgtool -d powerstate -v 0
> 06 44  01 03  < unsent
refuse 40000000| send 'Get User Access Command' failed!
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: the user's access is refused: no question, and it is recorded
uid 503
$ cfgtool -d powerstate -v 0
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!
log 2 Host "Host power control fail,EvtCode:0x20100011"

# powerstate: an administrator may
uid 503
$ cfgtool -d powerstate -v 1
> 06 44  01 03  < 00 11 05 01 04
do confirmed
> 00 02  01  < 00
done| Control power on successfully.
log 2 Host "Host power on success,EvtCode:0x20100010"

# powerstate 0: not answered
$ cfgtool -d powerstate -v 0
do confirmed
> 00 02  05  < silent
|"Select OutTime \r\n"
fail| Control power off graceful failed, error code: 0x40000001
log 2 Host "Set chassis control(power off graceful) fail,EvtCode:0x201000B1"

# powerstate 1: not answered
$ cfgtool -d powerstate -v 1
do confirmed
> 00 02  01  < silent
|"Select OutTime \r\n"
fail| Control power on failed, error code: 0x40000001
log 2 Host "Host power on fail,EvtCode:0x20100011"

# powerstate 2: not answered
$ cfgtool -d powerstate -v 2
do confirmed
> 00 02  00  < silent
|"Select OutTime \r\n"
fail| Control power off force failed, error code: 0x40000001
log 2 Host "Host power off force fail,EvtCode:0x20100021"

# powerstate: not sent
$ cfgtool -d powerstate -v 1
do confirmed
> 00 02  01  < unsent
fail| Control power on failed, error code: 0x40000000
log 2 Host "Host power on fail,EvtCode:0x20100011"

# powerstate: only answers to others
$ cfgtool -d powerstate -v 1
do confirmed
> 00 02  01  < command
fail| Control power on failed, error code: 0x40000002
log 2 Host "Host power on fail,EvtCode:0x20100011"

# powerstate 0: not in the present state is explained, on a line that ends in a bare line feed
$ cfgtool -d powerstate -v 0
do confirmed
> 00 02  05  < D5
fail 000200D5|"Set Power Control(power off graceful)failed: Command not supported in present state\n"
log 2 Host "Set chassis control(power off graceful) fail,EvtCode:0x201000B1"

# powerstate 1: not in the present state
$ cfgtool -d powerstate -v 1
do confirmed
> 00 02  01  < D5
fail 000200D5|"Set Power Control(power on)failed: Command not supported in present state\n"
log 2 Host "Host power on fail,EvtCode:0x20100011"

# powerstate 2: not in the present state
$ cfgtool -d powerstate -v 2
do confirmed
> 00 02  00  < D5
fail 000200D5|"Set Power Control(power off force)failed: Command not supported in present state\n"
log 2 Host "Host power off force fail,EvtCode:0x20100021"

# powerstate 0: any other refusal is only recorded
$ cfgtool -d powerstate -v 0
do confirmed
> 00 02  05  < C1
fail 000200C1|""
log 2 Host "Set chassis control(power off graceful) fail,EvtCode:0x201000B1"

# powerstate 1: any other refusal is only recorded
$ cfgtool -d powerstate -v 1
do confirmed
> 00 02  01  < D4
fail 000200D4|""
log 2 Host "Host power on fail,EvtCode:0x20100011"

# powerstate 2: any other refusal is only recorded
$ cfgtool -d powerstate -v 2
do confirmed
> 00 02  00  < FF
fail 000200FF|""
log 2 Host "Host power off force fail,EvtCode:0x20100021"
