// SPDX-License-Identifier: MIT
#include "window/WindowActions.h"

#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

namespace Client {
namespace {

constexpr QSize kIconSizePx(20, 20);
constexpr char kContext[] = "Client::CWindowActions"; // of the translations

} // namespace

// One line adds an action. The texts are translated in kContext.
struct CWindowActions::Entry
{
    MenuId menu;
    bool begins_group; // after a separator
    QKeySequence shortcut;
    const char *text;
    const char *icon_text = nullptr; // on the tool bar; null: no tool bar
    const char *icon = nullptr;
};

const std::array<CWindowActions::Entry, CWindowActions::kActionCount> &CWindowActions::Entries()
{
    // In the order of Id.
    static const std::array<Entry, kActionCount> entries{{
        {kFileMenu, false, QKeySequence::Open, QT_TR_NOOP("&Open…"), QT_TR_NOOP("Open"), "open"},
        {kFileMenu, false, Qt::CTRL | Qt::Key_E, QT_TR_NOOP("Export as &CSV…"),
         QT_TR_NOOP("Export CSV"), "export"},
        {kFileMenu, false, Qt::CTRL | Qt::SHIFT | Qt::Key_E, QT_TR_NOOP("Export as &XLSX…"),
         QT_TR_NOOP("Export XLSX"), "export"},
        {kFileMenu, false, Qt::CTRL | Qt::ALT | Qt::Key_E, QT_TR_NOOP("Export &panel")},
        {kFileMenu, true, Qt::CTRL | Qt::Key_Q, QT_TR_NOOP("&Quit")},
        {kEditMenu, false, QKeySequence::Copy, QT_TR_NOOP("&Copy")},
        {kEditMenu, false, QKeySequence::SelectAll, QT_TR_NOOP("Select &all")},
        {kEditMenu, true, QKeySequence::Find, QT_TR_NOOP("&Find")},
        {kViewMenu, true, {}, QT_TR_NOOP("&Original order")},
        {kThemeMenu, false, {}, QT_TR_NOOP("&Light")},
        {kThemeMenu, false, {}, QT_TR_NOOP("&Dark")},
        {kThemeMenu, false, {}, QT_TR_NOOP("High &contrast")},
        {kNoMenu, false, {}, QT_TR_NOOP("Switch theme"), QT_TR_NOOP("Theme"), "theme"},
        {kHelpMenu, false, {}, QT_TR_NOOP("&About")},
    }};
    return entries;
}

CWindowActions::CWindowActions(QMainWindow &window, CThemeSwitch &theme, CLanguageSwitch &language)
    : QObject(&window), theme_(theme), language_(language)
{
    for (QAction *&action : actions_)
        action = new QAction(this);
    actions_[kQuit]->setMenuRole(QAction::QuitRole);
    actions_[kAbout]->setMenuRole(QAction::AboutRole);
    BuildMenus(window);
    BuildThemeMenu();
    BuildLanguageMenu();
    BuildToolBar(window);
    connect(actions_[kToggleTheme], &QAction::triggered, this, &CWindowActions::OnToggleTheme);
    connect(&theme_, &CThemeSwitch::SignalThemeChanged, this, &CWindowActions::OnThemeChanged);
    OnThemeChanged();
}

void CWindowActions::BuildMenus(QMainWindow &window)
{
    for (int id = kFileMenu; id < kPageMenu; ++id)
        menus_[id] = window.menuBar()->addMenu(QString());
    for (int id = kPageMenu; id < kMenuCount; ++id)
        menus_[id] = menus_[kViewMenu]->addMenu(QString());
    for (size_t id = 0; id < actions_.size(); ++id) {
        const Entry &entry = Entries()[id];
        actions_[id]->setShortcut(entry.shortcut);
        if (entry.menu == kNoMenu)
            continue;
        if (entry.begins_group)
            menus_[entry.menu]->addSeparator();
        menus_[entry.menu]->addAction(actions_[id]);
    }
    menus_[kUserMenu]->menuAction()->setVisible(false); // until there is a server
    connect(menus_[kEditMenu], &QMenu::aboutToShow, this, &CWindowActions::SignalEditMenuOpens);
}

void CWindowActions::SetWorkAllowed(bool is_allowed)
{
    for (const Id id : {kOpen, kExportCsv, kExportXlsx, kExportPanel})
        actions_[id]->setEnabled(is_allowed);
}

void CWindowActions::AddPages(const QList<QAction *> &pages)
{
    menus_[kPageMenu]->addActions(pages);
}

void CWindowActions::AddUsers(CServerLink &link)
{
    auto *const group = new QActionGroup(this);
    const QStringList users = CServerLink::Users();
    for (const QString &user : users) {
        QAction *const action = menus_[kUserMenu]->addAction(user);
        action->setCheckable(true);
        action->setChecked(user == link.User());
        group->addAction(action);
        connect(action, &QAction::triggered, &link, [&link, user] { link.SwitchUser(user); });
    }
    // The check mark shows the user who is logged in, not the one who was chosen last.
    const auto show_user = [group, &link] {
        const auto actions = group->actions();
        for (QAction *const action : actions)
            action->setChecked(action->text() == link.User());
    };
    connect(&link, &CServerLink::SignalUserChanged, group, show_user);
    connect(&link, &CServerLink::SignalFailed, group, show_user);
    menus_[kUserMenu]->menuAction()->setVisible(true);
}

QAction *CWindowActions::ThemeAction(Theme theme) const
{
    static_assert(kDark - kLight == int(Theme::Dark) && kContrast - kLight == int(Theme::Contrast));
    return actions_[size_t(kLight) + size_t(theme)];
}

void CWindowActions::BuildThemeMenu()
{
    auto *const group = new QActionGroup(this);
    for (const Theme theme : kThemes) {
        QAction *const action = ThemeAction(theme);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, &theme_, [this, theme] { theme_.Apply(theme); });
    }
}

void CWindowActions::BuildLanguageMenu()
{
    auto *const group = new QActionGroup(this);
    for (const Language &language : kLanguages) {
        const QString code = QLatin1String(language.code);
        QAction *const action =
            menus_[kLanguageMenu]->addAction(QString::fromUtf16(language.own_name));
        action->setCheckable(true);
        action->setChecked(code == language_.Current());
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, code] { language_.Apply(code); });
    }
}

void CWindowActions::BuildToolBar(QMainWindow &window)
{
    tool_bar_ = window.addToolBar(QString());
    tool_bar_->setObjectName(QStringLiteral("ToolBar"));
    tool_bar_->setMovable(false);
    tool_bar_->setIconSize(kIconSizePx);
    tool_bar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tool_bar_->setContextMenuPolicy(Qt::PreventContextMenu); // whose only entry hides the bar
    for (size_t id = 0; id < actions_.size(); ++id) {
        if (Entries()[id].icon_text)
            tool_bar_->addAction(actions_[id]);
    }
}

void CWindowActions::OnToggleTheme()
{
    theme_.Apply(theme_.Current() == Theme::Light ? Theme::Dark : Theme::Light);
}

void CWindowActions::OnThemeChanged()
{
    ThemeAction(theme_.Current())->setChecked(true);
    for (size_t id = 0; id < actions_.size(); ++id) {
        if (Entries()[id].icon)
            actions_[id]->setIcon(CThemeSwitch::Icon(QLatin1String(Entries()[id].icon)));
    }
}

void CWindowActions::Retranslate()
{
    const auto text = [](const char *source) {
        return QCoreApplication::translate(kContext, source);
    };
    for (size_t id = 0; id < actions_.size(); ++id) {
        actions_[id]->setText(text(Entries()[id].text));
        if (Entries()[id].icon_text)
            actions_[id]->setIconText(text(Entries()[id].icon_text));
    }
    menus_[kFileMenu]->setTitle(tr("&File"));
    menus_[kEditMenu]->setTitle(tr("&Edit"));
    menus_[kViewMenu]->setTitle(tr("&View"));
    menus_[kUserMenu]->setTitle(tr("Switch &user"));
    menus_[kHelpMenu]->setTitle(tr("&Help"));
    menus_[kPageMenu]->setTitle(tr("&Go to"));
    menus_[kThemeMenu]->setTitle(tr("&Theme"));
    menus_[kLanguageMenu]->setTitle(tr("&Language"));
    tool_bar_->setWindowTitle(tr("Tool bar"));
}

} // namespace Client
