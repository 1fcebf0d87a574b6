/* A program outside the tree that calls the platform. */
#include "platform/platform.h"

#include <stdio.h>

int main(void)
{
    char name[16];
    printf("%d %s\n", vos_get_file_name("/data/cli.conf", name, sizeof name), name);
    return 0;
}
