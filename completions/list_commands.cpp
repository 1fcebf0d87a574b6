// Prints the tool's own tables of commands for the completion: ninja list-commands && bin/list-commands >dataitems

#include "cli/registry.h"

#include <cstdio>

static void list(const char *target, const command_entry *table)
{
    for (; table->name != nullptr; ++table)
        printf("%s\t%s\t%s\n", target, table->name, table->help);
}

int main()
{
    puts("# Targets and dataitems as the tool lists them: target (- for none), name, help text.");
    list("target", targets);
    list("-", top_level_dataitems);
    for (unsigned n = 0; targets[n].name != nullptr; ++n)
        list(targets[n].name, target_dataitems[n]);
}
