let FAN = 05 00 02  00 8E 38 66  20 00 04  04 30 01  02 FF FF        # type 02h, 2024-05-06 08:00:00 UTC

steps begin
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"

steps make the work folder
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751

steps bring the live log
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"

steps convert the live log
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00
> 06 01 < C1
call vos_rm_filepath "/tmp/sel_temp/sel.bin"

steps pack
call tar_gzip_pack "/tmp/sel_temp/" "*" "/tmp/sel.tar"

steps clean
call vos_rm_filepath "/tmp/dev/"
call vos_rm_filepath "/tmp/sel_temp/"

steps collect
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool"
|
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
done|""

# zntool: the live log becomes a table, the table an archive, then the collection program runs and one record is written
env TZ=UTC
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do bring the live log
do convert the live log
do pack
packed sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
1,Ok,2024-05-06  08:00:00,2024-05-06  08:00:00,Type 04h,,00000000,Asserted
END
do clean
do collect

# zntool: what was said is shown before anything slow begins and before the collection program writes to the same screen
screen file
env TZ=UTC
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do bring the live log
do convert the live log
do pack
packed sel.csv 640 2 lines
do clean
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool"
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
|
done|""

# zntool: any word gets the usage text
$ cfgtool -t maintenance -d zntool -v 1
$ cfgtool -t maintenance -d zntool -v
$ cfgtool -t maintenance -d zntool x
usage| Usage: cfgtool -t maintenance -d zntool

# zntool: an operator is refused before anything is read
uid 503
$ cfgtool -t maintenance -d zntool
> 06 44 01 03 < 00 0F 02 01 03
refuse| Insufficient privilege level

# zntool: an administrator may
uid 502
file /data/share/sel folder
$ cfgtool -t maintenance -d zntool
> 06 44 01 02 < 00 0F 02 01 04
do begin
fail| pack_sel_info: file_count = 0
fail| Pack SEL failed.

# zntool: the event table cannot be loaded; nothing went wrong before, so the code is 0
$ cfgtool -t maintenance -d zntool
call event_parse_init "/data/sectbl.cfg" -> 0
fail| parse seltbl.cfg file fail, program exit!!!
fail| Pack SEL failed, error code: 0x0.

# zntool: the collection program cannot be run; its result is not asked for
file /data/share/sel/other "x"
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do pack
do clean
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool" -> -1
|
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
done|""

# zntool: the tables cannot be packed; the collection program runs all the same
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do bring the live log
do convert the live log
call tar_gzip_pack "/tmp/sel_temp/" "*" "/tmp/sel.tar" -> -1
packed sel.csv 640 2 lines
do clean
do collect

# SEL folder: empty
file /data/share/sel folder
$ cfgtool -t maintenance -d zntool
do begin
fail| pack_sel_info: file_count = 0
fail| Pack SEL failed.

# SEL folder: it is not there
$ cfgtool -t maintenance -d zntool
do begin
fail| enum_files: opendir(/data/share/sel/) failed
fail| pack_sel_info: file_count = 0
fail| Pack SEL failed.

# SEL folder: an old archive of tables is gone even when there is nothing to export
file /data/share/sel folder
file /tmp/sel.tar "old"
$ cfgtool -t maintenance -d zntool
do begin
fail| pack_sel_info: file_count = 0
fail| Pack SEL failed.
removed /tmp/sel.tar

# SEL folder: files but no log give an archive of nothing
file /data/share/sel/messages "x"
file /data/share/sel/se.tar.gz "x"
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do pack
do clean
do collect

# SEL folder: names that only resemble a log's are left alone
file /data/share/sel/sel.bin.old hex FAN
file /data/share/sel/xsel.bin hex FAN
file /data/share/sel/SEL.bin hex FAN
file /data/share/sel/sel hex FAN
file /data/share/sel/sel.tar hex FAN
file /data/share/sel/sel.gz hex FAN
file /data/share/sel/sel_1.TAR.GZ hex FAN
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do pack
do clean
do collect

# SEL folder: a link or a hidden file counts as a file, "." and ".." do not
file /data/share/sel/.hidden "x"
file /data/share/sel/link link nowhere
file /data/share/sel/sel.bin hex FAN
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do bring the live log
do convert the live log
do pack
packed sel.csv 640 2 lines
do clean
do collect

steps nine files
file /data/share/sel/sel.bin hex FAN
file /data/share/sel/b "x"
file /data/share/sel/c "x"
file /data/share/sel/d "x"
file /data/share/sel/e "x"
file /data/share/sel/f "x"
file /data/share/sel/g "x"
file /data/share/sel/h "x"
file /data/share/sel/i "x"

# SEL folder: nine files, no warning
do nine files
$ cfgtool -t maintenance -d zntool
do begin
do make the work folder
do bring the live log
do convert the live log
do pack
packed sel.csv 640 2 lines
do clean
do collect

# SEL folder: ten files are all considered; the tenth is warned of
do nine files
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex FAN FAN
$ cfgtool -t maintenance -d zntool
do begin
| enum_files: path(/data/share/sel/), filecount > 10
do make the work folder
do bring the live log
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/a_sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
do convert the live log
call vos_get_file_length "/tmp/sel_temp/a_sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/a_sel.bin"
do pack
packed a_sel.csv 640 3 lines
packed sel.csv 640 2 lines
do clean
do collect

# SEL folder: eleven files, and the log that is listed last is not considered
do nine files
file /data/share/sel/j "x"
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex FAN FAN
$ cfgtool -t maintenance -d zntool
do begin
| enum_files: path(/data/share/sel/), filecount > 10
do make the work folder
do bring the live log
do convert the live log
do pack
packed sel.csv 640 2 lines
do clean
do collect

# SEL folder: eleven files, and the live log is listed last
file /data/share/sel/sel.bin hex FAN
file /data/share/sel/ss1 "x"
file /data/share/sel/ss2 "x"
file /data/share/sel/ss3 "x"
file /data/share/sel/ss4 "x"
file /data/share/sel/ss5 "x"
file /data/share/sel/ss6 "x"
file /data/share/sel/ss7 "x"
file /data/share/sel/ss8 "x"
file /data/share/sel/ss9 "x"
file /data/share/sel/ss10 "x"
$ cfgtool -t maintenance -d zntool
do begin
| enum_files: path(/data/share/sel/), filecount > 10
do make the work folder
do pack
do clean
do collect
