# trap state: trap sending as a whole: closed, then told, then recorded
$ cfgtool -t trap -d state -v enabled
> 0C 01  01 00 01               < 00      # set in progress
> 0C 01  01 C2 D9 7E 00  01     < 00      # enabled
> 0C 01  01 00 00               < silent  # set complete
|"Select OutTime \r\n"
done| Set trap enabled success.
log 2 Alert "Enable trap success,EvtCode:0x21300770"

# trap state: off as a whole is recorded in lower case
$ cfgtool -t trap -d state -v disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C2 D9 7E 00  00     < 00
> 0C 01  01 00 00               < C1      # makes no difference
done| Set trap disabled success.
log 2 Alert "disable trap success,EvtCode:0x21300770"

# trap state: one destination: closed, then told, then recorded
$ cfgtool -t trap -d state -v 3 enabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  04 00 04 00  < 00  # which is changed, and to what: a bit each
> 0C 01  01 00 00               < silent
|"Select OutTime \r\n"
done| Set trap dest3 enabled success.
log 2 Alert "Enable trap destination3 success,EvtCode:0x213007B0"

# trap state: off for one destination
$ cfgtool -t trap -d state -v 3 disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  04 00 00 00  < 00
> 0C 01  01 00 00               < C1      # makes no difference
done| Set trap dest3 disabled success.
log 2 Alert "Disable trap destination3 success,EvtCode:0x213007B0"

# trap state: the first destination
$ cfgtool -t trap -d state -v 1 enabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  01 00 01 00  < 00
> 0C 01  01 00 00               < 00
done| Set trap dest1 enabled success.
log 2 Alert "Enable trap destination1 success,EvtCode:0x213007B0"

# trap state: the second destination
$ cfgtool -t trap -d state -v 2 disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  02 00 00 00  < 00
> 0C 01  01 00 00               < 00
done| Set trap dest2 disabled success.
log 2 Alert "Disable trap destination2 success,EvtCode:0x213007B0"

# trap state: the destination is the number its word begins with
$ cfgtool -t trap -d state -v 4 enabled
$ cfgtool -t trap -d state -v 4x enabled
$ cfgtool -t trap -d state -v 4.9 enabled
$ cfgtool -t trap -d state -v ' 4' enabled
$ cfgtool -t trap -d state -v +4 enabled
$ cfgtool -t trap -d state -v 04 enabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  08 00 08 00  < 00
> 0C 01  01 00 00               < 00
done| Set trap dest4 enabled success.
log 2 Alert "Enable trap destination4 success,EvtCode:0x213007B0"

# trap state: no such destination
$ cfgtool -t trap -d state -v 0 enabled
$ cfgtool -t trap -d state -v 5 enabled
$ cfgtool -t trap -d state -v -1 enabled
$ cfgtool -t trap -d state -v 0x1 enabled
$ cfgtool -t trap -d state -v x1 enabled
$ cfgtool -t trap -d state -v '' enabled
$ cfgtool -t trap -d state -v enabled enabled
$ cfgtool -t trap -d state -v enabled 1
$ cfgtool -t trap -d state -v 257 enabled
$ cfgtool -t trap -d state -v 4294967297 enabled
usage| Usage: cfgtool -t trap -d state -v [destN(1~4)] <disabled|enabled>

# trap state: no such state, as a whole or for one
$ cfgtool -t trap -d state -v Enabled
$ cfgtool -t trap -d state -v DISABLED
$ cfgtool -t trap -d state -v enable
$ cfgtool -t trap -d state -v enabledx
$ cfgtool -t trap -d state -v 'enabled '
$ cfgtool -t trap -d state -v 1
$ cfgtool -t trap -d state -v ''
$ cfgtool -t trap -d state -v 1 Enabled
$ cfgtool -t trap -d state -v 1 Disabled
$ cfgtool -t trap -d state -v 1 disable
$ cfgtool -t trap -d state -v 1 disabledx
$ cfgtool -t trap -d state -v 1 1
$ cfgtool -t trap -d state -v 1 ''
$ cfgtool -t trap -d state -v 1 enabledenabledenabled
usage| Usage: cfgtool -t trap -d state -v [destN(1~4)] <disabled|enabled>

# trap state: too few words, too many, another first one
$ cfgtool -t trap -d state
$ cfgtool -t trap -d state -v
$ cfgtool -t trap -d state enabled
$ cfgtool -t trap -d state enabled -v
$ cfgtool -t trap -d state -x enabled
$ cfgtool -t trap -d state -x 1 enabled
$ cfgtool -t trap -d state 1 enabled -v
$ cfgtool -t trap -d state -v 1 enabled enabled
usage| Usage: cfgtool -t trap -d state -v [destN(1~4)] <disabled|enabled>

# trap state: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d state -v enabled
$ cfgtool -t trap -d state -v 1 enabled
$ cfgtool -t trap -d state
> 06 44  01 03                  < 00 11 05 01 03
refuse| Insufficient privilege level

# trap state: as a whole, opening is refused: told, and not closed
$ cfgtool -t trap -d state -v enabled
> 0C 01  01 00 01               < 81
fail| Set trap state, error code: 0xC010181

# trap state: as a whole, opening is not answered: told, and not closed
$ cfgtool -t trap -d state -v enabled
> 0C 01  01 00 01               < silent
|"Select OutTime \r\n"
fail| Set trap state, error code: 0x40000001

# trap state: as a whole, opening is not sent: told, and not closed
$ cfgtool -t trap -d state -v disabled
> 0C 01  01 00 01               < unsent
fail| Set trap state, error code: 0x40000000

# trap state: as a whole, refused: told, then closed
$ cfgtool -t trap -d state -v enabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C2 D9 7E 00  01     < 80
fail| Set trap enabled failed, error code: 0xC01C280
> 0C 01  01 00 00               < silent
|"Select OutTime \r\n"

# trap state: as a whole, not answered: told without a blank, then closed
$ cfgtool -t trap -d state -v disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C2 D9 7E 00  00     < silent
|"Select OutTime \r\n"
fail| Set trap disabled failed,error code: 0x40000001
> 0C 01  01 00 00               < C1

# trap state: as a whole, not sent: told without a blank, then closed
$ cfgtool -t trap -d state -v disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C2 D9 7E 00  00     < unsent
fail| Set trap disabled failed,error code: 0x40000000
> 0C 01  01 00 00               < 00

# trap state: for one, opening is refused: told, and not closed
$ cfgtool -t trap -d state -v 2 enabled
> 0C 01  01 00 01               < 81
fail| Set trap dest state, error code: 0xC010181

# trap state: for one, opening is not answered: told, and not closed
$ cfgtool -t trap -d state -v 2 enabled
> 0C 01  01 00 01               < silent
|"Select OutTime \r\n"
fail| Set trap dest state, error code: 0x40000001

# trap state: for one, opening is not sent: told, and not closed
$ cfgtool -t trap -d state -v 2 disabled
> 0C 01  01 00 01               < unsent
fail| Set trap dest state, error code: 0x40000000

# trap state: for one, refused: told, then closed
$ cfgtool -t trap -d state -v 2 enabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  02 00 02 00  < 80
fail| Set trap dest2 enabled failed, error code: 0xC01C180
> 0C 01  01 00 00               < silent
|"Select OutTime \r\n"

# trap state: for one, not answered: told without a blank, then closed
$ cfgtool -t trap -d state -v 2 disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  02 00 00 00  < silent
|"Select OutTime \r\n"
fail| Set trap dest2 disabled failed,error code: 0x40000001
> 0C 01  01 00 00               < C1

# trap state: for one, not sent: told without a blank, then closed
$ cfgtool -t trap -d state -v 2 disabled
> 0C 01  01 00 01               < 00
> 0C 01  01 C1 D9 7E 00  02 00 00 00  < unsent
fail| Set trap dest2 disabled failed,error code: 0x40000000
> 0C 01  01 00 00               < 00
