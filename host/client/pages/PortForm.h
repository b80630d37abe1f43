// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QGroupBox>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
QT_END_NAMESPACE

namespace Client {

/// \brief Chooses a serial port, and says what became of it. With a camera, also takes a TCP
/// address instead, and the camera's own address.
class CPortForm : public QGroupBox
{
    Q_OBJECT

public:
    enum class Kind {
        kKeyboard,
        kCamera,
    };

    explicit CPortForm(Kind kind, QWidget *parent = nullptr);

    /// \brief The path of the chosen port, or the text that was entered.
    [[nodiscard]] QString Target() const;
    [[nodiscard]] int BaudRate() const;
    [[nodiscard]] quint8 CameraAddress() const;

    /// \brief Show whether the port is in use, and \a text about it.
    void SetState(bool is_connected, const QString &text);

Q_SIGNALS:
    void SignalConnect();
    void SignalDisconnect();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Arrange();
    void OnClicked(bool is_checked);
    void FindPorts();
    void Retranslate();

    const Kind kind_;
    QLabel *const target_label_;
    QComboBox *const target_;
    QLabel *const baud_rate_label_;
    QComboBox *const baud_rate_;
    QLabel *const address_label_;
    QSpinBox *const address_;
    QPushButton *const connect_;
    QLabel *const state_;
};

} // namespace Client
