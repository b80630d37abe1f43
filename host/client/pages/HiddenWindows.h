// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>

#include <vector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Client {

/// \brief Hides all windows of the process but one, and keeps new windows hidden, until
/// ShowAgain().
///
/// Tips, menus and docked panels are closed for good, because they belong to a moment; CPanels
/// opens its panel again with the window. Dialogs stay as they are: no signal of theirs is emitted,
/// and exec() does not return.
class CHiddenWindows : public QObject
{
    Q_OBJECT

public:
    /// \param visible stays visible, with its dialogs and tips.
    /// \param first   is hidden, and shown again, before the others.
    CHiddenWindows(QWidget *visible, QWidget *first);

    /// \brief Show the windows that still exist, each where it was.
    void ShowAgain();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Hidden
    {
        QPointer<QWidget> window;
        QRect place; // without its frame
    };

    void Hide(QWidget *window);
    void HideNew(const QPointer<QWidget> &window);
    void Remember(QWidget *window);
    [[nodiscard]] bool StaysVisible(const QWidget *window) const;

    QWidget *const visible_;
    std::vector<Hidden> hidden_;
};

} // namespace Client
