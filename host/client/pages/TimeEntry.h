// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QDateTime>
#include <QtWidgets/QLineEdit>

#include <optional>

namespace Client {

/// \brief Read a date, a time or both, such as "2026-03-29 14:30:00", "2026/3/29" or "14:30", with
/// the digits of any script. The missing part is taken from \a shown.
/// \return nothing for any other text, and for dates and times that do not exist.
[[nodiscard]] std::optional<QDateTime> ReadTime(const QString &text, const QDateTime &shown);

/// \brief Shows a time and takes one that is typed or pasted as a whole or in part.
///
/// Return enters it, Escape takes it back. Up and Down step the part at the caret.
class CTimeEntry : public QLineEdit
{
    Q_OBJECT

public:
    explicit CTimeEntry(QWidget *parent = nullptr);

    /// \brief Show \a time, in the fields of a UTC date-time. A text that is being typed stays.
    void SetTime(const QDateTime &time);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void SignalEntered(const QDateTime &time);
    /// The text that was entered is no time.
    void SignalRefused(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void Enter();
    void Step(int steps);

    QDateTime time_; // the shown time, unless isModified()
};

} // namespace Client
