#include "verdict/document.h"

#include "verdict/error_code.h"
#include "verdict/json.h"

#include <algorithm>

static constexpr int format_version = 1;

/// The pieces of a text between separators as a JSON array, those in front of the last separator.
static void print_pieces(FILE *out, std::string_view text, char separator)
{
    fputc('[', out);
    for (bool is_first = true; !text.empty(); is_first = false) {
        const size_t end = std::min(text.find(separator), text.size());
        fputs(is_first ? "" : ", ", out);
        print_json(out, {text.data(), end});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    fputc(']', out);
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

static void print_error(FILE *out, verdict result, const reading &said)
{
    uint32_t code;
    if (result == verdict::unknown || !find_error_code(said.sentence(), said.code(), code)) {
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

static const char *events_of(const finished_run &run)
{
    if (run.which == nullptr)
        return "";
    if (run.result == verdict::done)
        return run.which->done_events;
    return run.result == verdict::refused ? run.which->refused_events : run.which->all_events;
}

void print_document(FILE *out, const finished_run &run, const reading &said)
{
    fprintf(out, "{\"format\": %d,\n \"words\": ", format_version);
    print_words(out, run.words);
    fputs(",\n \"target\": ", out);
    print_or_null(out, run.which != nullptr ? run.which->target : "");
    fputs(",\n \"dataitem\": ", out);
    print_or_null(out, run.which != nullptr ? run.which->dataitem : "");
    fprintf(out, ",\n \"verdict\": \"%s\",\n \"sentence\": ", name_of(run.result));
    print_or_null(out, run.result != verdict::unknown ? said.sentence() : "");
    fputs(",\n \"error\": ", out);
    print_error(out, run.result, said);
    fputs(",\n \"event_codes\": ", out);
    print_pieces(out, events_of(run), ' ');
    fputs(",\n \"signal\": ", out);
    if (run.signal != 0)
        fprintf(out, "%d", run.signal);
    else
        fputs("null", out);
    fputs(",\n \"lines\": ", out);
    print_pieces(out, said.kept_lines(), '\n');
    fprintf(out, ",\n \"lines_left_out\": %lu}\n", said.lines_left_out());
}
