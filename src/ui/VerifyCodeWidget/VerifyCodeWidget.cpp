// SPDX-License-Identifier: MIT
#include "ui/VerifyCodeWidget/VerifyCodeWidget.h"

#include "common/DisconnectChildren.h"
#include "common/ForwardEvents.h"
#include "common/Repolish.h"
#include "common/Translate.h"

#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

namespace Vantor {

struct CVerifyCodeWidgetDataPtr
{
    CStruVerifyCode verify_code_;
    QWidget *ptr_label_row_ = nullptr;
    Ravel::CLabel *ptr_verify_label_ = nullptr;
    Ravel::CLabel *ptr_indicate_label_ = nullptr;
    Ravel::CFrame *ptr_back_frame_ = nullptr;
    Ravel::CLineEdit *ptr_verify_edit_ = nullptr;
    Ravel::CLabel *ptr_vcode_label_ = nullptr;
};

namespace {

constexpr char kContext[] = "Vantor::CVerifyCodeWidget";
constexpr QSize kImageSizePx(120, 40);
constexpr int kMaximumCodeLength = 32;

} // namespace

CVerifyCodeWidget::CVerifyCodeWidget(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_unique<CVerifyCodeWidgetDataPtr>())
{
    setObjectName(QStringLiteral("VerifyCodeWidget"));
    BuildLabels();
    BuildEntry();
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d_ptr_->ptr_label_row_);
    layout->addWidget(d_ptr_->ptr_back_frame_);
    setFocusProxy(d_ptr_->ptr_verify_edit_);
    d_ptr_->ptr_verify_label_->setBuddy(d_ptr_->ptr_verify_edit_);
    d_ptr_->ptr_verify_edit_->installEventFilter(this);
    d_ptr_->ptr_back_frame_->installEventFilter(this);
    connect(d_ptr_->ptr_vcode_label_, &Ravel::CLabel::SignalMouseClicked, this,
            &CVerifyCodeWidget::SignalRefreshVerifyCode);
    Retranslate();
}

CVerifyCodeWidget::~CVerifyCodeWidget()
{
    DisconnectChildren(this);
}

void CVerifyCodeWidget::BuildLabels()
{
    d_ptr_->ptr_label_row_ = new QWidget(this);
    d_ptr_->ptr_verify_label_ = new Ravel::CLabel(d_ptr_->ptr_label_row_);
    d_ptr_->ptr_verify_label_->setObjectName(QStringLiteral("ptr_verify_label"));
    d_ptr_->ptr_indicate_label_ = new Ravel::CLabel(QStringLiteral("*"), d_ptr_->ptr_label_row_);
    d_ptr_->ptr_indicate_label_->setObjectName(QStringLiteral("ptr_indicate_label"));
    auto *const row = new QHBoxLayout(d_ptr_->ptr_label_row_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(d_ptr_->ptr_verify_label_);
    row->addWidget(d_ptr_->ptr_indicate_label_);
    row->addStretch();
}

void CVerifyCodeWidget::BuildEntry()
{
    d_ptr_->ptr_back_frame_ = new Ravel::CFrame(this);
    d_ptr_->ptr_back_frame_->setObjectName(QStringLiteral("ptr_back_frame"));
    d_ptr_->ptr_verify_edit_ = new Ravel::CLineEdit(d_ptr_->ptr_back_frame_);
    d_ptr_->ptr_verify_edit_->setObjectName(QStringLiteral("ptr_verify_edit"));
    d_ptr_->ptr_verify_edit_->setMaxLength(kMaximumCodeLength);
    d_ptr_->ptr_verify_edit_->setInputMethodHints(Qt::ImhNoPredictiveText | Qt::ImhPreferLatin);
    d_ptr_->ptr_vcode_label_ = new Ravel::CLabel(d_ptr_->ptr_back_frame_);
    d_ptr_->ptr_vcode_label_->setObjectName(QStringLiteral("ptr_vcode_label_"));
    d_ptr_->ptr_vcode_label_->setFixedSize(kImageSizePx);
    d_ptr_->ptr_vcode_label_->setCursor(Qt::PointingHandCursor);
    auto *const frame = new QHBoxLayout(d_ptr_->ptr_back_frame_);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->addWidget(d_ptr_->ptr_verify_edit_, 1);
    frame->addWidget(d_ptr_->ptr_vcode_label_);
}

void CVerifyCodeWidget::SetVerifyCode(const CStruVerifyCode &code)
{
    d_ptr_->verify_code_ = code;
    const QPixmap image = code.GetVal_pix_code_();
    if (image.isNull()) {
        d_ptr_->ptr_vcode_label_->clear();
        return;
    }
    const qreal ratio = devicePixelRatioF();
    QPixmap scaled = image.scaled(d_ptr_->ptr_vcode_label_->size() * ratio, Qt::IgnoreAspectRatio,
                                  Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    d_ptr_->ptr_vcode_label_->setPixmap(scaled);
}

CStruVerifyCode CVerifyCodeWidget::GetVerifyCode() const
{
    CStruVerifyCode code(d_ptr_->verify_code_);
    code.SetVal_code_text_(GetCodeText());
    return code;
}

bool CVerifyCodeWidget::IsCodeTextEmpty() const
{
    return GetCodeText().isEmpty();
}

void CVerifyCodeWidget::ClearEdit()
{
    d_ptr_->ptr_verify_edit_->clear();
}

void CVerifyCodeWidget::SetEditFocus()
{
    d_ptr_->ptr_verify_edit_->setFocus();
}

void CVerifyCodeWidget::SetMargins(int left, int top, int right, int bottom)
{
    layout()->setContentsMargins(left, top, right, bottom);
}

void CVerifyCodeWidget::HideLabel()
{
    d_ptr_->ptr_label_row_->hide();
}

QString CVerifyCodeWidget::GetCodeText() const
{
    return d_ptr_->ptr_verify_edit_->text();
}

bool CVerifyCodeWidget::eventFilter(QObject *watched, QEvent *event)
{
    const bool is_edit = watched == d_ptr_->ptr_verify_edit_;
    const bool is_frame = watched == d_ptr_->ptr_back_frame_;
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!is_edit || !static_cast<QKeyEvent *>(event)->matches(QKeySequence::Refresh))
            break;
        Q_EMIT SignalRefreshVerifyCode(); // last: a slot may delete this widget
        return true;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (is_edit)
            ShowEntered(event->type() == QEvent::FocusIn);
        break;
    case QEvent::Enter:
    case QEvent::Leave:
        if (is_frame)
            ShowEntered(event->type() == QEvent::Enter);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void CVerifyCodeWidget::ShowEntered(bool is_entered)
{
    if (!is_entered && d_ptr_->ptr_verify_edit_->hasFocus())
        return;
    d_ptr_->ptr_back_frame_->setObjectName(is_entered ? QStringLiteral("ptr_back_frame_enter")
                                                      : QStringLiteral("ptr_back_frame"));
    Repolish(d_ptr_->ptr_back_frame_);
}

VANTOR_FORWARD_EVENT(CVerifyCodeWidget, QWidget)

void CVerifyCodeWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CVerifyCodeWidget::Retranslate()
{
    const QString text = Translate(QStringLiteral("VerificationCode"), kContext);
    d_ptr_->ptr_verify_label_->setText(text);
    d_ptr_->ptr_verify_edit_->setAccessibleName(text);
    const QString hint = Translate(QStringLiteral("ClickForAnotherImage"), kContext);
    d_ptr_->ptr_vcode_label_->setToolTip(hint);
    d_ptr_->ptr_vcode_label_->setAccessibleName(hint);
}

} // namespace Vantor
