// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeSliderFile.h"

#include <QtCore/QSharedData>

#include <utility>

namespace Vantor {

struct TimeSliderFileData : public QSharedData
{
    unsigned long long index_ = 0;
    std::string str_file_name_;
    qint64 begin_s_ = 0;
    qint64 end_s_ = 0;
    TimeSliderFileType type_ = TimeSliderFileTypeByRecord;
    int record_file_type_ = 0;
    std::string str_source_camera_id_;
};

TimeSliderFile::TimeSliderFile(unsigned long long index, std::string fileName, qint64 begin,
                               qint64 end, TimeSliderFileType type, std::string sourceCameraId)
    : d_ptr_(new TimeSliderFileData)
{
    d_ptr_->index_ = index;
    d_ptr_->str_file_name_ = std::move(fileName);
    d_ptr_->begin_s_ = begin;
    d_ptr_->end_s_ = end;
    d_ptr_->type_ = type;
    d_ptr_->str_source_camera_id_ = std::move(sourceCameraId);
}

TimeSliderFile::TimeSliderFile(const TimeSliderFile &other) = default;
TimeSliderFile &TimeSliderFile::operator=(const TimeSliderFile &other) = default;
TimeSliderFile::~TimeSliderFile() = default;

qint64 TimeSliderFile::GetFileBegTime() const
{
    return d_ptr_->begin_s_;
}

void TimeSliderFile::SetFileBeginTime(qint64 begin)
{
    d_ptr_->begin_s_ = begin;
}

qint64 TimeSliderFile::GetFileEndTime() const
{
    return d_ptr_->end_s_;
}

void TimeSliderFile::SetFileEndTime(qint64 end)
{
    d_ptr_->end_s_ = end;
}

TimeSliderFileType TimeSliderFile::GetFileType() const
{
    return d_ptr_->type_;
}

void TimeSliderFile::SetFileType(TimeSliderFileType type)
{
    d_ptr_->type_ = type;
}

std::string TimeSliderFile::GetFileName() const
{
    return d_ptr_->str_file_name_;
}

void TimeSliderFile::SetFileName(const std::string &name)
{
    d_ptr_->str_file_name_ = name;
}

unsigned long long TimeSliderFile::GetFileIndex() const
{
    return d_ptr_->index_;
}

void TimeSliderFile::SetFileIndex(unsigned long long index)
{
    d_ptr_->index_ = index;
}

int TimeSliderFile::GetRecordFileType() const
{
    return d_ptr_->record_file_type_;
}

void TimeSliderFile::SetRecordFileType(int type)
{
    d_ptr_->record_file_type_ = type;
}

std::string TimeSliderFile::GetSourceCameraId() const
{
    return d_ptr_->str_source_camera_id_;
}

void TimeSliderFile::SetSourceCameraId(const std::string &id)
{
    d_ptr_->str_source_camera_id_ = id;
}

} // namespace Vantor
