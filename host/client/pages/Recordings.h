// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <Vantor/CBaseFileProgressBar>

#include <QtCore/QDate>

namespace Client {

/// \brief A kind of recording: the number its bars have on a time line.
struct RecordingKind
{
    int type;
    const char *name; // translated in the context "Recordings"
};

/// In the order of the check boxes; a time line draws them in its own.
constexpr RecordingKind kRecordingKinds[] = {
    {0, QT_TRANSLATE_NOOP("Recordings", "Continuous")},
    {500, QT_TRANSLATE_NOOP("Recordings", "Motion")},
    {13, QT_TRANSLATE_NOOP("Recordings", "Alarm")},
    {22, QT_TRANSLATE_NOOP("Recordings", "Locked")},
};

/// \brief The recordings of \a camera, 0 or 1, for \a day of UTC and the days beside it, so that
/// the day is whole in every zone.
///
/// Each incident gives a motion recording or, with damage, an alarm recording at its time of day,
/// on top of continuous recordings. The same day always gives the same files.
[[nodiscard]] Vantor::CBaseFileProgressBar::Files RecordingsOfDay(const CIncidentList &list,
                                                                  QDate day, int camera);

/// \brief \a count recordings of all kinds around \a middle_s (seconds since 1970 UTC), 60 seconds
/// from start to start.
[[nodiscard]] QVector<Vantor::CTimeBarParam> ManyRecordings(const CIncidentList &list, int count,
                                                            qint64 middle_s);

/// \brief The newest date of a list of incidents; null when it has no dates.
[[nodiscard]] QDate NewestDate(const CIncidentList &list);

/// \brief The translated name of a kind; empty for an unknown type.
[[nodiscard]] QString RecordingKindText(int type);
/// \brief The colour of a kind.
[[nodiscard]] QColor RecordingColour(int type);

} // namespace Client
