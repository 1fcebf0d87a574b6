#include "state/document.h"

#include "state/complaints.h"
#include "verdict/json.h"

#include <cstdlib>
#include <cstring>
#include <new>

/// Memory of the document, taken in blocks. It is given back by the end of the run.
struct block {
    block *before;
    alignas(node) char bytes[4000];
};
static block *last_block;
static size_t used = sizeof last_block->bytes;  // of the last block

/// A value or a text; both are far smaller than a block.
static void *take(size_t size)
{
    size = (size + alignof(node) - 1) & ~(alignof(node) - 1);
    if (used + size > sizeof last_block->bytes) {
        auto *const added = static_cast<block *>(calloc(1, sizeof(block)));
        if (added == nullptr || size > sizeof added->bytes)
            give_up("out of memory");
        added->before = last_block;
        last_block = added;
        used = 0;
    }
    void *const memory = last_block->bytes + used;
    used += size;
    return memory;
}

const char *keep(const char *text)
{
    const size_t size = strlen(text) + 1;
    return static_cast<const char *>(memcpy(take(size), text, size));
}

node &node::add(const char *name, kind what)
{
    node *const added = new (take(sizeof(node))) node(what, name);
    (last != nullptr ? last->next : first) = added;
    last = added;
    return *added;
}

void node::put(const char *name, const char *value) { add(name, kind::text).text = keep(value); }

void node::take_over(const char *name, const node &value)
{
    node &added = add(name, value.is);
    added.first = value.first;
    added.last = value.last;
}

bool node::holds_anything() const
{
    if (is != kind::object && is != kind::list)
        return true;
    for (const node *member = first; member != nullptr; member = member->next)
        if (member->holds_anything())
            return true;
    return false;
}

const node *node::find(const char *name) const
{
    for (const node *member = first; member != nullptr; member = member->next)
        if (strcmp(member->key, name) == 0)
            return member;
    return nullptr;
}

const char *in_digits(double number, char (&to)[32])
{
    const bool is_small = number > -1e9 && number < 1e9;
    if (is_small && int32_t(number) == number)
        snprintf(to, sizeof to, "%d", int32_t(number));
    else
        snprintf(to, sizeof to, "%.15g", number);  // as many digits as every double keeps
    return to;
}

// JSON --------------------------------------------------------------------------------------------------------------

static void print_value(FILE *out, const node &value);

static void print_members(FILE *out, const node &value, const char *brackets)
{
    fputc(brackets[0], out);
    for (const node *member = value.first; member != nullptr; member = member->next) {
        if (member != value.first)
            fputc(',', out);
        if (member->key != nullptr) {
            fprintf(out, "\"%s\":", member->key);  // our own, all plain
        }
        print_value(out, *member);
    }
    fputc(brackets[1], out);
}

static void print_value(FILE *out, const node &value)
{
    char digits[32];
    switch (value.is) {
    case node::kind::null:
        fputs("null", out);
        break;
    case node::kind::truth:
        fputs(value.truth ? "true" : "false", out);
        break;
    case node::kind::number:
        fputs(in_digits(value.number, digits), out);
        break;
    case node::kind::text:
        print_json(out, value.text);
        break;
    case node::kind::object:
        print_members(out, value, "{}");
        break;
    case node::kind::list:
        print_members(out, value, "[]");
        break;
    }
}

void print_json(FILE *out, const node &document)
{
    print_value(out, document);
    fputc('\n', out);
}
