# shutdowntimeout: the time goes out in tenths of a second, between set in progress and set complete
$ cfgtool -d shutdowntimeout -v 600
$ cfgtool -t fru0 -d shutdowntimeout -v 600
> 00 08  00 01        < 00      # set in progress
> 00 08  62 70 17     < 00      # 6000 = 1770h, low byte first
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(600 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00      # set complete

# shutdowntimeout: 0 is a time
$ cfgtool -d shutdowntimeout -v 0
$ cfgtool -d shutdowntimeout -v ''
$ cfgtool -d shutdowntimeout -v -0
$ cfgtool -d shutdowntimeout -v 0x0
> 00 08  00 01        < 00
> 00 08  62 00 00     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(0 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00

# shutdowntimeout: 10 is the shortest but 0
$ cfgtool -d shutdowntimeout -v 10
$ cfgtool -d shutdowntimeout -v 0xA
> 00 08  00 01        < 00
> 00 08  62 64 00     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(10 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00

# shutdowntimeout: 6540 is the longest
$ cfgtool -d shutdowntimeout -v 6540
$ cfgtool -d shutdowntimeout -v 0x198C
> 00 08  00 01        < 00
> 00 08  62 78 FF     < 00      # 65400 = FF78h
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(6540 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00

# shutdowntimeout: exactly "-v" and 0 or 10 to 6540, else usage
$ cfgtool -d shutdowntimeout
$ cfgtool -d shutdowntimeout -v
$ cfgtool -d shutdowntimeout 60
$ cfgtool -d shutdowntimeout -v 60 60
$ cfgtool -d shutdowntimeout -x 60
$ cfgtool -d shutdowntimeout -v 1
$ cfgtool -d shutdowntimeout -v 9
$ cfgtool -d shutdowntimeout -v 6541
$ cfgtool -d shutdowntimeout -v 65536
$ cfgtool -d shutdowntimeout -v 4294967296
$ cfgtool -d shutdowntimeout -v 4294967356
$ cfgtool -d shutdowntimeout -v -1
$ cfgtool -d shutdowntimeout -v -60
$ cfgtool -d shutdowntimeout -v 60s
$ cfgtool -d shutdowntimeout -v abc
$ cfgtool -d shutdowntimeout -v 0x
$ cfgtool -t fru0 -d shutdowntimeout -v 9
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# shutdowntimeout: an operator may not, and nothing is recorded
uid 503
$ cfgtool -d shutdowntimeout -v 60
$ cfgtool -t fru0 -d shutdowntimeout
> 06 44  01 03        < 00 11 05 01 03
refuse| Insufficient privilege level

# shutdowntimeout: set in progress already is as good as opened and closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 81
> 00 08  62 58 02     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 81

# shutdowntimeout: opening is refused: told with the value opened with, and not closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < C1
fail| Set shutdown timeout failed, error code: 0x801C1

# shutdowntimeout: opening is not supported: told, and not closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 80
fail| Set shutdown timeout failed, error code: 0x80180

# shutdowntimeout: opening is not answered: told, and not closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < silent
|"Select OutTime \r\n"
fail| Set shutdown timeout failed, error code: 0x40000001

# shutdowntimeout: opening is not sent: told, and not closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < unsent
fail| Set shutdown timeout failed, error code: 0x40000000

# shutdowntimeout: the time is refused: closed, then told, and not recorded
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < 80
> 00 08  00 00        < 00
fail| Set shutdown timeout failed, error code: 0x86280

# shutdowntimeout: 81h is a refusal like any other once the bracket is open
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < 81
> 00 08  00 00        < 00
fail| Set shutdown timeout failed, error code: 0x86281

# shutdowntimeout: the code told is the refusal's, although closing fails before it is told
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < C9
> 00 08  00 00        < silent
|"Select OutTime \r\n"
fail| Set shutdown timeout failed, error code: 0x862C9

# shutdowntimeout: a time that is not answered is not told, only closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < silent
|"Select OutTime \r\n"
fail 40000001|""
> 00 08  00 00        < 00

# shutdowntimeout: a time that is not sent is not told, only closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < unsent
fail 40000000|""
> 00 08  00 00        < 00

# shutdowntimeout: a closing that is refused is not told
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < C1
fail 000800C1|""

# shutdowntimeout: a closing that is not sent is not told
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < unsent
fail 40000000|""
