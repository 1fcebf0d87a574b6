# printscreen: a snapshot of the screen as it is
$ cfgtool -d printscreen
> 30 93  D9 7E 00 03 00 00  < 00 D9 7E 00
done| Set printscreen successfully.
log 2 KVM "Save screen snapshot success,EvtCode:0x20F00520"

# printscreen: a snapshot of the screen woken up; what stands before the word does not matter
$ cfgtool -d printscreen -v wakeup
$ cfgtool -d printscreen foo wakeup
$ cfgtool -d printscreen wakeup wakeup
$ cfgtool -d printscreen '' wakeup
> 30 93  D9 7E 00 03 00 01  < 00 D9 7E 00
done| Set printscreen successfully.
log 2 KVM "Save screen snapshot success,EvtCode:0x20F00520"

# printscreen: no two words: usage with a blank at its end
$ cfgtool -d printscreen -v
$ cfgtool -d printscreen wakeup
$ cfgtool -d printscreen -v wakeup wakeup
$ cfgtool -d printscreen ''
usage|"Usage: cfgtool -d printscreen [-v wakeup] \r\n"

# printscreen: another second word: usage without a blank at its end
$ cfgtool -d printscreen -v wake
$ cfgtool -d printscreen -v wakeup1
$ cfgtool -d printscreen -v WAKEUP
$ cfgtool -d printscreen -v ''
$ cfgtool -d printscreen -v 1
$ cfgtool -d printscreen wakeup -v
usage| Usage: cfgtool -d printscreen [-v wakeup]

# printscreen: an operator may not
uid 503
$ cfgtool -d printscreen
$ cfgtool -d printscreen -v wakeup
$ cfgtool -d printscreen -v
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# printscreen: refused
$ cfgtool -d printscreen
> 30 93  D9 7E 00 03 00 00  < D5
fail| Set printscreen failed, error code: 0x3093D9D5

# printscreen: refused with wakeup
$ cfgtool -d printscreen -v wakeup
> 30 93  D9 7E 00 03 00 01  < C1 D9 7E 00
fail| Set printscreen failed, error code: 0x3093D9C1

# printscreen: what is not answered is recorded as done, but not said to be
$ cfgtool -d printscreen
> 30 93  D9 7E 00 03 00 00  < silent
|"Select OutTime \r\n"
fail 40000001|""
log 2 KVM "Save screen snapshot success,EvtCode:0x20F00520"

# printscreen: what is not sent is recorded as done, but not said to be
$ cfgtool -d printscreen -v wakeup
> 30 93  D9 7E 00 03 00 01  < unsent
fail 40000000|""
log 2 KVM "Save screen snapshot success,EvtCode:0x20F00520"
