// SPDX-License-Identifier: MIT
#pragma once

#include <Vantor/CTimeZoneParam>

#include <QtCore/QPointer>
#include <QtCore/QTimeZone>
#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace Vantor {
class CAnimationProgressBar;
} // namespace Vantor

namespace Client {

/// \brief Chooses the system zone whose times a time line shows, says when its clocks change next,
/// and goes there.
///
/// The line's zone holds the daylight saving of one year. This class sets the zone again whenever
/// the line comes into another year, also in years that one period cannot express.
class CZoneSwitch : public QWidget
{
    Q_OBJECT

public:
    /// \param bar may be deleted first; its zone becomes the client's own.
    explicit CZoneSwitch(Vantor::CAnimationProgressBar *bar, QWidget *parent = nullptr);

    /// \brief Choose a zone by its name, such as "Europe/Berlin".
    /// \return false, and nothing changes, when the system has no such zone.
    bool SetZone(const QByteArray &id);
    [[nodiscard]] const QTimeZone &Zone() const { return zone_; }
    /// \brief The line's current zone, for other lines beside it; a separate record.
    [[nodiscard]] Vantor::CTimeZoneParam Applied() const { return applied_; }

    /// \brief Slide to the wall-clock time in the fields of \a wall_clock, of any year: a line
    /// alone would use the daylight saving of the year that it is in.
    void SlideToWallClock(const QDateTime &wall_clock, int duration_ms);

public Q_SLOTS:
    /// \brief Slide to where the clocks changed last, or change next; stay when they never do.
    void GoToEarlierChange();
    void GoToLaterChange();

Q_SIGNALS:
    void SignalZoneChanged(const QByteArray &id);
    /// The line has got another zone, or the same with daylight saving of another year.
    void SignalApplied();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnPositionChanged();
    void OnNameEntered();

private:
    void ApplyZone(qint64 seconds);
    void GoTo(const QDateTime &change);
    void ShowState();
    void Retranslate();

    const QPointer<Vantor::CAnimationProgressBar> bar_;
    QTimeZone zone_;
    Vantor::CTimeZoneParam applied_;
    qint64 applied_from_s_ = 0; // applied_ is right from here
    qint64 applied_to_s_ = 0;   // to before here
    QLabel *const title_;
    QComboBox *const names_;
    QPushButton *const earlier_;
    QPushButton *const later_;
    QLabel *const state_;
};

} // namespace Client
