/// What every handler returns to a caller without the privilege, which no command line shows.
#include "cli/registry.h"
#include "tests/unit/platform_stub.h"

#include <gtest/gtest.h>

TEST(every_command, returns_0_to_a_caller_without_the_privilege)
{
    for (const command_entry *table :
         {top_level_dataitems, fru0_dataitems, led_dataitems, eth0_dataitems, sensor_dataitems, trap_dataitems,
          service_dataitems, user_dataitems, maintenance_dataitems, eth1_dataitems, smbios_dataitems})
        for (const command_entry *row = table; row->name != nullptr; ++row) {
            SCOPED_TRACE(row->name);
            reset_stub();
            stub.account = 502;
            stub.answer_all = {0x00, 0x11, 0x04, 0x01, 0x12};  // a user of the lowest level
            char *words[] = {nullptr};
            printed([&] { EXPECT_EQ(row->handler({row->level(), 0, words, nullptr}), 0); });
        }
}
