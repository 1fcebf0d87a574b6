/// What a request carried is nowhere on the stack once its exchange is over, however that went.
#include "ipmi/transport.h"
#include "platform/platform.h"
#include "tests/unit/platform_stub.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <span>

/// "Sesame-1" with one bit of each character the other way round: the stack holds the word itself where the tool puts
/// it.
static constexpr uint8_t word[] = {'R', 'd', 'r', '`', 'l', 'd', ',', '0'};
static constexpr size_t depth = 32768, trace_length = 6;

static volatile uint8_t other_bit = 1;  // unknown to the compiler, which would else keep the word itself

[[gnu::noinline]] static ipmi_request request_with_secret()
{
    ipmi_request request(netfn_app, 0x47);
    request.u8(0x82).u8(0x02);
    for (const uint8_t letter : word)
        request.u8(uint8_t(letter ^ other_bit));
    return request;
}

[[gnu::noinline, gnu::no_sanitize_address]] static size_t traces_below(const volatile uint8_t *top)
{
    size_t count = 0;
    for (const volatile uint8_t *place = top - depth; place < top - trace_length; ++place)
        for (size_t first = 0; first + trace_length <= sizeof word; ++first) {
            size_t same = 0;
            while (same < trace_length && place[same] == (word[first + same] ^ 1))
                ++same;
            count += same == trace_length;
        }
    return count;
}

[[gnu::noinline]] static void clear_stack()
{
    uint8_t old[depth] = {};
    asm volatile("" ::"r"(old) : "memory");
}

/// The traces that `run` leaves on the stack below.
template <typename action>
[[gnu::noinline]] static size_t traces_of(action run)
{
    clear_stack();
    run();
    return traces_below(static_cast<const volatile uint8_t *>(__builtin_frame_address(0)));
}

[[gnu::noinline]] static void leave_a_copy()
{
    uint8_t copy[512];
    for (size_t n = 0; n < sizeof word; ++n)
        copy[n] = uint8_t(word[n] ^ other_bit);
    asm volatile("" ::"r"(copy) : "memory");
}

TEST(secrets, a_copy_on_the_stack_is_found) { EXPECT_GT(traces_of(leave_a_copy), 0U); }

TEST(secrets, a_request_is_wiped_at_its_end)
{
    EXPECT_EQ(traces_of([] { EXPECT_TRUE(request_with_secret().fits()); }), 0U);
}

TEST(secrets, an_exchange_that_is_over_leaves_nothing)
{
    struct way {
        const char *name;
        byte_text answer;
        int send_result;
    };
    const way ways[] = {{"answered", {0x00}, 0}, {"refused", {0x84}, 0}, {"silent", {}, 0}, {"unsent", {}, -1}};
    for (const way &each : ways) {
        for (auto *send : {exchange, exchange_patient}) {
            SCOPED_TRACE(each.name);
            reset_stub();
            stub.answer_all = each.answer;
            stub.send_results.assign(5, each.send_result);
            EXPECT_EQ(traces_of([send] { send(request_with_secret()); }), 0U);
            ASSERT_FALSE(stub.sent.empty());
            EXPECT_EQ(stub.sent.front()[8], word[0] ^ 1);  // it did go out
        }
    }
}
