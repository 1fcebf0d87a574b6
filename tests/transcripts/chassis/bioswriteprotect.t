# bioswriteprotect: 1 enables it, and nothing is recorded
$ cfgtool -d bioswriteprotect -v 1
$ cfgtool -d bioswriteprotect -v 0x1
$ cfgtool -d bioswriteprotect -v 01
> 00 08  00 01  < 00            # set in progress
> 00 08  63 01  < 00
done| Enable BIOS write protection successfully.
> 00 08  00 00  < 00            # set complete

# bioswriteprotect: 0 disables it, and nothing is recorded
$ cfgtool -d bioswriteprotect -v 0
$ cfgtool -d bioswriteprotect -v 0x0
$ cfgtool -d bioswriteprotect -v ''
> 00 08  00 01  < 00
> 00 08  63 00  < 00
done| Disable BIOS write protection successfully.
> 00 08  00 00  < 00

# bioswriteprotect: exactly "-v" and 0 or 1, else usage
$ cfgtool -d bioswriteprotect
$ cfgtool -d bioswriteprotect -v
$ cfgtool -d bioswriteprotect 1
$ cfgtool -d bioswriteprotect -v 1 1
$ cfgtool -d bioswriteprotect -x 1
$ cfgtool -d bioswriteprotect -v 2
$ cfgtool -d bioswriteprotect -v 256
$ cfgtool -d bioswriteprotect -v 4294967296
$ cfgtool -d bioswriteprotect -v -1
$ cfgtool -d bioswriteprotect -v on
$ cfgtool -d bioswriteprotect -v 0x
usage| Usage: cfgtool -d bioswriteprotect -v <option>
usage| Options are:
usage|     1    BIOS write protect enable
usage|     0    BIOS write protect disable

# bioswriteprotect: an operator may not
uid 503
$ cfgtool -d bioswriteprotect -v 1
$ cfgtool -d bioswriteprotect
> 06 44  01 03  < 00 11 05 01 03
refuse| Insufficient privilege level

# bioswriteprotect: set in progress already is as good as opened and closed
$ cfgtool -d bioswriteprotect -v 1
> 00 08  00 01  < 81
> 00 08  63 01  < 00
done| Enable BIOS write protection successfully.
> 00 08  00 00  < 81

# bioswriteprotect 1: opening is refused: told, and not closed
$ cfgtool -d bioswriteprotect -v 1
> 00 08  00 01  < C1
fail| Enable BIOS write protection failed, error code: 0x801C1

# bioswriteprotect 0: opening is refused: told, and not closed
$ cfgtool -d bioswriteprotect -v 0
> 00 08  00 01  < 82
fail| Disable BIOS write protection failed, error code: 0x80182

# bioswriteprotect: opening is not answered: told, and not closed
$ cfgtool -d bioswriteprotect -v 0
> 00 08  00 01  < silent
|"Select OutTime \r\n"
fail| Disable BIOS write protection failed, error code: 0x40000001

# bioswriteprotect: opening is not sent: told, and not closed
$ cfgtool -d bioswriteprotect -v 1
> 00 08  00 01  < unsent
fail| Enable BIOS write protection failed, error code: 0x40000000

# bioswriteprotect 1: refused: told without the refusal's code, then closed
$ cfgtool -d bioswriteprotect -v 1
> 00 08  00 01  < 00
> 00 08  63 01  < 80
fail 00086380| Enable BIOS write protection failed, error code: 0x0
> 00 08  00 00  < 00

# bioswriteprotect 0: refused, and then the closing, which is not told
$ cfgtool -d bioswriteprotect -v 0
> 00 08  00 01  < 81
> 00 08  63 00  < 81
fail 00086381| Disable BIOS write protection failed, error code: 0x0
> 00 08  00 00  < C1

# bioswriteprotect 1: not answered: told, then closed
$ cfgtool -d bioswriteprotect -v 1
> 00 08  00 01  < 00
> 00 08  63 01  < silent
|"Select OutTime \r\n"
fail| Enable BIOS write protection failed, error code: 0x40000001
> 00 08  00 00  < 00

# bioswriteprotect 0: not sent: told, then closed
$ cfgtool -d bioswriteprotect -v 0
> 00 08  00 01  < 00
> 00 08  63 00  < unsent
fail| Disable BIOS write protection failed, error code: 0x40000000
> 00 08  00 00  < unsent
fail 40000000|""

# bioswriteprotect: a closing that is refused is not told
$ cfgtool -d bioswriteprotect -v 0
> 00 08  00 01  < 00
> 00 08  63 00  < 00
done| Disable BIOS write protection successfully.
> 00 08  00 00  < D5
fail 000800D5|""
