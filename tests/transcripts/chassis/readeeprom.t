steps block
|"."
call i2c_write_read 2 160 {N*64:04X} 64 0 -> 0

steps block at a line's end
|".\r\n"
call i2c_write_read 2 160 {N*64:04X} 64 0 -> 0

# 256 blocks of 64 bytes, a dot before each, 78 to a line
$ cfgtool -t maintenance -d readeeprom
do block for 0..76
do block at a line's end for 77..77
do block for 78..154
do block at a line's end for 155..155
do block for 156..232
do block at a line's end for 233..233
do block for 234..255
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin "{E*16384}"

# The first block that fails is the last; what was read is written, and success told all the same
$ cfgtool -t maintenance -d readeeprom
do block for 0..2
|"."
call i2c_write_read 2 160 00C0 64 0 -> -5
fail| ret = -5, pos = 192
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin "{E*192}{\x00*16192}"

# A file that was there is replaced
file /tmp/eeprom.bin "of yesterday"
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin "{\x00*16384}"

# The file is readable and writable by all but where the caller's umask forbids it
umask 022
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin 644 "{\x00*16384}"

# A caller's umask may keep the file from everybody else
umask 077
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin 600 "{\x00*16384}"

# Without a umask the file is everybody's
umask 000
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin 666 "{\x00*16384}"

# A file that is replaced does not keep its mode
umask 077
file /tmp/eeprom.bin "of yesterday"
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin 600 "{\x00*16384}"

# No words
$ cfgtool -t maintenance -d readeeprom -v
$ cfgtool -t maintenance -d readeeprom 1
usage| Usage: cfgtool -t maintenance -d readeeprom

# A caller without the privilege
uid 502
$ cfgtool -t maintenance -d readeeprom
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level

# What stands at the path and is no file cannot be replaced
file /tmp/eeprom.bin folder
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
fail| fp is null
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"

# A link that was planted there is replaced, not followed
file /data/precious "keep"
file /tmp/eeprom.bin link /data/precious
$ cfgtool -t maintenance -d readeeprom
|"."
call i2c_write_read 2 160 0000 64 0 -> -1
fail| ret = -1, pos = 0
done|"\nRead eeprom to file /tmp/eeprom.bin successfully.\r\n"
log 2 Zentro "Read eeprom to file /tmp/eeprom.bin success, EvtCode:0x20201480"
wrote /tmp/eeprom.bin "{\x00*16384}"
