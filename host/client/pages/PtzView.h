// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

namespace Client {

/// \brief Where a camera looks, and how fast that changes.
struct CameraAim
{
    double pan = 0;  ///< degrees, 0 to 360, growing to the right
    double tilt = 0; ///< degrees, -30 to 30, growing upwards
    double zoom = 1; ///< 1 to 8

    friend bool operator==(const CameraAim &a, const CameraAim &b)
    {
        return a.pan == b.pan && a.tilt == b.tilt && a.zoom == b.zoom;
    }
};

/// \brief The aim after \a seconds of \a operation, 100 to 109, at \a speed, 1 to 63. An operation
/// that moves nothing leaves it.
[[nodiscard]] CameraAim Moved(CameraAim aim, int operation, int speed, double seconds);

/// \brief A picture that pans, tilts and zooms as the devices say.
class CPtzView : public QWidget
{
    Q_OBJECT

public:
    explicit CPtzView(QWidget *parent = nullptr);

    /// \brief Begin \a operation at \a speed, or end it. What moves nothing is left out.
    void Control(int operation, bool is_stop, int speed);
    [[nodiscard]] CameraAim Aim() const { return aim_; }
    /// \brief The aim in words, as it is in the picture.
    [[nodiscard]] QString Text() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void OnTick();

    CameraAim aim_;
    int operation_ = 0; // 0: at rest
    int speed_ = 0;
    QTimer timer_;
    QElapsedTimer since_tick_;
};

} // namespace Client
