/// Platform calls that break their promises, each in a way that a board's library might. platform-check has to tell.
#include "platform/platform.h"

#include <cstring>

int vos_memset(void *to, size_t, int value, size_t count)  // no bounds, but within the memory that the check gives it
{
    memset(to, value, count);
    return 0;
}

int vos_strncpy(char *to, size_t, const char *from, size_t count)  // does not terminate
{
    strncpy(to, from, count);
    return 0;
}

void vos_task_delay(unsigned) {}

unsigned vos_rand() { return 4; }

int vos_system(const char *, char *const *) { return 0; }

const char *get_sensor_type_name(unsigned char type) { return type < 0x2D ? "Sensor" : nullptr; }
