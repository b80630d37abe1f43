// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QDateTime>
#include <QtWidgets/QWidget>

#include <memory>

namespace Vantor {

class CAbstractDelegate;
class CTimeZoneParam;
struct CAnimationProgressBarDataPtr;

/// \brief A time line: a ruler that slides under a fixed cursor line in the middle.
///
/// The position is the time at the cursor line. What lies on the line is painted by a stack of
/// delegates (CAbstractDelegate). Times are milliseconds or seconds since 1970 UTC; labels show the
/// wall clock of the zone given by SetTimeZoneInfor(), UTC at first. Time runs from left to right
/// in every layout direction. GUI thread only.
///
/// The wheel zooms about the pointer (sideways, or with Shift, it pans), dragging pans and a click
/// slides there. Keys: Left and Right move by a small step of the ruler, with Shift by a large one,
/// with Ctrl to the stop before or after; Page Up and Page Down by what is visible; Home and End to
/// the first and last stop; + and - zoom, 0 goes back to the first scale; Space tells what lies
/// under the cursor line; Escape takes a drag back or ends a slide.
///
/// Colours are those of CStyleManager, and of the widget's palette where the theme names none.
class VANTOR_EXPORT CAnimationProgressBar : public QWidget
{
    Q_OBJECT

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
    /// \brief Go to \a position_ms at once; a running slide ends.
    void SetPosition(qint64 position_ms);
    /// \brief Slide to \a position_ms in \a duration_ms; without a duration, while the bar is not
    /// visible and where the style wants no animations, go there at once.
    void SlideTo(qint64 position_ms, int duration_ms, AnimationType type = EaseOutAnimation);
    [[nodiscard]] bool IsSliding() const;
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
    /// Ignored while the bar is pressed or moving. Emits SignalStopAtTime(), then slides there in
    /// \a duration_ms when \a animate is set, and a running zoom ends; otherwise goes at once.
    void SetCurrentDateTime(const QDateTime &date_time, bool animate = false, int duration_ms = 300,
                            AnimationType type = EaseOutAnimation);

    // Scale

    /// \brief Whether the bar shows bars and cursor line alone, without labels.
    [[nodiscard]] bool IsSimplifyMode() const;
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
    /// \brief Seconds since 1970 at \a x pixels from the left edge, rounded down.
    [[nodiscard]] qint64 UTCSecondsAtXPos(double x) const;
    /// \brief Where \a seconds since 1970 lie, in pixels from the left edge.
    [[nodiscard]] double XPosOfUTCSeconds(qint64 seconds) const;
    /// \brief Zoom by \a factor, more than 1 for closer; the time at \a x stays there. Animated.
    void ZoomBy(double factor, double x);
    void StopScale();
    /// \brief How long clicks, keys and the wheel animate, in milliseconds; 0: not at all.
    void SetAnimationDuration(int duration_ms);
    [[nodiscard]] int AnimationDuration() const;

    // Interaction; the mouse uses these, and hosts with a handle of their own may.

    /// \brief While pressed, SetCurrentDateTime() is ignored.
    void SetPressed(bool is_pressed);
    [[nodiscard]] bool IsPressed() const;
    /// \brief Begin to move the line with a handle at \a x.
    void StartMovingX(int x = 0);
    /// \brief The handle has come to \a x; ignored unless moving.
    void MoveX(int x);
    /// \brief The line stays where MoveX() left it; emits SignalStopAtTime().
    void StopMovingX();
    [[nodiscard]] bool IsMoving() const;

    // Delegates

    /// \brief Put \a delegate into the stack at \a index, held to its ends; a delegate that is in a
    /// stack already leaves it first. The bar does not own it; null is ignored.
    void InsertDelegate(int index, CAbstractDelegate *delegate);
    void AppendDelegate(CAbstractDelegate *delegate);
    void RemoveDelegate(CAbstractDelegate *delegate);
    /// \brief From bottom to top; deleted ones have dropped out.
    [[nodiscard]] QList<CAbstractDelegate *> Delegates() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// \brief Zoom about the cursor line.
    void ZoomIn();
    void ZoomOut();
    /// \brief Back to the scale of a fresh bar: 60 pixels an hour.
    void ResetZoom();
    /// \brief Show as a tip what lies under the cursor line.
    void ShowTip();

Q_SIGNALS:
    /// The line is to stop, or has been left by the user, at this wall-clock time, in the fields of
    /// a UTC date-time. Emitted before the position changes when a time is set.
    void SignalStopAtTime(const QDateTime &date_time);
    /// Each step of a slide included.
    void SignalPositionChanged(qint64 position_ms);
    void SignalScaleChanged();

protected:
    /// \brief What a tip says at \a pos; empty for no tip. The base tells the time.
    [[nodiscard]] virtual QString TipAtPos(const QPointF &pos) const;
    /// \brief The stop next to \a seconds, before or after it, for keys; the base has none.
    /// \return false when there is none.
    virtual bool FindStop(qint64 seconds, bool is_after, qint64 &stop_s) const;
    /// \brief The first or last stop of all, for Home and End; the base has none.
    /// \return false when there is none.
    virtual bool FindOutermostStop(bool is_last, qint64 &stop_s) const;

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

private:
    friend class CBaseFileProgressBar;

    // Zone
    [[nodiscard]] bool IsWithinDST(unsigned int seconds) const;
    void RecalculateDSTSeconds();
    void RecalculateTimeSpecOffset();
    void RefreshCalendarLabel(qint64 seconds);
    [[nodiscard]] QString TimeText(qint64 seconds) const;
    // Position. MoveTo() stops a slide, with `animate` a zoom too, stores the position, then slides
    // there or redraws.
    void MoveTo(qint64 position_ms, bool animate, int duration_ms, AnimationType type);
    void StorePosition(qint64 position_ms);
    void OnSlideStep(const QVariant &progress);
    void SlideByUser(qint64 position_ms);
    [[nodiscard]] bool CanAnimate(int duration_ms) const;
    // Scale
    [[nodiscard]] double MillisecondsAt(double x) const;
    void StoreScale(double scale_length_px, double time_length_s);
    void ApplyScale(double pixels_per_second);
    void OnZoomStep(const QVariant &progress);
    // Interaction
    [[nodiscard]] CAbstractDelegate *RespondingDelegate(QPoint pos) const;
    bool PassToDelegate(QMouseEvent *event);
    void EndPress();
    [[nodiscard]] bool KeyTarget(const QKeyEvent &event, qint64 &target_ms) const;
    bool ZoomByKey(int key);
    // Picture
    [[nodiscard]] int ShownFractionPx() const;
    void PaintRuler(QPainter &painter) const;
    void PlaceCalendarLabel();

    const std::unique_ptr<CAnimationProgressBarDataPtr> d_ptr_;
};

} // namespace Vantor
