#include "sel/tmp_contents.h"

#include "system/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr char work_folder_name[] = "sel_temp";
static constexpr int deepest = 64;  // every folder on the way down takes a descriptor

/// What was found under a name in a folder. Numbers of inodes are used again, but the time of birth tells them apart,
/// where the file system knows it.
struct noted_entry {
    uint64_t inode, folder;
    int64_t born_ns, changed_ns;
    uint32_t name_hash, owner, group;
    uint16_t mode;
    bool is_listed;  // a folder, and what is in it was noted too
};

static struct {
    int folder = -1;
    uint32_t device_major, device_minor;
    noted_entry itself;
    noted_entry *entries;  // by inode
    size_t count, room;
    int64_t first_ns;  // the file system's clock just before
} noted;

// Folders -----------------------------------------------------------------------------------------------------------

static int64_t nanoseconds(const statx_timestamp &time) { return time.tv_sec * INT64_C(1000000000) + time.tv_nsec; }

static bool examine(int folder, const char *name, struct statx &about)
{
    return statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &about) == 0;
}

/// False also for a folder that is mounted there.
static bool examine_entry(int folder, const char *name, struct statx &about)
{
    return examine(folder, name, about) && (!S_ISDIR(about.stx_mode) || (about.stx_dev_major == noted.device_major &&
                                                                         about.stx_dev_minor == noted.device_minor));
}

/// Opens a folder that was examined. -1 = it cannot be opened, or somebody has put another in its place.
static int open_inner(int folder, const char *name, const struct statx &about)
{
    const int inner = openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct statx opened;
    if (inner >= 0 && (!examine_entry(inner, "", opened) || opened.stx_ino != about.stx_ino)) {
        close(inner);
        return -1;
    }
    return inner;
}

/// The entries of an open folder, which is closed with them.
class folder_entries
{
public:
    explicit folder_entries(int folder) : list(folder >= 0 ? fdopendir(folder) : nullptr)
    {
        if (list == nullptr && folder >= 0)
            close(folder);
    }
    ~folder_entries()
    {
        if (list != nullptr)
            closedir(list);
    }
    folder_entries(const folder_entries &) = delete;
    folder_entries &operator=(const folder_entries &) = delete;

    int folder() const { return dirfd(list); }
    /// The next name; null at the end, and where reading fails.
    const char *next()
    {
        errno = 0;
        while (const dirent *entry = list != nullptr ? readdir(list) : nullptr)
            if (strcmp(entry->d_name, ".") != 0 && strcmp(entry->d_name, "..") != 0)
                return entry->d_name;
        has_failed = list == nullptr || errno != 0;
        return nullptr;
    }
    bool has_failed = false;

private:
    DIR *list;
};

// Noting ------------------------------------------------------------------------------------------------------------

static uint32_t hash_of(const char *name)
{
    uint32_t hash = 2166136261;  // FNV-1a
    for (; *name != '\0'; ++name)
        hash = (hash ^ uint8_t(*name)) * 16777619;
    return hash;
}

static noted_entry entry_of(const struct statx &about, uint64_t folder, const char *name)
{
    const int64_t born_ns = (about.stx_mask & STATX_BTIME) != 0 ? nanoseconds(about.stx_btime) : 0;
    return {
        .inode = about.stx_ino,
        .folder = folder,
        .born_ns = born_ns,
        .changed_ns = nanoseconds(about.stx_mtime),
        .name_hash = hash_of(name),
        .owner = about.stx_uid,
        .group = about.stx_gid,
        .mode = about.stx_mode,
        .is_listed = false,
    };
}

/// False = out of memory.
static bool add(const noted_entry &entry)
{
    if (noted.count == noted.room) {
        const size_t room = noted.room * 2 + 64;
        void *const entries = realloc(noted.entries, room * sizeof entry);
        if (entries == nullptr)
            return false;
        noted.entries = static_cast<noted_entry *>(entries);
        noted.room = room;
    }
    noted.entries[noted.count++] = entry;
    return true;
}

enum class listing { whole, unreadable, no_memory };

static listing note_folder(int folder, uint64_t inode, int depth)
{
    folder_entries entries(folder);
    while (const char *name = entries.next()) {
        struct statx about;
        if (!examine_entry(entries.folder(), name, about))
            continue;
        noted_entry entry = entry_of(about, inode, name);
        if (S_ISDIR(about.stx_mode) && depth < deepest) {
            const listing inner = note_folder(open_inner(entries.folder(), name, about), about.stx_ino, depth + 1);
            if (inner == listing::no_memory)
                return inner;
            entry.is_listed = inner == listing::whole;
        }
        if (!add(entry))
            return listing::no_memory;
    }
    return entries.has_failed ? listing::unreadable : listing::whole;
}

static int by_inode(const void *left, const void *right)
{
    const uint64_t one = static_cast<const noted_entry *>(left)->inode;
    const uint64_t other = static_cast<const noted_entry *>(right)->inode;
    return one < other ? -1 : one > other;
}

static bool note_all(const char *changed_just_now)
{
    struct statx itself, changed;
    if (!examine(noted.folder, "", itself) || !examine(noted.folder, changed_just_now, changed))
        return false;
    noted.device_major = itself.stx_dev_major;
    noted.device_minor = itself.stx_dev_minor;
    noted.itself = entry_of(itself, 0, "");
    noted.first_ns = nanoseconds(changed.stx_ctime);
    if (note_folder(open_inner(noted.folder, ".", itself), itself.stx_ino, 0) != listing::whole)
        return false;
    qsort(noted.entries, noted.count, sizeof *noted.entries, by_inode);
    return true;
}

static void forget()
{
    close(noted.folder);
    free(noted.entries);
    noted = {};
}

bool note_tmp(const char *changed_just_now)
{
    noted.folder = open_file("/tmp/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (noted.folder < 0)
        return false;
    if (note_all(changed_just_now))
        return true;
    forget();
    return false;
}

// Tidying -----------------------------------------------------------------------------------------------------------

/// The first note of this inode, null when it was not there. The notes of its other names follow.
static const noted_entry *find(const noted_entry &found)
{
    const noted_entry *const first = noted.entries, *const end = first + noted.count;
    const auto has_less = [](const noted_entry &one, const noted_entry &other) { return one.inode < other.inode; };
    const noted_entry *entry = std::lower_bound(first, end, found, has_less);
    while (entry < end && entry->inode == found.inode && entry->born_ns != found.born_ns)
        ++entry;
    return entry < end && entry->inode == found.inode ? entry : nullptr;
}

static bool has_name(const noted_entry *before, const noted_entry &found)
{
    for (; before < noted.entries + noted.count && before->inode == found.inode; ++before)
        if (before->folder == found.folder && before->name_hash == found.name_hash)
            return true;
    return false;
}

/// Whether the time of change was set, as an archiver does: it lies before the archive was unpacked, or is still to
/// come.
static bool is_set(int64_t changed_ns)
{
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return changed_ns < noted.first_ns || changed_ns > now.tv_sec * INT64_C(1000000000) + now.tv_nsec;
}

/// Whether what is not a folder came with the archive. Links and what could do harm are taken for the archive's at any
/// time. Of an old file a new name may go where the file keeps another.
static bool has_come(const struct statx &about, const noted_entry &found, bool is_folder_of_archive)
{
    const mode_t mode = about.stx_mode;
    if (const noted_entry *before = find(found))
        return about.stx_nlink > 1 && !has_name(before, found);
    return is_folder_of_archive || is_set(found.changed_ns) || S_ISLNK(mode) || S_ISCHR(mode) || S_ISBLK(mode) ||
           (mode & (S_ISUID | S_ISGID)) != 0;
}

static void give_back(int folder, const noted_entry &before)
{
    struct statx now;
    const bool is_there = examine(folder, "", now);
    if (is_there && (now.stx_uid != before.owner || now.stx_gid != before.group) &&
        fchown(folder, before.owner, before.group) != 0)
        return;
    if (is_there && now.stx_mode != before.mode)
        fchmod(folder, before.mode & 07777);
}

/// What lies too deep is put in /tmp, where the next pass finds it.
static bool move_up(int folder, const char *name)
{
    static unsigned moved;
    char place[32];
    snprintf(place, sizeof place, "sel_moved-%d-%u", int(getpid()), ++moved);
    return renameat(folder, name, noted.folder, place) == 0;
}

static bool tidy_folder(int folder, uint64_t inode, bool is_of_archive, int depth);

static bool tidy_inner(int folder, const char *name, const struct statx &about, const noted_entry &found,
                       bool is_folder_of_archive, int depth)
{
    const noted_entry *before = find(found);
    if (before != nullptr && !before->is_listed)
        return false;
    const bool is_of_archive = before == nullptr && (is_folder_of_archive || is_set(found.changed_ns));
    if (depth == deepest)
        return before == nullptr && move_up(folder, name);
    if (is_of_archive && geteuid() != 0 && fchmodat(folder, name, S_IRWXU, 0) != 0)  // root needs no right to it
        return false;

    const int inner = open_inner(folder, name, about), same = dup(inner);
    const bool removed = tidy_folder(inner, found.inode, is_of_archive, depth + 1);
    if (before != nullptr && (removed || (is_set(found.changed_ns) && found.changed_ns != before->changed_ns)))
        give_back(same, *before);
    close(same);
    const bool goes = before == nullptr && (is_of_archive || removed);
    return (goes && unlinkat(folder, name, AT_REMOVEDIR) == 0) || removed;
}

/// True = something was removed.
static bool tidy_folder(int folder, uint64_t inode, bool is_of_archive, int depth)
{
    folder_entries entries(folder);
    bool removed = false;
    while (const char *name = entries.next()) {
        struct statx about;
        const bool is_own = depth == 0 && strcmp(name, work_folder_name) == 0;
        if (is_own || !examine_entry(entries.folder(), name, about))
            continue;
        const noted_entry found = entry_of(about, inode, name);
        if (S_ISDIR(about.stx_mode))
            removed |= tidy_inner(entries.folder(), name, about, found, is_of_archive, depth);
        else if (has_come(about, found, is_of_archive))
            removed |= unlinkat(entries.folder(), name, 0) == 0;
    }
    return removed;
}

void give_back_tmp() { give_back(noted.folder, noted.itself); }

/// True = something was removed, so that there may be more to see.
static bool tidy_once()
{
    struct statx itself;
    return examine(noted.folder, "", itself) &&
           tidy_folder(open_inner(noted.folder, ".", itself), itself.stx_ino, false, 0);
}

void tidy_tmp()
{
    static constexpr int most_passes = 100;  // somebody may go on putting things there
    if (noted.folder < 0)
        return;
    for (int pass = 0; pass < most_passes && tidy_once(); ++pass)
        ;
    give_back_tmp();
    forget();
}
