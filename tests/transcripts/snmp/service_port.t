# service port: recorded, then told; hexadecimal as well
$ cfgtool -t service -d port -v webssl 443
$ cfgtool -t service -d port -v webssl 0x1BB
$ cfgtool -t service -d port -v webssl 0X1bb
$ cfgtool -t service -d port -v webssl 0443
$ cfgtool -t service -d port -v webssl +443
$ cfgtool -t service -d port -v webssl ' 443'
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 BB 01  < 00  # of the secure web server, low byte first
log 2 Zentro "Set Web Server HTTPS service port(443) success, EvtCode:0x202001B0"
done| Set webssl service port to 443 success.

# service port: the lowest; a number that is below 0 by that much comes round to it
$ cfgtool -t service -d port -v webssl 1
$ cfgtool -t service -d port -v webssl 0x1
$ cfgtool -t service -d port -v webssl -4294967295
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 01 00  < 00
log 2 Zentro "Set Web Server HTTPS service port(1) success, EvtCode:0x202001B0"
done| Set webssl service port to 1 success.

# service port: the highest
$ cfgtool -t service -d port -v webssl 65535
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 FF FF  < 00
log 2 Zentro "Set Web Server HTTPS service port(65535) success, EvtCode:0x202001B0"
done| Set webssl service port to 65535 success.

# service port: a request without an answer counts as a success
$ cfgtool -t service -d port -v webssl 443
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 BB 01  < silent
|"Select OutTime \r\n"
fail 40000001|""
log 2 Zentro "Set Web Server HTTPS service port(443) success, EvtCode:0x202001B0"
done| Set webssl service port to 443 success.

# service port: and so does one that is not sent
$ cfgtool -t service -d port -v webssl 443
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 BB 01  < unsent
fail 40000000|""
log 2 Zentro "Set Web Server HTTPS service port(443) success, EvtCode:0x202001B0"
done| Set webssl service port to 443 success.

# service port: refused: told, then recorded
$ cfgtool -t service -d port -v webssl 443
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 BB 01  < C9
fail| Set service port failed, error code: 0x309300C9.
log 2 Zentro "Set Web Server HTTPS service port(443) fail, EvtCode:0x202001B1"

# service port: 0 is none; nor is an empty word
$ cfgtool -t service -d port -v webssl 0
$ cfgtool -t service -d port -v webssl 0x0
$ cfgtool -t service -d port -v webssl -0
$ cfgtool -t service -d port -v webssl ''
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port(0) fail, EvtCode:0x202001B1"

# service port: 65536 is none
$ cfgtool -t service -d port -v webssl 65536
$ cfgtool -t service -d port -v webssl 0x10000
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port(65536) fail, EvtCode:0x202001B1"

# service port: what is no number is recorded as -1
$ cfgtool -t service -d port -v webssl 44x
$ cfgtool -t service -d port -v webssl '443 '
$ cfgtool -t service -d port -v webssl 443.0
$ cfgtool -t service -d port -v webssl 0x
$ cfgtool -t service -d port -v webssl 0xG
$ cfgtool -t service -d port -v webssl 1BB
$ cfgtool -t service -d port -v webssl https
$ cfgtool -t service -d port -v webssl -1
$ cfgtool -t service -d port -v webssl 4294967295
$ cfgtool -t service -d port -v webssl 4294967739
$ cfgtool -t service -d port -v webssl 99999999999999999999
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port(-1) fail, EvtCode:0x202001B1"

# service port: a number above 2^31 is recorded as a negative one
$ cfgtool -t service -d port -v webssl 2147483648
$ cfgtool -t service -d port -v webssl 0x80000000
$ cfgtool -t service -d port -v webssl -2147483648
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port(-2147483648) fail, EvtCode:0x202001B1"

# service port: the other services are not for this tool, nor is what is none: the record has no text
$ cfgtool -t service -d port -v ftp 443
$ cfgtool -t service -d port -v ssh 443
$ cfgtool -t service -d port -v telnet 443
$ cfgtool -t service -d port -v kvm 443
$ cfgtool -t service -d port -v vmm 443
$ cfgtool -t service -d port -v cim 443
$ cfgtool -t service -d port -v wsman 443
$ cfgtool -t service -d port -v snmp 443
$ cfgtool -t service -d port -v lan 443
$ cfgtool -t service -d port -v video 443
$ cfgtool -t service -d port -v '' 443
$ cfgtool -t service -d port -v WEBSSL 443
$ cfgtool -t service -d port -v webss 443
$ cfgtool -t service -d port -v websslx 443
$ cfgtool -t service -d port -v 443 webssl
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro ""

# service port: too few words, too many, another first one: a record without a port
$ cfgtool -t service -d port
$ cfgtool -t service -d port -v
$ cfgtool -t service -d port -v webssl
$ cfgtool -t service -d port webssl 443
$ cfgtool -t service -d port webssl 443 -v
$ cfgtool -t service -d port -x webssl 443
$ cfgtool -t service -d port -V webssl 443
$ cfgtool -t service -d port -v webssl 443 444
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port fail, EvtCode:0x202001B1"

# service port: the words are counted before the privilege is asked for
uid 503
$ cfgtool -t service -d port
$ cfgtool -t service -d port -v webssl
$ cfgtool -t service -d port -x webssl 443
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port fail, EvtCode:0x202001B1"

# service port: an operator may not: told, then recorded with the port
uid 503
$ cfgtool -t service -d port -v webssl 443
> 06 44  01 03                                  < 00 11 05 01 03
refuse| Insufficient privilege level
log 2 Zentro "Set Web Server HTTPS service port(443) fail, EvtCode:0x202001B1"

# service port: with a port that is none, the privilege still comes first
uid 503
$ cfgtool -t service -d port -v webssl 44x
> 06 44  01 03                                  < 00 11 05 01 03
refuse| Insufficient privilege level
log 2 Zentro "Set Web Server HTTPS service port(-1) fail, EvtCode:0x202001B1"

# service port: with another service, the record has no text
uid 503
$ cfgtool -t service -d port -v ssh 22
> 06 44  01 03                                  < 00 11 05 01 03
refuse| Insufficient privilege level
log 2 Zentro ""

# service port: a privilege that cannot be found out
uid 504
$ cfgtool -t service -d port -v webssl 443
> 06 44  01 04                                  < C9
refuse 064400C9| Get User Access Command failed!
log 2 Zentro "Set Web Server HTTPS service port(443) fail, EvtCode:0x202001B1"

# service port: an administrator may
uid 504
$ cfgtool -t service -d port -v webssl 8443
> 06 44  01 04                                  < 00 11 05 01 04
> 30 93  D9 7E 00  0F 09 02 00 00 02  02 FB 20  < 00
log 2 Zentro "Set Web Server HTTPS service port(8443) success, EvtCode:0x202001B0"
done| Set webssl service port to 8443 success.
