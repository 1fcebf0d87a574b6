/// The program itself, from its start to its end.
#include "tests/ipmcd/process.h"

#include <sys/stat.h>

namespace ipmcd
{

// Set Fan Mode, manual for one second: 63+14+91+D9+7E+00+01+01+01 = 262, so 9E.
static const bytes manual_for_1_s = {0x00, 0xC0, 0x40, 0x63, 0x14, 0x91, 0xD9, 0x7E,
                                     0x00, 0x01, 0x01, 0x01, 0x00, 0x00, 0x00, 0x9E};

TEST_F(ipmcd_process, answers_a_request)
{
    const auto running = start();
    EXPECT_EQ(connect().ask(set_fan_level_60), level_set);
    EXPECT_EQ(ask("show fans"), "0 {\"mode\":\"manual\",\"timeout_s\":30,\"level\":60}\n");
}

TEST_F(ipmcd_process, serves_several_clients_each_its_own_answer)
{
    const auto running = start();
    client one = connect(), other = connect();
    bytes with_sequence_6 = set_fan_level_60;
    with_sequence_6[4] = 0x18;
    with_sequence_6[9] = 0x34;
    ASSERT_TRUE(one.send(set_fan_level_60));
    ASSERT_TRUE(other.send(with_sequence_6));
    EXPECT_EQ(other.receive().value_or(bytes(5))[4], 0x18);
    EXPECT_EQ(one.receive().value_or(bytes(5))[4], 0x14);
}

TEST_F(ipmcd_process, ends_cleanly_on_a_signal)
{
    for (const int number : {SIGTERM, SIGINT}) {
        const auto running = start();
        EXPECT_EQ(left_behind(), (std::set<std::string>{"2001", "2001.lock", "control", "control.lock"}));
        running->signal(number);
        EXPECT_EQ(running->end(), "");
        EXPECT_EQ(running->status, 0);
        EXPECT_TRUE(left_behind().empty());
    }
    EXPECT_EQ(content_of(errors), "");
}

TEST_F(ipmcd_process, sockets_are_open_to_whom_they_are_for)
{
    const mode_t before = umask(077);
    const auto running = start();
    umask(before);
    struct stat port {
    }, orders{};
    ASSERT_EQ(stat((ipc + "/2001").c_str(), &port), 0);
    ASSERT_EQ(stat((ipc + "/control").c_str(), &orders), 0);
    EXPECT_EQ(port.st_mode & 0777, 0666U);
    EXPECT_EQ(orders.st_mode & 0777, 0600U);
}

static mode_t mode_of(const std::string &path)
{
    struct stat about {
    };
    EXPECT_EQ(stat(path.c_str(), &about), 0) << path;
    return about.st_mode & 07777;
}

TEST_F(ipmcd_process, no_umask_opens_or_closes_what_it_makes)
{
    for (const mode_t mask : {0U, 077U}) {
        const std::string place = folder / ("umask-" + std::to_string(mask)).c_str();
        const mode_t before = umask(mask);
        const auto running = std::make_unique<process>(
            std::vector<std::string>{"--ipc-dir", place + "/a/b", "--trace=" + (folder / "trace").string()}, errors);
        EXPECT_TRUE(running->says_ready());
        umask(before);
        EXPECT_EQ(mode_of(place), 0755U);
        EXPECT_EQ(mode_of(place + "/a/b"), 0755U);
        EXPECT_EQ(mode_of(folder / "trace"), 0600U);
        std::filesystem::permissions(folder / "trace", std::filesystem::perms(0666));
    }
}

TEST_F(ipmcd_process, a_trace_that_is_not_a_file_keeps_its_mode)
{
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0640), 0);
    const descriptor reader(open((folder / "fifo").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    const auto running = start({"--trace=" + (folder / "fifo").string()});
    EXPECT_EQ(mode_of(folder / "fifo"), 0640U);
}

TEST_F(ipmcd_process, a_folder_that_others_may_write_to_is_refused)
{
    make_socket_folder(ipc);
    const std::string why = ": others may write in this folder, which is to hold sockets; it needs mode 0755\n";
    for (const mode_t mode : {0775U, 0757U, 01777U}) {
        std::filesystem::permissions(ipc, std::filesystem::perms(mode));
        const auto running = run();
        EXPECT_EQ(running->end(), "");
        EXPECT_EQ(running->status, 1);
        EXPECT_EQ(ask("show"), "2 ") << "nor is somebody else's service asked";
        EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + why + "ipmcd: " + ipc + why);
        std::filesystem::remove(errors);
        EXPECT_TRUE(left_behind().empty());
    }
}

TEST_F(ipmcd_process, the_folder_of_the_control_socket_counts_too)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
    const auto running = run({"--control", folder / "orders"});
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_TRUE(content_of(errors).starts_with("ipmcd: " + folder.path().string() + ": others may write"));
    EXPECT_TRUE(left_behind().empty());
}

TEST_F(ipmcd_process, a_folder_of_a_stranger_is_refused)
{
    make_socket_folder(ipc);
    if (chown(ipc.c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "only root may give a folder away";
    const auto running = run();
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors),
              "ipmcd: " + ipc + ": a folder for sockets has to be yours or root's, and this one is not\n");
}

TEST_F(ipmcd_process, says_ready_on_the_descriptor_it_is_given)
{
    int pipe_ends[2];
    ASSERT_EQ(pipe(pipe_ends), 0);
    const auto running = run({"--ready-fd", std::to_string(pipe_ends[1])});
    close(pipe_ends[1]);
    EXPECT_EQ(read_all(pipe_ends[0]), "ready\n");  // and the end: ipmcd closed it
    close(pipe_ends[0]);
    running->signal(SIGTERM);
    EXPECT_EQ(running->end(), "");
}

TEST_F(ipmcd_process, refuses_a_descriptor_that_is_not_open)
{
    const auto running = run({"--ready-fd", "99"});
    EXPECT_EQ(running->end(), "");
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: cannot say \"ready\": Bad file descriptor\n");
    EXPECT_TRUE(left_behind().empty());
}

TEST_F(ipmcd_process, a_second_one_is_refused_and_the_first_goes_on)
{
    const auto first = start();
    const auto second = run();
    second->end();
    EXPECT_EQ(second->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + "/2001: another ipmcd is running there\n");
    EXPECT_EQ(connect().ask(set_fan_level_60), level_set);
}

TEST_F(ipmcd_process, takes_over_what_a_dead_one_left)
{
    const auto first = start();
    first->signal(SIGKILL);
    first->end();
    EXPECT_EQ(left_behind().size(), 4U);
    const auto second = start();
    EXPECT_EQ(connect().ask(set_fan_level_60), level_set);
    EXPECT_EQ(ask("show faults"), "0 []\n");
    second->signal(SIGTERM);
    second->end();
    EXPECT_TRUE(left_behind().empty());
}

TEST_F(ipmcd_process, leaves_the_socket_of_another_program_alone)
{
    make_socket_folder(ipc);
    const descriptor other(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_un address = address_of(ipc + "/2001");
    ASSERT_EQ(bind(other.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    const auto running = run();
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + "/2001: another program is serving it\n");
    EXPECT_EQ(left_behind(), std::set<std::string>{"2001"});
}

TEST_F(ipmcd_process, leaves_what_is_no_socket_alone)
{
    make_socket_folder(ipc);
    std::ofstream(ipc + "/2001") << "precious";
    const auto running = run();
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + "/2001: there is something that is no socket\n");
    EXPECT_EQ(content_of(ipc + "/2001"), "precious");
}

TEST_F(ipmcd_process, a_lock_that_cannot_be_opened_is_an_error)
{
    std::filesystem::create_directories(ipc + "/2001.lock");
    const auto running = run();
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + "/2001.lock: Is a directory\n");
}

TEST_F(ipmcd_process, a_path_that_no_socket_can_have_is_refused)
{
    const auto running = run({"--control", (folder.path() / std::string(120, 'x')).string()});
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_NE(content_of(errors).find("a socket's path has 1 to 107 characters"), std::string::npos);
}

TEST_F(ipmcd_process, saves_its_state_at_the_end_and_loads_it_at_the_start)
{
    auto running = start({"--state", state});
    connect().ask(set_fan_level_60);
    running->signal(SIGTERM);
    running->end();
    EXPECT_EQ(running->status, 0);
    EXPECT_EQ(json::parse(content_of(state))["fans"]["level"], 60);
    running = start({"--state", state});
    EXPECT_EQ(ask("show fans"), "0 {\"mode\":\"manual\",\"timeout_s\":30,\"level\":60}\n");
}

TEST_F(ipmcd_process, has_saved_its_state_when_it_is_killed)
{
    auto running = start({"--state", state});
    connect().ask(set_fan_level_60);
    EXPECT_TRUE(eventually([this] { return content_of(state).find("\"level\": 60") != std::string::npos; }));
    running->signal(SIGKILL);
    running->end();
    running = start({"--state", state});
    EXPECT_EQ(ask("show fans"), "0 {\"mode\":\"manual\",\"timeout_s\":30,\"level\":60}\n");
    EXPECT_EQ(content_of(errors), "");
}

TEST_F(ipmcd_process, sits_on_the_board_it_is_given)
{
    const auto file = folder / "board.json";
    std::ofstream(file) << R"({"board": "mine", "records": [{"record": "other", "type": "0xC0", "body": "D9 7E 00"}]})";
    {
        const auto running = start({"--board", file});
        EXPECT_EQ(ask("show sdr"), "0 {\"board\":\"mine\",\"source\":\"repository\",\"records\":1,\"sensors\":0,"
                                   "\"largest_read\":255}\n");
    }
    const auto running = start({"--board", "short-reads"});
    EXPECT_NE(ask("show sdr").find("\"largest_read\":24"), std::string::npos);
}

TEST_F(ipmcd_process, a_board_that_cannot_be_read_is_an_error)
{
    const auto file = folder / "board.json";
    const auto running = run({"--board", file});
    EXPECT_EQ(running->end(), "");
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: board " + file.string() + ": No such file or directory\n");
    EXPECT_FALSE(std::filesystem::exists(ipc));
}

TEST_F(ipmcd_process, the_state_of_another_board_is_refused)
{
    const auto first = start({"--state", state});
    first->signal(SIGTERM);
    first->end();
    std::ofstream(folder / "board.json")
        << R"({"board": "mine", "records": [{"record": "other", "type": "0xC0", "body": ""}]})";
    const auto running = run({"--state", state, "--board", folder / "board.json"});
    EXPECT_EQ(running->end(), "");
    EXPECT_EQ(running->status, 1);
    EXPECT_NE(content_of(errors).find("board \"mine\" has no such sensor"), std::string::npos);
}

TEST_F(ipmcd_process, a_broken_state_file_is_refused_and_kept)
{
    std::ofstream(state) << "{\"ipmcd_state\": 1, \"fans\"";
    const auto running = run({"--state", state});
    EXPECT_EQ(running->end(), "");
    EXPECT_EQ(running->status, 1);
    EXPECT_TRUE(content_of(errors).starts_with("ipmcd: state file " + state.string() + ": not readable as JSON: "));
    EXPECT_EQ(content_of(state), "{\"ipmcd_state\": 1, \"fans\"");
}

TEST_F(ipmcd_process, a_state_that_cannot_be_saved_is_an_error_at_the_end)
{
    auto running = start({"--state", state});
    std::filesystem::create_directory(state);
    running->signal(SIGTERM);
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: state file " + state.string() + ": cannot be written: Is a directory\n");
    EXPECT_TRUE(left_behind().empty());
}

TEST_F(ipmcd_process, manual_fans_go_back_to_automatic_regulation)
{
    const auto running = start();
    ASSERT_TRUE(connect().ask(manual_for_1_s));
    EXPECT_TRUE(eventually([&] { return ask("show fans").find("\"auto\"") != std::string::npos; }));
}

TEST_F(ipmcd_process, a_late_answer_comes_late)
{
    const auto running = start();
    ask("fail 2C 15 late=300");
    const auto asked = steady_clock::now();
    EXPECT_EQ(connect().ask(set_fan_level_60), level_set);
    EXPECT_GE(steady_clock::now() - asked, 300ms);
}

TEST_F(ipmcd_process, other_requests_do_not_wait_for_a_late_answer)
{
    const auto running = start();
    ask("fail 2C 15 late=600000");
    client waiting = connect();
    ASSERT_TRUE(waiting.send(set_fan_level_60));
    EXPECT_EQ(connect().ask(set_fan_level_60), level_set);
    EXPECT_FALSE(waiting.receive(0ms));
    running->signal(SIGTERM);  // with the answer still to come
    running->end();
    EXPECT_EQ(running->status, 0);
}

TEST_F(ipmcd_process, an_empty_and_a_long_answer_arrive_as_ordered)
{
    const auto running = start();
    ask("fail 2C 15 bad-length");
    EXPECT_EQ(connect().ask(set_fan_level_60), bytes{});
    ask("fail 2C 15 length=4096");
    EXPECT_EQ(connect().ask(set_fan_level_60).value_or(bytes{}).size(), 4096U);
}

TEST_F(ipmcd_process, a_client_that_has_gone_does_no_harm)
{
    const auto running = start();
    ask("fail 2C 15 late=1");
    connect().send(set_fan_level_60);
    const descriptor nameless(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_un port = address_of(ipc + "/2001");
    sendto(nameless.get(), set_fan_level_60.data(), set_fan_level_60.size(), 0,
           reinterpret_cast<const sockaddr *>(&port), sizeof port);
    EXPECT_TRUE(eventually([&] { return ask("show traffic").find("\"undelivered\":2") != std::string::npos; }));
    EXPECT_EQ(connect().ask(set_fan_level_60), level_set);
}

TEST_F(ipmcd_process, traces_to_stderr_with_the_time)
{
    const auto running = start({"--trace"});
    connect().ask(set_fan_level_60);
    const std::string trace = content_of(errors);
    // "hh:mm:ss.mmm " and the line
    ASSERT_GT(trace.size(), 13U);
    EXPECT_EQ(trace[2], ':');
    EXPECT_EQ(trace[8], '.');
    EXPECT_EQ(trace.substr(12, trace.find('\n') - 12), " request 2C/15 Set Fan Level: 00 00 3C (FRU 0, 60 %)");
    EXPECT_NE(trace.find(" answer  00 done: 00\n"), std::string::npos);
}

TEST_F(ipmcd_process, appends_its_trace_to_a_file)
{
    const auto file = folder / "trace";
    std::ofstream(file) << "before\n";
    const auto running = start({"--trace=" + file.string()});
    connect().ask(set_fan_level_60);
    const std::string trace = content_of(file);
    EXPECT_TRUE(trace.starts_with("before\n"));
    EXPECT_NE(trace.find("Set Fan Level"), std::string::npos);
    EXPECT_EQ(content_of(errors), "");
}

TEST_F(ipmcd_process, a_trace_file_that_cannot_be_opened_is_an_error)
{
    const auto running = run({"--trace=" + (folder / "none/trace").string()});
    running->end();
    EXPECT_EQ(running->status, 1);
    EXPECT_EQ(content_of(errors), "ipmcd: " + (folder / "none/trace").string() + ": No such file or directory\n");
}

TEST_F(ipmcd_process, ask_tells_by_its_exit_status_how_it_went)
{
    EXPECT_EQ(ask("show"), "2 ");
    EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + "/control: No such file or directory\n");
    const auto running = start();
    EXPECT_EQ(ask("fail any any silence"), "0 {\"ok\":true}\n");
    EXPECT_EQ(ask("show wings").substr(0, 17), "1 {\"error\":\"wings");
    EXPECT_EQ(ask("show\nreset"), "1 ");
}

/// A control socket whose other end is this test.
struct ask_alone : ipmcd_process {
    ask_alone() : port((make_socket_folder(ipc), ipc + "/control"), SOCK_STREAM, 0600)
    {
        EXPECT_EQ(listen(port.get(), 1), 0);
    }
    descriptor accept_one() const
    {
        pollfd waiting{.fd = port.get(), .events = POLLIN, .revents = 0};
        EXPECT_EQ(poll(&waiting, 1, int(std::chrono::milliseconds(patience).count())), 1);
        return descriptor(accept(port.get(), nullptr, nullptr));
    }

    bound_socket port;
};

TEST_F(ask_alone, puts_an_answer_together_from_its_pieces)
{
    const auto asking = run({"--ask", "show faults"});
    const descriptor connection = accept_one();
    std::array<char, 64> question{};
    ASSERT_EQ(read(connection.get(), question.data(), question.size()), 12);
    EXPECT_EQ(std::string(question.data(), 12), "show faults\n");
    for (const std::string piece : {"{\"o", "k\":true}", "\n"})
        ASSERT_EQ(write(connection.get(), piece.data(), piece.size()), ssize_t(piece.size()));
    EXPECT_EQ(asking->end(), "{\"ok\":true}\n");
    EXPECT_EQ(asking->status, 0);
}

TEST_F(ask_alone, half_an_answer_is_none)
{
    const auto asking = run({"--ask", "show"});
    {
        const descriptor connection = accept_one();
        ASSERT_EQ(write(connection.get(), "{}", 2), 2);
    }
    EXPECT_EQ(asking->end(), "");
    EXPECT_EQ(asking->status, 2);
    EXPECT_EQ(content_of(errors), "ipmcd: " + ipc + "/control: no answer\n");
}

TEST_F(ipmcd_process, control_has_a_path_of_its_own)
{
    const std::string path = folder / "orders";
    const auto running = start({"--control", path});
    EXPECT_EQ(left_behind(), (std::set<std::string>{"2001", "2001.lock"}));
    const auto asking = run({"--control", path, "--ask", "show faults"});
    EXPECT_EQ(asking->end(), "[]\n");
}

TEST_F(ipmcd_process, a_control_connection_takes_many_lines_in_pieces)
{
    const auto running = start();
    const descriptor connection = connect_stream(ipc + "/control");
    for (const std::string piece : {"show fau", "lts\r\nshow", " fans\nnonsense \xFF\n"})
        ASSERT_EQ(write(connection.get(), piece.data(), piece.size()), ssize_t(piece.size()));
    shutdown(connection.get(), SHUT_WR);
    const std::string answers = read_all(connection.get());
    EXPECT_TRUE(answers.starts_with("[]\n{\"mode\":\"auto\",\"timeout_s\":30,\"level\":50}\n{\"error\":")) << answers;
    EXPECT_TRUE(answers.ends_with("}\n")) << answers;
}

TEST_F(ipmcd_process, leaves_files_on_the_disk_it_was_given)
{
    std::filesystem::create_directory(folder / "disk");
    const auto running = start({"--disk", folder / "disk"});
    // Save Screen Snapshot: 63+14+93+D9+7E+00+03+00+00 = 264, so 9C; the answer 14+93+00+D9+7E+00 = 1FE, so 02.
    const bytes snapshot = {0x00, 0xC0, 0x40, 0x63, 0x14, 0x93, 0xD9, 0x7E, 0x00, 0x03, 0x00, 0x00, 0x9C};
    const bytes saved = {0x63, 0xC4, 0xD9, 0x00, 0x14, 0x93, 0x00, 0xD9, 0x7E, 0x00, 0x02};
    EXPECT_EQ(connect().ask(snapshot), saved);
    EXPECT_TRUE(std::filesystem::is_regular_file(folder / "disk/tmp/screen/snapshot1.ppm"));
}

TEST_F(ipmcd_process, answers_are_ascii_whatever_was_asked)
{
    const auto running = start();
    for (const auto &[asked, shown] : {std::pair("\xFF", R"(\ufffd)"),
                                       {"\x1B[2J\x7F", R"(\u001b[2J\u007f)"},
                                       {"\xC2\x9B", R"(\u009b)"},
                                       {"\xC3\xBC", R"(\u00fc)"}}) {
        const std::string answer = ask(std::string("show ") + asked);
        EXPECT_TRUE(answer.starts_with("1 {\"error\":\"" + std::string(shown) + ": nothing of that name,")) << answer;
    }
}

TEST_F(ipmcd_process, messages_change_no_terminal)
{
    const auto running = run({"--state", "\x1B[2J\xC2\x9B\x7F\xC3\xBC/state"});
    running->end();
    EXPECT_EQ(content_of(errors), "ipmcd: state file \\x1B[2J\\xC2\\x9B\\x7F\xC3\xBC/state: nothing can be saved in "
                                  "\\x1B[2J\\xC2\\x9B\\x7F\xC3\xBC: No such file or directory\n");
}

TEST_F(ipmcd_process, a_line_without_an_end_is_cut_off)
{
    const auto running = start();
    const descriptor connection = connect_stream(ipc + "/control");
    const std::string endless(200000, 'x');
    send(connection.get(), endless.data(), endless.size(), MSG_NOSIGNAL);  // may break off in the middle
    EXPECT_EQ(read_all(connection.get()), "");
    EXPECT_EQ(ask("show faults"), "0 []\n");
}

TEST_F(ipmcd_process, a_client_that_never_reads_is_cut_off)
{
    const auto running = start();
    const descriptor connection = connect_stream(ipc + "/control");
    std::string greedy;
    for (int i = 0; i < 2000; i++)
        greedy += "show\n";
    send(connection.get(), greedy.data(), greedy.size(), MSG_NOSIGNAL);
    // Its answers are far more than the socket takes; ipmcd hangs up instead of keeping them.
    pollfd hung_up{.fd = connection.get(), .events = POLLRDHUP, .revents = 0};
    EXPECT_EQ(poll(&hung_up, 1, int(std::chrono::milliseconds(patience).count())), 1);
    EXPECT_EQ(ask("show faults"), "0 []\n");
}

TEST_F(ipmcd_process, a_control_client_that_hangs_up_does_no_harm)
{
    const auto running = start();
    {
        const descriptor connection = connect_stream(ipc + "/control");
        ASSERT_EQ(write(connection.get(), "show\nshow\n", 10), 10);
    }
    EXPECT_EQ(ask("show faults"), "0 []\n");
}

TEST_F(ipmcd_process, says_its_version)
{
    const auto running = run({"--version"});
    EXPECT_EQ(running->end(), "ipmcd " IPMCD_VERSION "\n");
    EXPECT_EQ(running->status, 0);
}

TEST_F(ipmcd_process, helps_and_refuses_what_it_does_not_know)
{
    const auto helping = run({"--help"});
    EXPECT_TRUE(helping->end().starts_with("Usage: ipmcd "));
    EXPECT_EQ(helping->status, 0);
    const auto confused = run({"--loud"});
    EXPECT_EQ(confused->end(), "");
    EXPECT_EQ(confused->status, 1);
    EXPECT_TRUE(content_of(errors).starts_with("ipmcd: --loud: unknown option\nUsage: ipmcd "));
}

}  // namespace ipmcd
