# 8 MiB are read into a file, and that is recorded; nothing is said
$ cfgtool -t maintenance -d downloadbios
call get_bios "/tmp/bios.bin" 8388608
log 2 BIOS "Download bios to /tmp/bios.bin success, EvtCode:0x21701490"
done|""

# Whatever is not negative is good
$ cfgtool -t maintenance -d downloadbios
call get_bios "/tmp/bios.bin" 8388608 -> 8388608
log 2 BIOS "Download bios to /tmp/bios.bin success, EvtCode:0x21701490"
done|""

# The flash cannot be read
$ cfgtool -t maintenance -d downloadbios
call get_bios "/tmp/bios.bin" 8388608 -> -1
fail| Download bios fail

# No words
$ cfgtool -t maintenance -d downloadbios -v
$ cfgtool -t maintenance -d downloadbios /tmp/other.bin
usage| Usage: cfgtool -t maintenance -d downloadbios

# A caller without the privilege
uid 502
$ cfgtool -t maintenance -d downloadbios
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level
