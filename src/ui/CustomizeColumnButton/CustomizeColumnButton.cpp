// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/CustomizeColumnButton.h"

#include "common/DisconnectChildren.h"
#include "common/Guard.h"
#include "common/Translate.h"
#include "ui/CustomizeColumnButton/AdaptiveColumnWidthController.h"
#include "ui/CustomizeColumnButton/ColumnLayout.h"
#include "ui/CustomizeColumnButton/ColumnSync.h"
#include "ui/CustomizeColumnButton/CustomizeColumnWidget.h"

#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtGui/QIcon>

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
    CColumnSync sync_;
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
    DisconnectChildren(this);
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
        Execute(d_ptr_->sync_.OnStart(columns));
    });
}

void CCustomizeColumnButton::UnInitCustomizeList()
{
    setProperty(kMainInitialized, false);
    ReleaseController();
    d_ptr_->sync_.OnStop();
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
    if (d_ptr_->ptr_customize_widget_)
        d_ptr_->ptr_customize_widget_->hide();
    Execute(d_ptr_->sync_.OnStop());
}

void CCustomizeColumnButton::UpdateAfterSwitchUser()
{
    static constexpr char kFunction[] = "Vantor::CCustomizeColumnButton::UpdateAfterSwitchUser";
    VANTOR_LOG(
        kFunction, 3, VANTOR_LOG_USER_OPERATE, "GetCurrentWidgetAdjustHeight : %s",
        qUtf8Printable(ColumnLayoutKey(d_ptr_->str_module_name_, d_ptr_->str_function_name_)));
    if (!d_ptr_->ptr_customize_widget_ || !d_ptr_->ptr_controller_)
        return;
    RunGuarded(kFunction, [&] {
        ReleaseController(); // and with it the answers for the last user
        CreateController();
        Execute(d_ptr_->sync_.OnStart(QVector<CColumnInfo>(d_ptr_->sync_.Initial())));
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
    if (!drop_down || drop_down->isVisible()
        || d_ptr_->sync_.CurrentPhase() == CColumnSync::Phase::Stopped)
        return;
    Execute(d_ptr_->sync_.OnOpened());
    d_ptr_->ptr_independent_window_ = window(); // hosts put the button elsewhere
    drop_down->ShowFor(*this);
}

void CCustomizeColumnButton::OnReadAgain()
{
    Execute(d_ptr_->sync_.OnOpened());
}

void CCustomizeColumnButton::OnCurrentCustomizeListContent()
{
    if (!d_ptr_->ptr_customize_widget_ || !d_ptr_->ptr_controller_)
        return;
    QVector<CColumnInfo> columns;
    d_ptr_->ptr_customize_widget_->GetCustomlistItemsContent(columns);
    Execute(d_ptr_->sync_.OnChanged(columns));
}

void CCustomizeColumnButton::OnColumnWidgetChangedFinish()
{
    if (!IsDragging()) // else the next end brings it
        Execute(d_ptr_->sync_.OnDragEnded());
}

void CCustomizeColumnButton::OnGetLayoutAdaptiveColumnStateSuccess(const QString &layout)
{
    ColumnAnswer answer;
    answer.kind = ColumnAnswer::Kind::Read;
    answer.layout = layout;
    Execute(d_ptr_->sync_.OnAnswer(answer, IsDragging()));
}

void CCustomizeColumnButton::OnPostLayoutAdaptiveColumnStateSuccess(const bool &ok)
{
    ColumnAnswer answer;
    answer.kind = ok ? ColumnAnswer::Kind::Written : ColumnAnswer::Kind::Failed;
    answer.is_write = true;
    Execute(d_ptr_->sync_.OnAnswer(answer, IsDragging()));
}

void CCustomizeColumnButton::OnGetPostLayoutAdaptiveColumnStateFailed(const int &first,
                                                                      const int &second,
                                                                      const int &getOrPost)
{
    ColumnAnswer answer;
    answer.kind = ColumnAnswer::Kind::Failed;
    answer.is_write = getOrPost != 0;
    answer.error = {first, second};
    Execute(d_ptr_->sync_.OnAnswer(answer, IsDragging()));
}

bool CCustomizeColumnButton::IsDragging() const
{
    return d_ptr_->ptr_customize_widget_ && d_ptr_->ptr_customize_widget_->IsDragging();
}

// A host may do anything on a signal: delete the button, or begin again, and then the rest means
// nothing any more.
void CCustomizeColumnButton::Execute(const std::vector<ColumnAction> &actions)
{
    const QPointer<CCustomizeColumnButton> self(this);
    const int generation = d_ptr_->sync_.Generation();
    for (const ColumnAction &action : actions) {
        if (!self || generation != d_ptr_->sync_.Generation())
            return;
        Execute(action);
    }
}

void CCustomizeColumnButton::Execute(const ColumnAction &action)
{
    switch (action.kind) {
    case ColumnAction::Kind::Read:
        Send({});
        break;
    case ColumnAction::Kind::Write:
        Send(ColumnLayoutText(action.columns));
        break;
    case ColumnAction::Kind::Show:
        UpdateDropDown();
        break;
    case ColumnAction::Kind::Message:
        if (d_ptr_->ptr_customize_widget_)
            ShowError(action.error);
        break;
    case ColumnAction::Kind::Settle:
        if (d_ptr_->ptr_customize_widget_)
            Q_EMIT SignalGetCurrentCustomizelistShow();
        break;
    }
}

void CCustomizeColumnButton::Send(const QByteArray &text)
{
    if (!d_ptr_->ptr_controller_)
        return;
    BusinessCommon::AdaptiveLayout layout;
    layout.key_value =
        ColumnLayoutKey(d_ptr_->str_module_name_, d_ptr_->str_function_name_).toStdString();
    layout.type_value = kColumnLayoutType;
    layout.layout_data = text.toStdString();
    d_ptr_->ptr_controller_->AdaptiveGetOrPostLayoutCurrentColumnState(layout);
}

// Rows that are right stay: a click that has begun on one must end on it.
void CCustomizeColumnButton::UpdateDropDown()
{
    using State = CCustomizeColumnWidget::ChoiceState;
    CCustomizeColumnWidget *const drop_down = d_ptr_->ptr_customize_widget_;
    if (!drop_down)
        return;
    const CColumnSync &sync = d_ptr_->sync_;
    QVector<CColumnInfo> shown;
    drop_down->GetCustomlistItemsContent(shown);
    if (!AreSameColumns(shown, sync.Current()))
        drop_down->SetCustomizeWidgetListItems(sync.Current());
    drop_down->SetPreChangedCustomListState(sync.Confirmed());
    drop_down->SetChoiceState(sync.CurrentPhase() == CColumnSync::Phase::Reading  ? State::Loading
                              : sync.CurrentPhase() == CColumnSync::Phase::Unread ? State::Unread
                                                                                  : State::Ready);
}

void CCustomizeColumnButton::ShowError(const std::pair<int, int> &error)
{
    Nim::Base::Error::ErrorCode code;
    code.module_code = error.first;
    code.error_code = error.second;
    Faceplate::CGUIMessageTipManager::ShowMessage(
        window(),
        FillArgument(Translate(QStringLiteral("Peltra.9778d4835a7946b6ab94c46d137616dc.name")),
                     ErrorText::GetErrorInfoByErrorCode(code)),
        kMessageKind, kMessagePlace, kMessageTime_s);
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
    connect(drop_down, &CCustomizeColumnWidget::SignalReadAgain, this,
            &CCustomizeColumnButton::OnReadAgain, Qt::UniqueConnection);
    // Queued: a host may delete the button on an answer, and the list is still in its mouse event.
    connect(drop_down, &CCustomizeColumnWidget::SignalColumnWidgetFinishChanged, this,
            &CCustomizeColumnButton::OnColumnWidgetChangedFinish,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
}

void CCustomizeColumnButton::ReleaseController()
{
    if (CAdaptiveColumnWidthController *const controller = d_ptr_->ptr_controller_) {
        controller->disconnect(this);
        controller->deleteLater(); // it may be what has called
    }
    d_ptr_->ptr_controller_.clear();
}

void CCustomizeColumnButton::Retranslate()
{
    const QString text = Translate(QStringLiteral("Choose columns"));
    setToolTip(text);
    setAccessibleName(text);
}

} // namespace Vantor
