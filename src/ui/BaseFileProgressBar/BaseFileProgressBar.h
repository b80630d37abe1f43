// SPDX-License-Identifier: MIT
#pragma once

#include <ui/AnimationProgressBar/AnimationProgressBar.h>
#include <ui/TimeBarDelegate/TimeBarParam.h>
#include <ui/TimeBarDelegate/TimeSliderFile.h>

#include <QtCore/QVector>

#include <functional>
#include <memory>
#include <string>

namespace BusinessCommon {
class CTimeZoneInfor;
} // namespace BusinessCommon

namespace Vantor {

class CTimeBarDelegate;
struct CBaseFileProgressBarDataPtr;

/// \brief A time line of recording files.
///
/// Turns files into the bars of the one CTimeBarDelegate it makes, names in its tips the file under
/// the pointer, and has the starts of the visible files as stops for the keyboard. GUI thread only.
class VANTOR_EXPORT CBaseFileProgressBar : public CAnimationProgressBar
{
    Q_OBJECT

public:
    /// Files as a search reports them; null ones are left out.
    using Files = QVector<std::shared_ptr<TimeSliderFile>>;
    /// From a file's count of seconds to seconds since 1970 UTC.
    using Convert = std::function<qint64(qint64)>;

    explicit CBaseFileProgressBar(QWidget *parent = nullptr);
    ~CBaseFileProgressBar() override;

    // Zone

    /// \brief Show wall-clock times of a device's zone, with daylight saving as it is in the year
    /// of the current position. Null is ignored.
    ///
    /// A zone whose daylight saving the service does not know is kept but not shown: the bar stays
    /// in its zone.
    void SetDeviceTimeZoneInfor(const std::shared_ptr<BusinessCommon::CTimeZoneInfor> &info);
    /// \brief A copy of the device zone that was given last.
    [[nodiscard]] const BusinessCommon::CTimeZoneInfor &GetDeviceTimeZoneInfor() const;
    /// \brief Seconds since 1970 UTC of an ISO 8601 text.
    ///
    /// Read from the front as year-month-dayThour:minute:second and one of "+hours:minutes", "Z" or
    /// "-hours:minutes"; missing parts are 0. See docs/known-behaviour.md for partial texts.
    /// \return -1 for a text that does not begin with a number.
    [[nodiscard]] virtual qint64 ISOTimeToTimeT(std::string text);

    // Bars

    /// \brief The delegate that paints the bars, made at the first call and put at the bottom of
    /// the stack; its parent is this bar.
    CTimeBarDelegate *TimeBarDelegate();
    /// \brief Which types are drawn, in this order; empty: 22, 0, 500 and 13.
    ///
    /// Type 1, which NewATimeBarParam() gives without \a byFileType, is not among the latter. If
    /// the delegate exists already, all types become visible.
    void SetTimeBarTypes(const QList<int> &types);
    /// \brief The types of SetTimeBarTypes(); for an empty list the types that it means.
    [[nodiscard]] QList<int> TimeBarTypes() const;

    /// \brief The bar of a file: type 1 and rgb(33, 150, 243); with \a byFileType type and colour
    /// come from the file's type and, where that is 0, from its record file type.
    ///
    /// \param convert applied to begin and end, when set.
    ///
    /// | file type | record file type | bar type | colour |
    /// |---|---|---|---|
    /// | 0 | 0 | 0 | rgb(33, 150, 243) |
    /// | 0 | 1 | 1 | rgb(131, 106, 187) |
    /// | 0 | 2 | 2 | rgb(178, 89, 89) |
    /// | 0 | 13 | 13 | rgb(255, 104, 66) |
    /// | 0 | 22 | 22 | rgb(102, 102, 102) |
    /// | 0 | 500 | 500 | rgb(21, 184, 155) |
    /// | 0 | 501 | 501 | rgb(81, 159, 143) |
    /// | 1, 3, 5 | any | 13 | rgb(255, 104, 66) |
    /// | 4 | any | 0 | rgb(33, 150, 243) |
    /// | others | | -1 | invalid |
    ///
    /// Index, name and mark stay empty. A null \a file gives a fresh record.
    [[nodiscard]] static CTimeBarParam
    NewATimeBarParam(std::shared_ptr<TimeSliderFile> file,
                     const std::function<qint64(qint64)> &convert, bool byFileType);

    /// \brief Show the bars of \a files in place of those of the main row, with their names for the
    /// tips.
    void SetFiles(const Files &files, bool byFileType, const Convert &convert = {});
    /// \brief The same for the second row, which SetSyncFlag() of the delegate shows.
    void SetSyncFiles(const Files &files, bool byFileType, const Convert &convert = {});

protected:
    [[nodiscard]] QString TipAtPos(const QPointF &pos) const override;
    [[nodiscard]] QString TipAtCursorLine() const override;
    [[nodiscard]] std::optional<qint64> FindStop(qint64 seconds, bool is_after) const override;
    [[nodiscard]] std::optional<qint64> FindOutermostStop(bool is_last) const override;

private:
    [[nodiscard]] QString TipText(const QString &time,
                                  const std::optional<CTimeBarParam> &bar) const;

    const std::unique_ptr<CBaseFileProgressBarDataPtr> d_ptr_;
};

} // namespace Vantor
