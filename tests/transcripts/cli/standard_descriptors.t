# standard input closed: nothing else takes its place, and the change is made and recorded
closed 0
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard output closed: nothing else takes its place, and the change is made and recorded
closed 1
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard error closed: nothing else takes its place, and the change is made and recorded
closed 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard input and output closed: nothing else takes their places, and the change is made and recorded
closed 0 1
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard input and error closed: nothing else takes their places, and the change is made and recorded
closed 0 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard output and error closed: nothing else takes their places, and the change is made and recorded
closed 1 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard input, output and error closed: nothing else takes their places, and the change is made and recorded
closed 0 1 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# a question that finds its input closed has no answer
closed 0
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d clearcmos
| WARNING: The operation may have many adverse effects
| Do you want to continue?[Y/N]:Input character invalid.

# getopt's complaint goes nowhere when standard error is closed
closed 2
file /data/blacklist "cfgtool -t trap\n"
$ cfgtool -t led -d
|
|     -d <dataitem>
|        ledstate               Set led state

# a full device behind standard output: the change is made and recorded all the same
screen full
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
> 2C 16  00 00          < 00 00 3C
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# a full device behind standard output: a usage text is lost, and that is all
screen full
$ cfgtool
$ cfgtool -t fru0
$ cfgtool -d fanlevel
$ cfgtool -d nosuch

# a pipe that nobody reads behind standard output: the change is made and recorded all the same
screen gone
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
> 2C 16  00 00          < 00 00 3C
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# a pipe that nobody reads behind standard output: a usage text is lost, and that is all
screen gone
$ cfgtool
$ cfgtool -t fru0
$ cfgtool -d fanlevel
$ cfgtool -d nosuch
