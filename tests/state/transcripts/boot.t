# boot: flags, BIOS write protection, shutdown time-out
$ cfgtool-state --json boot
> 00 09  05 00 00    < 00 01 05 C0 04 00 00 00                # valid and persistent; device 1, PXE
> 00 09  63 00 00    < 00 01 63 01
> 00 09  62 00 00    < 00 01 62 58 02                         # 600 times 100 ms
| {"format":1,"boot":{"device":"pxe","valid":true,"persistent":true,"clear_cmos":false,"bios_write_protect":true,"shutdown_timeout_s":60},"unreadable":["boot.bios_print"]}

# boot: the table
$ cfgtool-state boot
> 00 09  05 00 00    < 00 01 05 80 98 00 00 00                # valid for the next boot; CMOS clear, device 6
> 00 09  63 00 00    < 00 01 63 00
> 00 09  62 00 00    < 00 01 62 05 00                         # 0.5 s: no command sets that
| boot
|   device              bios_setup
|   valid               yes
|   persistent          no
|   clear cmos          yes
|   bios write protect  no
|   shutdown timeout    0.5 s
|
| unreadable
|   boot.bios_print

# boot: device 15
$ cfgtool-state --json boot
> 00 09  05 00 00    < 00 01 05 00 3C 00 00 00
> 00 09  63 00 00    < 00 01 63 00
> 00 09  62 00 00    < 00 01 62 78 FF                         # 6540 s
| {"format":1,"boot":{"device":"floppy","valid":false,"persistent":false,"clear_cmos":false,"bios_write_protect":false,"shutdown_timeout_s":6540},"unreadable":["boot.bios_print"]}

# boot: a reserved device
$ cfgtool-state --json boot
> 00 09  05 00 00    < 00 01 05 80 28 00 00 00                # 10
> 00 09  63 00 00    < 00 01 63 00
> 00 09  62 00 00    < 00 01 62 00 00
2| cfgtool-state: boot.device: 10 has no meaning
| {"format":1,"boot":{"valid":true,"persistent":false,"clear_cmos":false,"bios_write_protect":false,"shutdown_timeout_s":0},"unreadable":["boot.bios_print"]}
exits 1

# boot: options that the controller has not are null
$ cfgtool-state --json boot
> 00 09  05 00 00    < 80
> 00 09  63 00 00    < 80
> 00 09  62 00 00    < 80
| {"format":1,"boot":{"device":null,"valid":null,"persistent":null,"clear_cmos":null,"bios_write_protect":null,"shutdown_timeout_s":null},"unreadable":["boot.bios_print"]}

# boot: an answer for another option
$ cfgtool-state --json boot
> 00 09  05 00 00    < 00 01 06 C0 04 00 00 00
> 00 09  63 00 00    < 00 01 63 01
> 00 09  62 00 00    < 00 01 62 58 02
2| cfgtool-state: boot.device: the answer is for option 0x06
| {"format":1,"boot":{"bios_write_protect":true,"shutdown_timeout_s":60},"unreadable":["boot.bios_print"]}
exits 1

# boot: an option that is marked invalid is none
$ cfgtool-state --json boot
> 00 09  05 00 00    < 00 01 85 C0 04 00 00 00
> 00 09  63 00 00    < 00 01 E3 01
> 00 09  62 00 00    < 00 01 E2 58 02
| {"format":1,"boot":{"device":null,"valid":null,"persistent":null,"clear_cmos":null,"bios_write_protect":null,"shutdown_timeout_s":null},"unreadable":["boot.bios_print"]}

# boot: each request refused
$ cfgtool-state --json boot
> 00 09  05 00 00    < C1
> 00 09  63 00 00    < C9
> 00 09  62 00 00    < 8A
2| cfgtool-state: boot.device: refused: Invalid command (0xC1)
2| cfgtool-state: boot.bios_write_protect: refused: Parameter out of range (0xC9)
2| cfgtool-state: boot.shutdown_timeout_s: refused: Unknown (0x8a) (0x8A)
| {"format":1,"unreadable":["boot.bios_print"]}
exits 1

# boot: each answer too short
$ cfgtool-state --json boot
> 00 09  05 00 00    < 00 01 05 C0 cut 10
> 00 09  63 00 00    < 00 01 63 cut 9
> 00 09  62 00 00    < 00 01 62 58 cut 10
2| cfgtool-state: boot.device: the answer is too short
2| cfgtool-state: boot.bios_write_protect: the answer is too short
2| cfgtool-state: boot.shutdown_timeout_s: the answer is too short
| {"format":1,"unreadable":["boot.bios_print"]}
exits 1

# boot: each request without an answer, after three of which the controller is taken to be gone
$ cfgtool-state --json boot fans
> 00 09  05 00 00    < silent
> 00 09  63 00 00    < unsent
> 00 09  62 00 00    < sequence
2| cfgtool-state: boot.device: no answer (0x40000001)
2| cfgtool-state: boot.bios_write_protect: no answer (0x40000000)
2| cfgtool-state: boot.shutdown_timeout_s: no answer (0x40000002)
2| cfgtool-state: the controller does not answer; nothing more is asked
| {"format":1,"unreadable":["boot.bios_print"]}
exits 1
