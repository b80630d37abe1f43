// SPDX-License-Identifier: MIT
#include "window/WindowActions.h"

#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>

namespace Client {
namespace {

constexpr QSize kIconSizePx(20, 20);

} // namespace

CWindowActions::CWindowActions(QMainWindow &window, CThemeSwitch &theme, CLanguageSwitch &language)
    : QObject(&window), theme_(theme), language_(language), open_(new QAction(this)),
      export_csv_(new QAction(this)), export_xlsx_(new QAction(this)),
      export_panel_(new QAction(this)), quit_(new QAction(this)), copy_(new QAction(this)),
      select_all_(new QAction(this)), find_(new QAction(this)), file_order_(new QAction(this)),
      light_(new QAction(this)), dark_(new QAction(this)), toggle_theme_(new QAction(this)),
      about_(new QAction(this))
{
    open_->setShortcut(QKeySequence::Open);
    export_csv_->setShortcut(Qt::CTRL | Qt::Key_E);
    export_xlsx_->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_E);
    export_panel_->setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_E);
    quit_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit_->setMenuRole(QAction::QuitRole);
    copy_->setShortcut(QKeySequence::Copy);
    select_all_->setShortcut(QKeySequence::SelectAll);
    find_->setShortcut(QKeySequence::Find);
    about_->setMenuRole(QAction::AboutRole);
    BuildMenus(window);
    BuildThemeMenu();
    BuildLanguageMenu();
    BuildToolBar(window);
    connect(toggle_theme_, &QAction::triggered, this, &CWindowActions::OnToggleTheme);
    connect(&theme_, &CThemeSwitch::SignalThemeChanged, this, &CWindowActions::OnThemeChanged);
    OnThemeChanged();
}

void CWindowActions::BuildMenus(QMainWindow &window)
{
    QMenuBar *const bar = window.menuBar();
    file_menu_ = bar->addMenu(QString());
    file_menu_->addActions({open_, export_csv_, export_xlsx_, export_panel_});
    file_menu_->addSeparator();
    file_menu_->addAction(quit_);
    edit_menu_ = bar->addMenu(QString());
    edit_menu_->addActions({copy_, select_all_});
    edit_menu_->addSeparator();
    edit_menu_->addAction(find_);
    connect(edit_menu_, &QMenu::aboutToShow, this, &CWindowActions::SignalEditMenuOpens);
    view_menu_ = bar->addMenu(QString());
    page_menu_ = view_menu_->addMenu(QString());
    theme_menu_ = view_menu_->addMenu(QString());
    language_menu_ = view_menu_->addMenu(QString());
    view_menu_->addSeparator();
    view_menu_->addAction(file_order_);
    user_menu_ = bar->addMenu(QString());
    user_menu_->menuAction()->setVisible(false); // until there is a server
    help_menu_ = bar->addMenu(QString());
    help_menu_->addAction(about_);
}

void CWindowActions::AddPages(const QList<QAction *> &pages)
{
    page_menu_->addActions(pages);
}

void CWindowActions::AddUsers(CServerLink &link)
{
    auto *const group = new QActionGroup(this);
    const QStringList users = CServerLink::Users();
    for (const QString &user : users) {
        QAction *const action = user_menu_->addAction(user);
        action->setCheckable(true);
        action->setChecked(user == link.User());
        group->addAction(action);
        connect(action, &QAction::triggered, &link, [&link, user] { link.SwitchUser(user); });
    }
    // What is checked is who is logged in, not who was asked for.
    const auto show_user = [group, &link] {
        const auto actions = group->actions();
        for (QAction *const action : actions)
            action->setChecked(action->text() == link.User());
    };
    connect(&link, &CServerLink::SignalUserChanged, group, show_user);
    connect(&link, &CServerLink::SignalFailed, group, show_user);
    user_menu_->menuAction()->setVisible(true);
}

void CWindowActions::BuildThemeMenu()
{
    auto *const group = new QActionGroup(this);
    for (QAction *const action : {light_, dark_}) {
        action->setCheckable(true);
        group->addAction(action);
        theme_menu_->addAction(action);
    }
    connect(light_, &QAction::triggered, &theme_, [this] { theme_.Apply(Theme::Light); });
    connect(dark_, &QAction::triggered, &theme_, [this] { theme_.Apply(Theme::Dark); });
}

void CWindowActions::BuildLanguageMenu()
{
    auto *const group = new QActionGroup(this);
    for (const Language &language : kLanguages) {
        const QString code = QLatin1String(language.code);
        QAction *const action = language_menu_->addAction(QString::fromUtf16(language.own_name));
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
    tool_bar_->addActions({open_, export_csv_, export_xlsx_, toggle_theme_});
}

void CWindowActions::OnToggleTheme()
{
    theme_.Apply(theme_.Current() == Theme::Light ? Theme::Dark : Theme::Light);
}

void CWindowActions::OnThemeChanged()
{
    (theme_.Current() == Theme::Light ? light_ : dark_)->setChecked(true);
    open_->setIcon(CThemeSwitch::Icon(QStringLiteral("open")));
    for (QAction *const action : {export_csv_, export_xlsx_})
        action->setIcon(CThemeSwitch::Icon(QStringLiteral("export")));
    toggle_theme_->setIcon(CThemeSwitch::Icon(QStringLiteral("theme")));
}

void CWindowActions::Retranslate()
{
    file_menu_->setTitle(tr("&File"));
    open_->setText(tr("&Open…"));
    open_->setIconText(tr("Open"));
    export_csv_->setText(tr("Export as &CSV…"));
    export_csv_->setIconText(tr("Export CSV"));
    export_xlsx_->setText(tr("Export as &XLSX…"));
    export_xlsx_->setIconText(tr("Export XLSX"));
    export_panel_->setText(tr("Export &panel"));
    quit_->setText(tr("&Quit"));
    edit_menu_->setTitle(tr("&Edit"));
    copy_->setText(tr("&Copy"));
    select_all_->setText(tr("Select &all"));
    find_->setText(tr("&Find"));
    view_menu_->setTitle(tr("&View"));
    page_menu_->setTitle(tr("&Go to"));
    theme_menu_->setTitle(tr("&Theme"));
    light_->setText(tr("&Light"));
    dark_->setText(tr("&Dark"));
    toggle_theme_->setText(tr("Switch theme"));
    toggle_theme_->setIconText(tr("Theme"));
    language_menu_->setTitle(tr("&Language"));
    file_order_->setText(tr("&Original order"));
    user_menu_->setTitle(tr("Switch &user"));
    help_menu_->setTitle(tr("&Help"));
    about_->setText(tr("&About"));
    tool_bar_->setWindowTitle(tr("Tool bar"));
}

} // namespace Client
