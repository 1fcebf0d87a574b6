/* sensor NAME: the least that finding a sensor can cost over the same platform library: the sensor data records are
 * read from the repository one by one, header and body, and kept, up to the one of that name. bench/run puts the tool
 * beside it. */
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

/* Of the platform library. */
int ipc_no_listen_init(int port);
int ipc_msg_send(const void *message, unsigned length, unsigned flags, unsigned port);
int ipc_msg_recv(void *message);
void ipc_exit(void);

enum { app = 0x06, storage = 0x0A, full = 0x01, id_string = 42 };
static uint8_t answer[1056];
static const uint8_t *const data = answer + 39;

static uint8_t checksum(const uint8_t *bytes, unsigned count)
{
    uint8_t sum = 0;
    while (count-- > 0)
        sum += *bytes++;
    return (uint8_t)-sum;
}

/* Completion code, -1 = no answer that belongs to it. */
static int ask(uint8_t netfn, uint8_t command, const uint8_t *values, unsigned count)
{
    static uint8_t sequence;
    uint8_t frame[32] = {0, (uint8_t)(netfn << 2), 0, 0x63, (uint8_t)(sequence++ << 2), command};
    const unsigned length = 6 + count;
    memcpy(frame + 6, values, count);
    frame[2] = checksum(frame, 2);
    frame[length] = checksum(frame, length);
    memset(answer, 0, sizeof answer); /* what comes may be shorter than the one before */
    if (ipc_msg_send(frame, length + 1, 0, 2001) != 0 || ipc_msg_recv(answer) == -1)
        return -1;
    if (answer[33] >> 2 != netfn + 1 || answer[37] != command || answer[35] != 0 || answer[36] != frame[4])
        return -1;
    return answer[38];
}

struct record {
    struct record *next;
    uint16_t id;
    uint8_t type, length, body[];
};

int main(int argc, char **argv)
{
    if (argc < 2 || ipc_no_listen_init(0) != 0)
        return 2;
    if (ask(app, 0x01, data, 0) != 0 || ask(storage, 0x20, data, 0) != 0 || ask(storage, 0x22, data, 0) != 0)
        return 1;
    const uint8_t reservation[] = {data[0], data[1]};
    const size_t name_length = strlen(argv[1]);
    struct record *first = NULL, **end = &first;
    for (unsigned next = 0; next != 0xFFFF; end = &(*end)->next) {
        uint8_t reading[] = {reservation[0], reservation[1], (uint8_t)next, (uint8_t)(next >> 8), 0, 5};
        if (ask(storage, 0x23, reading, sizeof reading) != 0)
            return 1;
        next = data[0] | (unsigned)data[1] << 8;
        struct record *one = calloc(1, sizeof *one + data[6] + 1);
        one->id = (uint16_t)(data[2] | data[3] << 8);
        one->type = data[5];
        one->length = reading[5] = data[6];
        reading[4] = 5;
        if (ask(storage, 0x23, reading, sizeof reading) != 0)
            return 1;
        memcpy(one->body, data + 2, one->length);
        *end = one;
        if (one->type == full && (one->body[id_string] & 0x1F) == name_length &&
            memcmp(one->body + id_string + 1, argv[1], name_length) == 0)
            break;
    }
    ipc_exit();
    return 0;
}
