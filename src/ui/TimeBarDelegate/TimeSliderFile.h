// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QMetaType>
#include <QtCore/QSharedDataPointer>

#include <string>

namespace Vantor {

/// Kind of a recording file as the search reports it.
/// CBaseFileProgressBar::NewATimeBarParam() gives each its colour; the server defines any further
/// meaning.
enum TimeSliderFileType : int {
    TimeSliderFileTypeByRecord = 0, ///< The record file type decides.
    TimeSliderFileType1 = 1,        ///< The server's kind 1.
    TimeSliderFileType2 = 2,        ///< The server's kind 2.
    TimeSliderFileType3 = 3,        ///< The server's kind 3.
    TimeSliderFileType4 = 4,        ///< The server's kind 4.
    TimeSliderFileType5 = 5,        ///< The server's kind 5.
};

struct TimeSliderFileData;

/// \brief A recording file as the search reports it.
///
/// A value: copies are cheap, and a change to one never shows in another. Texts are UTF-8.
class VANTOR_EXPORT TimeSliderFile
{
public:
    /// \param begin,end seconds since 1970 UTC, unless the host keeps another count and converts.
    TimeSliderFile(unsigned long long index, std::string fileName, qint64 begin, qint64 end,
                   TimeSliderFileType type, std::string sourceCameraId);
    /// \brief The values of \a other.
    TimeSliderFile(const TimeSliderFile &other);
    /// \brief Takes the values of \a other.
    TimeSliderFile &operator=(const TimeSliderFile &other);
    ~TimeSliderFile();

    /// \brief The begin, in seconds since 1970 UTC.
    [[nodiscard]] qint64 GetFileBegTime() const;
    /// \param begin seconds since 1970 UTC; not compared with the end.
    void SetFileBeginTime(qint64 begin);
    /// \brief The end, in seconds since 1970 UTC.
    [[nodiscard]] qint64 GetFileEndTime() const;
    /// \param end seconds since 1970 UTC; not compared with the begin.
    void SetFileEndTime(qint64 end);
    /// \brief The kind, which decides about the colour.
    [[nodiscard]] TimeSliderFileType GetFileType() const;
    /// \brief Any number is kept, those too that have no name here.
    void SetFileType(TimeSliderFileType type);
    /// \brief The name, as the search reported it.
    [[nodiscard]] std::string GetFileName() const;
    /// \param name UTF-8; not checked.
    void SetFileName(const std::string &name);
    /// \brief Index in the list of the search.
    [[nodiscard]] unsigned long long GetFileIndex() const;
    /// \param index in the list of the search.
    void SetFileIndex(unsigned long long index);
    /// \brief The server's code of the recording; 0 until it is set.
    [[nodiscard]] int GetRecordFileType() const;
    /// \brief Store the code that counts for TimeSliderFileTypeByRecord.
    void SetRecordFileType(int type);
    /// \brief The camera that was recorded.
    [[nodiscard]] std::string GetSourceCameraId() const;
    /// \param id the server's identifier of the camera, UTF-8.
    void SetSourceCameraId(const std::string &id);

private:
    QSharedDataPointer<TimeSliderFileData> d_ptr_;
};

} // namespace Vantor
