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
    return csv_init(new (parser->storage) csv_parser, options);
}

void csvparse_set_delimiter(csvparse_parser *parser, char delimiter)
{
    csv_set_delim(StateOf(parser), static_cast<unsigned char>(delimiter));
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
