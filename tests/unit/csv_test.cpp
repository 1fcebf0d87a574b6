/// The table of a log, where writing it is interrupted or fails.
#include "sel/csv.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <cerrno>

class log_table : public test_folder
{
protected:
    void SetUp() override
    {
        reset_stub();
        stub.answer_all = {0x00, 0x00, 0x00};  // the time's offset
        write("sel.bin", std::string("\x01\x00\xE0", 3) + std::string(13, '\0'));
        stub.file_length = 16;
    }
    void TearDown() override { reset_stub(); }

    std::string convert(int result) const
    {
        return printed([&] { EXPECT_EQ(sel_bin2txt(path("sel.bin").c_str(), path("sel.csv").c_str()), result); });
    }
};

TEST_F(log_table, is_written_on_behind_a_signal)
{
    const failing_call interrupted("write", EINTR);
    EXPECT_EQ(convert(1), "");
    EXPECT_EQ(contents(path("sel.csv")),
              "ID,Severity,Generation Time(UTC),Generation Time(LOCAL),Sensor,Event Description,"
              "Event Code,Status\r\n"
              "1,Ok,,,,,00000000,Asserted\r\n");
}

TEST_F(log_table, that_cannot_be_written_is_told)
{
    for (const int error : {ENOSPC, 0}) {
        const failing_call full("write", error);
        EXPECT_EQ(convert(0), "sel_bin2txt: fwrite " + path("sel.csv") + " failed\r\n");
    }
}
