# areas come in the order of the document, each once, whatever the order typed
$ cfgtool-state --json clock fans
$ cfgtool-state fans --json clock fans
> 30 91  D9 7E 00 02    < 00 D9 7E 00  00 1E 00 00 00  00
> 2C 16  00 00          < 00 00 FF
> 0A 48                 < 00 00 00 00 00
> 0A 5C                 < 00 00 00
| {"format":1,"fans":{"mode":"auto","timeout_s":null,"level_percent":null},"clock":{"time":"1970-01-01T00:00:00","utc_offset_minutes":0},"unreadable":[]}

# an unknown area: nothing is asked, nothing is shown
$ cfgtool-state fans fan
calls shown
2| cfgtool-state: fan: unknown area; see cfgtool-state --help
exits 2

# names of areas are not shortened, and have no capital letters
$ cfgtool-state Fans
calls shown
2| cfgtool-state: Fans: unknown area; see cfgtool-state --help
exits 2

# in the document the event log has another name than on the command line
$ cfgtool-state event_log
calls shown
2| cfgtool-state: event_log: unknown area; see cfgtool-state --help
exits 2

# an empty word is no area
$ cfgtool-state ""
calls shown
2| cfgtool-state: : unknown area; see cfgtool-state --help
exits 2

# an unknown option
$ cfgtool-state --jsn fans
calls shown
2| cfgtool-state: --jsn: unknown option; see cfgtool-state --help
exits 2

# the help needs no controller
$ cfgtool-state --help
$ cfgtool-state fans --help
calls shown
| Usage: cfgtool-state [--json] [AREA...]
| Shows how the controller is set; it changes nothing. Without an AREA it shows all.
| Areas:
|   device     what the controller is          network    addresses of the management port
|   power      the host's power, identify LED  users      accounts and their privileges
|   boot       how the host boots              sensors    readings, thresholds and hysteresis
|   fans       mode and level                  traps      SNMP traps and where they go
|   leds       the LEDs of the panel           event-log  entries and free space
|   clock      time and its offset from UTC
| Options:
|   --json     one JSON document for programs
|   --help     this text
|   --version  the version
| Exit status: 0 all was read, 1 something was not answered (the rest is shown), 2 misused or not permitted

# the version needs none either
$ cfgtool-state --version
calls shown
| cfgtool-state 0.1.0

# a document that cannot be written
screen full
$ cfgtool-state --json power
> 00 01    < 00 21 00 50
2| cfgtool-state: standard output: No space left on device
exits 1

# a client that does not start: the rest is tried all the same
result ipc_no_listen_init -1
$ cfgtool-state --json power
> 00 01    < 00 21 00 50
2| cfgtool-state: the message client cannot be started
| {"format":1,"power":{"on":true,"identify":"timed"},"unreadable":[]}
exits 1

# closed standard descriptors are filled
closed 0 2
$ cfgtool-state --json power
> 00 01    < 00 21 00 50
| {"format":1,"power":{"on":true,"identify":"timed"},"unreadable":[]}
