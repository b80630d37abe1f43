// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include <array>

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
enum class Theme;

/// \brief The menus and the tool bar of the window. This class switches theme and language; the
/// window connects the other actions.
class CWindowActions : public QObject
{
    Q_OBJECT

public:
    /// The actions, in the order of the menus.
    enum Id {
        kOpen,
        kExportCsv,
        kExportXlsx,
        kExportPanel,
        kQuit,
        kCopy,
        kSelectAll,
        kFind,
        kFileOrder,
        kLight,
        kDark,
        kContrast,
        kToggleTheme,
        kAbout,
        kActionCount
    };

    CWindowActions(QMainWindow &window, CThemeSwitch &theme, CLanguageSwitch &language);

    [[nodiscard]] QAction *Action(Id id) const { return actions_[id]; }

    /// \brief Allow opening and exporting lists, which do not run beside other work.
    void SetWorkAllowed(bool is_allowed);

    /// \brief List \a pages, the actions that go to the pages, in the View menu.
    void AddPages(const QList<QAction *> &pages);

    /// \brief Show the menu that switches the user of \a link, which outlives this.
    void AddUsers(CServerLink &link);

    void Retranslate();

Q_SIGNALS:
    /// The receiver must enable Copy and Select All for the current selection.
    void SignalEditMenuOpens();

private Q_SLOTS:
    void OnToggleTheme();
    void OnThemeChanged();

private:
    enum MenuId {
        kFileMenu,
        kEditMenu,
        kViewMenu,
        kUserMenu,
        kHelpMenu,
        kPageMenu, // from here on inside the View menu
        kThemeMenu,
        kLanguageMenu,
        kMenuCount,
        kNoMenu
    };
    struct Entry;

    [[nodiscard]] static const std::array<Entry, kActionCount> &Entries();
    void BuildMenus(QMainWindow &window);
    [[nodiscard]] QAction *ThemeAction(Theme theme) const;
    void BuildThemeMenu();
    void BuildLanguageMenu();
    void BuildToolBar(QMainWindow &window);

    CThemeSwitch &theme_;
    CLanguageSwitch &language_;
    std::array<QMenu *, kMenuCount> menus_{};
    std::array<QAction *, kActionCount> actions_{};
    QToolBar *tool_bar_ = nullptr;
};

} // namespace Client
