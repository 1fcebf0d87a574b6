# service state: enabled: recorded, then told
$ cfgtool -t service -d state -v webssl enabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  41  < 00
log 2 Zentro "Enable webssl service success,EvtCode:0x202001A0"
done| Set webssl service state success.

# service state: disabled
$ cfgtool -t service -d state -v webssl disabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  40  < 00
log 2 Zentro "Disable webssl service success,EvtCode:0x202001A0"
done| Set webssl service state success.

# service state: a request without an answer counts as a success
$ cfgtool -t service -d state -v webssl enabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  41  < silent
|"Select OutTime \r\n"
fail 40000001|""
log 2 Zentro "Enable webssl service success,EvtCode:0x202001A0"
done| Set webssl service state success.

# service state: and so does one that is not sent
$ cfgtool -t service -d state -v webssl disabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  40  < unsent
fail 40000000|""
log 2 Zentro "Disable webssl service success,EvtCode:0x202001A0"
done| Set webssl service state success.

# service state: and one whose answers are others'
$ cfgtool -t service -d state -v webssl disabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  40  < netfn
fail 40000002|""
log 2 Zentro "Disable webssl service success,EvtCode:0x202001A0"
done| Set webssl service state success.

# service state: refused: told, then recorded
$ cfgtool -t service -d state -v webssl enabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  41  < C1
fail| Set service state failed, error code: 0x309300C1.
log 2 Zentro "Enable webssl service fail,EvtCode:0x202001A1"

# service state: refused when it is to be disabled
$ cfgtool -t service -d state -v webssl disabled
> 30 93  D9 7E 00  0F 09 01 00 00 01  40  < D5
fail| Set service state failed, error code: 0x309300D5.
log 2 Zentro "Disable webssl service fail,EvtCode:0x202001A1"

# service state: the other services are not for this tool, and only the whole name in small letters is one
$ cfgtool -t service -d state -v ftp enabled
$ cfgtool -t service -d state -v ssh enabled
$ cfgtool -t service -d state -v telnet enabled
$ cfgtool -t service -d state -v kvm enabled
$ cfgtool -t service -d state -v vmm enabled
$ cfgtool -t service -d state -v cim enabled
$ cfgtool -t service -d state -v wsman enabled
$ cfgtool -t service -d state -v snmp enabled
$ cfgtool -t service -d state -v lan enabled
$ cfgtool -t service -d state -v video enabled
$ cfgtool -t service -d state -v http enabled
$ cfgtool -t service -d state -v '' enabled
$ cfgtool -t service -d state -v WEBSSL enabled
$ cfgtool -t service -d state -v webss enabled
$ cfgtool -t service -d state -v websslx enabled
$ cfgtool -t service -d state -v ' webssl' enabled
$ cfgtool -t service -d state -v 9 enabled
usage|"Usage: \r\n"
usage|        cfgtool -t service -d state -v <webssl> <enabled|disabled>
log 2 Zentro "Enable/Disable service fail,EvtCode:0x202001A1"

# service state: no such state
$ cfgtool -t service -d state -v webssl Enabled
$ cfgtool -t service -d state -v webssl DISABLED
$ cfgtool -t service -d state -v webssl enable
$ cfgtool -t service -d state -v webssl disabledx
$ cfgtool -t service -d state -v webssl 'enabled '
$ cfgtool -t service -d state -v webssl 1
$ cfgtool -t service -d state -v webssl ''
usage|"Usage: \r\n"
usage|        cfgtool -t service -d state -v <webssl> <enabled|disabled>
log 2 Zentro "Enable/Disable service fail,EvtCode:0x202001A1"

# service state: too few words, too many, another first one
$ cfgtool -t service -d state
$ cfgtool -t service -d state -v
$ cfgtool -t service -d state -v webssl
$ cfgtool -t service -d state webssl enabled
$ cfgtool -t service -d state webssl enabled -v
$ cfgtool -t service -d state -x webssl enabled
$ cfgtool -t service -d state -V webssl enabled
$ cfgtool -t service -d state -v webssl enabled enabled
usage|"Usage: \r\n"
usage|        cfgtool -t service -d state -v <webssl> <enabled|disabled>
log 2 Zentro "Enable/Disable service fail,EvtCode:0x202001A1"

# service state: an operator may not, with words or without: told, then recorded
uid 503
$ cfgtool -t service -d state -v webssl enabled
$ cfgtool -t service -d state -v ssh enabled
$ cfgtool -t service -d state
> 06 44  01 03                            < 00 11 05 01 03
refuse| Insufficient privilege level
log 2 Zentro "Enable/Disable service fail,EvtCode:0x202001A1"

# service state: a privilege that cannot be found out is recorded in the same way
uid 504
$ cfgtool -t service -d state -v webssl enabled
> 06 44  01 04                            < unsent
refuse 40000000| send 'Get User Access Command' failed!
log 2 Zentro "Enable/Disable service fail,EvtCode:0x202001A1"

# service state: an administrator may
uid 504
$ cfgtool -t service -d state -v webssl enabled
> 06 44  01 04                            < 00 11 05 01 04
> 30 93  D9 7E 00  0F 09 01 00 00 01  41  < 00
log 2 Zentro "Enable webssl service success,EvtCode:0x202001A0"
done| Set webssl service state success.
