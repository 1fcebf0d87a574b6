# gateway: closed, then told, then recorded
$ cfgtool -t eth0 -d gateway -v 192.168.1.254
> 0C 01  01 00 01           < 00         # set in progress
> 0C 01  01 0C C0 A8 01 FE  < 00         # default gateway, high octet first
> 0C 01  01 00 00           < 00         # set complete
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(192.168.1.254) success,EvtCode:0x21200670"

# gateway takes every form of address that inet_aton takes: two parts
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 0A 00 00 01  < 00
> 0C 01  01 00 00           < 00
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(10.1) success,EvtCode:0x21200670"

# gateway: one number
$ cfgtool -t eth0 -d gateway -v 16909060
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 01 02 03 04  < 00
> 0C 01  01 00 00           < 00
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(16909060) success,EvtCode:0x21200670"

# gateway: octal and hexadecimal parts, as many digits as one likes
$ cfgtool -t eth0 -d gateway -v 0xC0.0250.0001.0xfe
> 0C 01  01 00 01           < 00
> 0C 01  01 0C C0 A8 01 FE  < 00
> 0C 01  01 00 00           < 00
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(0xC0.0250.0001.0xfe) success,EvtCode:0x21200670"

# gateway: no rule for interfaces holds
$ cfgtool -t eth0 -d gateway -v 0.0.0.0
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 00 00 00 00  < 00
> 0C 01  01 00 00           < 00
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(0.0.0.0) success,EvtCode:0x21200670"

# gateway: whether the bracket closes makes no difference after a success
$ cfgtool -t eth0 -d gateway -v 224.0.0.1
> 0C 01  01 00 01           < 00
> 0C 01  01 0C E0 00 00 01  < 00
> 0C 01  01 00 00           < silent
|"Select OutTime \r\n"
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(224.0.0.1) success,EvtCode:0x21200670"

# gateway: an operator may not, with words or without
uid 503
$ cfgtool -t eth0 -d gateway -v 10.1
$ cfgtool -t eth0 -d gateway
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# gateway: too few words, too many, another first one
$ cfgtool -t eth0 -d gateway
$ cfgtool -t eth0 -d gateway -v
$ cfgtool -t eth0 -d gateway 10.1
$ cfgtool -t eth0 -d gateway -x 10.1
$ cfgtool -t eth0 -d gateway 10.1 -v
$ cfgtool -t eth0 -d gateway -v 10.1 10.2
usage| Usage: cfgtool -t eth0 -d gateway -v <gateway>

# gateway: a text that is no address, or 255.255.255.255: nothing is sent
$ cfgtool -t eth0 -d gateway -v 1.2.3.256
$ cfgtool -t eth0 -d gateway -v 1.2.3.4444
$ cfgtool -t eth0 -d gateway -v 1..2.3
$ cfgtool -t eth0 -d gateway -v nonsense
$ cfgtool -t eth0 -d gateway -v fe80::1
$ cfgtool -t eth0 -d gateway -v ''
$ cfgtool -t eth0 -d gateway -v 255.255.255.255
$ cfgtool -t eth0 -d gateway -v 0xFFFFFFFF
refuse| Input parameter format invalid.

# gateway: opening is refused: told, and not closed
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < 81
fail| Set gateway failed, error code: 0xC010181

# gateway: opening is not answered: told, and not closed
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < silent
|"Select OutTime \r\n"
fail| Set gateway failed, error code: 0x40000001

# gateway: opening is not sent: told, and not closed
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < unsent
fail| Set gateway failed, error code: 0x40000000

# gateway: not answered: told, then closed
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 0A 00 00 01  < silent
|"Select OutTime \r\n"
fail| Set gateway failed, error code: 0x40000001
> 0C 01  01 00 00           < C1

# gateway: not sent: told, then closed
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 0A 00 00 01  < unsent
fail| Set gateway failed, error code: 0x40000000
> 0C 01  01 00 00           < 00

# gateway: refused: told, then closed
$ cfgtool -t eth0 -d gateway -v 10.1
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 0A 00 00 01  < 80
fail| Set gateway failed, error code: 0xC010C80
> 0C 01  01 00 00           < C1
