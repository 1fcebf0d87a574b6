# bootdevice: flags that are not valid are begun anew: valid for the next boot, and the device
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 7F FF FF FF FF
> 00 08  00 01              < 00                           # set in progress
> 00 08  05 80 04 00 00 00  < 00                           # the device in bits 5 to 2 of the second byte
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00                           # set complete

# bootdevice: flags that are valid stay as they are, but for the device
$ cfgtool -d bootdevice -v 5
> 00 09  05 00 00           < 00 01 05 E0 FF 11 22 33
> 00 08  00 01              < 00
> 00 08  05 E0 D7 11 22 33  < 00                           # bits 7, 6, 1 and 0 are kept
done| Set boot device successfully.
log 2 Host "Set system boot device(CD/DVD) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: 0 takes the device out of the flags
$ cfgtool -d bootdevice -v 0
$ cfgtool -d bootdevice -v ''
$ cfgtool -d bootdevice -v 0x0
> 00 09  05 00 00           < 00 01 05 80 3C 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 00 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(No override) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: 2 is the hard drive
$ cfgtool -d bootdevice -v 2
$ cfgtool -d bootdevice -v 02
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 08 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(Hard-drive) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: 6 is the setup of the host's firmware
$ cfgtool -d bootdevice -v 6
$ cfgtool -d bootdevice -v +6
> 00 09  05 00 00           < 00 01 05 80 C3 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 DB 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(BIOS SETUP) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: 15, decimal or hexadecimal, is a removable medium
$ cfgtool -d bootdevice -v 15
$ cfgtool -d bootdevice -v 0xF
$ cfgtool -d bootdevice -v 0Xf
> 00 09  05 00 00           < 00 01 05 00 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 3C 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(floppy/primary removable media) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: exactly "-v" and one of the options, else usage
$ cfgtool -d bootdevice
$ cfgtool -d bootdevice -v
$ cfgtool -d bootdevice 1
$ cfgtool -d bootdevice -v 1 1
$ cfgtool -d bootdevice -x 1
$ cfgtool -d bootdevice -v 3
$ cfgtool -d bootdevice -v 4
$ cfgtool -d bootdevice -v 7
$ cfgtool -d bootdevice -v 14
$ cfgtool -d bootdevice -v 16
$ cfgtool -d bootdevice -v F
$ cfgtool -d bootdevice -v 0xFF
$ cfgtool -d bootdevice -v 257
$ cfgtool -d bootdevice -v 4294967297
$ cfgtool -d bootdevice -v -1
$ cfgtool -d bootdevice -v pxe
$ cfgtool -d bootdevice -v 1x
usage| Usage: cfgtool -d bootdevice -v <option>
usage| Options are:
usage|     0    No override
usage|     1    Force PXE
usage|     2    Force boot from default Hard-drive
usage|     5    Force boot from default CD/DVD
usage|     6    Force boot into BIOS Setup
usage|     0xF  Force boot from Floppy/primary removable media

# bootdevice: an operator may not
uid 503
$ cfgtool -d bootdevice -v 1
$ cfgtool -d bootdevice
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# bootdevice: flags that are not answered are begun anew
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < silent
|"Select OutTime \r\n"
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: flags that cannot be asked for are begun anew
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < unsent
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: flags that are refused are begun anew
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 80 01 05 80 FF FF FF FF
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: another parameter's data are no flags
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 06 80 FF FF FF FF
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: six bytes of flags are none
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 FF FF FF FF FF
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: flags that are missing are 0
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 C0 41 FF cut 12
> 00 08  00 01              < 00
> 00 08  05 C0 45 FF 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 00

# bootdevice: set in progress already is as good as opened and closed
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 81
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < 81

# bootdevice: opening is refused: told with the value opened with, and not closed
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < D4
fail| Set boot device failed, error code: 0x801D4

# bootdevice: neither the flags nor the opening are answered: the opening's failure is told
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < C1
> 00 08  00 01              < silent
|"Select OutTime \r\n"
fail| Set boot device failed, error code: 0x40000001

# bootdevice: opening is not sent: told, and not closed
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < unsent
fail| Set boot device failed, error code: 0x40000000

# bootdevice: the flags are refused: closed, then told
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < CC
> 00 08  00 00              < 00
fail| Set boot device failed, error code: 0x805CC

# bootdevice: the code told is the refusal's, although closing fails before it is told
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 81
> 00 08  00 00              < silent
|"Select OutTime \r\n"
fail| Set boot device failed, error code: 0x80581

# bootdevice: the flags are not answered: told, then closed
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < silent
|"Select OutTime \r\n"
fail| Set boot device failed, error code: 0x40000001
> 00 08  00 00              < unsent
fail 40000000|""

# bootdevice: the flags are not sent: told, then closed
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < unsent
fail| Set boot device failed, error code: 0x40000000
> 00 08  00 00              < 00

# bootdevice: a closing that is refused is not told
$ cfgtool -d bootdevice -v 1
> 00 09  05 00 00           < 00 01 05 80 00 00 00 00
> 00 08  00 01              < 00
> 00 08  05 80 04 00 00 00  < 00
done| Set boot device successfully.
log 2 Host "Set system boot device(PXE) success,EvtCode:0x20100080"
> 00 08  00 00              < C1
fail 000800C1|""
