// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace Client {

/// \brief Follows the quotes of a CSV file as the lenient splitter understands them, to tell what
/// the splitter does not: that the last quote is never closed.
class CQuoteWatch
{
public:
    explicit CQuoteWatch(char separator) : separator_(separator) {}

    /// \brief Follow the next bytes of the file.
    void Read(const QByteArray &bytes);
    /// \brief The line, from 1, of a quote that is still open and has swallowed a line break; 0
    /// when there is none.
    [[nodiscard]] qint64 OpenLine() const;

private:
    enum class State { FieldStart, Plain, Quoted, PastQuote };

    void ReadByte(char byte);

    const char separator_;
    State state_ = State::FieldStart;
    bool has_blank_ = false; // behind the quote of PastQuote
    char last_ = '\0';
    qint64 line_ = 1;
    qint64 quote_line_ = 0;
};

} // namespace Client
