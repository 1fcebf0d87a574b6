/// Requests that read and change nothing. Commands use some of them; cfgtool-state sends no others, but for those that
/// read sensor data records (ipmi/sdr.cpp).
#pragma once

#include "ipmi/request.h"

// IPMI 2.0 ----------------------------------------------------------------------------------------------------------

inline ipmi_request get_device_id() { return ipmi_request(netfn_app, 0x01); }
inline ipmi_request get_chassis_status() { return ipmi_request(netfn_chassis, 0x01); }

/// The first set and block of a boot option.
inline ipmi_request get_boot_option(uint8_t parameter)
{
    return ipmi_request(netfn_chassis, 0x09).u8(parameter).u8(0x00).u8(0x00);
}

/// The controller maker's selectors too: their enterprise number comes with the answer. The set is 0 unless a parameter
/// has several.
inline ipmi_request get_lan_parameter(uint8_t channel, uint8_t selector, uint8_t set = 0)
{
    return ipmi_request(netfn_transport, 0x02).u8(channel).u8(selector).u8(set).u8(0x00);
}

inline ipmi_request get_user_name(uint8_t user) { return ipmi_request(netfn_app, 0x46).u8(user); }
inline ipmi_request get_user_access(uint8_t channel, uint8_t user)
{
    return ipmi_request(netfn_app, 0x44).u8(channel).u8(user);
}

inline ipmi_request get_sel_info() { return ipmi_request(netfn_storage, 0x40); }
inline ipmi_request get_sel_time() { return ipmi_request(netfn_storage, 0x48); }
inline ipmi_request get_sel_utc_offset() { return ipmi_request(netfn_storage, 0x5C); }

inline ipmi_request get_sensor_reading(uint8_t sensor) { return ipmi_request(netfn_sensor_event, 0x2D).u8(sensor); }
inline ipmi_request get_sensor_thresholds(uint8_t sensor) { return ipmi_request(netfn_sensor_event, 0x27).u8(sensor); }
constexpr uint8_t sensor_hysteresis_mask = 0xFF;  // reserved, always so
inline ipmi_request get_sensor_hysteresis(uint8_t sensor)
{
    return ipmi_request(netfn_sensor_event, 0x25).u8(sensor).u8(sensor_hysteresis_mask);
}

// PICMG 3.0: each begins with the PICMG identifier and FRU 0 --------------------------------------------------------

inline ipmi_request get_fan_level() { return ipmi_request(netfn_picmg, 0x16).u8(0x00).u8(0x00); }
inline ipmi_request get_fru_led_properties() { return ipmi_request(netfn_picmg, 0x05).u8(0x00).u8(0x00); }
inline ipmi_request get_fru_led_state(uint8_t led) { return ipmi_request(netfn_picmg, 0x08).u8(0x00).u8(0x00).u8(led); }

// The controller maker's --------------------------------------------------------------------------------------------

inline ipmi_request get_fan_mode() { return ipmi_request(netfn_oem, 0x91).oem().u8(0x02); }
inline ipmi_request get_nic_port_count() { return ipmi_request(netfn_oem, 0x16).oem(); }
