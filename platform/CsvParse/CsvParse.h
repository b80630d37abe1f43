// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <cstddef>
#include <cstdio>

/// \brief State of one CSV parser (RFC 4180, lenient), stored by value by the caller.
/// csvparse_init() comes first.
///
/// Plain memory, so that callers need not include the header of the parser that works in it.
struct csvparse_parser
{
    /// \brief The memory of the parser, not to be read or written by the caller.
    alignas(std::max_align_t) unsigned char storage[192];
};

extern "C" {

/// Receives one complete field, quotes removed and doubled quotes undone. Its bytes may be those of
/// the input: they are valid during the call, without a zero behind them, and not to be changed.
using csvparse_field_callback = void (*)(void *field, std::size_t length, void *user_data);
/// Receives the end of a record: the character that ended it, -1 at the end of input.
using csvparse_row_callback = void (*)(int terminator, void *user_data);

/// \brief Set up \a parser with delimiter "," and quote "\"".
/// \param options 0: not strict, so stray quotes are taken as text.
/// \return 0 on success.
VANTOR_BASE_EXPORT int csvparse_init(csvparse_parser *parser, unsigned char options);

/// \brief Use \a delimiter, an ASCII character, between fields from now on.
VANTOR_BASE_EXPORT void csvparse_set_delimiter(csvparse_parser *parser, char delimiter);

/// \brief Keep blanks and tabs around fields from now on, as RFC 4180 wants it (1), or drop them
/// (0, the default). Kept ones may not be between a separator and a quote.
VANTOR_BASE_EXPORT void csvparse_keep_blanks(csvparse_parser *parser, int keep);

/// \return 1 while a quoted field is open after the bytes parsed so far, else 0.
VANTOR_BASE_EXPORT int csvparse_is_in_quotes(const csvparse_parser *parser);

/// \brief Parse \a length bytes; fields and records may go on in the next call.
/// \return bytes consumed; less than \a length on an error, such as no memory for a long field.
VANTOR_BASE_EXPORT std::size_t csvparse_parse(csvparse_parser *parser, const void *bytes,
                                              std::size_t length, csvparse_field_callback field,
                                              csvparse_row_callback row, void *user_data);

/// \brief Deliver a pending field and record and make the state ready for the next input. Callbacks
/// may be null.
///
/// \return 0 on success.
VANTOR_BASE_EXPORT int csvparse_fini(csvparse_parser *parser, csvparse_field_callback field,
                                     csvparse_row_callback row, void *user_data);

/// \brief Release the buffers of \a parser, which can still be used for parsing.
VANTOR_BASE_EXPORT void csvparse_free(csvparse_parser *parser);

/// \brief Write \a bytes to \a stream as one quoted field, inner quotes doubled.
/// \return 0 on success.
VANTOR_BASE_EXPORT int csvparse_fwrite(std::FILE *stream, const void *bytes, std::size_t length);

} // extern "C"
