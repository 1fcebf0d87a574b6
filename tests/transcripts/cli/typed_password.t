# A password is typed key by key and never shown. What was taken of it goes out in the request that checks it.

let ADMIN = 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00   # "admin", the caller's name
let CHECK = D9 7E 00 11 00 ADMIN                                # OEM identifier, check password, by name

steps nobody
> 06 46  {N*1:02X}     < 00
> 06 44  01 {N*1:02X}  < 00

steps users
> 06 46  02     < 00 ADMIN
> 06 44  01 02  < 00
do nobody for 3..17

steps asked
do users
hidden|"Input your password:"

steps refused
refuse 30910082| Incorrect password.
log 1 User "Delete user fail,EvtCode:0x111005A1"

steps not typed
refuse| Input your password error.
log 1 User "Delete user fail,EvtCode:0x111005A1"

# typed password: eight characters and Enter, padded to twenty bytes; a line feed alone follows
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: twenty characters ring no bell
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1 opens doors\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 20 6F 70 65 6E 73 20 64 6F 6F 72 73  < 82
secret "Sesame-1 opens doors"
do refused

# typed password: of 25 characters the first 20 are kept, and five bells rung
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1 opens doors.....\r"
|"\a\a\a\a\a\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 20 6F 70 65 6E 73 20 64 6F 6F 72 73  < 82
secret "Sesame-1 opens doors"
do refused

# typed password: Enter at once is an empty password
$ cfgtool -d deluser -v bob
do asked
hidden "\r"
|"\n"
> 30 91  CHECK 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 82
do refused

# typed password: backspace takes back the last character
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-2\x081\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: delete takes back the last character, too
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-2\x7F1\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: backspace at an empty password rings the bell
$ cfgtool -d deluser -v bob
do asked
hidden "\x08Sesame-1\r"
|"\a\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: delete at an empty password rings the bell
$ cfgtool -d deluser -v bob
do asked
hidden "\x7FSesame-1\r"
|"\a\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: every erase more than there are characters rings
$ cfgtool -d deluser -v bob
do asked
hidden "xy\x08\x7F\x08\x7FSesame-1\r"
|"\a\a\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: an erase makes room behind twenty characters
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1 opens doorsX\x08!\r"
|"\a\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 20 6F 70 65 6E 73 20 64 6F 6F 72 21  < 82
secret "Sesame-1 opens door!"
do refused

# typed password: what was taken back is gone as well
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-12345\x08\x08\x08\x08Z\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 5A 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1Z"
secret "Sesame-12345"
do refused

# typed password: all taken back is an empty password
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\x08\x08\x08\x08\x08\x08\x08\x08\r"
|"\n"
> 30 91  CHECK 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: codes 26 to 45 are characters, those of Ctrl-Z to Ctrl-_ among them
$ cfgtool -d deluser -v bob
do asked
hidden "\x1A\x1B\x1C\x1D\x1E\x1F !\"#$%&'()*+,-\r"
|"\n"
> 30 91  CHECK 1A 1B 1C 1D 1E 1F 20 21 22 23 24 25 26 27 28 29 2A 2B 2C 2D  < 82
secret "\x1A\x1B\x1C\x1D\x1E\x1F !\"#$%&'()*+,-"
do refused

# typed password: codes 46 to 65 are characters
$ cfgtool -d deluser -v bob
do asked
hidden "./0123456789:;<=>?@A\r"
|"\n"
> 30 91  CHECK 2E 2F 30 31 32 33 34 35 36 37 38 39 3A 3B 3C 3D 3E 3F 40 41  < 82
secret "./0123456789:;<=>?@A"
do refused

# typed password: codes 66 to 85 are characters
$ cfgtool -d deluser -v bob
do asked
hidden "BCDEFGHIJKLMNOPQRSTU\r"
|"\n"
> 30 91  CHECK 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50 51 52 53 54 55  < 82
secret "BCDEFGHIJKLMNOPQRSTU"
do refused

# typed password: codes 86 to 105 are characters
$ cfgtool -d deluser -v bob
do asked
hidden "VWXYZ[\\]^_`abcdefghi\r"
|"\n"
> 30 91  CHECK 56 57 58 59 5A 5B 5C 5D 5E 5F 60 61 62 63 64 65 66 67 68 69  < 82
secret "VWXYZ[\\]^_`abcdefghi"
do refused

# typed password: codes 106 to 125 are characters
$ cfgtool -d deluser -v bob
do asked
hidden "jklmnopqrstuvwxyz\x7B|\x7D\r"
|"\n"
> 30 91  CHECK 6A 6B 6C 6D 6E 6F 70 71 72 73 74 75 76 77 78 79 7A 7B 7C 7D  < 82
secret "jklmnopqrstuvwxyz\x7B|\x7D"
do refused

# typed password: code 126 is the last character
$ cfgtool -d deluser -v bob
do asked
hidden "~~~~~~~~\r"
|"\n"
> 30 91  CHECK 7E 7E 7E 7E 7E 7E 7E 7E 00 00 00 00 00 00 00 00 00 00 00 00  < 82
do refused

# typed password: a line feed ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\n"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: Ctrl-C ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\x03"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: Ctrl-D ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\x04"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: Tab ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\t"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: code 0 ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\x00"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: code 25, the last below the characters, ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\x19"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: code 128, the first above them, ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\x80"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: code 255 ends it as Enter does
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\xFF"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: what is typed behind the end is not looked at
$ cfgtool -d deluser -v bob
do asked
hidden "Sesame-1\rmore"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
secret "Sesame-1"
do refused

# typed password: an input that is no terminal gives none, and the rest of the line is the command's
$ cfgtool -d deluser -v bob
do asked
do not typed

# typed password: a closed standard input gives none
$ cfgtool -d deluser -v bob
closed 0
do asked
do not typed

# typed password: the prompt shows at once where lines are held back
$ cfgtool -d deluser -v bob
screen file
do asked
hidden "Sesame-1\r"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 82
log 1 User "Delete user fail,EvtCode:0x111005A1"
|"\n"
refuse 30910082| Incorrect password.

# typed password: each key is read in a mode of its own, and the terminal is at last as it was
$ cfgtool -d deluser -v bob
modes shown
do users
mode hidden
hidden|"Input your password:"
hidden "ab\r"
mode raw
mode hidden
mode raw
mode hidden
mode raw
mode hidden
|"\n"
mode shown
> 30 91  CHECK 61 62 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  < 82
do refused

# typed password: a terminal whose mode cannot be read gives none
$ cfgtool -d deluser -v bob
result tcgetattr -1
result tcgetattr -1
do asked
keys ""
do not typed

# typed password: a terminal that cannot be made to hide it gives none
$ cfgtool -d deluser -v bob
result tcsetattr -1
do asked
keys ""
do not typed

# typed password: a terminal that cannot be put in raw mode gives none
$ cfgtool -d deluser -v bob
result tcsetattr 0
result tcsetattr -1
do asked
keys ""
do not typed

# typed password: a key after which the terminal cannot be put back is none, and those before it are forgotten
$ cfgtool -d deluser -v bob
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr -1
do asked
secret "Sesame-1"
hidden "Sesame-12"
do not typed

# typed password: two that differ are not confused, though both are typed into the same place; both are forgotten
$ cfgtool -d password -v admin
do asked
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 00
secret "Sesame-1"
do users
secret "Foxglove 2"
secret "Bluebell 3"
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Bluebell 3\r"
|"\n"
refuse| Confirm password error.
log 1 User "Modify user(admin|user2) password fail,EvtCode:0x11100581"

# typed password: one that was typed twice is sent once and forgotten at the answer
$ cfgtool -d password -v admin
do asked
hidden "Sesame-1\r"
|"\n"
> 30 91  CHECK 53 65 73 61 6D 65 2D 31 00 00 00 00 00 00 00 00 00 00 00 00  < 00
secret "Sesame-1"
do users
hidden|"New password:"
hidden "Foxglove 2\r"
|"\n"
hidden|"Confirm password:"
hidden "Foxglove 2\r"
|"\n"
> 06 47  82 02 46 6F 78 67 6C 6F 76 65 20 32 00 00 00 00 00 00 00 00 00 00  < 00
secret "Foxglove 2"
done|"\nSet user password successfully.\r\n"
log 1 User "Modify user(admin|user2) password success,EvtCode:0x11100580"
