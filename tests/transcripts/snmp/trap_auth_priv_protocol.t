# trap auth_priv_protocol: the option is sent, told and recorded; there is no bracket
$ cfgtool -t trap -d auth_priv_protocol -v 1
> 30 93  D9 7E 00  2B 09 00  01  < 00
done| Set trap auth_priv_protocol 1 success.
log 2 Alert "Set SNMP trap auth_priv_protocol(1) success,EvtCode:0x21300790"

# trap auth_priv_protocol: 2
$ cfgtool -t trap -d auth_priv_protocol -v 2
> 30 93  D9 7E 00  2B 09 00  02  < 00
done| Set trap auth_priv_protocol 2 success.
log 2 Alert "Set SNMP trap auth_priv_protocol(2) success,EvtCode:0x21300790"

# trap auth_priv_protocol: 3
$ cfgtool -t trap -d auth_priv_protocol -v 3
> 30 93  D9 7E 00  2B 09 00  03  < 00
done| Set trap auth_priv_protocol 3 success.
log 2 Alert "Set SNMP trap auth_priv_protocol(3) success,EvtCode:0x21300790"

# trap auth_priv_protocol: 4, however it is written
$ cfgtool -t trap -d auth_priv_protocol -v 4
$ cfgtool -t trap -d auth_priv_protocol -v 0x4
$ cfgtool -t trap -d auth_priv_protocol -v 0X04
$ cfgtool -t trap -d auth_priv_protocol -v 04
$ cfgtool -t trap -d auth_priv_protocol -v +4
$ cfgtool -t trap -d auth_priv_protocol -v ' 4'
> 30 93  D9 7E 00  2B 09 00  04  < 00
done| Set trap auth_priv_protocol 4 success.
log 2 Alert "Set SNMP trap auth_priv_protocol(4) success,EvtCode:0x21300790"

# trap auth_priv_protocol: no such option, no number, too few words, too many, another first one
$ cfgtool -t trap -d auth_priv_protocol -v 0
$ cfgtool -t trap -d auth_priv_protocol -v 5
$ cfgtool -t trap -d auth_priv_protocol -v -1
$ cfgtool -t trap -d auth_priv_protocol -v 1x
$ cfgtool -t trap -d auth_priv_protocol -v 1.0
$ cfgtool -t trap -d auth_priv_protocol -v '1 '
$ cfgtool -t trap -d auth_priv_protocol -v 0x
$ cfgtool -t trap -d auth_priv_protocol -v 0x5
$ cfgtool -t trap -d auth_priv_protocol -v ''
$ cfgtool -t trap -d auth_priv_protocol -v MD5
$ cfgtool -t trap -d auth_priv_protocol -v 257
$ cfgtool -t trap -d auth_priv_protocol -v 4294967297
$ cfgtool -t trap -d auth_priv_protocol
$ cfgtool -t trap -d auth_priv_protocol -v
$ cfgtool -t trap -d auth_priv_protocol 1
$ cfgtool -t trap -d auth_priv_protocol 1 -v
$ cfgtool -t trap -d auth_priv_protocol -x 1
$ cfgtool -t trap -d auth_priv_protocol -v 1 2
usage| Usage: cfgtool -t trap -d  auth_priv_protocol -v <option>
usage| Options are:
usage|     1    Authentication protocol MD5  Privacy protocol DES
usage|     2    Authentication protocol MD5  Privacy protocol AES
usage|     3    Authentication protocol SHA  Privacy protocol DES
usage|     4    Authentication protocol SHA  Privacy protocol AES

# trap auth_priv_protocol: an operator may not, with words or without
uid 503
$ cfgtool -t trap -d auth_priv_protocol -v 1
$ cfgtool -t trap -d auth_priv_protocol
> 06 44  01 03                   < 00 11 05 01 03
refuse| Insufficient privilege level

# trap auth_priv_protocol: refused; the second byte of the maker's number stands in the code
$ cfgtool -t trap -d auth_priv_protocol -v 3
> 30 93  D9 7E 00  2B 09 00  03  < CC
fail| Set trap auth_priv_protocol 3 failed, error code: 0x30937ECC

# trap auth_priv_protocol: not answered: told without a blank
$ cfgtool -t trap -d auth_priv_protocol -v 3
> 30 93  D9 7E 00  2B 09 00  03  < silent
|"Select OutTime \r\n"
fail| Set trap auth_priv_protocol 3 failed,error code: 0x40000001

# trap auth_priv_protocol: not sent: told without a blank
$ cfgtool -t trap -d auth_priv_protocol -v 3
> 30 93  D9 7E 00  2B 09 00  03  < unsent
fail| Set trap auth_priv_protocol 3 failed,error code: 0x40000000
