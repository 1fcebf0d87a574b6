# vlan: an id enables it; closed, then told, then recorded
$ cfgtool -t eth0 -d vlan -v 100
> 0C 01  01 00 01        < 00    # set in progress
> 0C 01  01 14  64 80    < 00    # VLAN id, low byte first, and the enable flag
> 0C 01  01 00 00        < 00    # set complete
done| Set eth0 vlan success.
log 2 Network "Enable Eth Vlan ID(100) success,EvtCode:0x21200CB0"

# vlan: 1 is the lowest id
$ cfgtool -t eth0 -d vlan -v 1
> 0C 01  01 00 01        < 00
> 0C 01  01 14  01 80    < 00
> 0C 01  01 00 00        < 00
done| Set eth0 vlan success.
log 2 Network "Enable Eth Vlan ID(1) success,EvtCode:0x21200CB0"

# vlan: 4094 is the highest; hexadecimal is taken
$ cfgtool -t eth0 -d vlan -v 4094
$ cfgtool -t eth0 -d vlan -v 0xFFE
$ cfgtool -t eth0 -d vlan -v 0Xffe
> 0C 01  01 00 01        < 00
> 0C 01  01 14  FE 8F    < 00
> 0C 01  01 00 00        < 00
done| Set eth0 vlan success.
log 2 Network "Enable Eth Vlan ID(4094) success,EvtCode:0x21200CB0"

# vlan: a leading 0 does not make it octal
$ cfgtool -t eth0 -d vlan -v 0100
> 0C 01  01 00 01        < 00
> 0C 01  01 14  64 80    < 00
> 0C 01  01 00 00        < 00
done| Set eth0 vlan success.
log 2 Network "Enable Eth Vlan ID(100) success,EvtCode:0x21200CB0"

# vlan off: id and flag are cleared
$ cfgtool -t eth0 -d vlan -v off
> 0C 01  01 00 01        < 00
> 0C 01  01 14  00 00    < 00
> 0C 01  01 00 00        < 00
done| Set eth0 vlan success.
log 2 Network "Disable Eth Vlan ID(0) success,EvtCode:0x21200CB0"

# vlan: whether the bracket closes makes no difference after a success
$ cfgtool -t eth0 -d vlan -v 0x123
> 0C 01  01 00 01        < 00
> 0C 01  01 14  23 81    < 00
> 0C 01  01 00 00        < silent
|"Select OutTime \r\n"
done| Set eth0 vlan success.
log 2 Network "Enable Eth Vlan ID(291) success,EvtCode:0x21200CB0"

# vlan: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d vlan -v 100
$ cfgtool -t eth0 -d vlan
> 06 44  01 03           < 00 11 05 01 03
refuse| Insufficient privilege level

# vlan: too few words, too many, another first one
$ cfgtool -t eth0 -d vlan
$ cfgtool -t eth0 -d vlan -v
$ cfgtool -t eth0 -d vlan off
$ cfgtool -t eth0 -d vlan -x 100
$ cfgtool -t eth0 -d vlan off -v
$ cfgtool -t eth0 -d vlan -v 100 200
usage| Usage: cfgtool -t eth0 -d vlan -v <off|<id>>

# vlan: what is neither "off" to the letter nor a number from 1 to 4094: nothing is sent
$ cfgtool -t eth0 -d vlan -v 0
$ cfgtool -t eth0 -d vlan -v 4095
$ cfgtool -t eth0 -d vlan -v abc
$ cfgtool -t eth0 -d vlan -v ''
$ cfgtool -t eth0 -d vlan -v OFF
$ cfgtool -t eth0 -d vlan -v off1
$ cfgtool -t eth0 -d vlan -v 100x
$ cfgtool -t eth0 -d vlan -v 0xFFF
$ cfgtool -t eth0 -d vlan -v -1
$ cfgtool -t eth0 -d vlan -v 4294967296
$ cfgtool -t eth0 -d vlan -v 4294967396
$ cfgtool -t eth0 -d vlan -v 18446744073709551716
$ cfgtool -t eth0 -d vlan -v {9*5000}
refuse| vlan id must be between 1 and 4094.

# vlan: opening is refused: told, and not closed
$ cfgtool -t eth0 -d vlan -v 100
> 0C 01  01 00 01        < 81
fail| Set eth0 vlan failed, error code: 0xC010181

# vlan: opening is not answered: told, and not closed
$ cfgtool -t eth0 -d vlan -v off
> 0C 01  01 00 01        < silent
|"Select OutTime \r\n"
fail| Set eth0 vlan failed, error code: 0x40000001

# vlan: opening is not sent: told, and not closed
$ cfgtool -t eth0 -d vlan -v 100
> 0C 01  01 00 01        < unsent
fail| Set eth0 vlan failed, error code: 0x40000000

# vlan: not answered: told, then closed
$ cfgtool -t eth0 -d vlan -v 100
> 0C 01  01 00 01        < 00
> 0C 01  01 14  64 80    < silent
|"Select OutTime \r\n"
fail| Set eth0 vlan failed, error code: 0x40000001
> 0C 01  01 00 00        < C1

# vlan: not sent: told, then closed
$ cfgtool -t eth0 -d vlan -v off
> 0C 01  01 00 01        < 00
> 0C 01  01 14  00 00    < unsent
fail| Set eth0 vlan failed, error code: 0x40000000
> 0C 01  01 00 00        < 00

# vlan: refused: told without the code, which a refusal does not set, then closed
$ cfgtool -t eth0 -d vlan -v 100
> 0C 01  01 00 01        < 00
> 0C 01  01 14  64 80    < 80
fail 0C011480| Set eth0 vlan failed, error code: 0x0
> 0C 01  01 00 00        < C1

# vlan: a number wraps around as 32-bit numbers do: -4294967295 is 1
$ cfgtool -t eth0 -d vlan -v -4294967295
> 0C 01  01 00 01        < 00
> 0C 01  01 14  01 80    < 00
> 0C 01  01 00 00        < 00
done| Set eth0 vlan success.
log 2 Network "Enable Eth Vlan ID(1) success,EvtCode:0x21200CB0"
