#include "sel/export.h"

#include "cli/console.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "oplog/oplog.h"
#include "platform/platform.h"
#include "sel/csv.h"

#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

int export_progress;

static constexpr char sel_folder[] = "/data/share/sel/";
static constexpr char work_folder[] = "/tmp/sel_temp/";
static constexpr char unpacked_folder[] = "/tmp/dev/";
static constexpr char unpacked_log[] = "/tmp/dev/shm/save/reboot_file/sel_bak.bin";
static constexpr char result_archive[] = "/tmp/sel.tar";

static constexpr size_t name_size = 128, path_size = name_size + sizeof sel_folder;
static constexpr int max_files = 10;

// Folders -----------------------------------------------------------------------------------------------------------

int enum_files(const char *directory, char *names, size_t size, int maximum)
{
    DIR *folder = opendir(directory);
    if (folder == nullptr)
        return refuse("%s: opendir(%s) failed", "enum_files", directory);
    int count = 0;
    while (const dirent *entry = readdir(folder)) {
        if (strcmp(entry->d_name, ".") == 0 || strcmp(entry->d_name, "..") == 0)
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

/// The file type of a path itself, not of what a link leads to; 0 = there is nothing.
static mode_t type_of(const char *path)
{
    struct stat about;
    return lstat(path, &about) == 0 ? about.st_mode & S_IFMT : 0;
}

/// Removes a folder, named with a "/" at its end. A link that somebody has put in its place goes, and what it leads to
/// stays.
static void remove_folder(const char *folder)
{
    char bare[path_size];
    snprintf(bare, sizeof bare, "%.*s", int(strlen(folder)) - 1, folder);
    if (type_of(bare) == S_IFLNK)
        unlink(bare);
    vos_rm_filepath(folder);
}

/// A regular file, and no part of the way to it is a link.
static bool is_plain_file(const char *path)
{
    char part[path_size];
    for (const char *slash = strchr(path + 1, '/'); slash != nullptr; slash = strchr(slash + 1, '/')) {
        snprintf(part, sizeof part, "%.*s", int(slash - path), path);
        if (type_of(part) != S_IFDIR)
            return false;
    }
    return type_of(path) == S_IFREG;
}

// Logs --------------------------------------------------------------------------------------------------------------

/// A log brought to the work folder, and the table to be made of it.
struct log_pair {
    char bin[path_size], csv[path_size];
};

static void bring_live_log(log_pair &pair)
{
    snprintf(pair.bin, sizeof pair.bin, "%ssel.bin", work_folder);
    snprintf(pair.csv, sizeof pair.csv, "%ssel.csv", work_folder);
    char source[path_size];
    snprintf(source, sizeof source, "%ssel.bin", sel_folder);
    vos_file_copy(pair.bin, source);
}

/// Unpacks an archived log. One that holds no such log, or a link in its place, brings none.
static void bring_archived_log(const char *name, const char *ending, log_pair &pair)
{
    const int base = int(ending - name);
    snprintf(pair.bin, sizeof pair.bin, "%s%.*s.bin", work_folder, base, name);
    snprintf(pair.csv, sizeof pair.csv, "%s%.*s.csv", work_folder, base, name);
    char program[] = "/bin/tar", options[] = "-zxf", folder_option[] = "-C", folder[] = "/tmp/";
    char archive[path_size];
    snprintf(archive, sizeof archive, "%s%s", sel_folder, name);
    if (type_of("/tmp/dev") == S_IFLNK)
        unlink("/tmp/dev");
    char *const words[] = {program, options, archive, folder_option, folder, nullptr};
    vos_system(program, words);
    if (!is_plain_file(unpacked_log))
        return;
    vos_file_copy(pair.bin, unpacked_log);
    unlink(unpacked_log);  // or the next archive, if it holds none, would seem to hold this one
}

/// Brings every log among the names. The number of pairs.
static int bring_logs(const char (*names)[name_size], int count, log_pair *pairs)
{
    int brought = 0;
    for (int n = 0; n < count; ++n) {
        if (strcmp(names[n], "sel.bin") == 0)
            bring_live_log(pairs[brought++]);
        else if (const char *ending = strstr(names[n], ".tar.gz"); ending != nullptr && strstr(names[n], "sel"))
            bring_archived_log(names[n], ending, pairs[brought++]);
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
        say("%s: file_count = %d", "pack_sel_info", file_count);
        return no_export();
    }
    remove_folder(work_folder);
    umask(22);  // Kept: decimal, 026 in octal
    if (mkdir(work_folder, 0777) != 0)
        return no_export();  // somebody else's lies there

    const int count = bring_logs(names, file_count, pairs);
    convert_logs(pairs, count);
    tar_gzip_pack(work_folder, "*", result_archive);
    remove_folder(unpacked_folder);
    remove_folder(work_folder);
    export_progress = 100;
    return 0;
}

// zntool ------------------------------------------------------------------------------------------------------------

int zntool(uint8_t level, uint8_t argc, char **argv, const char *target)
{
    if (!check_privilege(level, argc, argv, target))
        return 0;
    if (argc != 0)
        return refuse("Usage: cfgtool -t maintenance -d zntool");
    if (event_parse_init("/data/sectbl.cfg") == 0) {
        say("parse seltbl.cfg file fail, program exit!!!");  // Kept: another name than the path's
        return refuse("Pack SEL failed, error code: 0x%X.", g_error_code);
    }
    say_now("Collecting...\r\n");
    if (pack_sel_info() == -1)
        return refuse("Pack SEL failed.");
    char program[] = "/ipmc/zntool";
    char *const words[] = {program, nullptr};
    fflush(stdout);  // the program writes to the same screen
    vos_environ_system(program, words);
    say_raw("\r\n");
    log_change("Zentro", "Finish debug info collect success, EvtCode:0x202013C0");
    return 1;
}
