# every top-level dataitem is found and asks first who is calling
uid 500
$ cfgtool -d fanmode
$ cfgtool -d fanlevel
$ cfgtool -d download
$ cfgtool -d identify
$ cfgtool -d bioswriteprotect
$ cfgtool -d upgrade
$ cfgtool -d clearcmos
$ cfgtool -d bootdevice
$ cfgtool -d reset
$ cfgtool -d shutdowntimeout
$ cfgtool -d sel
$ cfgtool -d ipmctime
$ cfgtool -d serialdir
$ cfgtool -d printscreen
$ cfgtool -d timezone
$ cfgtool -d remotemanageid
$ cfgtool -d httphost
refuse| Insufficient privilege level

# and every dataitem of fru0
uid 500
$ cfgtool -t fru0 -d shutdowntimeout
$ cfgtool -t fru0 -d sel
refuse| Insufficient privilege level

# and every dataitem of led
uid 500
$ cfgtool -t led -d ledstate
refuse| Insufficient privilege level

# and every dataitem of eth0
uid 500
$ cfgtool -t eth0 -d ipaddr
$ cfgtool -t eth0 -d gateway
$ cfgtool -t eth0 -d ipaddr6
$ cfgtool -t eth0 -d gateway6
$ cfgtool -t eth0 -d mode
$ cfgtool -t eth0 -d sideband
$ cfgtool -t eth0 -d vlan
refuse| Insufficient privilege level

# and every dataitem of sensor
uid 500
$ cfgtool -t sensor -d negativehysteresis
$ cfgtool -t sensor -d positivehysteresis
$ cfgtool -t sensor -d lowernonrecoverable
$ cfgtool -t sensor -d lowercritical
$ cfgtool -t sensor -d lowernoncritical
$ cfgtool -t sensor -d uppernonrecoverable
$ cfgtool -t sensor -d uppercritical
$ cfgtool -t sensor -d uppernoncritical
$ cfgtool -t sensor -d test
refuse| Insufficient privilege level

# and every dataitem of trap
uid 500
$ cfgtool -t trap -d state
$ cfgtool -t trap -d severity
$ cfgtool -t trap -d version
$ cfgtool -t trap -d user
$ cfgtool -t trap -d auth_priv_protocol
$ cfgtool -t trap -d community
$ cfgtool -t trap -d address
$ cfgtool -t trap -d port
$ cfgtool -t trap -d mode
refuse| Insufficient privilege level

# and every dataitem of maintenance
uid 500
$ cfgtool -t maintenance -d readeeprom
$ cfgtool -t maintenance -d downloadbios
$ cfgtool -t maintenance -d upgradebios
$ cfgtool -t maintenance -d zntool
$ cfgtool -t maintenance -d biosprint
refuse| Insufficient privilege level

# powerstate does, and records the refusal
uid 500
$ cfgtool -d powerstate
$ cfgtool -t fru0 -d powerstate
refuse| Insufficient privilege level
log 2 Host "Host power control fail,EvtCode:0x20100011"

# frucontrol does, and records the refusal
uid 500
$ cfgtool -d frucontrol
$ cfgtool -t fru0 -d frucontrol
refuse| Insufficient privilege level
log 2 Host "Host power control fail,EvtCode:0x20100011"

# rollback does, and records the refusal
uid 500
$ cfgtool -d rollback
refuse| Insufficient privilege level
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# adduser does, and records the refusal
uid 500
$ cfgtool -d adduser
refuse| Insufficient privilege level
log 1 User "Add user fail,EvtCode:0x11100561"

# deluser does, and records the refusal
uid 500
$ cfgtool -d deluser
refuse| Insufficient privilege level
log 1 User "Delete user fail,EvtCode:0x111005A1"

# passwordcomplexity does, and records the refusal
uid 500
$ cfgtool -d passwordcomplexity
refuse| Insufficient privilege level
log 1 User "Enable/Disable local user password complexity check fail, EvtCode:0x11100BD1"

# unlock does, and records the refusal
uid 500
$ cfgtool -t user -d unlock
refuse| Insufficient privilege level
log 1 User "Set user unlock status fail,EvtCode:0x11100CC1"

# webrestart does, and records the refusal
uid 500
$ cfgtool -t maintenance -d webrestart
refuse| Insufficient privilege level
log 2 Zentro "Restart web service fail, EvtCode:0x202014E1"

# service state does, and records the refusal
uid 500
$ cfgtool -t service -d state
refuse| Insufficient privilege level
log 2 Zentro "Enable/Disable service fail,EvtCode:0x202001A1"

# service port looks at its words first
uid 500
$ cfgtool -t service -d port
usage|"Usage: \r\n"
usage|        cfgtool -t service -d port -v <webssl> <portvalue(1~65535)>
log 2 Zentro "Set Web Server HTTPS service port fail, EvtCode:0x202001B1"

# password looks at its words first
uid 500
$ cfgtool -d password
usage| cfgtool -d password -v <username>
log 1 User "Modify user password fail,EvtCode:0x11100581"

# privilege looks at its words first
uid 500
$ cfgtool -d privilege
usage| cfgtool -d privilege -v <username> <privilege>
usage| Privileges are:
usage|     15       No Access
usage|     2        User
usage|     3        Operator
usage|     4        Administrator
log 1 User "Modify user privilege fail,EvtCode:0x11100591"
