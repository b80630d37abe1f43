// SPDX-License-Identifier: MIT
#include "pages/Recordings.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>

#include <algorithm>
#include <array>
#include <random>

namespace Client {
namespace {

using Vantor::CBaseFileProgressBar;
using Vantor::CTimeBarParam;
using Vantor::TimeSliderFile;

constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 24 * kHour;
constexpr qint64 kFileLength = kHour / 2;
constexpr qint64 kSpacing = 60;
constexpr int kIncidentsOfDay = 90;
constexpr int kCameras = 2;
constexpr int kContinuous = 0;
constexpr int kMotion = 500;
constexpr int kAlarm = 13;
constexpr int kLocked = 22;

/// The hours that a "Time of day" means.
struct Hours
{
    QLatin1String name;
    int from;
    int to;
};
const std::array<Hours, 4> kHoursOfDay{{{QLatin1String("Dawn"), 5, 7},
                                        {QLatin1String("Day"), 7, 18},
                                        {QLatin1String("Dusk"), 18, 20},
                                        {QLatin1String("Night"), 20, 29}}};

using Random = std::mt19937;

qint64 Between(Random &random, qint64 least, qint64 most)
{
    return std::uniform_int_distribution<qint64>(least, most)(random);
}

int ColumnOf(const CIncidentList &list, const char *title)
{
    for (int column = 0; column < list.ColumnCount(); ++column) {
        if (list.Title(column) == QLatin1String(title))
            return column;
    }
    return -1;
}

// Empty where a list of the user's own has no such column.
QString TextOf(const CIncidentList &list, int row, int column)
{
    return column < 0 ? QString() : list.Text(row, column);
}

std::shared_ptr<TimeSliderFile> NewFile(int kind, const QString &name, qint64 begin, qint64 length,
                                        int camera)
{
    auto file = std::make_shared<TimeSliderFile>(0, name.toStdString(), begin, begin + length,
                                                 Vantor::TimeSliderFileTypeByRecord,
                                                 std::to_string(camera + 1));
    file->SetRecordFileType(kind);
    return file;
}

void AppendContinuous(CBaseFileProgressBar::Files &files, qint64 midnight, int camera,
                      Random &random)
{
    for (qint64 begin = midnight; begin < midnight + kDay; begin += kFileLength) {
        if (Between(random, 0, 11) == 0) // the camera was away
            continue;
        const QString name = QStringLiteral("camera-%1-%2.mp4")
                                 .arg(camera + 1)
                                 .arg(QDateTime::fromSecsSinceEpoch(begin, Qt::UTC)
                                          .toString(QStringLiteral("yyyyMMdd-HHmm")));
        const qint64 gap = Between(random, 0, 4) == 0 ? Between(random, 60, 900) : 2;
        files.append(NewFile(kContinuous, name, begin, kFileLength - gap, camera));
    }
}

void AppendIncidents(CBaseFileProgressBar::Files &files, const CIncidentList &list, qint64 midnight,
                     int camera, Random &random)
{
    if (list.RowCount() == 0)
        return;
    const int time_column = ColumnOf(list, "Time of day");
    const int damage_column = ColumnOf(list, "Effect Amount of damage");
    const int size_column = ColumnOf(list, "Wildlife Size");
    const int species_column = ColumnOf(list, "Wildlife Species");
    const auto last_row = qint64(list.RowCount()) - 1;
    for (int i = 0; i < kIncidentsOfDay; ++i) {
        const auto row = int(Between(random, 0, last_row));
        const QString time = TextOf(list, row, time_column);
        const auto *const hours =
            std::find_if(kHoursOfDay.begin(), kHoursOfDay.end(),
                         [&time](const Hours &known) { return time == known.name; });
        const bool is_known = hours != kHoursOfDay.end();
        const qint64 second = Between(random, (is_known ? hours->from : 0) * kHour,
                                      (is_known ? hours->to : 24) * kHour - 1)
                              % kDay;
        const QString damage = TextOf(list, row, damage_column);
        const bool is_alarm = !damage.isEmpty() && damage != QLatin1String("None");
        const bool is_large = TextOf(list, row, size_column) == QLatin1String("Large");
        const int kind = is_alarm ? kAlarm : is_large ? kLocked : kMotion;
        const QString name =
            QStringLiteral("%1 – %2").arg(list.Text(row, 0), TextOf(list, row, species_column));
        files.append(NewFile(kind, name, midnight + second, Between(random, 40, 700), camera));
    }
}

} // namespace

CBaseFileProgressBar::Files RecordingsOfDay(const CIncidentList &list, QDate day, int camera)
{
    CBaseFileProgressBar::Files files;
    for (const int offset : {-1, 0, 1}) {
        const qint64 number = day.toJulianDay() + offset;
        Random random(unsigned(number * kCameras + camera));
        const qint64 midnight =
            QDateTime(QDate::fromJulianDay(number), QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
        AppendContinuous(files, midnight, camera, random);
        AppendIncidents(files, list, midnight, camera, random);
    }
    return files;
}

QVector<CTimeBarParam> ManyRecordings(const CIncidentList &list, int count, qint64 middle_s)
{
    Random random(1); // NOLINT(cert-msc51-cpp): the same set each time
    std::array<QColor, std::size(kRecordingKinds)> colours;
    std::transform(std::begin(kRecordingKinds), std::end(kRecordingKinds), colours.begin(),
                   [](const RecordingKind &kind) { return RecordingColour(kind.type); });
    QVector<CTimeBarParam> bars;
    bars.reserve(count);
    Vantor::TimeBarParam bar;
    for (int i = 0; i < count; ++i) {
        const auto kind = size_t(Between(random, 0, qint64(colours.size()) - 1));
        bar.iTimeType = kRecordingKinds[kind].type;
        bar.barColor = colours[kind];
        bar.szIndex = size_t(i);
        bar.dtStart = middle_s + (qint64(i) - count / 2) * kSpacing;
        bar.dtEnd = bar.dtStart + Between(random, 5, 4 * kSpacing);
        if (list.RowCount() > 0)
            bar.strFileName = list.Text(i % list.RowCount(), 0); // shares the list's text
        bars.append(CTimeBarParam(bar));
    }
    return bars;
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

QString RecordingKindText(int type)
{
    const auto *const known =
        std::find_if(std::begin(kRecordingKinds), std::end(kRecordingKinds),
                     [type](const RecordingKind &kind) { return kind.type == type; });
    return known == std::end(kRecordingKinds)
               ? QString()
               : QCoreApplication::translate("Recordings", known->name);
}

QColor RecordingColour(int type)
{
    auto file = NewFile(type, QString(), 0, 0, 0);
    return CBaseFileProgressBar::NewATimeBarParam(file, {}, true).GetVal_barColor();
}

} // namespace Client
