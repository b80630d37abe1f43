// SPDX-License-Identifier: MIT
#include "pages/ZoneSwitch.h"

#include <BusinessCommon/ZoneYear.h>
#include <Nim/Base/TimeUnits.h>
#include <Vantor/CAnimationProgressBar>

#include <QtCore/QDateTime>
#include <QtCore/QEvent>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace Client {
namespace {

using Nim::Base::kSecondsPerMinute;

// A zone as a time line uses it, and the time for which it is right.
struct Stretch
{
    Vantor::TimeZoneParam zone;
    qint64 from_s;
    qint64 to_s;
};

QDateTime Utc(qint64 seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

bool ChangesClocks(const QTimeZone &zone, const QTimeZone::OffsetData &data)
{
    return zone.offsetFromUtc(data.atUtc.addMSecs(-1)) != data.offsetFromUtc;
}

// The next change of the clocks after `at`, or an invalid time.
QDateTime ChangeAfter(const QTimeZone &zone, const QDateTime &at)
{
    QTimeZone::OffsetData data{{}, at, 0, 0, 0};
    do {
        data = BusinessCommon::NextTransition(zone, data.atUtc);
    } while (data.atUtc.isValid() && !ChangesClocks(zone, data));
    return data.atUtc;
}

QDateTime ChangeBefore(const QTimeZone &zone, const QDateTime &at)
{
    QTimeZone::OffsetData data{{}, at, 0, 0, 0};
    do {
        data = zone.previousTransition(data.atUtc);
    } while (data.atUtc.isValid() && !ChangesClocks(zone, data));
    return data.atUtc;
}

Stretch StretchAt(const QTimeZone &zone, qint64 seconds)
{
    const int year = Utc(seconds).date().year();
    Stretch stretch{};
    stretch.from_s = QDateTime({year, 1, 1}, {0, 0}, Qt::UTC).toSecsSinceEpoch();
    stretch.to_s = QDateTime({year, 12, 31}, {0, 0}, Qt::UTC).addDays(1).toSecsSinceEpoch();
    if (const auto known = BusinessCommon::ZoneYearOf(zone, year)) {
        stretch.zone = {known->dst_begin_s, known->dst_end_s, known->infor.utc_bias,
                        known->infor.daylight_bias, known->infor.b_dst};
        return stretch;
    }
    // An irregular year: from change to change.
    stretch.zone.utc_bias = static_cast<int>(-zone.offsetFromUtc(Utc(seconds)) / kSecondsPerMinute);
    const QDateTime begin = ChangeBefore(zone, Utc(seconds).addMSecs(1));
    const QDateTime end = ChangeAfter(zone, Utc(seconds));
    if (begin.isValid())
        stretch.from_s = qMax(stretch.from_s, begin.toSecsSinceEpoch());
    if (end.isValid())
        stretch.to_s = qMin(stretch.to_s, end.toSecsSinceEpoch());
    return stretch;
}

QStringList ZoneNames()
{
    QStringList names;
    const auto ids = QTimeZone::availableTimeZoneIds();
    for (const QByteArray &id : ids) {
        if (!id.startsWith("UTC") || id == "UTC") // Qt adds fixed offsets such as "UTC+01:00"
            names.append(QString::fromLatin1(id));
    }
    return names;
}

} // namespace

CZoneSwitch::CZoneSwitch(Vantor::CAnimationProgressBar *bar, QWidget *parent)
    : QWidget(parent), bar_(bar), title_(new QLabel(this)), names_(new QComboBox(this)),
      earlier_(new QPushButton(this)), later_(new QPushButton(this)), state_(new QLabel(this))
{
    names_->setObjectName(QStringLiteral("ZoneNames"));
    names_->addItems(ZoneNames());
    names_->setEditable(true); // to type a part of the name
    names_->setInsertPolicy(QComboBox::NoInsert);
    names_->completer()->setFilterMode(Qt::MatchContains);
    names_->completer()->setCompletionMode(QCompleter::PopupCompletion);
    title_->setBuddy(names_);
    earlier_->setObjectName(QStringLiteral("EarlierChange"));
    later_->setObjectName(QStringLiteral("LaterChange"));
    state_->setObjectName(QStringLiteral("ZoneState"));

    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title_);
    layout->addWidget(names_);
    layout->addWidget(earlier_);
    layout->addWidget(later_);
    layout->addWidget(state_, 1);

    connect(names_, qOverload<int>(&QComboBox::activated), this, &CZoneSwitch::OnNameEntered);
    connect(names_->lineEdit(), &QLineEdit::editingFinished, this, &CZoneSwitch::OnNameEntered);
    connect(earlier_, &QPushButton::clicked, this, &CZoneSwitch::GoToEarlierChange);
    connect(later_, &QPushButton::clicked, this, &CZoneSwitch::GoToLaterChange);
    connect(bar, &Vantor::CAnimationProgressBar::SignalPositionChanged, this,
            &CZoneSwitch::OnPositionChanged);
    Retranslate();
    if (!SetZone(QTimeZone::systemTimeZoneId()))
        SetZone("UTC");
}

bool CZoneSwitch::SetZone(const QByteArray &id)
{
    const QTimeZone zone(id);
    if (!zone.isValid())
        return false;
    const QSignalBlocker blocker(names_);
    names_->setCurrentText(QString::fromLatin1(id));
    if (zone == zone_)
        return true;
    zone_ = zone;
    ApplyZone(bar_ ? bar_->GetCurrentUTCTime() : 0);
    Q_EMIT SignalZoneChanged(id);
    return true;
}

void CZoneSwitch::ApplyZone(qint64 seconds)
{
    if (!bar_)
        return;
    const Stretch stretch = StretchAt(zone_, seconds);
    applied_from_s_ = stretch.from_s;
    applied_to_s_ = stretch.to_s;
    applied_ = Vantor::CTimeZoneParam(stretch.zone);
    bar_->SetTimeZoneInfor(applied_);
    ShowState();
    Q_EMIT SignalApplied();
}

void CZoneSwitch::OnPositionChanged()
{
    const qint64 seconds = bar_->GetCurrentUTCTime();
    if (seconds < applied_from_s_ || seconds >= applied_to_s_)
        ApplyZone(seconds);
    else
        ShowState();
}

void CZoneSwitch::SlideToWallClock(const QDateTime &wall_clock, int duration_ms)
{
    const QDateTime fields(wall_clock.date(), wall_clock.time(), Qt::UTC);
    if (!bar_ || !fields.isValid())
        return;
    ApplyZone(fields.addSecs(-zone_.offsetFromUtc(fields)).toSecsSinceEpoch());
    bar_->SetCurrentDateTime(fields, true, duration_ms);
    OnPositionChanged(); // the line may be held, and stay in its year
}

void CZoneSwitch::OnNameEntered()
{
    if (!SetZone(names_->currentText().toLatin1()))
        names_->setCurrentText(QString::fromLatin1(zone_.id()));
}

void CZoneSwitch::GoToEarlierChange()
{
    if (bar_)
        GoTo(ChangeBefore(zone_, Utc(bar_->GetCurrentUTCTime())));
}

void CZoneSwitch::GoToLaterChange()
{
    if (bar_)
        GoTo(ChangeAfter(zone_, Utc(bar_->GetCurrentUTCTime())));
}

void CZoneSwitch::GoTo(const QDateTime &change)
{
    if (change.isValid())
        bar_->SlideTo(change.toMSecsSinceEpoch(), bar_->AnimationDuration());
}

void CZoneSwitch::ShowState()
{
    if (!bar_)
        return;
    const QDateTime change = ChangeAfter(zone_, Utc(bar_->GetCurrentUTCTime()));
    later_->setEnabled(change.isValid());
    earlier_->setEnabled(ChangeBefore(zone_, Utc(bar_->GetCurrentUTCTime())).isValid());
    if (!change.isValid()) {
        state_->setText(tr("The clocks do not change."));
        return;
    }
    const int before_s = zone_.offsetFromUtc(change.addMSecs(-1));
    const bool is_forward = zone_.offsetFromUtc(change) > before_s;
    // The time that the clocks show when they are changed.
    const QString when = QLocale().toString(change.addSecs(before_s), tr("d MMM yyyy HH:mm"));
    state_->setText(is_forward ? tr("The clocks go forward on %1.").arg(when)
                               : tr("The clocks go back on %1.").arg(when));
}

void CZoneSwitch::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::LocaleChange)
        Retranslate();
}

void CZoneSwitch::Retranslate()
{
    title_->setText(tr("Time &zone"));
    names_->setAccessibleName(tr("Time zone"));
    names_->lineEdit()->setAccessibleName(names_->accessibleName());
    earlier_->setText(tr("&Earlier change"));
    later_->setText(tr("&Later change"));
    earlier_->setToolTip(tr("Go to where the clocks of this zone were changed last"));
    later_->setToolTip(tr("Go to where the clocks of this zone are changed next"));
    if (zone_.isValid())
        ShowState();
}

} // namespace Client
