// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/CustomizeColumnButton.h"

#include "common/Guard.h"
#include "common/Translate.h"
#include "ui/CustomizeColumnButton/AdaptiveColumnWidthController.h"
#include "ui/CustomizeColumnButton/ColumnLayout.h"
#include "ui/CustomizeColumnButton/ColumnRequests.h"
#include "ui/CustomizeColumnButton/CustomizeColumnWidget.h"

#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtGui/QIcon>

#include <deque>
#include <functional>

namespace Vantor {
namespace {

constexpr char kMainInitialized[] = "MainInitialized";
constexpr int kMessageKind = 1;  // an error
constexpr int kMessagePlace = 1; // at the upper edge
constexpr int kMessageTime_s = 15;

} // namespace

struct CCustomizeColumnButtonDataPtr
{
    QString str_module_name_;
    QString str_function_name_;
    QPointer<QWidget> ptr_independent_window_;
    QPointer<CCustomizeColumnWidget> ptr_customize_widget_;
    QPointer<CAdaptiveColumnWidthController> ptr_controller_;
    CColumnRequests requests_;
    std::deque<std::function<void()>> list_deferred_answers_; // that came while a row was dragged
    bool b_applying_ = false;                                 // the deferred answers
    bool b_known_ = false; // what the server holds for this user: read or written

    [[nodiscard]] QString Key() const
    {
        return ColumnLayoutKey(str_module_name_, str_function_name_);
    }

    void Send(const QByteArray &text) const
    {
        BusinessCommon::AdaptiveLayout layout;
        layout.key_value = Key().toStdString();
        layout.type_value = kColumnLayoutType;
        layout.layout_data = text.toStdString();
        ptr_controller_->AdaptiveGetOrPostLayoutCurrentColumnState(layout);
    }

    // While a row hangs at the mouse, the rows below it must not change. What comes later than a
    // deferred answer waits behind it.
    bool Defer(std::function<void()> answer)
    {
        const bool is_dragging = ptr_customize_widget_ && ptr_customize_widget_->IsDragging();
        if (!is_dragging && (b_applying_ || list_deferred_answers_.empty()))
            return false;
        list_deferred_answers_.push_back(std::move(answer));
        return true;
    }
};

CCustomizeColumnButton::CCustomizeColumnButton(QWidget *parent)
    : CPushButton(parent), d_ptr_(std::make_unique<CCustomizeColumnButtonDataPtr>())
{
    setObjectName(QStringLiteral("CustomizeColumnButton"));
    setIcon(QIcon(QStringLiteral(":/Vantor/Icons/columns.svg")));
    Retranslate();
}

CCustomizeColumnButton::~CCustomizeColumnButton()
{
    // Both are children and go later than the private data does.
    if (d_ptr_->ptr_customize_widget_)
        d_ptr_->ptr_customize_widget_->disconnect(this);
    if (d_ptr_->ptr_controller_)
        d_ptr_->ptr_controller_->disconnect(this);
}

void CCustomizeColumnButton::InitCustomizeListByModuleNameANdFunction(
    const QString &module, const QString &function, const QVector<CColumnInfo> &columns,
    QWidget *relate)
{
    static constexpr char kFunction[] =
        "Vantor::CCustomizeColumnButton::InitCustomizeListByModuleNameANdFunction";
    if (property(kMainInitialized).toBool())
        return;
    RunGuarded(kFunction, [&] {
        setProperty(kMainInitialized, true);
        d_ptr_->str_module_name_ = module;
        d_ptr_->str_function_name_ = function;
        CreateController();
        CreateDropDown(columns, relate);
        // The clicks of the button itself stay connected when it is uninitialised.
        connect(this, &QPushButton::clicked, this,
                &CCustomizeColumnButton::OnShowCustomizeListWidget, Qt::UniqueConnection);
        d_ptr_->ptr_independent_window_ = window();
        Read();
    });
}

void CCustomizeColumnButton::UnInitCustomizeList()
{
    setProperty(kMainInitialized, false);
    ReleaseController();
    if (CCustomizeColumnWidget *const drop_down = d_ptr_->ptr_customize_widget_) {
        drop_down->disconnect(this);
        drop_down->hide();
        drop_down->deleteLater(); // it may be what has called
    }
    d_ptr_->ptr_customize_widget_.clear();
}

void CCustomizeColumnButton::GetCustomizeListCurrentContent(QStringList &names) const
{
    QList<int> ids;
    GetCustomizeListCurrentContent(names, ids);
}

void CCustomizeColumnButton::GetCustomizeListCurrentContent(QStringList &names,
                                                            QList<int> &ids) const
{
    names.clear();
    ids.clear();
    if (d_ptr_->ptr_customize_widget_)
        d_ptr_->ptr_customize_widget_->GetCustomlistItemsContent(names, ids);
}

void CCustomizeColumnButton::StopWork()
{
    ReleaseController();
    if (!d_ptr_->ptr_customize_widget_)
        return;
    d_ptr_->ptr_customize_widget_->hide();
    d_ptr_->ptr_customize_widget_->SetLoading(false);
}

void CCustomizeColumnButton::UpdateAfterSwitchUser()
{
    static constexpr char kFunction[] = "Vantor::CCustomizeColumnButton::UpdateAfterSwitchUser";
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "GetCurrentWidgetAdjustHeight : %s",
               qUtf8Printable(d_ptr_->Key()));
    if (!d_ptr_->ptr_customize_widget_ || !d_ptr_->ptr_controller_)
        return;
    RunGuarded(kFunction, [&] {
        // Deferred answers stay: each has to meet its request, and as a stale one does no more.
        d_ptr_->requests_.MakeStale();
        d_ptr_->b_known_ = false;
        QVector<CColumnInfo> columns;
        d_ptr_->ptr_customize_widget_->GetCustomlistItemsContentInit(columns);
        d_ptr_->ptr_customize_widget_->InitCustomizeWidget(columns);
        Read();
    });
}

void CCustomizeColumnButton::changeEvent(QEvent *event)
{
    CPushButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CCustomizeColumnButton::OnShowCustomizeListWidget()
{
    CCustomizeColumnWidget *const drop_down = d_ptr_->ptr_customize_widget_;
    if (!drop_down || drop_down->isVisible())
        return;
    // Changes are made to what the user stored. When that could not be read, ask once more.
    if (!d_ptr_->b_known_ && d_ptr_->ptr_controller_ && !d_ptr_->requests_.IsWaiting(false))
        Read();
    d_ptr_->ptr_independent_window_ = window(); // hosts put the button elsewhere
    const QWidget *const host = d_ptr_->ptr_independent_window_;
    drop_down->ShowAt(QRect(mapToGlobal(QPoint()), size()),
                      QRect(host->mapToGlobal(QPoint()), host->size()));
}

void CCustomizeColumnButton::OnCurrentCustomizeListContent()
{
    if (!d_ptr_->ptr_customize_widget_ || !d_ptr_->ptr_controller_)
        return;
    QVector<CColumnInfo> columns;
    d_ptr_->ptr_customize_widget_->GetCustomlistItemsContent(columns);
    d_ptr_->requests_.AddWrite(columns);
    d_ptr_->Send(ColumnLayoutText(columns));
}

void CCustomizeColumnButton::OnColumnWidgetChangedFinish()
{
    const QPointer<CCustomizeColumnButton> self(this); // a host may delete it on any of them
    d_ptr_->b_applying_ = true;
    while (self && !d_ptr_->list_deferred_answers_.empty()) {
        const auto answer = std::move(d_ptr_->list_deferred_answers_.front());
        d_ptr_->list_deferred_answers_.pop_front();
        answer();
    }
    if (self)
        d_ptr_->b_applying_ = false;
}

void CCustomizeColumnButton::OnGetLayoutAdaptiveColumnStateSuccess(const QString &layout)
{
    if (d_ptr_->Defer([this, layout] { OnGetLayoutAdaptiveColumnStateSuccess(layout); }))
        return;
    const ColumnRequest request = d_ptr_->requests_.Take(false);
    if (request.is_stale || !d_ptr_->ptr_customize_widget_)
        return;
    d_ptr_->b_known_ = true;
    d_ptr_->ptr_customize_widget_->SetLoading(d_ptr_->requests_.IsWaiting(false));
    if (d_ptr_->requests_.IsWaiting(true)) { // what was changed since is newer
        Q_EMIT SignalGetCurrentCustomizelistShow();
        return;
    }
    QVector<CColumnInfo> columns;
    d_ptr_->ptr_customize_widget_->GetCustomlistItemsContentInit(columns);
    columns = WithColumnLayout(columns, layout);
    d_ptr_->ptr_customize_widget_->SetPreChangedCustomListState(columns);
    Settle(columns);
}

void CCustomizeColumnButton::OnPostLayoutAdaptiveColumnStateSuccess(const bool &ok)
{
    if (d_ptr_->Defer([this, ok] { OnPostLayoutAdaptiveColumnStateSuccess(ok); }))
        return;
    const ColumnRequest request = d_ptr_->requests_.Take(true);
    if (request.is_stale || !d_ptr_->ptr_customize_widget_ || !ok)
        return;
    d_ptr_->b_known_ = true;
    if (!request.columns.isEmpty())
        d_ptr_->ptr_customize_widget_->SetPreChangedCustomListState(request.columns);
    Q_EMIT SignalGetCurrentCustomizelistShow();
}

void CCustomizeColumnButton::OnGetPostLayoutAdaptiveColumnStateFailed(const int &first,
                                                                      const int &second,
                                                                      const int &getOrPost)
{
    if (d_ptr_->Defer([this, first, second, getOrPost] {
            OnGetPostLayoutAdaptiveColumnStateFailed(first, second, getOrPost);
        }))
        return;
    const bool is_write = getOrPost != 0;
    const ColumnRequest request = d_ptr_->requests_.Take(is_write);
    CCustomizeColumnWidget *const drop_down = d_ptr_->ptr_customize_widget_;
    if (request.is_stale || !drop_down)
        return;
    Nim::Base::Error::ErrorCode code;
    code.module_code = first;
    code.error_code = second;
    Faceplate::CGUIMessageTipManager::ShowMessage(
        window(),
        FillArgument(Translate(QStringLiteral("Peltra.9778d4835a7946b6ab94c46d137616dc.name")),
                     ErrorText::GetErrorInfoByErrorCode(code)),
        kMessageKind, kMessagePlace, kMessageTime_s);
    if (is_write)
        d_ptr_->b_known_ = false; // it may have arrived all the same: read again when opened next
    QVector<CColumnInfo> columns;
    // A write that is still outstanding holds this change as well and decides about both.
    if (is_write && !d_ptr_->requests_.IsWaiting(true))
        drop_down->GetPreChangedCustomListState(columns);
    else
        drop_down->GetCustomlistItemsContent(columns);
    drop_down->SetLoading(d_ptr_->requests_.IsWaiting(false));
    Settle(columns);
}

void CCustomizeColumnButton::CreateController()
{
    if (d_ptr_->ptr_controller_)
        return;
    d_ptr_->ptr_controller_ = new CAdaptiveColumnWidthController(this);
    const CAdaptiveColumnWidthController *const controller = d_ptr_->ptr_controller_;
    connect(controller, &CAdaptiveColumnWidthController::SignalGetLayoutDataSuccess, this,
            &CCustomizeColumnButton::OnGetLayoutAdaptiveColumnStateSuccess, Qt::UniqueConnection);
    connect(controller, &CAdaptiveColumnWidthController::SignalPostLayoutDataSuccess, this,
            &CCustomizeColumnButton::OnPostLayoutAdaptiveColumnStateSuccess, Qt::UniqueConnection);
    connect(controller, &CAdaptiveColumnWidthController::SignalRequestDataFailed, this,
            &CCustomizeColumnButton::OnGetPostLayoutAdaptiveColumnStateFailed,
            Qt::UniqueConnection);
}

void CCustomizeColumnButton::CreateDropDown(const QVector<CColumnInfo> &columns, QWidget *relate)
{
    if (!d_ptr_->ptr_customize_widget_)
        d_ptr_->ptr_customize_widget_ = new CCustomizeColumnWidget(this);
    CCustomizeColumnWidget *const drop_down = d_ptr_->ptr_customize_widget_;
    drop_down->SetRelateWidget({this, relate});
    drop_down->hide();
    drop_down->InitCustomizeWidget(columns);
    connect(drop_down, &CCustomizeColumnWidget::SignalCutomizelistChanged, this,
            &CCustomizeColumnButton::OnCurrentCustomizeListContent, Qt::UniqueConnection);
    // Queued: a host may delete the button on an answer, and the list is still in its mouse event.
    connect(drop_down, &CCustomizeColumnWidget::SignalColumnWidgetFinishChanged, this,
            &CCustomizeColumnButton::OnColumnWidgetChangedFinish,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
}

void CCustomizeColumnButton::ReleaseController()
{
    d_ptr_->requests_.Clear();
    d_ptr_->list_deferred_answers_.clear();
    d_ptr_->b_known_ = false;
    if (CAdaptiveColumnWidthController *const controller = d_ptr_->ptr_controller_) {
        controller->disconnect(this);
        controller->deleteLater(); // it may be what has called
    }
    d_ptr_->ptr_controller_.clear();
}

void CCustomizeColumnButton::Read()
{
    d_ptr_->requests_.AddRead();
    d_ptr_->ptr_customize_widget_->SetLoading(true);
    d_ptr_->Send({});
}

void CCustomizeColumnButton::Settle(const QVector<CColumnInfo> &columns)
{
    d_ptr_->ptr_customize_widget_->SetCustomizeWidgetListItems(columns);
    Q_EMIT SignalGetCurrentCustomizelistShow(); // last: a host may delete the button
}

void CCustomizeColumnButton::Retranslate()
{
    const QString text = Translate(QStringLiteral("Choose columns"));
    setToolTip(text);
    setAccessibleName(text);
}

} // namespace Vantor
