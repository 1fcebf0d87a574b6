#include "state/ask.h"

#include "ipmi/code_text.h"
#include "state/complaints.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

static constexpr int most_unanswered = 3;  // in a row
static int unanswered;

bool controller_is_gone() { return unanswered >= most_unanswered; }

static void complain_about_silence(const char *what)
{
    complain("%s: no answer (0x%X)", what, g_error_code);
    if (++unanswered == most_unanswered)
        remark("the controller does not answer; nothing more is asked");
}

static bool is_long_enough(size_t size, size_t needed, const char *what)
{
    if (size < needed)
        complain("%s: the answer is too short", what);
    return size >= needed;
}

reply ask(const ipmi_request &request, answer_shape shape, const char *what, uint8_t none_code)
{
    reply got;
    if (controller_is_gone())
        return got;
    const ipmi_answer answer = exchange(request);
    if (answer.unanswered()) {
        complain_about_silence(what);
        return got;
    }
    unanswered = 0;
    if (none_code != 0 && answer.refused_with(none_code)) {
        got.how = reply::end::has_none;
    } else if (!answer.ok()) {
        complain("%s: refused: %s (0x%02X)", what, completion_text(answer.completion, answer.netfn, answer.command),
                 answer.completion);
    } else if (is_long_enough(answer.data.size(), size_t{shape.before} + shape.value, what)) {
        got.how = reply::end::answered;
        got.before = shape.before;
        got.size = uint16_t(answer.data.size());
        std::copy(answer.data.begin(), answer.data.end(), got.data);
    }
    return got;
}

bool has_bytes(const reply &got, size_t count, const char *what)
{
    return is_long_enough(got.value().size(), count, what);
}

const char *path(const char *format, ...)
{
    static char made[128];
    va_list values;
    va_start(values, format);
    vsnprintf(made, sizeof made, format, values);
    va_end(values);
    return made;
}
