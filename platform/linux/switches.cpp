#include "platform/linux/switches.h"

#include "platform/linux/board_file.h"
#include "platform/linux/files.h"
#include "platform/linux/settings.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <linux/gpio.h>
#include <sys/ioctl.h>

/// Writes a value to a control file of the kernel and reads it back. It has to hold one already: no file is made, and
/// none grows.
static bool set_control(const char *path, char value)
{
    const descriptor control(open(disk_path(path).text(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    const char text[] = {value, '\n'};
    char now[sizeof text];
    return control.fd >= 0 && read_at(control.fd, now, sizeof now, 0) && lseek(control.fd, 0, SEEK_SET) == 0 &&
           write_whole(control.fd, text, sizeof text) && read_at(control.fd, now, sizeof now, 0) && now[0] == value;
}

/// A line of a GPIO chip. While it is requested it is an output of this process and nobody else's.
struct gpio_line {
    char chip[32];
    unsigned number;
    bool active_low;
};

static constexpr char gpio_chip[] = "/dev/gpiochip";

static bool parse_line(const char *text, gpio_line *line)
{
    char word[12] = "", more = '\0';
    const int fields = sscanf(text, "%31s %9u %11s %c", line->chip, &line->number, word, &more);
    line->active_low = strcmp(word, "active-low") == 0;
    return fields == 2 || (fields == 3 && line->active_low);
}

/// The descriptor of the line, which has the value already; -1 = failed.
static int request_line(const gpio_line &line, int value)
{
    const descriptor chip(open_device(line.chip, O_RDWR));
    gpio_v2_line_request request{};
    request.offsets[0] = line.number;
    request.num_lines = 1;
    strcpy(request.consumer, "zentro");
    request.config.flags = GPIO_V2_LINE_FLAG_OUTPUT | (line.active_low ? GPIO_V2_LINE_FLAG_ACTIVE_LOW : 0);
    request.config.num_attrs = 1;
    request.config.attrs[0].attr.id = GPIO_V2_LINE_ATTR_ID_OUTPUT_VALUES;
    request.config.attrs[0].attr.values = uint64_t(value);
    request.config.attrs[0].mask = 1;
    return chip.fd >= 0 && ioctl(chip.fd, GPIO_V2_GET_LINE_IOCTL, &request) == 0 ? request.fd : -1;
}

static bool set_line(int line, int value)
{
    const gpio_v2_line_values wanted{uint64_t(value), 1};
    gpio_v2_line_values now{0, 1};
    return ioctl(line, GPIO_V2_LINE_SET_VALUES_IOCTL, &wanted) == 0 &&
           ioctl(line, GPIO_V2_LINE_GET_VALUES_IOCTL, &now) == 0 && now.bits == wanted.bits;
}

/// The kernel keeps the value of a line for as long as somebody holds it: `held` does until the value is 0 again. What
/// becomes of a line that nobody holds is the chip's business; most keep it.
static bool set_gpio(const char *named, int value, int *held)
{
    gpio_line line;
    if (*held < 0)
        *held = parse_line(named, &line) ? request_line(line, value) : -1;
    const bool set = *held >= 0 && set_line(*held, value);
    if (*held >= 0 && (value == 0 || !set)) {
        close(*held);
        *held = -1;
    }
    return set;
}

int set_switch(const char *key, int value, int without_key, int *held)
{
    const board_file board;
    const char *control = board.named(key);
    if (control == nullptr)
        return without_key;
    if (value != 0 && value != 1)
        return -1;
    const bool is_gpio = strncmp(control, gpio_chip, strlen(gpio_chip)) == 0;
    return (is_gpio ? set_gpio(control, value, held) : set_control(control, value == 1 ? '1' : '0')) ? 0 : -1;
}
