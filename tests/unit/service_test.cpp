/// The tables of services and what no command line reaches of them: rows that are not selectable here, the plain web
/// server's records, what the handlers return.
#include "snmp/service.h"

#include "tests/unit/conversation.h"

using records = std::vector<std::string>;

class services : public conversation
{
};

// Tables ------------------------------------------------------------------------------------------------------------

TEST(service_tables, name_every_service_and_differ_in_the_port_kind_of_the_secure_web_server)
{
    static constexpr struct {
        const char *name;
        unsigned id, selectable, port_kind_by_state, port_kind_by_port;
    } rows[] = {
        {"ftp", 1, 0, 1, 1},    {"ssh", 2, 0, 1, 1},  {"telnet", 3, 0, 1, 1}, {"kvm", 4, 0, 1, 1},
        {"vmm", 5, 0, 1, 1},    {"cim", 6, 0, 1, 1},  {"wsman", 7, 0, 1, 1},  {"snmp", 8, 0, 1, 1},
        {"webssl", 9, 1, 1, 2}, {"lan", 10, 0, 1, 1}, {"video", 11, 0, 1, 1},
    };
    const service *by_state = state_table, *by_port = port_table;
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_STREQ(by_state->name, row.name);
        ASSERT_STREQ(by_port->name, row.name);
        EXPECT_EQ(by_state->id, row.id);
        EXPECT_EQ(by_port->id, row.id);
        EXPECT_EQ(by_state->selectable, row.selectable);
        EXPECT_EQ(by_port->selectable, row.selectable);
        EXPECT_EQ(by_state++->port_kind, row.port_kind_by_state);
        EXPECT_EQ(by_port++->port_kind, row.port_kind_by_port);
    }
    EXPECT_STREQ(by_state->name, "");
    EXPECT_STREQ(by_port->name, "");
}

static constexpr service some[] = {
    {"web", 20, 1, http},  {"mail", 21, 0, http}, {"web", 22, 1, https},   {"web", 23, 0, http},
    {"news", 24, 2, http}, {"", 0, 0, 0},         {"behind", 25, 1, http},
};

TEST(service_tables, the_last_selectable_row_of_a_name_is_found) { EXPECT_EQ(find_service(some, "web"), &some[2]); }

TEST(service_tables, no_other_row_is)
{
    for (const char *name : {"mail", "news", "behind", "Web", "we", "webs", ""})
        EXPECT_EQ(find_service(some, name), nullptr) << name;
    EXPECT_EQ(find_service(some, nullptr), nullptr);
}

TEST(service_tables, only_the_secure_web_server_has_a_port_kind)
{
    EXPECT_EQ(port_kind_of("webssl"), https);
    for (const char *name : {"ftp", "ssh", "telnet", "kvm", "vmm", "cim", "wsman", "snmp", "lan", "video", "http", ""})
        EXPECT_EQ(port_kind_of(name), 0) << name;
    EXPECT_EQ(port_kind_of(nullptr), 0);
}

// Records -----------------------------------------------------------------------------------------------------------

TEST_F(services, ports_of_the_plain_web_server_have_records_of_their_own)
{
    log_port_set(http, 80);
    EXPECT_EQ(port_failed(http, 80), 0);
    EXPECT_EQ(port_failed(http, 0xFFFFFFFF), 0);
    EXPECT_EQ(logged(), (records{"2 Zentro Set Web Server HTTP service port(80) success, EvtCode:0x202001B0",
                                 "2 Zentro Set Web Server HTTP service port(80) fail, EvtCode:0x202001B1",
                                 "2 Zentro Set Web Server HTTP service port(-1) fail, EvtCode:0x202001B1"}));
}

TEST_F(services, ports_of_the_secure_one_too)
{
    log_port_set(https, 443);
    EXPECT_EQ(port_failed(https, 443), 0);
    EXPECT_EQ(logged(), (records{"2 Zentro Set Web Server HTTPS service port(443) success, EvtCode:0x202001B0",
                                 "2 Zentro Set Web Server HTTPS service port(443) fail, EvtCode:0x202001B1"}));
}

TEST_F(services, the_port_of_none_gives_a_record_without_a_text)
{
    EXPECT_EQ(port_failed(0, 22), 0);
    EXPECT_EQ(logged(), records{"2 Zentro "});
}

// What the handlers return ------------------------------------------------------------------------------------------

TEST_F(services, state_fails_only_when_refused)
{
    static constexpr char enable[] = "30 93  D9 7E 00  0F 09 01 00 00 01  41";
    for (const char *ending : {"00", "silent", "unsent"}) {
        wire(enable, ending);
        run(service_dataitems, "state", {"-v", "webssl", "enabled"}, 1);
    }
    wire(enable, "C1");
    run(service_dataitems, "state", {"-v", "webssl", "enabled"}, 0);
    run(service_dataitems, "state", {"-v", "webssl", "Enabled"}, 0);
    run(service_dataitems, "state", {}, 0);
}

TEST_F(services, port_fails_only_when_refused)
{
    static constexpr char set[] = "30 93  D9 7E 00  0F 09 02 00 00 02  02 BB 01";
    for (const char *ending : {"00", "silent", "unsent"}) {
        wire(set, ending);
        run(service_dataitems, "port", {"-v", "webssl", "443"}, 1);
    }
    wire(set, "C1");
    run(service_dataitems, "port", {"-v", "webssl", "443"}, 0);
    run(service_dataitems, "port", {"-v", "webssl", "44x"}, 0);
    run(service_dataitems, "port", {}, 0);
}
