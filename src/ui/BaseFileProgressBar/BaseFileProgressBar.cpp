// SPDX-License-Identifier: MIT
#include "ui/BaseFileProgressBar/BaseFileProgressBar.h"

#include "common/Guard.h"
#include "common/Translate.h"
#include "ui/BaseFileProgressBar/BaseFileProgressBar_p.h"
#include "ui/BaseFileProgressBar/FileColours.h"

#include <limits>
#include <utility>

namespace Vantor {
namespace {

constexpr int kDefaultTypes[] = {22, 0, 500, 13};
constexpr char kContext[] = "Vantor::CBaseFileProgressBar";

QVector<CTimeBarParam> BarsOf(const CBaseFileProgressBar::Files &files, bool by_file_type,
                              const CBaseFileProgressBar::Convert &convert)
{
    QVector<CTimeBarParam> bars;
    bars.reserve(files.size());
    for (int i = 0; i < files.size(); ++i) {
        if (!files.at(i))
            continue;
        CTimeBarParam bar =
            CBaseFileProgressBar::NewATimeBarParam(files.at(i), convert, by_file_type);
        bar.SetVal_szIndex(size_t(i));
        bar.SetVal_strFileName(QString::fromStdString(files.at(i)->GetFileName()));
        bars.append(bar);
    }
    return bars;
}

} // namespace

CBaseFileProgressBar::CBaseFileProgressBar(QWidget *parent)
    : CAnimationProgressBar(parent), d_ptr_(std::make_unique<CBaseFileProgressBarDataPtr>())
{}

CBaseFileProgressBar::~CBaseFileProgressBar() = default;

CTimeBarDelegate *CBaseFileProgressBar::TimeBarDelegate()
{
    if (!d_ptr_->ptr_time_bars_) {
        d_ptr_->ptr_time_bars_ = new CTimeBarDelegate(this);
        d_ptr_->ptr_time_bars_->InitTypes(TimeBarTypes());
        InsertDelegate(0, d_ptr_->ptr_time_bars_);
    }
    return d_ptr_->ptr_time_bars_;
}

void CBaseFileProgressBar::SetTimeBarTypes(const QList<int> &types)
{
    d_ptr_->list_types_ = types;
    if (d_ptr_->ptr_time_bars_)
        d_ptr_->ptr_time_bars_->InitTypes(TimeBarTypes());
}

QList<int> CBaseFileProgressBar::TimeBarTypes() const
{
    if (!d_ptr_->list_types_.isEmpty())
        return d_ptr_->list_types_;
    return {std::begin(kDefaultTypes), std::end(kDefaultTypes)};
}

CTimeBarParam
// NOLINTNEXTLINE(performance-unnecessary-value-param): fixed
CBaseFileProgressBar::NewATimeBarParam(std::shared_ptr<TimeSliderFile> file,
                                       const std::function<qint64(qint64)> &convert,
                                       bool byFileType)
{
    static constexpr char kFunction[] = "Vantor::CBaseFileProgressBar::NewATimeBarParam";
    TimeBarParam bar;
    if (!file)
        return CTimeBarParam(bar);
    const FileLook look =
        byFileType ? LookOfFile(file->GetFileType(), file->GetRecordFileType()) : PlainLookOfFile();
    bar.iTimeType = look.bar_type;
    bar.barColor = look.colour;
    bar.dtStart = file->GetFileBegTime();
    bar.dtEnd = file->GetFileEndTime();
    if (convert) {
        RunGuarded(kFunction, [&] { // a host's function may throw
            const qint64 start_s = convert(bar.dtStart);
            bar.dtEnd = convert(bar.dtEnd); // both or neither
            bar.dtStart = start_s;
        });
    }
    return CTimeBarParam(bar);
}

void CBaseFileProgressBar::SetFiles(const Files &files, bool byFileType, const Convert &convert)
{
    const QVector<CTimeBarParam> bars = BarsOf(files, byFileType, convert);
    TimeBarDelegate()->Clear(false);
    TimeBarDelegate()->AppendTimeBar(bars);
}

void CBaseFileProgressBar::SetSyncFiles(const Files &files, bool byFileType, const Convert &convert)
{
    const QVector<CTimeBarParam> bars = BarsOf(files, byFileType, convert);
    TimeBarDelegate()->ClearSyncTimeBar();
    TimeBarDelegate()->AppendSyncTimeBar(bars);
}

QString CBaseFileProgressBar::TipAtPos(const QPointF &pos) const
{
    const QPointF painted(pos.x() + ShownFractionPx(), pos.y());
    return TipText(CAnimationProgressBar::TipAtPos(pos),
                   d_ptr_->ptr_time_bars_ ? d_ptr_->ptr_time_bars_->FindTimeBar(painted)
                                          : std::nullopt);
}

QString CBaseFileProgressBar::TipAtCursorLine() const
{
    return TipText(CAnimationProgressBar::TipAtCursorLine(),
                   d_ptr_->ptr_time_bars_
                       ? d_ptr_->ptr_time_bars_->FindTimeBarAt(GetCurrentUTCTime())
                       : std::nullopt);
}

QString CBaseFileProgressBar::TipText(const QString &time,
                                      const std::optional<CTimeBarParam> &bar) const
{
    if (!bar)
        return time;
    QStringList lines{time};
    const TimeBarParam &shown = bar->Read();
    for (const QString &text : {shown.strFileName, shown.strFileMark}) {
        if (!text.isEmpty())
            lines.append(text.toHtmlEscaped());
    }
    lines.append(
        FillArgument(Translate(QStringLiteral("Start: %1"), kContext), TimeText(shown.dtStart)));
    lines.append(
        FillArgument(Translate(QStringLiteral("End: %1"), kContext), TimeText(shown.dtEnd)));
    return lines.join(QStringLiteral("<br>"));
}

std::optional<qint64> CBaseFileProgressBar::FindStop(qint64 seconds, bool is_after) const
{
    return d_ptr_->ptr_time_bars_ ? d_ptr_->ptr_time_bars_->FindStart(seconds, is_after)
                                  : std::nullopt;
}

std::optional<qint64> CBaseFileProgressBar::FindOutermostStop(bool is_last) const
{
    using Limits = std::numeric_limits<qint64>;
    return FindStop(is_last ? Limits::max() : Limits::min(), !is_last);
}

} // namespace Vantor
