#include "tests/platform/fake_devices.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <fcntl.h>
#include <linux/gpio.h>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <mtd/mtd-user.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

fake_devices fake;
fake_machine machine;

static bool is_file(int fd, const std::string &path)
{
    struct stat opened, named;
    return !path.empty() && fstat(fd, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

static int transfer(const i2c_rdwr_ioctl_data &both)
{
    ++fake.i2c_transfers;
    const i2c_msg &written = both.msgs[0], &read = both.msgs[1];
    fake.i2c_chip = written.addr;
    const size_t offset = size_t(written.buf[0] << 8 | written.buf[1]);
    if (written.addr != 0x50 || read.addr != 0x50 || both.nmsgs != 2 || written.flags != 0 || read.flags != I2C_M_RD ||
        written.len != 2 || offset + read.len > fake.i2c_memory.size()) {
        errno = ENXIO;
        return -1;
    }
    memcpy(read.buf, fake.i2c_memory.data() + offset, read.len);
    return fake.i2c_messages_done;
}

static int tell_about(int fd, mtd_info_user *about)
{
    struct stat opened {
    };
    fstat(fd, &opened);
    *about = {};
    about->type = MTD_NORFLASH;
    about->flags = MTD_CAP_NORFLASH;
    about->size = fake.mtd_size != 0 ? fake.mtd_size : unsigned(opened.st_size);
    about->erasesize = fake.erase_size;
    about->writesize = 1;
    return 0;
}

static int erase(int fd, const erase_info_user &range)
{
    if (fake.erase_fails || fake.is_locked || range.start % fake.erase_size != 0 ||
        range.length % fake.erase_size != 0) {
        errno = EIO;
        return -1;
    }
    ++fake.erase_calls;
    fake.erased += int(range.length / fake.erase_size);
    const std::string blank(range.length, '\xFF');
    return pwrite(fd, blank.data(), blank.size(), range.start) == ssize_t(blank.size()) ? 0 : -1;
}

static int unlock(int fd, const erase_info_user &range)
{
    mtd_info_user about;
    tell_about(fd, &about);
    if (!fake.is_locked || (!fake.part_can_be_unlocked && range.length != about.size)) {
        errno = fake.is_locked ? EINVAL : EOPNOTSUPP;
        return -1;
    }
    fake.is_locked = false;
    return 0;
}

static int flash_request(int fd, unsigned long request, void *argument)
{
    if (request == MEMGETINFO)
        return tell_about(fd, static_cast<mtd_info_user *>(argument));
    if (request == MEMERASE)
        return erase(fd, *static_cast<erase_info_user *>(argument));
    if (request == MEMUNLOCK)
        return unlock(fd, *static_cast<erase_info_user *>(argument));
    errno = EOPNOTSUPP;
    return -1;
}

// One line is held at a time; what it is, the request said.
static unsigned gpio_line;
static bool gpio_is_active_low;

static bool is_gpio_held()
{
    for (int fd = 3; fd < 64; ++fd) {
        if (is_file(fd, fake.gpio_line_path))
            return true;
    }
    return false;
}

static void set_level(int value)
{
    if (!fake.gpio_is_stuck)
        fake.levels[gpio_line] = gpio_is_active_low ? 1 - value : value;
    fake.when_gpio_is_set(value);
}

static int request_line(gpio_v2_line_request &request)
{
    const gpio_v2_line_config &config = request.config;
    if (is_gpio_held()) {
        errno = EBUSY;
        return -1;
    }
    if (request.num_lines != 1 || request.offsets[0] >= 32 || (config.flags & GPIO_V2_LINE_FLAG_OUTPUT) == 0 ||
        config.num_attrs != 1 || config.attrs[0].attr.id != GPIO_V2_LINE_ATTR_ID_OUTPUT_VALUES ||
        config.attrs[0].mask != 1) {
        errno = EINVAL;
        return -1;
    }
    gpio_line = request.offsets[0];
    gpio_is_active_low = (config.flags & GPIO_V2_LINE_FLAG_ACTIVE_LOW) != 0;
    set_level(int(config.attrs[0].attr.values));
    request.fd = openat(AT_FDCWD, fake.gpio_line_path.c_str(), O_RDWR | O_CLOEXEC);
    return request.fd >= 0 ? 0 : -1;
}

static int line_request(unsigned long request, gpio_v2_line_values &values)
{
    if (request == GPIO_V2_LINE_SET_VALUES_IOCTL && values.mask == 1)
        set_level(int(values.bits));
    else if (request == GPIO_V2_LINE_GET_VALUES_IOCTL && values.mask == 1)
        values.bits = unsigned(gpio_is_active_low ? 1 - fake.levels[gpio_line] : fake.levels[gpio_line]);
    else
        errno = EINVAL;
    return values.mask == 1 ? 0 : -1;
}

static constexpr char board_file[] = "/data/linux-board.conf", operation_log[] = "/data/log/operation.log";

static std::string path_of(const sockaddr *address) { return reinterpret_cast<const sockaddr_un *>(address)->sun_path; }

extern "C" {

[[gnu::visibility("default")]] int open(const char *path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const auto mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    if (!fake.i2c_path.empty() && strcmp(path, "/dev/i2c-2") == 0)
        path = fake.i2c_path.c_str();
    if (!fake.mtd_path.empty() && strcmp(path, "/dev/mtd6") == 0)
        path = fake.mtd_path.c_str();
    if (!fake.gpio_path.empty() && strcmp(path, "/dev/gpiochip3") == 0)
        path = fake.gpio_path.c_str();
    if (strcmp(path, board_file) == 0)
        path = fake.board_file.c_str();
    if (strcmp(path, operation_log) == 0)
        path = machine.operation_log.c_str();
    return openat(AT_FDCWD, path, flags, mode);
}

/// What a call of open() without a mode becomes where the compiler checks buffers and arguments.
[[gnu::visibility("default")]] int __open_2(const char *path, int flags);
int __open_2(const char *path, int flags) { return open(path, flags); }

[[gnu::visibility("default")]] int access(const char *path, int mode) noexcept
{
    return faccessat(AT_FDCWD, strcmp(path, board_file) == 0 ? fake.board_file.c_str() : path, mode, 0);
}

[[gnu::visibility("default")]] int getresuid(uid_t *real, uid_t *effective, uid_t *saved) noexcept
{
    if (!machine.user)
        return int(syscall(SYS_getresuid, real, effective, saved));
    *real = *effective = *saved = *machine.user;
    return 0;
}

[[gnu::visibility("default")]] int fstat(int fd, struct stat *about) noexcept
{
    const int done = fstatat(fd, "", about, AT_EMPTY_PATH);
    if (done == 0 && machine.file_owner)
        about->st_uid = *machine.file_owner;
    return done;
}

[[gnu::visibility("default")]] int connect(int, const sockaddr *to, socklen_t)
{
    machine.reached = path_of(to);
    errno = ENOENT;
    return -1;
}

[[gnu::visibility("default")]] ssize_t sendto(int, const void *bytes, size_t count, int, const sockaddr *to, socklen_t)
{
    machine.reached = path_of(to);
    machine.to_system_log.emplace_back(static_cast<const char *>(bytes), count);
    return ssize_t(count);
}

[[gnu::visibility("default")]] int ioctl(int fd, unsigned long request, ...) noexcept
{
    va_list more;
    va_start(more, request);
    void *argument = va_arg(more, void *);
    va_end(more);
    if (request == I2C_RDWR && is_file(fd, fake.i2c_path))
        return transfer(*static_cast<i2c_rdwr_ioctl_data *>(argument));
    if (is_file(fd, fake.mtd_path))
        return flash_request(fd, request, argument);
    if (request == GPIO_V2_GET_LINE_IOCTL && is_file(fd, fake.gpio_path))
        return request_line(*static_cast<gpio_v2_line_request *>(argument));
    if (is_file(fd, fake.gpio_line_path))
        return line_request(request, *static_cast<gpio_v2_line_values *>(argument));
    return int(syscall(SYS_ioctl, fd, request, argument));
}
}

/// What the flash holds is changed by write(); a byte that is stuck spoils it.
extern "C" [[gnu::visibility("default")]] ssize_t write(int fd, const void *bytes, size_t count)
{
    const off_t start = lseek(fd, 0, SEEK_CUR);
    const ssize_t done = syscall(SYS_write, fd, bytes, count);
    if (fake.stuck_byte >= start && fake.stuck_byte < start + done && is_file(fd, fake.mtd_path)) {
        const char stuck = 0x55;
        if (pwrite(fd, &stuck, 1, fake.stuck_byte) != 1)
            return -1;
    }
    return done;
}
