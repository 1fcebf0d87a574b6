# A community is typed as a password is, but for its limit, and twice. The platform's test for blanks shows what was taken.

steps asked again
hidden|"Confirm Community:"
hidden "\r"
|"\n"
refuse| Confirm Community error.

# typed community: eight characters and Enter; a line feed alone follows
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
do asked again
secret "Tricorn8"

# typed community: eighteen characters ring no bell
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn-and-Bicorn\r"
|"\n"
call vos_check_incorrect_char "Tricorn-and-Bicorn" " "
do asked again
secret "Tricorn-and-Bicorn"

# typed community: of 21 characters the first 18 are kept, and three bells rung
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn-and-Bicorn123\r"
|"\a\a\a\n"
call vos_check_incorrect_char "Tricorn-and-Bicorn" " "
do asked again
secret "Tricorn-and-Bicorn"

# typed community: Enter at once is an empty one, and not none
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "\r"
|"\n"
usage| Usage: cfgtool -t trap -d community
usage|     Contains 1-18 characters.
usage|     Contains any digits, letters, or symbols except spaces.
usage|     You must add blackslashes (\) before the following characters: ~!@#$%^&*()-=_+{}[]\|:;'"<>?,./
usage|     For example, tes\<a\|b\>t.

# typed community: backspace and delete take back the last character, and ring where there is none
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "\x08\x7FTricornXY\x08\x7F8\r"
|"\a\a\n"
call vos_check_incorrect_char "Tricorn8" " "
do asked again
secret "Tricorn8"

# typed community: an erase makes room behind eighteen characters
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn-and-BicornX\x7F?\r"
|"\a\n"
call vos_check_incorrect_char "Tricorn-and-Bicor?" " "
do asked again
secret "Tricorn-and-Bicor?"

# typed community: code 26 is the lowest character
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "\x1A\x1B\x1C\x1D\x1E\x1F\r"
|"\n"
call vos_check_incorrect_char "\x1A\x1B\x1C\x1D\x1E\x1F" " "
do asked again

# typed community: code 126 is the highest
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "}~\r"
|"\n"
call vos_check_incorrect_char "}~" " "
do asked again

# typed community: Ctrl-C ends it as Enter does
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8\x03"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
do asked again

# typed community: code 25, below the characters, ends it
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8\x19"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
do asked again

# typed community: code 128, above the characters, ends it
$ cfgtool -t trap -d community
hidden|"New Community:"
hidden "Tricorn8\x80"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
do asked again

# typed community: an input that is no terminal gives none
$ cfgtool -t trap -d community
hidden|"New Community:"
refuse|"Usage: Input New Community error \r\n"

# typed community: a terminal that cannot be put in raw mode at the second prompt gives no second one
$ cfgtool -t trap -d community
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
result tcsetattr 0
result tcsetattr 0
result tcsetattr 0
result tcsetattr -1
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
secret "Tricorn8"
hidden|"Confirm Community:"
refuse|"Confirm Community error \r\n"

# typed community: two that differ are not confused, though both are typed into the same place; both are forgotten
$ cfgtool -t trap -d community
secret "Bandicoot"
hidden|"New Community:"
hidden "Tricorn8\r"
|"\n"
call vos_check_incorrect_char "Tricorn8" " "
secret "Tricorn8"
hidden|"Confirm Community:"
hidden "Bandicoot\r"
|"\n"
refuse| Confirm Community error.
