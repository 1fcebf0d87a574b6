# an exact name and a unique prefix run the command
$ cfgtool -d fanlevel
$ cfgtool -d fanl
$ cfgtool -d fanleve
| Usage: cfgtool -d fanlevel -v <value>

# the exact name wins over the longer one that begins with it
$ cfgtool -d password
| cfgtool -d password -v <username>
log 1 User "Modify user password fail,EvtCode:0x11100581"

# a target and its dataitem by their exact names or unique prefixes
$ cfgtool -t fru0 -d shutdowntimeout
$ cfgtool -t f -d shut
$ cfgtool -t fru -d sh
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# the only dataitem of a target is meant by an empty text too
$ cfgtool -t user -d ''
$ cfgtool -t user -d unlock
$ cfgtool -t u -d u
| Usage: cfgtool -t user -d unlock -v <username>
log 1 User "Set user unlock status fail,EvtCode:0x11100CC1"

# names are compared letter by letter, and to their end
$ cfgtool -d FANLEVEL
$ cfgtool -d fanlevelx
$ cfgtool -d 'fanlevel '
$ cfgtool -d ' fanlevel'
$ cfgtool -d --
$ cfgtool -d -v 60
| Input parameter[-d] error
|     -d <dataitem>
|        fanmode                Set fan mode,you can choose manual or auto
|        fanlevel               Set fan speed percent
|        download               Download SOL or Black box command
|        identify               Operate identify led
|        bioswriteprotect       Enable or disable bios protect
|        upgrade                Upgrade component
|        clearcmos              Clear CMOS
|        bootdevice             Set boot device
|        reset                  Reboot IPMC system
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Fru control
|        powerstate             Set power state
|        sel                    Clear SEL
|        adduser                Add user
|        password               Modify user password
|        deluser                Delete user
|        privilege              Set user privilege
|        ipmctime               Set ipmc system time
|        serialdir              Set front panel serial direction
|        printscreen            Print current screen to bmc
|        rollback               Perform a manual rollback
|        timezone               Set time zone
|        passwordcomplexity     Set password complexity check enable state
|        remotemanageid         set Remote Manage ID
|        httphost               Set httphost value, IP or Domain Name

# so are those of targets
$ cfgtool -t FRU0 -d sel
$ cfgtool -t fru01 -d sel
$ cfgtool -t fru0x
$ cfgtool -t -d sel
$ cfgtool -t -- -d sel
$ cfgtool -t {x*100000} -d sel
| input parameter[-t] error
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance

# of several targets the latest counts
$ cfgtool -t led -t fru0 -d shutdowntimeout
$ cfgtool -t fru0 -t led -tfru0 -dshutdowntimeout
$ cfgtool {-t led *300} -t fru0 -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# 256 targets count as none: the dataitem is one of the top level
$ cfgtool {-t led *256} -d fanlevel -v 19
| Fanlevel must not be lower than 20 percent.

# and without a dataitem nothing is printed
$ cfgtool {-t led *256}

# a bad target in front ends the run at once
$ cfgtool -t nosuch -t fru0 -d sel
$ cfgtool -t fru0 -t nosuch -d sel
$ cfgtool -t nosuch -h
| input parameter[-t] error
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance

# words in front of an option are passed over
$ cfgtool -t fru0 extra -d shutdowntimeout -v
$ cfgtool -t fru0 extra words -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# the words behind a dataitem stay as they are, -- among them
$ cfgtool -d fanlevel -- -v 60
$ cfgtool -d fanlevel -h
$ cfgtool -d fanlevel -T x
$ cfgtool -d fanlevel -x
| Usage: cfgtool -d fanlevel -v <value>

# -- ends the options: what follows it is no dataitem
$ cfgtool -t user -- -d unlock
$ cfgtool -t user words
$ cfgtool -t user
|
|     -d <dataitem>
|        unlock                 Set user unlock status

# a target is no dataitem, and a target's dataitem none of the top level
$ cfgtool -d fru0
$ cfgtool -d ledstate
$ cfgtool -d unlock
$ cfgtool -d zntool
$ cfgtool -d serialnumber
| Input parameter[-d] error
|     -d <dataitem>
|        fanmode                Set fan mode,you can choose manual or auto
|        fanlevel               Set fan speed percent
|        download               Download SOL or Black box command
|        identify               Operate identify led
|        bioswriteprotect       Enable or disable bios protect
|        upgrade                Upgrade component
|        clearcmos              Clear CMOS
|        bootdevice             Set boot device
|        reset                  Reboot IPMC system
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Fru control
|        powerstate             Set power state
|        sel                    Clear SEL
|        adduser                Add user
|        password               Modify user password
|        deluser                Delete user
|        privilege              Set user privilege
|        ipmctime               Set ipmc system time
|        serialdir              Set front panel serial direction
|        printscreen            Print current screen to bmc
|        rollback               Perform a manual rollback
|        timezone               Set time zone
|        passwordcomplexity     Set password complexity check enable state
|        remotemanageid         set Remote Manage ID
|        httphost               Set httphost value, IP or Domain Name

# the number of words is taken modulo 256: 258 count as 2
$ cfgtool -d fanlevel -v 19 {x *256}
| Fanlevel must not be lower than 20 percent.

# 257 count as 1
$ cfgtool -d fanlevel -v 60 {x *255}
| Usage: cfgtool -d fanlevel -v <value>

# and 256 as none
$ cfgtool -d identify {x *256}
> 00 04                 < 00
log 2 LED "Set chassis identify(temporary on 15 seconds) success,EvtCode:0x21A011E0"
| Identify UID led successfully.
