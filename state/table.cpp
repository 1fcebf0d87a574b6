/// The document for people: a section for each area, its values under each other, lists of like things in columns. "-"
/// is what the controller has not, "?" what it did not say.
#include "state/document.h"
#include "state/text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

static constexpr char bold[] = "\033[1m", red[] = "\033[31m", yellow[] = "\033[33m", plain[] = "\033[0m";
static constexpr char indent[] = "  ";

using cell = char[128];

static void show(const node *value, cell &to)
{
    char digits[32];
    const char *text = "-";
    if (value == nullptr)
        text = "?";
    else if (value->is == node::kind::truth)
        text = value->truth ? "yes" : "no";
    else if (value->is == node::kind::number)
        text = in_digits(value->number, digits);
    else if (value->is == node::kind::text)
        text = value->text;
    printable(text, to);
}

// Columns -----------------------------------------------------------------------------------------------------------

struct column {
    const char *heading;
    const char *key;              // null: what the thing itself is known by
    const char *inner = nullptr;  // the member of that value
    bool is_right_aligned = false;
};

static constexpr column led_columns[] = {
    {"name", nullptr}, {"control", "control"}, {"state", "state"}, {"colour", "colour"}};
static constexpr column user_columns[] = {
    {"id", "id", nullptr, true}, {"name", "name"}, {"privilege", "privilege"}, {"enabled", "enabled"}};
static constexpr column destination_columns[] = {
    {"id", "id", nullptr, true}, {"address", "address"}, {"port", "port", nullptr, true}, {"enabled", "enabled"}};
static constexpr column sensor_columns[] = {
    {"name", "name"},
    {"no.", "number", nullptr, true},
    {"reading", "reading", nullptr, true},
    {"unit", "unit"},
    {"low NR", "thresholds", "lower_nonrecoverable", true},
    {"low CR", "thresholds", "lower_critical", true},
    {"low NC", "thresholds", "lower_noncritical", true},
    {"up NC", "thresholds", "upper_noncritical", true},
    {"up CR", "thresholds", "upper_critical", true},
    {"up NR", "thresholds", "upper_nonrecoverable", true},
    {"+hys", "hysteresis", "positive", true},
    {"-hys", "hysteresis", "negative", true},
    {"state", "state"},
};
static constexpr size_t most_columns = std::size(sensor_columns);

struct layout {
    const char *key;
    std::span<const column> columns;
};
static constexpr layout layouts[] = {
    {"leds", led_columns}, {"users", user_columns}, {"sensors", sensor_columns}, {"destinations", destination_columns}};

static const layout *find_layout(const node &of)
{
    for (const layout &row : layouts)
        if (of.key != nullptr && strcmp(row.key, of.key) == 0)
            return &row;
    return nullptr;
}

static void show_column(const node &thing, const column &which, cell &to)
{
    if (which.key == nullptr)
        printable(thing.key, to);
    else if (const node *const value = thing.find(which.key); which.inner == nullptr || value == nullptr)
        show(value, to);
    else
        show(value->is == node::kind::object ? value->find(which.inner) : value, to);
}

static void print_cell(FILE *out, const char *text, const column &which, int width, bool is_last)
{
    fprintf(out, "%s%*s", indent, which.is_right_aligned ? width : is_last ? 0 : -width, text);
}

/// The colour of a sensor whose threshold is crossed; null = none is. It has a mark in front as well.
static const char *alarm_of(const node &thing)
{
    const node *const state = thing.find("state");
    if (state == nullptr || state->is != node::kind::text ||
        (strncmp(state->text, "lower_", 6) != 0 && strncmp(state->text, "upper_", 6) != 0))
        return nullptr;
    return strstr(state->text, "_noncritical") != nullptr ? yellow : red;
}

static void print_columns(FILE *out, const node &things, std::span<const column> columns, bool in_colours)
{
    int widths[most_columns] = {};
    cell text;
    for (size_t n = 0; n < columns.size(); ++n) {
        widths[n] = int(strlen(columns[n].heading));
        for (const node *thing = things.first; thing != nullptr; thing = thing->next) {
            show_column(*thing, columns[n], text);
            widths[n] = std::max(widths[n], int(strlen(text)));
        }
    }
    fputs(indent, out);
    for (size_t n = 0; n < columns.size(); ++n)
        print_cell(out, columns[n].heading, columns[n], widths[n], n + 1 == columns.size());
    fputc('\n', out);
    for (const node *thing = things.first; thing != nullptr; thing = thing->next) {
        const char *const alarm = alarm_of(*thing);
        fputs(alarm != nullptr && in_colours ? alarm : "", out);
        fputs(alarm != nullptr ? "! " : indent, out);
        for (size_t n = 0; n < columns.size(); ++n) {
            show_column(*thing, columns[n], text);
            print_cell(out, text, columns[n], widths[n], n + 1 == columns.size());
        }
        fputs(alarm != nullptr && in_colours ? plain : "", out);
        fputc('\n', out);
    }
}

// Values under each other -------------------------------------------------------------------------------------------

/// A unit at the end of a key, and how it is shown.
struct unit_suffix {
    const char *suffix, *unit;
};
static constexpr unit_suffix unit_suffixes[] = {
    {"_s", " s"}, {"_percent", " %"}, {"_minutes", " min"}, {"_bytes", " bytes"}, {"", ""}};

static const unit_suffix &unit_of(const char *key)
{
    const unit_suffix *row = unit_suffixes;
    const size_t length = strlen(key);
    while (length < strlen(row->suffix) || strcmp(key + length - strlen(row->suffix), row->suffix) != 0)
        ++row;
    return *row;
}

/// Calls `act` for each value that stands by itself, with the keys on the way to it as its label.
template <typename action>
static void for_each_value(const node &of, const char *label, const action &act)
{
    for (const node *value = of.first; value != nullptr; value = value->next) {
        const char *const key = value->key != nullptr ? value->key : "";
        const unit_suffix &unit = unit_of(key);
        cell words;
        snprintf(words, sizeof words, "%s%s%.*s", label, *label != '\0' && *key != '\0' ? " " : "",
                 int(strlen(key) - strlen(unit.suffix)), key);
        std::replace(words, words + strlen(words), '_', ' ');
        if (value->first != nullptr && find_layout(*value) == nullptr)
            for_each_value(*value, words, act);
        else if (find_layout(*value) == nullptr)
            act(*value, words, unit.unit);
    }
}

static void print_values(FILE *out, const node &area)
{
    int width = 0;
    for_each_value(area, "",
                   [&](const node &, const char *label, const char *) { width = std::max(width, int(strlen(label))); });
    for_each_value(area, "", [&](const node &value, const char *label, const char *unit) {
        cell text;
        show(&value, text);
        const bool has_unit = value.is == node::kind::number;
        fprintf(out, "%s%*s%s%s%s\n", indent, -width, label, *label != '\0' ? indent : "", text, has_unit ? unit : "");
    });
}

// -------------------------------------------------------------------------------------------------------------------

static void print_heading(FILE *out, const char *key, bool in_colours)
{
    cell words;
    snprintf(words, sizeof words, "%s", key);
    std::replace(words, words + strlen(words), '_', ' ');
    fprintf(out, "%s%s%s\n", in_colours ? bold : "", words, in_colours ? plain : "");
}

static void print_area(FILE *out, const node &area, bool in_colours)
{
    print_heading(out, area.key, in_colours);
    if (const layout *const own = find_layout(area)) {
        print_columns(out, area, own->columns, in_colours);
        return;
    }
    print_values(out, area);
    for (const node *value = area.first; value != nullptr; value = value->next)
        if (const layout *const own = find_layout(*value))
            print_columns(out, *value, own->columns, in_colours);
}

void print_table(FILE *out, const node &document, bool in_colours)
{
    bool is_first = true;
    for (const node *area = document.first; area != nullptr; area = area->next) {
        const bool is_list = area->is == node::kind::list || area->is == node::kind::object;
        if (!is_list || (area->first == nullptr && strcmp(area->key, "unreadable") == 0))
            continue;  // the format's number; nothing that cannot be read
        fputs(is_first ? "" : "\n", out);
        is_first = false;
        print_area(out, *area, in_colours);
    }
}
