// SPDX-License-Identifier: MIT
#include "pages/TimeLinePage.h"

#include "pages/Recordings.h"
#include "pages/RecordingsTable.h"
#include "pages/TimeEntry.h"
#include "pages/ZoneSwitch.h"

#include <Nim/Base/TimeUnits.h>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CTimeBarDelegate>
#include <common/ZoneTime.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtCore/QSignalBlocker>
#include <QtGui/QPainter>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <chrono>
#include <cmath>

namespace Client {
namespace {

using namespace std::chrono_literals;
using Vantor::CBaseFileProgressBar;

constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 12;
constexpr int kSwatchPx = 12;
constexpr int kSlideMs = 500;
constexpr auto kDetailsDelay = 60ms;
constexpr double kDaysOfOverview = 2.0;
constexpr double kSeenPx = 0.5;
constexpr int kAmounts[] = {0, 10000, 1000000}; // 0: day by day
constexpr int kLeastTablePx = 120;
constexpr qint64 kSpacingOfMany = 60;

const QByteArray kPictureZone = QByteArrayLiteral("Europe/Berlin");
constexpr qint64 kPictureTimeMs = 1774758000000; // 2026-03-29 04:20 UTC, a day of 23 hours

QPixmap Swatch(const QColor &colour, qreal ratio)
{
    QPixmap pixmap(QSize(kSwatchPx, kSwatchPx) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(colour);
    return pixmap;
}

} // namespace

CTimeLinePage::CTimeLinePage(QWidget *parent)
    : CPage(parent), line_(new CBaseFileProgressBar(this)),
      overview_(new CBaseFileProgressBar(this)), zone_(new CZoneSwitch(line_, this)),
      time_title_(new QLabel(this)), time_(new CTimeEntry(this)), amount_title_(new QLabel(this)),
      amount_(new QComboBox(this)), second_row_(new QCheckBox(this)),
      details_title_(new QLabel(this)), details_(new QLabel(this)), table_title_(new QLabel(this)),
      table_(new CRecordingsTable(this)), help_(new QLabel(this))
{
    line_->setObjectName(QStringLiteral("TimeLine"));
    overview_->setObjectName(QStringLiteral("TimeLineOverview"));
    overview_->SetSimplifyMode(true);
    details_->setObjectName(QStringLiteral("RecordingDetails"));
    details_->setTextFormat(Qt::PlainText);
    details_->setWordWrap(true);
    details_title_->setObjectName(QStringLiteral("RecordingTitle"));
    table_title_->setObjectName(QStringLiteral("RecordingsTitle"));
    table_title_->setBuddy(table_);
    table_->setObjectName(QStringLiteral("RecordingsOfDay"));
    table_->setMinimumHeight(kLeastTablePx);
    help_->setObjectName(QStringLiteral("TimeLineHelp"));
    help_->setWordWrap(true);
    details_timer_.setSingleShot(true);
    details_timer_.setInterval(kDetailsDelay);

    BuildLayout();

    connect(line_, &CBaseFileProgressBar::SignalPositionChanged, this,
            &CTimeLinePage::OnPositionChanged);
    connect(overview_, &CBaseFileProgressBar::SignalPositionChanged, this,
            &CTimeLinePage::OnOverviewMoved);
    connect(&details_timer_, &QTimer::timeout, this, &CTimeLinePage::UpdateDetails);
    connect(table_, &CRecordingsTable::SignalChosen, this, &CTimeLinePage::OnRecordingChosen);
    connect(&many_, &QFutureWatcherBase::finished, this, &CTimeLinePage::OnManyMade);
    Retranslate();
}

CTimeLinePage::~CTimeLinePage()
{
    many_.waitForFinished();
    // The parts are hidden when this page is no more than a QWidget; they then end edits and
    // slides.
    for (QWidget *const part : std::initializer_list<QWidget *>{time_, zone_, line_, overview_})
        part->disconnect(this);
}

void CTimeLinePage::BuildLayout()
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->setSpacing(kSpacingPx);
    layout->addLayout(BuildTools());
    layout->addWidget(zone_);
    layout->addLayout(BuildTypes());
    layout->addWidget(line_);
    layout->addWidget(overview_);
    layout->addWidget(details_title_);
    layout->addWidget(details_);
    layout->addWidget(table_title_);
    layout->addWidget(table_, 1);
    layout->addWidget(help_);
}

QLayout *CTimeLinePage::BuildTools()
{
    time_->setObjectName(QStringLiteral("TypedTime"));
    amount_->setObjectName(QStringLiteral("Amount"));
    for (const int amount : kAmounts)
        amount_->addItem(QString(), amount);
    time_title_->setBuddy(time_);
    amount_title_->setBuddy(amount_);

    connect(time_, &CTimeEntry::SignalEntered, this, &CTimeLinePage::OnTimeEntered);
    connect(time_, &CTimeEntry::SignalRefused, this, [this](const QString &text) {
        Q_EMIT SignalMessage(tr("\"%1\" is not a time such as 2026-03-29 14:30:00.").arg(text));
    });
    connect(zone_, &CZoneSwitch::SignalApplied, this, &CTimeLinePage::OnZoneApplied);
    connect(amount_, qOverload<int>(&QComboBox::activated), this, &CTimeLinePage::OnAmountChosen);

    auto *const tools = new QHBoxLayout;
    tools->setSpacing(kSpacingPx);
    for (QWidget *const widget :
         std::initializer_list<QWidget *>{time_title_, time_, amount_title_, amount_})
        tools->addWidget(widget);
    tools->addStretch(1);
    return tools;
}

QLayout *CTimeLinePage::BuildTypes()
{
    auto *const types = new QHBoxLayout;
    types->setSpacing(kSpacingPx);
    for (const RecordingKind &kind : kRecordingKinds) {
        auto *const box = new QCheckBox(this);
        box->setObjectName(QStringLiteral("Type%1").arg(kind.type));
        box->setIcon(Swatch(RecordingColour(kind.type), devicePixelRatioF()));
        box->setChecked(true);
        connect(box, &QCheckBox::toggled, this, &CTimeLinePage::OnTypeToggled);
        types->addWidget(box);
        types_.append(box);
    }
    second_row_->setObjectName(QStringLiteral("SecondRow"));
    connect(second_row_, &QCheckBox::toggled, this, [this](bool is_on) {
        line_->TimeBarDelegate()->SetSyncFlag(is_on);
        OnRecordingsChanged();
    });
    types->addWidget(second_row_);
    types->addStretch(1);
    return types;
}

void CTimeLinePage::SetList(const IncidentListPtr &list)
{
    list_ = list;
    const QDate newest = NewestDate(*list);
    const QDate day = newest.isValid() ? newest : QDateTime::currentDateTimeUtc().date();
    day_ = {};
    line_->SetPosition(QDateTime(day, QTime(12, 0), Qt::UTC).toMSecsSinceEpoch());
    if (IsDayShown())
        ShowDay(day);
    else
        OnAmountChosen();
}

bool CTimeLinePage::IsDayShown() const
{
    return amount_->currentData().toInt() == 0;
}

void CTimeLinePage::ShowDay(QDate day)
{
    if (day == day_ || !list_)
        return;
    day_ = day;
    line_->SetFiles(RecordingsOfDay(*list_, day, 0), true);
    line_->SetSyncFiles(RecordingsOfDay(*list_, day, 1), true);
    CopyToOverview();
}

void CTimeLinePage::CopyToOverview()
{
    Vantor::CTimeBarDelegate *const bars = overview_->TimeBarDelegate();
    bars->Clear();
    bars->AppendTimeBar(line_->TimeBarDelegate()->GetTimeBar());
    ScaleOverview();
    OnRecordingsChanged();
}

void CTimeLinePage::OnRecordingsChanged()
{
    table_day_ = {};
    details_timer_.start();
}

void CTimeLinePage::ScaleOverview()
{
    const int amount = amount_->currentData().toInt();
    overview_->SetUnitScale(qMax(1, overview_->width()),
                            amount == 0 ? kDaysOfOverview * Nim::Base::kSecondsPerDay
                                        : double(amount) * kSpacingOfMany);
}

void CTimeLinePage::OnAmountChosen()
{
    if (IsDayShown()) {
        day_ = {};
        ShowDay(QDateTime::fromMSecsSinceEpoch(line_->Position(), Qt::UTC).date());
        return;
    }
    amount_->setEnabled(false);
    Q_EMIT SignalMessage(tr("Making the recordings …"));
    many_.setFuture(QtConcurrent::run([list = list_, count = amount_->currentData().toInt(),
                                       middle_s = line_->GetCurrentUTCTime()] {
        return ManyRecordings(*list, count, middle_s);
    }));
}

void CTimeLinePage::OnManyMade()
{
    if (many_.isCanceled() || many_.future().resultCount() == 0)
        return; // the signal comes for the empty future below, too
    const auto bars = many_.result();
    many_.setFuture({}); // it would keep a second set of them
    line_->TimeBarDelegate()->Clear();
    line_->TimeBarDelegate()->AppendTimeBar(bars);
    line_->TimeBarDelegate()->AppendSyncTimeBar(bars.mid(0, bars.size() / 2));
    amount_->setEnabled(true);
    CopyToOverview();
    Q_EMIT SignalMessage(tr("Recordings: %1").arg(QLocale().toString(bars.size())));
}

void CTimeLinePage::OnZoneApplied()
{
    overview_->SetTimeZoneInfor(zone_->Applied());
    ShowTime();
    OnRecordingsChanged();
}

void CTimeLinePage::ShowTime()
{
    if (!line_->IsSliding()) // the time at its end is the one to go on from
        time_->SetTime(line_->GetCurrentDateTime());
    if (!details_timer_.isActive())
        details_timer_.start();
}

void CTimeLinePage::OnPositionChanged(qint64 position_ms)
{
    const QDate date = QDateTime::fromMSecsSinceEpoch(position_ms, Qt::UTC).date();
    if (IsDayShown() && day_.isValid() && date.isValid())
        ShowDay(date);
    // While the user moves the overview, it leads and the line follows.
    const bool overview_leads =
        overview_->IsSliding() || overview_->IsPressed() || overview_->IsMoving();
    // A million bars are painted again only when they have moved.
    const double moved_s = double(position_ms - overview_->Position()) / 1000.0;
    if (!overview_leads && std::abs(moved_s) * overview_->PixelsPerSecond() >= kSeenPx) {
        const QSignalBlocker blocker(overview_);
        overview_->SetPosition(position_ms);
    }
    ShowTime();
}

void CTimeLinePage::OnOverviewMoved(qint64 position_ms)
{
    line_->SetPosition(position_ms);
}

void CTimeLinePage::OnTimeEntered(const QDateTime &time)
{
    zone_->SlideToWallClock(time, kSlideMs);
    if (line_->IsSliding()) // a step by key goes on from the end of the slide
        time_->SetTime(time);
}

void CTimeLinePage::OnRecordingChosen(qint64 start_s)
{
    line_->SlideTo(start_s * 1000, kSlideMs);
}

void CTimeLinePage::OnTypeToggled()
{
    QList<int> hidden;
    for (int i = 0; i < types_.size(); ++i) {
        if (!types_.at(i)->isChecked())
            hidden.append(kRecordingKinds[i].type);
    }
    line_->TimeBarDelegate()->SetUnvisibleTypes(hidden);
    overview_->TimeBarDelegate()->SetUnvisibleTypes(hidden);
    OnRecordingsChanged();
}

QString CTimeLinePage::TimeText(const Vantor::CTimeBarParam &bar) const
{
    const Vantor::CTimeZoneParam zone = zone_->Applied();
    const QLocale locale;
    return tr("%1 to %2")
        .arg(Vantor::WallClockText(zone.Read(), bar.GetVal_dtStart(), locale),
             Vantor::WallClockText(zone.Read(), bar.GetVal_dtEnd(), locale));
}

void CTimeLinePage::UpdateDetails()
{
    const auto bar = line_->TimeBarDelegate()->FindTimeBarAt(line_->GetCurrentUTCTime());
    details_->setText(bar ? QStringList{RecordingKindText(bar->GetVal_iTimeType()),
                                        bar->GetVal_strFileName(), TimeText(*bar)}
                                .join(QStringLiteral("  ·  "))
                          : tr("Nothing was recorded at this time."));
    if (line_->IsSliding()) { // the table follows when the line has come to rest
        details_timer_.start();
        return;
    }
    time_->SetTime(line_->GetCurrentDateTime());
    UpdateTable();
    table_->Follow(line_->GetCurrentUTCTime(), bar ? &*bar : nullptr);
}

void CTimeLinePage::UpdateTable()
{
    const QDate day = line_->GetCurrentDateTime().date();
    if (day == table_day_)
        return;
    table_day_ = day;
    auto recordings = RecordingsInTable(*line_->TimeBarDelegate(), day, zone_->Applied());
    table_title_->setText(
        tr("Recordings of %1: %2")
            .arg(QLocale().toString(day, tr("d MMM yyyy")), QLocale().toString(recordings.size())));
    table_->SetRecordings(recordings, zone_->Applied());
}

void CTimeLinePage::PrepareForPicture()
{
    line_->SetAnimationDuration(0);
    zone_->SetZone(kPictureZone);
    second_row_->setChecked(true);
    line_->SetPosition(kPictureTimeMs);
    line_->setFocus();
}

void CTimeLinePage::resizeEvent(QResizeEvent *event)
{
    CPage::resizeEvent(event);
    ScaleOverview();
    // The layout takes no account of wrapped lines when it limits the height: help and table would
    // overlap.
    const int help_px = help_->heightForWidth(width() - 2 * kMarginPx) + kSpacingPx;
    const int rest_px =
        layout()->minimumHeightForWidth(width()) - (help_->isHidden() ? 0 : help_px);
    help_->setVisible(height() >= rest_px + help_px);
}

void CTimeLinePage::changeEvent(QEvent *event)
{
    CPage::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CTimeLinePage::Retranslate()
{
    time_title_->setText(tr("&Time"));
    amount_title_->setText(tr("&Recordings"));
    for (int i = 0; i < amount_->count(); ++i) {
        const int amount = amount_->itemData(i).toInt();
        amount_->setItemText(i, amount == 0 ? tr("Day by day") : QLocale().toString(amount));
    }
    for (int i = 0; i < types_.size(); ++i)
        types_.at(i)->setText(QCoreApplication::translate("Recordings", kRecordingKinds[i].name));
    second_row_->setText(tr("&Second camera"));
    line_->setAccessibleName(tr("Recordings"));
    overview_->setAccessibleName(tr("Overview"));
    details_title_->setText(tr("At the cursor line"));
    help_->setText(
        tr("The wheel zooms about the pointer, dragging pans, a click slides there. Keys: Left and "
           "Right move, with Shift by more and with Ctrl to the next recording; Page Up and Page "
           "Down by what is visible; Home and End to the first and last recording; + and - zoom, 0 "
           "goes back; Space describes what is under the line."));
    table_->setAccessibleName(tr("Recordings of the day"));
    table_->Retranslate();
    OnRecordingsChanged();
}

} // namespace Client
