// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
QT_END_NAMESPACE

namespace Client {

class CLanguageSwitch;
class CServerLink;
class CThemeSwitch;

/// \brief The menus and the tool bar of the window. Theme and language switch by themselves; the
/// window connects the rest.
class CWindowActions : public QObject
{
    Q_OBJECT

public:
    CWindowActions(QMainWindow &window, CThemeSwitch &theme, CLanguageSwitch &language);

    [[nodiscard]] QAction *Open() const { return open_; }
    [[nodiscard]] QAction *ExportCsv() const { return export_csv_; }
    [[nodiscard]] QAction *ExportXlsx() const { return export_xlsx_; }
    [[nodiscard]] QAction *ExportPanel() const { return export_panel_; }
    [[nodiscard]] QAction *Quit() const { return quit_; }
    [[nodiscard]] QAction *Copy() const { return copy_; }
    [[nodiscard]] QAction *SelectAll() const { return select_all_; }
    [[nodiscard]] QAction *Find() const { return find_; }
    [[nodiscard]] QAction *FileOrder() const { return file_order_; }
    [[nodiscard]] QAction *About() const { return about_; }

    /// \brief List \a pages, one of which is reached by each, in the View menu.
    void AddPages(const QList<QAction *> &pages);

    /// \brief Show the menu that switches the user of \a link, which outlives this.
    void AddUsers(CServerLink &link);

    void Retranslate();

Q_SIGNALS:
    /// What can be copied and selected now is to be told to the actions.
    void SignalEditMenuOpens();

private Q_SLOTS:
    void OnToggleTheme();
    void OnThemeChanged();

private:
    void BuildMenus(QMainWindow &window);
    void BuildThemeMenu();
    void BuildLanguageMenu();
    void BuildToolBar(QMainWindow &window);

    CThemeSwitch &theme_;
    CLanguageSwitch &language_;
    QMenu *file_menu_ = nullptr;
    QMenu *edit_menu_ = nullptr;
    QMenu *view_menu_ = nullptr;
    QMenu *page_menu_ = nullptr;
    QMenu *user_menu_ = nullptr;
    QMenu *theme_menu_ = nullptr;
    QMenu *language_menu_ = nullptr;
    QMenu *help_menu_ = nullptr;
    QToolBar *tool_bar_ = nullptr;
    QAction *const open_;
    QAction *const export_csv_;
    QAction *const export_xlsx_;
    QAction *const export_panel_;
    QAction *const quit_;
    QAction *const copy_;
    QAction *const select_all_;
    QAction *const find_;
    QAction *const file_order_;
    QAction *const light_;
    QAction *const dark_;
    QAction *const toggle_theme_;
    QAction *const about_;
};

} // namespace Client
