// SPDX-License-Identifier: MIT
#include "pages/TimeEntry.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QKeyEvent>

namespace Client {
namespace {

const QString kFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
constexpr int kRoomPx = 24; // for frame and padding

QString InAsciiDigits(const QString &text)
{
    QString ascii;
    for (const QChar c : text) {
        const QChar::Direction direction = c.direction();
        if (c.digitValue() >= 0)
            ascii += QChar(u'0' + c.digitValue());
        else if (direction != QChar::DirBN && c.category() != QChar::Other_Format) // no marks
            ascii += c;
    }
    return ascii.trimmed();
}

} // namespace

std::optional<QDateTime> ReadTime(const QString &text, const QDateTime &shown)
{
    static const QRegularExpression form(QStringLiteral(
        R"(^(?:(\d{4})[-/.](\d{1,2})[-/.](\d{1,2}))?[T\s]*(?:(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?)?Z?$)"));
    const auto match = form.match(InAsciiDigits(text));
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    const bool has_date = !match.captured(1).isEmpty();
    const bool has_time = !match.captured(4).isEmpty();
    if (!match.hasMatch() || !(has_date || has_time))
        return std::nullopt;
    const QDate date = has_date ? QDate(number(1), number(2), number(3)) : shown.date();
    const QTime time = has_time ? QTime(number(4), number(5), number(6)) : shown.time();
    if (!date.isValid() || !time.isValid()) // QDateTime would take midnight for no time
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC);
}

CTimeEntry::CTimeEntry(QWidget *parent) : QLineEdit(parent)
{
    setLayoutDirection(Qt::LeftToRight); // as on a ruler
}

void CTimeEntry::SetTime(const QDateTime &time)
{
    time_ = time;
    const QString shown = time.toString(kFormat);
    if (isModified() || text() == shown)
        return;
    const int caret = cursorPosition();
    setText(shown);
    setCursorPosition(caret);
}

void CTimeEntry::Enter()
{
    const QString typed = text();
    const bool was_modified = isModified();
    setModified(false);
    const auto time = ReadTime(typed, time_);
    if (was_modified && time) {
        Q_EMIT SignalEntered(*time);
        return;
    }
    if (was_modified)
        Q_EMIT SignalRefused(typed);
}

void CTimeEntry::Step(int steps)
{
    constexpr int kEndOfPart[] = {4, 7, 10, 13, 16};
    const QDateTime time = ReadTime(text(), time_).value_or(time_);
    int part = 0;
    while (part < int(std::size(kEndOfPart)) && cursorPosition() > kEndOfPart[part])
        ++part;
    const QDateTime stepped[] = {time.addYears(steps),       time.addMonths(steps),
                                 time.addDays(steps),        time.addSecs(steps * 3600LL),
                                 time.addSecs(steps * 60LL), time.addSecs(steps)};
    setModified(false);
    SetTime(stepped[part]);
    Q_EMIT SignalEntered(stepped[part]);
}

void CTimeEntry::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Enter();
        return;
    case Qt::Key_Up:
        Step(1);
        return;
    case Qt::Key_Down:
        Step(-1);
        return;
    case Qt::Key_Escape:
        if (isModified()) {
            setModified(false);
            SetTime(time_);
            return;
        }
        break;
    default:
        break;
    }
    QLineEdit::keyPressEvent(event);
}

void CTimeEntry::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    Enter();
    SetTime(time_); // a refused text goes
}

QSize CTimeEntry::sizeHint() const
{
    const int text_px = fontMetrics().horizontalAdvance(QStringLiteral("0000-00-00 00:00:00"));
    return {text_px + kRoomPx, QLineEdit::sizeHint().height()};
}

} // namespace Client
