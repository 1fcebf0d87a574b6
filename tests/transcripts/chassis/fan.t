# fanlevel: the level is set, mode and level are shown, one record is written
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00                          # PICMG identifier, FRU 0, level
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 3C
| Manual Fan Level:    60%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: 100 is the highest, hexadecimal is taken
$ cfgtool -d fanlevel -v 0x64
> 2C 15  00 00 64       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(100) success,EvtCode:0x20E004F0"

# fanlevel: what is above 100 is refused
$ cfgtool -d fanlevel -v 101
$ cfgtool -d fanlevel -v 0x65
$ cfgtool -d fanlevel -v 253
$ cfgtool -d fanlevel -v 254
$ cfgtool -d fanlevel -v 255
$ cfgtool -d fanlevel -v 316
$ cfgtool -d fanlevel -v 4294967356
$ cfgtool -d fanlevel -v {9*100000}
refuse| The highest fanlevel is 100 percent.

# fanlevel: the board's minimum is accepted
$ cfgtool -d fanlevel -v 20
> 2C 15  00 00 14       < C9
fail| Set fan level  failed, error code: 0x2C1500C9

# fanlevel: exactly "-v" and a number that is not negative, else usage
$ cfgtool -d fanlevel
$ cfgtool -d fanlevel -v
$ cfgtool -d fanlevel 60
$ cfgtool -d fanlevel -v 60 60
$ cfgtool -d fanlevel -x 60
$ cfgtool -d fanlevel -vv 60
$ cfgtool -d fanlevel '' 60
$ cfgtool -d fanlevel -v60
$ cfgtool -d fanlevel -v -60
$ cfgtool -d fanlevel -v 60%
$ cfgtool -d fanlevel -v '60 '
$ cfgtool -d fanlevel -v ' '
$ cfgtool -d fanlevel -v 0x
$ cfgtool -d fanlevel -v ' 0x3C'
$ cfgtool -d fanlevel -v 0xG
$ cfgtool -d fanlevel -v x
$ cfgtool -d fanlevel -v 60.0
$ cfgtool -d fanlevel -v 60{x*100000}
usage| Usage: cfgtool -d fanlevel -v <value>

# fanlevel: decimal with a sign, leading blanks and zeros, and hexadecimal, are numbers
$ cfgtool -d fanlevel -v 60
$ cfgtool -d fanlevel -v +60
$ cfgtool -d fanlevel -v ' 60'
$ cfgtool -d fanlevel -v {0*100000}60
$ cfgtool -d fanlevel -v 0x3C
$ cfgtool -d fanlevel -v 0X3c
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: an empty text and a negative zero are 0, below the minimum of 20
$ cfgtool -d fanlevel -v ''
$ cfgtool -d fanlevel -v -0
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 20 percent.

# fanlevel: 0 is a level where the board has no minimum
board "[FAN_PROPERTITY]\nFAN_MinLevel=0\n"
$ cfgtool -d fanlevel -v 0
> 2C 15  00 00 00       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(0) success,EvtCode:0x20E004F0"

# fanlevel: a minimum is asked for before the maximum
board "[FAN_PROPERTITY]\nFAN_MinLevel=150\n"
$ cfgtool -d fanlevel -v 149
refuse| Fanlevel must not be lower than 150 percent.

# fanlevel: a minimum above 100 leaves no level at all
board "[FAN_PROPERTITY]\nFAN_MinLevel=150\n"
$ cfgtool -d fanlevel -v 150
refuse| The highest fanlevel is 100 percent.

# fanlevel: the request is not answered
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < silent
|"Select OutTime \r\n"
fail| Set fan level  failed, error code: 0x40000001

# fanlevel: the request cannot be sent
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < unsent
fail| Set fan level  failed, error code: 0x40000000

# fanlevel: five answers belong to others
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < sequence
fail| Set fan level  failed, error code: 0x40000002

# fanlevel: the request is refused, and what its answer carries is not looked at
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < CC 00
fail| Set fan level  failed, error code: 0x2C1500CC

# fanlevel: the mode is silent: the change stands and is recorded
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < silent
|"Select OutTime \r\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: the mode is not answered: the change stands and is recorded
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < unsent
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: the mode is refused: nothing of it is shown
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < C1
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: the level is refused: only the mode is shown
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 00 E1 F5 05  00
| Current Mode:        manual, timeout 100000000 seconds.
> 2C 16  00 00          < C3
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: the level is not answered: only the mode is shown
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 FF FF FF FF  00
| Current Mode:        manual, timeout 4294967295 seconds.
> 2C 16  00 00          < unsent
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: a manual mode without end
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  01
| Current Mode:        manual forever
> 2C 16  00 00          < 00 00 00
| Manual Fan Level:    0%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: an emergency shut-down, in a line without a carriage return
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 FE
|"Fan has been placed in \"Emergency Shut Down\" by the Shelf Manager\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: a level of 101 shows nothing
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 65
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: and 253 shows nothing
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 FD
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: and 255 shows nothing
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 FF
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: 100 is the highest level shown
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 64
| Manual Fan Level:    100%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: a forever flag that is not 1 is none
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  02
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 3C
| Manual Fan Level:    60%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: a mode that is neither shows no mode, but the level
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  02 1E 00 00 00  00
> 2C 16  00 00          < 00 00 3C
| Manual Fan Level:    60%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: a mode beyond 1 shows no mode even when it is for ever
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  FF 1E 00 00 00  01
> 2C 16  00 00          < 00 00 FE
|"Fan has been placed in \"Emergency Shut Down\" by the Shelf Manager\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: a mode that the answer does not reach is 0
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  01 cut 10
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: nor is the end of a timeout it does not reach read elsewhere
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 01 02 03  01 cut 13
| Current Mode:        manual, timeout 286 seconds.
> 2C 16  00 00          < 00 00 3C cut 8
| Manual Fan Level:    0%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanlevel: what an answer is too short for reads as 0
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  01 cut 12
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 3C cut 7
| Manual Fan Level:    0%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# fanmode: automatic, in words of its own
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00 D9 7E 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# fanmode: manual without a timeout lasts 30 seconds
$ cfgtool -d fanmode -v 0x1
> 30 91  D9 7E 00 01 01  1E 00 00 00  < 00 D9 7E 00
done| Set fan mode successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 32
| Manual Fan Level:    50%
log 2 Fan "Set fan mode(manual) success,EvtCode:0x20E004D0"
log 2 Fan "Set fan manual mode expired time(30 seconds) success,EvtCode:0x20E004E0"

# fanmode: the longest timeout
$ cfgtool -d fanmode -v 1 100000000
> 30 91  D9 7E 00 01 01  00 E1 F5 05  < 00 D9 7E 00
done| Set fan mode successfully.
> 30 91  D9 7E 00 02    < silent
|"Select OutTime \r\n"
log 2 Fan "Set fan mode(manual) success,EvtCode:0x20E004D0"
log 2 Fan "Set fan manual mode expired time(100000000 seconds) success,EvtCode:0x20E004E0"

# fanmode: a timeout of 0 is sent as it is
$ cfgtool -d fanmode -v 1 0
> 30 91  D9 7E 00 01 01  00 00 00 00  < C9
fail| Set fan mode failed, error code: 0x309100C9

# fanmode: not answered
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < unsent
fail| Set fan mode failed, error code: 0x40000000

# fanmode: the second request of the display may fail, both records are written
$ cfgtool -d fanmode -v 1 30
> 30 91  D9 7E 00 01 01  1E 00 00 00  < 00 D9 7E 00
done| Set fan mode successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1D 00 00 00  00
| Current Mode:        manual, timeout 29 seconds.
> 2C 16  00 00          < CB
log 2 Fan "Set fan mode(manual) success,EvtCode:0x20E004D0"
log 2 Fan "Set fan manual mode expired time(30 seconds) success,EvtCode:0x20E004E0"

# fanmode: a timeout in hexadecimal, sent low byte first; what the controller says is what is shown
$ cfgtool -d fanmode -v 1 0x01020304
$ cfgtool -d fanmode -v 0X1 16909060
> 30 91  D9 7E 00 01 01  04 03 02 01  < 00 D9 7E 00
done| Set fan mode successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00 00 00 00 00  00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan mode(manual) success,EvtCode:0x20E004D0"
log 2 Fan "Set fan manual mode expired time(16909060 seconds) success,EvtCode:0x20E004E0"

# fanmode: a timeout of 0, or an empty one, is 0 seconds, not the 30 of none
$ cfgtool -d fanmode -v 1 0
$ cfgtool -d fanmode -v 1 ''
> 30 91  D9 7E 00 01 01  00 00 00 00  < 00 D9 7E 00
done| Set fan mode successfully.
> 30 91  D9 7E 00 02    < C1
log 2 Fan "Set fan mode(manual) success,EvtCode:0x20E004D0"
log 2 Fan "Set fan manual mode expired time(0 seconds) success,EvtCode:0x20E004E0"

# fanmode: an empty mode and any other way to write 0 are automatic
$ cfgtool -d fanmode -v ''
$ cfgtool -d fanmode -v -0
$ cfgtool -d fanmode -v +0
$ cfgtool -d fanmode -v 0x0
> 30 91  D9 7E 00 01 00 < 00 D9 7E 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# fanmode: refused
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < C1
fail| Set fan mode failed, error code: 0x309100C1

# fanmode: manual, not answered
$ cfgtool -d fanmode -v 1
> 30 91  D9 7E 00 01 01  1E 00 00 00  < silent
|"Select OutTime \r\n"
fail| Set fan mode failed, error code: 0x40000001

# fanmode: five answers belong to others
$ cfgtool -d fanmode -v 1
> 30 91  D9 7E 00 01 01  1E 00 00 00  < command
fail| Set fan mode failed, error code: 0x40000002

# fanmode: usage for anything but "-v", 0 or 1, and a timeout of 0 to 100000000 behind the 1
$ cfgtool -d fanmode
$ cfgtool -d fanmode -v
$ cfgtool -d fanmode 1
$ cfgtool -d fanmode -x 1
$ cfgtool -d fanmode -v1
$ cfgtool -d fanmode -v 1 2 3
$ cfgtool -d fanmode -v 1x
$ cfgtool -d fanmode -v 0x
$ cfgtool -d fanmode -v ' '
$ cfgtool -d fanmode -v 2
$ cfgtool -d fanmode -v 256
$ cfgtool -d fanmode -v -1
$ cfgtool -d fanmode -v 4294967295
$ cfgtool -d fanmode -v 4294967296
$ cfgtool -d fanmode -v 4294967297
$ cfgtool -d fanmode -v {1*100000}
$ cfgtool -d fanmode -v 1 x
$ cfgtool -d fanmode -v 1 30s
$ cfgtool -d fanmode -v 1 -1
$ cfgtool -d fanmode -v 1 100000001
$ cfgtool -d fanmode -v 1 0x5F5E101
$ cfgtool -d fanmode -v 1 4294967295
$ cfgtool -d fanmode -v 1 4294967326
$ cfgtool -d fanmode -v 0 0
$ cfgtool -d fanmode -v 0 5
$ cfgtool -d fanmode -v 0 30
$ cfgtool -d fanmode -v 0 x
$ cfgtool -d fanmode -v 0 ''
usage| Usage: cfgtool -d fanmode -v <mode> [timeout]
usage| Modes are:
usage|     0    auto regulate fan speed, without parameter [timeout]
usage|     1    manual regulate fan speed, with parameter [timeout], timeout range <0-100000000>

# fanmode: a caller who is refused changes and records nothing
uid 500
$ cfgtool -d fanmode -v 1
$ cfgtool -d fanmode
refuse| Insufficient privilege level
