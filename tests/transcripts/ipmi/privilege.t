# root is allowed everything and asked about by nobody
uid 0
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# account 1 is no controller user: refused without a request
uid 1
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 499 is no controller user: refused without a request
uid 499
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 500 is no controller user: refused without a request
uid 500
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 756 is no controller user: refused without a request
uid 756
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 1000 is no controller user: refused without a request
uid 1000
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 65534 is no controller user: refused without a request
uid 65534
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 4294967295 is no controller user: refused without a request
uid 4294967295
$ cfgtool -d fanlevel -v 60
refuse| Insufficient privilege level

# account 501 is controller user 1
uid 501
$ cfgtool -d shutdowntimeout
> 06 44  01 01         < 00 11 05 01 04
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# account 503 is controller user 3
uid 503
$ cfgtool -d shutdowntimeout
> 06 44  01 03         < 00 11 05 01 04
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# account 755 is controller user 255
uid 755
$ cfgtool -d shutdowntimeout
> 06 44  01 FF         < 00 11 05 01 04
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a privilege limit of 0
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 00
refuse| Insufficient privilege level

# a privilege limit of 1
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F1
refuse| Insufficient privilege level

# a privilege limit of 2
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 02
refuse| Insufficient privilege level

# a privilege limit of 3
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F3
refuse| Insufficient privilege level

# a privilege limit of 4
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 04
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 5
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F5
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 6
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 06
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 7
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F7
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 8
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 08
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 9
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 F9
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 10
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 0A
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 11
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 FB
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 12
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 0C
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 13
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 FD
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 14
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 0E
usage| Usage: cfgtool -d fanlevel -v <value>

# a privilege limit of 15: no access
uid 502
$ cfgtool -d fanlevel
> 06 44  01 02         < 00 11 05 01 FF
refuse| Insufficient privilege level

# the user access is not answered
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!

# it cannot be asked for
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < unsent
refuse 40000000| send 'Get User Access Command' failed!

# it is refused
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < CC
refuse 064400CC| Get User Access Command failed!

# it is refused in an answer whose length ends before the completion code
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < CC 11 05 01 04 length 6
refuse 064400CC| Get User Access Command failed!

# an answer too short for a limit means none
uid 502
$ cfgtool -d fanlevel -v 60
> 06 44  01 02         < 00 11 05 01 04 cut 10
refuse| Insufficient privilege level
