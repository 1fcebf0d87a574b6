/// The operation log: one line a record,
///
///     2026-11-21T06:23:35Z <TAB> class <TAB> user <TAB> origin <TAB> module <TAB> record
///
/// sent to the system's log, which has a time of its own, and then appended to a file for people to read:
/// /data/log/operation.log, or what ZENTRO_OPLOG names. The system's log is the record: a caller who is not root leaves
/// one there and cannot take it back. The file is root's, and only root's runs need to be able to write it.
///
/// Whatever is not a printable ASCII character, and every backslash, is written as \xNN, so a tab is always a separator
/// and a line always a record. A field that is too long ends in "\...", and so does a line that was cut off by a full
/// disk or a power failure once the next record is written.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"
#include "platform/linux/system_log.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

static constexpr char default_log[] = "/data/log/operation.log";
static constexpr size_t identity_limit = 256, record_limit = 2048;  // as written, mark included
static constexpr unsigned lock_attempts = 20, lock_pause_us = 10000;

// The fields --------------------------------------------------------------------------------------------------------

static void add_digits(log_line &to, unsigned value, int digits)
{
    char text[10];
    for (int n = digits; n-- > 0; value /= 10)
        text[n] = char('0' + value % 10);
    to.add(text, size_t(digits));
}

/// The date is worked out here: the C library would read the time zone first, four system calls for nothing.
static void add_utc(log_line &to, int64_t seconds)
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

static void add_number(log_line &to, unsigned value)
{
    int digits = 1;
    for (unsigned rest = value / 10; rest > 0; rest /= 10)
        ++digits;
    add_digits(to, value, digits);
}

static void add_field(log_line &to, const char *text, size_t limit)
{
    to.add('\t');
    to.add_escaped(text, limit);
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

/// A file that belongs to somebody else could be emptied by him, and could hold lines that nobody's run has written.
static const char *reason_against(const struct stat &about)
{
    if (!S_ISREG(about.st_mode))
        return "not written: it is not a regular file";
    return about.st_uid != 0 && !is_simulator() ? "not written: it does not belong to root" : nullptr;
}

/// What is missing was left out on purpose, and what a caller may not write is the ordinary case.
static int open_log(const char *path)
{
    const int creating = caller_decides() ? O_CREAT : 0;
    const int fd = open(path, O_RDWR | O_APPEND | creating | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0640);
    if (fd < 0 && errno != ENOENT && errno != EACCES)
        log_warning(path, errno == ELOOP ? "not written: it is a link" : strerror(errno));
    return fd;
}

/// In one write, so that lines of several processes never mix.
static bool append(const char *path, const log_line &text)
{
    const descriptor log(open_log(path));
    if (log.fd < 0)
        return false;
    const bool locked = take_lock(log.fd);
    struct stat about;
    if (fstat(log.fd, &about) != 0)
        return false;
    if (const char *reason = reason_against(about)) {
        log_warning(path, reason);
        return false;
    }

    char whole[sizeof cut_mark + sizeof text.bytes];
    size_t used = 0;
    if (ends_within_a_line(log.fd, about.st_size)) {
        memcpy(whole, cut_mark, sizeof cut_mark - 1);
        whole[sizeof cut_mark - 1] = '\n';
        used = sizeof cut_mark;
    }
    memcpy(whole + used, text.bytes, text.used);
    used += text.used;
    const ssize_t written = write(log.fd, whole, used);
    if (written == ssize_t(used))
        return true;
    log_warning(path, "a record was not written whole");
    if (written > 0 && locked)
        take_back(log.fd, written);
    return false;
}

// The record --------------------------------------------------------------------------------------------------------

int vos_zentro_log(unsigned log_class, const char *user, const char *origin, const char *module, const char *record)
{
    if (user == nullptr || origin == nullptr || module == nullptr || record == nullptr)
        return -1;

    log_line fields;
    add_number(fields, log_class);
    add_field(fields, user, identity_limit);
    add_field(fields, origin, identity_limit);
    add_field(fields, module, identity_limit);
    add_field(fields, record, record_limit);

    log_line message;
    message.add(notice_head);
    message.add(fields.bytes, fields.used);
    const bool sent = send_to_system_log(message.bytes, message.used);

    log_line text;
    add_utc(text, time(nullptr));
    text.add('\t');
    text.add(fields.bytes, fields.used);
    text.add('\n');
    const bool copied = append(setting("ZENTRO_OPLOG", disk_path(default_log).text()), text);
    return sent || copied ? 0 : -1;
}
