// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QLineEdit>

namespace Ravel {

/// \brief The client's line edit, with signals for its focus ("Ravel--CLineEdit" in a theme).
class VANTOR_PLATFORM_EXPORT CLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit CLineEdit(QWidget *parent = nullptr);
    /// \brief Shows \a text at first; \a parent owns the widget.
    explicit CLineEdit(const QString &text, QWidget *parent = nullptr);
    ~CLineEdit() override;

Q_SIGNALS:
    /// Emitted after the edit got the focus.
    void SignalFocusIn();
    /// Emitted after the edit lost the focus, with its text, but not when its context menu opens.
    void SignalFousOut(const QString &text);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace Ravel
