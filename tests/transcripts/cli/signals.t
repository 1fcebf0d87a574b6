# What must not be left half-way waits for no signal: the tool closes what it has opened, says what it has to say, records
# it, and ends by the signal then.

# signals: one that comes while boot options are opened waits until they are closed
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
signal TERM
> 00 08  62 58 02     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00
ends TERM

# signals: one that comes while a boot option is written waits
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < 00
signal INT
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00
ends INT

# signals: one that comes while boot options are closed waits for the answer
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < 00
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00
signal HUP
ends HUP

# signals: one that comes while a write fails waits for the closing request
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < silent
signal QUIT
|"Select OutTime \r\n"
fail 40000001|""
> 00 08  00 00        < 00
ends QUIT

# signals: one that comes while a write is refused waits for the closing request
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
> 00 08  62 58 02     < CC
signal TERM
> 00 08  00 00        < 00
fail| Set shutdown timeout failed, error code: 0x862CC
ends TERM

# signals: what was said is not lost where lines are held back
$ cfgtool -d shutdowntimeout -v 60
screen file
> 00 08  00 01        < 00
> 00 08  62 58 02     < 00
signal TERM
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00
done| Set shutdown timeout successfully.
ends TERM

# signals: of several the one with the lowest number ends the tool, and none is lost on the others' account
$ cfgtool -d shutdowntimeout -v 60
> 00 08  00 01        < 00
signal TERM
> 00 08  62 58 02     < 00
signal INT
done| Set shutdown timeout successfully.
log 2 Host "Set graceful shutdown timeout(60 seconds) success,EvtCode:0x20100090"
> 00 08  00 00        < 00
ends INT

# signals: reading the boot flags opens nothing and waits for nobody
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00     < 00 01 05 80 00 00 00 00
signal TERM
ends TERM

# signals: the boot device waits, however the signal is called
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00     < 00 01 05 80 00 00 00 00
> 00 08  00 01        < 00
signal ALRM
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00        < 00
ends ALRM

# signals: and one that few have heard of
$ cfgtool -d bioswriteprotect -v 1
> 00 08  00 01        < 00
signal XCPU
> 00 08  63 01        < 00
done| Enable BIOS write protection successfully.
> 00 08  00 00        < 00
ends XCPU

# signals: one that comes while LAN parameters are opened waits until they are closed
$ cfgtool -t eth0 -d gateway -v 10.1.2.3
> 0C 01  01 00 01           < 00
signal TERM
> 0C 01  01 0C 0A 01 02 03  < 00
> 0C 01  01 00 00           < 00
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(10.1.2.3) success,EvtCode:0x21200670"
ends TERM

# signals: one that comes while a LAN parameter is written waits
$ cfgtool -t eth0 -d gateway -v 10.1.2.3
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 0A 01 02 03  < 00
signal INT
> 0C 01  01 00 00           < 00
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(10.1.2.3) success,EvtCode:0x21200670"
ends INT

# signals: one that comes while LAN parameters are closed waits for the answer
$ cfgtool -t eth0 -d gateway -v 10.1.2.3
> 0C 01  01 00 01           < 00
> 0C 01  01 0C 0A 01 02 03  < 00
> 0C 01  01 00 00           < 00
signal HUP
done| Set gateway success.
log 2 Network "Set Mgmt Eth IPv4 gateway(10.1.2.3) success,EvtCode:0x21200670"
ends HUP

# signals: one that comes while the BIOS flash is the controller's waits until it is the host's again and that is recorded
$ cfgtool -t maintenance -d upgradebios -v /tmp/BIOS.bin
file /tmp/BIOS.bin zeros 8388608
confirm|"This operation will upgrade BIOS. Continue? [Y/N]:"
keys "y\n"
call vos_get_file_length "/tmp/BIOS.bin"
| size of /tmp/BIOS.bin is 8388608
call set_bios_owner 1
call vos_system "/sbin/insmod" "/sbin/insmod" "/ko/m25p80.ko"
call spi_flash_copy "/dev/mtd6" 0 "/tmp/BIOS.bin" 0 8388608 1 1
signal TERM
call set_bios_owner 0
call vos_system "/sbin/rmmod" "/sbin/rmmod" "/ko/m25p80.ko"
log 2 BIOS " Upgrade bios from /tmp/BIOS.bin success, EvtCode:0x217014A0"
done|""
ends TERM

# signals: outside of all that one ends the tool at once
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C  < 00 00
signal TERM
ends TERM

# signals: a reader that goes away is no reason to end
$ cfgtool -d reset
confirm|"This operation will reboot IPMC system. Continue? [Y/N]:"
keys "y\n"
> 06 02  < 00
signal PIPE
done| Resetting...
log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"

# signals: nor is the limit on a file's size
$ cfgtool -d reset
confirm|"This operation will reboot IPMC system. Continue? [Y/N]:"
keys "y\n"
> 06 02  < 00
signal XFSZ
done| Resetting...
log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"
