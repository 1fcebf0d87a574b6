# SOL: the collection is started, followed twice a second, and the place of the file told
$ cfgtool -d download -v 0
$ cfgtool -d download -v 0x0
> 30 93  D9 7E 00 1F 00 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 01 05
|"\r 5%"
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 01 3C
|"\r60%"
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 00 64
done|"\r100%,Download successfully.\r\n"
done| "sol.dat" save to path /tmp/
log 2 SOL "Download SOL data success,EvtCode:0x209003D0"

# Progress is shown as it is told, beyond 99 as well
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 01 FF
|"\r255%"
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 01 00
|"\r 0%"
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 00 00
done|"\r100%,Download successfully.\r\n"
done| "sol.dat" save to path /tmp/
log 2 SOL "Download SOL data success,EvtCode:0x209003D0"

# Black box: enabled and with data, it is collected
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < 00 D9 7E 00 00 00 00 00 01
> 30 93  D9 7E 00 1F 01 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 01 01 < 00 D9 7E 00 00 64
done|"\r100%,Download successfully.\r\n"
done| "blackbox.tar" save to path /tmp/
log 2 "Black box" "Download black box data success,EvtCode:0x21400970"

# Black box: not enabled; byte 3 of the answer does not count, and nothing is started
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 01 00
refuse| Black Box function is diabled!

# Black box: a query that is refused counts as not enabled
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < C1
refuse 309300C1| Black Box function is diabled!

# Black box: a query without an answer counts as not enabled
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < silent
|"Select OutTime \r\n"
refuse 40000001| Black Box function is diabled!

# Black box: no data, whatever stands before the size
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < 00 D9 7E 00 FF 00 00 00 00
refuse| There is no Black Box data!

# Black box: a size that is refused counts as no data
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < CB
refuse 309300CB| There is no Black Box data!

# Black box: a size without an answer counts as no data
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < unsent
refuse 40000000| There is no Black Box data!

# Black box: completion code CBh is told as for SOL
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < 00 D9 7E 00 00 01 00 00 00
> 30 93  D9 7E 00 1F 01 00 < CB
fail 309300CB| There is no SOL data!

# SOL: no data
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < CB
fail 309300CB| There is no SOL data!

# SOL: somebody else is downloading
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < C0
fail 309300C0| Other user downloading, please wait.
log 2 SOL "Download SOL data fail,EvtCode:0x209003D1"

# SOL: any other refusal
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < D5
fail| Command send failed, error code: 0x309300D5
log 2 SOL "Download SOL data fail,EvtCode:0x209003D1"

# SOL: no answer to the start
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < silent
|"Select OutTime \r\n"
fail| Command send failed, error code: 0x40000001
log 2 SOL "Download SOL data fail,EvtCode:0x209003D1"

# Black box: any other refusal has its own record
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < 00 D9 7E 00 00 01 00 00 00
> 30 93  D9 7E 00 1F 01 00 < C1
fail| Command send failed, error code: 0x309300C1
log 2 "Black box" "Download black box data fail,EvtCode:0x21400971"

# SOL: the progress cannot be had; the code is shown in decimal
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < silent
|"Select OutTime \r\n"
fail 40000001|"recv ipmi msg  fail, g_error_code=1073741825 \r\n"
log 2 SOL "Download SOL data fail,EvtCode:0x209003D1"

# SOL: the progress is refused
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < C3
fail 309300C3| Get download status failed!
log 2 SOL "Download SOL data fail,EvtCode:0x209003D1"

# SOL: the controller says that it failed
$ cfgtool -d download -v 0
> 30 93  D9 7E 00 1F 00 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 01 32
|"\r50%"
sleep 500000
> 30 93  D9 7E 00 1F 00 01 < 00 D9 7E 00 02 32
fail| Download data failed.
log 2 SOL "Download SOL data fail,EvtCode:0x209003D1"

# Video: asked for once
$ cfgtool -d download -v 2
> 30 93  D9 7E 00 1F 02 00 < 00 D9 7E 00
done| Video data save to path /tmp/video
log 2 KVM "Download Video data success,EvtCode:0x20F014C0"

# Video: refused; what means something to SOL means nothing here
$ cfgtool -d download -v 2
> 30 93  D9 7E 00 1F 02 00 < CB
fail| Command send failed, error code: 0x309300CB
log 2 KVM "Download Video data fail,EvtCode:0x20F014C1"

# Video: no answer
$ cfgtool -d download -v 2
> 30 93  D9 7E 00 1F 02 00 < unsent
fail| Command send failed, error code: 0x40000000
log 2 KVM "Download Video data fail,EvtCode:0x20F014C1"

# Screen pictures: asked for once
$ cfgtool -d download -v 3
> 30 93  D9 7E 00 1F 03 00 < 00 D9 7E 00
done| Screen data save to path /tmp/screen
log 2 KVM "Download Screen data success,EvtCode:0x20F014D0"

# Screen pictures: refused
$ cfgtool -d download -v 3
> 30 93  D9 7E 00 1F 03 00 < C0
fail| Command send failed, error code: 0x309300C0
log 2 KVM "Download Screen data fail,EvtCode:0x20F014D1"

# Exactly "-v" and 0 to 3
$ cfgtool -d download
$ cfgtool -d download -v
$ cfgtool -d download -v 4
$ cfgtool -d download -v -1
$ cfgtool -d download -v x
$ cfgtool -d download -v 1 2
usage| Usage: cfgtool -d download -v <option>
usage| Options are:
usage|     0    SOL
usage|     1    Black Box
usage|     2    Video
usage|     3    Screen Pictures

# A caller without the privilege is told and not recorded
uid 502
$ cfgtool -d download -v 0
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level

# Black box: somebody else is downloading
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < 00 D9 7E 00 00 01 00 00 00
> 30 93  D9 7E 00 1F 01 00 < C0
fail 309300C0| Other user downloading, please wait.
log 2 "Black box" "Download black box data fail,EvtCode:0x21400971"

# Black box: the controller says that it failed; any status but 0 and 1 is a failure
$ cfgtool -d download -v 1
> 30 93  D9 7E 00 10 0C 01 00 00 01 < 00 D9 7E 00 00 01
> 30 93  D9 7E 00 1F 01 02 < 00 D9 7E 00 00 01 00 00 00
> 30 93  D9 7E 00 1F 01 00 < 00 D9 7E 00
| Downloading...
sleep 500000
> 30 93  D9 7E 00 1F 01 01 < 00 D9 7E 00 01 09
|"\r 9%"
sleep 500000
> 30 93  D9 7E 00 1F 01 01 < 00 D9 7E 00 03 09
fail| Download data failed.
log 2 "Black box" "Download black box data fail,EvtCode:0x21400971"

# Screen pictures: no answer
$ cfgtool -d download -v 3
> 30 93  D9 7E 00 1F 03 00 < silent
|"Select OutTime \r\n"
fail| Command send failed, error code: 0x40000001
log 2 KVM "Download Screen data fail,EvtCode:0x20F014D1"
