let PIECE = D9 7E 00 1F 01 0C   # OEM identifier, remote-manage ID; then whether more follow, offset, length, characters
let PLUMS = 70 6C 75 6D 2D 70 6C 75 6D 2D 70 6C 75 6D 2D 2D   # "plum-plum-plum--"

# remotemanageid: up to 15 characters are one piece
$ cfgtool -d remotemanageid -v rack7
> 30 94  PIECE 00 00 05 72 61 63 6B 37  < 00
done| Set remotemanageid:rack7 successfully.
log 1 Zentro "Set Device Remote Manage ID(rack7) success,EvtCode:0x20200DD0"

# remotemanageid: an empty id is one empty piece
$ cfgtool -d remotemanageid -v ''
> 30 94  PIECE 00 00 00  < 00
done| Set remotemanageid: successfully.
log 1 Zentro "Set Device Remote Manage ID() success,EvtCode:0x20200DD0"

# remotemanageid: fifteen characters
$ cfgtool -d remotemanageid -v plum-plum-plum-
> 30 94  PIECE 00 00 0F PLUMS[0:15]  < 00
done| Set remotemanageid:plum-plum-plum- successfully.
log 1 Zentro "Set Device Remote Manage ID(plum-plum-plum-) success,EvtCode:0x20200DD0"

# remotemanageid: sixteen characters are a last piece of their own, and an empty one behind it
$ cfgtool -d remotemanageid -v plum-plum-plum--
> 30 94  PIECE 00 00 10 PLUMS  < 00
> 30 94  PIECE 00 10 00        < 00
done| Set remotemanageid:plum-plum-plum-- successfully.
log 1 Zentro "Set Device Remote Manage ID(plum-plum-plum--) success,EvtCode:0x20200DD0"

# remotemanageid: seventeen characters
$ cfgtool -d remotemanageid -v plum-plum-plum--x
> 30 94  PIECE 01 00 10 PLUMS  < 00
> 30 94  PIECE 00 10 01 78     < 00
done| Set remotemanageid:plum-plum-plum--x successfully.
log 1 Zentro "Set Device Remote Manage ID(plum-plum-plum--x) success,EvtCode:0x20200DD0"

# remotemanageid: 63 characters
$ cfgtool -d remotemanageid -v {plum-plum-plum--*3}plum-plum-plum-
> 30 94  PIECE 01 00 10 PLUMS        < 00
> 30 94  PIECE 01 10 10 PLUMS        < 00
> 30 94  PIECE 01 20 10 PLUMS        < 00
> 30 94  PIECE 00 30 0F PLUMS[0:15]  < 00
done|"Set remotemanageid:{plum-plum-plum--*3}plum-plum-plum- successfully.\r\n"
log 1 Zentro "Set Device Remote Manage ID({plum-plum-plum--*3}plum-plum-plum-) success,EvtCode:0x20200DD0"

# remotemanageid: 64 characters are the most
$ cfgtool -d remotemanageid -v {plum-plum-plum--*4}
> 30 94  PIECE 01 00 10 PLUMS  < 00
> 30 94  PIECE 01 10 10 PLUMS  < 00
> 30 94  PIECE 01 20 10 PLUMS  < 00
> 30 94  PIECE 00 30 10 PLUMS  < 00
> 30 94  PIECE 00 40 00        < 00
done|"Set remotemanageid:{plum-plum-plum--*4} successfully.\r\n"
log 1 Zentro "Set Device Remote Manage ID({plum-plum-plum--*4}) success,EvtCode:0x20200DD0"

# remotemanageid: 65 characters are too long
$ cfgtool -d remotemanageid -v {x*65}
$ cfgtool -d remotemanageid -v {x*300}
refuse| The length of remotemanageid is too long.
refuse| Remote Manage ID should less than 64 bytes.

# remotemanageid: any character is stored as it comes
$ cfgtool -d remotemanageid -v 'a b\"%s|é'
> 30 94  PIECE 00 00 0A 61 20 62 5C 22 25 73 7C C3 A9  < 00
done|"Set remotemanageid:a b\\\"%s|\xC3\xA9 successfully.\r\n"
log 1 Zentro "Set Device Remote Manage ID(a b\\\"%s|\xC3\xA9) success,EvtCode:0x20200DD0"

# remotemanageid: one word behind -v
$ cfgtool -d remotemanageid
$ cfgtool -d remotemanageid -v
$ cfgtool -d remotemanageid rack7
$ cfgtool -d remotemanageid -v rack 7
$ cfgtool -d remotemanageid -x rack7
$ cfgtool -d remotemanageid rack7 -v
usage| cfgtool -d remotemanageid -v <id>
usage|     Contains 0-64 characters.
usage|     Contains any digits, letters, or symbols.
usage|     You must add blackslashes (\) before spaces and the following characters: ~!@#$%^&*()-=_+{}[]\|;:'"<>?,./
usage|     For example, tes\<a\|b\>t.

# remotemanageid: an operator may not, and leaves no record
uid 503
$ cfgtool -d remotemanageid -v rack7
$ cfgtool -d remotemanageid
> 06 44  01 03  < 00 11 02 00 33
refuse| Insufficient privilege level

# remotemanageid: nor may one whose privilege is not answered
uid 503
$ cfgtool -d remotemanageid -v rack7
> 06 44  01 03  < silent
|"Select OutTime \r\n"
refuse 40000001| send 'Get User Access Command' failed!

# remotemanageid: nor one whose privilege is refused
uid 503
$ cfgtool -d remotemanageid -v rack7
> 06 44  01 03  < CC
refuse 064400CC| Get User Access Command failed!

# remotemanageid: an administrator may
uid 503
$ cfgtool -d remotemanageid -v rack7
> 06 44  01 03  < 00 11 02 00 34
> 30 94  PIECE 00 00 05 72 61 63 6B 37  < 00
done| Set remotemanageid:rack7 successfully.
log 1 Zentro "Set Device Remote Manage ID(rack7) success,EvtCode:0x20200DD0"

# remotemanageid: not answered
$ cfgtool -d remotemanageid -v rack7
> 30 94  PIECE 00 00 05 72 61 63 6B 37  < silent
|"Select OutTime \r\n"
fail| 2set remotemanageid failed, error code: 0x40000001

# remotemanageid: not sent
$ cfgtool -d remotemanageid -v rack7
> 30 94  PIECE 00 00 05 72 61 63 6B 37  < unsent
fail| 2set remotemanageid failed, error code: 0x40000000

# remotemanageid: refused
$ cfgtool -d remotemanageid -v rack7
> 30 94  PIECE 00 00 05 72 61 63 6B 37  < C9
fail| 1set remotemanageid, error code: 0x309401C9

# remotemanageid: the second piece is refused, and no third is sent
$ cfgtool -d remotemanageid -v {plum-plum-plum--*3}
> 30 94  PIECE 01 00 10 PLUMS  < 00
> 30 94  PIECE 01 10 10 PLUMS  < D5
fail| 1set remotemanageid, error code: 0x309401D5

# remotemanageid: the empty last piece is not answered
$ cfgtool -d remotemanageid -v plum-plum-plum--
> 30 94  PIECE 00 00 10 PLUMS  < 00
> 30 94  PIECE 00 10 00        < silent
|"Select OutTime \r\n"
fail| 2set remotemanageid failed, error code: 0x40000001
