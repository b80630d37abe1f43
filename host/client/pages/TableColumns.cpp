// SPDX-License-Identifier: MIT
#include "pages/TableColumns.h"

#include "link/ServerLink.h"

#include <BusinessCommon/AdaptiveLayout.h>
#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Vantor/CAdaptiveColumnWidthController>
#include <Vantor/CAdaptiveColumnWidthWidget>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CListExport>

#include <QtCore/QCryptographicHash>
#include <QtCore/QEvent>
#include <QtGui/QIcon>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>

#include <algorithm>

namespace Client {
namespace {

constexpr int kButtonSidePx = 28;
constexpr int kMarginPx = 4;
constexpr int kGlancePx = 240;      // the minimum width cuts longer texts
constexpr int kWidestPx = 4000;     // no column is wider
constexpr int kAroundTextPx = 26;   // what the theme puts around the text of a cell
constexpr int kMeasuredTexts = 64;  // the longest ones
constexpr int kWidthLayoutType = 2; // 1 is for column lists
constexpr int kMessageTime_s = 15;
const auto kModule = QStringLiteral("Client");

} // namespace

QVector<int> VisibleColumns(const QTreeView &table)
{
    Vantor::CListExport job;
    job.SetView(&table);
    return job.Columns();
}

CTableColumns::CTableColumns(const QString &list, TextsOf texts, QTreeView &table, QWidget &room)
    : QWidget(table.header()), list_(list), texts_(std::move(texts)), table_(table),
      columns_button_(new Vantor::CCustomizeColumnButton(this)),
      width_button_(new QPushButton(this))
{
    setObjectName(QStringLiteral("HeaderButtons"));
    setAttribute(Qt::WA_StyledBackground);
    setAutoFillBackground(true); // the header's texts end below it
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMarginPx, 0, kMarginPx, 0);
    layout->setSpacing(0);
    for (QPushButton *const button : {width_button_, static_cast<QPushButton *>(columns_button_)}) {
        button->setFixedSize(kButtonSidePx, kButtonSidePx);
        layout->addWidget(button);
    }
    // The place of a column is chosen in one way only.
    table_.header()->setSectionsMovable(false);
    table_.header()->installEventFilter(this);
    connect(columns_button_, &Vantor::CCustomizeColumnButton::SignalGetCurrentCustomizelistShow,
            this, &CTableColumns::OnColumnsSettled);
    BuildWidthChoice(room);
    setEnabled(false);
    Retranslate();
    KeepToEnd();
}

CTableColumns::~CTableColumns()
{
    delete width_choice_.data(); // its parent is the room
}

void CTableColumns::BuildWidthChoice(QWidget &room)
{
    width_button_->setObjectName(QStringLiteral("ColumnWidthButton"));
    width_button_->setIcon(QIcon(QStringLiteral(":/Vantor/Icons/width.svg")));
    width_button_->setAutoDefault(false);
    connect(width_button_, &QPushButton::clicked, this, &CTableColumns::OnWidthButton);
    width_choice_ = new Vantor::CAdaptiveColumnWidthWidget(&room);
    width_choice_->SetRelateWidget(width_button_);
    connect(width_choice_.data(),
            &Vantor::CAdaptiveColumnWidthWidget::SignalColumnWidthStateChanged, this,
            &CTableColumns::OnWidthChosen);
    width_exchange_ = new Vantor::CAdaptiveColumnWidthController(this);
    connect(width_exchange_, &Vantor::CAdaptiveColumnWidthController::SignalGetLayoutDataSuccess,
            this, &CTableColumns::OnWidthRead, Qt::UniqueConnection);
    connect(width_exchange_, &Vantor::CAdaptiveColumnWidthController::SignalPostLayoutDataSuccess,
            this, [this] { stored_width_ = sent_widths_.dequeue(); });
    connect(width_exchange_, &Vantor::CAdaptiveColumnWidthController::SignalRequestDataFailed, this,
            &CTableColumns::OnWidthFailed, Qt::UniqueConnection);
}

QString CTableColumns::TitleOf(int column) const
{
    return table_.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

void CTableColumns::OnListChanged(const QVector<int> &order)
{
    QStringList titles;
    for (const int column : order)
        titles.append(TitleOf(column));
    const QByteArray hash =
        QCryptographicHash::hash(titles.join(QLatin1Char('\n')).toUtf8(), QCryptographicHash::Sha1);
    const QString function = list_ + QString::fromLatin1(hash.toHex());
    if (function == function_ && order == order_) {
        if (columns_button_->property("MainInitialized").toBool())
            OnColumnsSettled(); // the header has forgotten it with the last list
    } else {
        function_ = function;
        order_ = order;
        columns_button_->UnInitCustomizeList();
        ShowColumns(order_.toList());
        Choose();
    }
    FitColumns();
}

void CTableColumns::OnUserChanged()
{
    setEnabled(true);
    if (!columns_button_->property("MainInitialized").toBool()) {
        Choose();
        return;
    }
    columns_button_->UpdateAfterSwitchUser();
    SendWidth({});
}

// The button asks for the choice of the user, once there is one.
void CTableColumns::Choose()
{
    const CServerLink *const link = CServerLink::Current();
    if (!link || link->User().isEmpty() || order_.isEmpty())
        return;
    setEnabled(true);
    QVector<Vantor::CColumnInfo> columns;
    for (const int column : qAsConst(order_)) {
        Vantor::CColumnInfo info;
        info.SetVal_column_No(columns.size());
        info.SetVal_column_id(column);
        info.SetVal_column_name(TitleOf(column));
        // The first column stays, so that no row is ever without a text.
        info.SetVal_b_manual_check(!columns.isEmpty());
        info.SetVal_b_manual_sort(!columns.isEmpty());
        columns.append(info);
    }
    columns_button_->InitCustomizeListByModuleNameANdFunction(kModule, function_, columns, nullptr);
    SendWidth({});
}

void CTableColumns::OnColumnsSettled()
{
    QStringList names;
    QList<int> columns;
    columns_button_->GetCustomizeListCurrentContent(names, columns);
    ShowColumns(columns);
}

void CTableColumns::OnWidthButton()
{
    if (width_choice_->isVisible())
        width_choice_->hide();
    else
        width_choice_->ShowAtRelateWidget();
}

void CTableColumns::OnWidthChosen(int state)
{
    width_ = state;
    FitColumns();
    sent_widths_.enqueue(state);
    SendWidth(QString::number(state));
}

void CTableColumns::OnWidthRead(const QString &text)
{
    width_ = stored_width_ = text == QLatin1String("1") ? 1 : 0;
    width_choice_->UpdateRaddioButtonState(width_);
    FitColumns();
}

void CTableColumns::OnWidthFailed(int first, int second, int get_or_post)
{
    if (get_or_post == 0)
        return; // the button has shown the error already
    Nim::Base::Error::ErrorCode code;
    code.module_code = first;
    code.error_code = second;
    Faceplate::CGUIMessageTipManager::ShowMessage(
        window(),
        tr("The column width could not be saved. %1").arg(ErrorText::GetErrorInfoByErrorCode(code)),
        1, 1, kMessageTime_s);
    sent_widths_.dequeue();
    if (!sent_widths_.isEmpty())
        return; // the last answer decides
    width_ = stored_width_;
    width_choice_->UpdateRaddioButtonState(width_);
    FitColumns();
}

void CTableColumns::SendWidth(const QString &text)
{
    BusinessCommon::AdaptiveLayout layout;
    layout.key_value = (QStringLiteral("CWidth") + kModule + function_).toStdString();
    layout.type_value = kWidthLayoutType;
    layout.layout_data = text.toStdString();
    width_exchange_->AdaptiveGetOrPostLayoutCurrentColumnState(layout);
}

void CTableColumns::ShowColumns(const QList<int> &columns)
{
    QHeaderView *const header = table_.header();
    for (int column = 0; column < header->count(); ++column)
        header->setSectionHidden(column, !columns.contains(column));
    for (int place = 0; place < columns.size(); ++place)
        header->moveSection(header->visualIndex(columns.at(place)), place);
}

void CTableColumns::FitColumns()
{
    QHeaderView *const header = table_.header();
    for (int column = 0; column < header->count(); ++column) {
        const bool is_hidden = header->isSectionHidden(column);
        header->setSectionHidden(column, false); // a hidden section has no width of its own
        table_.resizeColumnToContents(column);
        const int fitting = table_.columnWidth(column);
        table_.setColumnWidth(column, width_ == 0 ? std::min(fitting, kGlancePx)
                                                  : std::max(fitting, WidestTextPx(column)));
        header->setSectionHidden(column, is_hidden);
    }
}

int CTableColumns::WidestTextPx(int column) const
{
    // A list may hold a million texts; the widest is among the longest.
    QVector<QString> texts = texts_(column);
    const int count = std::min(kMeasuredTexts, texts.size());
    std::partial_sort(texts.begin(), texts.begin() + count, texts.end(),
                      [](const QString &a, const QString &b) { return a.size() > b.size(); });
    int widest = 0;
    for (int i = 0; i < count; ++i)
        widest = std::max(widest, table_.fontMetrics().horizontalAdvance(texts.at(i)));
    return std::min(widest + kAroundTextPx, kWidestPx);
}

void CTableColumns::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::LayoutDirectionChange)
        KeepToEnd();
}

bool CTableColumns::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == table_.header() && event->type() == QEvent::Resize)
        KeepToEnd();
    return QWidget::eventFilter(watched, event);
}

void CTableColumns::KeepToEnd()
{
    const QRect header = table_.header()->rect();
    const int width = sizeHint().width();
    setGeometry(table_.isRightToLeft() ? 0 : header.width() - width, 0, width, header.height());
    raise();
}

void CTableColumns::Retranslate()
{
    width_button_->setToolTip(tr("Choose how wide columns are"));
    width_button_->setAccessibleName(width_button_->toolTip());
}

} // namespace Client
