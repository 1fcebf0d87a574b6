# root is not asked about
$ cfgtool-state --json power
> 00 01    < 00 21 00 50
| {"format":1,"power":{"on":true,"identify":"timed"},"unreadable":[]}

# an administrator may look
uid 502
$ cfgtool-state --json power
> 06 44  01 02    < 00 11 44 01 14
> 00 01           < 00 21 00 50
| {"format":1,"power":{"on":true,"identify":"timed"},"unreadable":[]}

# an operator may not
uid 503
$ cfgtool-state --json power
> 06 44  01 03    < 00 11 44 01 13
2| cfgtool-state: Insufficient privilege level
exits 2

# who has no access may not
uid 505
$ cfgtool-state power
> 06 44  01 05    < 00 11 44 01 1F
2| cfgtool-state: Insufficient privilege level
exits 2

# accounts of the system that are no controller users may not, and are not asked about
uid 500
$ cfgtool-state power
2| cfgtool-state: Insufficient privilege level
exits 2

# nobody may when the controller does not say
uid 502
$ cfgtool-state power
> 06 44  01 02    < silent
2| cfgtool-state: send 'Get User Access Command' failed!
exits 2

# nobody may when the controller refuses to say
uid 502
$ cfgtool-state power
> 06 44  01 02    < C1
2| cfgtool-state: Get User Access Command failed!
exits 2

# the effective user counts
uid 503
real 502
$ cfgtool-state power
> 06 44  01 03    < 00 11 44 01 13
2| cfgtool-state: Insufficient privilege level
exits 2
