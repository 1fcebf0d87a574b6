# Records of a kind that names no sensor, so that nothing is asked but the time offset.
let OEM = 03 00 C0 00 00 00 00 0A BC DE 04 30 01 02 FF FF
let NEXT = 04 00 C0 00 00 00 00 0A BC DE 04 30 81 02 FF FF

steps begin
call event_parse_init "/data/sectbl.cfg"
| Collecting...
call vos_rm_filepath "/tmp/sel.tar"
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751

steps unpack a
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"

steps make no work folder
call mkdir "/tmp/sel_temp/" failed
call vos_rm_filepath "/tmp/sel_temp/"

steps copy a
call vos_file_copy "/tmp/sel_temp/a_sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"

steps bring the live log
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin"

steps convert the live log
call vos_get_file_length "/tmp/sel_temp/sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/sel.bin"

steps convert a
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

# one archive: its log becomes a table of its name
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM NEXT
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do convert a
do pack
packed a_sel.csv 640 <<END
ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status
2,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,0abcde,,00000000,Deasserted
1,Ok,Pre-Init Time-stamp,Pre-Init Time-stamp,0abcde,,00000000,Asserted
END
do end

# the live log and two archives: all are brought, in the order of the listing, before any is converted
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM*2
archive /data/share/sel/sel_1.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM*3
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/sel_1.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/sel_1.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
do bring the live log
call mkdir "/tmp/dev/" failed
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
do copy a
call vos_get_file_length "/tmp/sel_temp/sel_1.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/sel_1.bin"
do convert the live log
do convert a
do pack
packed a_sel.csv 640 3 lines
packed sel.csv 640 2 lines
packed sel_1.csv 640 4 lines
do end

# names: cut at the first ".tar.gz", whatever stands behind it
archive /data/share/sel/sel.tar.gz.tar.gz.old dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/sel.tar.gz.tar.gz.old" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
do convert the live log
do pack
packed sel.csv 640 2 lines
do end

# names: "sel" may stand behind ".tar.gz" only
archive /data/share/sel/old.tar.gz.sel dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/old.tar.gz.sel" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/old.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/old.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/old.bin"
do pack
packed old.csv 640 2 lines
do end

# names: no word of a name is anything but a name
archive "/data/share/sel/-C sel; x %s%n.tar.gz" dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/-C sel; x %s%n.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/-C sel; x %s%n.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/-C sel; x %s%n.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/-C sel; x %s%n.bin"
do pack
packed "-C sel; x %s%n.csv" 640 2 lines
do end

# names: 127 characters are the longest that is known whole
archive "/data/share/sel/sel_{x*116}.tar.gz" dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/sel_{x*116}.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/sel_{x*116}.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/sel_{x*116}.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/sel_{x*116}.bin"
do pack
packed "sel_{x*116}.csv" 640 2 lines
do end

# names: of one of 128 characters the last is lost, and with it an archive's ending
archive "/data/share/sel/sel_{x*117}.tar.gz" dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
do pack
do end

# names: of a longer one the ending may still be there, but what is left is no file's name
archive "/data/share/sel/sel_{x*116}.tar.gz.old" dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/sel_{x*116}.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/sel_{x*116}.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call vos_get_file_length "/tmp/sel_temp/sel_{x*116}.bin"
fail|"sel_bin2txt: fopen /tmp/sel_temp/sel_{x*116}.bin failed\r\n"
call vos_rm_filepath "/tmp/sel_temp/sel_{x*116}.bin"
do pack
do end

# names: of two with one base, each is brought, and the later takes the other's place
archive /data/share/sel/sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM*2
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/sel.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
do bring the live log
do convert the live log
call vos_get_file_length "/tmp/sel_temp/sel.bin"
fail| sel_bin2txt: fopen /tmp/sel_temp/sel.bin failed
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
do pack
packed sel.csv 640 2 lines
do end

# an archive without a log does not keep the live log out
archive /data/share/sel/a_sel.tar.gz readme "x"
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
do bring the live log
do unpack a
do copy a
do convert the live log
do find no log of a
do pack
packed sel.csv 640 2 lines
do end

# where it cannot be noted what was there before, an archive is not unpacked
fails open /tmp/
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
do find no log of a
do pack
do end

# what an archive brings beside its log goes; what was there and what has changed nothing stays
archive /data/share/sel/a_sel.tar.gz . folder 777
archive /data/share/sel/a_sel.tar.gz ./readme "x"
archive /data/share/sel/a_sel.tar.gz kept/brought "x"
archive /data/share/sel/a_sel.tar.gz kept/fifo fifo
archive /data/share/sel/a_sel.tar.gz deep/er/link link /data
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /tmp/kept/own "own"
file /tmp/own "own"
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do convert a
do pack
packed a_sel.csv 640 2 lines
do end

# an archive without a log does not seem to hold the log of the one before
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/other "x"
archive /data/share/sel/b_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/b_sel.tar.gz" "-C" "/tmp/"
call vos_file_copy "/tmp/sel_temp/b_sel.bin" "/tmp/dev/shm/save/reboot_file/sel_bak.bin"
call mkdir "/tmp/dev/" failed
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
do copy a
call vos_get_file_length "/tmp/sel_temp/b_sel.bin"
> 0A 5C < 00 00 00
call vos_rm_filepath "/tmp/sel_temp/b_sel.bin"
do find no log of a
do pack
packed b_sel.csv 640 2 lines
do end

# an archive without a log does not seem to hold that of a run that was broken off
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/other "x"
file /tmp/dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" failed
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
do copy a
do find no log of a
do pack
do end
removed /tmp/dev/shm/save/reboot_file/sel_bak.bin

# a file that is no archive
file /data/share/sel/a_sel.tar.gz "no archive"
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do find no log of a
do pack
do end

# an archive that breaks off brings none of its log where it breaks off before it
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
cut /data/share/sel/a_sel.tar.gz 20
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do find no log of a
do pack
do end

# the archiver cannot be run
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/" -> -1
do copy a
do find no log of a
do pack
do end

# a log that cannot be copied does not keep the next one out
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
call vos_file_copy "/tmp/sel_temp/sel.bin" "/data/share/sel/sel.bin" -> -1
do unpack a
do copy a
call vos_get_file_length "/tmp/sel_temp/sel.bin"
fail| sel_bin2txt: fopen /tmp/sel_temp/sel.bin failed
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
do convert a
do pack
packed a_sel.csv 640 2 lines
do end

# the live log is a link that leads nowhere
file /data/share/sel/sel.bin link nowhere
$ cfgtool -t maintenance -d zntool
do begin
do bring the live log
call vos_get_file_length "/tmp/sel_temp/sel.bin"
fail| sel_bin2txt: fopen /tmp/sel_temp/sel.bin failed
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
do pack
do end

# a FIFO is not given to the archiver, which would wait for ever
file /data/share/sel/a_sel.tar.gz fifo
$ cfgtool -t maintenance -d zntool
do begin
do find no log of a
do pack
do end

# a link to an archive is one
archive /data/old dev/shm/save/reboot_file/sel_bak.bin hex OEM
file /data/share/sel/a_sel.tar.gz link ../../old
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do convert a
do pack
packed a_sel.csv 640 2 lines
do end

# in place of the log the archive holds a link: it is not followed
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin link ../../../../../data/secret
file /data/secret hex OEM
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do find no log of a
do pack
do end

# in place of the log the archive holds a FIFO: it is not read
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin fifo
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do find no log of a
do pack
do end

# on the way to the log the archive holds a link: it is not followed, and is gone before the next archive is unpacked
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
archive /data/share/sel/b_sel.tar.gz dev folder
archive /data/share/sel/b_sel.tar.gz dev/shm link ../../data/elsewhere
file /data/elsewhere/save/reboot_file/sel_bak.bin hex OEM OEM
$ cfgtool -t maintenance -d zntool
do begin
call mkdir "/tmp/dev/" 751
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/b_sel.tar.gz" "-C" "/tmp/"
call mkdir "/tmp/dev/" failed
call vos_system "/bin/tar" "/bin/tar" "-zxf" "/data/share/sel/a_sel.tar.gz" "-C" "/tmp/"
do copy a
call vos_get_file_length "/tmp/sel_temp/b_sel.bin"
fail| sel_bin2txt: fopen /tmp/sel_temp/b_sel.bin failed
call vos_rm_filepath "/tmp/sel_temp/b_sel.bin"
do convert a
do pack
packed a_sel.csv 640 2 lines
do end

# an archive whose folders are everybody's to write in: they are not any longer when its log is copied
archive /data/share/sel/a_sel.tar.gz dev folder 777
archive /data/share/sel/a_sel.tar.gz dev/shm folder 1777
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do convert a
do pack
packed a_sel.csv 640 2 lines
do end

# an archive that holds the archive of tables: nothing of it is in the way
archive /data/share/sel/a_sel.tar.gz sel.tar/x "x"
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do copy a
do find no log of a
do pack
do end

# an archive that holds a link in place of the work folder: a table is written in a folder of our own
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
archive /data/share/sel/a_sel.tar.gz sel_temp link ../data/share/sel
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
call mkdir "/tmp/sel_temp/" failed
call vos_rm_filepath "/tmp/sel_temp/"
call mkdir "/tmp/sel_temp/" 751
do copy a
do convert a
do pack
packed a_sel.csv 640 2 lines
do end

# an archive that holds a link in place of the work folder, where none can be made again: its log is not brought
result mkdir 0 0 -1 -1 -1 -1 -1
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM
archive /data/share/sel/a_sel.tar.gz sel_temp link ../data/share/sel
$ cfgtool -t maintenance -d zntool
do begin
do unpack a
do make no work folder for 1..5
do find no log of a
do pack
do end

# an archive that fills the work folder: what it brought goes, what was there stays
archive /data/share/sel/a_sel.tar.gz sel_temp folder 777
archive /data/share/sel/a_sel.tar.gz sel_temp/a_sel.bin fifo
archive /data/share/sel/a_sel.tar.gz sel_temp/a_sel.csv link ../../data/precious
archive /data/share/sel/a_sel.tar.gz sel_temp/sel.csv/x "x"
archive /data/share/sel/a_sel.tar.gz sel_temp/other.csv "other"
archive /data/share/sel/a_sel.tar.gz dev/shm/save/reboot_file/sel_bak.bin hex OEM OEM
file /data/share/sel/sel.bin hex OEM
file /data/precious "precious"
$ cfgtool -t maintenance -d zntool
do begin
do bring the live log
do unpack a
call vos_rm_filepath "/tmp/sel_temp/sel.csv"
do copy a
do convert the live log
do convert a
do pack
packed a_sel.csv 640 3 lines
packed sel.csv 640 2 lines
do end

# an archive that holds another live log: neither is taken for the real one
archive /data/share/sel/a_sel.tar.gz sel_temp/sel.bin hex OEM OEM
file /data/share/sel/sel.bin hex OEM
$ cfgtool -t maintenance -d zntool
do begin
do bring the live log
do unpack a
do copy a
call vos_get_file_length "/tmp/sel_temp/sel.bin"
fail| sel_bin2txt: fopen /tmp/sel_temp/sel.bin failed
call vos_rm_filepath "/tmp/sel_temp/sel.bin"
do find no log of a
do pack
do end
