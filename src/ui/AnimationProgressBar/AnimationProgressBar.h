// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QDateTime>
#include <QtWidgets/QWidget>

#include <memory>
#include <optional>

namespace Vantor {

class CAbstractDelegate;
class CTimeZoneParam;
struct CAnimationProgressBarDataPtr;
struct LineMotion;
struct LineTip;
struct LineView;

/// \brief A time line: a ruler that slides under a fixed cursor line in the middle.
///
/// The position is the time at the cursor line. A stack of delegates (CAbstractDelegate) paints the
/// contents. Times are milliseconds or seconds since 1970 UTC; labels show the wall clock of the
/// zone given by SetTimeZoneInfor(), UTC at first. Time runs from left to right in every layout
/// direction. GUI thread only; a slot may delete the bar in any of its signals.
///
/// The wheel zooms about the pointer (sideways, or with Shift, it pans), dragging pans and a click
/// slides to the time clicked. Keys: Left and Right move by a small step of the ruler, with Shift
/// by a large one, with Ctrl to the stop before or after; Page Up and Page Down by the visible
/// width; Home and End to the first and last stop; + and - zoom, 0 restores the first scale; Space
/// shows a tip for the cursor line; Escape undoes a drag or ends a slide.
///
/// Colours are those of CStyleManager, and of the widget's palette where the theme sets no colour.
class VANTOR_EXPORT CAnimationProgressBar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(qint64 position READ Position WRITE SetPosition NOTIFY SignalPositionChanged)
    Q_PROPERTY(double unitScaleLength READ UnitScaleLength WRITE SetUnitScaleLength NOTIFY
                   SignalScaleChanged)
    Q_PROPERTY(
        double unitTimeLength READ UnitTimeLength WRITE SetUnitTimeLength NOTIFY SignalScaleChanged)
    // Only the host changes these two, so they have no signal.
    Q_PROPERTY(bool simplifyMode READ IsSimplifyMode WRITE SetSimplifyMode)
    Q_PROPERTY(int animationDuration READ AnimationDuration WRITE SetAnimationDuration)

public:
    /// How a slide runs.
    enum AnimationType : int {
        LinearAnimation = 0, ///< At even speed.
        EaseOutAnimation = 1 ///< Fast at first, then ever slower.
    };
    Q_ENUM(AnimationType)

    explicit CAnimationProgressBar(QWidget *parent = nullptr);
    ~CAnimationProgressBar() override;

    // Position

    /// \brief The position in seconds, truncated towards 0.
    [[nodiscard]] qint64 GetCurrentUTCTime() const;
    /// \brief The position in milliseconds; 0 at first.
    [[nodiscard]] qint64 Position() const;
    /// \brief Go to \a position_ms at once. A running slide ends; a running zoom and a drag go on
    /// from there.
    void SetPosition(qint64 position_ms);
    /// \brief Slide to \a position_ms in \a duration_ms, which Position() gives at once. Without a
    /// duration, while the bar is not visible and where the style wants no animations, the bar goes
    /// there at once. A running zoom ends.
    void SlideTo(qint64 position_ms, int duration_ms, AnimationType type = EaseOutAnimation);
    /// \brief Whether SlideTo(), or a click or a key, is moving the line now.
    [[nodiscard]] bool IsSliding() const;
    /// \brief End a slide where it is; a zoom goes on. Nothing happens without a slide.
    void StopSlide();

    // Zone

    /// \brief Show wall-clock times of \a zone.
    ///
    /// The structure is shared: a later change through the caller's record changes conversions at
    /// once, but labels, picture and TimeSpecOffset() only when the zone is set again. The bounds
    /// of daylight saving are those of one year; the host sets the zone again for another.
    void SetTimeZoneInfor(const CTimeZoneParam &zone);
    /// \brief Standard offset of the zone in seconds, east positive: -utc_bias x 60.
    [[nodiscard]] int TimeSpecOffset() const;
    /// \brief The wall clock at the position, as the fields of a UTC date-time; not to be converted
    /// to local time.
    [[nodiscard]] QDateTime GetCurrentDateTime() const;
    /// \brief The position in a zone of fixed offset, whose sign is that of the biases: west
    /// positive. See docs/known-behaviour.md.
    [[nodiscard]] QDateTime GetCurrentDateTimeByTimeZone();
    /// \brief The time at \a x in the zone's offset of that time, east positive.
    /// \param x in pixels from the left edge of the bar.
    [[nodiscard]] QDateTime TimeTConvertToDateTime(float x);
    /// \brief Move to the wall-clock time in the fields of \a date_time.
    ///
    /// Ignored while the bar is pressed or moving, and when the time-zone service cannot read the
    /// time. Emits SignalStopAtTime(), then slides there in \a duration_ms when \a animate is set,
    /// and a running zoom ends; otherwise goes at once, and a running zoom goes on from there.
    void SetCurrentDateTime(const QDateTime &date_time, bool animate = false, int duration_ms = 300,
                            AnimationType type = EaseOutAnimation);

    // Scale

    /// \brief Whether the bar shows bars and cursor line alone, without labels.
    [[nodiscard]] bool IsSimplifyMode() const;
    /// \brief Leave out the labels, or paint them again; false at first.
    void SetSimplifyMode(bool is_simple);
    /// \brief Length of the ruler's unit in pixels; more than 0.
    [[nodiscard]] double UnitScaleLength() const;
    /// \brief Length of the ruler's unit in seconds; more than 0.
    [[nodiscard]] double UnitTimeLength() const;
    /// \brief Show \a time_length_s seconds in \a scale_length_px pixels, about the cursor line.
    ///
    /// The scale is held between 10 pixels a second and about a pixel a month; within, both values
    /// are kept as given. Values that are not greater than 0 are ignored.
    void SetUnitScale(double scale_length_px, double time_length_s);
    /// \brief UnitScaleLength() / UnitTimeLength().
    [[nodiscard]] double PixelsPerSecond() const;
    /// \brief Seconds since 1970 at \a x pixels from the left edge, rounded down and held to what a
    /// position can be.
    [[nodiscard]] qint64 UTCSecondsAtXPos(double x) const;
    /// \brief The place of \a seconds since 1970, in pixels from the left edge.
    [[nodiscard]] double XPosOfUTCSeconds(qint64 seconds) const;
    /// \brief Zoom by \a factor, more than 1 for closer; the time at \a x stays there. Animated.
    void ZoomBy(double factor, double x);
    /// \brief End a zoom where it is; a slide goes on. Nothing happens without a zoom.
    void StopScale();
    /// \brief How long clicks, keys and the wheel animate, in milliseconds; 0: not at all.
    void SetAnimationDuration(int duration_ms);
    /// \brief In milliseconds; 250 at first.
    [[nodiscard]] int AnimationDuration() const;

    // Interaction; the mouse uses these, and so may hosts with a handle of their own.

    /// \brief While pressed, SetCurrentDateTime() is ignored.
    void SetPressed(bool is_pressed);
    /// \brief Whether the bar is pressed, by the mouse or by SetPressed().
    [[nodiscard]] bool IsPressed() const;
    /// \brief Begin to move the line with a handle at \a x.
    void StartMovingX(int x = 0);
    /// \brief Move the handle to \a x; ignored unless moving.
    void MoveX(int x);
    /// \brief End the move; emits SignalStopAtTime(). Ignored unless moving.
    void StopMovingX();
    /// \brief Whether a move is under way, by the mouse or by StartMovingX().
    [[nodiscard]] bool IsMoving() const;

    // Delegates

    /// \brief Put \a delegate into the stack at \a index, held to its ends; a delegate that is
    /// already in a stack leaves it first. The bar does not own it; null is ignored.
    void InsertDelegate(int index, CAbstractDelegate *delegate);
    /// \brief InsertDelegate() at the top of the stack.
    void AppendDelegate(CAbstractDelegate *delegate);
    /// \brief Take \a delegate out of the stack; it is not deleted. One that is not in it is
    /// ignored.
    void RemoveDelegate(CAbstractDelegate *delegate);
    /// \brief From bottom to top.
    [[nodiscard]] QList<CAbstractDelegate *> Delegates() const;
    /// \brief Repaint, and renew a visible tip, because the contents of a delegate have changed.
    void UpdateContents();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// \brief Zoom in by one step, about the cursor line.
    void ZoomIn();
    /// \brief Zoom out by one step, about the cursor line.
    void ZoomOut();
    /// \brief Back to the scale of a fresh bar: 60 pixels an hour.
    void ResetZoom();
    /// \brief Show a tip for the cursor line.
    void ShowTip();

Q_SIGNALS:
    /// The wall-clock time, in the fields of a UTC date-time, at which the line stops: emitted by
    /// SetCurrentDateTime() before the position changes, at the start of a slide by click or key,
    /// at the end of a drag, and once when the wheel or a zoom that moved the line has come to
    /// rest.
    void SignalStopAtTime(const QDateTime &date_time);
    /// Emitted after each change, each step of a slide or zoom included.
    void SignalPositionChanged(qint64 position_ms);
    /// Emitted after each change of PixelsPerSecond(), each step of a zoom included.
    void SignalScaleChanged();

protected:
    /// \brief The text of a tip at \a pos; empty for no tip. The base gives the time.
    [[nodiscard]] virtual QString TipAtPos(const QPointF &pos) const;
    /// \brief The text of a tip for the cursor line; empty for no tip. The base gives the time.
    [[nodiscard]] virtual QString TipAtCursorLine() const;
    /// \brief The nearest stop before or after \a seconds, for keys; the base has no stops.
    [[nodiscard]] virtual std::optional<qint64> FindStop(qint64 seconds, bool is_after) const;
    /// \brief The first or last stop of all, for Home and End; the base has no stops.
    [[nodiscard]] virtual std::optional<qint64> FindOutermostStop(bool is_last) const;
    /// \brief Date, time and offset of \a seconds in the bar's zone, as its tips show them.
    [[nodiscard]] QString TimeText(qint64 seconds) const;
    /// \brief By how many pixels the picture is moved to the left: delegates paint for the whole
    /// second of GetCurrentUTCTime(), and the position has milliseconds.
    [[nodiscard]] int ShownFractionPx() const;

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    friend class CTimeLineAccess; // moves the line as the user

    void SetUnitScaleLength(double length_px) { SetUnitScale(length_px, UnitTimeLength()); }
    void SetUnitTimeLength(double length_s) { SetUnitScale(UnitScaleLength(), length_s); }
    // Zone
    [[nodiscard]] bool IsWithinDST(unsigned int seconds) const;
    void RecalculateDSTSeconds();
    void RecalculateTimeSpecOffset();
    void RefreshCalendarLabel(qint64 seconds);
    // Position and scale. Each of these emits last.
    void MoveTo(qint64 position_ms, bool animate, int duration_ms, AnimationType type);
    void Place(qint64 position_ms);
    void Show(const LineView &view);
    void SlideByUser(qint64 position_ms);
    // Motion
    [[nodiscard]] bool CanAnimate(int duration_ms) const;
    void StartMotion(const LineMotion &motion);
    void StepMotion();
    void EndMotion();
    void FinishMotion();
    void LetGo();
    void EndSlide();
    void Settle();
    void TellStop();
    void TellIfAtRest();
    // Interaction
    [[nodiscard]] CAbstractDelegate *RespondingDelegate(QPoint pos) const;
    bool PassToDelegate(QMouseEvent *event);
    void EndPress();
    [[nodiscard]] std::optional<qint64> KeyTarget(const QKeyEvent &event) const;
    bool ZoomByKey(int key);
    bool Escape();
    void PlaceTip(const LineTip &tip);
    void RefreshTip();
    void RefreshTexts();
    // Picture
    void PaintRuler(QPainter &painter) const;
    void PaintCursorLine(QPainter &painter, int lower_px) const;
    void PlaceCalendarLabel();

    const std::unique_ptr<CAnimationProgressBarDataPtr> d_ptr_;
};

} // namespace Vantor
