# a disabled dataitem is neither listed nor known
file /data/blacklist <<END
cfgtool -d sel
END
$ cfgtool -d sel
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

# the first row whose name occurs in the line goes: password, not passwordcomplexity; and what is typed is then neither
file /data/blacklist <<END
cfgtool -d passwordcomplexity
cfgtool -d privilege
END
$ cfgtool -d privilege
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
|        deluser                Delete user
|        ipmctime               Set ipmc system time
|        serialdir              Set front panel serial direction
|        printscreen            Print current screen to bmc
|        rollback               Perform a manual rollback
|        timezone               Set time zone
|        passwordcomplexity     Set password complexity check enable state
|        remotemanageid         set Remote Manage ID
|        httphost               Set httphost value, IP or Domain Name

# typed in full, a disabled password is a prefix of passwordcomplexity
file /data/blacklist <<END
cfgtool -d password
END
$ cfgtool -d password
| Usage: cfgtool -d passwordcomplexity -v <enable/disable>
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# a whole target
file /data/blacklist <<END
cfgtool -t maintenance
END
$ cfgtool -t maintenance -d x
| input parameter[-t] error
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        sensor                 Operate with sensor
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user

# one dataitem of a target; trap is looked for before user
file /data/blacklist <<END
cfgtool -t trap -d user
END
$ cfgtool -t trap -d user
| Input parameter[-d] error
|     -d <dataitem>
|        state                  Set trap enable state
|        severity               Set trap send severity
|        version                Set SNMP trap version
|        auth_priv_protocol     Set SNMP trap auth_priv_protocol
|        community              Set SNMP trap community
|        address                Set trap address
|        port                   Set trap port
|        mode                   Set trap mode

# maintenance dataitems cannot be disabled one by one, and a line without the name is passed over
file /data/blacklist <<END
cfgtool -t maintenance -d readeeprom
ipmctool -d shutdowntimeout
END
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# so zntool still runs
file /data/blacklist <<END
cfgtool -t maintenance -d zntool
END
$ cfgtool -t maintenance -d zntool x
| Usage: cfgtool -t maintenance -d zntool

# two blanks move the option out of its columns: the line is passed over
file /data/blacklist <<END
cfgtool  -d shutdowntimeout
END
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# the name counts wherever it stands, the option only at its columns
file /data/blacklist <<END
x       -d sel cfgtool
END
$ cfgtool -d sel
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

# the columns are judged within the line
file /data/blacklist <<END
cfgtool 
-d shutdowntimeout
END
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# behind a -d line a target line need not name the tool
file /data/blacklist <<END
cfgtool -d sel
xxxxxxx -t sensor
END
$ cfgtool -t sensor -d x
| input parameter[-t] error
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance

# an empty line in between uses that up
file /data/blacklist <<END
cfgtool -d sel

xxxxxxx -t sensor
END
$ cfgtool -t sensor -d test
|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
| value:  value      start test and set the current value
|         stop       stop test

# and so does the line feed of a line that ends in both
file /data/blacklist "cfgtool -d sel\r\nxxxxxxx -t sensor\r\n"
$ cfgtool -t sensor -d test
|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
| value:  value      start test and set the current value
|         stop       stop test

# carriage returns and line feeds end lines, and the last may have none
file /data/blacklist "cfgtool -d sel\rcfgtool -d reset\r\n\r\ncfgtool -d upgrade"
$ cfgtool -d sel
| Input parameter[-d] error
|     -d <dataitem>
|        fanmode                Set fan mode,you can choose manual or auto
|        fanlevel               Set fan speed percent
|        download               Download SOL or Black box command
|        identify               Operate identify led
|        bioswriteprotect       Enable or disable bios protect
|        clearcmos              Clear CMOS
|        bootdevice             Set boot device
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Fru control
|        powerstate             Set power state
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

# a zero byte ends a line too
file /data/blacklist "cfgtool -d sel\x00junk\ncfgtool -d reset\n"
$ cfgtool -d sel
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
|        shutdowntimeout        Set graceful shutdown timeout value
|        frucontrol             Fru control
|        powerstate             Set power state
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

# a disabled sensor: "se" passes as service, but then the first target that begins so is taken
file /data/blacklist <<END
cfgtool -t sensor
END
$ cfgtool -t se -d test -v
|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
| value:  value      start test and set the current value
|         stop       stop test

# and -T counts the disabled one: two targets, of which the enabled is listed
file /data/blacklist <<END
cfgtool -t sensor
END
$ cfgtool -t se -T x
|     -t <target>
|        service                Operate with service

# an empty file disables nothing
file /data/blacklist ""
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a pipe is not read
file /data/blacklist fifo
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a device is not read
file /data/blacklist link /dev/zero
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a folder is not read
file /data/blacklist folder
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a megabyte of zeros disables nothing
file /data/blacklist zeros 1048576
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a line of 100,000 characters
file /data/blacklist "cfgtool -d {x*100000}sel\n"
$ cfgtool -d sel
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

# of a file that has grown since it was measured, what was measured is read
result vos_get_file_length 10
file /data/blacklist "cfgtool -d shutdowntimeout"
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a length beyond all memory does not matter
result vos_get_file_length 2147483647
file /data/blacklist "cfgtool -d fanmode"
$ cfgtool -d fan
| Usage: cfgtool -d fanlevel -v <value>

# of a file that has shrunk, what is there
result vos_get_file_length 1000000
file /data/blacklist "cfgtool -t trap -d user\ncfgtool -t trap -d state"
$ cfgtool -t trap
|
|     -d <dataitem>
|        severity               Set trap send severity
|        version                Set SNMP trap version
|        auth_priv_protocol     Set SNMP trap auth_priv_protocol
|        community              Set SNMP trap community
|        address                Set trap address
|        port                   Set trap port
|        mode                   Set trap mode

# a file that cannot be measured is not read
result vos_get_file_length -1
file /data/blacklist "cfgtool -d shutdowntimeout"
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a disabled dataitem is no candidate: the prefix of two is one's
file /data/blacklist "cfgtool -d fanmode"
$ cfgtool -d fan
| Usage: cfgtool -d fanlevel -v <value>

# and a disabled target is none either
file /data/blacklist "cfgtool -t sensor"
$ cfgtool -t senso
$ cfgtool -t sensor
$ cfgtool -t sensor -h
| input parameter[-t] error
|     -t <target>
|        fru0                   Operate with fru0
|        led                    Operate with led
|        eth0                   Set eth0 ip address
|        trap                   Operate SNMP trap
|        service                Operate with service
|        user                   Operate with user
|        maintenance            Operate with maintenance

# a top-level dataitem is disabled at the top level only, and one of a target there only
file /data/blacklist "cfgtool -d shutdowntimeout\ncfgtool -t trap -d port"
$ cfgtool -t fru0 -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a dataitem disabled in its target is not at the top level
file /data/blacklist "cfgtool -t fru0 -d shutdowntimeout"
$ cfgtool -d shutdowntimeout
| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a target whose dataitems are all disabled lists none
file /data/blacklist "cfgtool -t user -d unlock"
$ cfgtool -t user
$ cfgtool -t user -T x
|
|     -d <dataitem>

# and knows none
file /data/blacklist "cfgtool -t user -d unlock"
$ cfgtool -t user -d ''
$ cfgtool -t user -d unlock
| Input parameter[-d] error
|     -d <dataitem>

# the file is read only
file /data/blacklist "cfgtool -d sel\r\ncfgtool -d reset\r\n"
$ cfgtool -d fanlevel
| Usage: cfgtool -d fanlevel -v <value>
