#include "cli/registry.h"

#include "chassis/boot.h"
#include "chassis/clock.h"
#include "chassis/download.h"
#include "chassis/fan.h"
#include "chassis/firmware.h"
#include "chassis/led.h"
#include "chassis/maintenance.h"
#include "chassis/panel.h"
#include "chassis/power.h"
#include "chassis/reset.h"
#include "network/nic.h"
#include "network/port_address.h"
#include "sel/export.h"
#include "sensor/sensor.h"
#include "snmp/service.h"
#include "snmp/trap.h"
#include "snmp/trap_destination.h"
#include "user/account.h"
#include "user/settings.h"

#include <cstring>

static constexpr uint32_t command = 0x104;  // enabled, for administrators
static constexpr uint32_t target = 0x100;   // enabled

command_entry top_level_dataitems[] = {
    {"fanmode", "Set fan mode,you can choose manual or auto", command, fanmode},
    {"fanlevel", "Set fan speed percent", command, fanlevel},
    {"download", "Download SOL or Black box command", command, download},
    {"identify", "Operate identify led", command, identify},
    {"bioswriteprotect", "Enable or disable bios protect", command, bioswriteprotect},
    {"upgrade", "Upgrade component", command, upgrade},
    {"clearcmos", "Clear CMOS", command, clearcmos},
    {"bootdevice", "Set boot device", command, bootdevice},
    {"reset", "Reboot IPMC system", command, reset},
    {"shutdowntimeout", "Set graceful shutdown timeout value", command, shutdowntimeout},
    {"frucontrol", "Fru control", command, frucontrol},
    {"powerstate", "Set power state", command, powerstate},
    {"sel", "Clear SEL", command, sel},
    {"adduser", "Add user", command, adduser},
    {"password", "Modify user password", command, password},
    {"deluser", "Delete user", command, deluser},
    {"privilege", "Set user privilege", command, privilege},
    {"ipmctime", "Set ipmc system time", command, ipmctime},
    {"serialdir", "Set front panel serial direction", command, serialdir},
    {"printscreen", "Print current screen to bmc", command, printscreen},
    {"rollback", "Perform a manual rollback", command, rollback},
    {"timezone", "Set time zone", command, timezone_command},
    {"passwordcomplexity", "Set password complexity check enable state", command, passwordcomplexity},
    {"remotemanageid", "set Remote Manage ID", command, remotemanageid},  // Kept: a small "s"
    {"httphost", "Set httphost value, IP or Domain Name", command, httphost},
    {},
};

command_entry fru0_dataitems[] = {
    {"shutdowntimeout", "Set graceful shutdown timeout value", command, shutdowntimeout},
    {"frucontrol", "Control fru0", command, frucontrol},
    {"powerstate", "Set fru0 power state", command, powerstate},
    {"sel", "Clear SEL", command, sel},
    {},
};

command_entry led_dataitems[] = {
    {"ledstate", "Set led state", command, ledstate},
    {},
};

command_entry eth0_dataitems[] = {
    {"ipaddr", "Set ip address", command, on_port<ipaddr, eth0>},
    {"gateway", "Set gateway", command, on_port<gateway, eth0>},
    {"ipaddr6", "Set ipv6 address", command, on_port<ipaddr6, eth0>},
    {"gateway6", "Set ipv6 gateway", command, on_port<gateway6, eth0>},
    {"mode", "Set eth0 mode", command, eth0_mode},
    {"sideband", "Set sideband port", command, eth0_sideband},
    {"vlan", "Set sideband vlan", command, eth0_vlan},
    {},
};

command_entry sensor_dataitems[] = {
    {"negativehysteresis", "Set negative hysteresis", command, negativehysteresis},
    {"positivehysteresis", "Set positive hysteresis", command, positivehysteresis},
    {"lowernonrecoverable", "Set lower nonrecoverable", command, threshold_command<lower_nonrecoverable>},
    {"lowercritical", "Set lower critical", command, threshold_command<lower_critical>},
    {"lowernoncritical", "Set lower noncritical", command, threshold_command<lower_noncritical>},
    {"uppernonrecoverable", "Set upper nonrecoverable", command, threshold_command<upper_nonrecoverable>},
    {"uppercritical", "Set upper critical", command, threshold_command<upper_critical>},
    {"uppernoncritical", "Set upper noncritical", command, threshold_command<upper_noncritical>},
    {"test", "Sensor test", command, sensor_test},
    {},
};

command_entry trap_dataitems[] = {
    {"state", "Set trap enable state", command, trap_state},
    {"severity", "Set trap send severity", command, trap_severity},
    {"version", "Set SNMP trap version", command, trap_version},
    {"user", "Set SNMP trap user", command, trap_user},
    {"auth_priv_protocol", "Set SNMP trap auth_priv_protocol", command, trap_auth_priv_protocol},
    {"community", "Set SNMP trap community", command, trap_community},
    {"address", "Set trap address", command, trap_address},
    {"port", "Set trap port", command, trap_port},
    {"mode", "Set trap mode", command, trap_mode},
    {},
};

command_entry service_dataitems[] = {
    {"state", "Set service enable state", command, service_state},
    {"port", "Set service port", command, service_port},
    {},
};

command_entry user_dataitems[] = {
    {"unlock", "Set user unlock status", command, unlock},
    {},
};

command_entry maintenance_dataitems[] = {
    {"readeeprom", "Read eeprom data to file /tmp/eeprom.bin", command, readeeprom},
    {"downloadbios", "Download bios to /tmp/bios.bin", command, downloadbios},
    {"upgradebios", "Upgrade bios", command, upgradebios},
    {"zntool", "Collect maintenance debug info", command, zntool},
    {"webrestart", "Restart web service.", command, webrestart},
    {"biosprint", "BIOS print set.", command, biosprint},
    {},
};

command_entry eth1_dataitems[] = {
    {"ipaddr", "Set ip address", command, on_port<ipaddr, eth1>},
    {"gateway", "Set gateway", command, on_port<gateway, eth1>},
    {"ipaddr6", "Set ipv6 address", command, on_port<ipaddr6, eth1>},
    {"gateway6", "Set ipv6 gateway", command, on_port<gateway6, eth1>},
    {"state", "Set eth1 state", command, eth1_state},
    {},
};

command_entry smbios_dataitems[] = {
    {"serialnumber", "Set system serial number", command, serialnumber},
    {},
};

command_entry targets[] = {
    {"fru0", "Operate with fru0", target, nullptr},
    {"led", "Operate with led", target, nullptr},
    {"eth0", "Set eth0 ip address", target, nullptr},
    {"sensor", "Operate with sensor", target, nullptr},
    {"trap", "Operate SNMP trap", target, nullptr},
    {"service", "Operate with service", target, nullptr},
    {"user", "Operate with user", target, nullptr},
    {"maintenance", "Operate with maintenance", target, nullptr},
    {},
};

command_entry *const target_dataitems[] = {
    fru0_dataitems, led_dataitems,     eth0_dataitems, sensor_dataitems,
    trap_dataitems, service_dataitems, user_dataitems, maintenance_dataitems,
};

row_matches find_rows(const command_entry *table, const char *text, disabled_rows rule)
{
    const size_t length = strlen(text);
    row_matches found{};
    for (unsigned row = 0; table[row].name != nullptr; ++row) {
        if (rule == disabled_rows::skipped && table[row].state() == command_entry::disabled)
            continue;
        if (strncmp(table[row].name, text, length) != 0)
            continue;
        if (table[row].name[length] == '\0')  // the name itself
            return {1U << row, 1, row};
        if (found.count++ == 0)
            found.first = row;
        found.mask |= 1U << row;
    }
    return found;
}
