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
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance
usage|
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

# -d without its argument: getopt complains, then the full usage
$ cfgtool -d
2| cfgtool: option requires an argument -- 'd'
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance
usage|
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

# -t without its argument: getopt complains, then the full usage
$ cfgtool -t
2| cfgtool: option requires an argument -- 't'
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance
usage|
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

# -T without its argument: getopt complains, then the full usage
$ cfgtool -T
2| cfgtool: option requires an argument -- 'T'
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance
usage|
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

# -h behind a target: the targets, not the target's dataitems
$ cfgtool -t fru0 -h
$ cfgtool -t fru0 -hd
$ cfgtool -t fru0 -h -d sel
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

# -T behind a target: the target's dataitems
$ cfgtool -t fru0 -T x
$ cfgtool -t fru -T x
$ cfgtool -t led -t fru0 -Tx -d sel
usage|
usage|     -d <dataitem>
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Control fru0
usage|        powerstate             Set fru0 power state
usage|        sel                    Clear SEL

# an unknown option behind a target: getopt complains, then the target's dataitems
$ cfgtool -t led -x
$ cfgtool -t led -x -d ledstate
$ cfgtool -t l -xyz
2| cfgtool: invalid option -- 'x'
usage|
usage|     -d <dataitem>
usage|        ledstate               Set led state

# there are no long options
$ cfgtool -t led --help
2| cfgtool: invalid option -- '-'
usage|
usage|     -d <dataitem>
usage|        ledstate               Set led state

# -d behind a target without its argument: getopt complains, then the target's dataitems
$ cfgtool -t user -d
2| cfgtool: option requires an argument -- 'd'
usage|
usage|     -d <dataitem>
usage|        unlock                 Set user unlock status

# -t behind a target without its argument: getopt complains, then the target's dataitems
$ cfgtool -t user -t
2| cfgtool: option requires an argument -- 't'
usage|
usage|     -d <dataitem>
usage|        unlock                 Set user unlock status

# targets are counted in 8 bits: 256 of them count as none
$ cfgtool {-t fru0 *256} -h
$ cfgtool {-t fru0 *256} -T x
$ cfgtool {-t fru0 *512} -h
usage| Useage: cfgtool [-t target] -d dataitem [-v value]
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance
usage|
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

# and 257 as one
$ cfgtool {-t fru0 *257} -T x
usage|
usage|     -d <dataitem>
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Control fru0
usage|        powerstate             Set fru0 power state
usage|        sel                    Clear SEL
