# -t fru0 without a dataitem: its dataitems
$ cfgtool -t fru0
|
|     -d <dataitem>
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Control fru0
|        powerstate             Set fru0 power state
|        sel                    Clear SEL

# -t led without a dataitem: its dataitems
$ cfgtool -t led
|
|     -d <dataitem>
|        ledstate               Set led state

# -t eth0 without a dataitem: its dataitems
$ cfgtool -t eth0
|
|     -d <dataitem>
|        ipaddr                 Set ip address
|        gateway                Set gateway
|        ipaddr6                Set ipv6 address
|        gateway6               Set ipv6 gateway
|        mode                   Set eth0 mode
|        sideband               Set sideband port
|        vlan                   Set sideband vlan

# -t sensor without a dataitem: its dataitems
$ cfgtool -t sensor
|
|     -d <dataitem>
|        negativehysteresis     Set negative hysteresis
|        positivehysteresis     Set positive hysteresis
|        lowernonrecoverable    Set lower nonrecoverable
|        lowercritical          Set lower critical
|        lowernoncritical       Set lower noncritical
|        uppernonrecoverable    Set upper nonrecoverable
|        uppercritical          Set upper critical
|        uppernoncritical       Set upper noncritical
|        test                   Sensor test

# -t trap without a dataitem: its dataitems
$ cfgtool -t trap
|
|     -d <dataitem>
|        state                  Set trap enable state
|        severity               Set trap send severity
|        version                Set SNMP trap version
|        user                   Set SNMP trap user
|        auth_priv_protocol     Set SNMP trap auth_priv_protocol
|        community              Set SNMP trap community
|        address                Set trap address
|        port                   Set trap port
|        mode                   Set trap mode

# -t service without a dataitem: its dataitems
$ cfgtool -t service
|
|     -d <dataitem>
|        state                  Set service enable state
|        port                   Set service port

# -t user without a dataitem: its dataitems
$ cfgtool -t user
|
|     -d <dataitem>
|        unlock                 Set user unlock status

# -t maintenance without a dataitem: its dataitems
$ cfgtool -t maintenance
|
|     -d <dataitem>
|        readeeprom             Read eeprom data to file /tmp/eeprom.bin
|        downloadbios           Download bios to /tmp/bios.bin
|        upgradebios            Upgrade bios
|        zntool                 Collect maintenance debug info
|        webrestart             Restart web service.
|        biosprint              BIOS print set.

# an unknown target: told so, and the targets
$ cfgtool -t nosuch -d state
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

# eth1 has a table but is no target
$ cfgtool -t eth1 -d state
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

# smbios has a table but is no target
$ cfgtool -t smbios -d serialnumber
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

# a prefix of two targets: those two
$ cfgtool -t se
|     -t <target>
|        sensor                 Operate with sensor
|        service                Operate with service

# an empty target is a prefix of them all
$ cfgtool -t '' -d state
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance

# an unknown dataitem: told so, and the top level
$ cfgtool -d nosuch
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

# an unknown dataitem of a target: told so, and that target's dataitems
$ cfgtool -t fru0 -d nosuch
| Input parameter[-d] error
|     -d <dataitem>
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Control fru0
|        powerstate             Set fru0 power state
|        sel                    Clear SEL

# a prefix of several dataitems: those
$ cfgtool -d p
|
|     -d <dataitem>
|        powerstate             Set power state
|        password               Modify user password
|        privilege              Set user privilege
|        printscreen            Print current screen to bmc
|        passwordcomplexity     Set password complexity check enable state

# an empty dataitem is a prefix of them all
$ cfgtool -d ''
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

# a prefix of several dataitems of a target: those
$ cfgtool -t trap -d s
|
|     -d <dataitem>
|        state                  Set trap enable state
|        severity               Set trap send severity

# a dataitem of 100,000 characters is none
$ cfgtool -d {x*100000}
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

# the words behind -d are the command's: -t there chooses no target
$ cfgtool -d ipaddr -t eth0
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

# names are of one table: eth0 has no state
$ cfgtool -t eth0 -d state
| Input parameter[-d] error
|     -d <dataitem>
|        ipaddr                 Set ip address
|        gateway                Set gateway
|        ipaddr6                Set ipv6 address
|        gateway6               Set ipv6 gateway
|        mode                   Set eth0 mode
|        sideband               Set sideband port
|        vlan                   Set sideband vlan
