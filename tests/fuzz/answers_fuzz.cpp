/// Every command against a controller that answers anything. An input is the number of a command line, the caller,
/// results of calls, keys, then answers.
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <iterator>
#include <sstream>

static constexpr const char *command_lines[] = {
    "-d fanmode -v 0",
    "-d fanmode -v 1 100",
    "-d fanlevel -v 60",
    "-d download -v 0",
    "-d download -v 1",
    "-d download -v 2",
    "-d download -v 3",
    "-d identify",
    "-d identify -v 20",
    "-d identify -v force",
    "-d bioswriteprotect -v 1",
    "-d upgrade",
    "-d upgrade -v /tmp/a-path-of-several-pieces.hpm 1",
    "-d clearcmos",
    "-d bootdevice -v 1",
    "-d reset",
    "-d shutdowntimeout -v 600",
    "-d frucontrol -v 0",
    "-d powerstate -v 0",
    "-d powerstate -v 1",
    "-d sel -v clear",
    "-d adduser -v carol",
    "-d password -v carol",
    "-d deluser -v carol",
    "-d privilege -v carol 4",
    "-d ipmctime -v 2024-02-29 12:34:56 +8",
    "-d serialdir -v 0",
    "-d printscreen",
    "-d printscreen -v wakeup",
    "-d rollback",
    "-d timezone -v +8:30",
    "-d passwordcomplexity -v enable",
    "-d remotemanageid -v rack-7",
    "-d httphost -v a-host-name-of-two-pieces.example",
    "-t fru0 -d powerstate -v 2",
    "-t led -d ledstate -v led1 blink 10 20 3",
    "-t led -d ledstate -v ledall lamptest 50 1",
    "-t eth0 -d ipaddr -v 10.1.2.3 255.255.0.0",
    "-t eth0 -d ipaddr -v dhcp",
    "-t eth0 -d gateway -v 10.1.0.1",
    "-t eth0 -d ipaddr6 -v fe80::1/64",
    "-t eth0 -d gateway6 -v fe80::2",
    "-t eth0 -d mode -v 2",
    "-t eth0 -d sideband -v port1",
    "-t eth0 -d vlan -v 100",
    "-t eth0 -d vlan -v off",
    "-t sensor -d lowercritical -v temp 10",
    "-t sensor -d uppernonrecoverable -v temp 95.5",
    "-t sensor -d positivehysteresis -v temp 2",
    "-t sensor -d test -v temp 20",
    "-t sensor -d test -v temp stop",
    "-t trap -d state -v enabled",
    "-t trap -d state -v 1 enabled",
    "-t trap -d severity -v 1",
    "-t trap -d version -v V3",
    "-t trap -d user -v carol",
    "-t trap -d auth_priv_protocol -v 1",
    "-t trap -d community",
    "-t trap -d address -v 1 10.0.0.9",
    "-t trap -d port -v 4 162",
    "-t trap -d mode -v 0",
    "-t service -d state -v webssl enabled",
    "-t service -d port -v webssl 8443",
    "-t user -d unlock -v carol",
    "-t maintenance -d readeeprom",
    "-t maintenance -d downloadbios",
    "-t maintenance -d upgradebios -v /tmp/bios.bin",
    "-t maintenance -d zntool",
    "-t maintenance -d webrestart",
    "-t maintenance -d biosprint -v 1",
};

static std::vector<std::string> words_of(const char *line)
{
    std::istringstream text(line);
    return {std::istream_iterator<std::string>(text), {}};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    const char *command_line = command_lines[input.u8() % std::size(command_lines)];
    surroundings found;
    found.user = input.flag() ? 503 : 0;
    call_results = input.text();
    found.keys = input.text();
    found.files = {
        {"/data/cli.conf", "[FAN_PROPERTY]\nFAN_MinLevel=20\n[MAC_PROPERTY]\nMAC_Num=4\nMAC_Name=eth\n"},
        {"/data/sectbl.cfg", "* * * * 1 20FF0000 Something has happened\n"},
        {"/data/share/sel/sel.bin", input.text()},
    };
    run_tool(found, words_of(command_line));
    return 0;
}
