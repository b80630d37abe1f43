// SPDX-License-Identifier: MIT
#include "CsvParse/CsvParse.h"

#include <csv.h>

#include <cstring>
#include <new>
#include <type_traits>

static_assert(sizeof(csv_parser) <= sizeof(csvparse_parser), "the state must hold the parser");
static_assert(std::is_trivially_copyable<csv_parser>::value,
              "callers store and copy the state by value");

namespace {

// libcsv's states of a parser: before a row, before a field, and in a field (of a quoted one: until
// its quote ends).
constexpr int kRowNotBegun = 0;
constexpr int kFieldNotBegun = 1;
constexpr int kFieldBegun = 2;

struct Callbacks
{
    csvparse_field_callback field;
    csvparse_row_callback row;
    void *user_data;
};

csv_parser *StateOf(csvparse_parser *parser)
{
    return std::launder(reinterpret_cast<csv_parser *>(parser->storage));
}

bool IsRowEnd(unsigned char byte)
{
    return byte == '\n' || byte == '\r';
}

// Reads fields the way libcsv does, from the input itself: libcsv copies every byte and calls a
// function for most of them, which takes several times as long.
class CPlainFields
{
public:
    explicit CPlainFields(const csv_parser &state)
        : delimiter_(state.delim_char), drops_blanks_(!state.is_space)
    {}

    // Whether the parser is between two fields and has no setting that this class does not know.
    static bool CanRead(const csv_parser &state)
    {
        const bool is_between = state.pstate == kRowNotBegun || state.pstate == kFieldNotBegun;
        const unsigned char delimiter = state.delim_char;
        return is_between && state.options == 0 && delimiter != CSV_QUOTE && delimiter != CSV_SPACE
               && !IsRowEnd(delimiter);
    }

    // Returns the bytes read: up to the first field that has no end here, or has quotes to undo.
    std::size_t Read(csv_parser &state, const unsigned char *bytes, std::size_t length,
                     const Callbacks &callbacks) const
    {
        std::size_t read = 0;
        for (Field field; Find(bytes, length, read, field); read = field.end + 1) {
            const unsigned char end = bytes[field.end];
            if (IsRowEnd(end) && field.begin == field.end && state.pstate == kRowNotBegun)
                continue; // an empty line
            if (callbacks.field)
                callbacks.field(const_cast<unsigned char *>(bytes) + field.begin, field.length,
                                callbacks.user_data);
            if (IsRowEnd(end) && callbacks.row)
                callbacks.row(end, callbacks.user_data);
            state.pstate = IsRowEnd(end) ? kRowNotBegun : kFieldNotBegun;
        }
        return read;
    }

private:
    struct Field
    {
        std::size_t begin = 0;
        std::size_t length = 0;
        std::size_t end = 0; // of the byte that ends it
    };

    bool IsBlank(unsigned char byte) const
    {
        return drops_blanks_ && (byte == CSV_SPACE || byte == CSV_TAB) && byte != delimiter_;
    }
    bool IsEnd(unsigned char byte) const { return byte == delimiter_ || IsRowEnd(byte); }

    bool Find(const unsigned char *bytes, std::size_t length, std::size_t from, Field &field) const
    {
        while (from < length && IsBlank(bytes[from]))
            ++from;
        if (from < length && bytes[from] == CSV_QUOTE)
            return FindQuoted(bytes, length, from + 1, field);
        field.begin = from;
        while (from < length && !IsEnd(bytes[from]))
            ++from;
        field.end = from;
        while (from > field.begin && IsBlank(bytes[from - 1]))
            --from;
        field.length = from - field.begin;
        return field.end < length;
    }

    bool FindQuoted(const unsigned char *bytes, std::size_t length, std::size_t from,
                    Field &field) const
    {
        const auto *const quote =
            static_cast<const unsigned char *>(std::memchr(bytes + from, CSV_QUOTE, length - from));
        if (!quote)
            return false;
        field.begin = from;
        field.end = static_cast<std::size_t>(quote - bytes) + 1;
        field.length = field.end - 1 - from;
        return field.end < length && IsEnd(bytes[field.end]);
    }

    const unsigned char delimiter_;
    const bool drops_blanks_;
};

// Bytes up to and with the next line feed, or all.
std::size_t LineLength(const unsigned char *bytes, std::size_t length)
{
    const void *const feed = std::memchr(bytes, '\n', length);
    return feed ? static_cast<std::size_t>(static_cast<const unsigned char *>(feed) - bytes) + 1
                : length;
}

} // namespace

int csvparse_init(csvparse_parser *parser, unsigned char options)
{
    constexpr std::size_t kBlockBytes = std::size_t{64} * 1024; // a field's memory grows by this
    csv_parser *const state = new (parser->storage) csv_parser;
    const int result = csv_init(state, options);
    csv_set_blk_size(state, kBlockBytes);
    return result;
}

void csvparse_set_delimiter(csvparse_parser *parser, char delimiter)
{
    csv_set_delim(StateOf(parser), static_cast<unsigned char>(delimiter));
}

void csvparse_keep_blanks(csvparse_parser *parser, int keep)
{
    int (*const is_no_blank)(unsigned char) = [](unsigned char) { return 0; };
    csv_set_space_func(StateOf(parser), keep != 0 ? is_no_blank : nullptr);
}

int csvparse_is_in_quotes(const csvparse_parser *parser)
{
    const auto *const state = std::launder(reinterpret_cast<const csv_parser *>(parser->storage));
    return state->pstate == kFieldBegun && state->quoted != 0 ? 1 : 0;
}

std::size_t csvparse_parse(csvparse_parser *parser, const void *bytes, std::size_t length,
                           csvparse_field_callback field, csvparse_row_callback row,
                           void *user_data)
{
    csv_parser *const state = StateOf(parser);
    const CPlainFields plain(*state);
    const auto *const input = static_cast<const unsigned char *>(bytes);
    std::size_t read = 0;
    while (read < length) {
        if (CPlainFields::CanRead(*state))
            read += plain.Read(*state, input + read, length - read, {field, row, user_data});
        if (read == length)
            break;
        const std::size_t line = LineLength(input + read, length - read);
        const std::size_t taken = csv_parse(state, input + read, line, field, row, user_data);
        read += taken;
        if (taken < line)
            break;
    }
    return read;
}

int csvparse_fini(csvparse_parser *parser, csvparse_field_callback field, csvparse_row_callback row,
                  void *user_data)
{
    csv_parser *const state = StateOf(parser);
    const bool is_last_empty = state->pstate == kFieldNotBegun && !state->entry_buf;
    if (is_last_empty) { // libcsv, which no field went through, would deliver a null pointer
        state->pstate = kRowNotBegun;
        unsigned char end = 0;
        if (field)
            field(&end, 0, user_data);
        if (row)
            row(-1, user_data);
    }
    return csv_fini(state, field, row, user_data);
}

void csvparse_free(csvparse_parser *parser)
{
    csv_free(StateOf(parser));
}

int csvparse_fwrite(std::FILE *stream, const void *bytes, std::size_t length)
{
    return csv_fwrite(stream, bytes, length);
}
