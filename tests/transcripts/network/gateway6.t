# gateway6: closed, then told, then recorded; the address goes last byte first
$ cfgtool -t eth0 -d gateway6 -v 2001:db8:1:2:3:4:5:6
> 0C 01  01 00 01           < 00         # set in progress
> 0C 01  01 CE D9 7E 00  06 00 05 00 04 00 03 00 02 00 01 00 B8 0D 01 20  < 00
> 0C 01  01 00 00           < 00         # set complete
done| Set gateway6 success.
log 2 Network "Set Mgmt Eth IPv6 gateway(2001:db8:1:2:3:4:5:6) success,EvtCode:0x212006B0"

# gateway6: a text that is no address sends the all-zero one
$ cfgtool -t eth0 -d gateway6 -v nonsense
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00           < 00
done| Set gateway6 success.
log 2 Network "Set Mgmt Eth IPv6 gateway(nonsense) success,EvtCode:0x212006B0"

# gateway6: a prefix length makes it no address
$ cfgtool -t eth0 -d gateway6 -v fe80::1/64
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00           < 00
done| Set gateway6 success.
log 2 Network "Set Mgmt Eth IPv6 gateway(fe80::1/64) success,EvtCode:0x212006B0"

# gateway6: an empty text is no address either
$ cfgtool -t eth0 -d gateway6 -v ''
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00           < 00
done| Set gateway6 success.
log 2 Network "Set Mgmt Eth IPv6 gateway() success,EvtCode:0x212006B0"

# gateway6: a long text that is no address; the record is cut to 511 characters
$ cfgtool -t eth0 -d gateway6 -v {a*5000}
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00           < 00
done| Set gateway6 success.
log 2 Network "Set Mgmt Eth IPv6 gateway({a*485}"

# gateway6: whether the bracket closes makes no difference after a success
$ cfgtool -t eth0 -d gateway6 -v ::ffff:1.2.3.4
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  04 03 02 01 FF FF 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00           < C1
done| Set gateway6 success.
log 2 Network "Set Mgmt Eth IPv6 gateway(::ffff:1.2.3.4) success,EvtCode:0x212006B0"

# gateway6: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d gateway6 -v fe80::1
$ cfgtool -t eth0 -d gateway6
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# gateway6: too few words, too many, another first one
$ cfgtool -t eth0 -d gateway6
$ cfgtool -t eth0 -d gateway6 -v
$ cfgtool -t eth0 -d gateway6 -x fe80::1
$ cfgtool -t eth0 -d gateway6 fe80::1 -v
$ cfgtool -t eth0 -d gateway6 -v fe80::1 64
usage| Usage: cfgtool -t eth0 -d gateway6 -v <gateway6>

# gateway6: opening is refused: told, and not closed
$ cfgtool -t eth0 -d gateway6 -v fe80::1
> 0C 01  01 00 01           < C0
fail| Set gateway6 failed, error code: 0xC0101C0

# gateway6: opening is not answered: told, and not closed
$ cfgtool -t eth0 -d gateway6 -v fe80::1
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
fail| Set gateway6 failed, error code: 0x40000001

# gateway6: opening is not sent: told, and not closed
$ cfgtool -t eth0 -d gateway6 -v fe80::1
> 0C 01  01 00 01           < unsent
fail| Set gateway6 failed, error code: 0x40000000

# gateway6: not answered: told, then closed
$ cfgtool -t eth0 -d gateway6 -v fe80::1
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < silent
|"Select OutTime \r\n"
fail| Set gateway6 failed, error code: 0x40000001
> 0C 01  01 00 00           < C1

# gateway6: not sent: told, then closed
$ cfgtool -t eth0 -d gateway6 -v fe80::1
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < unsent
fail| Set gateway6 failed, error code: 0x40000000
> 0C 01  01 00 00           < 00

# gateway6: refused: told, then closed
$ cfgtool -t eth0 -d gateway6 -v fe80::1
> 0C 01  01 00 01           < 00
> 0C 01  01 CE D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE  < 80
fail| Set gateway6 failed, error code: 0xC01CE80
> 0C 01  01 00 00           < C1
