// SPDX-License-Identifier: MIT
#include "window/DetailPanel.h"

#include "look/Language.h"

#include <Vantor/CDockManager>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QEvent>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

namespace Client {
namespace {

constexpr int kMarginPx = 16;
constexpr int kFieldGapPx = 10;

QLabel *NewLabel(const char *name, const QString &text, QWidget *parent)
{
    auto *const label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText); // the list comes from a file
    label->setWordWrap(true);
    // A label is aligned by the direction of its own text, which may differ from the window's.
    label->setAlignment(Qt::AlignAbsolute
                        | QStyle::visualAlignment(parent->layoutDirection(), Qt::AlignLeading));
    return label;
}

} // namespace

CDetailPanel::CDetailPanel(QWidget *parent) : CBaseDockFrame(parent)
{
    setObjectName(QStringLiteral("DetailPanel"));
    SetResetButtonVisible(false);
    connect(this, &CBaseDockFrame::signalConfirm, this, &CDetailPanel::OnCopy);
    connect(this, &CBaseDockFrame::signalCancel, this,
            [] { Ravel::CUiSingleton<Vantor::CDockManager>::Instance().HideDockWidget(); });
    Retranslate();
}

void CDetailPanel::SetRow(const QModelIndex &index)
{
    fields_.clear();
    auto *const content = new QWidget;
    content->setLayoutDirection(layoutDirection());
    auto *const layout = new QVBoxLayout(content);
    layout->setContentsMargins(kMarginPx, 0, kMarginPx, kMarginPx);
    layout->setSpacing(0);
    for (int column = 0; column < index.model()->columnCount(); ++column) {
        const QString title = index.model()->headerData(column, Qt::Horizontal).toString();
        const QString text = index.siblingAtColumn(column).data().toString().trimmed();
        if (text.isEmpty())
            continue;
        fields_.append({title, text});
        layout->addSpacing(kFieldGapPx);
        layout->addWidget(NewLabel("DetailName", title, content));
        QLabel *const value = NewLabel("DetailText", text, content);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        layout->addWidget(value);
    }
    layout->addStretch(1);
    QWidget *const old = findChild<QWidget *>(QStringLiteral("DetailContent"));
    content->setObjectName(QStringLiteral("DetailContent"));
    SetContentWnd(content);
    delete old;
    Retranslate();
}

void CDetailPanel::OnCopy()
{
    QString text;
    for (const auto &[title, value] : qAsConst(fields_))
        text += title + QStringLiteral(": ") + value + QLatin1Char('\n');
    QGuiApplication::clipboard()->setText(text);
    Q_EMIT SignalMessage(tr("The incident is in the clipboard"));
}

void CDetailPanel::changeEvent(QEvent *event)
{
    CBaseDockFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CDetailPanel::Retranslate()
{
    SetTitleText(fields_.isEmpty() ? tr("Incident")
                                   : tr("Incident %1").arg(Isolated(fields_[0].second)));
    SetSaveBtnText(tr("Copy"));
}

} // namespace Client
