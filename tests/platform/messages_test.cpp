#include "platform/platform.h"
#include "tests/platform/system_log.h"
#include "tests/platform/test_folder.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <optional>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace
{

using namespace std::chrono_literals;
using record = std::array<unsigned char, 1056>;
constexpr unsigned port = 2001;

/// The other side of the wire.
class service
{
public:
    explicit service(const std::string &path_) : path(path_), fd(bound_to(path)) {}
    ~service()
    {
        close(fd);
        unlink(path.c_str());
    }
    service(const service &) = delete;
    service &operator=(const service &) = delete;

    /// A new socket at the path; nobody can send to the old one any more.
    void renew()
    {
        const int fresh = bound_to(path + ".new");
        EXPECT_EQ(rename((path + ".new").c_str(), path.c_str()), 0);
        EXPECT_EQ(shutdown(fd, SHUT_RD), 0);
        EXPECT_GE(dup2(fresh, fd), 0);
        close(fresh);
    }
    int descriptor() const { return fd; }
    std::string take()
    {
        char bytes[4096];
        client_length = sizeof client;
        const ssize_t got = recvfrom(fd, bytes, sizeof bytes, 0, reinterpret_cast<sockaddr *>(&client), &client_length);
        return got < 0 ? "nothing" : std::string(bytes, size_t(got));
    }
    bool answer(const std::string &bytes) const { return send_from(fd, bytes); }
    /// Somebody else sends to the client.
    bool answer_as_another(const std::string &bytes) const
    {
        const int other = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const bool sent = send_from(other, bytes);
        close(other);
        return sent;
    }

private:
    static int bound_to(const std::string &path)
    {
        const int made = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const sockaddr_un own = address_of(path);
        EXPECT_EQ(bind(made, reinterpret_cast<const sockaddr *>(&own), sizeof own), 0) << strerror(errno);
        const timeval wait{5, 0};
        setsockopt(made, SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof wait);
        return made;
    }
    bool send_from(int from, const std::string &bytes) const
    {
        return sendto(from, bytes.data(), bytes.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr *>(&client),
                      client_length) == ssize_t(bytes.size());
    }

    std::string path;
    int fd;
    sockaddr_un client{};
    socklen_t client_length = 0;
};

int send_text(const std::string &text, unsigned to = port)
{
    return ipc_msg_send(text.data(), unsigned(text.size()), 0, to);
}

unsigned length_of(const record &received) { return received[8] + received[9] * 256U; }

std::string payload_of(const record &received)
{
    return {reinterpret_cast<const char *>(received.data()) + 32, std::min(length_of(received), 1024U)};
}

auto time_taken(const auto &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::steady_clock::now() - start;
}

class messages : public test_folder
{
protected:
    messages() : ipc_folder("ZENTRO_IPC_DIR", folder) {}
    ~messages() override { ipc_exit(); }

    void start(const std::string &timeout_ms = "100")
    {
        const variable wanted("ZENTRO_IPC_TIMEOUT_MS", timeout_ms);
        ASSERT_EQ(ipc_no_listen_init(0), 0);
    }
    std::string socket_path() const { return path("2001"); }

    variable ipc_folder;
    record received{};
};

TEST_F(messages, a_frame_goes_bare_and_its_answer_comes_behind_the_header)
{
    service other(socket_path());
    start();
    ASSERT_EQ(send_text("request"), 0);
    EXPECT_EQ(other.take(), "request");
    ASSERT_TRUE(other.answer("answer"));

    received.fill(0xEE);
    ASSERT_NE(ipc_msg_recv(received.data()), -1);
    EXPECT_EQ(payload_of(received), "answer");
    for (size_t n = 0; n < 32; ++n)
        EXPECT_EQ(received[n], n == 8 ? 6 : 0) << n;
    EXPECT_EQ(received[38], 0xEE) << "nothing is written behind the payload";
}

TEST_F(messages, without_a_service_the_client_starts_and_sends_fail_at_once)
{
    start("5000");
    const auto taken = time_taken([] {
        EXPECT_EQ(send_text("x"), -1);
        EXPECT_EQ(send_text("x"), -1);
    });
    EXPECT_LT(taken, 2s);
    const auto waited = time_taken([&] { EXPECT_EQ(ipc_msg_recv(received.data()), -1); });
    EXPECT_LT(waited, 2s) << "nobody was asked";
}

TEST_F(messages, a_service_that_comes_later_is_found)
{
    start();
    EXPECT_EQ(send_text("early"), -1);
    service other(socket_path());
    EXPECT_EQ(send_text("late"), 0);
    EXPECT_EQ(other.take(), "late");
}

TEST_F(messages, a_restarted_service_is_found_again)
{
    start();
    std::optional<service> other(std::in_place, socket_path());
    ASSERT_EQ(send_text("first"), 0);
    EXPECT_EQ(other->take(), "first");

    other.reset();
    EXPECT_EQ(send_text("gone"), -1);
    EXPECT_EQ(ipc_msg_recv(received.data()), -1);
    other.emplace(socket_path());
    ASSERT_EQ(send_text("second"), 0);
    EXPECT_EQ(other->take(), "second");

    other.reset();
    other.emplace(socket_path());
    ASSERT_EQ(send_text("third"), 0) << "restarted between two requests";
    EXPECT_EQ(other->take(), "third");
    ASSERT_TRUE(other->answer("answer"));
    ASSERT_NE(ipc_msg_recv(received.data()), -1);
    EXPECT_EQ(payload_of(received), "answer");
}

/// The service keeps the old socket open, as it does while an answer is still to come from there.
TEST_F(messages, a_service_that_reads_from_a_new_socket_only_is_found_again)
{
    start();
    service other(socket_path());
    ASSERT_EQ(send_text("first"), 0);
    EXPECT_EQ(other.take(), "first");
    const int old = dup(other.descriptor());
    other.renew();
    ASSERT_EQ(send_text("second"), 0);
    EXPECT_EQ(other.take(), "second");
    ASSERT_TRUE(other.answer("answer"));
    ASSERT_NE(ipc_msg_recv(received.data()), -1);
    EXPECT_EQ(payload_of(received), "answer");
    close(old);
}

TEST_F(messages, nobody_but_the_service_can_answer)
{
    service other(socket_path());
    start();
    ASSERT_EQ(send_text("request"), 0);
    other.take();
    EXPECT_FALSE(other.answer_as_another("planted"));
    EXPECT_EQ(ipc_msg_recv(received.data()), -1);
    ASSERT_TRUE(other.answer("genuine"));
    ASSERT_NE(ipc_msg_recv(received.data()), -1);
    EXPECT_EQ(payload_of(received), "genuine");
}

TEST_F(messages, what_is_longer_than_the_record_is_cut_and_says_its_length)
{
    service other(socket_path());
    start();
    ASSERT_EQ(send_text("request"), 0);
    other.take();
    struct {
        record bytes;
        unsigned char behind[64];
    } guarded;
    for (const size_t length : {1024U, 1025U, 1500U, 100000U}) {
        memset(&guarded, 0xEE, sizeof guarded);
        ASSERT_TRUE(other.answer(std::string(length, 'x')));
        ASSERT_NE(ipc_msg_recv(guarded.bytes.data()), -1);
        EXPECT_EQ(length_of(guarded.bytes), std::min<size_t>(length, 0xFFFF));
        EXPECT_EQ(guarded.bytes[1055], 'x');
        for (const unsigned char byte : guarded.behind)
            ASSERT_EQ(byte, 0xEE);
    }
}

TEST_F(messages, an_empty_message_is_a_message)
{
    service other(socket_path());
    start();
    ASSERT_EQ(send_text("request"), 0);
    other.take();
    ASSERT_TRUE(other.answer(""));
    ASSERT_NE(ipc_msg_recv(received.data()), -1);
    EXPECT_EQ(length_of(received), 0U);
}

TEST_F(messages, waiting_ends_with_the_timeout)
{
    service other(socket_path());
    start("200");
    ASSERT_EQ(send_text("request"), 0);
    const auto waited = time_taken([&] { EXPECT_EQ(ipc_msg_recv(received.data()), -1); });
    EXPECT_GE(waited, 150ms);
    EXPECT_LT(waited, 1500ms);
}

/// Every 20 ms, until it goes.
class signals
{
public:
    signals()
    {
        struct sigaction caught {
        };
        caught.sa_handler = [](int) {};
        sigaction(SIGALRM, &caught, nullptr);
        const itimerval often{{0, 20000}, {0, 20000}};
        setitimer(ITIMER_REAL, &often, nullptr);
    }
    ~signals()
    {
        const itimerval never{};
        setitimer(ITIMER_REAL, &never, nullptr);
    }
    signals(const signals &) = delete;
    signals &operator=(const signals &) = delete;
};

TEST_F(messages, signals_neither_end_nor_prolong_the_wait)
{
    service other(socket_path());
    start("200");
    ASSERT_EQ(send_text("request"), 0);
    const signals often;
    const auto waited = time_taken([&] { EXPECT_EQ(ipc_msg_recv(received.data()), -1); });
    EXPECT_GE(waited, 150ms);
    EXPECT_LT(waited, 1500ms);
}

TEST_F(messages, an_answer_is_found_in_spite_of_signals)
{
    service other(socket_path());
    start("5000");
    ASSERT_EQ(send_text("request"), 0);
    other.take();
    const signals often;
    std::thread later([&] {
        std::this_thread::sleep_for(150ms);
        other.answer("answer");
    });
    EXPECT_NE(ipc_msg_recv(received.data()), -1);
    later.join();
    EXPECT_EQ(payload_of(received), "answer");
}

TEST_F(messages, a_service_that_does_not_read_blocks_nobody_for_ever)
{
    service other(socket_path());
    start("100");
    int sent = 0;
    const auto taken = time_taken([&] {
        while (sent < 100000 && send_text("request") == 0)
            ++sent;
    });
    EXPECT_LT(sent, 100000);
    EXPECT_GE(taken, 80ms);
    EXPECT_LT(taken, 5s);
    EXPECT_EQ(other.take(), "request");
    EXPECT_EQ(send_text("again"), 0) << "there is room again";
}

TEST_F(messages, ports_are_told_apart)
{
    service first(socket_path()), second(path("7"));
    start();
    EXPECT_EQ(send_text("one"), 0);
    EXPECT_EQ(send_text("two", 7), 0);
    EXPECT_EQ(send_text("three"), 0);
    EXPECT_EQ(first.take(), "one");
    EXPECT_EQ(second.take(), "two");
    EXPECT_EQ(first.take(), "three");
}

TEST_F(messages, a_timeout_that_is_no_number_in_range_is_the_usual_one)
{
    service other(socket_path());
    for (const char *wrong : {"", "0", "-5", "60001", "10x", "x", "99999999999999999999"}) {
        start(wrong);
        ASSERT_EQ(send_text("request"), 0);
        other.take();
        std::thread later([&] {
            std::this_thread::sleep_for(50ms);
            other.answer("answer");
        });
        EXPECT_NE(ipc_msg_recv(received.data()), -1) << wrong;
        later.join();
    }
}

TEST_F(messages, what_makes_no_sense_is_refused)
{
    EXPECT_EQ(send_text("request"), -1) << "not started";
    EXPECT_EQ(ipc_msg_recv(received.data()), -1);
    service other(socket_path());
    start();
    EXPECT_EQ(ipc_msg_recv(received.data()), -1) << "nobody was asked";
    EXPECT_EQ(ipc_msg_send(nullptr, 3, 0, port), -1);
    EXPECT_EQ(ipc_msg_send("x", 1, 1, port), -1) << "unknown flag";
    ASSERT_EQ(send_text("request"), 0);
    EXPECT_EQ(ipc_msg_recv(nullptr), -1);
    ipc_exit();
    EXPECT_EQ(send_text("request"), -1) << "stopped";
    ipc_exit();
    const variable too_long("ZENTRO_IPC_DIR", std::string(108, 'x'));
    start();
    EXPECT_EQ(send_text("request"), -1);
}

/// In a process of its own, since a warning comes once in each.
std::string warning_when_asked(const system_log &log)
{
    const pid_t child = fork();
    if (child == 0) {
        ipc_no_listen_init(0);
        const bool refused = send_text("x") == -1 && send_text("x") == -1;
        _exit(refused ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    const std::string warning = log.next();
    return status != 0 ? "sent" : log.next() != "nothing" ? "more than one warning" : warning;
}

TEST_F(messages, a_folder_that_others_may_write_to_is_not_the_services)
{
    const std::string ipc = path("i\np\x1B");
    std::filesystem::create_directory(ipc);
    const system_log log(path("syslog"));
    const variable here("ZENTRO_IPC_DIR", ipc);
    service other(ipc + "/2001");
    for (const unsigned mode : {0777U, 01777U, 0775U, 0757U}) {
        std::filesystem::permissions(ipc, std::filesystem::perms(mode));
        EXPECT_EQ(warning_when_asked(log),
                  "<84>zentro: " + path("i\\x0Ap\\x1B") + ": not used for messages: others may write there");
    }
    for (const unsigned mode : {0755U, 0700U}) {
        std::filesystem::permissions(ipc, std::filesystem::perms(mode));
        EXPECT_EQ(warning_when_asked(log), "sent") << mode;
    }
}

TEST_F(messages, a_folder_of_a_stranger_is_not_the_services)
{
    const std::string ipc = path("ipc");
    std::filesystem::create_directory(ipc);
    service other(ipc + "/2001");
    if (chown(ipc.c_str(), 65534, 65534) != 0)
        GTEST_SKIP() << "only root may give a folder away";
    const system_log log(path("syslog"));
    const variable here("ZENTRO_IPC_DIR", ipc);
    EXPECT_EQ(warning_when_asked(log),
              "<84>zentro: " + ipc + ": not used for messages: it belongs to neither root nor the caller");
}

TEST_F(messages, nothing_is_left_open)
{
    service other(socket_path());
    const long before = entries("/proc/self/fd");
    for (int n = 0; n < 5; ++n) {
        start();
        send_text("request");
        send_text("request", 7);
        ipc_no_listen_init(0);
        ipc_exit();
    }
    EXPECT_EQ(entries("/proc/self/fd"), before);
}

}  // namespace
