// SPDX-License-Identifier: MIT
#include "CsvParse/CsvParse.h"

#include <csv.h>

#include <new>
#include <type_traits>

static_assert(sizeof(csv_parser) <= sizeof(csvparse_parser), "the state must hold the parser");
static_assert(std::is_trivially_copyable<csv_parser>::value,
              "callers store and copy the state by value");

namespace {

csv_parser *StateOf(csvparse_parser *parser)
{
    return std::launder(reinterpret_cast<csv_parser *>(parser->storage));
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
    // Of libcsv's states, 2 is within a field; within a quoted one until its quote ends.
    constexpr int kFieldBegun = 2;
    const auto *const state = std::launder(reinterpret_cast<const csv_parser *>(parser->storage));
    return state->pstate == kFieldBegun && state->quoted != 0 ? 1 : 0;
}

std::size_t csvparse_parse(csvparse_parser *parser, const void *bytes, std::size_t length,
                           csvparse_field_callback field, csvparse_row_callback row,
                           void *user_data)
{
    return csv_parse(StateOf(parser), bytes, length, field, row, user_data);
}

int csvparse_fini(csvparse_parser *parser, csvparse_field_callback field, csvparse_row_callback row,
                  void *user_data)
{
    return csv_fini(StateOf(parser), field, row, user_data);
}

void csvparse_free(csvparse_parser *parser)
{
    csv_free(StateOf(parser));
}

int csvparse_fwrite(std::FILE *stream, const void *bytes, std::size_t length)
{
    return csv_fwrite(stream, bytes, length);
}
