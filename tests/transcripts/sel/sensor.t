# Records: id, type, time stamp (not set), generator, revision, sensor type and number, direction and type, event data.
let FAN = 01 00 02 00 00 00 00 20 00 04  04 30 01 00 FF FF
let DOOR = 02 00 02 00 00 00 00 20 00 04  05 31 6F 00 FF FF
let BOOT = 03 00 02 00 00 00 00 20 00 04  12 32 6F 00 FF FF
let OTHER = 04 00 02 00 00 00 00 20 00 04  05 30 6F 00 FF FF          # the fan's number, another type
let NONE = 05 00 02 00 00 00 00 20 00 04  04 77 01 00 FF FF

# Bodies of sensor data records: owner, LUN, number, entity, and so on; the sensor type before the event type.
let ZEROS = 00 00 00 00 00 00 00 00 00 00 00
let FULL = 20 00 30 1D 01 7F 68  04 01  ZEROS ZEROS ZEROS  C4 46 41 4E 31                        # "FAN1"
let COMPACT = 20 00 31 07 01 7F 40  05 6F  ZEROS 00 00 00 00 00 00  C4 44 4F 4F 52               # "DOOR"
let EVENT_ONLY = 20 00 32 22 01  12 6F  00 00 00 00  C4 42 4F 4F 54                              # "BOOT"
let LOCATOR = 20 00 30 00 00 04 00 04 00 00  C4 46 41 4E 30                                      # an FRU's

steps bring the live log
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00

steps open the repository
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < 00 51 03 00 00 10
> 0A 22 < 00 34 12

steps pack
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
call tar_gzip_pack "/tmp/sel_temp/" "*" "/tmp/sel.tar"

steps end
call vos_rm_filepath "/tmp/dev/"
call vos_rm_filepath "/tmp/sel_temp/"
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool"
|
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
done|""

# full, compact and event-only records name their sensors; each is read once, and only as far as it takes
file /data/share/sel/sel.bin hex FAN BOOT DOOR FAN BOOT DOOR FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 05 00 FULL
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 02 1F
> 0A 23  34 12 05 00 05 1F < 00 06 00 COMPACT
> 0A 23  34 12 06 00 00 05 < 00 07 00 06 00 51 03 10
> 0A 23  34 12 06 00 05 10 < 00 07 00 EVENT_ONLY
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
7,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
6,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (DOOR),,00000000,Asserted
5,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 12h (BOOT),,00000000,Asserted
4,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (DOOR),,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 12h (BOOT),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
END
do end

# records read on the way to another one are not read again
file /data/share/sel/sel.bin hex FAN DOOR
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 05 00 FULL
> 0A 23  34 12 05 00 00 05 < 00 FF FF 05 00 51 02 1F
> 0A 23  34 12 05 00 05 1F < 00 FF FF COMPACT
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (DOOR),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
END
do end

# number and type must both be the record's; without such a sensor the name of the type stands alone
# and nothing is asked a second time
file /data/share/sel/sel.bin hex NONE OTHER FAN NONE OTHER
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 FF FF FULL
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
5,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
4,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# device locators, entity associations and records of other types are no sensors, whatever their bytes
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 11 0F
> 0A 23  34 12 00 00 05 0F < 00 05 00 LOCATOR
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 C0 2F
> 0A 23  34 12 05 00 05 2F < 00 06 00 FULL
> 0A 23  34 12 06 00 00 05 < 00 07 00 06 00 51 08 0F
> 0A 23  34 12 06 00 05 0F < 00 07 00 LOCATOR
> 0A 23  34 12 07 00 00 05 < 00 08 00 07 00 51 10 0F
> 0A 23  34 12 07 00 05 0F < 00 08 00 LOCATOR
> 0A 23  34 12 08 00 00 05 < 00 FF FF 08 00 51 12 0F
> 0A 23  34 12 08 00 05 0F < 00 FF FF LOCATOR
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# the two sensors of the management's own health stand with their numbers, in two digits
let HEALTH = 20 00 05 06 01 7F 68  28 6F  ZEROS ZEROS ZEROS  CD 4D 6E 67 6D 6E 74 20 48 65 61 6C 74 68
let OEM_HEALTH = 20 00 FE 06 01 7F 68  28 6F  ZEROS ZEROS ZEROS  CD 4F 45 4D 5F 4D 6E 67 48 65 61 6C 74 68
let LIKE_HEALTH = 20 00 06 06 01 7F 68  28 6F  ZEROS ZEROS ZEROS  CC 4D 6E 67 6D 6E 74 20 48 65 61 6C 74
file /data/share/sel/sel.bin hex 00 00 02 00*7 28 06 6F 00*3 00 00 02 00*7 28 FE 6F 00*3 00 00 02 00*7 28 05 6F 00*3
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 38
> 0A 23  34 12 00 00 05 38 < 00 05 00 HEALTH
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 01 38
> 0A 23  34 12 05 00 05 38 < 00 06 00 OEM_HEALTH
> 0A 23  34 12 06 00 00 05 < 00 07 00 06 00 51 01 37
> 0A 23  34 12 06 00 05 37 < 00 07 00 LIKE_HEALTH
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Mngmnt Health #05,,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,OEM_MngHealth #fe,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 28h (Mngmnt Healt),,00000000,Asserted
END
do end

# an empty ID string stands in its brackets, that of another coding byte for byte
let NAMELESS = 20 00 30 1D 01 7F 68  04 01  ZEROS ZEROS ZEROS  C0
let PACKED = 20 00 31 07 01 7F 40  05 6F  ZEROS 00 00 00 00 00 00  82 41 42
file /data/share/sel/sel.bin hex DOOR FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2B
> 0A 23  34 12 00 00 05 2B < 00 05 00 NAMELESS
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 02 1D
> 0A 23  34 12 05 00 05 1D < 00 06 00 PACKED
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (AB),,00000000,Asserted
END
do end

# one sensor number under two types, in turn: each finds its own, and nothing is read twice
let SECOND = 20 00 30 07 01 7F 40  05 6F  ZEROS 00 00 00 00 00 00  C3 4C 49 44                   # "LID", the fan's number
file /data/share/sel/sel.bin hex OTHER FAN OTHER FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 05 00 FULL
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 02 1E
> 0A 23  34 12 05 00 05 1E < 00 06 00 SECOND
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
4,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (LID),,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (LID),,00000000,Asserted
END
do end

# an ID string of 31 characters and one that its record breaks off
let LONG = 20 00 30 1D 01 7F 68  04 01  ZEROS ZEROS ZEROS  DF 30 31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30
let BROKEN = 20 00 31 07 01 7F 40  05 6F  ZEROS 00 00 00 00 00 00  DF 44 4F
file /data/share/sel/sel.bin hex DOOR FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 4A
> 0A 23  34 12 00 00 05 4A < 00 05 00 LONG
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 02 1D
> 0A 23  34 12 05 00 05 1D < 00 06 00 BROKEN
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (0123456789012345678901234567890),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (DO),,00000000,Asserted
END
do end

# a full record that ends before its sensor type is none of that type
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 07
> 0A 23  34 12 00 00 05 07 < 00 05 00 FULL[0:7]
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 01 2F
> 0A 23  34 12 05 00 05 2F < 00 06 00 FULL
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
END
do end

# record types: below C0h a sensor, from C0h to DFh the manufacturer, from E0h on nothing
file /data/share/sel/sel.bin hex 00 00 00 00*7 04 77 00*4 00 00 BF 00*7 05 77 00*4 00 00 C0 00*4 01 02 0A 00*6 00 00 DF 00*4 FF 00 9B 00*6 00 00 E0 00*7 04 77 00*4 00 00 FF 00*13
$ cfgtool -t maintenance -d zntool
do bring the live log
> 06 01 < C1
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
6,Ok,,,,,00000000,Asserted
5,Ok,,,,,00000000,Asserted
4,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,ff009b,,00000000,Asserted
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,01020a,,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# a log of OEM records alone asks for no sensor
file /data/share/sel/sel.bin hex 00 00 C0 00*13 00 00 FF 00*13
$ cfgtool -t maintenance -d zntool
do bring the live log
do pack
packed sel.csv 640 3 lines
do end

# the sensors' Device SDRs, where the controller has no repository
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20 01 < 00 01 01
> 04 22 < 00 78 56
> 04 21  78 56 00 00 00 05 < 00 FF FF 00 00 51 01 2F
> 04 21  78 56 00 00 05 2F < 00 FF FF FULL
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
END
do end

# no word about the Device SDRs: nothing is said of it, and it is asked for once
file /data/share/sel/sel.bin hex FAN DOOR
$ cfgtool -t maintenance -d zntool
do bring the live log
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20 01 < C1
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# an empty word about the Device SDRs: the same
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do bring the live log
> 06 01 < 00 20 81 01 00 02 01 57 01 00 00 00
> 04 20 01 < 00 cut 7
do pack
packed sel.csv 640 2 lines
do end

# no repository: nothing is said of it, and it is asked for once
file /data/share/sel/sel.bin hex FAN DOOR
$ cfgtool -t maintenance -d zntool
do bring the live log
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < C1
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# no reservation: the same
file /data/share/sel/sel.bin hex FAN DOOR
$ cfgtool -t maintenance -d zntool
do bring the live log
> 06 01 < 00 20 01 01 00 02 02 57 01 00 00 00
> 0A 20 < 00 51 03 00 00 10
> 0A 22 < D5
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# a repository that stops answering is not asked again; what it told before stands
file /data/share/sel/sel.bin hex NONE FAN DOOR
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 05 00 FULL
> 0A 23  34 12 05 00 00 05 < silent
|"Select OutTime \r\n"
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# a repository that leads back to a record already read has come to its end
file /data/share/sel/sel.bin hex NONE
$ cfgtool -t maintenance -d zntool
do bring the live log
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 05 00 FULL
> 0A 23  34 12 05 00 00 05 < 00 00 00 05 00 51 02 1F
> 0A 23  34 12 05 00 05 1F < 00 00 00 COMPACT
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
do end

# a second log finds the sensors of the first one without a request
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex FAN DOOR
file /data/share/sel/sel.bin hex DOOR
$ cfgtool -t maintenance -d zntool
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/a_sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 05 00 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 05 00 FULL
> 0A 23  34 12 05 00 00 05 < 00 06 00 05 00 51 02 1F
> 0A 23  34 12 05 00 05 1F < 00 06 00 COMPACT
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
call vos_get_file_length "/tmp/sel_temp/a_sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/a_sel.bin"
call tar_gzip_pack "/tmp/sel_temp/" "*" "/tmp/sel.tar"
packed a_sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (DOOR),,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
END
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h (DOOR),,00000000,Asserted
END
do end

# a second log does not ask again for what the first one asked in vain
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex NONE DOOR FAN
file /data/share/sel/sel.bin hex NONE
$ cfgtool -t maintenance -d zntool
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/a_sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00
do open the repository
> 0A 23  34 12 00 00 00 05 < 00 FF FF 00 00 51 01 2F
> 0A 23  34 12 00 00 05 2F < 00 FF FF FULL
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
call vos_get_file_length "/tmp/sel_temp/a_sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/a_sel.bin"
call tar_gzip_pack "/tmp/sel_temp/" "*" "/tmp/sel.tar"
packed a_sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h (FAN1),,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 05h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
END
packed sel.csv 640 2 lines
do end
