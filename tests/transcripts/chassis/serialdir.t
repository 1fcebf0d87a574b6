# serialdir: 0 leads the panel's connector to the host
$ cfgtool -d serialdir -v 0
$ cfgtool -d serialdir -v 0x0
$ cfgtool -d serialdir -v ''
> 30 91  D9 7E 00 17 01 00  < 00 D9 7E 00
done| Set serial port direction successfully!
| Serial port direction is:SYS COM.
log 2 Serial "Set serial direction(Panel Connector->Host Serial) success,EvtCode:0x20500240"

# serialdir: 1 leads it to the controller's debug port
$ cfgtool -d serialdir -v 1
$ cfgtool -d serialdir -v 0x1
$ cfgtool -d serialdir -v 01
> 30 91  D9 7E 00 17 01 04  < 00 D9 7E 00
done| Set serial port direction successfully!
| Serial port direction is:BMC COM.
log 2 Serial "Set serial direction(Panel Connector->Zentro debug Serial) success,EvtCode:0x20500240"

# serialdir: 2 is taken, and nothing is done, said or recorded
$ cfgtool -d serialdir -v 2
$ cfgtool -d serialdir -v 0x2
refuse|""

# serialdir: exactly "-v" and a number up to 2, else usage
$ cfgtool -d serialdir
$ cfgtool -d serialdir -v
$ cfgtool -d serialdir 1
$ cfgtool -d serialdir -v 1 1
$ cfgtool -d serialdir -x 1
$ cfgtool -d serialdir -x 2
$ cfgtool -d serialdir -v 3
$ cfgtool -d serialdir -v 4
$ cfgtool -d serialdir -v 256
$ cfgtool -d serialdir -v 4294967296
$ cfgtool -d serialdir -v -1
$ cfgtool -d serialdir -v sys
$ cfgtool -d serialdir -v 1.
usage| Usage: cfgtool -d serialdir -v <option>.
usage| Options are:
usage|  0     Serial switch from SYS COM to PANEL COM.
usage|  1     Serial switch from BMC COM to PANEL COM.

# serialdir: an operator may not
uid 503
$ cfgtool -d serialdir -v 0
$ cfgtool -d serialdir -v 2
$ cfgtool -d serialdir
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# serialdir: not answered
$ cfgtool -d serialdir -v 0
> 30 91  D9 7E 00 17 01 00  < silent
|"Select OutTime \r\n"
fail| Set serial direction failed, error code: 0x40000001.

# serialdir: not sent
$ cfgtool -d serialdir -v 1
> 30 91  D9 7E 00 17 01 04  < unsent
fail| Set serial direction failed, error code: 0x40000000.

# serialdir: refused, in other words than not answered
$ cfgtool -d serialdir -v 0
> 30 91  D9 7E 00 17 01 00  < C1
fail| Set serial port direction failed, error code: 0x309100C1.

# serialdir 1: refused
$ cfgtool -d serialdir -v 1
> 30 91  D9 7E 00 17 01 04  < D5 D9 7E 00
fail| Set serial port direction failed, error code: 0x309100D5.
