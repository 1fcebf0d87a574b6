steps asked
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"

steps confirmed
do asked
keys "y\n"

# sel: the log is reserved and erased; a dot and a question every 100 ms until it is empty, at top level and under fru0
$ cfgtool -d sel -v clear
$ cfgtool -t fru0 -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12                     # reservation, low byte first
> 0A 47  34 12 43 4C 52 AA  < 00 00                        # "CLR", initiate erase
|"Clear sel ."
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < 00 00                        # erasure in progress
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < 00 01                        # erasure completed
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"

# sel: it is asked at least once, whatever initiating said
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 01 00
> 0A 47  01 00 43 4C 52 AA  < 00 01
|"Clear sel ."
sleep 100000
|"."
> 0A 47  01 00 43 4C 52 00  < 00 01
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"

# sel: only the low six bits of the status count, and only 1 ends the waiting
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 FF EE
> 0A 47  FF EE 43 4C 52 AA  < 00
|"Clear sel ."
sleep 100000
|"."
> 0A 47  FF EE 43 4C 52 00  < 00 02
sleep 100000
|"."
> 0A 47  FF EE 43 4C 52 00  < 00 11
sleep 100000
|"."
> 0A 47  FF EE 43 4C 52 00  < 00 C0
sleep 100000
|"."
> 0A 47  FF EE 43 4C 52 00  < 00 C1
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"

# sel: a status that is missing is not the end
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < 00 cut 7
|"Clear sel ."
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < 00 cut 7
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < 00 01
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"

# sel: a reservation that is missing is 0
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 cut 7
> 0A 47  00 00 43 4C 52 AA  < C5
fail| Clear SEL failed, error code: 0xA4700C5

# sel: a capital Y is a yes
$ cfgtool -d sel -v clear
do asked
keys "Y\n"
> 0A 42                     < C1
fail| Clear SEL failed, error code: 0xA4200C1

# sel: n says nothing and leaves no record
$ cfgtool -d sel -v clear
$ cfgtool -t fru0 -d sel -v clear
do asked
keys "n\n"
refuse|""

# sel: a capital N says nothing and leaves no record
$ cfgtool -d sel -v clear
do asked
keys "N\n"
refuse|""

# sel: another answer is told
$ cfgtool -d sel -v clear
$ cfgtool -t fru0 -d sel -v clear
do asked
keys "clear\n"
refuse| Input character invalid.

# sel: an empty line is another answer
$ cfgtool -d sel -v clear
do asked
keys "\n"
refuse| Input character invalid.

# sel: the end of the input is another answer
$ cfgtool -d sel -v clear
do asked
refuse| Input character invalid.

# sel: exactly "-v" and "clear", else usage, and no question
$ cfgtool -d sel
$ cfgtool -d sel -v
$ cfgtool -d sel clear
$ cfgtool -d sel -v clear clear
$ cfgtool -d sel -x clear
$ cfgtool -d sel -v Clear
$ cfgtool -d sel -v clea
$ cfgtool -d sel -v cleared
$ cfgtool -d sel -v ''
$ cfgtool -d sel clear -v
$ cfgtool -t fru0 -d sel
usage| Usage: cfgtool -d sel -v clear

# sel: an operator may not
uid 503
$ cfgtool -d sel -v clear
$ cfgtool -t fru0 -d sel -v clear
$ cfgtool -d sel
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# sel: the reservation is not answered
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < silent
|"Select OutTime \r\n"
fail| Clear SEL failed, error code: 0x40000001

# sel: the reservation is not sent
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < unsent
fail| Clear SEL failed, error code: 0x40000000

# sel: the reservation is refused
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 81
fail| Clear SEL failed, error code: 0xA420081

# sel: the erasing is not answered
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < silent
|"Select OutTime \r\n"
fail| Clear SEL failed, error code: 0x40000001

# sel: the erasing is not sent
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < unsent
fail| Clear SEL failed, error code: 0x40000000

# sel: the erasing is refused
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < C5
fail| Clear SEL failed, error code: 0xA4700C5

# sel: a status that is not sent ends the waiting as a success does
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < 00
|"Clear sel ."
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < unsent
fail 40000000|""
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"

# sel: a status that is not answered ends the waiting as a success does
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < 00
|"Clear sel ."
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < 00 00
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < silent
|"Select OutTime \r\n"
fail 40000001|""
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"

# sel: a status that is refused ends the waiting as a success does, whatever data come with it
$ cfgtool -d sel -v clear
do confirmed
> 0A 42                     < 00 34 12
> 0A 47  34 12 43 4C 52 AA  < 00
|"Clear sel ."
sleep 100000
|"."
> 0A 47  34 12 43 4C 52 00  < C5 00
fail 0A4700C5|""
done| completed.
log 2 SEL "Clear SEL records success,EvtCode:0x207002F0"
