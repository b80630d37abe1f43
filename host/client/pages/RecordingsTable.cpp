// SPDX-License-Identifier: MIT
#include "pages/RecordingsTable.h"

#include "pages/Recordings.h"

#include <Nim/Base/TimeUnits.h>
#include <Vantor/CTimeBarDelegate>
#include <common/ZoneTime.h>

#include <QtCore/QLocale>
#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QHeaderView>

#include <algorithm>

namespace Client {
namespace {

bool IsSame(const Vantor::TimeBarParam &a, const Vantor::TimeBarParam &b)
{
    return a.dtStart == b.dtStart && a.dtEnd == b.dtEnd && a.iTimeType == b.iTimeType
           && a.strFileName == b.strFileName;
}

QString LengthText(qint64 seconds)
{
    return QLocale().toString(QTime(0, 0).addSecs(int(seconds)), seconds < 3600
                                                                     ? QStringLiteral("mm:ss")
                                                                     : QStringLiteral("HH:mm:ss"));
}

qint64 StartOfDay(QDate day, const Vantor::TimeZoneParam &zone)
{
    const qint64 midnight = QDateTime(day, QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
    const qint64 nearly = midnight - WallClockOffset(zone, midnight);
    return midnight - WallClockOffset(zone, nearly);
}

bool StartsBefore(const Recording &a, const Recording &b)
{
    return a.bar.Read().dtStart < b.bar.Read().dtStart;
}

// Those of `bars` that are shown and overlap the time from `from_s` to before `to_s`.
void AppendRecordings(QVector<Recording> &recordings, const QVector<Vantor::CTimeBarParam> &bars,
                      const Vantor::CTimeBarDelegate &shown, int camera, qint64 from_s, qint64 to_s)
{
    const auto first =
        std::partition_point(bars.begin(), bars.end(), [&](const Vantor::CTimeBarParam &bar) {
            return bar.Read().dtStart < from_s - Nim::Base::kSecondsPerDay;
        });
    for (auto bar = first; bar != bars.end() && bar->Read().dtStart < to_s; ++bar) {
        if (bar->Read().dtEnd > from_s && shown.IsTimeBarVisible(bar->Read().iTimeType))
            recordings.append({*bar, camera});
    }
}

} // namespace

QVector<Recording> RecordingsInTable(const Vantor::CTimeBarDelegate &bars, QDate day,
                                     const Vantor::CTimeZoneParam &zone)
{
    const qint64 from_s = StartOfDay(day, zone.Read());
    const qint64 to_s = StartOfDay(day.addDays(1), zone.Read());
    QVector<Recording> recordings;
    AppendRecordings(recordings, bars.GetTimeBar(), bars, 1, from_s, to_s);
    if (!bars.SyncFlag())
        return recordings;
    AppendRecordings(recordings, bars.GetSyncTimeBar(), bars, 2, from_s, to_s);
    std::stable_sort(recordings.begin(), recordings.end(), StartsBefore);
    return recordings;
}

void CRecordingsModel::SetRecordings(const QVector<Recording> &recordings,
                                     const Vantor::CTimeZoneParam &zone)
{
    beginResetModel();
    recordings_ = recordings;
    zone_ = Vantor::CTimeZoneParam(zone.Read());
    const auto offset = [&](qint64 seconds) { return WallClockOffset(zone_.Read(), seconds); };
    has_offsets_ = !recordings_.isEmpty()
                   && offset(recordings_.first().bar.Read().dtStart)
                          != offset(recordings_.last().bar.Read().dtEnd);
    endResetModel();
}

void CRecordingsModel::Retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
    if (!recordings_.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(recordings_.size() - 1, kColumns - 1));
}

int CRecordingsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : recordings_.size();
}

int CRecordingsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QString CRecordingsModel::TimeText(qint64 seconds) const
{
    const QLocale locale;
    QString text =
        locale.toString(WallClockOf(zone_.Read(), seconds).time(), QStringLiteral("HH:mm:ss"));
    if (!has_offsets_)
        return text;
    return text + QLatin1Char(' ')
           + Vantor::OffsetText(WallClockOffset(zone_.Read(), seconds), locale);
}

QVariant CRecordingsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Recording &recording = recordings_.at(index.row());
    const Vantor::TimeBarParam &bar = recording.bar.Read();
    if (role == Qt::DecorationRole && index.column() == kKind)
        return bar.barColor;
    if (role != Qt::DisplayRole)
        return {};
    switch (Column(index.column())) {
    case kStart:
        return TimeText(bar.dtStart);
    case kEnd:
        return TimeText(bar.dtEnd);
    case kLength:
        return LengthText(bar.dtEnd - bar.dtStart);
    case kKind:
        return RecordingKindText(bar.iTimeType);
    case kCamera:
        return QLocale().toString(recording.camera);
    case kName:
        return bar.strFileName;
    case kColumns:
        break;
    }
    return {};
}

QVariant CRecordingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (Column(section)) {
    case kStart:
        return tr("Start");
    case kEnd:
        return tr("End");
    case kLength:
        return tr("Length");
    case kKind:
        return tr("Kind");
    case kCamera:
        return tr("Camera");
    case kName:
        return tr("Recording");
    case kColumns:
        break;
    }
    return {};
}

CRecordingsTable::CRecordingsTable(QWidget *parent)
    : QTreeView(parent), model_(new CRecordingsModel(this))
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setModel(model_);
    header()->setStretchLastSection(true);
    const auto choose = [this](const QModelIndex &index) {
        Q_EMIT SignalChosen(model_->Recordings().at(index.row()).bar.Read().dtStart);
    };
    connect(this, &QAbstractItemView::activated, this, choose);
    connect(this, &QAbstractItemView::clicked, this, choose);
}

void CRecordingsTable::SetRecordings(const QVector<Recording> &recordings,
                                     const Vantor::CTimeZoneParam &zone)
{
    const QScopedValueRollback<bool> following(is_following_, true);
    model_->SetRecordings(recordings, zone);
    for (int column = 0; column < CRecordingsModel::kName; ++column)
        resizeColumnToContents(column);
}

void CRecordingsTable::Follow(qint64 seconds, const Vantor::CTimeBarParam *bar)
{
    const QVector<Recording> &recordings = model_->Recordings();
    const QModelIndex marked = currentIndex();
    if (marked.isValid() && selectionModel()->isSelected(marked)
        && recordings.at(marked.row()).bar.Read().dtStart == seconds)
        return;
    const QScopedValueRollback<bool> following(is_following_, true);
    const auto behind = std::partition_point(
        recordings.begin(), recordings.end(),
        [seconds](const Recording &recording) { return recording.bar.Read().dtStart <= seconds; });
    const auto found = std::find_if(recordings.begin(), behind, [bar](const Recording &recording) {
        return bar && IsSame(recording.bar.Read(), bar->Read());
    });
    if (found != behind)
        setCurrentIndex(model_->index(int(found - recordings.begin()), 0));
    else
        clearSelection();
    const int row = int((found != behind ? found : behind) - recordings.begin());
    scrollTo(model_->index(std::min(row, recordings.size() - 1), 0));
}

void CRecordingsTable::focusInEvent(QFocusEvent *event)
{
    const QScopedValueRollback<bool> following(is_following_,
                                               true); // Qt makes the first row current
    QTreeView::focusInEvent(event);
}

void CRecordingsTable::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    if (current.isValid() && !is_following_)
        Q_EMIT SignalChosen(model_->Recordings().at(current.row()).bar.Read().dtStart);
}

} // namespace Client
