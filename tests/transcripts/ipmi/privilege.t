# root is allowed everything and asked about by nobody
uid 0
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# account 1 is no controller user: refused without a request
uid 1
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 499 is no controller user: refused without a request
uid 499
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 500 is no controller user: refused without a request
uid 500
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 756 is no controller user: refused without a request
uid 756
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 1000 is no controller user: refused without a request
uid 1000
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 65534 is no controller user: refused without a request
uid 65534
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 4294967295 is no controller user: refused without a request
uid 4294967295
$ cfgtool -d fanlevel -v 60
| Insufficient privilege level

# account 501 is controller user 1
uid 501
$ cfgtool -d shutdowntimeout
> 06 44  01 01         < 00 11 05 01 04
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# account 503 is controller user 3
uid 503
$ cfgtool -d shutdowntimeout
> 06 44  01 03         < 00 11 05 01 04
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# account 755 is controller user 255
uid 755
$ cfgtool -d shutdowntimeout
> 06 44  01 FF         < 00 11 05 01 04
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a privilege limit of 0
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 00
| Insufficient privilege level

# a privilege limit of 1
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F1
| Insufficient privilege level

# a privilege limit of 2
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 02
| Insufficient privilege level

# a privilege limit of 3
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F3
| Insufficient privilege level

# a privilege limit of 4
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 04
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 5
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F5
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 6
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 06
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 7
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F7
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 8
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 08
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 9
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F9
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 10
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 0A
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 11
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 FB
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 12
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 0C
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 13
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 FD
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 14
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 0E
| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 15: no access
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 FF
| Insufficient privilege level

# the user access is not answered
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < silent
|"Select OutTime \r\n"
| send 'Get User Access Command' failed!

# it cannot be asked for
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < unsent
| send 'Get User Access Command' failed!

# it is refused
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < CC
| Get User Access Command failed!

# it is refused in an answer whose length ends before the completion code
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < CC 11 05 01 04 length 6
| Get User Access Command failed!

# an answer too short for a limit means none
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < 00 11 05 01 04 cut 10
| Insufficient privilege level
