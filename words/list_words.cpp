// Prints the tool's own tables of commands as JSON: what can be typed, with the help texts of the listings.

#include "cli/registry.h"

#include <cstdio>
#include <nlohmann/json.hpp>

using nlohmann::ordered_json;

static ordered_json row_of(const command_entry &entry) { return {{"name", entry.name}, {"help", entry.help}}; }

static ordered_json dataitems_of(const command_entry *table)
{
    ordered_json rows = ordered_json::array();
    for (; table->name != nullptr; ++table) {
        ordered_json row = row_of(*table);
        row["level"] = table->level();
        row["state"] = table->state();
        rows.push_back(row);
    }
    return rows;
}

int main()
{
    ordered_json all;
    all["dataitems"] = dataitems_of(top_level_dataitems);
    all["targets"] = ordered_json::array();
    for (unsigned n = 0; targets[n].name != nullptr; ++n) {
        ordered_json row = row_of(targets[n]);
        row["state"] = targets[n].state();
        row["dataitems"] = dataitems_of(target_dataitems[n]);
        all["targets"].push_back(row);
    }
    puts(all.dump(1).c_str());
    return 0;
}
