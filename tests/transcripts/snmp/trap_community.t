let TRICORN = 54 72 69 63 6F 72 6E 38 00 00 00 00 00 00 00 00 00 00

steps typed
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
hidden|"Confirm Community:"
hidden "Tricorn8\r"
|"\n"

# trap community: typed twice; closed, then told, then recorded; forgotten once it is sent
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00      # set in progress
> 0C 01  01 10 TRICORN     < 00
secret "Tricorn8"
> 0C 01  01 00 00          < silent  # set complete
|"Select OutTime \r\n"
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: whether the bracket closes makes no difference after a success
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00
> 0C 01  01 10 TRICORN     < 00
secret "Tricorn8"
> 0C 01  01 00 00          < C1
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: one character is enough
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "p\r"
|"\n"
call vos_check_incorrect_char "p" " "
hidden|"Confirm Community:"
hidden "p\r"
|"\n"
> 0C 01  01 00 01          < 00
> 0C 01  01 10 70 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
> 0C 01  01 00 00          < 00
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: eighteen characters fill the parameter
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn-and-Bicorn\r"
|"\n"
call vos_check_incorrect_char "Tricorn-and-Bicorn" " "
hidden|"Confirm Community:"
hidden "Tricorn-and-Bicorn\r"
|"\n"
> 0C 01  01 00 01          < 00
> 0C 01  01 10 54 72 69 63 6F 72 6E 2D 61 6E 64 2D 42 69 63 6F 72 6E  < 00
secret "Tricorn-and-Bicorn"
> 0C 01  01 00 00          < 00
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: a nineteenth character is not taken at either prompt
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn-and-Bicorn9\r"
|"\a\n"
call vos_check_incorrect_char "Tricorn-and-Bicorn" " "
hidden|"Confirm Community:"
hidden "Tricorn-and-Bicorn7\r"
|"\a\n"
> 0C 01  01 00 01          < 00
> 0C 01  01 10 54 72 69 63 6F 72 6E 2D 61 6E 64 2D 42 69 63 6F 72 6E  < 00
secret "Tricorn-and-Bicorn"
> 0C 01  01 00 00          < 00
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: a backslash is a character like any other
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "tri\\<corn\\|8\r"
|"\n"
call vos_check_incorrect_char "tri\\<corn\\|8" " "
hidden|"Confirm Community:"
hidden "tri\\<corn\\|8\r"
|"\n"
> 0C 01  01 00 01          < 00
> 0C 01  01 10 74 72 69 5C 3C 63 6F 72 6E 5C 7C 38 00 00 00 00 00 00  < 00
secret "tri\\<corn\\|8"
> 0C 01  01 00 00          < 00
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: and so is a percent sign
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "%s%n%d%x\r"
|"\n"
call vos_check_incorrect_char "%s%n%d%x" " "
hidden|"Confirm Community:"
hidden "%s%n%d%x\r"
|"\n"
> 0C 01  01 00 01          < 00
> 0C 01  01 10 25 73 25 6E 25 64 25 78 00 00 00 00 00 00 00 00 00 00  < 00
secret "%s%n%d%x"
> 0C 01  01 00 00          < 00
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: any word behind the dataitem: how it is done, and no prompt
$ cfgtool -t trap -d community -v
$ cfgtool -t trap -d community -v x
$ cfgtool -t trap -d community x
$ cfgtool -t trap -d community ''
$ cfgtool -t trap -d community -v x y
usage| Usage: cfgtool -t trap -d community
usage|     Contains 1-18 characters.
usage|     Contains any digits, letters, or symbols except space.
usage|     You must add blackslashes (\) before the following characters: ~!@#$%^&*()-=_+{}[]\|:;'"<>?,./
usage|     For example, tes\<a\|b\>t.

# trap community: an operator may not, with words or without; there is no prompt
uid 503
$ cfgtool -t trap -d community -v x
$ cfgtool -t trap -d community
> 06 44  01 03             < 00 11 05 01 03
refuse| Insufficient privilege level

# trap community: nothing can be typed
$ cfgtool -t trap -d community
hidden|"New Community:"
refuse|"Usage: Input New Community error \r\n"

# trap community: an empty one: "spaces", where the usage above has "space"
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "\r"
|"\n"
usage| Usage: cfgtool -t trap -d community
usage|     Contains 1-18 characters.
usage|     Contains any digits, letters, or symbols except spaces.
usage|     You must add blackslashes (\) before the following characters: ~!@#$%^&*()-=_+{}[]\|:;'"<>?,./
usage|     For example, tes\<a\|b\>t.

# trap community: a blank in it
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn and\r"
|"\n"
call vos_check_incorrect_char "Tricorn and" " " -> 1
secret "Tricorn and"
refuse|"Community string exclude characters:  spaces \r\n"

# trap community: a blank at its end alone
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8 \r"
|"\n"
call vos_check_incorrect_char "Tricorn8 " " " -> -1
secret "Tricorn8 "
refuse|"Community string exclude characters:  spaces \r\n"

# trap community: a blank that the platform lets through ends what is sent
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tri corn8\r"
|"\n"
call vos_check_incorrect_char "Tri corn8" " " -> 0
hidden|"Confirm Community:"
hidden "Tri corn8\r"
|"\n"
> 0C 01  01 00 01          < 00
> 0C 01  01 10 54 72 69 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 00
secret "Tri corn8"
> 0C 01  01 00 00          < 00
done| Set SNMP trap community success.
log 2 Alert "Set SNMP trap community success,EvtCode:0x213007A0"

# trap community: the second one differs in the case of its letters
$ cfgtool -t trap -d community
secret "TRICORN8"
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
secret "Tricorn8"
hidden|"Confirm Community:"
hidden "TRICORN8\r"
|"\n"
refuse| Confirm Community error.

# trap community: the second one is longer
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
secret "Tricorn8"
hidden|"Confirm Community:"
hidden "Tricorn88\r"
|"\n"
refuse| Confirm Community error.

# trap community: the second one is empty
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
secret "Tricorn8"
hidden|"Confirm Community:"
hidden "\r"
|"\n"
refuse| Confirm Community error.

# trap community: opening is refused: told, and not closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 81
secret "Tricorn8"
fail| Set SNMP trap community name, error code: 0xC010181

# trap community: opening is not answered: told, and not closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < silent
secret "Tricorn8"
|"Select OutTime \r\n"
fail| Set SNMP trap community name, error code: 0x40000001

# trap community: opening is not sent: told, and not closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < unsent
secret "Tricorn8"
fail| Set SNMP trap community name, error code: 0x40000000

# trap community: refused: told, then closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00
> 0C 01  01 10 TRICORN     < C9
secret "Tricorn8"
fail| Set SNMP trap community failed, error code: 0xC0110C9
> 0C 01  01 00 00          < silent
|"Select OutTime \r\n"

# trap community: refused by the controller's own rules: they are shown, and the bracket stays open
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00
> 0C 01  01 10 TRICORN     < 84
secret "Tricorn8"
fail| Set SNMP trap community failed, error code: 0xC011084
| Invalid Community:
| 1) Contains 8-18 characters.
| 2) Contains at least one of the following special characters:`~!@#$%^&*()-_=+\|[{}];:'",<.>/?
| 3) Contains at least two types of the following characters:
|    - Letters:a to z;
|    - Letters:A to Z;
|    - Digits:0 to 9;

# trap community: not answered: told, then closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00
> 0C 01  01 10 TRICORN     < silent
secret "Tricorn8"
|"Select OutTime \r\n"
fail| Set SNMP trap community failed, error code: 0x40000001
> 0C 01  01 00 00          < C1

# trap community: not sent: told, then closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00
> 0C 01  01 10 TRICORN     < unsent
secret "Tricorn8"
fail| Set SNMP trap community failed, error code: 0x40000000
> 0C 01  01 00 00          < 00

# trap community: answers of others: told, then closed
$ cfgtool -t trap -d community
do typed
> 0C 01  01 00 01          < 00
> 0C 01  01 10 TRICORN     < command
secret "Tricorn8"
fail| Set SNMP trap community failed, error code: 0x40000002
> 0C 01  01 00 00          < 00
