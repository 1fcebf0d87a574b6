steps ask
confirm|"This operation will upgrade BIOS. Continue? [Y/N]:"

# A file of 8 MiB: the flash is taken, written and given back, with its module loaded for that time only
file /tmp/new.bin zeros 8388608
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
$ cfgtool -t maintenance -d upgradebios -vfile /tmp/new.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/new.bin"
| size of /tmp/new.bin is 8388608
call set_bios_owner 1
call vos_system "/sbin/insmod" "/sbin/insmod" "/ko/m25p80.ko"
call spi_flash_copy "/dev/mtd6" 0 "/tmp/new.bin" 0 8388608 1 1
call set_bios_owner 0
call vos_system "/sbin/rmmod" "/sbin/rmmod" "/ko/m25p80.ko"
log 2 BIOS " Upgrade bios from /tmp/new.bin success, EvtCode:0x217014A0"
done|""

# A file of 16 MiB; what comes of loading and unloading the module makes no difference
file /tmp/new.bin zeros 16777216
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
do ask
keys "Y\n"
call vos_get_file_length "/tmp/new.bin"
| size of /tmp/new.bin is 16777216
call set_bios_owner 1
call vos_system "/sbin/insmod" "/sbin/insmod" "/ko/m25p80.ko" -> 1
call spi_flash_copy "/dev/mtd6" 0 "/tmp/new.bin" 0 16777216 1 1
call set_bios_owner 0
call vos_system "/sbin/rmmod" "/sbin/rmmod" "/ko/m25p80.ko" -> 1
log 2 BIOS " Upgrade bios from /tmp/new.bin success, EvtCode:0x217014A0"
done|""

# The flash cannot be taken: nothing is loaded
file /tmp/new.bin zeros 8388608
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/new.bin"
| size of /tmp/new.bin is 8388608
call set_bios_owner 1 -> -1
fail| Upgrade bios fail

# The flash cannot be written: it is given back, and the module unloaded
file /tmp/new.bin zeros 8388608
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/new.bin"
| size of /tmp/new.bin is 8388608
call set_bios_owner 1
call vos_system "/sbin/insmod" "/sbin/insmod" "/ko/m25p80.ko"
call spi_flash_copy "/dev/mtd6" 0 "/tmp/new.bin" 0 8388608 1 1 -> -1
call set_bios_owner 0
call vos_system "/sbin/rmmod" "/sbin/rmmod" "/ko/m25p80.ko"
fail| Upgrade bios fail

# The flash was written but cannot be given back: the module stays
file /tmp/new.bin zeros 8388608
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/new.bin"
| size of /tmp/new.bin is 8388608
call set_bios_owner 1 -> 0
call vos_system "/sbin/insmod" "/sbin/insmod" "/ko/m25p80.ko"
call spi_flash_copy "/dev/mtd6" 0 "/tmp/new.bin" 0 8388608 1 1
call set_bios_owner 0 -> 1
fail| Upgrade bios fail

# One byte more than 8 MiB is not its size
file /tmp/new.bin zeros 8388609
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/new.bin"
fail|"\n BIOS.bin size is error, please check upgrade file.\r\nUpgrade bios fail\r\n"

# A file that is not there has no size
$ cfgtool -t maintenance -d upgradebios -v /tmp/none.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/none.bin"
fail|"\n BIOS.bin size is error, please check upgrade file.\r\nUpgrade bios fail\r\n"

# "n" is silent
$ cfgtool -t maintenance -d upgradebios -v .bin
do ask
keys "n\n"
refuse|""

# "N" is silent
$ cfgtool -t maintenance -d upgradebios -v .bin
do ask
keys "N\n"
refuse|""

# Any other answer
$ cfgtool -t maintenance -d upgradebios -v .bin
do ask
keys "\n"
refuse| Input character invalid.

# The end of the input
$ cfgtool -t maintenance -d upgradebios -v .bin
do ask
refuse| Input character invalid.

# The name ends in ".bin", in small letters
$ cfgtool -t maintenance -d upgradebios -v image.BIN
$ cfgtool -t maintenance -d upgradebios -v image
$ cfgtool -t maintenance -d upgradebios -v bin
$ cfgtool -t maintenance -d upgradebios -v image.bin.gz
$ cfgtool -t maintenance -d upgradebios -v ""
refuse|"please check the upgrade file BIOS.bin \r\n"

# "-v" and one word
$ cfgtool -t maintenance -d upgradebios
$ cfgtool -t maintenance -d upgradebios -v
$ cfgtool -t maintenance -d upgradebios /tmp/new.bin
$ cfgtool -t maintenance -d upgradebios -x /tmp/new.bin
$ cfgtool -t maintenance -d upgradebios v /tmp/new.bin
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin 1
usage| Usage: cfgtool -t maintenance -d upgradebios -v <filename>

# A caller without the privilege
uid 502
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level

# The flash can neither be written nor given back: the module is unloaded
file /tmp/new.bin zeros 8388608
$ cfgtool -t maintenance -d upgradebios -v /tmp/new.bin
do ask
keys "y\n"
call vos_get_file_length "/tmp/new.bin"
| size of /tmp/new.bin is 8388608
call set_bios_owner 1 -> 0
call vos_system "/sbin/insmod" "/sbin/insmod" "/ko/m25p80.ko"
call spi_flash_copy "/dev/mtd6" 0 "/tmp/new.bin" 0 8388608 1 1 -> -5
call set_bios_owner 0 -> -1
call vos_system "/sbin/rmmod" "/sbin/rmmod" "/ko/m25p80.ko"
fail| Upgrade bios fail
