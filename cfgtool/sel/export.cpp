#include "sel/export.h"

#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "sel/csv.h"
#include "sel/own_folder.h"
#include "sel/tmp_contents.h"
#include "sel/unpack.h"
#include "system/hold_signals.h"
#include "ui/console.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

int export_progress;

static constexpr char sel_folder[] = "/data/share/sel/";
static constexpr own_folder work_folder = {"/tmp/sel_temp/", "/tmp/sel_temp"};
static constexpr char result_archive[] = "/tmp/sel.tar";

static constexpr size_t name_size = 128, path_size = name_size + sizeof sel_folder;
static constexpr int max_files = 10;

static bool is_dot(const char *name) { return strcmp(name, ".") == 0 || strcmp(name, "..") == 0; }

int enum_files(const char *directory, char *names, size_t size, int maximum)
{
    DIR *folder = opendir(directory);
    if (folder == nullptr)
        return fail("%s: opendir(%s) failed", "enum_files", directory);
    int count = 0;
    while (const dirent *entry = readdir(folder)) {
        if (is_dot(entry->d_name))
            continue;
        snprintf(names + size_t(count) * size, size, "%s", entry->d_name);
        if (++count == maximum) {
            say("%s: path(%s), filecount > %d", "enum_files", directory, maximum);
            break;
        }
    }
    closedir(folder);
    return count;
}

/// A log brought to the work folder, and the table to be made of it.
struct log_pair {
    char bin[path_size], csv[path_size];
    int64_t brought_ns;  // when the log was last changed
};

// The work folder ---------------------------------------------------------------------------------------------------

static int64_t last_change_ns(const char *path)
{
    struct stat about;
    return lstat(path, &about) == 0 ? about.st_ctim.tv_sec * INT64_C(1000000000) + about.st_ctim.tv_nsec : 0;
}

static bool is_brought_log(const char *path, const log_pair *pairs, int brought)
{
    const int64_t now_ns = last_change_ns(path);
    return std::any_of(pairs, pairs + brought, [path, now_ns](const log_pair &pair) {
        return strcmp(path, pair.bin) == 0 && pair.brought_ns == now_ns;
    });
}

/// Once an archive has been unpacked, which may hold a work folder too: only the logs brought before stay in ours.
static bool take_back_work_folder(const log_pair *pairs, int brought)
{
    if (!take_back_folder(work_folder.name) && !make_folder(work_folder))
        return false;
    DIR *folder = opendir(work_folder.path);
    if (folder == nullptr)
        return false;
    while (const dirent *entry = readdir(folder)) {
        char path[sizeof "/tmp/sel_temp/" + NAME_MAX];
        snprintf(path, sizeof path, "%s%s", work_folder.path, entry->d_name);
        if (!is_dot(entry->d_name) && !is_brought_log(path, pairs, brought))
            remove_anything(path);
    }
    closedir(folder);
    return true;
}

/// An empty one, even where one of ours cannot be removed.
static bool make_work_folder()
{
    remove_folder(work_folder);
    umask(22);  // Kept: decimal, 026 in octal
    return make_folder(work_folder) && take_back_work_folder(nullptr, 0);
}

// Logs --------------------------------------------------------------------------------------------------------------

static void bring_log(log_pair &pair, const char *source)
{
    vos_file_copy(pair.bin, source);
    pair.brought_ns = last_change_ns(pair.bin);
}

static void bring_live_log(log_pair &pair)
{
    snprintf(pair.bin, sizeof pair.bin, "%ssel.bin", work_folder.path);
    snprintf(pair.csv, sizeof pair.csv, "%ssel.csv", work_folder.path);
    char source[path_size];
    snprintf(source, sizeof source, "%ssel.bin", sel_folder);
    bring_log(pair, source);
}

/// An archive that holds no log, or anything but a file in its place, brings none, and the conversion tells. `brought`
/// pairs stand before this one.
static void bring_archived_log(const char *name, const char *ending, log_pair *pairs, int brought)
{
    log_pair &pair = pairs[brought];
    const int base = int(ending - name);
    snprintf(pair.bin, sizeof pair.bin, "%s%.*s.bin", work_folder.path, base, name);
    snprintf(pair.csv, sizeof pair.csv, "%s%.*s.csv", work_folder.path, base, name);
    char archive[path_size];
    snprintf(archive, sizeof archive, "%s%.*s", sel_folder, int(name_size - 1), name);
    const hold_signals until_tmp_is_tidy;
    const bool unpacked = unpack_log(archive);
    if (take_back_work_folder(pairs, brought) && unpacked)
        bring_log(pair, unpacked_log);
    tidy_tmp();
}

/// Brings every log among the names. The number of pairs.
/// Kept: of two names with one base, as sel.bin and sel.tar.gz, the later takes the other's place, and the table of one
/// that begins with a full stop is none of the "*" that are packed.
static int bring_logs(const char (*names)[name_size], int count, log_pair *pairs)
{
    int brought = 0;
    for (int n = 0; n < count; ++n) {
        if (strcmp(names[n], "sel.bin") == 0)
            bring_live_log(pairs[brought++]);
        else if (const char *ending = strstr(names[n], ".tar.gz"); ending != nullptr && strstr(names[n], "sel"))
            bring_archived_log(names[n], ending, pairs, brought++);
    }
    return brought;
}

static void convert_logs(const log_pair *pairs, int count)
{
    export_progress = 10;
    for (int n = 0; n < count; ++n) {
        sel_bin2txt(pairs[n].bin, pairs[n].csv);
        vos_rm_filepath(pairs[n].bin);
        export_progress += 80 / count;
    }
}

static int no_export()
{
    export_progress = 100;
    return -1;
}

int pack_sel_info()
{
    static char names[max_files][name_size];
    static log_pair pairs[max_files];
    vos_rm_filepath(result_archive);
    const int file_count = enum_files(sel_folder, names[0], name_size, max_files);
    if (file_count <= 0) {
        fail("%s: file_count = %d", "pack_sel_info", file_count);
        return no_export();
    }
    if (!make_work_folder())
        return no_export();

    const int count = bring_logs(names, file_count, pairs);
    convert_logs(pairs, count);
    remove_anything(result_archive);  // An archive may have brought one.
    tar_gzip_pack(work_folder.path, "*", result_archive);
    remove_folder(unpacked_folder);
    remove_folder(work_folder);
    export_progress = 100;
    return 0;
}

// zntool ------------------------------------------------------------------------------------------------------------

int zntool(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count != 0)
        return usage_error("Usage: cfgtool -t maintenance -d zntool");
    if (event_parse_init("/data/sectbl.cfg") == 0) {
        fail("parse seltbl.cfg file fail, program exit!!!");  // Kept: another name than the path's
        return fail("Pack SEL failed, error code: 0x%X.", g_error_code);
    }
    say_now("Collecting...\r\n");
    if (pack_sel_info() == -1)
        return fail("Pack SEL failed.");
    char program[] = "/ipmc/zntool";
    char *const words[] = {program, nullptr};
    fflush(stdout);  // the program writes to the same screen
    vos_environ_system(program, words);
    say_raw("\r\n");
    log_change("Zentro", "Finish debug info collect success, EvtCode:0x202013C0");
    return done_silently();
}
