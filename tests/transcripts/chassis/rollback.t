steps ask
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"

# Confirmed, the controller goes back to its other image
$ cfgtool -d rollback
$ cfgtool -d rollback -v whatever
do ask
keys "y\n"
> 2C 38  00 < 00 00
done| Set rollback successfully, system will reboot soon!
log 2 Firmware "Initiate Zentro manual rollback success,EvtCode:0x20B003F0"

# "Y" will do, and so does a word that begins with it
$ cfgtool -d rollback
do ask
keys "Yes\n"
> 2C 38  00 < 00 00
done| Set rollback successfully, system will reboot soon!
log 2 Firmware "Initiate Zentro manual rollback success,EvtCode:0x20B003F0"

# "n": nothing is sent, but recorded
$ cfgtool -d rollback
do ask
keys "n\n"
refuse|""
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# "N" as well
$ cfgtool -d rollback
do ask
keys "No\n"
refuse|""
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# Any other answer
$ cfgtool -d rollback
do ask
keys "1\n"
refuse| Input character invalid.
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# An empty line
$ cfgtool -d rollback
do ask
keys "\n"
refuse| Input character invalid.
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# The end of the input
$ cfgtool -d rollback
do ask
refuse| Input character invalid.
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# No answer: no blank behind the comma
$ cfgtool -d rollback
do ask
keys "y\n"
> 2C 38  00 < silent
|"Select OutTime \r\n"
fail| Set rollback failed,error code: 0x40000001
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# Refused: a blank behind the comma
$ cfgtool -d rollback
do ask
keys "y\n"
> 2C 38  00 < D5
fail| Set rollback failed, error code: 0x2C3800D5
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"

# A caller without the privilege is recorded too
uid 502
$ cfgtool -d rollback
> 06 44  01 02 < 00 11 04 01 12
refuse| Insufficient privilege level
log 2 Firmware "Initiate Zentro manual rollback fail,EvtCode:0x20B003F1"
