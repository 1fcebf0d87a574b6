# What somebody else has put in the way in /tmp.
let OEM = 03 00 C0 00 00 00 00 0A BC DE 04 30 01 02 FF FF

steps begin
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"

steps bring and convert the live log
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/sel.bin"

steps unpack a
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"

steps copy and convert a
call vos_file_copy "/tmp/sel_temp/a_sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/a_sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/a_sel.bin"

steps find no log of a
call vos_get_file_length "/tmp/sel_temp/a_sel.bin"
fail| sel_bin2txt: fopen /tmp/sel_temp/a_sel.bin failed
call vos_rm_filepath "/tmp/sel_temp/a_sel.bin"

steps pack
call tar_gzip_pack "/tmp/sel_temp/" "*" "/tmp/sel.tar"

steps end
call vos_rm_filepath "/tmp/dev/"
call vos_rm_filepath "/tmp/sel_temp/"
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool"
|
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
done|""

# work folder: a link goes, and what it leads to stays
file /data/share/sel/sel.bin hex OEM
file /data/elsewhere/precious.csv "precious"
file /tmp/sel_temp link ../data/elsewhere
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
removed /tmp/sel_temp

# work folder: a file goes
file /data/share/sel/sel.bin hex OEM
file /tmp/sel_temp "x"
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
removed /tmp/sel_temp

# work folder: tables of a run that was broken off go
file /data/share/sel/sel.bin hex OEM
file /tmp/sel_temp/old.csv "old"
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
removed /tmp/sel_temp/old.csv

# work folder: one of our own that cannot be removed will do, but for the tables in it
fails vos_rm_filepath /tmp/sel_temp/
file /data/share/sel/sel.bin hex OEM
file /tmp/sel_temp/old.csv "old"
$ cfgtool -t maintenance -d zntool
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" failed
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
removed /tmp/sel_temp/old.csv
wrote /tmp/sel_temp/sel.csv "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,0abcde,,00000000,Asserted\r\n"

steps no work folder
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" failed

# work folder: somebody else's that cannot be removed is not used
fails vos_rm_filepath /tmp/sel_temp/
owner 503 /tmp/sel_temp
file /data/share/sel/sel.bin hex OEM
file /tmp/sel_temp folder
$ cfgtool -t maintenance -d zntool
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
do no work folder for 1..5
call vos_rm_filepath "/tmp/sel_temp/"
fail| Pack SEL failed.

# work folder: nor is one of our own that others can write in
fails vos_rm_filepath /tmp/sel_temp/
file /data/share/sel/sel.bin hex OEM
file /tmp/sel_temp folder 772
$ cfgtool -t maintenance -d zntool
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
do no work folder for 1..5
call vos_rm_filepath "/tmp/sel_temp/"
fail| Pack SEL failed.

# work folder: nor is one that is somebody else's by the time it is looked at
owner 503 /tmp/sel_temp
fails vos_rm_filepath /tmp/sel_temp/
result fchown -1
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/sel_temp/" failed
do no work folder for 1..4
call vos_rm_filepath "/tmp/sel_temp/"
fail| Pack SEL failed.

# work folder: what somebody puts in the way again and again is removed again
result mkdir -1 -1
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" failed
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" failed
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end

# folder of the archives: a link goes before the archiver is run, and what it leads to stays
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /data/elsewhere/precious "precious"
file /tmp/dev link ../data/elsewhere
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/dev/" failed
call vos_rm_filepath "/tmp/dev/"
call mkdir "/tmp/dev/" 751
do unpack a
do copy and convert a
do pack
packed a_sel.csv 640 2 lines
do end
removed /tmp/dev

# folder of the archives: without an archive a link goes at the end
file /data/share/sel/sel.bin hex OEM
file /data/elsewhere/precious "precious"
file /tmp/dev link ../data/elsewhere
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
removed /tmp/dev

# folder of the archives: a link deeper down goes too, with all that lies there
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /data/elsewhere/reboot_file/sel_bak.bin "precious"
file /tmp/dev/shm/save link ../../../data/elsewhere
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/dev/" failed
call vos_rm_filepath "/tmp/dev/"
call mkdir "/tmp/dev/" 751
do unpack a
do copy and convert a
do pack
packed a_sel.csv 640 2 lines
do end
removed /tmp/dev/shm/save

# folder of the archives: one of somebody else goes
owner 503 /tmp/dev
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /tmp/dev/theirs "x"
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/dev/" failed
call vos_rm_filepath "/tmp/dev/"
call mkdir "/tmp/dev/" 751
do unpack a
do copy and convert a
do pack
packed a_sel.csv 640 2 lines
do end
removed /tmp/dev/theirs

steps no folder of the archives
call mkdir "/tmp/dev/" failed
call vos_rm_filepath "/tmp/dev/"

# folder of the archives: somebody else's that cannot be removed keeps archives out, and the live log in
fails vos_rm_filepath /tmp/dev/
owner 503 /tmp/dev
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /data/share/sel/sel.bin hex OEM
file /tmp/dev folder
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"
do no folder of the archives for 1..5
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
do find no log of a
do pack
packed sel.csv 640 2 lines
call vos_rm_filepath "/tmp/dev/"
call vos_rm_filepath "/tmp/sel_temp/"
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool"
|
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
done|""

# folder of the archives: a stale one that cannot be cleared keeps archives out
fails vos_rm_filepath /tmp/dev/
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /tmp/dev/shm link ../../data/elsewhere
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
do no folder of the archives
call mkdir "/tmp/dev/" failed
do find no log of a
do pack
call vos_rm_filepath "/tmp/dev/"
call vos_rm_filepath "/tmp/sel_temp/"
call vos_environ_system "/ipmc/zntool" "/ipmc/zntool"
|
log 2 Zentro "Finish debug info collect success, EvtCode:0x202013C0"
done|""

# folder of the archives: a folder that lies where the log is to lie goes
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /tmp/dev/shm/save/reboot_file/sel_bak.bin/x "x"
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/dev/" failed
call vos_rm_filepath "/tmp/dev/"
call mkdir "/tmp/dev/" 751
do unpack a
do copy and convert a
do pack
packed a_sel.csv 640 2 lines
do end
removed /tmp/dev/shm/save/reboot_file/sel_bak.bin/x

# folder of the archives: what an archive gives to somebody else is made our own
owner 503 /tmp/dev/shm/save
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/dev/" 751
do unpack a
do copy and convert a
do pack
packed a_sel.csv 640 2 lines
do end

# folder of the archives: what stays somebody else's is not read
owner 503 /tmp/dev/shm/save
result fchown 0 0 0 0 -1
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
call mkdir "/tmp/dev/" 751
do unpack a
do find no log of a
do pack
do end

# archive of tables: a link goes, and what it leads to stays
file /data/share/sel/sel.bin hex OEM
file /data/elsewhere "precious"
file /tmp/sel.tar link ../data/elsewhere
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
removed /tmp/sel.tar

# an administrator of the controller makes folders of their own
uid 502
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
> 06 44 01 02 < 00 0F 02 01 04
do begin
call mkdir "/tmp/sel_temp/" 751
do bring and convert the live log
do pack
packed sel.csv 640 2 lines
do end
