// SPDX-License-Identifier: MIT
#pragma once

#include <Vantor/CTimeBarParam>
#include <Vantor/CTimeZoneParam>

#include <QtCore/QAbstractTableModel>
#include <QtCore/QDate>
#include <QtWidgets/QTreeView>

namespace Vantor {
class CTimeBarDelegate;
} // namespace Vantor

namespace Client {

/// A recording in the table.
struct Recording
{
    Vantor::CTimeBarParam bar;
    int camera; // 1 or 2
};

/// \brief The visible bars, of both rows when both are shown, that overlap \a day of \a zone, by
/// start. Bars of more than a day that began before the day before are left out.
[[nodiscard]] QVector<Recording> RecordingsInTable(const Vantor::CTimeBarDelegate &bars, QDate day,
                                                   const Vantor::CTimeZoneParam &zone);

/// \brief Recordings by start, with their times in a zone.
class CRecordingsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { kStart, kEnd, kLength, kKind, kCamera, kName, kColumns };

    using QAbstractTableModel::QAbstractTableModel;

    void SetRecordings(const QVector<Recording> &recordings, const Vantor::CTimeZoneParam &zone);
    [[nodiscard]] const QVector<Recording> &Recordings() const { return recordings_; }
    /// \brief Texts have changed their language.
    void Retranslate();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] QString TimeText(qint64 seconds) const;

    QVector<Recording> recordings_;
    Vantor::CTimeZoneParam zone_;
    bool has_offsets_ = false; // the clocks change between the times that are shown
};

/// \brief A table of recordings that goes with a time line: it marks the row at the line's
/// position, and the row that the user chooses takes the line to its start.
class CRecordingsTable : public QTreeView
{
    Q_OBJECT

public:
    explicit CRecordingsTable(QWidget *parent = nullptr);

    void SetRecordings(const QVector<Recording> &recordings, const Vantor::CTimeZoneParam &zone);
    /// \brief Mark the recording of \a bar, at \a seconds; null marks no recording. A marked one
    /// that starts at \a seconds stays marked, because choosing it has moved the line there.
    void Follow(qint64 seconds, const Vantor::CTimeBarParam *bar);
    void Retranslate() { model_->Retranslate(); }

Q_SIGNALS:
    /// The user has chosen a recording.
    void SignalChosen(qint64 start_s);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    CRecordingsModel *const model_;
    bool is_following_ = false; // the change of the current row is this class's own
};

} // namespace Client
