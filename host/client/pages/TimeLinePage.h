// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"

#include <QtCore/QDate>
#include <QtCore/QFutureWatcher>
#include <QtCore/QTimer>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
QT_END_NAMESPACE

namespace Vantor {
class CBaseFileProgressBar;
class CTimeBarParam;
} // namespace Vantor

namespace Client {

class CRecordingsTable;
class CTimeEntry;
class CZoneSwitch;

/// \brief Recordings on a time line: of a day, or a million of them, in the time of any zone.
class CTimeLinePage : public CPage
{
    Q_OBJECT

public:
    explicit CTimeLinePage(QWidget *parent = nullptr);
    ~CTimeLinePage() override;

    void SetList(const IncidentListPtr &list) override;
    void PrepareForPicture() override;

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void OnZoneApplied();
    void OnPositionChanged(qint64 position_ms);
    void OnOverviewMoved(qint64 position_ms);
    void OnTimeEntered(const QDateTime &time);
    void OnRecordingChosen(qint64 start_s);
    void OnAmountChosen();
    void OnManyMade();
    void OnTypeToggled();
    void UpdateDetails();
    void UpdateTable();

private:
    void BuildLayout();
    QLayout *BuildTools();
    QLayout *BuildTypes();
    void ShowDay(QDate day);
    void CopyToOverview();
    void OnRecordingsChanged();
    void ShowTime();
    [[nodiscard]] QString TimeText(const Vantor::CTimeBarParam &bar) const;
    void ScaleOverview();
    void Retranslate();
    [[nodiscard]] bool IsDayShown() const;

    IncidentListPtr list_;
    QDate day_; // whose recordings are shown
    QFutureWatcher<QVector<Vantor::CTimeBarParam>> many_;
    QTimer details_timer_; // updates no more often than a reader can follow
    QDate table_day_;      // the day in the table; null when it must be read again

    Vantor::CBaseFileProgressBar *const line_;
    Vantor::CBaseFileProgressBar *const overview_;
    CZoneSwitch *const zone_;
    QLabel *const time_title_;
    CTimeEntry *const time_;
    QLabel *const amount_title_;
    QComboBox *const amount_;
    QList<QCheckBox *> types_;
    QCheckBox *const second_row_;
    QLabel *const details_title_;
    QLabel *const details_;
    QLabel *const table_title_;
    CRecordingsTable *const table_;
    QLabel *const help_;
};

} // namespace Client
