# no file: told so, and there is no minimum fan level
board none
$ cfgtool -d fanlevel -v 19
| open cli.conf file fails.
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# the minimum fan level of the file
board "[FRU_PROPERTITY]\nFru_Num=1\n[FAN_PROPERTITY]\nFAN_MinLevel=20\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 20 percent.

# a fan section without a level: 30
board "[FAN_PROPERTITY]\nOther=1\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 30 percent.

# an empty level: 30
board "[FAN_PROPERTITY]\nFAN_MinLevel=\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 30 percent.

# no fan section: no minimum
board "[FRU_PROPERTITY]\nFru_Num=1\n"
$ cfgtool -d fanlevel -v 19
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# sections are spelled so: another spelling is not understood
board "[FAN_PROPERTY]\nFAN_MinLevel=20\n"
$ cfgtool -d fanlevel -v 19
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# sections are searched in order: a fan section in front of the FRU section is not found
board "[FAN_PROPERTITY]\nFAN_MinLevel=20\n[FRU_PROPERTITY]\nFru_Num=1\n"
$ cfgtool -d fanlevel -v 19
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# without a FRU section the fan section is searched from the start
board "[FAN_PROPERTITY]\nFAN_MinLevel=20\n[MAC_PROPERTITY]\nMAC_Num=2\nMAC_Name=NIC\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 20 percent.

# a level is the number the value begins with
board "[FAN_PROPERTITY]\nFAN_MinLevel=25percent\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 25 percent.

# a level that is no number counts as 0
board "[FAN_PROPERTITY]\nFAN_MinLevel=many\n"
$ cfgtool -d fanlevel -v 19
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# a level beyond 32 bits is the largest there is
board "[FAN_PROPERTITY]\nFAN_MinLevel=99999999999999999999\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 2147483647 percent.

# the number of MAC addresses of the file
board "[MAC_PROPERTITY]\nMAC_Num=2\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port2> \r\n"

# what the board reports replaces it
result get_mac_num 4
board "[MAC_PROPERTITY]\nMAC_Num=2\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port4> \r\n"

# a board that reports less than one is not heard
result get_mac_num -1
board "[MAC_PROPERTITY]\nMAC_Num=2\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port2> \r\n"

# a MAC section without a number: told so, and 10
board "[MAC_PROPERTITY]\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband
|"\r\nGet MAC_Num fail \r\n"
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port10> \r\n"

# told so also where the board knows
result get_mac_num 4
board "[MAC_PROPERTITY]\nMAC_Num=\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband
|"\r\nGet MAC_Num fail \r\n"
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port4> \r\n"

# a MAC section without a name: told so
board "[MAC_PROPERTITY]\nMAC_Num=2\n"
$ cfgtool -t eth0 -d sideband
|
| Get MAC_Name fail 2
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port2> \r\n"

# without a MAC section the board is not asked
result get_mac_num 4
board "[FRU_PROPERTITY]\nFru_Num=1\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port0> \r\n"

# start-up and tear-down, call by call
calls shown
$ cfgtool -d fanmode
call cpld_init
call fpga_Init
call ipc_no_listen_init 0
call CfgFileOpenReadOnly "/data/cli.conf"
call KeySearch 0 "[FRU_PROPERTITY]"
call KeySearch 1 "Fru_Num"
call KeySearch 1 "[FAN_PROPERTITY]"
call KeySearch 28 "FAN_MinLevel"
call KeySearch 28 "[MAC_PROPERTITY]"
call KeySearch 61 "MAC_Num"
call get_mac_num
call KeySearch 61 "MAC_Name"
call CfgFileClose
call vos_get_file_length "/data/blacklist"
usage| Usage: cfgtool -d fanmode -v <mode> [timeout]
usage| Modes are:
usage|     0    auto regulate fan speed, without parameter [timeout]
usage|     1    manual regulate fan speed, with parameter [timeout], timeout range <0-100000000>
call ipc_exit
call cpld_clean
call fpga_clean

# a message library that does not start is told, and the run goes on
result cpld_init -1
result fpga_Init -1
result ipc_no_listen_init -1
$ cfgtool -d fanlevel
| ipmc_init: ipc_no_listen_init CLI_MODULE_PORT failed!
usage| Usage: cfgtool -d fanlevel -v <value>

# lines that end in carriage return and line feed
board "[FRU_PROPERTITY]\r\nFru_Num=1\r\n[FAN_PROPERTITY]\r\nFAN_MinLevel=20\r\n"
$ cfgtool -d fanlevel -v 19
refuse| Fanlevel must not be lower than 20 percent.

# an empty file: no minimum, and nothing missing is told
board ""
$ cfgtool -d fanlevel -v 19
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# a negative minimum is none
board "[FAN_PROPERTITY]\nFAN_MinLevel=-99999999999999999999\n"
$ cfgtool -d fanlevel -v 19
> 2C 15  00 00 13       < 00 00
done| Set fan level successfully.
> 30 91  D9 7E 00 02    < 00 D9 7E 00 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(19) success,EvtCode:0x20E004F0"

# a key of another section does not count
board "[FAN_PROPERTITY]\n[MAC_PROPERTITY]\nFAN_MinLevel=20\nMAC_Num=2\nMAC_Name=NIC\n"
$ cfgtool -d fanlevel -v 29
refuse| Fanlevel must not be lower than 30 percent.

# a MAC section in front of the fan section is not found, and nothing of it is told
board "[MAC_PROPERTITY]\n[FAN_PROPERTITY]\nFAN_MinLevel=20\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port0> \r\n"

# without a fan section the MAC section is searched from the start, be it in front of the FRU section
board "[MAC_PROPERTITY]\nMAC_Num=3\nMAC_Name=NIC\n[FRU_PROPERTITY]\nFru_Num=1\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port3> \r\n"

# an empty MAC section: both are told, the number first, before the command says anything
board "[MAC_PROPERTITY]\n"
$ cfgtool -t eth0 -d sideband
|"\r\nGet MAC_Num fail \r\n"
|"\r\nGet MAC_Name fail 2\r\n"
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port10> \r\n"

# empty values of the MAC section are told as missing ones are
board "[MAC_PROPERTITY]\nMAC_Num=\nMAC_Name=\n"
$ cfgtool -t eth0 -d sideband
|"\r\nGet MAC_Num fail \r\n"
|"\r\nGet MAC_Name fail 2\r\n"
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port10> \r\n"

# a number of MAC addresses beyond 32 bits is the largest there is
board "[MAC_PROPERTITY]\nMAC_Num=99999999999999999999\nMAC_Name={N*100000}\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port2147483647> \r\n"

# a board that does not know its number of MAC addresses is not heard
result get_mac_num 0
board "[MAC_PROPERTITY]\nMAC_Num=2\nMAC_Name=NIC\n"
$ cfgtool -t eth0 -d sideband
usage|"Usage: cfgtool -t eth0 -d sideband -v <port1-port2> \r\n"
