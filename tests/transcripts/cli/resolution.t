# an exact name and a unique prefix run the command
$ cfgtool -d fanlevel
$ cfgtool -d fanl
$ cfgtool -d fanleve
usage| Usage: cfgtool -d fanlevel -v <value>

# the exact name wins over the longer one that begins with it
$ cfgtool -d password
usage| cfgtool -d password -v <username>
log 1 User "Modify user password fail,EvtCode:0x11100581"

# a target and its dataitem by their exact names or unique prefixes
$ cfgtool -t fru0 -d shutdowntimeout
$ cfgtool -t f -d shut
$ cfgtool -t fru -d sh
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# the only dataitem of a target is meant by an empty text too
$ cfgtool -t user -d ''
$ cfgtool -t user -d unlock
$ cfgtool -t u -d u
usage| Usage: cfgtool -t user -d unlock -v <username>
log 1 User "Set user unlock status fail,EvtCode:0x11100CC1"

# names are compared letter by letter, and to their end
$ cfgtool -d FANLEVEL
$ cfgtool -d fanlevelx
$ cfgtool -d 'fanlevel '
$ cfgtool -d ' fanlevel'
$ cfgtool -d --
$ cfgtool -d -v 60
refuse| Input parameter[-d] error
usage|     -d <dataitem>
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

# so are those of targets
$ cfgtool -t FRU0 -d sel
$ cfgtool -t fru01 -d sel
$ cfgtool -t fru0x
$ cfgtool -t -d sel
$ cfgtool -t -- -d sel
$ cfgtool -t {x*100000} -d sel
refuse| input parameter[-t] error
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

# of several targets the latest counts
$ cfgtool -t led -t fru0 -d shutdowntimeout
$ cfgtool -t fru0 -t led -tfru0 -dshutdowntimeout
$ cfgtool {-t led *300} -t fru0 -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# 256 targets count as none: the dataitem is one of the top level
$ cfgtool {-t led *256} -d fanlevel -v 19
refuse| Fanlevel must not be lower than 20 percent.

# and without a dataitem nothing is printed
$ cfgtool {-t led *256}

# a bad target in front ends the run at once
$ cfgtool -t nosuch -t fru0 -d sel
$ cfgtool -t fru0 -t nosuch -d sel
$ cfgtool -t nosuch -h
refuse| input parameter[-t] error
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

# words in front of an option are passed over
$ cfgtool -t fru0 extra -d shutdowntimeout -v
$ cfgtool -t fru0 extra words -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# the words behind a dataitem stay as they are, -- among them
$ cfgtool -d fanlevel -- -v 60
$ cfgtool -d fanlevel -h
$ cfgtool -d fanlevel -T x
$ cfgtool -d fanlevel -x
usage| Usage: cfgtool -d fanlevel -v <value>

# -- ends the options: what follows it is no dataitem
$ cfgtool -t user -- -d unlock
$ cfgtool -t user words
$ cfgtool -t user
usage|
usage|     -d <dataitem>
usage|        unlock                 Set user unlock status

# a target is no dataitem, and a target's dataitem none of the top level
$ cfgtool -d fru0
$ cfgtool -d ledstate
$ cfgtool -d unlock
$ cfgtool -d zntool
$ cfgtool -d serialnumber
refuse| Input parameter[-d] error
usage|     -d <dataitem>
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

# the number of words is taken modulo 256: 258 count as 2
$ cfgtool -d fanlevel -v 19 {x *256}
refuse| Fanlevel must not be lower than 20 percent.

# 257 count as 1
$ cfgtool -d fanlevel -v 60 {x *255}
usage| Usage: cfgtool -d fanlevel -v <value>

# and 256 as none
$ cfgtool -d identify {x *256}
> 00 04                 < 00
log 2 LED "Set chassis identify(temporary on 15 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.
