# The web server is ended, and started two seconds later; that is recorded and not shown
$ cfgtool -t maintenance -d webrestart
call vos_system "/sbin/killall" "/sbin/killall" "/web/linux/webs"
sleep 2000000
call vos_system "/web/linux/webs" "/web/linux/webs"
log 2 Zentro "Restart web service success, EvtCode:0x202014E0"
done|""

# What comes of either makes no difference
$ cfgtool -t maintenance -d webrestart
call vos_system "/sbin/killall" "/sbin/killall" "/web/linux/webs" -> -1
sleep 2000000
call vos_system "/web/linux/webs" "/web/linux/webs" -> -1
log 2 Zentro "Restart web service success, EvtCode:0x202014E0"
done|""

# No words
$ cfgtool -t maintenance -d webrestart -v
$ cfgtool -t maintenance -d webrestart now
usage| Usage: cfgtool -t maintenance -d webrestart

# A caller without the privilege is recorded
uid 502
$ cfgtool -t maintenance -d webrestart
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level
log 2 Zentro "Restart web service fail, EvtCode:0x202014E1"
