# mode 1: dedicated needs no card in the host; closed, then told, then recorded
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < 00              # set in progress
> 0C 01  01 D7 D9 7E 00  01 < 00              # NIC mode
> 0C 01  01 00 00           < 00              # set complete
done| Set eth0 mode Dedicated success.
log 2 Network "Set Eth mode:Dedicated success,EvtCode:0x21200D00"

# mode 2: shared, once the host has a card
$ cfgtool -t eth0 -d mode -v 2
> 30 16  D9 7E 00           < 00 D9 7E 00 01  # number of the card's ports
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  02 < 00
> 0C 01  01 00 00           < 00
done| Set eth0 mode Shared success.
log 2 Network "Set Eth mode:Shared success,EvtCode:0x21200D00"

# mode 3: adaptive, with a card as well
$ cfgtool -t eth0 -d mode -v 3
> 30 16  D9 7E 00           < 00 D9 7E 00 04
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  03 < 00
> 0C 01  01 00 00           < 00
done| Set eth0 mode Adaptive success.
log 2 Network "Set Eth mode:Adaptive success,EvtCode:0x21200D00"

# mode: whether the bracket closes makes no difference after a success
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  01 < 00
> 0C 01  01 00 00           < silent
|"Select OutTime \r\n"
done| Set eth0 mode Dedicated success.
log 2 Network "Set Eth mode:Dedicated success,EvtCode:0x21200D00"

# mode: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d mode -v 1
$ cfgtool -t eth0 -d mode
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# mode: too few words, too many, another first one, or a value that is not 1, 2 or 3 to the letter
$ cfgtool -t eth0 -d mode
$ cfgtool -t eth0 -d mode -v
$ cfgtool -t eth0 -d mode -x 1
$ cfgtool -t eth0 -d mode 1 -v
$ cfgtool -t eth0 -d mode -v 1 2
$ cfgtool -t eth0 -d mode -v 01
$ cfgtool -t eth0 -d mode -v 0x1
$ cfgtool -t eth0 -d mode -v '1 '
$ cfgtool -t eth0 -d mode -v ''
$ cfgtool -t eth0 -d mode -v 0
$ cfgtool -t eth0 -d mode -v 4
$ cfgtool -t eth0 -d mode -v Dedicated
usage| Usage: cfgtool -t eth0 -d mode -v <option>
usage| Options are:
usage|"    1    Dedicated \r\n"
usage|"    2    Shared \r\n"
usage|"    3    Adaptive \r\n"

# mode: without a card in the host there is only the dedicated one
$ cfgtool -t eth0 -d mode -v 2
$ cfgtool -t eth0 -d mode -v 3
> 30 16  D9 7E 00           < 00 D9 7E 00 00
refuse| The NIC is not installed in the host!

# mode: a card of which is not told how many ports it has counts as none
$ cfgtool -t eth0 -d mode -v 2
> 30 16  D9 7E 00           < 00 D9 7E 00 cut 10
refuse| The NIC is not installed in the host!

# mode: so does one that cannot be asked about
$ cfgtool -t eth0 -d mode -v 3
> 30 16  D9 7E 00           < C1 D9 7E 00 01
refuse 30167EC1| The NIC is not installed in the host!

# mode: so does one about which there is no answer
$ cfgtool -t eth0 -d mode -v 2
> 30 16  D9 7E 00           < silent
|"Select OutTime \r\n"
refuse 40000001| The NIC is not installed in the host!

# mode: opening is refused: told as a state, and not closed
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < 81
fail| Set eth0 state failed, error code: 0xC010181

# mode: opening is not answered
$ cfgtool -t eth0 -d mode -v 2
> 30 16  D9 7E 00           < 00 D9 7E 00 02
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
fail| Set eth0 state failed, error code: 0x40000001

# mode: opening is not sent
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < unsent
fail| Set eth0 state failed, error code: 0x40000000

# mode: not answered: told, then closed
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  01 < silent
|"Select OutTime \r\n"
fail| Set eth0 mode failed, error code: 0x40000001
> 0C 01  01 00 00           < C1

# mode: not sent: told, then closed
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  01 < unsent
fail| Set eth0 mode failed, error code: 0x40000000
> 0C 01  01 00 00           < 00

# mode: the controller asks for patience: told in words of its own, then closed
$ cfgtool -t eth0 -d mode -v 1
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  01 < 81
fail 0C01D781| Curret state is not supported, please wait!
> 0C 01  01 00 00           < 00

# mode: refused: told, then closed
$ cfgtool -t eth0 -d mode -v 3
> 30 16  D9 7E 00           < 00 D9 7E 00 02
> 0C 01  01 00 01           < 00
> 0C 01  01 D7 D9 7E 00  03 < 80
fail| Set eth0 mode failed, error code: 0xC01D780
> 0C 01  01 00 00           < C1

# mode: a port count that is not sent counts as no card
$ cfgtool -t eth0 -d mode -v 2
> 30 16  D9 7E 00           < unsent
refuse 40000000| The NIC is not installed in the host!
