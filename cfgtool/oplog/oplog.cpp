#include "oplog/oplog.h"

#include "platform/platform.h"
#include "ui/console.h"
#include "ui/status.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int get_username_ip(char *user, size_t user_size, char *origin, size_t origin_size)
{
    if (user == nullptr || origin == nullptr || origin_size == 0) {
        say("get_username_ip: parameter invalid.");
        return 0;
    }

    const char *name = getenv("LOGNAME");
    snprintf(user, user_size, "%s", name != nullptr ? name : "unknown");

    const char *from = getenv("SSH_CONNECTION");  // "client-address client-port server-address server-port"
    if (from != nullptr) {
        snprintf(origin, origin_size, "%s", from);
        origin[strcspn(origin, " ")] = '\0';
        return 1;
    }
    from = getenv("REMOTEHOST");
    snprintf(origin, origin_size, "%s", from != nullptr ? from : "console");
    return 1;
}

int save_sys_log(uint32_t log_class, const char *module, const char *record)
{
    if (module == nullptr || record == nullptr) {
        say("save_sys_log: parameter invalid.");
        return -1;
    }

    char user[64] = "", origin[64] = "";
    if (get_username_ip(user, sizeof user, origin, sizeof origin) <= 0) {
        // the identity of records that the system makes itself
        snprintf(user, sizeof user, "$Supervisor");
        snprintf(origin, sizeof origin, "IPC");
    }
    const int result = vos_zentro_log(log_class, user, origin, module, record);
    if (result == 0 && has_status()) {
        char class_text[sizeof "4294967295"];
        snprintf(class_text, sizeof class_text, "%u", log_class);
        write_status({"record", class_text, module, record});
    }
    return result;
}

[[gnu::format(printf, 3, 0)]] static void format_and_save(uint32_t log_class, const char *module, const char *format,
                                                          va_list values)
{
    char record[512];
    vsnprintf(record, sizeof record, format, values);
    save_sys_log(log_class, module, record);
}

void log_record(uint32_t log_class, const char *module, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    format_and_save(log_class, module, format, values);
    va_end(values);
}

void log_change(const char *module, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    format_and_save(log_class_change, module, format, values);
    va_end(values);
}
