# a request and its answer, byte by byte
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4          # 40 = -(00+C0); B4 = -(63+00+91+D9+7E+00+01+00)
recv 11 63 C4 D9 00 00 91 00 D9 7E 00 18
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# a request without data is seven bytes long
$ cfgtool -d identify
send 00 00 00 63 00 04 99                         # 99 = -(63+00+04)
recv 7 63 04 99 00 00 04 00
log 2 LED "Set chassis identify(temporary on 15 seconds) success,EvtCode:0x21A011E0"
done| Identify UID led successfully.

# neither the answer's checksums nor its first byte nor its LUN bits are looked at
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 10 FF C7 11 00 03 91 00 D9 7E 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# five sends that fail: four pauses, 0x40000000
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4 -> -1
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4 -> 1
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4 -> -1
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4 -> -1
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4 -> -1
fail| Set fan mode failed, error code: 0x40000000

# five receives that find nothing: no pause at all, 0x40000001
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv none
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv none
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv none
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv none
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv none
|"Select OutTime \r\n"
fail| Set fan mode failed, error code: 0x40000001

# the fifth attempt may succeed, whatever the four before it came to
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < unsent, silent, sequence, netfn, 00 D9 7E 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# what the fifth attempt comes to is what is told
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < silent, silent, silent, silent, unsent
fail| Set fan mode failed, error code: 0x40000000

# all requests of a run have numbers of their own
$ cfgtool -d fanlevel -v 60
send 00 B0 50 63 00 15 00 00 3C 4C                # 4C = -(63+00+15+00+00+3C)
recv 8 63 B4 E9 00 00 15 00 00
done| Set fan level successfully.
send 00 C0 40 63 04 91 D9 7E 00 02 AF
recv 10 63 C4 D9 00 04 91 00 D9 7E 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# a late answer to an earlier request costs an attempt
$ cfgtool -d fanlevel -v 60
send 00 B0 50 63 00 15 00 00 3C 4C
recv 8 63 B4 E9 00 00 15 00 00
done| Set fan level successfully.
send 00 C0 40 63 04 91 D9 7E 00 02 AF
recv 8 63 B4 E9 00 00 15 00 00
sleep 50000
send 00 C0 40 63 04 91 D9 7E 00 02 AF
recv 10 63 C4 D9 00 04 91 00 D9 7E 00
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# nothing of a longer answer that was another's is read behind a short one
$ cfgtool -d fanlevel -v 60
> 2C 15  00 00 3C       < 00 00
done| Set fan level successfully.
send 00 C0 40 63 04 91 D9 7E 00 02 AF
recv 16 63 C4 D9 00 08 91 C1 D9 7E 00 01 1E 00 00 00 01
sleep 50000
send 00 C0 40 63 04 91 D9 7E 00 02 AF
recv 6 63 C4 D9 00 04 91
|"Current Mode:        Auto \r\n"
log 2 Fan "Set fan level(60) success,EvtCode:0x20E004F0"

# five answers with another netfn: 0x40000002
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < netfn
fail| Set fan mode failed, error code: 0x40000002

# five answers with another command: 0x40000002
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < command
fail| Set fan mode failed, error code: 0x40000002

# five answers with another address: 0x40000002
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < address
fail| Set fan mode failed, error code: 0x40000002

# five answers with another sequence: 0x40000002
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < sequence
fail| Set fan mode failed, error code: 0x40000002

# a length of 0, although the header fits: 0x40000001
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < length 0
|"rsp->data_len err(0x0) \r\n"
fail| Set fan mode failed, error code: 0x40000001

# a length of 1025, although the header fits: 0x40000001
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < length 1025
|"rsp->data_len err(0x401) \r\n"
fail| Set fan mode failed, error code: 0x40000001

# a length of 65535, although the header fits: 0x40000001
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < length 65535
|"rsp->data_len err(0xffff) \r\n"
fail| Set fan mode failed, error code: 0x40000001

# a length of 1024 is the longest
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < length 1024
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# the bad length of an answer that is another's does not matter
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 0 63 C4 D9 00 04 91 00
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 7 63 C4 D9 00 00 91 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# the fifth wait finds nothing: no answer, whatever the four before it came to
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < unsent, netfn, unsent, sequence, silent
|"Select OutTime \r\n"
fail| Set fan mode failed, error code: 0x40000001

# the fifth answer is another's: no match, whatever the four before it came to
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < silent, silent, unsent, silent, address
fail| Set fan mode failed, error code: 0x40000002

# a bad length ends the exchange at any attempt
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < unsent, length 0
|"rsp->data_len err(0x0) \r\n"
fail| Set fan mode failed, error code: 0x40000001

# a length of 1 is the shortest
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < length 1
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# a refusal is one whatever the length: its code is read even where the length ends before it
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < C1 length 6
fail| Set fan mode failed, error code: 0x309100C1

# a refusal is one with the shortest length too
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < C1 length 1
fail| Set fan mode failed, error code: 0x309100C1

# the completion code of an answer to another request is not taken for a short answer's
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 8 63 C4 D9 00 04 91 C1 00
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 6 63 C4 D9 00 00 91
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# the answer to an earlier attempt is as good as one to the last
$ cfgtool -d fanmode -v 0
> 30 91  D9 7E 00 01 00 < silent, silent, 00 D9 7E 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# one pause after each answer that is another's
$ cfgtool -d fanmode -v 0
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 7 63 C0 DD 00 00 91 00                       # netfn of a request
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 7 63 C4 D9 00 00 90 00                       # command
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 7 63 C4 D9 20 00 91 00                       # address
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 7 63 C4 D9 00 FC 91 00                       # sequence number
sleep 50000
send 00 C0 40 63 00 91 D9 7E 00 01 00 B4
recv 7 63 C4 D9 00 00 91 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"

# the privilege gate's request counts: the command's has sequence number 1
uid 503
$ cfgtool -d fanmode -v 0
send 00 18 E8 63 00 44 01 03 55                   # 55 = -(63+00+44+01+03)
recv 11 63 1C 81 00 00 44 00 0A 05 01 04
send 00 C0 40 63 04 91 D9 7E 00 01 00 B0          # B0 = -(63+04+91+D9+7E+00+01+00)
recv 7 63 C4 D9 00 04 91 00
done| Set fan mode successfully.
| Current Mode:       Auto
log 2 Fan "Set fan mode(auto) success,EvtCode:0x20E004D0"
