#include "ipmcd/frame.h"
#include "tests/ipmcd/board.h"

namespace ipmcd
{

TEST(frame, a_request_is_taken_apart)
{
    request_frame frame;
    ASSERT_EQ(parse(set_fan_level_60, frame), frame_error::none);
    EXPECT_EQ(frame.responder, 0x00);
    EXPECT_EQ(frame.netfn, 0x2C);
    EXPECT_EQ(frame.lun, 0);
    EXPECT_EQ(frame.requester, 0x63);
    EXPECT_EQ(frame.sequence, 5);
    EXPECT_EQ(frame.requester_lun, 0);
    EXPECT_EQ(frame.command, 0x15);
    EXPECT_EQ(bytes(frame.data.begin(), frame.data.end()), (bytes{0x00, 0x00, 0x3C}));
}

TEST(frame, the_smallest_request_has_seven_bytes)
{
    request_frame frame;
    const bytes get_device_id = {0x00, 0x18, 0xE8, 0x63, 0x00, 0x01, 0x9C};
    EXPECT_EQ(parse(get_device_id, frame), frame_error::none);
    EXPECT_TRUE(frame.data.empty());
    for (size_t length = 0; length < get_device_id.size(); length++)
        EXPECT_EQ(parse(std::span(get_device_id).first(length), frame), frame_error::too_short) << length;
}

TEST(frame, any_single_wrong_byte_fails_a_checksum)
{
    for (size_t i = 0; i < set_fan_level_60.size(); i++) {
        bytes wrong = set_fan_level_60;
        wrong[i] ^= 0x40;
        request_frame frame;
        EXPECT_EQ(parse(wrong, frame), frame_error::bad_checksum) << "byte " << i;
    }
}

TEST(frame, an_odd_netfn_is_an_answer)
{
    request_frame frame;
    EXPECT_EQ(parse(bytes{0x00, 0xB4, 0x4C, 0x63, 0x14, 0x15, 0x74}, frame), frame_error::not_a_request);
}

TEST(frame, an_answer_goes_back_the_way_the_request_came)
{
    // Responder LUN 1, requester LUN 2: in the answer they change places. 00+B1 = B1, so 4F; 63+16+15 = 8E, so 72.
    request_frame request;
    ASSERT_EQ(parse(bytes{0x00, 0xB1, 0x4F, 0x63, 0x16, 0x15, 0x72}, request), frame_error::none);
    answer_frame answer(request, completion::invalid_for_lun);
    // 63+B6 = 119, so E7; 00+15+15+C2 = EC, so 14.
    EXPECT_EQ(answer.encode(), (bytes{0x63, 0xB6, 0xE7, 0x00, 0x15, 0x15, 0xC2, 0x14}));
    answer.code = completion::ok;
    answer.data = {0x00, 0x3C};
    // 00+15+15+00+00+3C = 66, so 9A.
    EXPECT_EQ(answer.encode(), (bytes{0x63, 0xB6, 0xE7, 0x00, 0x15, 0x15, 0x00, 0x00, 0x3C, 0x9A}));
}

}  // namespace ipmcd
