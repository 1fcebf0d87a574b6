/// The program itself, over its sockets. Each test has a folder and a process of its own.
#pragma once

#include "ipmcd/bound_socket.h"
#include "tests/ipmcd/board.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ipmcd
{

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto patience = 30s;

/// Asks again and again until it holds, for `patience` at most.
template <typename condition>
bool eventually(condition holds)
{
    const auto end = steady_clock::now() + patience;
    while (!holds()) {
        if (steady_clock::now() > end)
            return false;
        poll(nullptr, 0, 10);
    }
    return true;
}

inline std::string content_of(const std::filesystem::path &file)
{
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Reads to the end of the stream, or for `patience`.
inline std::string read_all(int fd)
{
    std::string all;
    std::array<char, 4096> buffer{};
    for (;;) {
        pollfd waiting{.fd = fd, .events = POLLIN, .revents = 0};
        if (poll(&waiting, 1, int(std::chrono::milliseconds(patience).count())) != 1)
            return all + "[timed out]";
        const ssize_t got = read(fd, buffer.data(), buffer.size());
        if (got <= 0)
            return all;
        all.append(buffer.data(), size_t(got));
    }
}

/// An ipmcd with its stdout in a pipe and its stderr in a file. Killed at the latest when this goes away.
class process
{
public:
    process(std::vector<std::string> words, const std::filesystem::path &errors, uid_t account = geteuid())
    {
        int out[2];
        if (pipe2(out, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        words.insert(words.begin(), IPMCD_BINARY);
        std::vector<char *> vector;
        for (std::string &word : words)
            vector.push_back(word.data());
        vector.push_back(nullptr);
        child = fork();
        if (child == 0) {
            const int error_file = open(errors.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
            dup2(out[1], STDOUT_FILENO);
            dup2(error_file, STDERR_FILENO);
            if (account != geteuid() && setresuid(account, account, account) != 0)
                _exit(127);
            execv(IPMCD_BINARY, vector.data());
            _exit(127);
        }
        close(out[1]);
        output = descriptor(out[0]);
    }
    ~process()
    {
        if (child > 0) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
        }
    }
    process(const process &) = delete;
    process &operator=(const process &) = delete;

    bool says_ready() const
    {
        pollfd waiting{.fd = output.get(), .events = POLLIN, .revents = 0};
        std::array<char, 16> buffer{};
        return poll(&waiting, 1, int(std::chrono::milliseconds(patience).count())) == 1 &&
               read(output.get(), buffer.data(), buffer.size()) == 6 && std::string(buffer.data(), 6) == "ready\n";
    }
    pid_t id() const { return child; }
    void signal(int number) const { kill(child, number); }
    /// What it still printed; afterwards `status` is its exit status, or minus the signal that ended it.
    std::string end()
    {
        std::string printed = read_all(output.get());
        int how = 0;
        waitpid(child, &how, 0);
        child = -1;
        status = WIFEXITED(how) ? WEXITSTATUS(how) : -WTERMSIG(how);
        return printed;
    }

    int status = -1;

private:
    pid_t child = -1;
    descriptor output;
};

inline sockaddr_un address_of(const std::filesystem::path &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

/// A client of the IPMI socket as the tool's library is one: connected, then under a name that the kernel gives it, and
/// connected again when the service has another socket.
class client
{
public:
    explicit client(const std::filesystem::path &port) : to(address_of(port)) { reach(); }
    bool send(const bytes &datagram)
    {
        for (int tries = 0; tries < 4; tries++) {
            if (::send(fd.get(), datagram.data(), datagram.size(), MSG_NOSIGNAL) == ssize_t(datagram.size()))
                return true;
            if (errno != EPIPE && errno != ECONNREFUSED && errno != ENOTCONN)
                return false;
            reach();
        }
        return false;
    }
    std::optional<bytes> receive(std::chrono::milliseconds for_at_most = patience) const
    {
        pollfd waiting{.fd = fd.get(), .events = POLLIN, .revents = 0};
        if (poll(&waiting, 1, int(for_at_most.count())) != 1)
            return std::nullopt;
        bytes datagram(8192);
        const ssize_t got = recv(fd.get(), datagram.data(), datagram.size(), 0);
        datagram.resize(got < 0 ? 0 : size_t(got));
        return datagram;
    }
    std::optional<bytes> ask(const bytes &datagram) { return send(datagram) ? receive() : std::nullopt; }

private:
    void reach()
    {
        fd = descriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
        sockaddr_un own{};
        own.sun_family = AF_UNIX;
        if (connect(fd.get(), reinterpret_cast<const sockaddr *>(&to), sizeof to) == 0 &&
            bind(fd.get(), reinterpret_cast<const sockaddr *>(&own), sizeof own.sun_family) != 0)
            throw std::runtime_error("no client address");
    }

    descriptor fd;
    sockaddr_un to;
};

struct ipmcd_process : testing::Test {
    std::vector<std::string> with_folder(std::vector<std::string> words = {}) const
    {
        words.insert(words.begin(), {"--ipc-dir", ipc});
        return words;
    }
    std::unique_ptr<process> run(const std::vector<std::string> &words = {}) const
    {
        return std::make_unique<process>(with_folder(words), errors);
    }
    std::unique_ptr<process> start(const std::vector<std::string> &words = {}) const
    {
        auto started = run(words);
        EXPECT_TRUE(started->says_ready()) << content_of(errors);
        return started;
    }
    /// ipmcd --ask: its output, with the exit status in front.
    std::string ask(const std::string &question) const
    {
        const auto asking = run({"--ask", question});
        const std::string printed = asking->end();
        return std::to_string(asking->status) + " " + printed;
    }
    client connect() const { return client(ipc + "/2001"); }
    std::set<std::string> left_behind() const { return names_in(ipc); }

    scratch_folder folder;
    std::string ipc = folder / "ipc";
    std::filesystem::path errors = folder / "errors";
    std::filesystem::path state = folder / "state.json";
};

}  // namespace ipmcd
