/// What the library as it is delivered lets its caller choose: everything when that is root, nothing otherwise.
#include "platform/platform.h"
#include "tests/platform/fake_devices.h"
#include "tests/platform/test_folder.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace
{

constexpr unsigned root = 0, administrator = 502;

class delivered : public test_folder
{
protected:
    delivered()
    {
        machine = {};
        machine.operation_log = path("operation.log");
    }
    ~delivered() override
    {
        machine = {};
        fake = {};
    }
    static int log_text(const char *text) { return vos_zentro_log(2, "admin", "console", "Fan", text); }
    std::string log() const { return contents(path("operation.log")); }

    const std::string sent = "<85>zentro: 2\tadmin\tconsole\tFan\tchange";
};

TEST_F(delivered, an_administrators_change_is_in_the_systems_log)
{
    machine.user = administrator;
    const variable no_log("ZENTRO_OPLOG", "/dev/null"), no_system_log("ZENTRO_SYSLOG", "");
    EXPECT_EQ(log_text("change"), 0);
    EXPECT_EQ(machine.to_system_log, std::vector{sent});
    EXPECT_EQ(machine.reached, "/dev/log");
}

TEST_F(delivered, an_administrator_makes_no_log_file)
{
    machine.user = administrator;
    EXPECT_EQ(log_text("change"), 0);
    EXPECT_FALSE(fs::exists(path("operation.log"))) << "it would be his to empty";
    write("operation.log", "");
    machine.file_owner = root;
    EXPECT_EQ(log_text("change"), 0);
    EXPECT_NE(log().find("change"), std::string::npos) << "where the board lets him write root's";
    EXPECT_EQ(machine.to_system_log, (std::vector{sent, sent}));
}

TEST_F(delivered, the_log_file_is_roots)
{
    machine.user = root;
    machine.file_owner = root;
    EXPECT_EQ(log_text("change"), 0);
    EXPECT_NE(log().find("change"), std::string::npos);
    EXPECT_EQ(machine.to_system_log, std::vector{sent});

    fs::remove(path("operation.log"));
    machine.file_owner = administrator;
    EXPECT_EQ(log_text("change"), 0) << "it is in the system's log";
    EXPECT_EQ(log(), "");
    EXPECT_EQ(machine.to_system_log.back(),
              "<84>zentro: /data/log/operation.log: not written: it does not belong to root");
}

TEST_F(delivered, root_chooses_where_records_go)
{
    machine.user = root;
    machine.file_owner = root;
    const variable own_log("ZENTRO_OPLOG", path("own")), own_system_log("ZENTRO_SYSLOG", path("socket"));
    EXPECT_EQ(log_text("change"), 0);
    EXPECT_NE(contents(path("own")).find("change"), std::string::npos);
    EXPECT_EQ(log(), "");
    EXPECT_EQ(machine.reached, path("socket"));
}

TEST_F(delivered, only_root_chooses_the_service)
{
    const variable elsewhere("ZENTRO_IPC_DIR", folder);
    for (const auto &[user, reached] :
         {std::pair{administrator, std::string("/run/zentro/2001")}, {root, path("2001")}}) {
        machine.user = user;
        ASSERT_EQ(ipc_no_listen_init(0), 0);
        EXPECT_EQ(ipc_msg_send("x", 1, 0, 2001), -1);
        EXPECT_EQ(machine.reached, reached);
        ipc_exit();
    }
}

TEST_F(delivered, only_root_chooses_the_board_file)
{
    const variable own_board("ZENTRO_BOARD_FILE", write("board", "bios_print_flag = " + write("flag", "0\n")));
    machine.user = administrator;
    EXPECT_EQ(set_bios_print_flag(1), -10);
    EXPECT_EQ(contents(path("flag")), "0\n");
    machine.user = root;
    EXPECT_EQ(set_bios_print_flag(1), 0);
    EXPECT_EQ(contents(path("flag")), "1\n");
}

TEST_F(delivered, only_root_chooses_the_disk)
{
    fs::create_directory(path("data"));
    write("data/cli.conf", "[FAN_PROPERTITY]\n");
    const variable own_disk("ZENTRO_DISK", folder);
    machine.user = administrator;
    if (!fs::exists("/data/cli.conf")) {
        EXPECT_EQ(CfgFileOpenReadOnly("/data/cli.conf"), nullptr);
    }
    machine.user = root;
    void *const file = CfgFileOpenReadOnly("/data/cli.conf");
    EXPECT_NE(file, nullptr);
    CfgFileClose(file);
}

}  // namespace
