/// The controller platform, as cfgtool sees it: C libraries that the tool is linked against dynamically. Any library
/// with these symbols can stand behind it. platform/linux is the one for plain Linux; a board brings its own.
///
/// Texts are NUL-terminated, sizes are in bytes. Nothing here throws, and no call keeps a pointer it was given unless
/// it says so. "0 = done" means: any other value is a failure and nothing is promised of what was asked for.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// Message library ---------------------------------------------------------------------------------------------------

/// Starts the client under port identity `port`. 0 = started.
int ipc_no_listen_init(int port);
/// Sends one message to `port`. `flags` is 0. 0 = sent; a message is sent whole or not at all.
int ipc_msg_send(const void *message, unsigned int length, unsigned int flags, unsigned int port);
/// Waits for one message or the library's own time-out. Fills up to 1056 bytes: 32 bytes of header (payload length,
/// 16 bits little-endian, at bytes 8-9), then the payload. -1 = nothing received, any other value = a message.
int ipc_msg_recv(void *message);
/// Stops the client.
void ipc_exit(void);

// OS abstraction ----------------------------------------------------------------------------------------------------

/// Bounded fill, never optimised away: the call for wiping secrets. 0 = done; nothing is written when count > to_size.
int vos_memset(void *to, size_t to_size, int value, size_t count);
/// Bounded copy. 0 = done; nothing is written when count > to_size.
int vos_memcpy(void *to, size_t to_size, const void *from, size_t count);
/// Bounded copy of at most `count` characters, always terminated. 0 = done.
int vos_strncpy(char *to, size_t to_size, const char *from, size_t count);
/// Bounded append of at most `count` characters, always terminated. 0 = done.
int vos_strncat(char *to, size_t to_size, const char *from, size_t count);
/// As snprintf.
int vos_snprintf(char *to, size_t to_size, const char *format, ...)
#ifdef __GNUC__
    __attribute__((format(printf, 3, 4)))
#endif
    ;
/// Sleeps, in milliseconds and in microseconds.
void vos_task_delay(unsigned int milliseconds);
void vos_task_delay_us(unsigned int microseconds);
/// Runs a program (argv[0] = the path, null-terminated list) and waits for it. Its exit status, -1 = could not be run.
int vos_system(const char *path, char *const argv[]);
/// The same, with the caller's environment.
int vos_environ_system(const char *path, char *const argv[]);
/// Length of a file; -1 = cannot be examined.
long vos_get_file_length(const char *path);
/// Last component of `path` into `name`. 0 = done.
int vos_get_file_name(const char *path, char *name, size_t name_size);
/// Copies a file, destination first. 0 = done.
int vos_file_copy(const char *to, const char *from);
/// Removes a file, or a folder with all that is in it. 0 = done.
int vos_rm_filepath(const char *path);
/// 0 = a permitted user name.
int vos_check_username(const char *name);
/// Non-zero = `text` holds one of `characters`.
int vos_check_incorrect_char(const char *text, const char *characters);
/// A random number.
unsigned int vos_rand(void);
/// Appends one operation-log record. 0 = written.
int vos_zentro_log(unsigned int log_class, const char *user, const char *origin, const char *module,
                   const char *record);

// Configuration parser ----------------------------------------------------------------------------------------------

/// A handle for the other two calls, or null.
void *CfgFileOpenReadOnly(const char *path);
/// Finds `key` at or after byte position `start`: its position (> 0), or 0 = not found. `*found` is 1 or 0. `*value`
/// is the text after `separator` ("=") on that line, owned by the handle, empty when there is none. A key that begins
/// with "[" is a section line; any other key is searched up to the next section line.
long KeySearch(void *file, long start, const char *key, const char *separator, char **value, int *found);
void CfgFileClose(void *file);

// Events, archive ---------------------------------------------------------------------------------------------------

/// Loads the event table. 0 = failure.
int event_parse_init(const char *path);
/// Severity number and description (null or empty = none) of a SEL record. 0 = the record has no entry in the table;
/// severity and description are set all the same.
int event_parse(const unsigned char record[16], unsigned int *severity, const char **description);
/// The 32-bit event code of a SEL record.
unsigned long event_get_code(const unsigned char record[16]);
/// Name of an IPMI sensor type, never null.
const char *get_sensor_type_name(unsigned char sensor_type);
/// Packs the files of `directory` that match `pattern` into `archive`. 0 = done.
int tar_gzip_pack(const char *directory, const char *pattern, const char *archive);

// Board access ------------------------------------------------------------------------------------------------------

int cpld_init(void);
int fpga_Init(void);
void cpld_clean(void);
void fpga_clean(void);
/// Number of MAC addresses; 0 or less = unknown.
int get_mac_num(void);
/// Writes, then reads, one I2C device. `address` is in its 8-bit form. Negative = error.
int i2c_write_read(int bus, int address, const unsigned char *write, int write_length, unsigned char *read,
                   int read_length, int flags);
/// Copies `length` bytes of the host's BIOS flash to a file. Negative = failure.
int get_bios(const char *path, unsigned int length);
/// Hands the BIOS flash over: 1 = controller, 0 = host. 0 = done.
int set_bios_owner(int owner);
/// Writes `length` bytes of `file`, from `file_offset`, to `device` at `device_offset`. 0 = done.
int spi_flash_copy(const char *device, unsigned int device_offset, const char *file, unsigned int file_offset,
                   unsigned int length, int flag1, int flag2);
/// 0 = done, -10 = not supported.
int set_bios_print_flag(int on);

#ifdef __cplusplus
}
#endif
