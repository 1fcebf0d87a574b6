#include "ipmcd/families.h"

namespace ipmcd
{

std::unique_ptr<family> make_boot(controller &);
std::unique_ptr<family> make_clock(controller &);
std::unique_ptr<family> make_device(controller &);
std::unique_ptr<family> make_download(controller &);
std::unique_ptr<family> make_fans(controller &);
std::unique_ptr<family> make_identify(controller &);
std::unique_ptr<family> make_identity(controller &);
std::unique_ptr<family> make_lan(controller &);
std::unique_ptr<family> make_leds(controller &);
std::unique_ptr<family> make_nic(controller &);
std::unique_ptr<family> make_power(controller &);
std::unique_ptr<family> make_screen(controller &);
std::unique_ptr<family> make_sdr(controller &);
std::unique_ptr<family> make_sel(controller &);
std::unique_ptr<family> make_sensors(controller &);
std::unique_ptr<family> make_serial(controller &);
std::unique_ptr<family> make_services(controller &);
std::unique_ptr<family> make_traps(controller &);
std::unique_ptr<family> make_upgrade(controller &);
std::unique_ptr<family> make_users(controller &);

std::span<const family_maker> all_families()
{
    static constexpr family_maker makers[] = {make_device, make_boot,     make_power,    make_identify, make_serial,
                                              make_screen, make_fans,     make_leds,     make_sdr,      make_sensors,
                                              make_sel,    make_clock,    make_users,    make_lan,      make_nic,
                                              make_traps,  make_services, make_identity, make_upgrade,  make_download};
    return makers;
}

}  // namespace ipmcd
