// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QMetaType>
#include <QtCore/QSharedDataPointer>

#include <string>

namespace Vantor {

/// Kind of a recording file as the search reports it. CBaseFileProgressBar::NewATimeBarParam()
/// tells what colour each gets; any further meaning is the server's.
enum TimeSliderFileType : int {
    TimeSliderFileTypeByRecord = 0, ///< The record file type decides.
    TimeSliderFileType1 = 1,
    TimeSliderFileType2 = 2,
    TimeSliderFileType3 = 3,
    TimeSliderFileType4 = 4,
    TimeSliderFileType5 = 5,
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
    TimeSliderFile(const TimeSliderFile &other);
    TimeSliderFile &operator=(const TimeSliderFile &other);
    ~TimeSliderFile();

    [[nodiscard]] qint64 GetFileBegTime() const;
    void SetFileBeginTime(qint64 begin);
    [[nodiscard]] qint64 GetFileEndTime() const;
    void SetFileEndTime(qint64 end);
    [[nodiscard]] TimeSliderFileType GetFileType() const;
    void SetFileType(TimeSliderFileType type);
    [[nodiscard]] std::string GetFileName() const;
    void SetFileName(const std::string &name);
    /// \brief Index in the list of the search.
    [[nodiscard]] unsigned long long GetFileIndex() const;
    void SetFileIndex(unsigned long long index);
    /// \brief 0 until it is set.
    [[nodiscard]] int GetRecordFileType() const;
    void SetRecordFileType(int type);
    [[nodiscard]] std::string GetSourceCameraId() const;
    void SetSourceCameraId(const std::string &id);

private:
    QSharedDataPointer<TimeSliderFileData> d_ptr_;
};

} // namespace Vantor
