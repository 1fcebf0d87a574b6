/// Files of the system event log as tables. An input is the log, its length in front, and the controller's answers.
#include "sel/csv.h"

#include "platform/platform.h"
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

#include <algorithm>

static constexpr char events[] = "0x01 0x01 9 assert   2 20100012 Temperature above the upper critical threshold\n"
                                 "0x07 0x6F * *        3 20200000 Processor event, any\n"
                                 "*    *    * deassert 255 20FF0000 Over\n";
static constexpr char heading[] =
    "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,Event Code,Status\r\n";

/// Heading, and a line for each whole record, the newest first. What a sensor is called may have any character in it.
static void check_table(const std::string &table, size_t records)
{
    check(table.starts_with(heading) && table.ends_with("\r\n"));
    check(records == 0 ? table == heading : table.starts_with(heading + std::to_string(records) + ","));
    check(size_t(std::count(table.begin(), table.end(), '\n')) > records);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    surroundings found;
    const size_t length = input.u8() * 8U;  // half records too
    found.files = {{"/data/sectbl.cfg", events}, {"/tmp/sel.bin", input.bytes(length)}};
    play(found, [] {
        check(event_parse_init("/data/sectbl.cfg") != 0);
        check(sel_bin2txt("/tmp/sel.bin", "/tmp/sel.csv") == 1);
    });
    check_table(content_of("/tmp/sel.csv"), found.files[1].content.size() / 16);
    return 0;
}
