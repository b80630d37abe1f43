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

/// \brief The pages of the window: a list of their names at the leading edge, and the current page.
class CPages : public QWidget
{
    Q_OBJECT

public:
    /// \param first page, always there; this widget owns it.
    explicit CPages(QWidget *first, QWidget *parent = nullptr);

    /// \brief The names that --page and Show() accept, in the order of the pages.
    [[nodiscard]] static QStringList Names();

    /// \brief Go to the page called \a name and build it if it does not exist yet.
    /// \return false, and stay, if there is no such page.
    bool Show(const QString &name);
    [[nodiscard]] QString Current() const;

    /// \brief The current page, or null for the first one.
    [[nodiscard]] CPage *CurrentPage() const;

    /// \brief Give all pages the list that the window shows.
    void SetList(const IncidentListPtr &list);
    /// \brief One action for each page, with the shortcuts Ctrl+1, Ctrl+2 and so on, for a menu.
    [[nodiscard]] QList<QAction *> Actions() const { return actions_; }
    /// \brief The page that works for a long time, or null.
    [[nodiscard]] CPage *WorkingPage() const;
    /// \brief Let the current page prepare for a screenshot.
    void PrepareForPicture();
    /// \brief Whether the current page still waits for its contents.
    [[nodiscard]] bool IsLoading() const;

public Q_SLOTS:
    void OnThemeChanged();

Q_SIGNALS:
    /// A page has a short text for the status bar.
    void SignalMessage(const QString &text);
    /// The progress of work on a page other than the current one, or empty.
    void SignalWorkElsewhere(const QString &text);
    /// A page's long work has ended.
    void SignalWorkEnded();
    /// Emitted when another page is shown.
    void SignalPageChanged(const QString &name);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnRowChanged(int row);
    void OnWork(const QString &text);

private:
    void ShowWork();
    void Retranslate();
    CPage *Build(int row);

    QListWidget *const navigation_;
    QStackedWidget *const stack_;
    QList<QAction *> actions_;
    std::vector<QWidget *> pages_; // one for each row; null until it is built
    IncidentListPtr list_;
    QString work_; // the progress of WorkingPage()
};

} // namespace Client
