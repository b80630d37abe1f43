// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>
#include <common/Record.h>

#include <QtCore/QString>
#include <QtCore/QTypeInfo>
#include <QtGui/QColor>

#include <cstddef>

namespace Vantor {

/// One recorded period on a time line.
struct TimeBarParam
{
    int iTimeType = 0;        ///< Type of the bar; a delegate draws the types it was given.
    size_t szIndex = 0;       ///< Index in the caller's list; carried, never read.
    qint64 dtStart = 0;       ///< Seconds since 1970 UTC.
    qint64 dtEnd = 0;         ///< Seconds since 1970 UTC.
    QString strFileName = {}; ///< Name of the recording; carried.
    QString strFileMark = {}; ///< Mark text of the recording; carried.
    QColor barColor = {};     ///< Fill; an invalid colour paints black.
};

/// \brief One recorded period on a time line, as CTimeBarDelegate paints it.
class VANTOR_EXPORT CTimeBarParam : public CRecord<TimeBarParam>
{
    VANTOR_RECORD(CTimeBarParam)
    VANTOR_RECORD_FIELD(iTimeType)
    VANTOR_RECORD_FIELD(szIndex)
    VANTOR_RECORD_FIELD(dtStart)
    VANTOR_RECORD_FIELD(dtEnd)
    VANTOR_RECORD_FIELD(strFileName)
    VANTOR_RECORD_FIELD(strFileMark)
    VANTOR_RECORD_FIELD(barColor)
};

} // namespace Vantor

// A pointer to the structure and one to the virtual table: a growing vector moves it as bytes
// instead of copying a million structures.
Q_DECLARE_TYPEINFO(Vantor::CTimeBarParam, Q_MOVABLE_TYPE);
