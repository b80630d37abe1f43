// SPDX-License-Identifier: MIT
#include "list/QuoteWatch.h"

namespace Client {

void CQuoteWatch::Read(const QByteArray &bytes)
{
    for (const char byte : bytes) {
        ReadByte(byte);
        if (byte == '\r' || (byte == '\n' && last_ != '\r'))
            ++line_;
        last_ = byte;
    }
}

qint64 CQuoteWatch::OpenLine() const
{
    return state_ == State::Quoted && line_ > quote_line_ ? quote_line_ : 0;
}

void CQuoteWatch::ReadByte(char byte)
{
    const bool is_end = byte == separator_ || byte == '\n' || byte == '\r';
    const bool is_blank = byte == ' ' || byte == '\t';
    switch (state_) {
    case State::FieldStart:
        if (is_end || is_blank)
            return;
        state_ = byte == '"' ? State::Quoted : State::Plain;
        quote_line_ = line_;
        return;
    case State::Plain:
        if (is_end)
            state_ = State::FieldStart;
        return;
    case State::Quoted:
        has_blank_ = false;
        if (byte == '"')
            state_ = State::PastQuote;
        return;
    case State::PastQuote:
        if (is_end)
            state_ = State::FieldStart;
        else if (is_blank)
            has_blank_ = true;
        else if (byte == '"' && has_blank_)
            has_blank_ = false; // a stray quote closes anew
        else
            state_ = State::Quoted; // two quotes in a row, or a stray one in the text
        return;
    }
}

} // namespace Client
