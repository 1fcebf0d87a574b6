/* floor LOG TABLE: the least that a table of an event log can cost over the same platform library: all of its columns
 * but the sensor, of which there is the type alone. What the tool needs is put beside it by bench/sel/run. */
#include <fcntl.h>
#include <stdint.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

/* Of the platform library. */
int event_parse_init(const char *path);
int event_parse(const unsigned char *record, unsigned *severity, const char **description);
unsigned long event_get_code(const unsigned char *record);
const char *get_sensor_type_name(unsigned char type);
void vos_task_delay(unsigned milliseconds);

enum { record_size = 16, records_per_block = 4096, longest_line = 1024, block = records_per_block * record_size };
static unsigned char log_block[block];
static char table_block[block + longest_line], *next = table_block;

/* The seconds for which one date holds. */
struct day {
    int64_t begin, end;
    char date[12]; /* and two blanks */
};

static inline void put(const char *text, size_t length)
{
    memcpy(next, text, length);
    next += length;
}
static inline void put_text(const char *text)
{
    while (*text)
        *next++ = *text++;
}
static inline void put_two(unsigned value)
{
    *next++ = (char)('0' + value / 10);
    *next++ = (char)('0' + value % 10);
}

static void find_day(int64_t seconds, struct day *day)
{
    struct tm broken_down;
    time_t time = (time_t)seconds;
    localtime_r(&time, &broken_down);
    const int64_t midnight = seconds - (broken_down.tm_hour * 3600 + broken_down.tm_min * 60 + broken_down.tm_sec);
    day->begin = midnight;
    day->end = midnight + 86400;
    strftime(day->date, sizeof day->date, "%F ", &broken_down);
    day->date[11] = ' ';
}

static void put_time(const unsigned char *record, int64_t offset, struct day *day)
{
    const uint32_t stamp = record[3] | (uint32_t)record[4] << 8 | (uint32_t)record[5] << 16 | (uint32_t)record[6] << 24;
    if (record[2] >= 0xE0)
        return;
    if (stamp <= 0x1FFFFFFF) {
        put_text("Pre-Init Time-stamp");
        return;
    }
    const int64_t seconds = stamp + offset;
    if (seconds < day->begin || seconds >= day->end)
        find_day(seconds, day);
    const unsigned of_day = (unsigned)(seconds - day->begin);
    put(day->date, sizeof day->date);
    put_two(of_day / 3600);
    *next++ = ':';
    put_two(of_day / 60 % 60);
    *next++ = ':';
    put_two(of_day % 60);
}

static void put_hex(unsigned long value, int digits, const char *alphabet)
{
    while (digits-- > 0)
        *next++ = alphabet[value >> 4 * digits & 15];
}

static void put_sensor(const unsigned char *record)
{
    if (record[2] < 0xC0)
        put_text(get_sensor_type_name(record[10]));
    else if (record[2] < 0xE0)
        put_hex((unsigned long)record[7] << 16 | (unsigned long)record[8] << 8 | record[9], 6, "0123456789abcdef");
}

static void put_number(long number)
{
    char digits[20], *first = digits + sizeof digits;
    do
        *--first = (char)('0' + number % 10);
    while ((number /= 10) != 0);
    put(first, (size_t)(digits + sizeof digits - first));
}

static void put_line(long id, const unsigned char *record, struct day days[2])
{
    static const char *const severities[] = {"Ok", "Minor", "Major", "Critical"};
    unsigned severity = 0;
    const char *description = "";
    event_parse(record, &severity, &description);
    put_number(id);
    *next++ = ',';
    put_text(severities[severity & 3]);
    *next++ = ',';
    put_time(record, 0, &days[0]);
    *next++ = ',';
    put_time(record, 0, &days[1]);
    *next++ = ',';
    put_sensor(record);
    *next++ = ',';
    for (; *description; description++)
        *next++ = *description == ',' ? '.' : *description;
    *next++ = ',';
    put_hex(event_get_code(record), 8, "0123456789ABCDEF");
    put_text(record[12] & 0x80 ? ",Deasserted\r\n" : ",Asserted\r\n");
}

int main(int argc, char **argv)
{
    if (argc < 3 || !event_parse_init("/data/sectbl.cfg"))
        return 2;
    const int in = open(argv[1], O_RDONLY), out = open(argv[2], O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const long count = lseek(in, 0, SEEK_END) / record_size;
    struct day days[2] = {{0, 0, ""}, {0, 0, ""}};
    long in_block = 0;
    put_text("ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n");
    for (long id = count; id > 0; id--) {
        if (in_block == 0) {
            in_block = id < records_per_block ? id : records_per_block;
            if (pread(in, log_block, (size_t)in_block * record_size, (id - in_block) * record_size) < 0)
                return 1;
        }
        put_line(id, log_block + --in_block * record_size, days);
        if (next - table_block >= block || id == 1) {
            if (write(out, table_block, (size_t)(next - table_block)) < 0)
                return 1;
            next = table_block;
        }
        if ((count - id + 1) % 100 == 0)
            vos_task_delay(20);
    }
    return 0;
}
