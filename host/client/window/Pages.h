// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QAction;
class QListWidget;
class QStackedWidget;
QT_END_NAMESPACE

namespace Client {

class CPage;

/// \brief The pages of the window: a list of their names at the leading edge, the current one
/// beside it. The names are left out while there is one page only.
class CPages : public QWidget
{
    Q_OBJECT

public:
    /// \param first page, always there; this widget owns it.
    explicit CPages(QWidget *first, QWidget *parent = nullptr);

    /// \brief What --page and Show() take, in their order.
    [[nodiscard]] static QStringList Names();

    /// \brief Go to the page of that name, building it if need be.
    /// \return false, and stay, when there is none of that name.
    bool Show(const QString &name);
    [[nodiscard]] QString Current() const;

    /// \brief Tell the pages which list the window shows.
    void SetList(const IncidentListPtr &list);
    /// \brief An action a page, with Ctrl+1 and so on, for a menu.
    [[nodiscard]] QList<QAction *> Actions() const { return actions_; }
    /// \brief What the current page needs to look its best in a picture.
    void PrepareForPicture();

public Q_SLOTS:
    void OnThemeChanged();

Q_SIGNALS:
    /// A page has a short text for the status bar.
    void SignalMessage(const QString &text);
    /// The user has come to another page.
    void SignalPageChanged(const QString &name);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnRowChanged(int row);

private:
    void Retranslate();
    CPage *Build(int row);

    QListWidget *const navigation_;
    QStackedWidget *const stack_;
    QList<QAction *> actions_;
    std::vector<QWidget *> pages_; // by row, null until it is built
    IncidentListPtr list_;
};

} // namespace Client
