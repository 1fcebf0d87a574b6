steps ask
|"WARNING: Setting BIOS debug info enable will make system start slow. \r\n"
confirm|"Do you want to continue?[Y/N]:"

# Option 1 is confirmed first
$ cfgtool -t maintenance -d biosprint -v 1
$ cfgtool -t maintenance -d biosprint -v 0x1
do ask
keys "y\n"
call set_bios_print_flag 1
done| Set BIOS debug info enable successfully.
log 2 BIOS "Set BIOS debug info enable successfully."

# Option 2 is not
$ cfgtool -t maintenance -d biosprint -v 2
call set_bios_print_flag 0
done| Set BIOS debug info enabled/disabled by BIOS setup menu successfully.
log 2 BIOS "Set BIOS debug info enabled/disabled by BIOS setup menu successfully."

# "n" is silent
$ cfgtool -t maintenance -d biosprint -v 1
do ask
keys "n\n"
refuse|""

# Any other answer
$ cfgtool -t maintenance -d biosprint -v 1
do ask
keys "2\n"
refuse| Input character invalid.

# The end of the input
$ cfgtool -t maintenance -d biosprint -v 1
do ask
refuse| Input character invalid.

# A board that cannot: no record
$ cfgtool -t maintenance -d biosprint -v 2
call set_bios_print_flag 0 -> -10
fail| Unsupported command.

# A failure is recorded
$ cfgtool -t maintenance -d biosprint -v 1
do ask
keys "Y\n"
call set_bios_print_flag 1 -> -1
fail| Set BIOS debug info enable failed.
log 2 BIOS "Set BIOS debug info enable failed."

# A failure of option 2; any value but 0 and -10 is one
$ cfgtool -t maintenance -d biosprint -v 2
call set_bios_print_flag 0 -> 10
fail| Set BIOS debug info enabled/disabled by BIOS setup menu failed.
log 2 BIOS "Set BIOS debug info enabled/disabled by BIOS setup menu failed."

# "-v" and 1 or 2
$ cfgtool -t maintenance -d biosprint
$ cfgtool -t maintenance -d biosprint -v
$ cfgtool -t maintenance -d biosprint -v 0
$ cfgtool -t maintenance -d biosprint -v 3
$ cfgtool -t maintenance -d biosprint -v -1
$ cfgtool -t maintenance -d biosprint -v on
$ cfgtool -t maintenance -d biosprint -vx 1
$ cfgtool -t maintenance -d biosprint -v 1 2
usage| Usage: cfgtool -t maintenance -d biosprint -v <option>
usage| Options are:
usage|     1    BIOS debug info enable
usage|     2    BIOS debug info enabled/disabled by BIOS setup menu

# A caller without the privilege
uid 502
$ cfgtool -t maintenance -d biosprint -v 2
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level
