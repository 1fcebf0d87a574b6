# a disabled dataitem is neither listed nor known
file /data/blacklist <<END
cfgtool -d sel
END
$ cfgtool -d sel
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

# the first row whose name occurs in the line goes: password, not passwordcomplexity; and what is typed is then neither
file /data/blacklist <<END
cfgtool -d passwordcomplexity
cfgtool -d privilege
END
$ cfgtool -d privilege
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
usage|        deluser                Delete user
usage|        ipmctime               Set ipmc system time
usage|        serialdir              Set front panel serial direction
usage|        printscreen            Print current screen to bmc
usage|        rollback               Perform a manual rollback
usage|        timezone               Set time zone
usage|        passwordcomplexity     Set password complexity check enable state
usage|        remotemanageid         set Remote Manage ID
usage|        httphost               Set httphost value, IP or Domain Name

# typed in full, a disabled password is a prefix of passwordcomplexity
file /data/blacklist <<END
cfgtool -d password
END
$ cfgtool -d password
usage| Usage: cfgtool -d passwordcomplexity -v <enable/disable>
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# a whole target
file /data/blacklist <<END
cfgtool -t maintenance
END
$ cfgtool -t maintenance -d x
refuse| input parameter[-t] error
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        sensor                 Operate with sensor
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user

# one dataitem of a target; trap is looked for before user
file /data/blacklist <<END
cfgtool -t trap -d user
END
$ cfgtool -t trap -d user
refuse| Input parameter[-d] error
usage|     -d <dataitem>
usage|        state                  Set trap enable state
usage|        severity               Set trap send severity
usage|        version                Set SNMP trap version
usage|        auth_priv_protocol     Set SNMP trap auth_priv_protocol
usage|        community              Set SNMP trap community
usage|        address                Set trap address
usage|        port                   Set trap port
usage|        mode                   Set trap mode

# maintenance dataitems cannot be disabled one by one, and a line without the name is passed over
file /data/blacklist <<END
cfgtool -t maintenance -d readeeprom
ipmctool -d shutdowntimeout
END
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# so zntool still runs
file /data/blacklist <<END
cfgtool -t maintenance -d zntool
END
$ cfgtool -t maintenance -d zntool x
usage| Usage: cfgtool -t maintenance -d zntool

# two blanks move the option out of its columns: the line is passed over
file /data/blacklist <<END
cfgtool  -d shutdowntimeout
END
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# the name counts wherever it stands, the option only at its columns
file /data/blacklist <<END
x       -d sel cfgtool
END
$ cfgtool -d sel
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

# the columns are judged within the line
file /data/blacklist <<END
cfgtool 
-d shutdowntimeout
END
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# behind a -d line a target line need not name the tool
file /data/blacklist <<END
cfgtool -d sel
xxxxxxx -t sensor
END
$ cfgtool -t sensor -d x
refuse| input parameter[-t] error
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

# an empty line in between uses that up
file /data/blacklist <<END
cfgtool -d sel

xxxxxxx -t sensor
END
$ cfgtool -t sensor -d test
usage|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
usage| value:  value      start test and set the current value
usage|         stop       stop test

# and so does the line feed of a line that ends in both
file /data/blacklist "cfgtool -d sel\r\nxxxxxxx -t sensor\r\n"
$ cfgtool -t sensor -d test
usage|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
usage| value:  value      start test and set the current value
usage|         stop       stop test

# carriage returns and line feeds end lines, and the last may have none
file /data/blacklist "cfgtool -d sel\rcfgtool -d reset\r\n\r\ncfgtool -d upgrade"
$ cfgtool -d sel
refuse| Input parameter[-d] error
usage|     -d <dataitem>
usage|        fanmode                Set fan mode,you can choose manual or auto
usage|        fanlevel               Set fan speed percent
usage|        download               Download SOL or Black box command
usage|        identify               Operate identify led
usage|        bioswriteprotect       Enable or disable bios protect
usage|        clearcmos              Clear CMOS
usage|        bootdevice             Set boot device
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Fru control
usage|        powerstate             Set power state
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

# a zero byte ends a line too
file /data/blacklist "cfgtool -d sel\x00junk\ncfgtool -d reset\n"
$ cfgtool -d sel
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
usage|        shutdowntimeout        Set graceful shutdown timeout value
usage|        frucontrol             Fru control
usage|        powerstate             Set power state
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

# a disabled sensor: "se" passes as service, but then the first target that begins so is taken
file /data/blacklist <<END
cfgtool -t sensor
END
$ cfgtool -t se -d test -v
usage|"Usage: cfgtool -t sensor -d test -v <sensorname> <value> \r\n"
usage| value:  value      start test and set the current value
usage|         stop       stop test

# and -T counts the disabled one: two targets, of which the enabled is listed
file /data/blacklist <<END
cfgtool -t sensor
END
$ cfgtool -t se -T x
usage|     -t <target>
usage|        service                Operate with service

# an empty file disables nothing
file /data/blacklist ""
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a pipe is not read
file /data/blacklist fifo
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a device is not read
file /data/blacklist link /dev/zero
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a folder is not read
file /data/blacklist folder
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a megabyte of zeros disables nothing
file /data/blacklist zeros 1048576
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a line of 100,000 characters
file /data/blacklist "cfgtool -d {x*100000}sel\n"
$ cfgtool -d sel
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

# of a file that has grown since it was measured, what was measured is read
result vos_get_file_length 10
file /data/blacklist "cfgtool -d shutdowntimeout"
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a length beyond all memory does not matter
result vos_get_file_length 2147483647
file /data/blacklist "cfgtool -d fanmode"
$ cfgtool -d fan
usage| Usage: cfgtool -d fanlevel -v <value>

# of a file that has shrunk, what is there
result vos_get_file_length 1000000
file /data/blacklist "cfgtool -t trap -d user\ncfgtool -t trap -d state"
$ cfgtool -t trap
usage|
usage|     -d <dataitem>
usage|        severity               Set trap send severity
usage|        version                Set SNMP trap version
usage|        auth_priv_protocol     Set SNMP trap auth_priv_protocol
usage|        community              Set SNMP trap community
usage|        address                Set trap address
usage|        port                   Set trap port
usage|        mode                   Set trap mode

# a file that cannot be measured is not read
result vos_get_file_length -1
file /data/blacklist "cfgtool -d shutdowntimeout"
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a disabled dataitem is no candidate: the prefix of two is one's
file /data/blacklist "cfgtool -d fanmode"
$ cfgtool -d fan
usage| Usage: cfgtool -d fanlevel -v <value>

# and a disabled target is none either
file /data/blacklist "cfgtool -t sensor"
$ cfgtool -t senso
$ cfgtool -t sensor
$ cfgtool -t sensor -h
refuse| input parameter[-t] error
usage|     -t <target>
usage|        fru0                   Operate with fru0
usage|        led                    Operate with led
usage|        eth0                   Set eth0 ip address
usage|        trap                   Operate SNMP trap
usage|        service                Operate with service
usage|        user                   Operate with user
usage|        maintenance            Operate with maintenance

# a top-level dataitem is disabled at the top level only, and one of a target there only
file /data/blacklist "cfgtool -d shutdowntimeout\ncfgtool -t trap -d port"
$ cfgtool -t fru0 -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a dataitem disabled in its target is not at the top level
file /data/blacklist "cfgtool -t fru0 -d shutdowntimeout"
$ cfgtool -d shutdowntimeout
usage| Usage: cfgtool -d shutdowntimeout -v <time>   time=0s or 10s<=time<=6540s

# a target whose dataitems are all disabled lists none
file /data/blacklist "cfgtool -t user -d unlock"
$ cfgtool -t user
$ cfgtool -t user -T x
usage|
usage|     -d <dataitem>

# and knows none
file /data/blacklist "cfgtool -t user -d unlock"
$ cfgtool -t user -d ''
$ cfgtool -t user -d unlock
refuse| Input parameter[-d] error
usage|     -d <dataitem>

# the file is read only
file /data/blacklist "cfgtool -d sel\r\ncfgtool -d reset\r\n"
$ cfgtool -d fanlevel
usage| Usage: cfgtool -d fanlevel -v <value>
