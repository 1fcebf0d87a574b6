# ledstate: all LEDs are tested, and the controller is not asked which it has
$ cfgtool -t led -d ledstate -v ledall lamptest 50 0xF
> 2C 07  00 00  FF FB 32 0F < 00 00           # PICMG identifier, FRU 0, LED, function, on-duration, colour
done| Set led state successfully.

# ledstate off: every byte is 0
$ cfgtool -t led -d ledstate -v blueled off
> 2C 05  00 00              < 00 00 01 00     # general LEDs, number of application-specific ones
> 2C 07  00 00  00 00 00 00 < 00 00
done| Set led state successfully.

# ledstate on
$ cfgtool -t led -d ledstate -v led1 on 1
> 2C 05  00 00              < 00 00 0F 00
> 2C 07  00 00  01 FF 00 01 < 00 00
done| Set led state successfully.

# ledstate blink: the off-duration is the function
$ cfgtool -t led -d ledstate -v led2 blink 1 250 6
> 2C 05  00 00              < 00 00 04 00
> 2C 07  00 00  02 01 FA 06 < 00 00
done| Set led state successfully.

# ledstate blink: the longest and the shortest time, the other way round
$ cfgtool -t led -d ledstate -v led2 blink 250 1 14
> 2C 05  00 00              < 00 00 04 00
> 2C 07  00 00  02 FA 01 0E < 00 00
done| Set led state successfully.

# ledstate lamptest of one LED: 127 is the longest
$ cfgtool -t led -d ledstate -v led3 lamptest 127 2
> 2C 05  00 00              < 00 00 08 00
> 2C 07  00 00  03 FB 7F 02 < 00 00
done| Set led state successfully.

# ledstate lamptest: 0 is accepted
$ cfgtool -t led -d ledstate -v led1 lamptest 0 1
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FB 00 01 < 00 00
done| Set led state successfully.

# ledstate localcontrol
$ cfgtool -t led -d ledstate -v led3 localcontrol 0xE
> 2C 05  00 00              < 00 00 0F 00
> 2C 07  00 00  03 FC 00 0E < 00 00
done| Set led state successfully.

# ledstate: colour 0 is taken
$ cfgtool -t led -d ledstate -v led1 on 0
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FF 00 00 < 00 00
done| Set led state successfully.

# ledstate: colour 6 is taken
$ cfgtool -t led -d ledstate -v led1 on 6
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FF 00 06 < 00 00
done| Set led state successfully.

# ledstate: colour 14 is taken
$ cfgtool -t led -d ledstate -v led1 on 14
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FF 00 0E < 00 00
done| Set led state successfully.

# ledstate: colour 15 is taken
$ cfgtool -t led -d ledstate -v led1 on 15
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FF 00 0F < 00 00
done| Set led state successfully.

# ledstate: a colour that is no number goes out as FF
$ cfgtool -t led -d ledstate -v led1 on x
$ cfgtool -t led -d ledstate -v led1 on -1
$ cfgtool -t led -d ledstate -v led1 on 0x
$ cfgtool -t led -d ledstate -v led1 on 1x
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FF 00 FF < 00 00
done| Set led state successfully.

# ledstate: so do times that are none
$ cfgtool -t led -d ledstate -v led1 blink x -5 RED
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 FF FF FF < 00 00
done| Set led state successfully.

# ledstate: so does the time of a lamp test
$ cfgtool -t led -d ledstate -v ledall lamptest x 0X3
> 2C 07  00 00  FF FB FF 03 < 00 00
done| Set led state successfully.

# ledstate: an application-specific LED lies behind the four general ones
$ cfgtool -t led -d ledstate -v oem1 off
$ cfgtool -t led -d ledstate -v OEM1 off
$ cfgtool -t led -d ledstate -v oem0x1 off
$ cfgtool -t led -d ledstate -v OEM01 off
> 2C 05  00 00              < 00 00 00 01
> 2C 07  00 00  04 00 00 00 < 00 00
done| Set led state successfully.

# ledstate: oem2 where there are two
$ cfgtool -t led -d ledstate -v oem2 off
> 2C 05  00 00              < 00 00 0F 02
> 2C 07  00 00  05 00 00 00 < 00 00
done| Set led state successfully.

# ledstate: oem0 is LED 3, even where there is none
$ cfgtool -t led -d ledstate -v oem0 off
> 2C 05  00 00              < 00 00 00 00
> 2C 07  00 00  03 00 00 00 < 00 00
done| Set led state successfully.

# ledstate: the number of a LED has eight bits
$ cfgtool -t led -d ledstate -v oem254 off
> 2C 05  00 00              < 00 00 00 FF
> 2C 07  00 00  01 00 00 00 < 00 00
done| Set led state successfully.

# ledstate: what the answer is too short for reads as 0
$ cfgtool -t led -d ledstate -v oem0 off
> 2C 05  00 00              < 00 00 cut 8
> 2C 07  00 00  03 00 00 00 < 00 cut 7
done| Set led state successfully.

# ledstate: words are counted in eight bits, so that 256 more are none
$ cfgtool -t led -d ledstate -v led1 off{ x*256}
> 2C 05  00 00              < 00 00 02 00
> 2C 07  00 00  01 00 00 00 < 00 00
done| Set led state successfully.

# ledstate: an operator may not, with words or without
uid 503
$ cfgtool -t led -d ledstate -v led1 off
$ cfgtool -t led -d ledstate
> 06 44  01 03              < 00 11 05 01 03
refuse| Insufficient privilege level

# ledstate: too few words, or another first one: nothing is sent
$ cfgtool -t led -d ledstate
$ cfgtool -t led -d ledstate -v
$ cfgtool -t led -d ledstate -v led1
$ cfgtool -t led -d ledstate -v ledall
$ cfgtool -t led -d ledstate -x led1 off
$ cfgtool -t led -d ledstate led1 off -v
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: all LEDs can only be tested
$ cfgtool -t led -d ledstate -v ledall off
$ cfgtool -t led -d ledstate -v ledall on 1
$ cfgtool -t led -d ledstate -v ledall blink 10 10 1
$ cfgtool -t led -d ledstate -v ledall localcontrol 1
$ cfgtool -t led -d ledstate -v ledall on 7
$ cfgtool -t led -d ledstate -v ledall nonsense
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: a lamp test of all LEDs has five words
$ cfgtool -t led -d ledstate -v ledall lamptest
$ cfgtool -t led -d ledstate -v ledall lamptest 50
$ cfgtool -t led -d ledstate -v ledall lamptest 50 1 1
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: an unknown option is told once the LED is found
$ cfgtool -t led -d ledstate -v led1 nonsense
$ cfgtool -t led -d ledstate -v led1 ON 1
$ cfgtool -t led -d ledstate -v led1 o 1
$ cfgtool -t led -d ledstate -v led1 offf
$ cfgtool -t led -d ledstate -v led1 ''
> 2C 05  00 00              < 00 00 02 00
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: each option has its number of words
$ cfgtool -t led -d ledstate -v led1 off 1
$ cfgtool -t led -d ledstate -v led1 on
$ cfgtool -t led -d ledstate -v led1 on 1 1
$ cfgtool -t led -d ledstate -v led1 blink
$ cfgtool -t led -d ledstate -v led1 blink 10 10
$ cfgtool -t led -d ledstate -v led1 blink 10 10 1 1
$ cfgtool -t led -d ledstate -v led1 lamptest 50
$ cfgtool -t led -d ledstate -v led1 lamptest 50 1 1
$ cfgtool -t led -d ledstate -v led1 localcontrol
$ cfgtool -t led -d ledstate -v led1 localcontrol 1 1
> 2C 05  00 00              < 00 00 02 00
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: a colour out of range
$ cfgtool -t led -d ledstate -v led1 on 7
$ cfgtool -t led -d ledstate -v led1 on 13
$ cfgtool -t led -d ledstate -v led1 on 16
$ cfgtool -t led -d ledstate -v led1 on 0x106
$ cfgtool -t led -d ledstate -v led1 on {9*5000}
$ cfgtool -t led -d ledstate -v led1 localcontrol 7
$ cfgtool -t led -d ledstate -v led1 blink 10 10 7
$ cfgtool -t led -d ledstate -v led1 lamptest 10 7
> 2C 05  00 00              < 00 00 02 00
refuse| Input parameter out of range.
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: a time out of range
$ cfgtool -t led -d ledstate -v led1 blink 0 10 1
$ cfgtool -t led -d ledstate -v led1 blink 10 0 1
$ cfgtool -t led -d ledstate -v led1 blink 251 10 1
$ cfgtool -t led -d ledstate -v led1 blink 10 251 1
$ cfgtool -t led -d ledstate -v led1 blink '' 10 1
$ cfgtool -t led -d ledstate -v led1 blink 10 266 1
$ cfgtool -t led -d ledstate -v led1 lamptest 128 1
$ cfgtool -t led -d ledstate -v led1 lamptest 256 1
> 2C 05  00 00              < 00 00 02 00
refuse| Input parameter out of range.
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: a time out of range, for all LEDs
$ cfgtool -t led -d ledstate -v ledall lamptest 128 1
refuse| Input parameter out of range.
usage| Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...
usage|"\nOptions are:\r\n"
usage|"off{ *47}LED off\r\n"
usage|"on  <color>{ *39}LED on\r\n"
usage|"blink <off duration> <on duration> <color>{ *5}LED BLINKING{ *68}(duration range <1-250>,{ *57}units is 10ms)\r\n"
usage|"lamptest <on duration> <color>{ *20}LAMP TEST, Input ledname with{ *51}\"ledall\" lamp all leds.{ *57}(duration range <0-127>,{ *57}units is 100ms)\r\n"
usage|"localcontrol <color>{ *30}Local Control\r\n"
usage|
usage| Colors are:
usage|     1         Use BLUE
usage|     2         Use RED
usage|     3         Use GREEN
usage|     4         Use AMBER
usage|     5         Use ORANGE
usage|     6         Use WHITE
usage|     0xE       Do not change
usage|     0xF       Use default color

# ledstate: a LED that the controller does not have is tried as an application-specific one, and not found
$ cfgtool -t led -d ledstate -v led2 off
> 2C 05  00 00              < 00 00 FB 09
refuse| Can't find led2.

# ledstate: blueled where its bit is clear
$ cfgtool -t led -d ledstate -v blueled off
> 2C 05  00 00              < 00 00 FE 09
refuse| Can't find blueled.

# ledstate: led1 where its bit is clear
$ cfgtool -t led -d ledstate -v led1 off
> 2C 05  00 00              < 00 00 FD 09
refuse| Can't find led1.

# ledstate: led3 where its bit is clear
$ cfgtool -t led -d ledstate -v led3 off
> 2C 05  00 00              < 00 00 F7 09
refuse| Can't find led3.

# ledstate: oem2 where there is one
$ cfgtool -t led -d ledstate -v oem2 off
> 2C 05  00 00              < 00 00 0F 01
refuse| Can't find oem2.

# ledstate: a prefix alone has no number
$ cfgtool -t led -d ledstate -v oem off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find oem.

# ledstate: a prefix alone has no number, in capitals
$ cfgtool -t led -d ledstate -v OEM off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find OEM.

# ledstate: a prefix in mixed letters is none
$ cfgtool -t led -d ledstate -v Oem1 off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find Oem1.

# ledstate: what is behind the prefix must be a number
$ cfgtool -t led -d ledstate -v oemx off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find oemx.

# ledstate: what is behind the prefix must be a number to its end
$ cfgtool -t led -d ledstate -v oem1x off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find oem1x.

# ledstate: it must not be negative
$ cfgtool -t led -d ledstate -v oem-1 off
> 2C 05  00 00              < 00 00 0F FF
refuse| Can't find oem-1.

# ledstate: 256 is above any number of LEDs
$ cfgtool -t led -d ledstate -v oem256 off
> 2C 05  00 00              < 00 00 0F FF
refuse| Can't find oem256.

# ledstate: a part of a name is none
$ cfgtool -t led -d ledstate -v led off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find led.

# ledstate: a name with more behind it is none
$ cfgtool -t led -d ledstate -v led11 off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find led11.

# ledstate: a name in capitals is none
$ cfgtool -t led -d ledstate -v LED1 off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find LED1.

# ledstate: there is no fourth
$ cfgtool -t led -d ledstate -v led4 off
> 2C 05  00 00              < 00 00 FF 09
refuse| Can't find led4.

# ledstate: an empty name
$ cfgtool -t led -d ledstate -v '' off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find .

# ledstate: ledall in capitals is one LED's name, which no LED has
$ cfgtool -t led -d ledstate -v LEDALL off
> 2C 05  00 00              < 00 00 0F 09
refuse| Can't find LEDALL.

# ledstate: the LED is looked for before the option is looked at
$ cfgtool -t led -d ledstate -v led2 nonsense 1 2 3 4
> 2C 05  00 00              < 00 00 0B 00
refuse| Can't find led2.

# ledstate: an answer without the LEDs means none
$ cfgtool -t led -d ledstate -v led1 off
> 2C 05  00 00              < 00 00 cut 8
refuse| Can't find led1.

# ledstate: the question for the LEDs is refused
$ cfgtool -t led -d ledstate -v led1 off
$ cfgtool -t led -d ledstate -v nonsense nonsense
> 2C 05  00 00              < C1 00 0F 09
fail| Set led state failed, error code: 0x2C0500C1

# ledstate: the question for the LEDs is not answered
$ cfgtool -t led -d ledstate -v led1 off
> 2C 05  00 00              < silent
|"Select OutTime \r\n"
fail| Set led state failed, error code: 0x40000001

# ledstate: the question for the LEDs is not sent
$ cfgtool -t led -d ledstate -v led1 off
> 2C 05  00 00              < unsent
fail| Set led state failed, error code: 0x40000000

# ledstate: the order is refused
$ cfgtool -t led -d ledstate -v led1 off
> 2C 05  00 00              < 00 00 0F 00
> 2C 07  00 00  01 00 00 00 < C9
fail| Set led state failed, error code: 0x2C0700C9

# ledstate: the order is not answered
$ cfgtool -t led -d ledstate -v ledall lamptest 50 1
> 2C 07  00 00  FF FB 32 01 < silent
|"Select OutTime \r\n"
fail| Set led state failed, error code: 0x40000001

# ledstate: the answers to the order belong to others
$ cfgtool -t led -d ledstate -v ledall lamptest 50 1
> 2C 07  00 00  FF FB 32 01 < sequence
fail| Set led state failed, error code: 0x40000002

# ledstate: not sent
$ cfgtool -t led -d ledstate -v oem254 off
> 2C 05  00 00              < 00 00 00 FF
> 2C 07  00 00  01 00 00 00 < unsent
fail| Set led state failed, error code: 0x40000000

# ledstate: oem252 has the number that means all LEDs
$ cfgtool -t led -d ledstate -v oem252 off
> 2C 05  00 00              < 00 00 00 FF
> 2C 07  00 00  FF 00 00 00 < 00 00
done| Set led state successfully.
