#include "tests/scripted/parts.h"

#include "platform/platform.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

void copy_bytes(void *to, const void *from, size_t count)
{
    for (size_t n = 0; n < count; ++n)
        static_cast<volatile char *>(to)[n] = static_cast<const char *>(from)[n];
}

std::string found_in(const std::string &root, const char *path)
{
    static constexpr const char *folders[] = {"/data", "/ipmc", "/web", "/ko", "/tmp"};
    if (strncmp(path, root.c_str(), root.size()) != 0)
        for (const char *folder : folders)
            if (strncmp(path, folder, strlen(folder)) == 0 && strchr("/", path[strlen(folder)]) != nullptr)
                return root + path;
    return path;
}

int unpack(const std::string &root, char *const argv[])
{
    std::vector<std::string> words;
    for (int n = 0; argv[n] != nullptr; ++n)
        words.push_back(found_in(root, argv[n]));
    std::vector<char *> own;
    for (std::string &word : words)
        own.push_back(word.data());
    own.push_back(nullptr);

    posix_spawn_file_actions_t silent;
    posix_spawn_file_actions_init(&silent);
    posix_spawn_file_actions_addopen(&silent, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = -1;
    int status = -1;
    if (posix_spawn(&child, own[0], &silent, nullptr, own.data(), environ) == 0)
        waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&silent);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<dirent> sorted_entries(DIR *folder, dirent *(*next)(DIR *))
{
    std::vector<dirent> entries;
    for (const dirent *entry; folder != nullptr && (entry = next(folder)) != nullptr;)
        entries.push_back(*entry);
    std::sort(entries.begin(), entries.end(),
              [](const dirent &a, const dirent &b) { return strcmp(a.d_name, b.d_name) < 0; });
    return entries;
}

const char *type_name(unsigned char sensor_type)
{
    static char names[256][sizeof "Type 00h"];
    snprintf(names[sensor_type], sizeof names[sensor_type], "Type %02Xh", sensor_type);
    return names[sensor_type];
}

long cfg_file::find(long start, const char *key, const char *separator, char **value_found, int *found)
{
    value.clear();
    *value_found = value.data();
    *found = 0;
    size_t line = start > 0 ? static_cast<size_t>(start) - 1 : 0;
    for (bool first = true; line < text.size(); first = false) {
        const size_t end = std::min(text.find_first_of("\r\n", line), text.size());
        if (key[0] != '[' && text[line] == '[' && !first)
            return 0;
        if (text.compare(line, strlen(key), key) == 0) {
            const size_t at = text.substr(0, end).find(separator, line);
            if (at != std::string::npos)
                value = text.substr(at + strlen(separator), end - at - strlen(separator));
            *value_found = value.data();
            *found = 1;
            return static_cast<long>(line) + 1;
        }
        line = end + 1;
    }
    return 0;
}

// The bounded calls -------------------------------------------------------------------------------------------------

ABI int vos_memset(void *to, size_t to_size, int value, size_t count)
{
    if (count > to_size)
        return -1;
    memset(to, value, count);
    asm volatile("" ::"r"(to) : "memory");
    return 0;
}

ABI int vos_memcpy(void *to, size_t to_size, const void *from, size_t count)
{
    if (count > to_size)
        return -1;
    copy_bytes(to, from, count);
    return 0;
}

ABI int vos_strncpy(char *to, size_t to_size, const char *from, size_t count)
{
    const size_t length = std::min(strnlen(from, count), to_size - 1);
    copy_bytes(to, from, length);
    to[length] = '\0';
    return 0;
}

ABI int vos_strncat(char *to, size_t to_size, const char *from, size_t count)
{
    const size_t used = strnlen(to, to_size);
    return vos_strncpy(to + used, to_size - used, from, count);
}

ABI int vos_snprintf(char *to, size_t to_size, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    const int length = vsnprintf(to, to_size, format, values);
    va_end(values);
    return length;
}
