# The offset goes out in minutes: 8:00 is 480, 01E0h
$ cfgtool -d timezone -v 8:00
> 0A 5D  E0 01 < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(8:00) success,EvtCode:0x20C00460"

# The record has the value as typed
$ cfgtool -d timezone -v +08:0
> 0A 5D  E0 01 < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(+08:0) success,EvtCode:0x20C00460"

# A minus holds for the minutes too: -4:30 is -270
$ cfgtool -d timezone -v -4:30
> 0A 5D  F2 FE < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(-4:30) success,EvtCode:0x20C00460"

# And where the hours are 0: -0:30 is -30
$ cfgtool -d timezone -v -0:30
> 0A 5D  E2 FF < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(-0:30) success,EvtCode:0x20C00460"

# 60 minutes are taken: +5:60 is 360
$ cfgtool -d timezone -v +5:60
> 0A 5D  68 01 < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(+5:60) success,EvtCode:0x20C00460"

# The easternmost: 780
$ cfgtool -d timezone -v +13:00
> 0A 5D  0C 03 < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(+13:00) success,EvtCode:0x20C00460"

# The westernmost: -720
$ cfgtool -d timezone -v -12:00
> 0A 5D  30 FD < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(-12:00) success,EvtCode:0x20C00460"

# Hours are decimal, with a zero in front or not
$ cfgtool -d timezone -v 09:08
> 0A 5D  24 02 < 00
done| Set time zone successfully.
log 2 Time "Set Zentro time zone(09:08) success,EvtCode:0x20C00460"

# Outside the range, or no time zone at all
$ cfgtool -d timezone -v +13:30
$ cfgtool -d timezone -v -12:15
$ cfgtool -d timezone -v 14:00
$ cfgtool -d timezone -v -13:00
$ cfgtool -d timezone -v 5:61
$ cfgtool -d timezone -v +8
$ cfgtool -d timezone -v 8:
$ cfgtool -d timezone -v :30
$ cfgtool -d timezone -v :
$ cfgtool -d timezone -v ""
$ cfgtool -d timezone -v 8:0:0
$ cfgtool -d timezone -v +008:0
$ cfgtool -d timezone -v 8:000
$ cfgtool -d timezone -v 8h:00
$ cfgtool -d timezone -v 0x8:00
$ cfgtool -d timezone -v 8:3x
$ cfgtool -d timezone -v 8:-1
$ cfgtool -d timezone -v eight:00
usage| Usage: cfgtool -d timezone -v <timezone>   -12:00<=timezone<=+13:00   e.g. +8:00,-4:30

# "-v" and one word
$ cfgtool -d timezone
$ cfgtool -d timezone -v
$ cfgtool -d timezone 8:00
$ cfgtool -d timezone -x 8:00
$ cfgtool -d timezone -v 8:00 9:00
usage| Usage: cfgtool -d timezone -v <timezone>   -12:00<=timezone<=+13:00   e.g. +8:00,-4:30

# Refused
$ cfgtool -d timezone -v 8:00
> 0A 5D  E0 01 < D5
fail 000000D5| Set time zone failed.

# No answer
$ cfgtool -d timezone -v 8:00
> 0A 5D  E0 01 < silent
|"Select OutTime \r\n"
fail 40000001| Set time zone failed.

# A caller without the privilege
uid 502
$ cfgtool -d timezone -v 8:00
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level
