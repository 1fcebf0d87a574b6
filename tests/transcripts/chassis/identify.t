# identify: without words the request carries no data, and the controller's own 15 seconds are recorded
$ cfgtool -d identify
> 00 04         < 00
log 2 LED "Set chassis identify(temporary on 15 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: force lights the LED for good
$ cfgtool -d identify -v force
> 00 04  FF 01  < 00
log 2 LED "Set chassis identify(stendy on) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: 0 turns it off, and so does every multiple of 256
$ cfgtool -d identify -v 0
$ cfgtool -d identify -v ''
$ cfgtool -d identify -v 256
$ cfgtool -d identify -v 0x100
$ cfgtool -d identify -v 65536
> 00 04  00 00  < 00
log 2 LED "Set chassis identify(off) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: 1 second, the shortest time
$ cfgtool -d identify -v 1
$ cfgtool -d identify -v 257
> 00 04  01 00  < 00
log 2 LED "Set chassis identify(temporary on 1 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: 15 seconds, asked for, are sent
$ cfgtool -d identify -v 15
$ cfgtool -d identify -v 0xF
> 00 04  0F 00  < 00
log 2 LED "Set chassis identify(temporary on 15 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: 255 seconds, the longest time, and what is taken for it
$ cfgtool -d identify -v 255
$ cfgtool -d identify -v 0xff
$ cfgtool -d identify -v 511
$ cfgtool -d identify -v 2147483647
$ cfgtool -d identify -v 4294967296
> 00 04  FF 00  < 00
log 2 LED "Set chassis identify(temporary on 255 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: 300 is taken for 44, in the request and in the record
$ cfgtool -d identify -v 300
> 00 04  2C 00  < 00
log 2 LED "Set chassis identify(temporary on 44 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# identify: nothing, or "-v" and a number or "force", else usage
$ cfgtool -d identify -v
$ cfgtool -d identify 10
$ cfgtool -d identify force
$ cfgtool -d identify -v 10 20
$ cfgtool -d identify -v force 10
$ cfgtool -d identify -x 10
$ cfgtool -d identify -x force
$ cfgtool -d identify '' 10
$ cfgtool -d identify -x abc
$ cfgtool -d identify -v abc
$ cfgtool -d identify -v Force
$ cfgtool -d identify -v forced
$ cfgtool -d identify -v forc
$ cfgtool -d identify -v -1
$ cfgtool -d identify -v 10s
$ cfgtool -d identify -v 0x
usage| Usage: cfgtool -d identify  [-v time | force]    0s<=time<=255s.
usage|        0s means to turn off identify led.

# identify: an operator may not
uid 503
$ cfgtool -d identify
$ cfgtool -d identify -v force
$ cfgtool -d identify -v
> 06 44  01 03  < 00 11 05 01 03
refuse| Insufficient privilege level

# identify: not answered
$ cfgtool -d identify
> 00 04         < silent
|"Select OutTime \r\n"
fail| Identify UID led failed, error code: 0x40000001

# identify: not sent
$ cfgtool -d identify -v 10
> 00 04  0A 00  < unsent
fail| Identify UID led failed, error code: 0x40000000

# identify: refused
$ cfgtool -d identify -v 0
> 00 04  00 00  < D5
fail| Identify UID led failed, error code: 0x400D5

# identify: force refused
$ cfgtool -d identify -v force
> 00 04  FF 01  < CC
fail| Identify UID led failed, error code: 0x400CC
