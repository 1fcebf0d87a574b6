# -t fru0 without a dataitem: its dataitems
$ cfgtool -t fru0
usage|
usage|     -d <dataitem>
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Control fru0
usage|        powerstate             Set fru0 power state
usage|        sel                    Clear SEL

# -t led without a dataitem: its dataitems
$ cfgtool -t led
usage|
usage|     -d <dataitem>
usage|        ledstate               Set led state

# -t eth0 without a dataitem: its dataitems
$ cfgtool -t eth0
usage|
usage|     -d <dataitem>
usage|        ipaddr                 Set ip address
usage|        gateway                Set gateway
usage|        ipaddr6                Set ipv6 address
usage|        gateway6               Set ipv6 gateway
usage|        mode                   Set eth0 mode
usage|        sideband               Set sideband port
usage|        vlan                   Set sideband vlan

# -t sensor without a dataitem: its dataitems
$ cfgtool -t sensor
usage|
usage|     -d <dataitem>
usage|        negativehysteresis     Set negative hysteresis
usage|        positivehysteresis     Set positive hysteresis
usage|        lowernonrecoverable    Set lower nonrecoverable
usage|        lowercritical          Set lower critical
usage|        lowernoncritical       Set lower noncritical
usage|        uppernonrecoverable    Set upper nonrecoverable
usage|        uppercritical          Set upper critical
usage|        uppernoncritical       Set upper noncritical
usage|        test                   Sensor test

# -t trap without a dataitem: its dataitems
$ cfgtool -t trap
usage|
usage|     -d <dataitem>
usage|        state                  Set trap enable state
usage|        severity               Set trap send severity
usage|        version                Set SNMP trap version
usage|        user                   Set SNMP trap user
usage|        auth_priv_protocol     Set SNMP trap auth_priv_protocol
usage|        community              Set SNMP trap community
usage|        address                Set trap address
usage|        port                   Set trap port
usage|        mode                   Set trap mode

# -t service without a dataitem: its dataitems
$ cfgtool -t service
usage|
usage|     -d <dataitem>
usage|        state                  Set service enable state
usage|        port                   Set service port

# -t user without a dataitem: its dataitems
$ cfgtool -t user
usage|
usage|     -d <dataitem>
usage|        unlock                 Set user unlock status

# -t maintenance without a dataitem: its dataitems
$ cfgtool -t maintenance
usage|
usage|     -d <dataitem>
usage|        readeeprom             Read eeprom data to file /tmp/eeprom.bin
usage|        downloadbios           Download bios to /tmp/bios.bin
usage|        upgradebios            Upgrade bios
usage|        zntool                 Collect maintenance debug info
usage|        webrestart             Restart web service.
usage|        biosprint              BIOS print set.

# an unknown target: told so, and the targets
$ cfgtool -t nosuch -d state
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

# eth1 has a table but is no target
$ cfgtool -t eth1 -d state
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

# smbios has a table but is no target
$ cfgtool -t smbios -d serialnumber
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

# a prefix of two targets: those two
$ cfgtool -t se
usage|     -t <target>
usage|        sensor                 Operate with sensor
usage|        service                Operate with service

# an empty target is a prefix of them all
$ cfgtool -t '' -d state
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

# an unknown dataitem: told so, and the top level
$ cfgtool -d nosuch
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

# an unknown dataitem of a target: told so, and that target's dataitems
$ cfgtool -t fru0 -d nosuch
refuse| Input parameter[-d] error
usage|     -d <dataitem>
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Control fru0
usage|        powerstate             Set fru0 power state
usage|        sel                    Clear SEL

# a prefix of several dataitems: those
$ cfgtool -d p
usage|
usage|     -d <dataitem>
usage|        powerstate             Set power state
usage|        password               Modify user password
usage|        privilege              Set user privilege
usage|        printscreen            Print current screen to bmc
usage|        passwordcomplexity     Set password complexity check enable state

# an empty dataitem is a prefix of them all
$ cfgtool -d ''
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

# a prefix of several dataitems of a target: those
$ cfgtool -t trap -d s
usage|
usage|     -d <dataitem>
usage|        state                  Set trap enable state
usage|        severity               Set trap send severity

# a dataitem of 100,000 characters is none
$ cfgtool -d {x*100000}
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

# the words behind -d are the command's: -t there chooses no target
$ cfgtool -d ipaddr -t eth0
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

# names are of one table: eth0 has no state
$ cfgtool -t eth0 -d state
refuse| Input parameter[-d] error
usage|     -d <dataitem>
usage|        ipaddr                 Set ip address
usage|        gateway                Set gateway
usage|        ipaddr6                Set ipv6 address
usage|        gateway6               Set ipv6 gateway
usage|        mode                   Set eth0 mode
usage|        sideband               Set sideband port
usage|        vlan                   Set sideband vlan
