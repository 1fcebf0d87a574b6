# device: what Get Device ID answers
$ cfgtool-state --json device
> 06 01    < 00 20 83 01 05 02 87 D9 7E F0 34 12              # the maker's number has 20 bits: 07ED9
| {"format":1,"device":{"id":32,"revision":3,"firmware":"1.05","ipmi":"2.0","manufacturer":32473,"product":4660},"unreadable":["device.remote_manage_id","device.serial_direction","device.web_host"]}

# device: its table, and what no request reads
$ cfgtool-state device
> 06 01    < 00 20 01 81 10 51 87 D9 7E 01 01 00              # updating (bit 7 of the firmware), firmware 1.10, IPMI 1.5
| device
|   id            32
|   revision      1
|   firmware      1.10
|   ipmi          1.5
|   manufacturer  98009
|   product       1
|
| unreadable
|   device.remote_manage_id
|   device.serial_direction
|   device.web_host

# device: refused
$ cfgtool-state --json device
> 06 01    < FF
2| cfgtool-state: device: refused: Unspecified error (0xFF)
| {"format":1,"unreadable":["device.remote_manage_id","device.serial_direction","device.web_host"]}
exits 1

# device: no answer
$ cfgtool-state --json device
> 06 01    < unsent
2| cfgtool-state: device: no answer (0x40000000)
| {"format":1,"unreadable":["device.remote_manage_id","device.serial_direction","device.web_host"]}
exits 1

# device: an answer of ten bytes
$ cfgtool-state --json device
> 06 01    < 00 20 01 01 05 02 87 D9 7E 00 34 cut 17
2| cfgtool-state: device: the answer is too short
| {"format":1,"unreadable":["device.remote_manage_id","device.serial_direction","device.web_host"]}
exits 1
