#include "tests/unit/platform_stub.h"

#include "platform/platform.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <span>
#include <string_view>
#include <unistd.h>

platform_stub stub;

void reset_stub()
{
    stub = {};
    g_error_code = 0;
}

const char *on_disk(const char *path)
{
    const std::string_view place = path;
    if (!stub.has_disk && (place.starts_with("/tmp/") || place.starts_with("/data/")))
        return "/nowhere";
    if (!stub.tmp.empty() && place == "/tmp/")
        return stub.tmp.c_str();
    static constexpr std::string_view locks = "/ipmc/usr/";
    if (stub.lock_folder.empty() || !place.starts_with(locks))
        return path;
    static std::string places[2];
    static unsigned last;
    return (places[++last % 2] = stub.lock_folder + "/" + (path + locks.size())).c_str();
}

byte_text answer_to(const byte_text &frame, const byte_text &data)
{
    byte_text payload{frame[3], uint8_t(frame[1] + 4), 0, frame[0], frame[4], frame[5]};
    payload.insert(payload.end(), data.begin(), data.end());
    return payload;
}

std::string printed(const std::function<void()> &run)
{
    testing::internal::CaptureStdout();
    run();
    fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

uid_t geteuid() noexcept { return stub.account; }

// Message library ---------------------------------------------------------------------------------------------------

int ipc_no_listen_init(int) { return 0; }
void ipc_exit() {}

int ipc_msg_send(const void *message, unsigned length, unsigned flags, unsigned port)
{
    EXPECT_EQ(flags, 0U);
    EXPECT_EQ(port, 2001U);
    const auto *bytes = static_cast<const uint8_t *>(message);
    stub.sent.emplace_back(bytes, bytes + length);
    if (stub.send_results.empty())
        return 0;
    const int result = stub.send_results.front();
    stub.send_results.pop_front();
    return result;
}

int ipc_msg_recv(void *message)
{
    ++stub.receives;
    const std::span record_found(static_cast<const uint8_t *>(message), sizeof(ipmi_rsp));
    if (std::any_of(record_found.begin(), record_found.end(), [](uint8_t byte) { return byte != 0; }))
        stub.records_cleared = false;
    platform_stub::reception next{!stub.answer_all.empty(), {}};
    if (!stub.receptions.empty()) {
        next = stub.receptions.front();
        stub.receptions.pop_front();
    } else if (next.found) {
        next.payload = answer_to(stub.sent.back(), stub.answer_all);
    }
    if (!next.found)
        return -1;
    auto *record = static_cast<uint8_t *>(message);
    record[8] = uint8_t(next.payload.size());
    record[9] = uint8_t(next.payload.size() >> 8);
    std::copy_n(next.payload.begin(), std::min<size_t>(next.payload.size(), 1024), record + 32);
    return 0;
}

// OS abstraction ----------------------------------------------------------------------------------------------------

int vos_memset(void *to, size_t to_size, int value, size_t count)
{
    EXPECT_LE(count, to_size);
    memset(to, value, count);
    return 0;
}

int vos_memcpy(void *to, size_t to_size, const void *from, size_t count)
{
    if (count > to_size)
        return -1;
    memcpy(to, from, count);
    return 0;
}

int vos_strncpy(char *to, size_t to_size, const char *from, size_t count)
{
    const size_t length = std::min(strnlen(from, count), to_size - 1);
    memcpy(to, from, length);
    to[length] = '\0';
    return 0;
}

int vos_strncat(char *to, size_t to_size, const char *from, size_t count)
{
    const size_t used = strnlen(to, to_size);
    return vos_strncpy(to + used, to_size - used, from, count);
}

void vos_task_delay(unsigned milliseconds) { stub.slept_us.push_back(milliseconds * 1000); }
void vos_task_delay_us(unsigned microseconds)
{
    stub.slept_us.push_back(microseconds);
    if (stub.sleeps)
        usleep(1000);
}

int vos_zentro_log(unsigned log_class, const char *user, const char *origin, const char *module, const char *record)
{
    stub.logged.push_back({log_class, user, origin, module, record});
    return stub.log_result;
}

// The board -----------------------------------------------------------------------------------------------------------

int get_mac_num() { return stub.mac_num; }
long vos_get_file_length(const char *) { return stub.file_length; }

void *CfgFileOpenReadOnly(const char *path)
{
    EXPECT_STREQ(path, "/data/cli.conf");
    return &stub;
}

long KeySearch(void *file, long start, const char *key, const char *separator, char **value, int *found)
{
    EXPECT_EQ(file, &stub);
    EXPECT_STREQ(separator, "=");
    for (auto &line : stub.config)
        if (line.position >= start && line.key == key) {
            *value = line.has_text ? line.value.data() : nullptr;
            *found = 1;
            return line.position;
        }
    *found = 0;
    return 0;
}

void CfgFileClose(void *file) { EXPECT_EQ(file, &stub); }

// Not called by what is tested here ---------------------------------------------------------------------------------

int vos_system(const char *path, char *const argv[])
{
    return strcmp(path, "/bin/rm") == 0 && !stub.lock_folder.empty() ? unlink(on_disk(argv[2])) : -1;
}
int vos_environ_system(const char *, char *const[]) { return -1; }
int vos_get_file_name(const char *, char *, size_t) { return -1; }
int vos_file_copy(const char *, const char *) { return -1; }
int vos_rm_filepath(const char *) { return -1; }
int vos_check_username(const char *) { return 0; }
int vos_check_incorrect_char(const char *, const char *) { return 0; }
unsigned vos_rand() { return 0; }
int event_parse_init(const char *) { return 0; }
int event_parse(const unsigned char[16], unsigned *, const char **) { return 0; }
unsigned long event_get_code(const unsigned char[16]) { return 0; }
const char *get_sensor_type_name(unsigned char) { return stub.sensor_type_name.c_str(); }
int tar_gzip_pack(const char *, const char *, const char *) { return -1; }
int i2c_write_read(int, int, const unsigned char *, int, unsigned char *, int, int) { return -1; }
int get_bios(const char *, unsigned) { return -1; }
int set_bios_owner(int) { return -1; }
int spi_flash_copy(const char *, unsigned, const char *, unsigned, unsigned, int, int) { return -1; }
int set_bios_print_flag(int) { return -10; }
