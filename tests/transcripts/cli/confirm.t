# What is asked and what an answer counts as. Each command's own transcripts show what comes of it.

steps asked
confirm|"This operation will reboot IPMC system. Continue? [Y/N]:"

steps done
> 06 02  < 00
done| Resetting...
log 2 Zentro "Reset Zentro success,EvtCode:0x202001E0"

# confirmation: y goes on
$ cfgtool -d reset
do asked
keys "y\n"
do done

# confirmation: Y goes on
$ cfgtool -d reset
do asked
keys "Y\n"
do done

# confirmation: yes counts as y, only the first character is looked at
$ cfgtool -d reset
do asked
keys "yes\n"
do done

# confirmation: whatever stands behind the first character, yn goes on
$ cfgtool -d reset
do asked
keys "yn\n"
do done

# confirmation: n ends it in silence
$ cfgtool -d reset
do asked
keys "n\n"
refuse|""

# confirmation: N ends it in silence
$ cfgtool -d reset
do asked
keys "N\n"
refuse|""

# confirmation: no counts as n
$ cfgtool -d reset
do asked
keys "no\n"
refuse|""

# confirmation: ny ends it
$ cfgtool -d reset
do asked
keys "ny\n"
refuse|""

# confirmation: 1 is no answer
$ cfgtool -d reset
do asked
keys "1\n"
refuse| Input character invalid.

# confirmation: a blank in front of y makes it another character
$ cfgtool -d reset
do asked
keys " y\n"
refuse| Input character invalid.

# confirmation: Enter alone is no answer
$ cfgtool -d reset
do asked
keys "\n"
refuse| Input character invalid.

# confirmation: a carriage return is an Enter on a terminal
$ cfgtool -d reset
do asked
keys "y\r"
do done

# confirmation: Escape is no answer
$ cfgtool -d reset
do asked
keys "\x1By\n"
refuse| Input character invalid.

# confirmation: the character with the highest code is no answer
$ cfgtool -d reset
do asked
keys "\xFFy\n"
refuse| Input character invalid.

# confirmation: the end of the input, Ctrl-D on an empty line, is no answer
$ cfgtool -d reset
do asked
keys "\x04"
refuse| Input character invalid.

# confirmation: Ctrl-D behind a letter hands it over
$ cfgtool -d reset
do asked
keys "y\x04"
do done

# confirmation: Ctrl-D behind that ends the input, and nothing more is taken away
$ cfgtool -d reset
do asked
keys "yes\x04\x04"
do done

# confirmation: the terminal's line can be corrected, what counts is its first character in the end
$ cfgtool -d reset
do asked
keys "n\x7Fy\n"
do done

# confirmation: a line taken back as a whole
$ cfgtool -d reset
do asked
keys "yes\x15n\n"
refuse|""

# confirmation: an input without anything is no answer, and the prompt is shown all the same
$ cfgtool -d reset
do asked
refuse| Input character invalid.

# confirmation: a closed standard input is no answer
$ cfgtool -d reset
closed 0
do asked
refuse| Input character invalid.

# confirmation: the prompt shows at once where lines are held back
$ cfgtool -d reset
screen file
do asked
keys "n\n"
refuse|""

# confirmation: the terminal stays in the mode that it is in
$ cfgtool -d reset
modes shown
do asked
keys "y\n"
do done

# confirmation: the warning stands on a line of its own, the prompt without line end behind it
$ cfgtool -d sel -v clear
$ cfgtool -t fru0 -d sel -v clear
$ cfgtool -d clearcmos
|"WARNING: The operation may have many adverse effects\r\n"
confirm|"Do you want to continue?[Y/N]:"
keys "n\n"
refuse|""

# confirmation: an invalid answer behind a warning
$ cfgtool -d sel -v clear
$ cfgtool -d clearcmos
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"
keys "0\n"
refuse|"Input character invalid.\r\n"

# confirmation: yes behind a warning goes on
$ cfgtool -d sel -v clear
| WARNING: The operation may have many adverse effects
confirm|"Do you want to continue?[Y/N]:"
keys "Yes\n"
> 0A 42  < C1
fail| Clear SEL failed, error code: 0xA4200C1
