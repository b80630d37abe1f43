// SPDX-License-Identifier: MIT
#include "pages/TimeLinePage.h"

#include "pages/Recordings.h"
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
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

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
constexpr double kRowPx = 30.0;                 // within the first row of bars
constexpr int kAmounts[] = {0, 10000, 1000000}; // 0: day by day
constexpr qint64 kSpacingOfMany = 60;

const QByteArray kPictureZone = QByteArrayLiteral("Europe/Berlin");
const QDate kPictureDay(2026, 3, 29); // an hour is left out there

QPixmap Swatch(const QColor &colour, qreal ratio)
{
    QPixmap pixmap(QSize(kSwatchPx, kSwatchPx) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(colour);
    return pixmap;
}

QDate NewestDate(const CIncidentList &list)
{
    for (int column = 0; column < list.ColumnCount(); ++column) {
        if (list.Title(column) != QLatin1String("Flight Date"))
            continue;
        QDate newest;
        for (const QString &text : list.Texts(column))
            newest = qMax(newest, QDate::fromString(text, Qt::ISODate));
        return newest;
    }
    return {};
}

QString WallClock(const Vantor::TimeZoneParam &zone, qint64 seconds)
{
    const QDateTime time = Vantor::WallClockOf(zone, seconds);
    return QLocale().toString(time.date(), QStringLiteral("d MMM yyyy")) + QLatin1Char(' ')
           + QLocale().toString(time.time(), QStringLiteral("HH:mm:ss"));
}

} // namespace

CTimeLinePage::CTimeLinePage(QWidget *parent)
    : CPage(parent), line_(new CBaseFileProgressBar(this)),
      overview_(new CBaseFileProgressBar(this)), zone_(new CZoneSwitch(line_, this)),
      time_title_(new QLabel(this)), time_(new QDateTimeEdit(this)),
      amount_title_(new QLabel(this)), amount_(new QComboBox(this)),
      second_row_(new QCheckBox(this)), details_title_(new QLabel(this)),
      details_(new QLabel(this)), help_(new QLabel(this))
{
    line_->setObjectName(QStringLiteral("TimeLine"));
    overview_->setObjectName(QStringLiteral("TimeLineOverview"));
    overview_->SetSimplifyMode(true);
    details_->setObjectName(QStringLiteral("RecordingDetails"));
    details_->setTextFormat(Qt::PlainText);
    details_title_->setObjectName(QStringLiteral("RecordingTitle"));
    help_->setObjectName(QStringLiteral("TimeLineHelp"));
    help_->setWordWrap(true);
    details_timer_.setSingleShot(true);
    details_timer_.setInterval(kDetailsDelay);

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
    layout->addStretch(1);
    layout->addWidget(help_);

    connect(line_, &CBaseFileProgressBar::SignalPositionChanged, this,
            &CTimeLinePage::OnPositionChanged);
    connect(overview_, &CBaseFileProgressBar::SignalPositionChanged, this,
            &CTimeLinePage::OnOverviewMoved);
    connect(&details_timer_, &QTimer::timeout, this, &CTimeLinePage::UpdateDetails);
    connect(&many_, &QFutureWatcherBase::finished, this, &CTimeLinePage::OnManyMade);
    Retranslate();
}

CTimeLinePage::~CTimeLinePage()
{
    many_.waitForFinished();
    // The parts are hidden when only the widget is left of this page, and end edits and slides.
    for (QWidget *const part : std::initializer_list<QWidget *>{time_, zone_, line_, overview_})
        part->disconnect(this);
}

QLayout *CTimeLinePage::BuildTools()
{
    time_->setObjectName(QStringLiteral("TypedTime"));
    time_->setTimeSpec(Qt::UTC); // its fields are the zone's wall clock
    time_->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    time_->setKeyboardTracking(false);
    time_->setButtonSymbols(QAbstractSpinBox::NoButtons); // arrow keys step all the same
    amount_->setObjectName(QStringLiteral("Amount"));
    for (const int amount : kAmounts)
        amount_->addItem(QString(), amount);
    time_title_->setBuddy(time_);
    amount_title_->setBuddy(amount_);

    connect(time_->findChild<QLineEdit *>(), &QLineEdit::textEdited, this,
            [this] { is_typing_ = true; });
    connect(time_, &QDateTimeEdit::editingFinished, this, &CTimeLinePage::OnTimeTyped);
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
    connect(second_row_, &QCheckBox::toggled, this,
            [this](bool is_on) { line_->TimeBarDelegate()->SetSyncFlag(is_on); });
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
        return; // told of the empty future below
    const auto bars = many_.result();
    many_.setFuture({}); // it would keep a second set of them
    line_->TimeBarDelegate()->Clear();
    line_->TimeBarDelegate()->AppendTimeBar(bars);
    line_->TimeBarDelegate()->AppendSyncTimeBar(bars.mid(0, bars.size() / 2));
    amount_->setEnabled(true);
    CopyToOverview();
    Q_EMIT SignalMessage(
        tr("%1 recordings").arg(QLocale().toString(line_->TimeBarDelegate()->GetTimeBar().size())));
}

void CTimeLinePage::OnZoneApplied()
{
    overview_->SetTimeZoneInfor(zone_->Applied());
    ShowTime();
}

void CTimeLinePage::ShowTime()
{
    if (!is_typing_)
        time_->setDateTime(line_->GetCurrentDateTime());
    if (!details_timer_.isActive())
        details_timer_.start();
}

void CTimeLinePage::OnPositionChanged(qint64 position_ms)
{
    const QDate date = QDateTime::fromMSecsSinceEpoch(position_ms, Qt::UTC).date();
    if (IsDayShown() && day_.isValid() && date.isValid())
        ShowDay(date);
    // A million bars are painted again only when they have moved.
    const double moved_s = double(position_ms - overview_->Position()) / 1000.0;
    if (std::abs(moved_s) * overview_->PixelsPerSecond() >= kSeenPx) {
        const QSignalBlocker blocker(overview_);
        overview_->SetPosition(position_ms);
    }
    ShowTime();
}

void CTimeLinePage::OnOverviewMoved(qint64 position_ms)
{
    line_->SetPosition(position_ms);
}

void CTimeLinePage::OnTimeTyped()
{
    is_typing_ = false;
    if (time_->dateTime() != line_->GetCurrentDateTime())
        zone_->SlideToWallClock(time_->dateTime(), kSlideMs);
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
    details_timer_.start();
}

void CTimeLinePage::UpdateDetails()
{
    Vantor::CTimeBarParam bar;
    if (!line_->TimeBarDelegate()->FindTimeBar({line_->width() / 2.0, kRowPx}, bar)) {
        details_->setText(tr("Nothing was recorded at this time."));
        return;
    }
    QString kind;
    for (const RecordingKind &known : kRecordingKinds) {
        if (known.type == bar.GetVal_iTimeType())
            kind = QCoreApplication::translate("Recordings", known.name);
    }
    details_->setText(QStringList{kind, bar.GetVal_strFileName(),
                                  tr("%1 to %2")
                                      .arg(WallClock(zone_->Applied().Read(), bar.GetVal_dtStart()),
                                           WallClock(zone_->Applied().Read(), bar.GetVal_dtEnd()))}
                          .join(QLatin1Char('\n')));
}

void CTimeLinePage::PrepareForPicture()
{
    line_->SetAnimationDuration(0);
    zone_->SetZone(kPictureZone);
    second_row_->setChecked(true);
    line_->SetPosition(QDateTime(kPictureDay, QTime(4, 20), Qt::UTC).toMSecsSinceEpoch());
    line_->setFocus();
}

void CTimeLinePage::resizeEvent(QResizeEvent *event)
{
    CPage::resizeEvent(event);
    ScaleOverview();
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
           "goes back; Space tells what lies under the line."));
    details_timer_.start();
}

} // namespace Client
