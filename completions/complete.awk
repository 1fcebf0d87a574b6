# awk -f complete.awk -- DATAITEMS VALUES BLACKLIST WORD...
# What may follow these words of a cfgtool command line: a line for each candidate, with what it means behind a tab. A
# line that begins with the tab stands for the names of files: how those begin, a star, how those end that are no folders.
# It resolves names as the tool does.

BEGIN {
    files["PATH"] = "/*"
    files["IMAGE"] = "*.bin"
    read_dataitems(ARGV[1])
    read_values(ARGV[2])
    read_blacklist(ARGV[3])
    at = 4
    complete()
}

# Tables --------------------------------------------------------------------------------------------------------------
# Target 0 stands for the targets themselves, "-" for the dataitems without one. rows[T] is a table's length; its rows
# are name[T, n], help[T, n] and disabled[T, n].

function read_dataitems(path,    line, field) {
    while ((getline line < path) > 0)
        if (line !~ /^#/) {
            split(line, field, "\t")
            add_row(field[1] == "target" ? 0 : field[1], field[2], field[3])
        }
}

function add_row(table, word, meaning) {
    name[table, ++rows[table]] = word
    help[table, rows[table]] = meaning
}

function read_values(path,    line, field, n) {
    while ((getline line < path) > 0)
        if (line !~ /^#/) {
            columns[++forms] = split(line, field, "  +")
            for (n = 1; n <= columns[forms]; n++)
                column[forms, n] = field[n]
        }
}

# The blacklist -------------------------------------------------------------------------------------------------------

# A carriage return ends a line as well. Directly behind the line of a top-level dataitem one of a target need not name
# the tool.
function read_blacklist(path,    text, line, count, n, option, named, behind) {
    while ((getline text < path) > 0) {
        count = split(text, line, "\r")
        if (count == 0)
            line[count = 1] = ""
        for (n = 1; n <= count; n++) {
            option = substr(line[n], 9, 2)
            named = index(line[n], "cfgtool")
            if (option == "-t" && (named || behind))
                disable_in_target(line[n])
            behind = option == "-d" && named
            if (behind)
                disable_row_named_in(line[n], "-")
        }
    }
}

function disable_in_target(line,    word, count, n) {
    if (!index(line, "-d")) {
        disable_row_named_in(line, 0)
        return
    }
    count = split("fru0 led eth0 sensor smbios trap service user", word, " ")
    for (n = 1; n <= count; n++)
        if (index(line, word[n])) {
            disable_row_named_in(line, word[n])
            return
        }
}

function disable_row_named_in(line, table,    n) {
    for (n = 1; n <= rows[table]; n++)
        if (index(line, name[table, n])) {
            disabled[table, n] = 1
            return
        }
}

# The command line ----------------------------------------------------------------------------------------------------

# The row of a name or of a prefix that no other has, 0 for none. With `first` it is the first of several, and disabled
# ones count.
function find_row(table, word, first,    n, found, count) {
    for (n = 1; n <= rows[table]; n++) {
        if (substr(name[table, n], 1, length(word)) != word || (disabled[table, n] && !first))
            continue
        if (name[table, n] == word)
            return n
        if (count++ == 0)
            found = n
    }
    return count == 1 || first ? found + 0 : 0
}

function complete(    table, item) {
    table = "-"
    while (at < ARGC && ARGV[at] == "-t") {
        if (++at == ARGC)
            return offer_rows(0)
        if (!find_row(0, ARGV[at]))
            return
        table = name[0, find_row(0, ARGV[at++], 1)]
    }
    if (at == ARGC)
        return offer_options(table)
    if (ARGV[at++] != "-d")
        return
    if (at == ARGC)
        return offer_rows(table)
    item = find_row(table, ARGV[at++])
    if (item)
        complete_values(table, name[table, item])
}

function offer(word, meaning) {
    if (!offered[word]++)
        print word "\t" meaning
}

function offer_options(table) {
    offer("-d", "dataitem")
    if (table != "-")
        return
    offer("-t", "target")
    offer("-h", "what there is")
}

function offer_rows(table,    n) {
    for (n = 1; n <= rows[table]; n++)
        if (!disabled[table, n])
            offer(name[table, n], help[table, n])
}

# Values --------------------------------------------------------------------------------------------------------------

function complete_values(table, item,    form, n, left) {
    for (form = 1; form <= forms; form++)
        if (column[form, 1] == table && column[form, 2] == item)
            left = open[form] = 1
    if (!left)
        return
    if (at == ARGC)
        return offer("-v", "values")
    if (ARGV[at++] != "-v")
        return
    for (n = 3; at < ARGC; n++)
        keep_forms(n, ARGV[at++])
    for (form = 1; form <= forms; form++)
        if (open[form] && n <= columns[form])
            offer_column(column[form, n])
}

# Only the forms that have this word in column n stay open; where none has it, those that take any.
function keep_forms(n, word,    form, best) {
    for (form in open)
        if (open[form]) {
            open[form] = taken(column[form, n], word)
            if (open[form] > best)
                best = open[form]
        }
    for (form in open)
        open[form] = best && open[form] == best
}

# 2 = the word stands there, 1 = any word does, 0 = neither
function taken(list, word,    choice, count, n, any) {
    count = split(list, choice, "|")
    for (n = 1; n <= count; n++) {
        if (word_of(choice[n]) == word)
            return 2
        if (is_any(choice[n]))
            any = 1
    }
    return any + 0
}

function offer_column(list,    choice, count, n) {
    count = split(list, choice, "|")
    for (n = 1; n <= count; n++)
        if (choice[n] in files)
            offer("", files[choice[n]])
        else if (choice[n] == "SENSOR")
            offer_sensors()
        else if (!is_any(choice[n]))
            offer(word_of(choice[n]), substr(choice[n], length(word_of(choice[n])) + 2))
}

# By the names that the controller gives them now; none where it does not answer soon. A name that would have to be escaped
# is left out.
function offer_sensors(    document) {
    "timeout 2 cfgtool-state --json sensors </dev/null 2>/dev/null" | getline document
    while (match(document, /\{"name":"[^"\\]+","number":/)) {
        offer(substr(document, RSTART + 9, RLENGTH - 20), "sensor")
        document = substr(document, RSTART + RLENGTH)
    }
}

function word_of(choice) {
    sub(/=.*/, "", choice)
    return choice
}

function is_any(choice) { return choice ~ /^[A-Z]+$/ }
