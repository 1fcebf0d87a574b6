steps asked
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"

steps confirmed
do asked
keys "y\n"

# clearcmos: the bit is set in the flags as they are, and taken back at once in the flags as they are then
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 3C 11 22 33      # boot flags: valid, boot from floppy
> 00 08  00 01              < 00                           # set in progress
> 00 08  05 80 BC 11 22 33  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 C0 BD 44 55 66
> 00 08  05 C0 3D 44 55 66  < 00
> 00 08  00 00              < 00                           # set complete

# clearcmos: flags that are not valid are written back as they are, with the bit
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 00 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 00 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 00 80 00 00 00
> 00 08  05 00 00 00 00 00  < 00
> 00 08  00 00              < 00

# clearcmos: a capital Y is a yes
$ cfgtool -d clearcmos
do asked
keys "Y\n"
> 00 09  05 00 00           < D5
fail| Clear CMOS  failed, error code: 0x905D5

# clearcmos: n says nothing and leaves no record
$ cfgtool -d clearcmos
do asked
keys "n\n"
refuse|""

# clearcmos: a capital N says nothing and leaves no record
$ cfgtool -d clearcmos
do asked
keys "N\n"
refuse|""

# clearcmos: another answer is told
$ cfgtool -d clearcmos
do asked
keys "0\n"
refuse| Input character invalid.

# clearcmos: an empty line is another answer
$ cfgtool -d clearcmos
do asked
keys "\n"
refuse| Input character invalid.

# clearcmos: the end of the input is another answer
$ cfgtool -d clearcmos
do asked
refuse| Input character invalid.

# clearcmos: any word is one too many, and no question is asked
$ cfgtool -d clearcmos -v
$ cfgtool -d clearcmos -v 1
$ cfgtool -d clearcmos ''
usage| Usage: cfgtool -d clearcmos

# clearcmos: an operator may not
uid 503
$ cfgtool -d clearcmos
$ cfgtool -d clearcmos -v 1
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# clearcmos: the flags cannot be read: nothing is opened
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < silent
|"Select OutTime \r\n"
fail| Clear CMOS  failed, error code: 0x40000001

# clearcmos: the flags cannot be asked for: nothing is opened
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < unsent
fail| Clear CMOS  failed, error code: 0x40000000

# clearcmos: the flags are refused: nothing is opened
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 80
fail| Clear CMOS  failed, error code: 0x90580

# clearcmos: another parameter comes than the one asked for: nothing is opened, and the completion code told is 0
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 04 80 00 00 00 00
fail| Clear CMOS  failed, error code: 0x90500

# clearcmos: the highest bit beside the parameter's number does not matter
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 85 80 00 00 00 00
> 00 08  00 01              < C1
fail| Clear CMOS  failed, error code: 0x801C1

# clearcmos: no boot flags behind the parameter's number: nothing is opened
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 cut 9
fail| Clear CMOS  failed, error code: 0x90500

# clearcmos: more than five boot flags: nothing is opened
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00 00
fail| Clear CMOS  failed, error code: 0x90500

# clearcmos: flags that are missing are 0, here all but the first
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 cut 10
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 80 84 cut 11
> 00 08  05 80 04 00 00 00  < 00
> 00 08  00 00              < 00

# clearcmos: an answer without a checksum is as good as one with it
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 11 22 33 cut 14
> 00 08  00 01              < 00
> 00 08  05 80 80 11 22 33  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 80 80 11 22 33 cut 14
> 00 08  05 80 00 11 22 33  < 00
> 00 08  00 00              < 00

# clearcmos: set in progress already is as good as opened and closed
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 81
> 00 08  05 80 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 80 80 00 00 00
> 00 08  05 80 00 00 00 00  < 00
> 00 08  00 00              < 81

# clearcmos: opening is not answered: told, and not closed
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < silent
|"Select OutTime \r\n"
fail| Clear CMOS  failed, error code: 0x40000001

# clearcmos: opening is not sent: told, and not closed
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < unsent
fail| Clear CMOS  failed, error code: 0x40000000

# clearcmos: the clearing is refused: told, then closed, and nothing is taken back
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 80
fail| Clear CMOS  failed, error code: 0x80080
> 00 08  00 00              < 00

# clearcmos: the clearing is refused, and then the closing, which is not told
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 81
fail| Clear CMOS  failed, error code: 0x80081
> 00 08  00 00              < C1

# clearcmos: the clearing is not answered: told, and the bit is taken back
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < silent
|"Select OutTime \r\n"
fail| Clear CMOS  failed, error code: 0x40000001
> 00 09  05 00 00           < 00 01 05 80 80 00 00 00
> 00 08  05 80 00 00 00 00  < 00
> 00 08  00 00              < 00

# clearcmos: the clearing is not sent: told, and the bit is taken back
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < unsent
fail| Clear CMOS  failed, error code: 0x40000000
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  05 80 00 00 00 00  < 00
> 00 08  00 00              < 00

# clearcmos: the flags cannot be read again: nothing is taken back, which is not told
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < unsent
> 00 08  00 00              < 00

# clearcmos: the flags are refused the second time: nothing is taken back, which is not told
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < C1
> 00 08  00 00              < 00

# clearcmos: taking the bit back is refused, which is not told
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 80 80 00 00 00
> 00 08  05 80 00 00 00 00  < 82
> 00 08  00 00              < 00

# clearcmos: neither taking the bit back nor closing is sent, which is not told
$ cfgtool -d clearcmos
do confirmed
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 80 00 00 00  < 00
done| Clear CMOS successfully.
log 2 CMOS "Clear CMOS success,EvtCode:0x20400230"
> 00 09  05 00 00           < 00 01 05 80 80 00 00 00
> 00 08  05 80 00 00 00 00  < unsent
> 00 08  00 00              < unsent
fail 40000000|""
