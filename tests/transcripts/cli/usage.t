# the full usage: no arguments, -h, -T, which has no function of its own, and any first word that is not exactly an option
$ cfgtool
$ cfgtool -h
$ cfgtool -h fanlevel
$ cfgtool -T x
$ cfgtool -T x -d fanlevel
$ cfgtool foo
$ cfgtool ''
$ cfgtool fanlevel -d fanlevel
$ cfgtool -
$ cfgtool --
$ cfgtool --help
$ cfgtool -x
$ cfgtool -v 1
$ cfgtool -tfru0
$ cfgtool -dfanlevel -v 60
$ cfgtool -hT
$ cfgtool {x*100000}
| Useage: cfgtool [-t target] -d dataitem [-v value]
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance
|
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

# -d without its argument: getopt complains, then the full usage
$ cfgtool -d
2| cfgtool: option requires an argument -- 'd'
| Useage: cfgtool [-t target] -d dataitem [-v value]
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance
|
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

# -t without its argument: getopt complains, then the full usage
$ cfgtool -t
2| cfgtool: option requires an argument -- 't'
| Useage: cfgtool [-t target] -d dataitem [-v value]
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance
|
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

# -T without its argument: getopt complains, then the full usage
$ cfgtool -T
2| cfgtool: option requires an argument -- 'T'
| Useage: cfgtool [-t target] -d dataitem [-v value]
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance
|
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

# -h behind a target: the targets, not the target's dataitems
$ cfgtool -t fru0 -h
$ cfgtool -t fru0 -hd
$ cfgtool -t fru0 -h -d sel
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance

# -T behind a target: the target's dataitems
$ cfgtool -t fru0 -T x
$ cfgtool -t fru -T x
$ cfgtool -t led -t fru0 -Tx -d sel
|
|     -d <dataitem>
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Control fru0
|        powerstate             Set fru0 power state
|        sel                    Clear SEL

# an unknown option behind a target: getopt complains, then the target's dataitems
$ cfgtool -t led -x
$ cfgtool -t led -x -d ledstate
$ cfgtool -t l -xyz
2| cfgtool: invalid option -- 'x'
|
|     -d <dataitem>
|        ledstate               Set led state

# there are no long options
$ cfgtool -t led --help
2| cfgtool: invalid option -- '-'
|
|     -d <dataitem>
|        ledstate               Set led state

# -d behind a target without its argument: getopt complains, then the target's dataitems
$ cfgtool -t user -d
2| cfgtool: option requires an argument -- 'd'
|
|     -d <dataitem>
|        unlock                 Set user unlock status

# -t behind a target without its argument: getopt complains, then the target's dataitems
$ cfgtool -t user -t
2| cfgtool: option requires an argument -- 't'
|
|     -d <dataitem>
|        unlock                 Set user unlock status

# targets are counted in 8 bits: 256 of them count as none
$ cfgtool {-t fru0 *256} -h
$ cfgtool {-t fru0 *256} -T x
$ cfgtool {-t fru0 *512} -h
| Useage: cfgtool [-t target] -d dataitem [-v value]
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance
|
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

# and 257 as one
$ cfgtool {-t fru0 *257} -T x
|
|     -d <dataitem>
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Control fru0
|        powerstate             Set fru0 power state
|        sel                    Clear SEL
