#include "ipmcd/ask.h"

#include "ipmcd/bound_socket.h"
#include "ipmcd/json_fields.h"
#include "ipmcd/text.h"

#include <array>
#include <cstdio>
#include <optional>
#include <sys/socket.h>
#include <sys/time.h>

namespace ipmcd
{

static constexpr int answered = 0, refused = 1, unanswered = 2;
static constexpr timeval patience{.tv_sec = 10, .tv_usec = 0};

/// The answer without its line end; none when the connection ends or is silent before it is whole.
static std::optional<std::string> receive_line(const descriptor &from)
{
    std::string line;
    std::array<char, 4096> buffer{};
    for (;;) {
        const ssize_t got = recv(from.get(), buffer.data(), buffer.size(), 0);
        if (got <= 0)
            return std::nullopt;
        line.append(buffer.data(), size_t(got));
        if (line.ends_with('\n'))
            return line.substr(0, line.size() - 1);
    }
}

static bool is_error(const std::string &answer)
{
    const json read = json::parse(answer, nullptr, false);
    return read.is_discarded() || (read.is_object() && read.contains("error"));
}

int ask(const std::filesystem::path &control, const std::string &question)
{
    if (question.find('\n') != std::string::npos) {
        report("one command at a time");
        return refused;
    }
    try {
        const descriptor server = connect_stream(control);
        setsockopt(server.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        setsockopt(server.get(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
        const std::string line = question + "\n";
        if (send(server.get(), line.data(), line.size(), MSG_NOSIGNAL) == ssize_t(line.size())) {
            if (const auto answer = receive_line(server)) {
                printf("%s\n", answer->c_str());
                return is_error(*answer) ? refused : answered;
            }
        }
        report(control.string() + ": no answer");
    } catch (const std::runtime_error &problem) {
        report(problem.what());
    }
    return unanswered;
}

}  // namespace ipmcd
