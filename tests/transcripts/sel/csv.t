# Records: id, type, time stamp, generator, revision, sensor type and number, direction and event type, event data.
let FAN = 05 00 02  00 8E 38 66  20 00 04  04 30 01  02 FF FF         # 2024-05-06 08:00:00 UTC
let NEXT = 06 00 02  01 8E 38 66  20 00 04  04 30 81  02 FF FF        # a second later, deasserted
let PRE_INIT = 01 00 02  FF FF FF 1F  20 00 04  04 30 01  02 FF FF    # the last second before the clock is set
let INIT = 02 00 02  00 00 00 20  20 00 04  04 30 01  02 FF FF        # the first one after it
let OEM = 03 00 C0  00 8E 38 66  0A BC DE  04 30 01  02 FF FF
let UNTIMED = 04 00 E0  00 8E 38 66  0A BC DE  04 30 01  02 FF FF

steps bring the live log
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"
call vos_get_file_length "/tmp/sel_temp/sel.bin"

steps no sensor records
> 06 01 < C1

steps ask for the offset
> 0A 5C < 00 00 00
do no sensor records

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

# two records: the newest first, with the highest ID, whatever IDs the records themselves bear
env TZ=UTC
event 2 20120001 "Fan is back"
event 1 20120002 "Fan is slow"
file /data/share/sel/sel.bin hex FAN NEXT
$ cfgtool -t maintenance -d zntool
do bring the live log
do ask for the offset
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Major,2024-05-06  08:00:01,2024-05-06  08:00:01,Type 04h,Fan is back,20120001,Deasserted
1,Minor,2024-05-06  08:00:00,2024-05-06  08:00:00,Type 04h,Fan is slow,20120002,Asserted
END
do end

# each record is looked up once, as it stands in the file
events shown
env TZ=UTC
file /data/share/sel/sel.bin hex FAN NEXT
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
call event_parse 060002018E386620000404308102FFFF
do no sensor records
call get_sensor_type_name 4
call event_get_code 060002018E386620000404308102FFFF
call event_parse 050002008E386620000404300102FFFF
call get_sensor_type_name 4
call event_get_code 050002008E386620000404300102FFFF
do pack
packed sel.csv 640 3 lines
do end

# 33 bytes are two records; the byte behind them is left out
env TZ=UTC
file /data/share/sel/sel.bin hex FAN NEXT 07
$ cfgtool -t maintenance -d zntool
do bring the live log
do ask for the offset
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,2024-05-06  08:00:01,2024-05-06  08:00:01,Type 04h,,00000000,Deasserted
1,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,Type 04h,,00000000,Asserted
END
do end

# 15 bytes are no record: the first line alone, and no sensor is asked for
file /data/share/sel/sel.bin hex 05 00 02 00 8E 38 66 20 00 04 04 30 01 02 FF
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
END
do end

# an empty log: the first line alone
file /data/share/sel/sel.bin ""
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
END
do end

# severities: four words, other numbers below 255 in hexadecimal, "unknown" from there on
env TZ=UTC
event 0 0
event 1 0
event 2 0
event 3 0
event 4 0
event 10 0
event 254 0
event 255 0
event 256 0
event 4294967295 0
file /data/share/sel/sel.bin hex UNTIMED*10
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
10,Ok,,,,,00000000,Asserted
9,Minor,,,,,00000000,Asserted
8,Major,,,,,00000000,Asserted
7,Critical,,,,,00000000,Asserted
6,Unknown (0x4),,,,,00000000,Asserted
5,Unknown (0xa),,,,,00000000,Asserted
4,Unknown (0xfe),,,,,00000000,Asserted
3,unknown,,,,,00000000,Asserted
2,unknown,,,,,00000000,Asserted
1,unknown,,,,,00000000,Asserted
END
do end

# descriptions: full stops for commas, nothing for none; the rest stands as it is
event 0 1 ","
event 0 2 ",a,,b,"
event 0 3 "a;b \"c\" 100%s"
event 0 4
event 0 5 ""
event 0 6 "{long, *100}"
file /data/share/sel/sel.bin hex UNTIMED*6
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n6,Ok,,,,.,00000001,Asserted\r\n5,Ok,,,,.a..b.,00000002,Asserted\r\n4,Ok,,,,a;b \"c\" 100%s,00000003,Asserted\r\n3,Ok,,,,,00000004,Asserted\r\n2,Ok,,,,,00000005,Asserted\r\n1,Ok,,,,{long. *100},00000006,Asserted\r\n"
do end

# event codes: eight digits, capitals
event 0 0
event 0 1
event 0 ABCDEF
event 0 FFFFFFFF
file /data/share/sel/sel.bin hex UNTIMED*4
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
4,Ok,,,,,00000000,Asserted
3,Ok,,,,,00000001,Asserted
2,Ok,,,,,00ABCDEF,Asserted
1,Ok,,,,,FFFFFFFF,Asserted
END
do end

# status: bit 7 alone tells, in records of every kind
file /data/share/sel/sel.bin hex 00 00 E0 00*9 7F 00*3 00 00 FF 00*9 80 00*3 00 00 DF 00*9 80 00*3
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,000000,,00000000,Deasserted
2,Ok,,,,,00000000,Deasserted
1,Ok,,,,,00000000,Asserted
END
do end

# times: up to 1FFFFFFFh the clock was not set, in both columns, however the offset would move it
env TZ=UTC
file /data/share/sel/sel.bin hex 00 00 02 00*13 PRE_INIT INIT
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 C4 FF
do no sensor records
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,1987-01-05  18:48:32,1987-01-05  17:48:32,Type 04h,,00000000,Asserted
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 04h,,00000000,Asserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,Type 00h,,00000000,Asserted
END
do end

# times: the last second there is, and the farthest offset beyond it
env TZ=UTC
file /data/share/sel/sel.bin hex 00 00 02 FF*4 00*9
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 FF 7F
do no sensor records
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2106-02-07  06:28:15,2106-03-02  00:35:15,Type 00h,,00000000,Asserted
END
do end

# times: those of records from C0h to DFh are shown, from E0h on there are none
env TZ=UTC
file /data/share/sel/sel.bin hex UNTIMED 00 00 FF 00 8E 38 66 00*9 OEM 00 00 DF 00 8E 38 66 0A BC DE 00*6
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 3C 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
4,Ok,2024-05-06  08:00:00,2024-05-06  09:00:00,0abcde,,00000000,Asserted
3,Ok,2024-05-06  08:00:00,2024-05-06  09:00:00,0abcde,,00000000,Asserted
2,Ok,,,,,00000000,Asserted
1,Ok,,,,,00000000,Asserted
END
do end

steps one record
env TZ=UTC
file /data/share/sel/sel.bin hex FAN

# offset: east, eight hours
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 E0 01
do no sensor records
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  16:00:00,Type 04h,,00000000,Asserted
END
do end

# offset: as far west as two bytes go
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 80
do no sensor records
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-04-13  13:52:00,Type 04h,,00000000,Asserted
END
do end

# offset: bytes behind the first two do not matter
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 C4 FF 12 34
do no sensor records
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  07:00:00,Type 04h,,00000000,Asserted
END
do end

# offset: a missing byte is 0
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 3C cut 8
do no sensor records
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  09:00:00,Type 04h,,00000000,Asserted
END
do end

steps without an offset
do no sensor records
do pack

# offset: the request is refused, there is none
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < C1 E0 01
do without an offset
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,Type 04h,,00000000,Asserted
END
do end

# offset: nobody answers, there is none
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < silent
|"Select OutTime \r\n"
do without an offset
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,Type 04h,,00000000,Asserted
END
do end

# offset: it cannot be asked for, there is none
do one record
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < unsent
do without an offset
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,Type 04h,,00000000,Asserted
END
do end

# time zone: both columns go by the system's local time; the night the clocks go forward has no second hour
env TZ=CET-1CEST,M3.5.0,M10.5.0/3
file /data/share/sel/sel.bin hex 00 00 C0 8F B5 08 66 00*9 00 00 C0 90 B5 08 66 00*9
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 3C 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,2024-03-31  03:00:00,2024-03-31  04:00:00,000000,,00000000,Asserted
1,Ok,2024-03-31  01:59:59,2024-03-31  03:59:59,000000,,00000000,Asserted
END
do end

# time zone: midnight there, new year's eve
env TZ=XST3:30
file /data/share/sel/sel.bin hex 00 00 C0 B7 B6 74 67 00*9 00 00 C0 B8 B6 74 67 00*9
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,2025-01-01  00:00:00,2025-01-01  00:00:00,000000,,00000000,Asserted
1,Ok,2024-12-31  23:59:59,2024-12-31  23:59:59,000000,,00000000,Asserted
END
do end

# time zone: one that counts leap seconds shows second 60, and the next second comes a second later
env TZ=right/UTC
file /data/share/sel/sel.bin hex 00 00 C0 99 46 68 58 00*9 00 00 C0 9A 46 68 58 00*9 00 00 C0 9B 46 68 58 00*9
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 3C 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,2017-01-01  00:00:00,2017-01-01  01:00:00,000000,,00000000,Asserted
2,Ok,2016-12-31  23:59:60,2017-01-01  00:59:59,000000,,00000000,Asserted
1,Ok,2016-12-31  23:59:59,2017-01-01  00:59:58,000000,,00000000,Asserted
END
do end

# time zone: a leap second in the middle of the day there
env TZ=right/Asia/Tokyo
file /data/share/sel/sel.bin hex 00 00 C0 99 46 68 58 00*9 00 00 C0 9A 46 68 58 00*9 00 00 C0 9B 46 68 58 00*9
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
3,Ok,2017-01-01  09:00:00,2017-01-01  09:00:00,000000,,00000000,Asserted
2,Ok,2017-01-01  08:59:60,2017-01-01  08:59:60,000000,,00000000,Asserted
1,Ok,2017-01-01  08:59:59,2017-01-01  08:59:59,000000,,00000000,Asserted
END
do end

# time zone: clocks that go forward at 2 in the morning and back at noon of the same day
env TZ=AAA0BBB,J100/2,J100/12
file /data/share/sel/sel.bin hex 00 00 C0 9F F2 15 66 00*9 00 00 C0 A0 F2 15 66 00*9 00 00 C0 2F 71 16 66 00*9 00 00 C0 30 71 16 66 00*9
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
4,Ok,2024-04-10  11:00:00,2024-04-10  11:00:00,000000,,00000000,Asserted
3,Ok,2024-04-10  11:59:59,2024-04-10  11:59:59,000000,,00000000,Asserted
2,Ok,2024-04-10  03:00:00,2024-04-10  03:00:00,000000,,00000000,Asserted
1,Ok,2024-04-10  01:59:59,2024-04-10  01:59:59,000000,,00000000,Asserted
END
do end

steps long log
do bring the live log
> 0A 5C < 00 00 00

# pauses: 99 records, none
file /data/share/sel/sel.bin hex OEM*99
$ cfgtool -t maintenance -d zntool
do long log
do pack
packed sel.csv 640 100 lines
do end

# pauses: 20 ms after the hundredth record, even when it is the last
file /data/share/sel/sel.bin hex OEM*100
$ cfgtool -t maintenance -d zntool
do long log
sleep 20000
do pack
packed sel.csv 640 101 lines
do end

# pauses: a hundred records more, one pause more
file /data/share/sel/sel.bin hex OEM*299
$ cfgtool -t maintenance -d zntool
do long log
sleep 40000
do pack
packed sel.csv 640 300 lines
do end

steps a record is looked up
call event_parse 0300C0008E38660ABCDE04300102FFFF
call event_get_code 0300C0008E38660ABCDE04300102FFFF

# pauses: each comes right behind its hundredth record
events shown
file /data/share/sel/sel.bin hex OEM*201
$ cfgtool -t maintenance -d zntool
do long log
do a record is looked up for 1..100
sleep 20000
do a record is looked up for 1..100
sleep 20000
do a record is looked up
do pack
packed sel.csv 640 202 lines
do end

# pauses: 4097 records, more than are read at a time, and a table of more than 64 KiB: 40 pauses, every record once
env TZ=UTC
file /data/share/sel/sel.bin hex FAN*4097
$ cfgtool -t maintenance -d zntool
do bring the live log
do ask for the offset
sleep 800000
do pack
packed sel.csv 640 4098 lines
do end

steps header alone
do pack
packed sel.csv 640 "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n"

# failures: the log cannot be opened; there is no table
fails open /tmp/sel_temp/sel.bin
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do bring the live log
fail| sel_bin2txt: fopen /tmp/sel_temp/sel.bin failed
do pack
do end

# failures: the table cannot be opened; the controller is asked nothing
fails open /tmp/sel_temp/sel.csv
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do bring the live log
fail| sel_bin2txt: fopen /tmp/sel_temp/sel.csv failed
do pack
do end

# failures: no position of the log can be found; the text names the table
fails lseek /tmp/sel_temp/sel.bin
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
fail| sel_bin2txt: fseek /tmp/sel_temp/sel.csv failed
do header alone
do end

# failures: the log has become shorter than it was said to be; what is left of its last record does not count
result vos_get_file_length -1 48
file /data/share/sel/sel.bin hex OEM OEM 03 00 C0
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
fail|"sel_bin2txt: fread /tmp/sel_temp/sel.bin failed, len=3 \r\n"
do header alone
do end

# failures: a record that cannot be read ends the table; the newer ones stand in it
damaged 20 24 /tmp/sel_temp/sel.bin
file /data/share/sel/sel.bin hex OEM*4
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
fail|"sel_bin2txt: fread /tmp/sel_temp/sel.bin failed, len=4 \r\n"
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
4,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,0abcde,,00000000,Asserted
3,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,0abcde,,00000000,Asserted
END
do end

# a column that ends where 64 KiB are full: 100 characters of heading, 57 in front of the description
env TZ=UTC
event 1 20120002 "{A*65379}"
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
do pack
packed sel.csv 640 "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n1,Minor,2024-05-06  08:00:00,2024-05-06  08:00:00,0abcde,{A*65379},20120002,Asserted\r\n"
do end

# failures: the table cannot be written
fails write /tmp/sel_temp/sel.csv
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
fail| sel_bin2txt: fwrite /tmp/sel_temp/sel.csv failed
do pack
packed sel.csv 640 ""
do end

# failures: a table of more than 64 KiB that cannot be written is given up where that shows
fails write /tmp/sel_temp/sel.csv
file /data/share/sel/sel.bin hex OEM*2000
$ cfgtool -t maintenance -d zntool
do bring the live log
> 0A 5C < 00 00 00
sleep 160000
fail| sel_bin2txt: fwrite /tmp/sel_temp/sel.csv failed
do pack
packed sel.csv 640 ""
do end
