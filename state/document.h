/// What was read of the controller, as a tree of named values: printed as JSON or as a table.
#pragma once

#include <cstdint>
#include <cstdio>

/// A value of the document. A member that is missing was not answered; null says that the controller has none.
struct node {
    enum class kind : uint8_t { null, truth, number, text, object, list };

    explicit node(kind what = kind::null, const char *name = nullptr) : is(what), key(name), text(nullptr) {}

    kind is;
    const char *key;  // an element of a list has none
    union {
        bool truth;
        double number;
        const char *text;
    };
    node *first = nullptr, *last = nullptr;  // the members of an object, the elements of a list
    node *next = nullptr;                    // in the same one

    // Each adds a member, or an element without a key. Keys have to outlive the document, texts are copied.
    node &object(const char *name) { return add(name, kind::object); }
    node &list(const char *name) { return add(name, kind::list); }
    void put_null(const char *name) { add(name, kind::null); }
    void put(const char *name, bool value) { add(name, kind::truth).truth = value; }
    void put(const char *name, double value) { add(name, kind::number).number = value; }
    void put(const char *name, int value) { put(name, double(value)); }
    void put(const char *name, uint32_t value) { put(name, double(value)); }
    void put(const char *name, const char *value);

    /// Adds a value that was made by itself.
    void take_over(const char *name, const node &value);

    /// The member of an object; null = it has none of this name.
    const node *find(const char *name) const;
    /// Whether there is any value in it that is no object and no list.
    bool holds_anything() const;

private:
    node &add(const char *name, kind what);
};

/// A copy for the rest of the run.
const char *keep(const char *text);

/// A number as both show it.
const char *in_digits(double number, char (&to)[32]);

/// One JSON document, on one line.
void print_json(FILE *out, const node &document);

/// For people. With colours, but never in colours alone.
void print_table(FILE *out, const node &document, bool in_colours);
