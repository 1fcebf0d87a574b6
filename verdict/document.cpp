#include "verdict/document.h"

#include "verdict/error_code.h"
#include "verdict/json.h"

#include <algorithm>

static constexpr int format_version = 2;

/// The lines of a text as a JSON array; each ends in a line feed.
static void print_lines(FILE *out, std::string_view text)
{
    fputc('[', out);
    for (bool is_first = true; !text.empty(); is_first = false) {
        const size_t end = std::min(text.find('\n'), text.size());
        fputs(is_first ? "" : ", ", out);
        print_json(out, {text.data(), end});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    fputc(']', out);
}

static const char *name_of(verdict result)
{
    switch (result) {
    case verdict::done:
        return "done";
    case verdict::failed:
        return "failed";
    case verdict::refused:
        return "refused";
    case verdict::no_answer:
        return "no_answer";
    case verdict::timed_out:
        return "timed_out";
    case verdict::unknown:
        break;
    }
    return "unknown";
}

static void print_words(FILE *out, char *const *words)
{
    fputc('[', out);
    for (size_t n = 0; words[n] != nullptr; ++n) {
        fputs(n > 0 ? ", " : "", out);
        print_json(out, words[n]);
    }
    fputc(']', out);
}

static void print_or_null(FILE *out, std::string_view text)
{
    if (text.empty())
        fputs("null", out);
    else
        print_json(out, text);
}

/// Whether a sentence decided.
static bool has_sentence(verdict result) { return result != verdict::unknown && result != verdict::timed_out; }

static void print_error(FILE *out, verdict result, const status_reader &said)
{
    uint32_t code;
    if (!has_sentence(result) || !said.error_code(code)) {
        fputs("null", out);
        return;
    }
    const error_parts parts = take_apart(code);
    fprintf(out, "{\"code\": \"0x%08X\"", code);
    if (parts.has_request)
        fprintf(out, ", \"netfn\": %u, \"command\": %u, \"selector\": %u", parts.netfn, parts.command, parts.selector);
    if (parts.has_completion)
        fprintf(out, ", \"completion\": %u", parts.completion);
    fputs(", \"text\": ", out);
    print_json(out, parts.text);
    fputc('}', out);
}

void print_document(FILE *out, const finished_run &run, const status_reader &said)
{
    fprintf(out, "{\"format\": %d,\n \"words\": ", format_version);
    print_words(out, run.words);
    fputs(",\n \"target\": ", out);
    print_or_null(out, said.target());
    fputs(",\n \"dataitem\": ", out);
    print_or_null(out, said.dataitem());
    fprintf(out, ",\n \"verdict\": \"%s\",\n \"sentence\": ", name_of(run.result));
    print_or_null(out, has_sentence(run.result) ? said.sentence() : "");
    fputs(",\n \"error\": ", out);
    print_error(out, run.result, said);
    fputs(",\n \"event_codes\": ", out);
    print_lines(out, said.event_codes());
    fputs(",\n \"signal\": ", out);
    if (run.signal != 0)
        fprintf(out, "%d", run.signal);
    else
        fputs("null", out);
    fputs(",\n \"lines\": ", out);
    print_lines(out, said.lines());
    fprintf(out, ",\n \"lines_left_out\": %lu}\n", said.lines_left_out());
}
