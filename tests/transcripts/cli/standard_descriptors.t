# standard input closed: nothing else takes its place, and the change is made and recorded
closed 0
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard output closed: nothing else takes its place, and the change is made and recorded
closed 1
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard error closed: nothing else takes its place, and the change is made and recorded
closed 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard input and output closed: nothing else takes their places, and the change is made and recorded
closed 0 1
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard input and error closed: nothing else takes their places, and the change is made and recorded
closed 0 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard output and error closed: nothing else takes their places, and the change is made and recorded
closed 1 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# standard input, output and error closed: nothing else takes their places, and the change is made and recorded
closed 0 1 2
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# a question that finds its input closed has no answer
closed 0
file /data/blacklist "cfgtool -d sel\n"
$ cfgtool -d clearcmos
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"
refuse| Input character invalid.

# getopt's complaint goes nowhere when standard error is closed
closed 2
file /data/blacklist "cfgtool -t trap\n"
$ cfgtool -t led -d
usage|
usage|     -d <dataitem>
usage|        ledstate               Set led state

steps targets
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

steps dataitems
usage|        fanmode                Set fan mode,you can choose manual or auto
usage|        fanlevel               Set fan speed percent
usage|        download               Download SOL or Black box command
usage|        identify               Operate identify led
usage|        bioswriteprotect       Enable or disable bios protect
usage|        upgrade                Upgrade component
usage|        clearcmos              Clear CMOS
usage|        bootdevice             Set boot device
usage|        reset                  Reboot IPMC system
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Fru control
usage|        powerstate             Set power state
usage|        sel                    Clear SEL
usage|        adduser                Add user
usage|        password               Modify user password
usage|        deluser                Delete user
usage|        privilege              Set user privilege
usage|        ipmctime               Set ipmc system time
usage|        serialdir              Set front panel serial direction
usage|        printscreen            Print current screen to bmc
usage|        rollback               Perform a manual rollback
usage|        timezone               Set time zone
usage|        passwordcomplexity     Set password complexity check enable state
usage|        remotemanageid         set Remote Manage ID
usage|        httphost               Set httphost value, IP or Domain Name

steps dataitems of fru0
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Control fru0
usage|        powerstate             Set fru0 power state
usage|        sel                    Clear SEL

# a full device behind standard output: the change is made and recorded all the same
screen full
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 3C
| Manual Fan Level:    60%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# a full device behind standard output: a usage text is lost, and that is all
screen full
$ cfgtool -d fanlevel
usage| Usage: cfgtool -d fanlevel -v <value>

# a full device behind standard output: so is a listing
screen full
$ cfgtool
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
do targets
usage|
usage|     -d <dataitem>
do dataitems

# a full device behind standard output: so are the dataitems of a target
screen full
$ cfgtool -t fru0
usage|
usage|     -d <dataitem>
do dataitems of fru0

# a full device behind standard output: so is what could be meant
screen full
$ cfgtool -d nosuch
refuse| Input parameter[-d] error
usage|     -d <dataitem>
do dataitems

# a pipe that nobody reads behind standard output: the change is made and recorded all the same
screen gone
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00  01 1E 00 00 00  00
| Current Mode:        manual, timeout 30 seconds.
> 2C 16  00 00          < 00 00 3C
| Manual Fan Level:    60%
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# a pipe that nobody reads behind standard output: a usage text is lost, and that is all
screen gone
$ cfgtool -d fanlevel
usage| Usage: cfgtool -d fanlevel -v <value>

# a pipe that nobody reads behind standard output: so is a listing
screen gone
$ cfgtool
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
do targets
usage|
usage|     -d <dataitem>
do dataitems

# a pipe that nobody reads behind standard output: so are the dataitems of a target
screen gone
$ cfgtool -t fru0
usage|
usage|     -d <dataitem>
do dataitems of fru0

# a pipe that nobody reads behind standard output: so is what could be meant
screen gone
$ cfgtool -d nosuch
refuse| Input parameter[-d] error
usage|     -d <dataitem>
do dataitems
