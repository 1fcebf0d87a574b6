# the user is LOGNAME, the origin the console
env LOGNAME=alice
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "alice" from "console"

# without LOGNAME the user is unknown
unset LOGNAME
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "unknown" from "console"

# an empty LOGNAME stays empty
env LOGNAME=
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "" from "console"

# a LOGNAME of 100,000 characters is cut to 63
env LOGNAME={a*100000}
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa" from "console"

# control characters are the platform's to escape
env LOGNAME=a\x01\x1b[2Jb
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "a\x01\x1b[2Jb" from "console"

# an SSH session: the client's address
env SSH_CONNECTION=10.1.2.3 51515 10.1.2.4 22
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "10.1.2.3"

# an SSH session without a blank: all of it
env SSH_CONNECTION=fe80::1
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "fe80::1"

# an empty SSH session: an empty origin
env SSH_CONNECTION=
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from ""

# an SSH session of 100,000 characters is cut to 63
env SSH_CONNECTION={x*100000} 22
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"

# a remote host
env REMOTEHOST=station.example
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "station.example"

# a remote host of 100,000 characters is cut to 63
env REMOTEHOST={y*100000}
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy"

# a remote host is taken whole, blanks and all
env REMOTEHOST=a b
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "a b"

# an SSH session goes before a remote host
env REMOTEHOST=station.example
env SSH_CONNECTION=10.1.2.3 51515 10.1.2.4 22
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from "10.1.2.3"

# a record that cannot be written changes nothing else
result vos_zentro_log -1
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# an SSH session that begins with a blank has no address
env SSH_CONNECTION= 10.1.2.3 51515 10.1.2.4 22
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from ""

# an empty SSH session goes before a remote host too
env SSH_CONNECTION=
env REMOTEHOST=station.example
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from ""

# an empty remote host is an empty origin, not the console
env REMOTEHOST=
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "tester" from ""

# an address of exactly 63 characters is kept whole, of a 64th nothing
env SSH_CONNECTION={0123456*9} 22
env LOGNAME={0123456*9}7
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "{0123456*9}" from "{0123456*9}"

# 100,000 control characters and percent signs are only cut
env LOGNAME={\x01%n\xff*30000}
env REMOTEHOST={%s\n*33333}
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0" by "{\x01%n\xff*15}\x01%n" from "{%s\n*21}"

# both records of a command carry user and origin
env LOGNAME=bob
env SSH_CONNECTION=fe80::2 51515 fe80::1 22
$ cfgtool -d fanmode -v 1 5
> 30 91  D9 7E 00 01 01  05 00 00 00  < 00
done| Set fan mode successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan mode(manual) success,EvtCode:0x20E004D0" by "bob" from "fe80::2"
log 2 Fan "Set fan manual mode expired time(5 seconds) success,EvtCode:0x20E004E0" by "bob" from "fe80::2"
