// SPDX-License-Identifier: MIT
#include "window/Pages.h"

#include "look/Theme.h"
#include "pages/ColoursPage.h"
#include "pages/DevicesPage.h"
#include "pages/EvidencePage.h"
#include "pages/LoginPage.h"
#include "pages/Page.h"
#include "pages/PaintedAccess.h"
#include "pages/ServerListPage.h"
#include "pages/TimeLinePage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QStackedWidget>

namespace Client {
namespace {

constexpr int kIconSidePx = 20;
constexpr int kMarginPx = 24;    // around the names, for icons and padding
constexpr int kLastShortcut = 9; // Ctrl+9

using PageMaker = CPage *(*)(QWidget *parent);

template <typename Page> CPage *New(QWidget *parent)
{
    return new Page(parent);
}

struct PageEntry
{
    const char *name;  // for --page and the names of pictures
    const char *title; // translated in the context "Pages"
    const char *icon;  // of resources/icons
    PageMaker make;    // null: given to the constructor
};

// The pages in their order. One line adds a page.
constexpr PageEntry kPages[] = {
    {"list", QT_TRANSLATE_NOOP("Pages", "Incidents"), "list", nullptr},
    {"timeline", QT_TRANSLATE_NOOP("Pages", "Time line"), "timeline", &New<CTimeLinePage>},
    {"devices", QT_TRANSLATE_NOOP("Pages", "Devices"), "devices", &New<CDevicesPage>},
    {"server", QT_TRANSLATE_NOOP("Pages", "Server list"), "server", &New<CServerListPage>},
    {"evidence", QT_TRANSLATE_NOOP("Pages", "Evidence"), "evidence", &New<CEvidencePage>},
    {"colours", QT_TRANSLATE_NOOP("Pages", "Colours"), "colours", &New<CColoursPage>},
    {"login", QT_TRANSLATE_NOOP("Pages", "Login"), "login", &New<CLoginPage>},
};

constexpr int kPageCount = int(std::size(kPages));

QString Title(int row)
{
    return QCoreApplication::translate("Pages", kPages[row].title);
}

} // namespace

CPages::CPages(QWidget *first, QWidget *parent)
    : QWidget(parent), navigation_(new QListWidget(this)), stack_(new QStackedWidget(this)),
      pages_(kPageCount, nullptr)
{
    InstallPaintedAccess();
    navigation_->setObjectName(QStringLiteral("Navigation"));
    navigation_->setIconSize({kIconSidePx, kIconSidePx});
    navigation_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    navigation_->setUniformItemSizes(true);
    for (int row = 0; row < kPageCount; ++row) {
        navigation_->addItem(QString());
        auto *const action = new QAction(this);
        if (row < kLastShortcut)
            action->setShortcut(QKeySequence(int(Qt::CTRL) + Qt::Key_1 + row));
        connect(action, &QAction::triggered, navigation_,
                [this, row] { navigation_->setCurrentRow(row); });
        actions_.append(action);
    }
    pages_.front() = first;
    stack_->addWidget(first);

    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(navigation_);
    layout->addWidget(stack_, 1);

    navigation_->setCurrentRow(0);
    connect(navigation_, &QListWidget::currentRowChanged, this, &CPages::OnRowChanged);
    Retranslate();
    OnThemeChanged();
}

QStringList CPages::Names()
{
    QStringList names;
    for (const PageEntry &entry : kPages)
        names.append(QLatin1String(entry.name));
    return names;
}

bool CPages::Show(const QString &name)
{
    const int row = Names().indexOf(name);
    if (row < 0)
        return false;
    navigation_->setCurrentRow(row);
    return true;
}

QString CPages::Current() const
{
    return QLatin1String(kPages[navigation_->currentRow()].name);
}

CPage *CPages::CurrentPage() const
{
    return qobject_cast<CPage *>(stack_->currentWidget());
}

void CPages::SetList(const IncidentListPtr &list)
{
    list_ = list;
    for (QWidget *const widget : pages_) {
        if (auto *const page = qobject_cast<CPage *>(widget))
            page->SetList(list);
    }
}

void CPages::PrepareForPicture()
{
    if (CPage *const page = CurrentPage())
        page->PrepareForPicture();
}

bool CPages::IsLoading() const
{
    const CPage *const page = CurrentPage();
    return page && page->IsLoading();
}

CPage *CPages::Build(int row)
{
    CPage *const page = kPages[row].make(stack_);
    connect(page, &CPage::SignalMessage, this, &CPages::SignalMessage);
    connect(page, &CPage::SignalWork, this, &CPages::OnWork);
    pages_[size_t(row)] = page;
    page->setAccessibleName(Title(row));
    stack_->addWidget(page);
    if (list_)
        page->SetList(list_);
    page->OnThemeChanged();
    return page;
}

void CPages::OnRowChanged(int row)
{
    if (row < 0)
        return;
    QWidget *const page = pages_[size_t(row)];
    stack_->setCurrentWidget(page ? page : Build(row));
    ShowWork();
    Q_EMIT SignalPageChanged(Current());
}

CPage *CPages::WorkingPage() const
{
    for (QWidget *const widget : pages_) {
        auto *const page = qobject_cast<CPage *>(widget);
        if (page && page->IsWorking())
            return page;
    }
    return nullptr;
}

void CPages::OnWork(const QString &text)
{
    work_ = text;
    ShowWork();
    if (text.isEmpty())
        Q_EMIT SignalWorkEnded();
}

void CPages::ShowWork()
{
    const bool is_elsewhere = stack_->currentWidget() != WorkingPage();
    Q_EMIT SignalWorkElsewhere(is_elsewhere ? work_ : QString());
}

void CPages::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CPages::OnThemeChanged()
{
    for (int row = 0; row < kPageCount; ++row) {
        navigation_->item(row)->setIcon(CThemeSwitch::Icon(QLatin1String(kPages[row].icon)));
        if (auto *const page = qobject_cast<CPage *>(pages_[size_t(row)]))
            page->OnThemeChanged();
    }
}

void CPages::Retranslate()
{
    navigation_->setAccessibleName(QCoreApplication::translate("Pages", "Pages"));
    for (int row = 0; row < kPageCount; ++row) {
        navigation_->item(row)->setText(Title(row));
        actions_[row]->setText(Title(row));
        if (pages_[size_t(row)])
            pages_[size_t(row)]->setAccessibleName(Title(row));
    }
    navigation_->setFixedWidth(navigation_->sizeHintForColumn(0) + 2 * kMarginPx);
}

} // namespace Client
