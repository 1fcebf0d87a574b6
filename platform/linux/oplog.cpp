/// The operation log: one line a record, appended to /data/log/operation.log or to what ZENTRO_OPLOG names,
///
///     2026-11-21T06:23:35Z <TAB> class <TAB> user <TAB> origin <TAB> module <TAB> record
///
/// Whatever is no printable ASCII character, and every backslash, is written as \xNN, so a tab is always a separator
/// and a line always a record. A field that is too long ends in "\...", and so does a line that was cut off by a full
/// disk or a power failure once the next record is written.
///
/// The same fields go to the system's log, as one datagram to /dev/log (or what ZENTRO_SYSLOG names; empty = nowhere).
/// Nobody waits for it and nobody learns whether it arrived.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

static constexpr char default_log[] = "/data/log/operation.log", default_syslog[] = "/dev/log";
static constexpr char cut_mark[] = "\\...";
static constexpr size_t identity_limit = 256, record_limit = 2048;  // as written, mark included
static constexpr unsigned lock_attempts = 20, lock_pause_us = 10000;

/// A line in the making, with what the system's log wants in front of it. The limits of its fields keep it within.
struct line {
    char bytes[4096];
    size_t used = 0;

    void add(const char *text, size_t count)
    {
        memcpy(bytes + used, text, count);
        used += count;
    }
    void add(char byte) { bytes[used++] = byte; }
};

// The fields --------------------------------------------------------------------------------------------------------

static void add_digits(line &to, unsigned value, int digits)
{
    char text[10];
    for (int n = digits; n-- > 0; value /= 10)
        text[n] = char('0' + value % 10);
    to.add(text, size_t(digits));
}

/// The date is worked out here: the C library would read the time zone first, four system calls for nothing.
static void add_utc(line &to, int64_t seconds)
{
    const int64_t day = seconds / 86400;
    const auto second = unsigned(seconds % 86400);
    // Years that begin in March, counted in eras of 400 years, so that the leap day is the last of its year.
    const int64_t from_march = day + 719468;
    const auto day_of_era = unsigned(from_march % 146097);
    const unsigned year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
    const unsigned day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
    const unsigned month_from_march = (5 * day_of_year + 2) / 153;
    const unsigned month = month_from_march < 10 ? month_from_march + 3 : month_from_march - 9;
    const unsigned year = unsigned(from_march / 146097) * 400 + year_of_era + (month <= 2 ? 1 : 0);

    add_digits(to, year, 4);
    to.add('-');
    add_digits(to, month, 2);
    to.add('-');
    add_digits(to, day_of_year - (153 * month_from_march + 2) / 5 + 1, 2);
    to.add('T');
    add_digits(to, second / 3600, 2);
    to.add(':');
    add_digits(to, second / 60 % 60, 2);
    to.add(':');
    add_digits(to, second % 60, 2);
    to.add('Z');
}

static void add_number(line &to, unsigned value)
{
    int digits = 1;
    for (unsigned rest = value / 10; rest > 0; rest /= 10)
        ++digits;
    add_digits(to, value, digits);
}

static bool needs_escape(unsigned char byte) { return byte < 0x20 || byte > 0x7E || byte == '\\'; }

static void add_field(line &to, const char *text, size_t limit)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    to.add('\t');
    const size_t end = to.used + limit - (sizeof cut_mark - 1);
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (to.used + (needs_escape(byte) ? 4 : 1) > end)
            return to.add(cut_mark, sizeof cut_mark - 1);
        if (needs_escape(byte)) {
            const char escaped[] = {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
            to.add(escaped, sizeof escaped);
        } else {
            to.add(*text);
        }
    }
}

// The file ----------------------------------------------------------------------------------------------------------

/// Who holds the lock writes one line, so it is free in an instant. A process that was stopped while it held it shall
/// not stop the others: after a while they write without it, and lines stay whole all the same.
static bool take_lock(int fd)
{
    for (unsigned attempt = 0; attempt < lock_attempts; ++attempt) {
        if (flock(fd, LOCK_EX | LOCK_NB) == 0)
            return true;
        if (errno != EWOULDBLOCK && errno != EINTR)
            return false;
        vos_task_delay_us(lock_pause_us);
    }
    return false;
}

static bool ends_within_a_line(int fd, off_t size)
{
    char last = '\n';
    return size > 0 && pread(fd, &last, 1, size - 1) == 1 && last != '\n';
}

/// What could be written of a line is taken back, unless somebody has written behind it.
static void take_back(int fd, off_t count)
{
    struct stat about;
    const off_t end = lseek(fd, 0, SEEK_CUR);
    if (fstat(fd, &about) == 0 && about.st_size == end && ftruncate(fd, end - count) != 0)
        return;  // then the next record marks it as cut
}

/// In one write, so that lines of several processes never mix.
static bool append(const char *path, const char *text, size_t count)
{
    const descriptor log(
        open(path, O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0640));
    struct stat about;
    if (log.fd < 0)
        return false;
    const bool locked = take_lock(log.fd);
    if (fstat(log.fd, &about) != 0 || !S_ISREG(about.st_mode))
        return false;

    char whole[sizeof cut_mark + sizeof line::bytes];
    size_t used = 0;
    if (ends_within_a_line(log.fd, about.st_size)) {
        memcpy(whole, cut_mark, sizeof cut_mark - 1);
        whole[sizeof cut_mark - 1] = '\n';
        used = sizeof cut_mark;
    }
    memcpy(whole + used, text, count);
    used += count;
    const ssize_t written = write(log.fd, whole, used);
    if (written == ssize_t(used))
        return true;
    if (written > 0 && locked)
        take_back(log.fd, written);
    return false;
}

// The system's log --------------------------------------------------------------------------------------------------

static void tell_syslog(const char *text, size_t count)
{
    const disk_path usual(default_syslog);
    const char *path = setting("ZENTRO_SYSLOG", usual.text());
    sockaddr_un syslog{};
    syslog.sun_family = AF_UNIX;
    if (*path == '\0' || strlen(path) >= sizeof syslog.sun_path)
        return;
    memcpy(syslog.sun_path, path, strlen(path));
    const descriptor socket_(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (socket_.fd >= 0)
        (void)sendto(socket_.fd, text, count, MSG_DONTWAIT | MSG_NOSIGNAL, reinterpret_cast<sockaddr *>(&syslog),
                     sizeof syslog);
}

int vos_zentro_log(unsigned log_class, const char *user, const char *origin, const char *module, const char *record)
{
    if (user == nullptr || origin == nullptr || module == nullptr || record == nullptr)
        return -1;

    static constexpr char syslog_head[] = "<85>zentro: ";  // facility authpriv, severity notice
    static constexpr size_t time_length = sizeof "2026-11-21T06:23:35Z" - 1;
    line text;
    add_utc(text, time(nullptr));
    text.add('\t');
    add_number(text, log_class);
    add_field(text, user, identity_limit);
    add_field(text, origin, identity_limit);
    add_field(text, module, identity_limit);
    add_field(text, record, record_limit);
    text.add('\n');
    const bool written = append(setting("ZENTRO_OPLOG", disk_path(default_log).text()), text.bytes, text.used);

    // The system's log has a time of its own: its head takes the place of ours, and of the tab behind it.
    char *const message = text.bytes + time_length + 1 - (sizeof syslog_head - 1);
    memcpy(message, syslog_head, sizeof syslog_head - 1);
    tell_syslog(message, size_t(text.bytes + text.used - 1 - message));
    return written ? 0 : -1;
}
