/* records N: an event log of N records on standard output, always the same for the same N. The sensors are those of the
 * default board; times go up by minutes, one record in 50 is older than the clock, some are the maker's own. */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

struct sensor {
    uint8_t type, number, event_type, offsets;
};
static const struct sensor sensors[] = {
    {0x01, 0x01, 0x01, 12}, {0x01, 0x03, 0x01, 12}, {0x01, 0x04, 0x01, 12}, {0x01, 0x07, 0x01, 12},
    {0x02, 0x0F, 0x01, 12}, {0x02, 0x10, 0x01, 12}, {0x02, 0x18, 0x01, 12}, {0x04, 0x19, 0x01, 4},
    {0x04, 0x1B, 0x01, 4},  {0x03, 0x24, 0x01, 12}, {0x07, 0x28, 0x6F, 11}, {0x0C, 0x2A, 0x6F, 11},
    {0x08, 0x2E, 0x6F, 8},  {0x09, 0x30, 0x0B, 8},  {0x0D, 0x31, 0x6F, 9},  {0x05, 0x35, 0x6F, 7},
    {0x22, 0x36, 0x6F, 12}, {0x23, 0x37, 0x6F, 4},  {0x14, 0x3A, 0x6F, 5},  {0x1D, 0x3B, 0x6F, 8},
};
enum { sensor_count = sizeof sensors / sizeof *sensors, no_sensor = 0xF0 };

static uint32_t random_number(void)
{
    static uint32_t seed = 20240506;
    seed = seed * 1664525u + 1013904223u;
    return seed >> 12;
}

static uint8_t type_of_record(uint32_t chance)
{
    if (chance % 50 == 11)
        return (uint8_t)(0xC0 + chance % 32); /* the maker's, with a time */
    return chance % 100 == 13 ? (uint8_t)(0xE0 + chance % 32) : 0x02;
}

int main(int argc, char **argv)
{
    const long count = argc > 1 ? atol(argv[1]) : 1000;
    uint32_t now = 1400000000;
    for (long id = 1; id <= count; id++) {
        const uint32_t chance = random_number();
        const struct sensor *one = &sensors[random_number() % sensor_count];
        now += random_number() % 500;
        const uint32_t time = chance % 50 == 7 ? chance % 1000 : now;
        uint8_t record[16] = {(uint8_t)id, (uint8_t)(id >> 8), type_of_record(chance)};
        memcpy(record + 3,
               (uint8_t[]){(uint8_t)time, (uint8_t)(time >> 8), (uint8_t)(time >> 16), (uint8_t)(time >> 24)}, 4);
        record[7] = 0x20;
        record[9] = 0x04;
        record[10] = one->type;
        record[11] = chance % 20 == 3 ? no_sensor : one->number;
        record[12] = (uint8_t)(one->event_type | (chance & 1) << 7);
        record[13] = (uint8_t)(random_number() % one->offsets);
        record[14] = record[15] = 0xFF;
        fwrite(record, sizeof record, 1, stdout);
    }
    return 0;
}
