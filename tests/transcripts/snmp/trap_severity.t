# trap severity: closed, then told, then recorded by name: all
$ cfgtool -t trap -d severity -v 0
> 0C 01  01 00 01               < 00      # set in progress
> 0C 01  01 C4 D9 7E 00  00 00  < 00
> 0C 01  01 00 00               < silent  # set complete
|"Select OutTime \r\n"
done| Set trap severity success.
log 2 Alert "Set trap severity filter(All) success,EvtCode:0x21300780"

# trap severity: minor and above
$ cfgtool -t trap -d severity -v 1
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 01  < 00
> 0C 01  01 00 00               < C1      # makes no difference
done| Set trap severity success.
log 2 Alert "Set trap severity filter(MinorAlarm) success,EvtCode:0x21300780"

# trap severity: major and above
$ cfgtool -t trap -d severity -v 2
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 02  < 00
> 0C 01  01 00 00               < 00
done| Set trap severity success.
log 2 Alert "Set trap severity filter(MajorAlarm) success,EvtCode:0x21300780"

# trap severity: critical, in every decimal form
$ cfgtool -t trap -d severity -v 3
$ cfgtool -t trap -d severity -v 03
$ cfgtool -t trap -d severity -v +3
$ cfgtool -t trap -d severity -v ' 3'
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 03  < 00
> 0C 01  01 00 00               < 00
done| Set trap severity success.
log 2 Alert "Set trap severity filter(CriticalAlarm) success,EvtCode:0x21300780"

# trap severity: hexadecimal is taken, and sends and records 0; so does an empty word
$ cfgtool -t trap -d severity -v 0x3
$ cfgtool -t trap -d severity -v 0X2
$ cfgtool -t trap -d severity -v 0x01
$ cfgtool -t trap -d severity -v -0
$ cfgtool -t trap -d severity -v ''
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 00  < 00
> 0C 01  01 00 00               < 00
done| Set trap severity success.
log 2 Alert "Set trap severity filter(All) success,EvtCode:0x21300780"

# trap severity: no such severity, no number, a dot, too few words, too many, another first one
$ cfgtool -t trap -d severity -v 4
$ cfgtool -t trap -d severity -v -1
$ cfgtool -t trap -d severity -v 0x4
$ cfgtool -t trap -d severity -v 0x
$ cfgtool -t trap -d severity -v 3x
$ cfgtool -t trap -d severity -v '3 '
$ cfgtool -t trap -d severity -v 3.0
$ cfgtool -t trap -d severity -v .
$ cfgtool -t trap -d severity -v ALL
$ cfgtool -t trap -d severity -v 256
$ cfgtool -t trap -d severity -v 4294967296
$ cfgtool -t trap -d severity
$ cfgtool -t trap -d severity -v
$ cfgtool -t trap -d severity 3
$ cfgtool -t trap -d severity 3 -v
$ cfgtool -t trap -d severity -x 3
$ cfgtool -t trap -d severity -v 3 3
usage| Usage: cfgtool -t trap -d severity -v <option>
usage| Options are:
usage|     0    ALL
usage|     1    Minor and above
usage|     2    Major and above
usage|     3    Critical

# trap severity: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d severity -v 3
$ cfgtool -t trap -d severity
> 06 44  01 03                  < 00 11 05 01 03
refuse| Insufficient privilege level

# trap severity: opening is refused: told, and not closed
$ cfgtool -t trap -d severity -v 3
> 0C 01  01 00 01               < 81
fail| Set trap severity, error code: 0xC010181

# trap severity: opening is not answered: told, and not closed
$ cfgtool -t trap -d severity -v 3
> 0C 01  01 00 01               < silent
|"Select OutTime \r\n"
fail| Set trap severity, error code: 0x40000001

# trap severity: opening is not sent: told, and not closed
$ cfgtool -t trap -d severity -v 3
> 0C 01  01 00 01               < unsent
fail| Set trap severity, error code: 0x40000000

# trap severity: refused: told, then closed
$ cfgtool -t trap -d severity -v 3
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 03  < 84
fail| Set trap severity failed, error code: 0xC01C484
> 0C 01  01 00 00               < silent
|"Select OutTime \r\n"

# trap severity: not answered: told without a blank, then closed
$ cfgtool -t trap -d severity -v 3
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 03  < silent
|"Select OutTime \r\n"
fail| Set trap severity failed,error code: 0x40000001
> 0C 01  01 00 00               < C1

# trap severity: not sent: told without a blank, then closed
$ cfgtool -t trap -d severity -v 3
> 0C 01  01 00 01               < 00
> 0C 01  01 C4 D9 7E 00  00 03  < unsent
fail| Set trap severity failed,error code: 0x40000000
> 0C 01  01 00 00               < 00
