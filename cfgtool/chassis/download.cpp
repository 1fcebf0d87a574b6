#include "chassis/download.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "ui/arguments.h"
#include "ui/console.h"

/// One kind of data.
struct collection {
    uint8_t option;
    bool followed;      // its progress is, and the rest is told by it
    const char *saved;  // where it lies
    const char *module, *success, *failure;
};
static constexpr collection collections[] = {
    {0, true, "\"sol.dat\" save to path /tmp/", "SOL", "Download SOL data success,EvtCode:0x209003D0",
     "Download SOL data fail,EvtCode:0x209003D1"},
    {1, true, "\"blackbox.tar\" save to path /tmp/", "Black box", "Download black box data success,EvtCode:0x21400970",
     "Download black box data fail,EvtCode:0x21400971"},
    {2, false, "Video data save to path /tmp/video", "KVM", "Download Video data success,EvtCode:0x20F014C0",
     "Download Video data fail,EvtCode:0x20F014C1"},
    {3, false, "Screen data save to path /tmp/screen", "KVM", "Download Screen data success,EvtCode:0x20F014D0",
     "Download Screen data fail,EvtCode:0x20F014D1"},
};
static constexpr uint8_t black_box = 1;

static ipmi_request collection_request(uint8_t option, uint8_t action)
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x1F).u8(option).u8(action);
}
static constexpr uint8_t start_action = 0x00, progress_action = 0x01, size_action = 0x02;

static ipmi_request get_black_box_enabled()
{
    return ipmi_request(netfn_oem, 0x93).oem().u8(0x10).u8(0x0C).u8(0x01).u8(0x00).u8(0x00).u8(0x01);
}

// Black box ---------------------------------------------------------------------------------------------------------

/// Whether there is a black box to collect, as far as the controller says. False = the reason is printed.
static bool black_box_has_data()
{
    const ipmi_answer enabled = exchange(get_black_box_enabled());
    if (!enabled.ok() || ipmi_reader(enabled.data).skip(4).u8() == 0)
        return refuse_because(enabled.ok() ? 0 : enabled.error_code(),
                              "Black Box function is diabled!");  // Kept: spelled so
    const ipmi_answer size = exchange(collection_request(black_box, size_action));
    if (!size.ok() || ipmi_reader(size.data).skip(4).u32le() == 0)
        return refuse_because(size.ok() ? 0 : size.error_code(), "There is no Black Box data!");
    return true;
}

// Collecting --------------------------------------------------------------------------------------------------------

static int failed(const collection &wanted, int result)
{
    save_sys_log(log_class_change, wanted.module, wanted.failure);
    return result;
}

static int collected(const collection &wanted)
{
    done("%s", wanted.saved);
    save_sys_log(log_class_change, wanted.module, wanted.success);
    return 1;
}

static constexpr char start_failure[] = "Command send failed, error code: 0x%X";

/// Kept: a failure counts as success, but for its record.
static int request_only(const collection &wanted)
{
    const ipmi_answer got = exchange(collection_request(wanted.option, start_action));
    if (got.ok())
        return collected(wanted);
    fail(start_failure, got.error_code());
    return failed(wanted, 1);
}

/// Asks twice a second how far it is, without a limit.
static int follow(const collection &wanted)
{
    static constexpr uint8_t is_done = 0, in_progress = 1;
    for (;;) {
        vos_task_delay(500);
        const ipmi_answer got = exchange(collection_request(wanted.option, progress_action));
        if (got.unanswered()) {
            fail_because(got.error_code(), "recv ipmi msg  fail, g_error_code=%d ", int(got.error_code()));
            return failed(wanted, 0);
        }
        if (!got.ok()) {
            fail_because(got.error_code(), "Get download status failed!");
            return failed(wanted, 0);
        }
        ipmi_reader fields(got.data);
        const uint8_t status = fields.skip(3).u8(), percent = fields.u8();  // behind the enterprise number
        if (status == is_done) {
            done("\r100%%,Download successfully.");
            show_now();
            return collected(wanted);
        }
        if (status != in_progress) {
            fail("Download data failed.");
            show_now();
            return failed(wanted, 0);
        }
        say_now("\r%2d%%", percent);
    }
}

static int start_and_follow(const collection &wanted)
{
    static constexpr uint8_t no_data = 0xCB, other_user = 0xC0;
    const ipmi_answer got = exchange(collection_request(wanted.option, start_action));
    if (got.refused_with(no_data)) {
        fail_because(got.error_code(), "There is no SOL data!");  // Kept: for the black box too
        return 1;
    }
    if (got.refused_with(other_user)) {
        fail_because(got.error_code(), "Other user downloading, please wait.");
        return failed(wanted, 1);
    }
    if (!got.ok()) {
        fail(start_failure, got.error_code());
        return failed(wanted, 0);
    }
    say("Downloading...");
    return follow(wanted);
}

int download(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    const int32_t option = typed.has_values(1) ? parse_number(typed.value(0)) : -1;
    if (option < 0 || option > 3)
        return usage_error("Usage: cfgtool -d download -v <option>\r\n"
                           "Options are:\r\n"
                           "    0    SOL\r\n"
                           "    1    Black Box\r\n"
                           "    2    Video\r\n"
                           "    3    Screen Pictures");
    if (option == black_box && !black_box_has_data())
        return 1;  // Kept: as if it had been collected
    const collection &wanted = collections[option];
    return wanted.followed ? start_and_follow(wanted) : request_only(wanted);
}
