# The offset is written first, then the time: 2020-01-01 10:00:00 UTC is 1577872800, 5E0C6DA0h
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
$ cfgtool -d ipmctime -v 2020-1-1 10:0:0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0
> 0A 5D  00 00 < 00
> 0A 49  A0 6D 0C 5E < 00
done| Set ipmc time successfully.

# A zone goes out as it is, in hours, and takes its hours off the time
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 8
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 +8
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 010
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0x8
> 0A 5D  08 00 < 00
> 0A 49  20 FD 0B 5E < 00
done| Set ipmc time successfully.

# Blanks and a sign before the zone, an octal and a hexadecimal one: 12 hours west
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -12
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 ' -12'
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -014
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 ' -0014'
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -0xc
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 ' -0X0C'
> 0A 5D  F4 FF < 00
> 0A 49  60 16 0D 5E < 00
done| Set ipmc time successfully.

# Zero in all forms, an empty text among them
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 00
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0x0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 ''
> 0A 5D  00 00 < 00
> 0A 49  A0 6D 0C 5E < 00
done| Set ipmc time successfully.

# No other digits and no other bases, whatever the C library knows
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0b1
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0B1
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -0b1
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 +0b0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0o7
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 08
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0x
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 0xg
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 b1
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 '- 1'
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 '8 '
usage| Usage: cfgtool -d ipmctime -v YYYY-MM-DD HH:MM:SS [time zone(-12 ~ +13)]

# The highest zone
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 13
> 0A 5D  0D 00 < 00
> 0A 49  D0 B6 0B 5E < 00
done| Set ipmc time successfully.

# The lowest zone: its offset has 16 bits and a sign
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -12
> 0A 5D  F4 FF < 00
> 0A 49  60 16 0D 5E < 00
done| Set ipmc time successfully.

# The clock of the controller is its local time: one hour east of UTC, 10:00 is 09:00 UTC
env TZ=EST-1
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 0A 5D  00 00 < 00
> 0A 49  90 5F 0C 5E < 00
done| Set ipmc time successfully.

# The first second of 1970
env TZ=UTC0
$ cfgtool -d ipmctime -v 1970-01-01 00:00:00
> 0A 5D  00 00 < 00
> 0A 49  00 00 00 00 < 00
done| Set ipmc time successfully.

# The last second of 2070: 3187295999, more than a signed number of 32 bits holds
env TZ=UTC0
$ cfgtool -d ipmctime -v 2070-12-31 23:59:59
> 0A 5D  00 00 < 00
> 0A 49  FF 46 FA BD < 00
done| Set ipmc time successfully.

# 2038-01-19 03:14:08: the first second beyond it
env TZ=UTC0
$ cfgtool -d ipmctime -v 2038-01-19 03:14:08
> 0A 5D  00 00 < 00
> 0A 49  00 00 00 80 < 00
done| Set ipmc time successfully.

# A zone may lead before 1970: the time goes out modulo 2^32
env TZ=UTC0
$ cfgtool -d ipmctime -v 1970-01-01 00:00:00 8
> 0A 5D  08 00 < 00
> 0A 49  80 8F FF FF < 00
done| Set ipmc time successfully.

# A year that is no leap year has a 29th of February, which is the 1st of March
env TZ=UTC0
$ cfgtool -d ipmctime -v 2023-02-29 10:00:00
> 0A 5D  00 00 < 00
> 0A 49  20 22 FF 63 < 00
done| Set ipmc time successfully.

# A leap year has none
$ cfgtool -d ipmctime -v 2024-02-29 10:00:00
$ cfgtool -d ipmctime -v 2000-02-29 10:00:00
$ cfgtool -d ipmctime -v 2023-02-30 10:00:00
$ cfgtool -d ipmctime -v 2023-04-31 10:00:00
$ cfgtool -d ipmctime -v 2023-06-31 10:00:00
$ cfgtool -d ipmctime -v 2023-09-31 10:00:00
$ cfgtool -d ipmctime -v 2023-11-31 10:00:00
$ cfgtool -d ipmctime -v 2023-01-32 10:00:00
$ cfgtool -d ipmctime -v 2023-03-32 10:00:00
$ cfgtool -d ipmctime -v 2023-05-32 10:00:00
$ cfgtool -d ipmctime -v 2023-07-32 10:00:00
$ cfgtool -d ipmctime -v 2023-08-32 10:00:00
$ cfgtool -d ipmctime -v 2023-10-32 10:00:00
$ cfgtool -d ipmctime -v 2023-12-32 10:00:00
$ cfgtool -d ipmctime -v 2023-01-00 10:00:00
refuse| Day out of range.

# 2024-02-28 is the last of its month
env TZ=UTC0
$ cfgtool -d ipmctime -v 2024-02-28 00:00:00
> 0A 5D  00 00 < 00
> 0A 49  80 77 DE 65 < 00
done| Set ipmc time successfully.

# Years from 1970 to 2070
$ cfgtool -d ipmctime -v 1969-12-31 23:59:59
$ cfgtool -d ipmctime -v 2071-01-01 00:00:00
$ cfgtool -d ipmctime -v 20-01-01 10:00:00
$ cfgtool -d ipmctime -v 99999-1-1 10:00:00
$ cfgtool -d ipmctime -v 0000-01-01 10:00:00
refuse| Year out of range.

# The month: a line feed stands in front of the text
$ cfgtool -d ipmctime -v 2020-13-01 10:00:00
$ cfgtool -d ipmctime -v 2020-00-01 10:00:00
refuse|"\nMonth out of range.\r\n"

# The hour
$ cfgtool -d ipmctime -v 2020-01-01 24:00:00
refuse| Hour out of range.

# The minute
$ cfgtool -d ipmctime -v 2020-01-01 23:60:00
refuse| Minute out of range.

# The second
$ cfgtool -d ipmctime -v 2020-01-01 23:59:60
refuse| Second out of range.

# The year is no number: no full stop
$ cfgtool -d ipmctime -v year-01-01 10:00:00
$ cfgtool -d ipmctime -v 2020.01.01 10:00:00
refuse| Parameter invalid

# Any other part is no number: a full stop
$ cfgtool -d ipmctime -v 2020-Jan-1 10:00:00
$ cfgtool -d ipmctime -v 2020-01-1x 10:00:00
$ cfgtool -d ipmctime -v 2020-01-01 te:00:00
$ cfgtool -d ipmctime -v 2020-01-01 10:00:0s
refuse| Parameter invalid.

# A local time that is no time: one second before 1970
env TZ=EST-1
$ cfgtool -d ipmctime -v 1970-01-01 00:59:59
refuse| Parameter invalid..

# Six parts, no more and no fewer
$ cfgtool -d ipmctime -v 2020-01-01 10:00
$ cfgtool -d ipmctime -v 2020-0001 10:00:00
$ cfgtool -d ipmctime -v 2020-1-1 ""
$ cfgtool -d ipmctime -v 2020-01-01 1:0:0:99
$ cfgtool -d ipmctime -v -------- :
usage| Usage: cfgtool -d ipmctime -v YYYY-MM-DD HH:MM:SS [time zone(-12 ~ +13)]

# Lengths of 8 to 10 and up to 8
$ cfgtool -d ipmctime -v 2020-1- 10:00:00
$ cfgtool -d ipmctime -v 2020-01-011 10:00:00
$ cfgtool -d ipmctime -v 2020-01-01 10:00:000
usage| Usage: cfgtool -d ipmctime -v YYYY-MM-DD HH:MM:SS [time zone(-12 ~ +13)]

# A zone is a whole number of -12 to 13
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 14
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 -13
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 8x
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 4294967304
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 8:00
usage| Usage: cfgtool -d ipmctime -v YYYY-MM-DD HH:MM:SS [time zone(-12 ~ +13)]

# "-v", a date and a time
$ cfgtool -d ipmctime
$ cfgtool -d ipmctime -v
$ cfgtool -d ipmctime -v 2020-01-01
$ cfgtool -d ipmctime -x 2020-01-01 10:00:00
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00 8 9
usage| Usage: cfgtool -d ipmctime -v YYYY-MM-DD HH:MM:SS [time zone(-12 ~ +13)]

# The offset is refused: the bare completion code is shown, and the time is not sent
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 0A 5D  00 00 < C1
fail| Set system time failed, error code: 0xC1

# No answer to the offset
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 0A 5D  00 00 < silent
|"Select OutTime \r\n"
fail| Set system time failed, error code: 0x40000001

# The time is refused: the composite code is shown, and the offset stays
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 0A 5D  00 00 < 00
> 0A 49  A0 6D 0C 5E < D5
fail| Set ipmc time failed, error code: 0xA4900D5

# No answer to the time
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 0A 5D  00 00 < 00
> 0A 49  A0 6D 0C 5E < unsent
fail| Set ipmc time failed, error code: 0x40000000

# A caller without the privilege
uid 502
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level

# A seventh part is looked at, but for its size
$ cfgtool -d ipmctime -v 2020-1-1 1:0:0:x
refuse| Parameter invalid.

# The last days of the months
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-12-31 23:59:59
> 0A 5D  00 00 < 00
> 0A 49  FF 65 EE 5F < 00
done| Set ipmc time successfully.

# No answer to the time but silence
env TZ=UTC0
$ cfgtool -d ipmctime -v 2020-01-01 10:00:00
> 0A 5D  00 00 < 00
> 0A 49  A0 6D 0C 5E < silent
|"Select OutTime \r\n"
fail| Set ipmc time failed, error code: 0x40000001
